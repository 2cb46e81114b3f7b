#include "capture/form2.h"

#include <array>
#include <string_view>

#include "forms/palette.h"
#include "store/evaluation_file.h"

namespace velmora {

namespace {

constexpr Color kRed = 0x0000FF;
constexpr Color kBlue = 0xC00000;
constexpr Color kBrightBlue = 0xFF0000;
constexpr Color kVeryDarkBlue = 0x400000;

constexpr Face kFace{ScreenId::Form2, "     Velmora / h2", {0, 0, 11715, 8310}, "fondo2"};

/// One line of the screen: a box with its label. Lines stand in the order of the Tab key, which
/// is the order of neither index.
struct Field {
    int text1;
    int label1;
    int top;
    bool right;
    Color color;
    std::string_view caption;
    std::string_view spoken;  ///< as a screen reader says it
};

// clang-format off
constexpr std::array<Field, 19> kFields = {{
    { 1,  0,  480, false, kRed,        "Nombre de la empresa ",             "Nombre de la empresa, imprescindible"},
    { 4,  3,  840, false, kBlue,       "Calle/ Ctra./ Avedida/ Plaza",      "Calle, carretera, avenida o plaza"},
    { 3,  2, 1200, false, kBlue,       "Parcela",                           "Parcela"},
    { 5,  4, 1560, false, kBlue,       "Número",                            "Número"},
    { 2,  1, 1920, false, kBlue,       "Poligono Industrial",               "Polígono industrial"},
    { 6,  5, 2280, false, kBlue,       "Localidad",                         "Localidad"},
    { 7,  6, 2640, false, kBlue,       "Provincia",                         "Provincia"},
    {11, 10, 3000, false, kBlue,       "Teléfono / Fax",                    "Teléfono o fax"},
    {10,  9, 3360, false, kBlue,       "Número  C.I.F.",                    "Número C.I.F."},
    {12, 11, 3720, false, kBlue,       "E-mail",                            "E-mail"},
    {13, 12, 4080, false, kBlue,       "Página WEB",                        "Página web"},
    {15, 14, 4440, false, kBlue,       "Número de centros de trabajo",      "Número de centros de trabajo"},
    {14, 13, 4800, false, kBlue,       "Número total de trabajadores",      "Número total de trabajadores"},
    {16, 15,  840, true,  kBrightBlue, " Evaluación: Centro de trabajo ",   "Evaluación: centro de trabajo"},
    {18, 19, 1200, true,  kBrightBlue, " Identificación de la evaluacion:", "Identificación de la evaluación"},
    {19, 18, 1560, true,  kBrightBlue, " Código de evaluación:",            "Código de evaluación"},
    { 8,  7, 1920, true,  kBlue,       "  Fecha de la evaluación",          "Fecha de la evaluación"},
    {17, 16, 2280, true,  kBlue,       "  Nº de trabajadores expuestos",    "Número de trabajadores expuestos"},
    { 9,  8, 2640, true,  kBrightBlue, "Responsable de la empresa ",        "Responsable de la empresa"},
}};

constexpr std::array<StandingControl<Form2>, 3> kControls = {{
    {&Form2::Label2, {.name = "Label2", .box = {480, 0, 11175, 375}, .text = "Datos de la Empresa",
      .look = {.points = 14.25, .align = Align::Center, .back = kWhite},
      .tool_tip = "Solamente los datos requeridos en color rojo son imprescindibles."}},
    {&Form2::Label4, {.name = "Label4", .box = {6240, 480, 5175, 255}, .text = "DATOS DE LA EVALUACIÓN",
      .look = {.align = Align::Center, .fore = kVeryDarkBlue, .back = kWhite}}},
    {&Form2::Label3, {.name = "Label3", .box = {9720, 7920, 2655, 255}, .look = kClockLook}},
}};
// clang-format on

constexpr std::array<EntryRow<Form2>, 4> kMoves = {{
    {"datosiniciales", "Datos iniciales: Jornadas y Tareas", &Form2::datosiniciales_Click},
    {"contaminantes", "Contaminantes", &Form2::contaminantes_Click},
    {"calculos", "Cálculos", &Form2::calculos_Click},
    {"resulatadofinal", "Resultado final", &Form2::resulatadofinal_Click},
}};

constexpr std::string_view kNameHint = " El nombre de la empresa es imprescindible.";
constexpr std::string_view kEmptyField = "---";

constexpr Row CaptionRow(const Field& field) {
    const bool required = field.text1 == 1;
    return {.name = "Label1",
            .index = field.label1,
            .box = field.right ? Box{6240, field.top, 2295, 255} : Box{480, field.top, 2175, 255},
            .text = field.caption,
            .look = {.points = 7.5, .bold = required, .fore = field.color, .back = kWhite},
            .tool_tip = required ? kNameHint : std::string_view{}};
}

constexpr Row BoxRow(const Field& field, int tab) {
    const int i = field.text1;
    const int width = i == 16 ? 3255 : field.right ? 3135 : 3495;
    const int height = i == 15 || i == 17 || i == 19 ? 270 : 285;
    return {.name = "Text1",
            .index = i,
            .box = {field.right ? 8520 : 2640, field.top, width, height},
            .text = i == 1 ? kNameHint : std::string_view(i == 9 ? " " : ""),
            .look = {.family = i >= 15 ? Family::MsSansSerif : Family::Arial,
                     .points = i >= 15 ? 9.75 : 8.25,
                     .back = kWindowBackground},
            .tab = tab,
            .spoken = field.spoken};
}

}  // namespace

Form2::Form2(const Environment& environment) : BaseScreen(environment, kFace, Label3) {
    PlaceControls();
    PlaceMenu();
}

void Form2::PlaceControls() {
    Place(kControls);
    int tab = 0;
    for (const Field& field : kFields) {
        Place(Label1(field.label1), CaptionRow(field));
        Place(Text1(field.text1), BoxRow(field, tab++), {.free_text = true});
    }
}

void Form2::PlaceMenu() {
    SetMenu<Form2>(
        {{"vacio1 vacio2", "continuar", "Continuar", nullptr, kMoves},
         {"vacio30 vacio32", "Regresar", "Regresar", &Form2::Regresar_Click},
         {"vacio40 vacio50", "recuperardatos", "Recuperar datos", &Form2::recuperardatos_Click},
         {"vacio51 vacio52", "imprimir", "Imprimir", &Form2::imprimir_Click},
         {"vacio53 vacio54", "salir", "Salir", &Form2::salir_Click, {}, true}});
}

void Form2::Form_Load() {
    // Only the company's name is looked at: without it the boxes keep their starting text.
    if (!environment_.record.DatosEmpresa(1).empty()) ShowDatosEmpresa();
}

void Form2::ShowDatosEmpresa() {
    for (int i = 1; i <= 19; ++i) Text1(i).Text = environment_.record.DatosEmpresa(i);
}

void Form2::StoreFieldsAndGo(ScreenId target) {
    if (Text1(1).Text.empty()) {
        environment_.host.MsgBox("Debe cumplimentarse por lo menos el nombre de la empresa");
        return;
    }
    for (int i = 1; i <= 19; ++i) {
        environment_.record.DatosEmpresa(i) = Text1(i).Text.empty() ? kEmptyField : Text1(i).Text;
    }
    environment_.chain.Go(target);
}

void Form2::datosiniciales_Click() { StoreFieldsAndGo(ScreenId::Form3); }
void Form2::contaminantes_Click() { StoreFieldsAndGo(ScreenId::Form4); }
void Form2::calculos_Click() { StoreFieldsAndGo(ScreenId::Form5); }
void Form2::resulatadofinal_Click() { StoreFieldsAndGo(ScreenId::Form6); }

void Form2::Regresar_Click() {
    const MsgBoxAnswer answer = environment_.host.MsgBox(
        "Si regresa perderá todos los datos introducidos hasta el momento\r\n"
        "¿Está seguro de que quiere regresar?",
        MsgBoxStyle::YesNoInformationNo);
    if (answer == MsgBoxAnswer::Yes) environment_.chain.Go(ScreenId::Form1);
}

void Form2::recuperardatos_Click() {
    constexpr std::uint32_t kExplorerStyle = 524288;
    CommonDialog1.DialogTitle = " Guardar datos";  // the writer's title, kept here, too
    CommonDialog1.Flags = kExplorerStyle;
    CommonDialog1.DefaultExt = "doc";
    Intentar([&] { environment_.host.ShowSave(CommonDialog1); });
    ReadEvaluation(CommonDialog1.FileName, environment_.record);
    ShowDatosEmpresa();  // whatever was read: after a Cancel it wipes what had been typed
}

void Form2::imprimir_Click() {
    Imprimir(environment_.host, CommonDialog1, {"Se imprimirá la pantalla", 0, 2});
}

void Form2::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformationNo); }

}  // namespace velmora
