#include <array>
#include <cmath>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"

namespace velmora::property {

namespace {

using enum ScreenId;

constexpr int kRows = 18;
constexpr int kColumns = 9;

constexpr int CellOf(int row, int column) { return (row - 1) * kColumns + column - 1; }

Verdict OnlyTypingChangesTheNumbersOfTheRows(const Step& s) {
    if (s.after.Id() != Form6 || !s.Lives()) return Verdict::PassedOver();
    const bool typed = s.action.kind == Action::Kind::Key || s.action.kind == Action::Kind::Write;
    for (int row = 1; row <= kRows; ++row) {
        const std::string cell = Say("Text1(", CellOf(row, 1), ")");
        if (typed && s.action.target == cell) continue;
        std::string due =
            s.Moved() ? Say((row - 1) % 6 + 1) : s.before.Cells("Text1")(CellOf(row, 1)).Text;
        if (due.empty() && s.Pressed(Form6, "Command1")) due = "----";
        if (s.after.Cells("Text1")(CellOf(row, 1)).Text != due) {
            return Verdict::Broken("row ", row, " isn't numbered");
        }
    }
    return Verdict::Holds();
}

Verdict TheTableShowsItselfAndTheRowsInUseOnceValidated(const Step& s) {
    const bool validated = s.Pressed(Form6, "Command1") && s.Lives();
    const bool opened = s.Moved() && s.after.Id() == Form6;
    if ((!validated && !opened) || !HasSoundCounts(s.record_after)) return Verdict::PassedOver();
    const int tasks = validated ? s.record_after.NumTareas.Value() : 0;
    const auto Text1 = s.after.Cells("Text1");
    for (int row = 1; row <= kRows; ++row) {
        const int task = (row - 1) / 6 + 1;
        const bool task_shown = task <= tasks && (task < 3 || tasks == 3);
        const bool due =
            task_shown && (row - 1) % 6 < s.record_after.NumContaminantes(task).Value();
        for (int column = 1; column <= kColumns; ++column) {
            const bool was = validated && s.before.Cells("Text1")(CellOf(row, column)).Visible;
            if (Text1(CellOf(row, column)).Visible != (due || was)) {
                return Verdict::Broken("row ", row, ", column ", column);
            }
        }
    }
    for (int i = 0; i <= 8; ++i) {
        if (s.after.LabelOf("Label4", i).Visible != validated) return Verdict::Broken("Label4");
    }
    if (s.after.LabelOf("Label3").Visible != (tasks >= 1)) return Verdict::Broken("Label3");
    if (s.after.LabelOf("Label5").Visible != (tasks >= 2)) return Verdict::Broken("Label5");
    if (s.after.LabelOf("Label6").Visible != (tasks == 3)) return Verdict::Broken("Label6");
    return Verdict::Holds();
}

Verdict TheTableShowsHojaFinalAndDashesForWhatIsEmpty(const Step& s) {
    if (!s.Pressed(Form6, "Command1") || !s.Lives()) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    for (int row = 1; row <= kRows; ++row) {
        for (int column = 2; column <= kColumns; ++column) {
            if (column == 6) continue;  // IG, which is not copied
            const std::string& held = s.record_after.HojaFinal(row, column);
            const std::string& shown = Text1(CellOf(row, column)).Text;
            if (shown != (held.empty() ? "----" : held)) {
                return Verdict::Broken("row ", row, ", column ", column, " shows \"", shown, "\"");
            }
        }
    }
    return Verdict::Holds();
}

Verdict TheOverallIndexIsTheGeometricMeanOfTheDays(const Step& s) {
    if (!s.Pressed(Form6, "Command1") || !s.Lives() || HasExtremeCells(s.after)) {
        return Verdict::PassedOver();
    }
    bool any = false;
    for (int row = 1; row <= kRows; ++row) {
        const auto index = [&](int day) { return Value(s.record_before.HojaFinal(row, 2 + day)); };
        const std::string& was = s.record_before.HojaFinal(row, 6);
        const std::string& is = s.record_after.HojaFinal(row, 6);
        const std::string& shown = s.after.Cells("Text1")(CellOf(row, 6)).Text;
        if (index(1) == 0 || index(2) == 0) {
            if (is != was) return Verdict::Broken("IG of row ", row, " without two days");
            const std::string& before = s.before.Cells("Text1")(CellOf(row, 6)).Text;
            if (shown != (before.empty() ? "----" : before)) {
                return Verdict::Broken("IG of row ", row, " shows \"", shown, "\"");
            }
            continue;
        }
        any = true;
        const double cube = std::pow(Shows(is), 3);
        const double product = index(1) * index(2) * index(3);
        if (is != shown || std::fabs(cube - product) > 1e-9 * std::fabs(product)) {
            return Verdict::Broken("IG of row ", row, " is \"", is, "\"");
        }
    }
    return any ? Verdict::Holds() : Verdict::PassedOver();
}

}  // namespace

const std::vector<Invariant> kResultInvariants = {
    {"The numbers of the final table's rows change by typing alone.",
     OnlyTypingChangesTheNumbersOfTheRows},
    {"The final table is hidden until it is validated, and then shows the rows in use.",
     TheTableShowsItselfAndTheRowsInUseOnceValidated},
    {"The final table shows HojaFinal, and four dashes for what is empty.",
     TheTableShowsHojaFinalAndDashesForWhatIsEmpty},
    {"IG is the geometric mean of the three days, where the first two have an index.",
     TheOverallIndexIsTheGeometricMeanOfTheDays},
};

}  // namespace velmora::property
