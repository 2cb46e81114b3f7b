#include "capture/form2.h"

#include <array>
#include <string_view>

#include "store/evaluation_file.h"

namespace velmora {

namespace {

constexpr Color kBlanco = 0xFFFFFF;
constexpr Color kRojo = 0x0000FF;
constexpr Color kAzul = 0xC00000;
constexpr Color kAzulVivo = 0xFF0000;
constexpr Color kAzulMuyOscuro = 0x400000;

constexpr Box kAreaCliente{0, 0, 11715, 8310};

/// One line of the screen: a box with its label. Lines stand in the order of the Tab key, which
/// is the order of neither index.
struct Campo {
    int text1;
    int label1;
    int top;
    bool derecha;
    Color color;
    std::string_view rotulo;
    std::string_view nombre;  ///< as a screen reader says it
};

// clang-format off
constexpr std::array<Campo, 19> kCampos = {{
    { 1,  0,  480, false, kRojo,     "Nombre de la empresa ",             "Nombre de la empresa, imprescindible"},
    { 4,  3,  840, false, kAzul,     "Calle/ Ctra./ Avedida/ Plaza",      "Calle, carretera, avenida o plaza"},
    { 3,  2, 1200, false, kAzul,     "Parcela",                           "Parcela"},
    { 5,  4, 1560, false, kAzul,     "Número",                            "Número"},
    { 2,  1, 1920, false, kAzul,     "Poligono Industrial",               "Polígono industrial"},
    { 6,  5, 2280, false, kAzul,     "Localidad",                         "Localidad"},
    { 7,  6, 2640, false, kAzul,     "Provincia",                         "Provincia"},
    {11, 10, 3000, false, kAzul,     "Teléfono / Fax",                    "Teléfono o fax"},
    {10,  9, 3360, false, kAzul,     "Número  C.I.F.",                    "Número C.I.F."},
    {12, 11, 3720, false, kAzul,     "E-mail",                            "E-mail"},
    {13, 12, 4080, false, kAzul,     "Página WEB",                        "Página web"},
    {15, 14, 4440, false, kAzul,     "Número de centros de trabajo",      "Número de centros de trabajo"},
    {14, 13, 4800, false, kAzul,     "Número total de trabajadores",      "Número total de trabajadores"},
    {16, 15,  840, true,  kAzulVivo, " Evaluación: Centro de trabajo ",   "Evaluación: centro de trabajo"},
    {18, 19, 1200, true,  kAzulVivo, " Identificación de la evaluacion:", "Identificación de la evaluación"},
    {19, 18, 1560, true,  kAzulVivo, " Código de evaluación:",            "Código de evaluación"},
    { 8,  7, 1920, true,  kAzul,     "  Fecha de la evaluación",          "Fecha de la evaluación"},
    {17, 16, 2280, true,  kAzul,     "  Nº de trabajadores expuestos",    "Número de trabajadores expuestos"},
    { 9,  8, 2640, true,  kAzulVivo, "Responsable de la empresa ",        "Responsable de la empresa"},
}};

constexpr Row kLabel2{.name = "Label2", .box = {480, 0, 11175, 375}, .text = "Datos de la Empresa",
                      .look = {.points = 14.25, .align = Align::Center, .back = kBlanco},
                      .tool_tip = "Solamente los datos requeridos en color rojo son imprescindibles."};
constexpr Row kLabel4{.name = "Label4", .box = {6240, 480, 5175, 255}, .text = "DATOS DE LA EVALUACIÓN",
                      .look = {.align = Align::Center, .fore = kAzulMuyOscuro, .back = kBlanco}};
constexpr Row kLabel3{.name = "Label3", .box = {9720, 7920, 2655, 255}, .look = kAspectoDelReloj};
// clang-format on

constexpr std::string_view kAvisoDelNombre = " El nombre de la empresa es imprescindible.";
constexpr std::string_view kCampoVacio = "---";

constexpr Row FilaDelRotulo(const Campo& campo) {
    const bool imprescindible = campo.text1 == 1;
    return {.name = "Label1",
            .index = campo.label1,
            .box = campo.derecha ? Box{6240, campo.top, 2295, 255} : Box{480, campo.top, 2175, 255},
            .text = campo.rotulo,
            .look = {.points = 7.5, .bold = imprescindible, .fore = campo.color, .back = kBlanco},
            .tool_tip = imprescindible ? kAvisoDelNombre : std::string_view{}};
}

constexpr Row FilaDeLaCaja(const Campo& campo, int tab) {
    const int i = campo.text1;
    const int width = i == 16 ? 3255 : campo.derecha ? 3135 : 3495;
    const int height = i == 15 || i == 17 || i == 19 ? 270 : 285;
    return {.name = "Text1",
            .index = i,
            .box = {campo.derecha ? 8520 : 2640, campo.top, width, height},
            .text = i == 1 ? kAvisoDelNombre : std::string_view(i == 9 ? " " : ""),
            .look = {.family = i >= 15 ? Family::MsSansSerif : Family::Arial,
                     .points = i >= 15 ? 9.75 : 8.25,
                     .back = kFondoDeVentana},
            .tab = tab,
            .spoken = campo.nombre};
}

}  // namespace

Form2::Form2(const Entorno& entorno)
    : Screen(ScreenId::Form2, "     Velmora / h2", kAreaCliente, Label3), entorno_(entorno) {
    Place(Label2, kLabel2);
    Place(Label4, kLabel4);
    Place(Label3, kLabel3);
    int tab = 0;
    for (const Campo& campo : kCampos) {
        Place(Label1(campo.label1), FilaDelRotulo(campo));
        Place(Text1(campo.text1), FilaDeLaCaja(campo, tab++), {.free_text = true});
    }
    SetMenu({{"vacio1"},
             {"vacio2"},
             {"continuar",
              "Continuar",
              {},
              {{"datosiniciales", "Datos iniciales: Jornadas y Tareas",
                [this] { datosiniciales_Click(); }},
               {"contaminantes", "Contaminantes", [this] { contaminantes_Click(); }},
               {"calculos", "Cálculos", [this] { calculos_Click(); }},
               {"resulatadofinal", "Resultado final", [this] { resulatadofinal_Click(); }}}},
             {"vacio30"},
             {"vacio32"},
             {"Regresar", "Regresar", [this] { Regresar_Click(); }},
             {"vacio40"},
             {"vacio50"},
             {"recuperardatos", "Recuperar datos", [this] { recuperardatos_Click(); }},
             {"vacio51"},
             {"vacio52"},
             {"imprimir", "Imprimir", [this] { imprimir_Click(); }},
             {"vacio53"},
             {"vacio54"},
             {"salir", "Salir", [this] { salir_Click(); }}});
}

void Form2::Form_Load() {
    // Only the company's name is looked at: without it the boxes keep their starting text.
    if (!entorno_.record.DatosEmpresa(1).empty()) MostrarDatosEmpresa();
}

void Form2::MostrarDatosEmpresa() {
    for (int i = 1; i <= 19; ++i) Text1(i).Text = entorno_.record.DatosEmpresa(i);
}

void Form2::Timer1_Timer() { Label3.Caption = FormatoFecha(entorno_.host.Now()); }

void Form2::GuardarCamposEIrA(ScreenId destino) {
    if (Text1(1).Text.empty()) {
        entorno_.host.MsgBox("Debe cumplimentarse por lo menos el nombre de la empresa");
        return;
    }
    for (int i = 1; i <= 19; ++i) {
        entorno_.record.DatosEmpresa(i) = Text1(i).Text.empty() ? kCampoVacio : Text1(i).Text;
    }
    entorno_.chain.Go(destino);
}

void Form2::datosiniciales_Click() { GuardarCamposEIrA(ScreenId::Form3); }
void Form2::contaminantes_Click() { GuardarCamposEIrA(ScreenId::Form4); }
void Form2::calculos_Click() { GuardarCamposEIrA(ScreenId::Form5); }
void Form2::resulatadofinal_Click() { GuardarCamposEIrA(ScreenId::Form6); }

void Form2::Regresar_Click() {
    const Respuesta respuesta = entorno_.host.MsgBox(
        "Si regresa perderá todos los datos introducidos hasta el momento\r\n"
        "¿Está seguro de que quiere regresar?",
        Estilo::SiNoInformacionNo);
    if (respuesta == Respuesta::Si) entorno_.chain.Go(ScreenId::Form1);
}

void Form2::recuperardatos_Click() {
    constexpr std::uint32_t kEstiloExplorador = 524288;
    CommonDialog1.DialogTitle = " Guardar datos";  // the writer's title, kept here, too
    CommonDialog1.Flags = kEstiloExplorador;
    CommonDialog1.DefaultExt = "doc";
    Intentar([&] { entorno_.host.ShowSave(CommonDialog1); });
    ReadEvaluation(CommonDialog1.FileName, entorno_.record);
    MostrarDatosEmpresa();  // whatever was read: after a Cancel it wipes what had been typed
}

void Form2::imprimir_Click() {
    Imprimir(entorno_.host, CommonDialog1, {"Se imprimirá la pantalla", 0, 2});
}

void Form2::salir_Click() { Salir(entorno_.host, Estilo::SiNoInformacionNo); }

}  // namespace velmora
