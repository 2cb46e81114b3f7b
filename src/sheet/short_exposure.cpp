#include <cmath>
#include <vector>

#include "core/grid.h"
#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/statistics.h"

namespace velmora {

/// One press of a task's button: each contaminant, or each mixture of a task's contaminants that
/// bear the same number in "A+", against its short-exposure limit.
class Form5::ShortExposure {
public:
    /// What differs between the three buttons. The differences are part of the design.
    struct Differences {
        int task;
        double factor;        ///< plain: from a group's first A+ cell to its EC+ cell
        Button Form5::*next;  ///< the next task's button
    };

    ShortExposure(Form5& sheet, const Differences& task)
        : sheet_(sheet),
          record_(sheet.environment_.record),
          differences_(task),
          task_(task.task),
          contaminants_(record_.NumContaminantes(task_)) {}

    void Run();

private:
    using Group = std::vector<int>;        ///< its members, by their place in the task
    using Matrix = Array<Muestras, 1, 7>;  ///< 1 to 6 by the member's place, 7 the sums

    int RowOf(int contaminant) const { return grid::RowOf(task_, contaminant); }
    Doble Value(int contaminant, int column) const {
        return sheet_.Value(RowOf(contaminant), column);
    }
    TextCell& Cell3(int contaminant, int column) {
        return sheet_.Cell3(RowOf(contaminant), column);
    }

    /// The cell of Text3 on the row of this task that a contaminant's number names.
    TextCell& CellNumbered(const Doble& number, int column) {
        const Doble first = grid::Cell3(RowOf(1), 0);
        return sheet_.Text3(
            RedondearEntero(first + number * grid::kColumns3 - (grid::kColumns3 - column)));
    }

    Group GroupOf(int number) const;
    Doble LimitOf(int contaminant, const Doble& ec) const;
    void JudgeAlone(int contaminant, const Doble& ec);
    void SetMixtureLimit(const Group& group);
    Matrix SamplesOf(const Group& group) const;
    static void SumCommonSamples(Matrix& samples, std::size_t members);
    void NoteMixture(const Group& group);
    void SetProbabilities();

