#include <algorithm>
#include <array>
#include <set>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"

namespace velmora::property {

namespace {

using enum ScreenId;
using Kind = Action::Kind;

constexpr std::array<std::string_view, 5> kAnswers = {"Text2", "Text4", "Text5", "Text6", "Text7"};
constexpr std::array<std::string_view, 3> kAnswerLabels = {"Label1", "Label2", "Label4"};

bool OnSheet(const Step& s) { return s.after.Id() == Form5 && s.Lives(); }

bool IsSample(int column) { return column >= Col::kC1 && column <= Col::kC6; }

/// Whether a day is laid out; without one the sheet is blank.
bool IsLaidOut(const Screenshot& sheet) { return sheet.ButtonOf("Command1").Visible; }

bool PicksADay(const Step& s, std::string_view way) {
    return s.action.kind == Kind::Choose && s.before.Id() == Form5 &&
           s.action.target.starts_with(way);
}

/// The day of an entry such as "introsegundo", 0 for another entry.
int DayOf(const Step& s) {
    if (!PicksADay(s, "intro") && !PicksADay(s, "recup")) return 0;
    const std::string& entry = s.action.target;
    return entry.find("primer") != std::string::npos    ? 1
           : entry.find("segundo") != std::string::npos ? 2
                                                        : 3;
}

/// Tasks that a day's sheet is laid out for: those of the plan, and three only if it has three.
int TasksLaidOut(const EvaluacionRecord& record) {
    const int tasks = record.NumTareas.Value();
    return tasks <= 3 ? tasks : 2;
}

Verdict TheFiveAnswersAreAlwaysLocked(const Step& s) {
    if (!OnSheet(s)) return Verdict::PassedOver();
    for (const std::string_view name : kAnswers) {
        if (!s.after.Cell(name).Locked) return Verdict::Broken(name);
    }
    return Verdict::Holds();
}

Verdict ABlankSheetIsHiddenLockedAndEmpty(const Step& s) {
    if (!OnSheet(s) || IsLaidOut(s.after)) return Verdict::PassedOver();
    const auto blank = [](const TextCell& cell) {
        return !cell.Visible && cell.Locked && cell.Text.empty();
    };
    const auto Text1 = s.after.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    for (int i = 0; i <= 323; ++i) {
        if (!blank(Text1(i))) return Verdict::Broken("Text1(", i, ")");
    }
    for (int i = 0; i <= 71; ++i) {
        if (!blank(Text3(i))) return Verdict::Broken("Text3(", i, ")");
    }
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        if (s.after.IsClock(i)) continue;
        const auto* const label = std::get_if<Label>(&s.after.At(i));
        const auto* const button = std::get_if<Button>(&s.after.At(i));
        if ((label != nullptr && label->Visible) || (button != nullptr && button->Visible)) {
            return Verdict::Broken(s.after.NameAt(i), " is visible");
        }
    }
    for (const std::string_view name : kAnswers) {
        if (s.after.Cell(name).Visible) return Verdict::Broken(name, " is visible");
    }
    return Verdict::Holds();
}

/// The first cell of a task's rows that isn't shown or locked as its day has it, empty for none.
std::string FaultOfRows(const Screenshot& sheet, int task, int rows) {
    const auto Text1 = sheet.Cells("Text1");
    const auto Text3 = sheet.Cells("Text3");
    for (int r = 1; r <= 6; ++r) {
        const bool shown = r <= rows;
        for (int c = 0; c < 18; ++c) {
            const TextCell& cell = Text1(At(task, r, c));
            // A third day that is recovered unlocks hidden samples of the third task, too.
            const bool may_be_open = !shown && sheet.Day() == 3 && task == 3 && IsSample(c);
            const bool lock_holds = may_be_open || cell.Locked == !(shown && IsSample(c));
            if (cell.Visible != shown || !lock_holds) return Indexed("Text1", At(task, r, c));
        }
        for (int c = 0; c < 4; ++c) {
            const TextCell& cell = Text3(At3(task, r, c));
            if (cell.Visible != shown || !cell.Locked) return Indexed("Text3", At3(task, r, c));
        }
    }
    return {};
}

/// Whether the headings and the title of a task are all shown, or all hidden.
bool HasHeadings(const Screenshot& sheet, int task, bool shown) {
    bool all = sheet.LabelOf("Label7", 53 + task).Visible == shown;
    for (int c = 0; c < 18; ++c) {
        all = all && sheet.LabelOf("Label7", 18 * (task - 1) + c).Visible == shown;
    }
    for (int c = 0; c < 4; ++c) {
        all = all && sheet.LabelOf("Label3", 4 * (task - 1) + c).Visible == shown;
    }
    return all;
}

Verdict ALaidOutSheetShowsTheRowsOfItsDay(const Step& s) {
    const EvaluacionRecord& record = s.record_after;
    if (!OnSheet(s) || !IsLaidOut(s.after) || !HasSoundSamples(record) || record.NumTareas < 1 ||
        s.action.kind == Kind::Tick) {
        return Verdict::PassedOver();
    }
    for (int task = 1; task <= 3; ++task) {
        const bool laid_out = task <= TasksLaidOut(record);
        const int rows = laid_out ? SampledRows(record, s.after.Day(), task) : 0;
        const std::string fault = FaultOfRows(s.after, task, rows);
        if (!fault.empty()) return Verdict::Broken(fault);
        if (!HasHeadings(s.after, task, laid_out)) {
            return Verdict::Broken("the headings of task ", task);
        }
    }
    return Verdict::Holds();
}

Verdict ButtonsAreOpenOrClosedAndTheAnswersComeWithTheLast(const Step& s) {
    if (!OnSheet(s)) return Verdict::PassedOver();
    for (int i = 1; i <= 8; ++i) {
        const Button& button = s.after.ButtonOf(Say("Command", i));
        if (button.Visible != button.Enabled) return Verdict::Broken("Command", i);
    }
    const bool last = s.after.ButtonOf("Command8").Visible;
    for (const std::string_view name : kAnswers) {
        if (s.after.Cell(name).Visible != last) return Verdict::Broken(name);
    }
    for (const std::string_view name : kAnswerLabels) {
        if (s.after.LabelOf(name).Visible != last) return Verdict::Broken(name);
    }
    return Verdict::Holds();
}

std::set<int> OpenButtons(const Screenshot& sheet) {
    std::set<int> open;
    for (int i = 1; i <= 8; ++i) {
        if (sheet.ButtonOf(Say("Command", i)).Visible) open.insert(i);
    }
    return open;
}

Verdict AHandlerClosesNoButtonAndOpensOneAtMost(const Step& s) {
    if (s.before.Id() != Form5 || s.Moved() || !s.Lives()) return Verdict::PassedOver();
    if (DayOf(s) != 0) return Verdict::PassedOver();
    const std::set<int> before = OpenButtons(s.before);
    const std::set<int> after = OpenButtons(s.after);
    if (!std::ranges::includes(after, before)) return Verdict::Broken("one was closed");
    const bool presses = s.action.kind == Kind::Press && !s.Refused();
    const std::size_t most = before.size() + (presses ? 1 : 0);
    return after.size() <= most ? Verdict::Holds() : Verdict::Broken(after.size(), " are open");
}

/// Whether a press of a button of the sheet may change this control.
bool BelongsTo(const Step& s, std::string_view name, int index) {
    const int row = index / 18;
    const int column = index % 18;
    const bool opens = name.starts_with("Command") || name == "Label1" || name == "Label2" ||
                       name == "Label4" || std::ranges::find(kAnswers, name) != kAnswers.end();
    if (const int task = ValidatedTask(s); task != 0) {
        const bool cell = row / 6 == task - 1 && (column >= Col::kC1 && column <= Col::kIndex);
        return name == "Text1" ? cell : name == "Text7" || name.starts_with("Command");
    }
    if (s.action.target == "Command4") {
        const bool second_loss = index == 9;  // C3 of the first row
        return name == "Text1" ? column >= Col::kIndexPlus || second_loss : name == "Command5";
    }
    if (const int task = EvaluatedTask(s); task != 0) {
        return name == "Text3" ? index / 24 == task - 1 : opens;
    }
    return name == "Text1" ? IsSample(column) : std::ranges::find(kAnswers, name) != kAnswers.end();
}

Verdict AButtonTouchesOnlyItsOwnCells(const Step& s) {
    if (s.before.Id() != Form5 || s.action.kind != Kind::Press) return Verdict::PassedOver();
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        if (s.after.At(i) == s.before.At(i)) continue;
        const Row& row = s.after.RowAt(i);
        if (!BelongsTo(s, row.name, row.index)) return Verdict::Broken(s.after.NameAt(i));
        const bool sample = row.name == "Text1" && IsSample(row.index % 18);
        if (!sample || s.action.target == "Command4") continue;
        if (std::get<TextCell>(s.after.At(i)).Text != std::get<TextCell>(s.before.At(i)).Text) {
            return Verdict::Broken(s.after.NameAt(i), " lost its sample");
        }
    }
    return Verdict::Holds();
}

