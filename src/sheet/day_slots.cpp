#include <array>

#include "core/grid.h"
#include "core/numbers.h"
#include "sheet/form5.h"

namespace velmora {

namespace {

// clang-format off
constexpr std::string_view kTitle = "Velmora / h5                          CÁLCULOS   Y   RESULTADOS ";
constexpr Array<std::string_view, 1, 3> kDayTitles(std::array<std::string_view, 3>{
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA ",
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA",
    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA",
});
// clang-format on

void Close(TextCell& cell) {
    cell.Visible = false;
    cell.Locked = true;
    cell.Text.clear();
}

void Close(Button& button) {
    button.Visible = false;
    button.Enabled = false;
}

/// Empties and hides the cells of a task's rows; `first` is the first of them.
template <class Cells>
void Hide(Cells& cells, int first, int columns) {
    for (int i = first; i < first + grid::kRowsPerTask * columns; ++i) {
        cells(i).Text.clear();
        cells(i).Visible = false;
    }
}

/// Shows and locks so many rows from the cell `first` on.
template <class Cells>
void Show(Cells& cells, int first, const Entero& rows, int columns) {
    const int last = first + (rows * columns).Value() - 1;
    for (int i = first; i <= last; ++i) {
        cells(i).Visible = true;
        cells(i).Locked = true;
    }
}

}  // namespace

void Form5::Form_Load() {
    Caption = kTitle;
    limpia(1);
}

void Form5::introprimero_Click() { Begin(1); }
void Form5::introsegundo_Click() { Begin(2); }
void Form5::introtercero_Click() { Begin(3); }

void Form5::recupprimerdia_Click() { TakeUpAgain(1); }
void Form5::recupsegundodia_Click() { TakeUpAgain(2); }
void Form5::recuptercerdia_Click() { TakeUpAgain(3); }

// The caption is set before the day is tested: a refused day shows its name all the same.

void Form5::Begin(int day) {
    Caption = kDayTitles(day);
    limpia(day);
    intro(day);
}

void Form5::TakeUpAgain(int day) {
    Caption = kDayTitles(day);
    recupera(day);
}

void Form5::limpia(const Entero& /*c*/) {
    for (Label& heading : Label7) heading.Visible = false;
    for (TextCell& cell : Text1) Close(cell);
    for (Button* button :
         {&Command1, &Command2, &Command3, &Command4, &Command5, &Command6, &Command7, &Command8}) {
        Close(*button);
    }
    for (Label& heading : Label3) heading.Visible = false;
    for (TextCell& cell : Text3) Close(cell);
    LaidOutAnew = true;
    // Hidden only: the five cells keep their text until the conclusions are validated again.
    SetConclusionsVisible(false);
}

Entero Form5::RowsInUse(const Entero& task) const {
    // The day's sample counts decide, not the task's list of contaminants.
    return environment_.record.Muestras15(DiaActual, task) +
           environment_.record.Muestras30(DiaActual, task);
}

void Form5::LayOutTask(int task) {
    // A task's headings stand in their arrays as a row of cells does.
    for (int c = 0; c < grid::kColumns; ++c) Label7(grid::Cell(task, c)).Visible = true;
    for (int c = 0; c < grid::kColumns3; ++c) Label3(grid::Cell3(task, c)).Visible = true;
    Label7(grid::TitleOf(task)).Visible = true;

    const int first = grid::Cell(grid::RowOf(task, 1), 0);
    const int first3 = grid::Cell3(grid::RowOf(task, 1), 0);
    Hide(Text1, first, grid::kColumns);
    Hide(Text3, first3, grid::kColumns3);
    const Entero n = RowsInUse(task);
    Show(Text1, first, n, grid::kColumns);
    Show(Text3, first3, n, grid::kColumns3);
}

void Form5::FillPlan(int task) {
    const EvaluacionRecord& record = environment_.record;
    const int n = RowsInUse(task).Value();
    for (int r = 1; r <= n; ++r) {
        const int R = grid::RowOf(task, r);
        Cell(R, grid::kNumber).Text = TextoEntero(r);
        Cell(R, grid::kName).Text = record.NombreContaminante(task, r);
        Cell(R, grid::kEd).Text = TextoDoble(record.VlaEd(task, r));
        Cell(R, grid::kEc).Text = TextoDoble(record.VlaEc(task, r));
        Cell(R, grid::kUnits).Text = record.Unidades(task, r);
        Cell(R, grid::kSamplingTime).Text = TextoEntero(record.TiempoMuestreo(task, r));
        Cell(R, grid::kAdditive).Text = TextoEntero(record.Aditivo(task, r));
    }
}

void Form5::UnlockSamples(int task, const Entero& rows) {
    for (int r = 1; r <= rows.Value(); ++r) {
        for (int c = grid::kFirstSample; c <= grid::kLastSample; ++c) {
            Cell(grid::RowOf(task, r), c).Locked = false;
        }
    }
}

bool Form5::IsRefused(const Entero& day) {
    if (day <= environment_.record.NumJornadas) return false;
    limpia(day);
    environment_.host.MsgBox(
        " El número de día seleccionado no es coherente con los datos introducidos");
    return true;
}

void Form5::intro(const Entero& c) {
    const Entero tasks = environment_.record.NumTareas;
    DiaActual = c;
    if (IsRefused(c)) return;
    if (tasks < 1) return;
    Open(Command1);
    const auto begin = [this](int task) {
        LayOutTask(task);
        FillPlan(task);
        UnlockSamples(task, RowsInUse(task));
    };
    begin(1);
    if (tasks < 2) return;
    begin(2);
    if (tasks != 3) return;
    begin(3);
}

void Form5::recupera(const Entero& s) {
    const Entero tasks = environment_.record.NumTareas;
    DiaActual = s;
    if (IsRefused(s)) return;
    limpia(s);
    if (environment_.record.NumJornadas == 0 || tasks == 0) return;
    Entero n;  // rows of the last task laid out
    const auto lay_out = [this, &n](Button& button, int task) {
        Open(button);
        LayOutTask(task);
        n = RowsInUse(task);
        UnlockSamples(task, n);
    };
    lay_out(Command1, 1);
    if (tasks >= 2) lay_out(Command2, 2);
    // The first button once more: after a recovery the third task's stays closed, as meant.
    if (tasks == 3) lay_out(Command1, 3);
    Open(Command8);
    SetConclusionsVisible(true);
    ForEachEntry([](const std::string& entry, TextCell& cell) { cell.Text = entry; });

    // The third task's rows, with the count of whichever task came last: nothing visible changes.
    if (s == 3) UnlockSamples(3, n);
}

void Form5::SetConclusionsVisible(bool visible) {
    for (Label* label : {&Label1, &Label2, &Label4}) label->Visible = visible;
    for (TextCell* cell : ConclusionCells()) cell->Visible = visible;
}

}  // namespace velmora