    Form5& sheet_;
    EvaluacionRecord& record_;
    Differences differences_;
    int task_;
    Entero contaminants_;
};

namespace {

constexpr int kLastGroup = 6;

}  // namespace

void Form5::Command5_Click() { ShortExposure(*this, {1, 0.222, &Form5::Command6}).Run(); }

void Form5::Command6_Click() {
    // The factor is the first task's: from the third row on it misses the EC+ cell and hits the
    // Prob. cell of the row above. That is meant.
    ShortExposure(*this, {2, 0.222, &Form5::Command7}).Run();
}

void Form5::Command7_Click() { ShortExposure(*this, {3, 0.2222, nullptr}).Run(); }

void Form5::ShortExposure::Run() {
    for (int i = 1; i <= contaminants_.Value(); ++i) {
        const Doble a = Value(i, grid::kAdditive);
        const Doble e = Value(i, grid::kEc);
        if (a == 0) JudgeAlone(i, e);
    }
    for (int k = 1; k <= kLastGroup; ++k) {
        const Group group = GroupOf(k);
        if (group.size() == 1) JudgeAlone(group.front(), Value(group.front(), grid::kEc));
    }
    for (int k = 1; k <= kLastGroup; ++k) SetMixtureLimit(GroupOf(k));
    for (int k = 1; k <= kLastGroup; ++k) NoteMixture(GroupOf(k));
    SetProbabilities();
    sheet_.OpenAfter(task_, differences_.next, sheet_.Command8);
    if (record_.NumTareas == task_) sheet_.SetConclusionsVisible(true);
}

Form5::ShortExposure::Group Form5::ShortExposure::GroupOf(int number) const {
    // The A+ cells from the first row's to the last one's, counted in Integers: a number of
    // contaminants that only a harmed file can give may be too small for them.
    const Entero first = grid::Cell(RowOf(1), grid::kAdditive);
    const Entero last = first + Entero(grid::kColumns) * (contaminants_ - 1);
    Group group;
    for (int cell = first.Value(), place = 1; cell <= last.Value();
         cell += grid::kColumns, ++place) {
        if (sheet_.Value(cell) == number) group.push_back(place);
    }
    return group;
}

/// What "EC" reads, or three times "ED" where that is 0.
Doble Form5::ShortExposure::LimitOf(int contaminant, const Doble& ec) const {
    return ec == 0 ? 3 * Value(contaminant, grid::kEd) : ec;
}

void Form5::ShortExposure::JudgeAlone(int contaminant, const Doble& ec) {
    Cell3(contaminant, grid::kEcPlus).Text = TextoDoble(LimitOf(contaminant, ec));
    Cell3(contaminant, grid::kMgPlus).Text = TextoDoble(Value(contaminant, grid::kMg));
    Cell3(contaminant, grid::kGsdPlus).Text = TextoDoble(Value(contaminant, grid::kGsd));
}

/// The harmonic mean of the members' limits, weighted by their MMP.
void Form5::ShortExposure::SetMixtureLimit(const Group& group) {
    Doble W;
    Doble S;
    for (const int i : group) {
        const Doble mmp = Value(i, grid::kMmp);
        W += mmp / LimitOf(i, Value(i, grid::kEc));
        S += mmp;
    }
    // Not asked before: a group of one whose limits both read 0 ends the program above, as meant.
    if (W == 0 || group.size() < 2) return;
    const int p = grid::Cell(RowOf(group.front()), grid::kAdditive);
    // plain: in unchecked arithmetic, whose rounding decides which cell is hit
    const double cell = std::floor(static_cast<double>(p) * differences_.factor - 1.3);
    sheet_.Text3(RedondearEntero(cell)).Text = TextoDoble(S / W);
}

Form5::ShortExposure::Matrix Form5::ShortExposure::SamplesOf(const Group& group) const {
    Matrix samples;
    for (const int i : group) {
        for (int m = 1; m <= 6; ++m) samples(i, m) = Value(i, grid::kFirstSample + m - 1);
    }
    return samples;
}

/// Sums the members' samples. A sample counts only if every member has it, and the first that one
/// lacks ends the series.
void Form5::ShortExposure::SumCommonSamples(Matrix& samples, std::size_t members) {
    Muestras& sums = samples(7);
    for (int m = 1; m <= 6; ++m) {
        std::size_t having = 0;
        for (int i = 1; i <= 6; ++i) {
            if (samples(i, m) == 0) continue;
            sums(m) += samples(i, m);
            ++having;
        }
        if (having < members) {
            sums(m) = 0;
            break;
        }
    }
}

/// MG+ and GSD+ of a group of two or more, on the row that the first member's number names.
void Form5::ShortExposure::NoteMixture(const Group& group) {
    // Read before the group is counted: one sample that can't be read ends the program in a group
    // of one, too, as meant.
    Matrix samples = SamplesOf(group);
    if (group.size() < 2) return;
    SumCommonSamples(samples, group.size());
    const LogNormal series(samples(7));
    // The mean is noted before the deviation is tried: a series of one sample ends the program
    // between the two, as meant.
    const Doble mg = series.GeometricMean();
    const Doble number = Value(group.front(), grid::kNumber);
    record_.MGmas(sheet_.DiaActual, task_, RedondearEntero(number)) = mg;
    CellNumbered(number, grid::kMgPlus).Text = TextoDoble(mg);

    const Doble gsd = series.GeometricDeviation();
    record_.GSDmas(sheet_.DiaActual, task_, RedondearEntero(number)) = gsd;
    CellNumbered(number, grid::kGsdPlus).Text = TextoDoble(gsd);
}

void Form5::ShortExposure::SetProbabilities() {
    for (int i = 1; i <= contaminants_.Value(); ++i) {
        if (Cell3(i, grid::kEcPlus).Text.empty()) continue;
        const Doble mg = LeerValor(Cell3(i, grid::kMgPlus).Text);
        const Doble ratio = LeerValor(Cell3(i, grid::kEcPlus).Text) / mg;
        const Doble dispersion = LeerValor(Cell3(i, grid::kGsdPlus).Text);
        Cell3(i, grid::kProbability).Text = TextoDoble(ProbabilidadExceso(ratio, dispersion));
    }
}

}  // namespace velmora