Verdict ARefusedValidationLeavesEveryTextAndButton(const Step& s) {
    if (ValidatedTask(s) == 0 || !s.Refused()) return Verdict::PassedOver();
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        Shown after = s.after.At(i);
        if (auto* const cell = std::get_if<TextCell>(&after)) {
            const auto& before = std::get<TextCell>(s.before.At(i));
            if (cell->ForeColor == kWindowText) cell->ForeColor = before.ForeColor;
        }
        if (after != s.before.At(i)) return Verdict::Broken(s.after.NameAt(i), " changed");
    }
    return Verdict::Holds();
}

Verdict OnlySamplesBearAMarkAndOnlyTheLastButtonMakesOne(const Step& s) {
    if (!OnSheet(s) || s.action.kind == Kind::Tick) return Verdict::PassedOver();
    int new_marks = 0;
    for (std::size_t i = 0; i < s.after.Size(); ++i) {
        const auto* const cell = std::get_if<TextCell>(&s.after.At(i));
        if (cell == nullptr) continue;
        const bool plain = cell->BackColor == kWindowBackground && cell->ForeColor == kWindowText;
        if (plain) continue;
        const Row& row = s.after.RowAt(i);
        if (row.name != "Text1" || !IsSample(row.index % 18)) {
            return Verdict::Broken(s.after.NameAt(i), " is coloured");
        }
        const bool known_back = cell->BackColor == 250 || cell->BackColor == 255 ||
                                cell->BackColor == kWindowBackground;
        const bool known_fore =
            cell->ForeColor == kWindowBackground || cell->ForeColor == kWindowText;
        if (!known_back || !known_fore) return Verdict::Broken(s.after.NameAt(i), " has a colour");
        const auto* const before = s.Moved() ? nullptr : std::get_if<TextCell>(&s.before.At(i));
        if (before == nullptr) return Verdict::Broken("a new sheet bears a mark");
        const bool marked =
            cell->BackColor != kWindowBackground &&
            (before->BackColor != cell->BackColor || before->ForeColor != cell->ForeColor);
        if (marked && cell->ForeColor == kWindowBackground) ++new_marks;
    }
    if (new_marks > (s.Pressed(Form5, "Command8") ? 1 : 0)) {
        return Verdict::Broken(new_marks, " new marks");
    }
    return Verdict::Holds();
}

