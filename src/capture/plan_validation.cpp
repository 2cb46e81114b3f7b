#include "capture/form3.h"
#include "core/numbers.h"

namespace velmora {

void Form3::Command2_Click() {
    if (!EntryIsAccepted()) return;
    StoreEntry();
    RefrescarRejilla();
}

/// Whether the entry row may be stored; otherwise tells why, with the record untouched.
bool Form3::EntryIsAccepted() {
    const EvaluacionRecord& record = environment_.record;
    if (record.NumJornadas == 0 || record.NumTareas == 0) {
        environment_.host.MsgBox(
            "No puede cargar datos de mediciones si no indica previamente el número de jornadas y "
            "de tareas");
        return false;
    }
    for (int i = 2; i <= 7; ++i) {
        if (Combo1(i).Text.empty()) {
            environment_.host.MsgBox("Antes de validar introduzca  todos los datos");
            return false;
        }
    }
    const Doble day = ConvertirDoble(Combo1(2).Text);
    const Doble task = ConvertirDoble(Combo1(3).Text);
    if (day > record.NumJornadas.AsDoble() || task > record.NumTareas.AsDoble()) {
        environment_.host.MsgBox(
            "El número de Jornadas y Tareas seleccionado debe ser coherente con los valores "
            "asignados");
        return false;
    }
    const Doble samples = LeerValor(Combo1(5).Text) + LeerValor(Combo1(6).Text);
    if (samples != LeerValor(Combo1(7).Text)) {
        environment_.host.MsgBox(
            "El número total de contaminantes es  la suma de los expresados para 30' y 15' ");
        return false;
    }
    return true;
}

void Form3::StoreEntry() {
    EvaluacionRecord& record = environment_.record;
    const int d = ConvertirLargo(Combo1(2).Text);
    const int t = ConvertirLargo(Combo1(3).Text);
    record.TiempoExposicion(d, t) = ConvertirDoble(Combo1(4).Text);
    record.Muestras30(d, t) = ConvertirEntero(Combo1(5).Text);
    record.Muestras15(d, t) = ConvertirEntero(Combo1(6).Text);
    // The task's count has no day: an entry for another day overwrites it.
    record.NumContaminantes(t) = ConvertirEntero(Combo1(7).Text);
}

void Form3::RefrescarRejilla() {
    const EvaluacionRecord& record = environment_.record;
    Entero k = 1;
    for (int d = 1; d <= record.NumJornadas.Value(); ++d) {
        for (int t = 1; t <= record.NumTareas.Value(); ++t) {
            // No hours, no entry: such a row stays as it stands.
            if (record.TiempoExposicion(d, t) != 0) WriteRow(k, d, t);
            ++k;
        }
    }
}

/// Writes hours, samples and contaminants of day `d` and task `t` into row `k`, counted from 1.
void Form3::WriteRow(Entero k, Entero d, Entero t) {
    const EvaluacionRecord& record = environment_.record;
    Cell(k, kHours).Text = TextoDoble(record.TiempoExposicion(d, t));
    Cell(k, kSamples30).Text = TextoEntero(record.Muestras30(d, t));
    Cell(k, kSamples15).Text = TextoEntero(record.Muestras15(d, t));
    Cell(k, kContaminants).Text = TextoEntero(record.NumContaminantes(t));
}

}  // namespace velmora
