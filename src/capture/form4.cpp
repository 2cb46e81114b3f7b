#include "capture/form4.h"

#include <array>
#include <string>
#include <string_view>

#include "core/grid.h"
#include "core/numbers.h"
#include "forms/palette.h"
#include "runtime/text.h"

namespace velmora {

namespace {

constexpr Face kFace{ScreenId::Form4, " Velmora / h4", {0, 0, 11880, 8310}, "fondo4"};

constexpr int kCellHeight = 285;
constexpr int kListHeight = 330;

constexpr std::array<std::string_view, 3> kTasks = {"1", "2", "3"};
constexpr std::array<std::string_view, 2> kUnits = {"mg/m3", "ppm"};

// clang-format off
constexpr StandingControl<Form4> kTitle =
    {&Form4::Label2, {.name = "Label2", .box = {120, 0, 11895, 375},
      .text = "Cararcteristicas de los contaminates  analizados por  tareas ", .look = Heading(14.25, false)}};
constexpr Row kLabel3{.name = "Label3", .index = 0, .box = {120, 480, 975, 255}, .text = "Tarea",
                      .look = Heading(8.25, true, Align::Left)};
constexpr StandingControl<Form4> kClock =
    {&Form4::Label1, {.name = "Label1", .box = {9120, 7980, 2655, 255}, .look = kClockLook}};
constexpr std::array<StandingControl<Form4>, 3> kControls = {{
    {&Form4::Combo1, {.name = "Combo1", .box = {1080, 480, 855, 315}, .look = {.back = kWindowBackground},
      .tab = 44, .spoken = "Tarea", .items = kTasks}, &Form4::Combo1_Click, &Form4::Combo1_KeyPress},
    {&Form4::Command3, {.name = "Command3", .box = {2040, 480, 3855, 255}, .text = "Visualizar / Modificar", .tab = 43}, &Form4::Command3_Click},
    {&Form4::Command1, {.name = "Command1", .box = {120, 840, 5775, 255}, .text = "Validar", .tab = 42,
      .spoken = "Validar los contaminantes de la tarea"}, &Form4::Command1_Click},
}};
constexpr std::array<EntryRow<Form4>, 4> kMoves = {{
    {"pagina5", "Cálculos", &Form4::pagina5_Click},
    {"datosiniciales", "Datos iniciales: Jornadas y Tareas", &Form4::datosiniciales_Click},
    {"datosdeempresa", "Datos de empresa", &Form4::datosdeempresa_Click},
    {"resultadosfinales", "Resultado final", &Form4::resultadosfinales_Click},
}};

/// A column of the rows, with its heading. The Tab key runs down the columns, not along the rows.
struct Column {
    int left;
    int width;
    int first_tab;
    std::string_view spoken; ///< as a screen reader says it
    std::string_view heading;
    std::string_view heading_tip{}; ///< tool tip of the heading
    std::string_view cell_tip{};    ///< tool tip of the cells
};

/// The five columns of `Text1`, in the order of its index.
constexpr Array<Column, 0, 4> kColumns({{
    { 120,  375, 36, "número",        "Nº"},
    { 600, 2055, 12, "nombre",        "Nombre del contaminante"},
    {2760,  615, 18, "VLA-ED",        "VLA-ED", {}, kDecimalsHelp},
    {3480,  615, 24, "VLA-EC",        "VLA-EC", {}, kDecimalsHelp},
    {4680,  375, 30, "grupo aditivo", "Adit.",
     "0 si el agente no es aditivo; si lo es, el número de su grupo."},
}});
constexpr Column kUnit =
    {5160,  735,  0, "unidad",                       "Unidades"};
constexpr Column kSamplingTime =
    {4200,  375,  6, "tiempo de muestreo en minutos", "TM",
     "Tiempo de muestreo, en minutos: 30 o 15.", "Un doble clic, o F2, pone 30; otro, 15."};
// clang-format on

constexpr int kNumberColumn = 0;
constexpr int kNameColumn = 1;
constexpr int kVlaEdColumn = 2;
constexpr int kVlaEcColumn = 3;
constexpr int kAdditiveColumn = 4;

/// The cell of row `r`, from 1, in a column of `Text1`.
constexpr int CellOf(int r, int column) { return 5 * (r - 1) + column; }

constexpr Row HeadingRow(std::string_view name, int index, const Column& column) {
    return {.name = name,
            .index = index,
            .box = {column.left, 1200, column.width, 255},
            .text = column.heading,
            .look = Heading(7.5, false),
            .tool_tip = column.heading_tip,
            .in_table = true};
}

/// The control of row `r`, from 1, in a column.
constexpr Row ControlRow(std::string_view name, int index, int r, const Column& column,
                         int height = kCellHeight) {
    return {.name = name,
            .index = index,
            .box = {column.left, 1560 + 360 * (r - 1), column.width, height},
            .look = {.back = kWindowBackground},
            .tab = column.first_tab + r - 1,
            .tool_tip = column.cell_tip,
            .in_table = true};
}

std::string SpokenName(int r, const Column& column) {
    return "Contaminante " + TextoEntero(r) + ", " + std::string(column.spoken);
}

}  // namespace

Form4::Form4(const Environment& environment) : BaseScreen(environment, kFace, Label1) {
    PlaceControls();
    PlaceMenu();
}

void Form4::PlaceControls() {
    Place(kTitle);
    Place(Label3(0), kLabel3);
    Place(kControls);
    for (int i = 0; i <= 4; ++i) {
        Place(Label4(i), HeadingRow("Label4", i, kColumns(i)));
    }
    Place(Label4(5), HeadingRow("Label4", 5, kUnit));
    Place(Label5, HeadingRow("Label5", Row::kNoIndex, kSamplingTime));
    // The headings come with the first pick of a task, and stay.
    for (Label& heading : Label4) heading.Visible = false;
    Label5.Visible = false;
    for (int r = 1; r <= 6; ++r) PlaceRow(r);
    Place(kClock);
}

void Form4::PlaceRow(int r) {
    for (int c = 0; c <= 4; ++c) {
        const Column& column = kColumns(c);
        const int i = CellOf(r, c);
        Place(Text1(i), ControlRow("Text1", i, r, column),
              {.KeyPress = [this, i](KeyCode& key) { Text1_KeyPress(i, key); },
               .free_text = c == kNameColumn},
              SpokenName(r, column));
    }
    const int i = r - 1;
    Place(Text3(i), ControlRow("Text3", i, r, kSamplingTime),
          {.KeyPress = [this, i](KeyCode& key) { Text3_KeyPress(i, key); },
           .DblClick = [this, i] { Text3_DblClick(i); }},
          SpokenName(r, kSamplingTime));
    Row unit = ControlRow("Combo13", i, r, kUnit, kListHeight);
    unit.items = kUnits;
    unit.look.points = 6;  // "mg/m3" fits beside the arrow
    Place(Combo13(i), unit, {.KeyPress = [this, i](KeyCode& key) { Combo13_KeyPress(i, key); }},
          SpokenName(r, kUnit));
}

void Form4::PlaceMenu() {
    SetMenu<Form4>({{"vacio1 vacio7", "continuar", "Continuar/Regresar", nullptr, kMoves},
                    {"vacio10 vacio11", "imprimir", "Imprimir", &Form4::imprimir_Click},
                    {"vacio22 vacio23", "salir", "Salir", &Form4::salir_Click, {}, true}});
}

void Form4::Form_Load() { EmptyRows(); }

void Form4::EmptyRows() {
    for (TextCell& cell : Text1) {
        cell.Text.clear();
        cell.Visible = false;
    }
    for (ComboBox& unit : Combo13) {
        unit.Visible = false;
        unit.Locked = true;
        unit.Text.clear();
    }
    for (TextCell& time : Text3) {
        time.Text.clear();
        time.Visible = false;
    }
}

void Form4::CerrarFilas() {
    EmptyRows();
    for (TextCell& cell : Text1) cell.Locked = true;
    for (TextCell& time : Text3) time.Locked = true;
    for (Label& heading : Label4) heading.Visible = true;
    Label5.Visible = true;
}

void Form4::OpenRows(Entero n) {
    const Entero cells = 5 * n;
    for (int i = 0; i < cells.Value(); ++i) {
        Text1(i).Locked = false;
        Text1(i).Visible = true;
        Text1(i).Text.clear();
    }
    for (int i = 0; i < n.Value(); ++i) {
        Combo13(i).Locked = false;
        Combo13(i).Visible = true;
        Text3(i).Locked = false;
        Text3(i).Visible = true;
    }
    for (int c = 1; c <= n.Value(); ++c) {
        TextCell& number = Text1(CellOf(c, kNumberColumn));
        number.Text = TextoEntero(c);
        number.Locked = true;
    }
}

Entero Form4::ContaminantsOfTask() const {
    return environment_.record.NumContaminantes(RedondearEntero(LeerValor(Combo1.Text)));
}

void Form4::Combo1_Click() {
    CerrarFilas();
    if (Combo1.Text.empty()) {
        environment_.host.MsgBox(" Seleccione una tarea");
        return;
    }
    if (ConvertirDoble(Combo1.Text) > environment_.record.NumTareas.AsDoble()) {
        environment_.host.MsgBox(
            " El número de tareas seleccionado no es coherente con el valor asignado inicialmente");
        return;
    }
    OpenRows(ContaminantsOfTask());
}

void Form4::Combo1_KeyPress(KeyCode& key) { key = kKeyRefused; }

void Form4::Combo13_KeyPress(int /*Index*/, KeyCode& key) { key = kKeyRefused; }

void Form4::Text3_KeyPress(int /*Index*/, KeyCode& key) { key = kKeyRefused; }

void Form4::Text3_DblClick(int Index) {
    if (Index < 0 || Index > 5) return;
    std::string& time = Text3(Index).Text;
    if (time.empty()) {
        time = TextoEntero(30);
    } else if (LeerValor(time) == 30) {
        time = "15";
    } else if (LeerValor(time) == 15) {
        time = "30";
    }
}

void Form4::Text1_KeyPress(int Index, KeyCode& key) {
    if (UltimaCelda != Index) {
        CifrasEd = 0;
        PuntosEd = 0;
        CifrasEc = 0;
        PuntosEc = 0;
    }
    UltimaCelda = Index;
    switch (Index % 5) {
        case kVlaEdColumn:
            FilterNumber(Text1(Index), key, CifrasEd, PuntosEd);
            break;
        case kVlaEcColumn:
            FilterNumber(Text1(Index), key, CifrasEc, PuntosEc);
            break;
        case kAdditiveColumn:
            FilterMark(Index, key);
            break;
        default:  // names are free text, the cells of the row numbers are locked
            break;
    }
}

/// One digit, the last one typed.
void Form4::FilterMark(int Index, KeyCode& key) {
    if (IsDigit(key)) {
        Text1(Index).Text.clear();
    } else {
        key = kKeyRefused;
    }
}

/// Whether a task of the plan is picked; otherwise tells why.
bool Form4::TaskIsPicked() {
    if (Combo1.Text.empty()) {
        environment_.host.MsgBox(" Seleccione una tarea");
        return false;
    }
    if (LeerValor(Combo1.Text) > environment_.record.NumTareas.AsDoble()) {
        environment_.host.MsgBox(" El número de tareas seleccionado no es coherente");
        return false;
    }
    return true;
}

bool Form4::RowsAreComplete(Entero n) const {
    const Entero cells = 5 * n;
    for (int i = 0; i < cells.Value(); ++i) {
        if (Text1(i).Text.empty()) return false;
    }
    for (int i = 0; i < n.Value(); ++i) {
        if (Combo13(i).Text.empty() || Text3(i).Text.empty()) return false;
    }
    return true;
}

void Form4::StoreRows(Entero n) {
    EvaluacionRecord& record = environment_.record;
    const int t = ConvertirLargo(Combo1.Text);
    for (int r = 1; r <= n.Value(); ++r) {
        record.NombreContaminante(t, r) = Text1(CellOf(r, kNameColumn)).Text;
        record.VlaEd(t, r) = LeerValor(Text1(CellOf(r, kVlaEdColumn)).Text);
        record.VlaEc(t, r) = LeerValor(Text1(CellOf(r, kVlaEcColumn)).Text);
        record.Aditivo(t, r) = RedondearEntero(LeerValor(Text1(CellOf(r, kAdditiveColumn)).Text));
        record.Unidades(t, r) = Combo13(r - 1).Text;
    }
    for (int r = 1; r <= n.Value(); ++r) {
        record.TiempoMuestreo(t, r) = RedondearEntero(LeerValor(Text3(r - 1).Text));
    }
    // Each task has six rows of the final table, used or not.
    for (int r = 1; r <= n.Value(); ++r) {
        record.HojaFinal(grid::RowOf(t, r), final_table::kName) =
            Text1(CellOf(r, kNameColumn)).Text;
    }
}

void Form4::Command1_Click() {
    if (!TaskIsPicked()) return;
    const Entero n = ContaminantsOfTask();
    if (!RowsAreComplete(n)) {
        environment_.host.MsgBox(" Cumplimente todos los datos");
        return;
    }
    StoreRows(n);
}

void Form4::Command3_Click() {
    if (!TaskIsPicked()) return;
    const EvaluacionRecord& record = environment_.record;
    const int t = ConvertirLargo(Combo1.Text);
    const Entero n = record.NumContaminantes(t);
    for (int r = 1; r <= n.Value(); ++r) {
        Text1(CellOf(r, kNameColumn)).Text = record.NombreContaminante(t, r);
        Text1(CellOf(r, kVlaEdColumn)).Text = TextoDoble(record.VlaEd(t, r));
        Text1(CellOf(r, kVlaEcColumn)).Text = TextoDoble(record.VlaEc(t, r));
        Text1(CellOf(r, kAdditiveColumn)).Text = TextoEntero(record.Aditivo(t, r));
        Combo13(r - 1).Text = record.Unidades(t, r);
    }
    for (int r = 1; r <= n.Value(); ++r) {
        Text3(r - 1).Text = TextoEntero(record.TiempoMuestreo(t, r));
    }
}

void Form4::pagina5_Click() { environment_.chain.Go(ScreenId::Form5); }
void Form4::datosiniciales_Click() { environment_.chain.Go(ScreenId::Form3); }
void Form4::datosdeempresa_Click() { environment_.chain.Go(ScreenId::Form2); }
void Form4::resultadosfinales_Click() { environment_.chain.Go(ScreenId::Form6); }

void Form4::imprimir_Click() {
    Imprimir(environment_.host, CommonDialog1, {"Se imprimirá pantalla", 0, 1000});
}

void Form4::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformation); }

}  // namespace velmora
