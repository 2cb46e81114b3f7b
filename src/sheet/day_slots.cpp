#include "core/numbers.h"
#include "sheet/form5.h"

namespace velmora {

namespace {

constexpr int kCeldasPorTarea = hoja::kColumnas * hoja::kFilasPorTarea;    // of Text1
constexpr int kCeldas3PorTarea = hoja::kColumnas3 * hoja::kFilasPorTarea;  // of Text3

// clang-format off
constexpr std::string_view kTituloSinDia   = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ";
constexpr std::string_view kTituloPrimero  = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA ";
constexpr std::string_view kTituloSegundo  = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA";
constexpr std::string_view kTituloTercero  = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA";
// clang-format on

void Ocultar(TextCell& celda) {
    celda.Visible = false;
    celda.Locked = true;
    celda.Text.clear();
}

void Cerrar(Button& boton) {
    boton.Visible = false;
    boton.Enabled = false;
}

}  // namespace

void Form5::Form_Load() {
    Caption = kTituloSinDia;
    limpia(1);
}

// The caption is set before the day is tested: a refused day shows its name all the same.

void Form5::introprimero_Click() {
    Caption = kTituloPrimero;
    limpia(1);
    intro(1);
}

void Form5::introsegundo_Click() {
    Caption = kTituloSegundo;
    limpia(2);
    intro(2);
}

void Form5::introtercero_Click() {
    Caption = kTituloTercero;
    limpia(3);
    intro(3);
}

void Form5::recupprimerdia_Click() {
    Caption = kTituloPrimero;
    recupera(1);
}

void Form5::recupsegundodia_Click() {
    Caption = kTituloSegundo;
    recupera(2);
}

void Form5::recuptercerdia_Click() {
    Caption = kTituloTercero;
    recupera(3);
}

void Form5::limpia(const Entero& /*c*/) {
    for (Label& rotulo : Label7) rotulo.Visible = false;
    for (TextCell& celda : Text1) Ocultar(celda);
    for (Button* boton :
         {&Command1, &Command2, &Command3, &Command4, &Command5, &Command6, &Command7}) {
        Cerrar(*boton);
    }
    for (Label& rotulo : Label3) rotulo.Visible = false;
    for (TextCell& celda : Text3) Ocultar(celda);
    Cerrar(Command8);
    for (Label* rotulo : {&Label1, &Label2, &Label4}) rotulo->Visible = false;
    // Hidden only: these five keep their text until the conclusions are validated again.
    for (TextCell* celda : {&Text2, &Text4, &Text5, &Text6, &Text7}) celda->Visible = false;
}

Entero Form5::FilasEnUso(const Entero& tarea) const {
    // The day's sample counts decide, not the task's list of contaminants.
    return entorno_.record.Muestras15(DiaActual, tarea) +
           entorno_.record.Muestras30(DiaActual, tarea);
}

void Form5::DisponerTarea(const Entero& tarea) {
    const int t = tarea.Valor();
    for (int i = 0; i < hoja::kColumnas; ++i) Label7((t - 1) * hoja::kColumnas + i).Visible = true;
    for (int i = 0; i < hoja::kColumnas3; ++i) {
        Label3((t - 1) * hoja::kColumnas3 + i).Visible = true;
    }
    Label7(53 + t).Visible = true;

    const int base = (t - 1) * kCeldasPorTarea;
    const int base3 = (t - 1) * kCeldas3PorTarea;
    for (int i = 0; i < kCeldasPorTarea; ++i) {
        Text1(base + i).Text.clear();
        Text1(base + i).Visible = false;
    }
    for (int i = 0; i < kCeldas3PorTarea; ++i) {
        Text3(base3 + i).Text.clear();
        Text3(base3 + i).Visible = false;
    }
    const Entero n = FilasEnUso(tarea);
    for (int i = 0; i < (n * hoja::kColumnas).Valor(); ++i) {
        Text1(base + i).Visible = true;
        Text1(base + i).Locked = true;
    }
    for (int i = 0; i < (n * hoja::kColumnas3).Valor(); ++i) {
        Text3(base3 + i).Visible = true;
        Text3(base3 + i).Locked = true;
    }
}

void Form5::RellenarPlan(const Entero& tarea) {
    const EvaluacionRecord& record = entorno_.record;
    const int base = (tarea.Valor() - 1) * kCeldasPorTarea;
    const int n = FilasEnUso(tarea).Valor();
    for (int r = 1; r <= n; ++r) {
        const int fila = base + (r - 1) * hoja::kColumnas;
        Text1(fila).Text = TextoEntero(r);
        Text1(fila + 1).Text = record.NombreContaminante(tarea, r);
        Text1(fila + 2).Text = TextoDoble(record.VlaEd(tarea, r));
        Text1(fila + 3).Text = TextoDoble(record.VlaEc(tarea, r));
        Text1(fila + 4).Text = record.Unidades(tarea, r);
        Text1(fila + 5).Text = TextoEntero(record.TiempoMuestreo(tarea, r));
        Text1(fila + 6).Text = TextoEntero(record.Aditivo(tarea, r));
    }
}

void Form5::AbrirMediciones(const Entero& tarea, const Entero& filas) {
    const int base = (tarea.Valor() - 1) * kCeldasPorTarea;
    for (int r = 1; r <= filas.Valor(); ++r) {
        for (int c = hoja::kPrimeraMuestra; c <= hoja::kUltimaMuestra; ++c) {
            Text1(base + (r - 1) * hoja::kColumnas + c).Locked = false;
        }
    }
}

void Form5::Abrir(Button& boton) {
    boton.Visible = true;
    boton.Enabled = true;
}

bool Form5::DiaIncoherente(const Entero& dia) {
    if (dia <= entorno_.record.NumJornadas) return false;
    limpia(dia);
    entorno_.host.MsgBox(
        " El número de día seleccionado no es coherente con los datos introducidos");
    return true;
}

void Form5::intro(const Entero& c) {
    const Entero tareas = entorno_.record.NumTareas;
    DiaActual = c;
    if (DiaIncoherente(c)) return;
    if (tareas < 1) return;
    Abrir(Command1);
    const auto empezar = [this](int tarea) {
        DisponerTarea(tarea);
        RellenarPlan(tarea);
        AbrirMediciones(tarea, FilasEnUso(tarea));
    };
    empezar(1);
    if (tareas < 2) return;
    empezar(2);
    if (tareas != 3) return;
    empezar(3);
}

void Form5::recupera(const Entero& s) {
    const Entero tareas = entorno_.record.NumTareas;
    DiaActual = s;
    if (DiaIncoherente(s)) return;
    limpia(s);
    if (entorno_.record.NumJornadas == 0 || tareas == 0) return;
    Entero n;  // rows of the last task laid out
    const auto disponer = [this, &n](Button& boton, int tarea) {
        Abrir(boton);
        DisponerTarea(tarea);
        n = FilasEnUso(tarea);
        AbrirMediciones(tarea, n);
    };
    disponer(Command1, 1);
    if (tareas >= 2) disponer(Command2, 2);
    // The first button once more: after a recovery the third task's stays closed, as meant.
    if (tareas == 3) disponer(Command1, 3);
    Abrir(Command8);
    MostrarConclusiones();

    const HojaDelDia& hoja_guardada = *HojaDelDiaActual();
    for (int i = 1; i <= 324; ++i) Text1(i - 1).Text = hoja_guardada(i);
    for (int i = 325; i <= 396; ++i) Text3(i - 325).Text = hoja_guardada(i);
    Text2.Text = hoja_guardada(397);
    Text4.Text = hoja_guardada(398);
    Text5.Text = hoja_guardada(399);
    Text6.Text = hoja_guardada(400);
    Text7.Text = hoja_guardada(401);

    // The third task's rows, with the count of whichever task came last: nothing visible changes.
    if (s == 3) AbrirMediciones(3, n);
}

void Form5::MostrarConclusiones() {
    for (Label* rotulo : {&Label1, &Label2, &Label4}) rotulo->Visible = true;
    for (TextCell* celda : {&Text2, &Text4, &Text5, &Text6, &Text7}) celda->Visible = true;
}

HojaDelDia* Form5::HojaDelDiaActual() {
    EvaluacionRecord& record = entorno_.record;
    switch (DiaActual.Valor()) {
        case 1:
            return &record.HojaPrimerDia;
        case 2:
            return &record.HojaSegundoDia;
        case 3:
            return &record.HojaTercerDia;
        default:
            return nullptr;
    }
}

}  // namespace velmora
