#pragma once

#include <array>

#include "core/grid.h"
#include "core/navigation.h"
#include "core/numbers.h"
#include "runtime/array.h"

namespace velmora {

/// The daily calculation sheet: one grid of text cells that serves the sampled days in turn.
///
/// The grid has 18 rows, six for each of three tasks; its cells are `Text1` and `Text3`, and where
/// they stand in these is told in core/grid.h. The text of the cells is the working memory of the
/// handlers: a number computed by one reaches the next as text, with the precision of that text.
/// The chain of buttons is carried by their `Visible` and `Enabled` alone, and a handler only ever
/// opens the next one.
class Form5 : public BaseScreen {
public:
    explicit Form5(const Environment& environment);

    // Day slots (day_slots.cpp)
    void Form_Load() override;
    void introprimero_Click();
    void introsegundo_Click();
    void introtercero_Click();
    void recupprimerdia_Click();
    void recupsegundodia_Click();
    void recuptercerdia_Click();
    /// Blanks and hides the sheet. The argument is not used.
    void limpia(const Entero& c);
    /// Lays out an empty sheet for the day c.
    void intro(const Entero& c);
    /// Lays out the sheet and fills it from the slot of the day s.
    void recupera(const Entero& s);

    // The key filter of the measurements (key_filter.cpp)
    void Text1_KeyPress(int Index, KeyCode& key);

    // Task validation (task_validation.cpp): one button for each task
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

    // Daily index (daily_index.cpp)
    void Command4_Click();

    // Short-exposure evaluation (short_exposure.cpp): one button for each task
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();

    // Workday conclusions (conclusions.cpp)
    void Command8_Click();
    /// Kept here, called by nothing: copies the Indice of each row whose A+ is the row's number
    /// less one to row a + 1 of the final table.
    void IndiceFinal(const Entero& a);

    void datosiniciales_Click();
    void contaminantes_Click();
    void resultadosfinales_Click();
    void datosempresa_Click();
    void imprimir_Click();
    void salir_Click();

    Array<TextCell, 0, grid::kRows * grid::kColumns - 1> Text1;
    Array<TextCell, 0, grid::kRows * grid::kColumns3 - 1> Text3;
    /// Headings of Text1 by task, then the tasks' titles.
    Array<Label, 0, grid::TitleOf(grid::kTasks)> Label7;
    Array<Label, 0, grid::kTasks * grid::kColumns3 - 1> Label3;  ///< headings of Text3 by task
    TextCell Text2, Text4, Text5, Text6, Text7;  ///< the day's answers and sentences
    Label Label1, Label2, Label4;
    Label Label5;  ///< the clock
    Button Command1, Command2, Command3, Command4, Command5, Command6, Command7, Command8;
    CommonDialog CommonDialog1;

    Entero DiaActual;  ///< the day that the sheet shows, as the menu passed it; 0 before the first

private:
    class TaskValidation;
    class ShortExposure;

    void PlaceSheet();
    void PlaceControls();
    void PlaceMenu();

    // Cells by row, from 1, and column; the columns are named in grid.h.
    TextCell& Cell(int row, int column);
    const TextCell& Cell(int row, int column) const;
    TextCell& Cell3(int row, int column);
    /// The text of a cell of `Text1` read as a number.
    Doble Value(int cell) const;
    Doble Value(int row, int column) const { return LeerValor(Cell(row, column).Text); }

    void Begin(int day);
    void TakeUpAgain(int day);
    Entero RowsInUse(const Entero& task) const;
    void LayOutTask(int task);
    void FillPlan(int task);
    void UnlockSamples(int task, const Entero& rows);
    bool IsRefused(const Entero& day);
    std::array<TextCell*, 5> ConclusionCells() { return {&Text2, &Text4, &Text5, &Text6, &Text7}; }
    void SetConclusionsVisible(bool visible);
    template <class Visitor>
    void ForEachEntry(Visitor visit);

    void Open(Button& button);
    void OpenAfter(int task, Button Form5::*next, Button& after_the_last);

    void SumGroup(int k);
    void ShowMeansAndDeviations();
    void CopyIndicesWithoutGroup();
    void SpreadSums();

    bool MarkSampleOverLimit(int minutes, Color color);
    void CopyToFinalTable();

    // Counters of the key filter: it alone touches them, and they outlive the layout of a day.
    Entero CifrasTecleadas;
    Entero PuntosTecleados;
    Entero CeldaFiltrada;
};

/// Visits the 401 entries of the present day's sheet in their order, each with the cell whose text
/// it holds.
template <class Visitor>
void Form5::ForEachEntry(Visitor visit) {
    DaySheet& entries = environment_.record.Hoja(DiaActual);
    int entry = 0;
    for (TextCell& cell : Text1) visit(entries(++entry), cell);
    for (TextCell& cell : Text3) visit(entries(++entry), cell);
    for (TextCell* cell : ConclusionCells()) visit(entries(++entry), *cell);
}

}  // namespace velmora
