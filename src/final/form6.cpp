#include "final/form6.h"

#include <array>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "runtime/error.h"
#include "store/evaluation_file.h"

namespace velmora {

namespace {

constexpr Color kAzulPalido = 0xF5E6D8;
constexpr Color kAzulMarino = 0x5A2D0C;
constexpr Color kVerdePalido = 0xE1F5E1;

constexpr Box kAreaCliente{0, 0, 11880, 8310};

constexpr int kFilas = 18;
constexpr int kFilasPorTarea = 6;
constexpr int kColumnas = 9;

// Columns of HojaFinal, from 1.
constexpr int kColumnaNumero = 1;
constexpr int kColumnaNombre = 2;
constexpr int kColumnaI1 = 3;
constexpr int kColumnaI2 = 4;
constexpr int kColumnaI3 = 5;
constexpr int kColumnaIG = 6;
constexpr std::array kColumnasCopiadas = {2, 3, 4, 5, 7, 8, 9};

struct Columna {
    int left;
    int width;
    std::string_view rotulo;
    std::string_view nombre;   ///< as a screen reader says it
    std::string_view ayuda{};  ///< tool tip of the heading
};

// clang-format off
constexpr std::array<Columna, kColumnas> kTabla = {{
    {  300,  435, "Nº",                      "número"},
    {  750, 3000, "Nombre del contaminante", "nombre del contaminante"},
    { 3855,  960, "I1",                      "índice del primer día",
     "El Indic.+ del primer día."},
    { 4830,  960, "I2",                      "índice del segundo día",
     "El Indic.+ del segundo día."},
    { 5805,  960, "I3",                      "índice del tercer día",
     "El Indic.+ del tercer día."},
    { 6780, 1950, "IG",                      "índice global IG",
     "Media geométrica de los tres índices; 0 si falta el tercer día."}, // up to fifteen digits
    { 8835,  900, "P1",                      "probabilidad del primer día",
     "La Prob. del primer día, en tanto por ciento."},
    { 9750,  900, "P2",                      "probabilidad del segundo día",
     "La Prob. del segundo día, en tanto por ciento."},
    {10665,  900, "P3",                      "probabilidad del tercer día",
     "La Prob. del tercer día, en tanto por ciento."},
}};

constexpr int kAltoDeRotulo    = 255;
constexpr int kAltoDeCelda     = 285;
constexpr int kPasoDeFila      = 300;
constexpr int kPasoDeBloque    = 2220;
constexpr int kPrimerRotulo    = 990;  ///< top of the first block's label
constexpr int kPrimeraFila     = 1260; ///< top of the first block's first row

constexpr Look kAspectoDeBloque{.bold = true, .fore = kAzulMarino, .back = kAzulPalido};

constexpr Row kCommand1{.name = "Command1", .box = {3855, 150, 4875, 375},
                        .text = "RESULTADOS FINALES :    VALIDAR", .tab = 0};
constexpr Row kLabel2{.name = "Label2", .box = {9120, 7980, 2655, 255}, .look = kAspectoDelReloj};

// The blocks are the tasks of the plan, though their labels speak of workdays.
constexpr Row kLabel3{.name = "Label3", .box = {300, kPrimerRotulo, 3450, kAltoDeRotulo},
                      .text = "Primera Jornada", .look = kAspectoDeBloque, .in_table = true};
constexpr Row kLabel5{.name = "Label5", .box = {300, kPrimerRotulo + kPasoDeBloque, 3450, kAltoDeRotulo},
                      .text = "Segunda  Jornada", .look = kAspectoDeBloque, .in_table = true};
constexpr Row kLabel6{.name = "Label6", .box = {300, kPrimerRotulo + 2 * kPasoDeBloque, 3450, kAltoDeRotulo},
                      .text = "Tercera  Jornada", .look = kAspectoDeBloque, .in_table = true};
// clang-format on

constexpr std::array<std::string_view, kFilasPorTarea> kNumeros = {"1", "2", "3", "4", "5", "6"};

constexpr std::string_view kCeldaVacia = "----";

/// Index in `Text1` of a cell of `HojaFinal`, by row (1 to 18) and column (1 to 9).
constexpr int Celda(int fila, int columna) { return fila * kColumnas - kColumnas + columna - 1; }

constexpr int TareaDe(int fila) { return (fila - 1) / kFilasPorTarea + 1; }
constexpr int ContaminanteDe(int fila) { return (fila - 1) % kFilasPorTarea + 1; }

constexpr const Columna& ColumnaDe(int columna) {
    return kTabla.at(static_cast<std::size_t>(columna - 1));
}

constexpr Row FilaDelEncabezado(int columna) {
    const Columna& c = ColumnaDe(columna);
    return {
        .name = "Label4",
        .index = columna - 1,
        .box = {c.left, 645, c.width, kAltoDeRotulo},
        .text = c.rotulo,
        .look = {.bold = true, .align = Align::Center, .fore = kAzulMarino, .back = kAzulPalido},
        .spoken = c.nombre,
        .tool_tip = c.ayuda,
        .in_table = true};
}

constexpr Row FilaDeLaCelda(int fila, int columna) {
    const Columna& c = ColumnaDe(columna);
    const int contaminante = ContaminanteDe(fila);
    const int top =
        kPrimeraFila + (TareaDe(fila) - 1) * kPasoDeBloque + (contaminante - 1) * kPasoDeFila;
    const auto numero = kNumeros.at(static_cast<std::size_t>(contaminante - 1));
    return {.name = "Text1",
            .index = Celda(fila, columna),
            .box = {c.left, top, c.width, kAltoDeCelda},
            .text = columna == kColumnaNumero ? numero : std::string_view{},
            .look = {.bold = columna == kColumnaIG,
                     .align = columna == kColumnaNombre ? Align::Left : Align::Center,
                     .back = columna == kColumnaIG ? kVerdePalido : kFondoDeVentana},
            .tab = Celda(fila, columna) + 1,
            .in_table = true};
}

std::string NombreDeLaCelda(int fila, int columna) {
    std::string nombre = "Tarea " + TextoEntero(TareaDe(fila));
    nombre.append(", contaminante ").append(TextoEntero(ContaminanteDe(fila))).append(", ");
    return nombre.append(ColumnaDe(columna).nombre);
}

}  // namespace

Form6::Form6(const Entorno& entorno)
    : Screen(ScreenId::Form6, " Velmora / h6", kAreaCliente, Label2), entorno_(entorno) {
    Place(Command1, kCommand1, [this] { Command1_Click(); });
    Place(Label2, kLabel2);
    Place(Label3, kLabel3);
    Place(Label5, kLabel5);
    Place(Label6, kLabel6);
    ColocarTabla();
    SetMenu({{"vacio1"},
             {"vacio2"},
             // Pressing this title moves at once: the mouse doesn't reach its list, and is meant
             // not to.
             {"regresar",
              "Continuar/Regresar",
              [this] { regresar_Click(); },
              {{"calculos", "Cálculos", [this] { calculos_Click(); }},
               {"contaminantes", "Contaminantes", [this] { contaminantes_Click(); }},
               {"datosiniciales", "Datos  iniciales: Jornadas y Tareas",
                [this] { datosiniciales_Click(); }},
               {"datosdeempresa", "Datos de empresa", [this] { datosdeempresa_Click(); }}}},
             {"vacio10"},
             {"vacio11"},
             {"guardararchivo", "Guardar en disco ", [this] { guardararchivo_Click(); }},
             {"vacio21"},
             {"vacio22"},
             {"imprimir", "Imprimir", [this] { imprimir_Click(); }},
             {"vacio30"},
             {"vacio32"},
             {"salir", "Salir", [this] { salir_Click(); }}});
}

void Form6::ColocarTabla() {
    for (int columna = 1; columna <= kColumnas; ++columna) {
        Place(Label4(columna - 1), FilaDelEncabezado(columna));
    }
    for (int fila = 1; fila <= kFilas; ++fila) {
        for (int columna = 1; columna <= kColumnas; ++columna) {
            const Row row = FilaDeLaCelda(fila, columna);
            Place(Text1(row.index), row, {}, NombreDeLaCelda(fila, columna));
        }
    }
}

void Form6::Form_Load() {
    for (TextCell& celda : Text1) celda.Visible = false;
    for (Label& encabezado : Label4) encabezado.Visible = false;
    for (Label* bloque : {&Label3, &Label5, &Label6}) bloque->Visible = false;
}

void Form6::Timer1_Timer() { Label2.Caption = FormatoFecha(entorno_.host.Now()); }

void Form6::Command1_Click() {
    MostrarRotulos();
    CopiarHojaFinal();
    CalcularIndiceGlobal();
    MostrarCeldasEnUso();
    RellenarVacias();
}

void Form6::MostrarRotulos() {
    const Entero tareas = entorno_.record.NumTareas;
    for (Label& encabezado : Label4) encabezado.Visible = true;
    if (tareas >= 1) Label3.Visible = true;
    if (tareas >= 2) Label5.Visible = true;
    if (tareas == 3) Label6.Visible = true;
}

void Form6::CopiarHojaFinal() {
    // IG isn't copied: an earlier press's stays until a new value replaces it.
    for (int fila = 1; fila <= kFilas; ++fila) {
        for (const int columna : kColumnasCopiadas) {
            Text1(Celda(fila, columna)).Text = entorno_.record.HojaFinal(fila, columna);
        }
    }
}

void Form6::CalcularIndiceGlobal() {
    for (int fila = 1; fila <= kFilas; ++fila) {
        auto& resultados = entorno_.record.HojaFinal(fila);
        const Doble u = LeerValor(resultados(kColumnaI1));
        const Doble v = LeerValor(resultados(kColumnaI2));
        if (u == 0 || v == 0) continue;
        // The third day isn't tested: without it the overall index is 0, on purpose.
        const Doble w = LeerValor(resultados(kColumnaI3));
        resultados(kColumnaIG) = TextoDoble(Potencia(u * v * w, Doble(1.0) / Doble(3.0)));
        Text1(Celda(fila, kColumnaIG)).Text = resultados(kColumnaIG);
    }
}

void Form6::MostrarCeldasEnUso() {
    const auto mostrar = [this](int tarea, Entero primera) {
        const Entero ultima = entorno_.record.NumContaminantes(tarea) * kColumnas + (primera - 1);
        for (Entero i = primera; i <= ultima; ++i) Text1(i).Visible = true;
    };
    const Entero tareas = entorno_.record.NumTareas;
    if (tareas >= 1) mostrar(1, 0);
    if (tareas >= 2) mostrar(2, 54);
    if (tareas == 3) mostrar(3, 108);
}

void Form6::RellenarVacias() {
    // Hidden cells, too. No cell is empty from here on, so none is left to be hidden for that.
    for (TextCell& celda : Text1) {
        if (celda.Text.empty()) celda.Text = kCeldaVacia;
    }
}

void Form6::regresar_Click() { entorno_.chain.Go(ScreenId::Form5); }
void Form6::calculos_Click() { entorno_.chain.Go(ScreenId::Form5); }
void Form6::contaminantes_Click() { entorno_.chain.Go(ScreenId::Form4); }
void Form6::datosiniciales_Click() { entorno_.chain.Go(ScreenId::Form3); }
void Form6::datosdeempresa_Click() { entorno_.chain.Go(ScreenId::Form2); }

void Form6::guardararchivo_Click() {
    // Overwrite prompt 2, create prompt 8192, explorer style 524288, long names 2097152.
    constexpr std::uint32_t kPreguntarAntesDeEscribir = 2629634;
    CommonDialog1.DialogTitle = " Guardar datos";
    CommonDialog1.Flags = kPreguntarAntesDeEscribir;
    CommonDialog1.DefaultExt = "doc";
    Intentar([&] { entorno_.host.ShowSave(CommonDialog1); });
    // After a Cancel the name of an earlier visit to the dialog is written once more.
    WriteEvaluation(CommonDialog1.FileName, entorno_.record);
}

void Form6::imprimir_Click() {
    Imprimir(entorno_.host, CommonDialog1, {"Se imprimirán los resultados en  pantalla", 1, 1000});
}

void Form6::salir_Click() { Salir(entorno_.host, Estilo::SiNoInformacion); }

}  // namespace velmora
