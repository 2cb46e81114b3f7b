#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/statistics.h"

namespace velmora {

/// What differs between the three buttons. The differences are part of the design.
struct Form5::ValidacionDeTarea {
    int tarea;
    int base;  ///< first cell of the task's block in Text1
    std::string_view sin_datos;
    bool ultima_fila_con_tiempo_del_primer_dia;
    Button* siguiente;  ///< the next task's button, none after the last task

    /// First cell of row r (1 to 6, or further on if more are in use) of the block.
    int Fila(int r) const { return base + hoja::kColumnas * (r - 1); }
};

namespace {

constexpr int kColumnaEd = 2;
constexpr int kColumnaEc = 3;
constexpr int kColumnaMmp = 13;
constexpr int kColumnaIndice = 14;
constexpr double kHorasDeJornada = 8;

}  // namespace

void Form5::Command1_Click() { ValidarTarea({1, 0, "No hay datos para operar", false, &Command2}); }

void Form5::Command2_Click() {
    // Row 6 of this task alone takes the first day's time, whatever the day: it is on purpose.
    ValidarTarea({2, 108, " No hay datos para operar", true, &Command3});
}

void Form5::Command3_Click() {
    ValidarTarea({3, 216, " No hay datos para operar", false, nullptr});
}

void Form5::ValidarTarea(const ValidacionDeTarea& tarea) {
    Host& host = entorno_.host;
    if (FaltanLimites(tarea)) {
        host.MsgBox("No se dispone de datos relativos a los contaminantes ");
        return;
    }
    if (!HayDatosEnLaPrimeraTarea()) {
        host.MsgBox(tarea.sin_datos);
        return;
    }
    PorCadaMuestra(tarea.base, [](TextCell& celda) { celda.ForeColor = kTextoDeVentana; });
    if (FaltanMuestras(tarea)) {
        host.MsgBox("No hay datos suficientes para operar ");
        return;
    }
    if (HayHuecos(tarea)) {
        host.MsgBox("No deje espacios vacios");
        return;
    }
    CalcularFilas(tarea);
    Text7.Text.clear();
    PorCadaMuestra(tarea.base, [](TextCell& celda) { celda.BackColor = kFondoDeVentana; });

    const Entero tareas = entorno_.record.NumTareas;
    if (tareas == tarea.tarea) {
        Abrir(Command4);
    } else if (tareas > tarea.tarea && tarea.siguiente != nullptr) {
        Abrir(*tarea.siguiente);
    }
}

bool Form5::FaltanLimites(const ValidacionDeTarea& tarea) const {
    const int n = entorno_.record.NumContaminantes(tarea.tarea).Valor();
    for (int r = 1; r <= n; ++r) {
        const Doble ed = Valor(tarea.Fila(r) + kColumnaEd);
        const Doble ec = Valor(tarea.Fila(r) + kColumnaEc);
        if (ed == 0 && ec == 0) return true;
    }
    return false;
}

bool Form5::HayDatosEnLaPrimeraTarea() const {
    // All three buttons look at the first task's samples, not at their own.
    for (int i = 0; i <= 5; ++i) {
        for (int j = 0; j <= 5; ++j) {
            if (!Text1(7 + 18 * i + j).Text.empty()) return true;
        }
    }
    return false;
}

bool Form5::FaltanMuestras(const ValidacionDeTarea& tarea) const {
    const int n = entorno_.record.NumContaminantes(tarea.tarea).Valor();
    for (int r = 1; r <= n; ++r) {
        int llenas = 0;
        for (int c = hoja::kPrimeraMuestra; c <= hoja::kUltimaMuestra; ++c) {
            if (!Text1(tarea.Fila(r) + c).Text.empty()) ++llenas;
        }
        if (llenas < 2) return true;
    }
    return false;
}

bool Form5::HayHuecos(const ValidacionDeTarea& tarea) const {
    for (int r = 1; r <= hoja::kFilasPorTarea; ++r) {
        for (int c = hoja::kPrimeraMuestra; c < hoja::kUltimaMuestra; ++c) {
            const std::string& izquierda = Text1(tarea.Fila(r) + c).Text;
            const std::string& derecha = Text1(tarea.Fila(r) + c + 1).Text;
            if ((izquierda.empty() && !derecha.empty()) ||
                (LeerValor(izquierda) == 0 && !derecha.empty())) {
                return true;
            }
        }
    }
    return false;
}

void Form5::CalcularFilas(const ValidacionDeTarea& tarea) {
    EvaluacionRecord& record = entorno_.record;
    for (int r = 1; r <= hoja::kFilasPorTarea; ++r) {
        // The sum of the sample counts bounds the rows, not the number of contaminants.
        if (record.Muestras30(DiaActual, tarea.tarea) + record.Muestras15(DiaActual, tarea.tarea) <
            r) {
            break;
        }
        Muestras muestras;
        for (int c = 0; c <= 5; ++c) {
            const std::string& texto = Text1(tarea.Fila(r) + hoja::kPrimeraMuestra + c).Text;
            if (texto.empty() || LeerValor(texto) == 0) break;
            muestras(c + 1) = LeerValor(texto);
        }
        const Doble mmp = MediaEstimada(record, muestras, DiaActual, tarea.tarea, r);
        Text1(tarea.Fila(r) + kColumnaMmp).Text = FormatoDosDecimales(mmp);

        const bool primer_dia =
            r == hoja::kFilasPorTarea && tarea.ultima_fila_con_tiempo_del_primer_dia;
        const Doble vla_ed = record.VlaEd(tarea.tarea, r);
        Doble indice = 0;
        if (vla_ed != 0) {
            const Doble horas =
                record.TiempoExposicion(primer_dia ? Entero(1) : DiaActual, tarea.tarea);
            indice = horas * mmp / (vla_ed * kHorasDeJornada);
        }
        Text1(tarea.Fila(r) + kColumnaIndice).Text = FormatoDosDecimales(indice);
    }
}

template <class Cambio>
void Form5::PorCadaMuestra(int base, Cambio cambio) {
    for (int r = 0; r < hoja::kFilasPorTarea; ++r) {
        for (int c = hoja::kPrimeraMuestra; c <= hoja::kUltimaMuestra; ++c) {
            cambio(Text1(base + hoja::kColumnas * r + c));
        }
    }
}

}  // namespace velmora
