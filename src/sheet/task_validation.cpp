#include "core/grid.h"
#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/statistics.h"

namespace velmora {

/// One press of a task's button.
class Form5::TaskValidation {
public:
    /// What differs between the three buttons. The differences are part of the design.
    struct Differences {
        int task;
        std::string_view no_data;
        int row_with_first_days_time;  ///< 0 for none
        Button Form5::*next;           ///< the next task's button
    };

    TaskValidation(Form5& sheet, const Differences& task)
        : sheet_(sheet), record_(sheet.environment_.record), differences_(task), task_(task.task) {}

    void Run();

private:
    int RowOf(int contaminant) const { return grid::RowOf(task_, contaminant); }
    const std::string& Text(int contaminant, int column) const {
        return sheet_.Cell(RowOf(contaminant), column).Text;
    }

    bool LacksLimits() const;
    bool FirstTaskHasSamples() const;
    bool LacksSamples() const;
    bool HasGaps() const;
    void ComputeRows();
    Muestras SamplesOf(int contaminant) const;
    Doble IndexOf(int contaminant, const Doble& mmp) const;
    template <class Change>
    void ForEachSample(Change change);

    Form5& sheet_;
    EvaluacionRecord& record_;
    Differences differences_;
    int task_;
};

void Form5::Command1_Click() {
    TaskValidation(*this, {1, "No hay datos para operar", 0, &Form5::Command2}).Run();
}

void Form5::Command2_Click() {
    // Row 6 of this task alone takes the first day's time, whatever the day: it is on purpose.
    TaskValidation(*this, {2, " No hay datos para operar", 6, &Form5::Command3}).Run();
}

void Form5::Command3_Click() {
    TaskValidation(*this, {3, " No hay datos para operar", 0, nullptr}).Run();
}

void Form5::TaskValidation::Run() {
    Host& host = sheet_.environment_.host;
    if (LacksLimits()) {
        host.MsgBox("No se dispone de datos relativos a los contaminantes ");
        return;
    }
    if (!FirstTaskHasSamples()) {
        host.MsgBox(differences_.no_data);
        return;
    }
    ForEachSample([](TextCell& cell) { cell.ForeColor = kWindowText; });
    if (LacksSamples()) {
        host.MsgBox("No hay datos suficientes para operar ");
        return;
    }
    if (HasGaps()) {
        host.MsgBox("No deje espacios vacios");
        return;
    }
    ComputeRows();
    sheet_.Text7.Text.clear();
    ForEachSample([](TextCell& cell) { cell.BackColor = kWindowBackground; });
    sheet_.OpenAfter(task_, differences_.next, sheet_.Command4);
}

bool Form5::TaskValidation::LacksLimits() const {
    const int n = record_.NumContaminantes(task_).Value();
    for (int r = 1; r <= n; ++r) {
        const Doble ed = sheet_.Value(RowOf(r), grid::kEd);
        const Doble ec = sheet_.Value(RowOf(r), grid::kEc);
        if (ed == 0 && ec == 0) return true;
    }
    return false;
}

bool Form5::TaskValidation::FirstTaskHasSamples() const {
    // All three buttons look at the first task's samples, not at their own: it is meant.
    for (int R = 1; R <= grid::kRowsPerTask; ++R) {
        for (int c = grid::kFirstSample; c <= grid::kLastSample; ++c) {
            if (!sheet_.Cell(R, c).Text.empty()) return true;
        }
    }
    return false;
}

bool Form5::TaskValidation::LacksSamples() const {
    const int n = record_.NumContaminantes(task_).Value();
    for (int r = 1; r <= n; ++r) {
        int filled = 0;
        for (int c = grid::kFirstSample; c <= grid::kLastSample; ++c) {
            if (!Text(r, c).empty()) ++filled;
        }
        if (filled < 2) return true;
    }
    return false;
}

bool Form5::TaskValidation::HasGaps() const {
    for (int r = 1; r <= grid::kRowsPerTask; ++r) {
        for (int c = grid::kFirstSample; c < grid::kLastSample; ++c) {
            const std::string& left = Text(r, c);
            const std::string& right = Text(r, c + 1);
            if ((left.empty() && !right.empty()) || (LeerValor(left) == 0 && !right.empty())) {
                return true;
            }
        }
    }
    return false;
}

void Form5::TaskValidation::ComputeRows() {
    for (int r = 1; r <= grid::kRowsPerTask; ++r) {
        // The sum of the sample counts bounds the rows, not the number of contaminants: it is
        // meant.
        if (sheet_.RowsInUse(task_) < r) break;
        const Doble mmp = MediaEstimada(record_, SamplesOf(r), sheet_.DiaActual, task_, r);
        sheet_.Cell(RowOf(r), grid::kMmp).Text = FormatoDosDecimales(mmp);
        sheet_.Cell(RowOf(r), grid::kIndex).Text = FormatoDosDecimales(IndexOf(r, mmp));
    }
}

Muestras Form5::TaskValidation::SamplesOf(int contaminant) const {
    Muestras samples;
    for (int c = 0; c <= 5; ++c) {
        const std::string& text = Text(contaminant, grid::kFirstSample + c);
        if (text.empty() || LeerValor(text) == 0) break;
        samples(c + 1) = LeerValor(text);
    }
    return samples;
}

Doble Form5::TaskValidation::IndexOf(int contaminant, const Doble& mmp) const {
    constexpr double kHoursOfWorkday = 8;
    const Doble vla_ed = record_.VlaEd(task_, contaminant);
    if (vla_ed == 0) return 0;
    const bool first_day = contaminant == differences_.row_with_first_days_time;
    const Doble hours = record_.TiempoExposicion(first_day ? Entero(1) : sheet_.DiaActual, task_);
    return hours * mmp / (vla_ed * kHoursOfWorkday);
}

template <class Change>
void Form5::TaskValidation::ForEachSample(Change change) {
    for (int r = 1; r <= grid::kRowsPerTask; ++r) {
        for (int c = grid::kFirstSample; c <= grid::kLastSample; ++c) {
            change(sheet_.Cell(RowOf(r), c));
        }
    }
}

}  // namespace velmora
