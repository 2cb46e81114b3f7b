#include "capture/form3.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "capture/form2.h"
#include "core/numbers.h"
#include "forms/palette.h"

namespace velmora {

namespace {

constexpr Face kFace{ScreenId::Form3, "    Velmora / h3", {0, 0, 11880, 8310}, "fondo3"};

constexpr std::string_view kPlanFixed = " NO OPERATIVO";
constexpr std::string_view kPlanToFix = "Validar";

constexpr Color kMarkColor = 0xB0603C;

constexpr int kCellWidth = 615;
constexpr int kCellHeight = 285;
constexpr int kRows = 9;
constexpr int kFirstTabOfGrid = 10;

constexpr std::array<std::string_view, 15> kNumbers = {"0", "1", "2",  "3",  "4",  "5",  "6", "7",
                                                       "8", "9", "10", "11", "12", "13", "14"};
constexpr std::array<std::string_view, 2> kOneOrThreeDays = {"1", "3"};

/// The items from `first` to `last`, both counted from 0.
constexpr std::span<const std::string_view> From(std::size_t first, std::size_t last) {
    return std::span(kNumbers).subspan(first, last - first + 1);
}

// clang-format off
constexpr StandingControl<Form3> kClock =
    {&Form3::Label2, {.name = "Label2", .box = {9120, 7980, 2655, 255}, .look = kClockLook}};
constexpr std::array<StandingControl<Form3>, 3> kControls = {{
    {&Form3::Command1, {.name = "Command1", .box = {9000, 120, 2655, 255}, .text = kPlanToFix,
      .tab = 2, .spoken = "Validar jornadas y tareas"}, &Form3::Command1_Click},
    {&Form3::Command2, {.name = "Command2", .box = {9000, 840, 2655, 255}, .text = "Validar",
      .tab = 3, .spoken = "Validar la línea del plan"}, &Form3::Command2_Click},
    {&Form3::Text2, {.name = "Text2", .box = {9000, 480, 75, 105}, .look = {.back = kMarkColor},
      .spoken = "Marca de color, sin función"}},
}};
constexpr std::array<EntryRow<Form3>, 4> kMoves = {{
    {"contaminantes", "Contaminantes", &Form3::contaminantes_Click},
    {"pagina5", "Cálculos", &Form3::pagina5_Click},
    {"datosdeempresa", "Datos de empresa", &Form3::datosdeempresa_Click},
    {"resultadofinal", "Resultado final", &Form3::resultadofinal_Click},
}};

constexpr std::array<Row, 2> kLabel1 = {{
    {.name = "Label1", .index = 2, .box = { 360, 120, 3135, 255}, .text = "  Número de jornadas muestreadas:",
     .look = Heading(8.25, false, Align::Left)},
    {.name = "Label1", .index = 3, .box = {4320, 120, 3735, 255}, .text = "Número de tareas  en cada jornada:",
     .look = Heading(8.25, false, Align::Left)},
}};

/// A list, with the heading above it where it has one.
struct List {
    Box box;
    int tab;
    std::span<const std::string_view> items;
    std::string_view spoken; ///< as a screen reader says it
    std::string_view heading{};
};

constexpr Array<List, 0, 7> kLists({{
    {{3480, 120,  735, 315}, 0, kOneOrThreeDays, "Número de jornadas muestreadas"},
    {{8040, 120,  855, 315}, 1, From(1, 3),      "Número de tareas en cada jornada"},
    {{ 360, 840,  615, 315}, 4, From(1, 3),      "Día",                               "     Día"},
    {{1080, 840,  615, 315}, 5, From(1, 3),      "Tarea",                             "Tarea"},
    {{1800, 840, 1815, 315}, 6, From(1, 14),     "Tiempo de exposición en horas",     "Tiempo exposi. horas."},
    {{3720, 840, 1455, 315}, 7, From(0, 6),      "Número de muestras de 30 minutos",  "  Nº de muestras 30'"},
    {{5280, 840, 1695, 315}, 8, From(0, 6),      "Número de muestras de 15 minutos",  "Nº de muestras 15'"},
    {{7080, 840, 1815, 315}, 9, From(1, 6),      "Número de contaminantes",           "Nº de contaminantes"},
}});

/// A column of the grid, with its heading.
struct Column {
    int left;
    std::string_view spoken; ///< as a screen reader says it
    std::string_view heading;
    double points = 6.75;    ///< of the heading
};

constexpr Array<Column, 0, 5> kColumns({{
    { 360, "día",                           "Día"},
    {1080, "tarea",                         "Tarea"},
    {1800, "tiempo de exposición en horas", "Tiempo exposi. horas.", 5.5},
    {2520, "muestras de 30 minutos",        "Muestras 30'"},
    {3240, "muestras de 15 minutos",        "Muestras  15'"},
    {3960, "contaminantes",                 "Contami_  nantes"},
}});
// clang-format on

constexpr int kFirstEntryList = 2;
constexpr int kLastEntryList = 7;
constexpr int kFirstGridHeading = 6;

constexpr Row ListRow(int i) {
    const List& list = kLists(i);
    return {.name = "Combo1",
            .index = i,
            .box = list.box,
            .look = {.back = kWindowBackground},
            .tab = list.tab,
            .spoken = list.spoken,
            .items = list.items};
}

/// Heading `i` of `Label3`: 0 to 5 above the lists of the entry row, 6 to 11 above the grid.
constexpr Row HeadingRow(int i) {
    if (i < kFirstGridHeading) {
        const List& list = kLists(i + kFirstEntryList);
        return {.name = "Label3",
                .index = i,
                .box = {list.box.left, 480, list.box.width, 255},
                .text = list.heading,
                .look = Heading(6.75, false, Align::Left)};
    }
    const Column& column = kColumns(i - kFirstGridHeading);
    return {.name = "Label3",
            .index = i,
            .box = {column.left, 1320, kCellWidth, 375},
            .text = column.heading,
            .look = Heading(column.points, false)};
}

/// The cell of row `k`, from 1, in a column, from 0.
constexpr Row CellRow(int k, int column) {
    const int i = 6 * (k - 1) + column;
    return {.name = "Text1",
            .index = i,
            .box = {kColumns(column).left, 1800 + 360 * (k - 1), kCellWidth, kCellHeight},
            .look = {.back = kWindowBackground},
            .tab = kFirstTabOfGrid + i};
}

}  // namespace

Form3::Form3(const Environment& environment) : BaseScreen(environment, kFace, Label2) {
    PlaceControls();
    PlaceMenu();
}

void Form3::PlaceControls() {
    for (const Row& row : kLabel1) Place(Label1(row.index), row);
    for (int i = 0; i <= 7; ++i) {
        Place(Combo1(i), ListRow(i),
              {.Click = [this, i] { Combo1_Click(i); },
               .KeyPress = [this, i](KeyCode& key) { Combo1_KeyPress(i, key); }});
    }
    Place(kControls);
    Text2.BackColor = kMarkColor;
    for (int i = 0; i <= 11; ++i) Place(Label3(i), HeadingRow(i));
    for (int k = 1; k <= kRows; ++k) {
        for (int c = 0; c <= 5; ++c) {
            const Row row = CellRow(k, c);
            Place(Text1(row.index), row,
                  {.KeyPress = [this, i = row.index](KeyCode& key) { Text1_KeyPress(i, key); }},
                  "Fila " + TextoEntero(k) + ", " + std::string(kColumns(c).spoken));
        }
    }
    Place(kClock);
}

void Form3::PlaceMenu() {
    SetMenu<Form3>({{"vacio1 vacio2", "continuar", "Continuar/Regresar", nullptr, kMoves},
                    {"vacio8 vacio9", "imprimir", "Imprimir", &Form3::imprimir_Click},
                    {"vacio20 vacio22", "salir", "Salir", &Form3::salir_Click, {}, true}});
}

Entero Form3::RowsOfPlan() const {
    return environment_.record.NumTareas * environment_.record.NumJornadas;
}

Entero Form3::CellsOfPlan() const { return RowsOfPlan() * 6; }

void Form3::Form_Load() {
    const bool has_plan =
        environment_.record.NumJornadas != 0 && environment_.record.NumTareas != 0;
    if (!has_plan) {
        OcultarEntrada();
    } else {
        Command1.Caption = kPlanFixed;
        Command1.Enabled = false;
    }
    for (int i = 0; i <= 53; ++i) CloseCell(i);
    if (!has_plan) return;

    AbrirCeldas(CellsOfPlan());
    NumerarFilas();
    FillRows();
}

void Form3::OcultarEntrada() { ShowEntry(false); }
void Form3::MostrarEntrada() { ShowEntry(true); }

void Form3::ShowEntry(bool shown) {
    for (Label& heading : Label3) heading.Visible = shown;
    Command2.Visible = shown;
    Command2.Enabled = shown;
    for (int i = kFirstEntryList; i <= kLastEntryList; ++i) {
        Combo1(i).Visible = shown;
        Combo1(i).Locked = !shown;
    }
}

void Form3::CloseCell(int i) {
    Text1(i).Locked = true;
    Text1(i).Visible = false;
    Text1(i).Text.clear();
}

void Form3::AbrirCeldas(Entero n) {
    for (int i = 0; i < n.Value(); ++i) {
        Text1(i).Locked = false;
        Text1(i).Visible = true;
        Text1(i).Text.clear();
    }
}

void Form3::NumerarFilas() {
    Entero k = 1;
    for (int d = 1; d <= environment_.record.NumJornadas.Value(); ++d) {
        for (int t = 1; t <= environment_.record.NumTareas.Value(); ++t) {
            Cell(k, kDay).Text = TextoEntero(d);
            Cell(k, kTask).Text = TextoEntero(t);
            ++k;
        }
    }
}

void Form3::FillRows() {
    // A row that was never entered shows zeros, and the count of its task, on purpose: the refresh
    // after an entry leaves such a row empty.
    for (int k = 1; k <= RowsOfPlan().Value(); ++k) {
        const Entero d = RedondearEntero(LeerValor(Cell(k, kDay).Text));
        const Entero t = RedondearEntero(LeerValor(Cell(k, kTask).Text));
        WriteRow(k, d, t);
    }
}

void Form3::Combo1_KeyPress(int /*Index*/, KeyCode& key) { key = kKeyRefused; }

void Form3::Text1_KeyPress(int /*Index*/, KeyCode& key) { key = kKeyRefused; }

void Form3::Combo1_Click(int Index) {
    // A list's number read as text: it is meant, and gives the number.
    const Doble index = LeerValor(TextoEntero(Index));
    // The limit is looked at when the 15-minute count is picked, and at no other pick.
    if (index == 6 && LeerValor(Combo1(6).Text) + LeerValor(Combo1(5).Text) > 6) {
        environment_.host.MsgBox(
            "La suma total de contaminantes de 30' y de 15' ha de ser menor o igual que 6");
    }
    if ((index == 0 || index == 1) && Command1.Caption == kPlanFixed) OfferRestart();
}

void Form3::OfferRestart() {
    const MsgBoxAnswer answer = environment_.host.MsgBox(
        "Modificar los datos correspondientes al número de días y jornadas\r\n"
        "supone reiniciar todo el proceso de nuevo\r\n"
        " y perder los datos introducidos hasta el momento.\r\n"
        "¿Desea reiniciar el proceso?",
        MsgBoxStyle::YesNoQuestionNo, "Aviso");
    if (answer != MsgBoxAnswer::Yes) return;

    // The screen alone starts again: the record keeps the plan and all that was entered.
    Command1.Enabled = true;
    Command1.Caption = kPlanToFix;
    OcultarEntrada();
    const Entero cells = CellsOfPlan();
    for (int i = 0; i < cells.Value(); ++i) CloseCell(i);
}

void Form3::Command1_Click() {
    const ComboBox& days = Combo1(0);
    const ComboBox& tasks = Combo1(1);
    if (days.Text.empty() || tasks.Text.empty() || LeerValor(days.Text) == 0 ||
        LeerValor(tasks.Text) == 0) {
        environment_.host.MsgBox("Indique el número de Jornadas y de Tareas ");
        return;
    }
    if (days.Locked || tasks.Locked) return;

    if (LeerValor(days.Text) > 0) {
        environment_.record.NumJornadas = RedondearEntero(LeerValor(days.Text));
    }
    // The condition reads by the locale's rules, the value by the leading-number rule.
    if (ConvertirDoble(tasks.Text) > 0) {
        environment_.record.NumTareas = RedondearEntero(LeerValor(tasks.Text));
    }
    Command1.Caption = kPlanFixed;
    Command1.Enabled = false;
    MostrarEntrada();
    AbrirCeldas(CellsOfPlan());
    NumerarFilas();
}

bool Form3::PlanIsComplete() const {
    const EvaluacionRecord& record = environment_.record;
    if (record.NumTareas == 0 || record.NumJornadas == 0) return false;

    const Entero cells = CellsOfPlan();
    for (int i = 0; i < cells.Value(); ++i) {
        if (Text1(i).Text.empty()) return false;
    }
    for (int d = 1; d <= record.NumJornadas.Value(); ++d) {
        for (int t = 1; t <= record.NumTareas.Value(); ++t) {
            // The plan's last pair is looked at on every pass, not the pair (d, t).
            if (record.TiempoExposicion(record.NumJornadas, record.NumTareas) == 0) return false;
        }
    }
    return true;
}

void Form3::GoIfPlanComplete(ScreenId target) {
    if (!PlanIsComplete()) {
        const MsgBoxAnswer answer = environment_.host.MsgBox(
            " Aún le faltan datos por introducir y sin ellos\r\n"
            "  el programa no funcionará correctamente\r\n"
            "¿Está seguro de que quiere continuar ?",
            MsgBoxStyle::YesNoInformationNo);
        if (answer == MsgBoxAnswer::No) return;
    }
    environment_.chain.Go(target);
}

void Form3::contaminantes_Click() { GoIfPlanComplete(ScreenId::Form4); }
void Form3::pagina5_Click() { GoIfPlanComplete(ScreenId::Form5); }
void Form3::resultadofinal_Click() { GoIfPlanComplete(ScreenId::Form6); }

void Form3::datosdeempresa_Click() {
    // The one place where a screen touches another: Form2 is loaded, with its load handler, before
    // this screen is left, and its boxes show DatosEmpresa even without a company's name.
    auto& form2 = dynamic_cast<Form2&>(environment_.chain.Load(ScreenId::Form2));
    form2.ShowDatosEmpresa();
    environment_.chain.Go(ScreenId::Form2);
}

void Form3::imprimir_Click() {
    Imprimir(environment_.host, CommonDialog1, {"Se imprimirá la pantalla", 0, 1000});
}

void Form3::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformationNo); }

}  // namespace velmora