Verdict ARightValidationTakesTheMarksOfItsTask(const Step& s) {
    const int task = ValidatedTask(s);
    if (task == 0 || s.Refused() || !s.Lives()) return Verdict::PassedOver();
    if (!s.after.Cell("Text7").Text.empty()) return Verdict::Broken("Text7 keeps its answer");
    const auto Text1 = s.after.Cells("Text1");
    for (int r = 1; r <= 6; ++r) {
        for (int c = Col::kC1; c <= Col::kC6; ++c) {
            const TextCell& cell = Text1(At(task, r, c));
            if (cell.BackColor != kWindowBackground || cell.ForeColor != kWindowText) {
                return Verdict::Broken("Text1(", At(task, r, c), ")");
            }
        }
    }
    return Verdict::Holds();
}

Verdict ADayIsRefusedExactlyWhenThePlanLacksIt(const Step& s) {
    const int day = DayOf(s);
    if (day == 0 || !s.Lives()) return Verdict::PassedOver();
    if (s.after.Day() != day) return Verdict::Broken("DiaActual is ", s.after.Day());
    const bool due = day > s.record_before.NumJornadas.Value();
    return s.Refused() == due ? Verdict::Holds() : Verdict::Broken("wrongly judged");
}

Verdict ADayOnlyChangesByItsEntries(const Step& s) {
    if (s.before.Id() != Form5 || s.Moved() || DayOf(s) != 0) return Verdict::PassedOver();
    if (s.after.Day() == s.before.Day()) return Verdict::Holds();
    return Verdict::Broken("DiaActual became ", s.after.Day());
}

