#pragma once

#include <array>
#include <string>

#include "core/grid.h"
#include "runtime/array.h"
#include "runtime/doble.h"
#include "runtime/entero.h"

namespace velmora {

/// A value for each day (1 to 3) and task (1 to 3).
template <class T>
using ByDayAndTask = Array<Array<T, 1, 3>, 1, 3>;

/// A value for each task (1 to 3) and contaminant (1 to 6).
template <class T>
using ByTaskAndContaminant = Array<Array<T, 1, 6>, 1, 3>;

/// A day's sheet as the text of its cells: entries 1 to 324 the main grid, 325 to 396 the
/// right-hand grid, 397 to 401 Text2, Text4, Text5, Text6 and Text7.
using DaySheet = Array<std::string, 1, 401>;

/// The one evaluation in memory, all that survives a move between screens.
///
/// Subscripts start at 1 and are checked. The plan is held as numbers and strings; the results of
/// a day are held as the text of the cells that showed them. Everything starts at 0 and empty.
/// Text is UTF-8.
struct EvaluacionRecord {
    Array<std::string, 1, 19> DatosEmpresa;  ///< company and evaluation data, by field number
    Entero NumJornadas;                      ///< sampled workdays: 0 until set, then 1 or 3
    Entero NumTareas;                        ///< tasks in each workday: 0 until set, then 1 to 3

    ByDayAndTask<Doble> TiempoExposicion;  ///< exposure time of the task on that day, in hours
    ByDayAndTask<Entero> Muestras30;       ///< contaminants taken with 30-minute samples
    ByDayAndTask<Entero> Muestras15;       ///< contaminants taken with 15-minute samples

    Array<Entero, 1, 3> NumContaminantes;  ///< contaminants of the task, whatever the day
    ByTaskAndContaminant<std::string> NombreContaminante;
    ByTaskAndContaminant<Doble> VlaEd;            ///< daily limit value, in the agent's unit
    ByTaskAndContaminant<Doble> VlaEc;            ///< short-exposure limit value, 0 for none
    ByTaskAndContaminant<Entero> TiempoMuestreo;  ///< minutes of a sample, 15 or 30
    ByTaskAndContaminant<Entero> Aditivo;         ///< number of the additive group, 0 for none
    ByTaskAndContaminant<std::string> Unidades;   ///< "mg/m3" or "ppm"

    /// Working values of the sheet by day, task and contaminant; the file doesn't hold them.
    Array<ByTaskAndContaminant<Doble>, 1, 3> MG;
    Array<ByTaskAndContaminant<Doble>, 1, 3> GSD;
    Array<ByTaskAndContaminant<Doble>, 1, 3> MGmas;
    Array<ByTaskAndContaminant<Doble>, 1, 3> GSDmas;

    DaySheet HojaPrimerDia;
    DaySheet HojaSegundoDia;
    DaySheet HojaTercerDia;

    /// The sheet of the first, second or third day; SubscriptOutOfRange for another.
    DaySheet& Hoja(Entero day) { return this->*SheetOf(day); }
    const DaySheet& Hoja(Entero day) const { return this->*SheetOf(day); }

    /// The final table, by row and column as told in grid.h.
    Array<Array<std::string, 1, final_table::kColumns>, 1, grid::kRows> HojaFinal;

    friend bool operator==(const EvaluacionRecord&, const EvaluacionRecord&) = default;

private:
    static DaySheet EvaluacionRecord::*SheetOf(Entero day) {
        static constexpr Array<DaySheet EvaluacionRecord::*, 1, 3> kSheets(
            std::array{&EvaluacionRecord::HojaPrimerDia, &EvaluacionRecord::HojaSegundoDia,
                       &EvaluacionRecord::HojaTercerDia});
        return kSheets(day);
    }
};

}  // namespace velmora
