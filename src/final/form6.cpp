#include "final/form6.h"

#include <array>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "forms/palette.h"
#include "runtime/error.h"
#include "store/evaluation_file.h"

namespace velmora {

namespace {

constexpr Color kPaleGreen = 0xE1F5E1;

constexpr Face kFace{ScreenId::Form6, " Velmora / h6", {0, 0, 11880, 8310}, "fondo6"};

using final_table::kColumns;
using enum final_table::Column;

constexpr std::array<int, 7> kCopiedColumns = {kName, kI1, kI2, kI3, kP1, kP2, kP3};

struct Column {
    int left;
    int width;
    std::string_view caption;
    std::string_view spoken;      ///< as a screen reader says it
    std::string_view tool_tip{};  ///< of the heading
};

// clang-format off
constexpr Array<Column, 1, kColumns> kTable({{
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
}});

constexpr int kHeadingHeight = 255;
constexpr int kCellHeight    = 285;
constexpr int kRowStep       = 300;
constexpr int kBlockStep     = 2220;
constexpr int kFirstCaption  = 990;   ///< top of the first block's label
constexpr int kFirstRow      = 1260;  ///< top of the first block's first row

constexpr Look kBlockLook{.bold = true, .fore = kNavy, .back = kPaleBlue};

// The blocks are the tasks of the plan, though their labels speak of workdays.
constexpr std::array<StandingControl<Form6>, 5> kControls = {{
    {&Form6::Command1, {.name = "Command1", .box = {3855, 150, 4875, 375},
      .text = "RESULTADOS FINALES :    VALIDAR", .tab = 0}, &Form6::Command1_Click},
    {&Form6::Label2, {.name = "Label2", .box = {9120, 7980, 2655, 255}, .look = kClockLook}},
    {&Form6::Label3, {.name = "Label3", .box = {300, kFirstCaption, 3450, kHeadingHeight},
      .text = "Primera Jornada", .look = kBlockLook, .in_table = true}},
    {&Form6::Label5, {.name = "Label5", .box = {300, kFirstCaption + kBlockStep, 3450, kHeadingHeight},
      .text = "Segunda  Jornada", .look = kBlockLook, .in_table = true}},
    {&Form6::Label6, {.name = "Label6", .box = {300, kFirstCaption + 2 * kBlockStep, 3450, kHeadingHeight},
      .text = "Tercera  Jornada", .look = kBlockLook, .in_table = true}},
}};
// clang-format on

constexpr std::array<EntryRow<Form6>, 4> kMoves = {{
    {"calculos", "Cálculos", &Form6::calculos_Click},
    {"contaminantes", "Contaminantes", &Form6::contaminantes_Click},
    {"datosiniciales", "Datos  iniciales: Jornadas y Tareas", &Form6::datosiniciales_Click},
    {"datosdeempresa", "Datos de empresa", &Form6::datosdeempresa_Click},
}};

constexpr Array<std::string_view, 1, grid::kRowsPerTask> kNumbers({"1", "2", "3", "4", "5", "6"});

constexpr std::string_view kEmptyCell = "----";

/// Index in `Text1` of a cell of `HojaFinal`.
constexpr int Cell(int row, int column) { return (row - 1) * kColumns + column - 1; }

constexpr Row HeadingRow(int column) {
    const Column& c = kTable(column);
    return {.name = "Label4",
            .index = column - 1,
            .box = {c.left, 645, c.width, kHeadingHeight},
            .text = c.caption,
            .look = {.bold = true, .align = Align::Center, .fore = kNavy, .back = kPaleBlue},
            .spoken = c.spoken,
            .tool_tip = c.tool_tip,
            .in_table = true};
}

constexpr Row CellRow(int row, int column) {
    const Column& c = kTable(column);
    const int contaminant = grid::ContaminantOf(row);
    const int top = kFirstRow + (grid::TaskOf(row) - 1) * kBlockStep + (contaminant - 1) * kRowStep;
    return {.name = "Text1",
            .index = Cell(row, column),
            .box = {c.left, top, c.width, kCellHeight},
            .text = column == kNumber ? kNumbers(contaminant) : std::string_view{},
            .look = {.bold = column == kIG,
                     .align = column == kName ? Align::Left : Align::Center,
                     .back = column == kIG ? kPaleGreen : kWindowBackground},
            .tab = Cell(row, column) + 1,
            .in_table = true};
}

}  // namespace

Form6::Form6(const Environment& environment) : BaseScreen(environment, kFace, Label2) {
    PlaceControls();
    PlaceMenu();
}

void Form6::PlaceMenu() {
    // Pressing this title moves at once: the mouse doesn't reach its list, and is meant not to.
    SetMenu<Form6>(
        {{"vacio1 vacio2", "regresar", "Continuar/Regresar", &Form6::regresar_Click, kMoves},
         {"vacio10 vacio11", "guardararchivo", "Guardar en disco ", &Form6::guardararchivo_Click},
         {"vacio21 vacio22", "imprimir", "Imprimir", &Form6::imprimir_Click},
         {"vacio30 vacio32", "salir", "Salir", &Form6::salir_Click, {}, true}});
}

void Form6::PlaceControls() {
    Place(kControls);
    for (int column = 1; column <= kColumns; ++column) {
        Place(Label4(column - 1), HeadingRow(column));
    }
    for (int row = 1; row <= grid::kRows; ++row) {
        for (int column = 1; column <= kColumns; ++column) {
            Place(Text1(Cell(row, column)), CellRow(row, column), {},
                  SpokenName(row, kTable(column).spoken));
        }
    }
}

void Form6::Form_Load() {
    for (TextCell& cell : Text1) cell.Visible = false;
    for (Label& heading : Label4) heading.Visible = false;
    for (Label* block : {&Label3, &Label5, &Label6}) block->Visible = false;
}

void Form6::Command1_Click() {
    ShowHeadings();
    CopyFinalTable();
    ComputeOverallIndex();
    ShowCellsInUse();
    FillEmptyCells();
}

void Form6::ShowHeadings() {
    const Entero tasks = environment_.record.NumTareas;
    for (Label& heading : Label4) heading.Visible = true;
    if (tasks >= 1) Label3.Visible = true;
    if (tasks >= 2) Label5.Visible = true;
    if (tasks == 3) Label6.Visible = true;
}

void Form6::CopyFinalTable() {
    // IG isn't copied: an earlier press's stays until a new value replaces it.
    for (int row = 1; row <= grid::kRows; ++row) {
        for (const int column : kCopiedColumns) {
            Text1(Cell(row, column)).Text = environment_.record.HojaFinal(row, column);
        }
    }
}

void Form6::ComputeOverallIndex() {
    for (int row = 1; row <= grid::kRows; ++row) {
        auto& results = environment_.record.HojaFinal(row);
        const Doble u = LeerValor(results(kI1));
        const Doble v = LeerValor(results(kI2));
        if (u == 0 || v == 0) continue;
        // The third day isn't tested: without it the overall index is 0, on purpose.
        const Doble w = LeerValor(results(kI3));
        results(kIG) = TextoDoble(Power(u * v * w, Doble(1.0) / Doble(3.0)));
        Text1(Cell(row, kIG)).Text = results(kIG);
    }
}

void Form6::ShowCellsInUse() {
    const auto show = [this](int task) {
        const Entero first = Cell(grid::RowOf(task, 1), kNumber);
        const Entero last = environment_.record.NumContaminantes(task) * kColumns + (first - 1);
        for (Entero i = first; i <= last; ++i) Text1(i).Visible = true;
    };
    const Entero tasks = environment_.record.NumTareas;
    if (tasks >= 1) show(1);
    if (tasks >= 2) show(2);
    if (tasks == 3) show(3);
}

void Form6::FillEmptyCells() {
    // Hidden cells, too. No cell is empty from here on, so none is left to be hidden for that.
    for (TextCell& cell : Text1) {
        if (cell.Text.empty()) cell.Text = kEmptyCell;
    }
}

void Form6::regresar_Click() { environment_.chain.Go(ScreenId::Form5); }
void Form6::calculos_Click() { environment_.chain.Go(ScreenId::Form5); }
void Form6::contaminantes_Click() { environment_.chain.Go(ScreenId::Form4); }
void Form6::datosiniciales_Click() { environment_.chain.Go(ScreenId::Form3); }
void Form6::datosdeempresa_Click() { environment_.chain.Go(ScreenId::Form2); }

void Form6::guardararchivo_Click() {
    // Overwrite prompt 2, create prompt 8192, explorer style 524288, long names 2097152.
    constexpr std::uint32_t kAskBeforeWriting = 2629634;
    CommonDialog1.DialogTitle = " Guardar datos";
    CommonDialog1.Flags = kAskBeforeWriting;
    CommonDialog1.DefaultExt = "doc";
    Intentar([&] { environment_.host.ShowSave(CommonDialog1); });
    // After a Cancel the name of an earlier visit to the dialog is written once more.
    WriteEvaluation(CommonDialog1.FileName, environment_.record);
}

void Form6::imprimir_Click() {
    Imprimir(environment_.host, CommonDialog1,
             {"Se imprimirán los resultados en  pantalla", 1, 1000});
}

void Form6::salir_Click() { Salir(environment_.host, MsgBoxStyle::YesNoInformation); }

}  // namespace velmora