/// The first entry of a day's slot that differs from the sheet, 0 for none.
int FirstDifference(const DaySheet& slot, const Screenshot& sheet) {
    const auto Text1 = sheet.Cells("Text1");
    const auto Text3 = sheet.Cells("Text3");
    for (int i = 0; i <= 323; ++i) {
        if (slot(i + 1) != Text1(i).Text) return i + 1;
    }
    for (int i = 0; i <= 71; ++i) {
        if (slot(i + 325) != Text3(i).Text) return i + 325;
    }
    for (int i = 0; i < 5; ++i) {
        const std::string_view name = kAnswers.at(static_cast<std::size_t>(i));
        if (slot(i + 397) != sheet.Cell(name).Text) return i + 397;
    }
    return 0;
}

Verdict ADaysSlotIsWhatTheSheetShowsOnceValidatedOrRecovered(const Step& s) {
    const bool validated = s.Pressed(Form5, "Command8");
    const bool recovered = PicksADay(s, "recup") && OnSheet(s) && IsLaidOut(s.after);
    if ((!validated && !recovered) || !s.Lives()) return Verdict::PassedOver();
    const int entry = FirstDifference(s.record_after.Hoja(s.after.Day()), s.after);
    return entry == 0 ? Verdict::Holds() : Verdict::Broken("entry ", entry);
}

Verdict TheFiveAnswersKeepTheirTextUntilWritten(const Step& s) {
    const bool begun = PicksADay(s, "intro") || (PicksADay(s, "recup") && !IsLaidOut(s.after));
    if (!begun || !s.Lives()) return Verdict::PassedOver();
    for (const std::string_view name : kAnswers) {
        if (s.after.Cell(name).Text != s.before.Cell(name).Text) return Verdict::Broken(name);
    }
    return Verdict::Holds();
}

}  // namespace

const std::vector<Invariant> kSheetInvariants = {
    {"The five answers of the sheet are always locked.", TheFiveAnswersAreAlwaysLocked},
    {"A sheet without a day is hidden, locked and empty, its buttons closed.",
     ABlankSheetIsHiddenLockedAndEmpty},
    {"A sheet with a day shows the rows of that day, and takes typing in their samples alone.",
     ALaidOutSheetShowsTheRowsOfItsDay},
    {"A button is visible when it is enabled, and the answers come with the last button.",
     ButtonsAreOpenOrClosedAndTheAnswersComeWithTheLast},
    {"A handler closes no button and opens one at most; only picking a day begins anew.",
     AHandlerClosesNoButtonAndOpensOneAtMost},
    {"A button of the sheet touches only its own cells.", AButtonTouchesOnlyItsOwnCells},
    {"A refused validation leaves every text and every button as it was.",
     ARefusedValidationLeavesEveryTextAndButton},
    {"Only samples are coloured, and a press of Command8 marks one at most.",
     OnlySamplesBearAMarkAndOnlyTheLastButtonMakesOne},
    {"A validation empties the answer on limits and takes the marks of its task.",
     ARightValidationTakesTheMarksOfItsTask},
    {"A day is refused exactly when the plan lacks it, and is the day of the sheet all the "
     "same.",
     ADayIsRefusedExactlyWhenThePlanLacksIt},
    {"The day of the sheet changes by the entries of the two day menus alone.",
     ADayOnlyChangesByItsEntries},
    {"A day's slot is what the sheet shows, once the day is validated or recovered.",
     ADaysSlotIsWhatTheSheetShowsOnceValidatedOrRecovered},
    {"Beginning a day keeps the texts of the five answers.",
     TheFiveAnswersKeepTheirTextUntilWritten},
};

}  // namespace velmora::property
