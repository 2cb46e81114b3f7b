#include <algorithm>
#include <array>
#include <cctype>

#include "core/numbers.h"
#include "property/invariant.h"
#include "property/judging.h"
#include "support/messages.h"

namespace velmora::property {

namespace {

using enum ScreenId;
using Kind = Action::Kind;

// --- Form2

Verdict ARestoreShowsDatosEmpresaWhateverWasRead(const Step& s) {
    if (!s.Chose(Form2, "recuperardatos")) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    for (int i = 1; i <= 19; ++i) {
        if (Text1(i).Text != s.record_after.DatosEmpresa(i)) {
            return Verdict::Broken("Text1(", i, ") shows \"", Text1(i).Text, "\"");
        }
    }
    return Verdict::Holds();
}

Verdict OpeningForm2ShowsTheCompanyOnceItHasAName(const Step& s) {
    if (!s.Moved() || s.after.Id() != Form2) return Verdict::PassedOver();
    const bool named = !s.record_after.DatosEmpresa(1).empty();
    for (int i = 1; i <= 19; ++i) {
        const std::string laid_out = i == 1 ? messages::kNameHint : i == 9 ? " " : "";
        const std::string& due = named ? s.record_after.DatosEmpresa(i) : laid_out;
        const std::string& shown = s.after.Cells("Text1")(i).Text;
        // From Form3 the boxes are filled with or without a name.
        if (shown == due || s.Chose(Form3, "datosdeempresa")) continue;
        return Verdict::Broken("Text1(", i, ") shows \"", shown, "\"");
    }
    return Verdict::Holds();
}

// --- Form3

bool PlanIsFixed(const Screenshot& plan) {
    return plan.ButtonOf("Command1").Caption == " NO OPERATIVO";
}

Verdict ThePlanScreenHasOneOfItsTwoFaces(const Step& s) {
    if (s.after.Id() != Form3 || s.action.kind == Kind::Key) return Verdict::PassedOver();
    const Screenshot& plan = s.after;
    const bool fixed = PlanIsFixed(plan);
    if (plan.ButtonOf("Command1").Enabled == fixed) return Verdict::Broken("Command1");
    const Button& button = plan.ButtonOf("Command2");
    if (button.Visible != fixed || button.Enabled != fixed) return Verdict::Broken("Command2");
    for (int i = 0; i <= 11; ++i) {
        if (plan.LabelOf("Label3", i).Visible != fixed) return Verdict::Broken("Label3(", i, ")");
    }
    for (int i = 0; i <= 7; ++i) {
        const bool open = i < 2 || fixed;
        const ComboBox& list = plan.List("Combo1", i);
        if (list.Visible != open || list.Locked == open) return Verdict::Broken("Combo1(", i, ")");
    }
    if (!HasSoundSize(s.record_after)) return Verdict::Holds();
    const int cells =
        fixed ? s.record_after.NumJornadas.Value() * s.record_after.NumTareas.Value() * 6 : 0;
    const auto Text1 = plan.Cells("Text1");
    for (int i = 0; i <= 53; ++i) {
        const bool open = i < cells;
        const TextCell& cell = Text1(i);
        if (cell.Visible != open || cell.Locked == open) return Verdict::Broken("Text1(", i, ")");
        if (!open && !cell.Text.empty()) return Verdict::Broken("hidden Text1(", i, ")");
    }
    return Verdict::Holds();
}

/// Row k of the grid, from 1: hours, both counts and contaminants.
std::array<std::string, 4> GridRow(const Screenshot& plan, int k) {
    const auto Text1 = plan.Cells("Text1");
    return {Text1(6 * k - 4).Text, Text1(6 * k - 3).Text, Text1(6 * k - 2).Text,
            Text1(6 * k - 1).Text};
}

std::array<std::string, 4> PlanRow(const EvaluacionRecord& record, int day, int task) {
    return {TextoDoble(record.TiempoExposicion(day, task)),
            TextoEntero(record.Muestras30(day, task)), TextoEntero(record.Muestras15(day, task)),
            TextoEntero(record.NumContaminantes(task))};
}

Verdict TheGridShowsThePlanOfTheRecord(const Step& s) {
    const EvaluacionRecord& record = s.record_after;
    if (s.after.Id() != Form3 || !PlanIsFixed(s.after) || !HasSoundSize(record) || !s.Lives() ||
        s.action.kind == Kind::Key) {
        return Verdict::PassedOver();
    }
    const auto Text1 = s.after.Cells("Text1");
    const bool all_due = s.Moved() || (s.Pressed(Form3, "Command2") && !s.Refused());
    int k = 1;
    for (int day = 1; day <= record.NumJornadas.Value(); ++day) {
        for (int task = 1; task <= record.NumTareas.Value(); ++task, ++k) {
            if (Text1(6 * k - 6).Text != Say(day) || Text1(6 * k - 5).Text != Say(task)) {
                return Verdict::Broken("row ", k, " is not numbered ", day, ", ", task);
            }
            const auto row = GridRow(s.after, k);
            const bool entered = record.TiempoExposicion(day, task) != 0;
            const bool empty = row == std::array<std::string, 4>{};
            const bool shown = row == PlanRow(record, day, task);
            if (entered && !shown && (all_due || !empty)) {
                return Verdict::Broken("row ", k, " doesn't show its line");
            }
            if (s.Moved() && !shown) return Verdict::Broken("row ", k, " isn't filled on load");
            const bool kept = s.Moved() || !s.Pressed(Form3, "Command2") || entered ||
                              row == GridRow(s.before, k);
            if (!kept) return Verdict::Broken("row ", k, " was refreshed without a line");
            if (!entered && !empty && row[0] != "0") {
                return Verdict::Broken("row ", k, " shows a line that was never entered");
            }
        }
    }
    return Verdict::Holds();
}

Verdict FixingThePlanStoresTheTwoNumbersPicked(const Step& s) {
    if (!s.Pressed(Form3, "Command1")) return Verdict::PassedOver();
    const std::string& days = s.before.List("Combo1", 0).Text;
    const std::string& tasks = s.before.List("Combo1", 1).Text;
    if (s.Refused() != (days.empty() || tasks.empty())) return Verdict::Broken("wrongly judged");
    if (s.Refused()) {
        return s.after == s.before ? Verdict::Holds() : Verdict::Broken("the screen changed");
    }
    if (Say(s.record_after.NumJornadas.Value()) != days) return Verdict::Broken("NumJornadas");
    if (Say(s.record_after.NumTareas.Value()) != tasks) return Verdict::Broken("NumTareas");
    if (!PlanIsFixed(s.after)) return Verdict::Broken("the plan isn't fixed");
    for (int k = 1; k <= s.record_after.NumJornadas.Value() * s.record_after.NumTareas.Value();
         ++k) {
        if (GridRow(s.after, k) != std::array<std::string, 4>{}) {
            return Verdict::Broken("row ", k, " isn't empty");
        }
    }
    return Verdict::Holds();
}

Verdict APlanIsReopenedOnlyByAYes(const Step& s) {
    const bool pick = s.action.kind == Kind::Pick && s.before.Id() == Form3;
    if (!pick || (s.action.target != "Combo1(0)" && s.action.target != "Combo1(1)")) {
        return Verdict::PassedOver();
    }
    const bool was_fixed = PlanIsFixed(s.before);
    if (was_fixed == s.outcome.boxes.empty()) return Verdict::Broken("wrongly asked");
    const bool fixed_due = was_fixed && s.action.answer != MsgBoxAnswer::Yes;
    if (PlanIsFixed(s.after) != fixed_due) return Verdict::Broken("wrong face");
    const bool only_the_list = s.after.DifferencesFrom(s.before).size() <= 1;
    if (fixed_due && !only_the_list) return Verdict::Broken("a No changed the screen");
    return Verdict::Holds();
}

// --- Form4

/// Rows that are to be open: those of the task picked, if the plan has it.
int OpenRows(const Step& s) {
    const std::string& task = s.after.List("Combo1").Text;
    if (task.empty() || Value(task) > s.record_after.NumTareas.Value()) return 0;
    return s.record_after.NumContaminantes(static_cast<int>(Value(task))).Value();
}

Verdict TheRowsOfTheTaskPickedAreOpenAndNoOther(const Step& s) {
    if (s.after.Id() != Form4 || !s.Lives()) return Verdict::PassedOver();
    const int open = OpenRows(s);
    const auto Text1 = s.after.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    for (int i = 0; i <= 29; ++i) {
        const bool row_open = i / 5 < open;
        if (Text1(i).Visible != row_open) return Verdict::Broken("Text1(", i, ")");
        if (!row_open && !Text1(i).Text.empty()) return Verdict::Broken("hidden Text1(", i, ")");
        if (row_open && Text1(i).Locked != (i % 5 == 0)) return Verdict::Broken("lock of ", i);
        if (row_open && i % 5 == 0 && Text1(i).Text != Say(i / 5 + 1)) {
            return Verdict::Broken("Text1(", i, ") shows ", Text1(i).Text);
        }
    }
    for (int i = 0; i <= 5; ++i) {
        const ComboBox& unit = s.after.List("Combo13", i);
        if (unit.Visible != (i < open) || unit.Locked == (i < open)) {
            return Verdict::Broken("Combo13(", i, ")");
        }
        if (Text3(i).Visible != (i < open)) return Verdict::Broken("Text3(", i, ")");
        if (i < open && Text3(i).Locked) return Verdict::Broken("lock of Text3(", i, ")");
        if (i >= open && !(unit.Text.empty() && Text3(i).Text.empty())) {
            return Verdict::Broken("hidden TM or unit ", i);
        }
    }
    return Verdict::Holds();
}

Verdict APickOfATaskEmptiesTheRows(const Step& s) {
    if (s.action.kind != Kind::Pick || s.before.Id() != Form4 || s.action.target != "Combo1" ||
        !s.Lives()) {
        return Verdict::PassedOver();
    }
    for (int i = 0; i <= 5; ++i) {
        if (!s.after.LabelOf("Label4", i).Visible) return Verdict::Broken("Label4(", i, ")");
    }
    if (!s.after.LabelOf("Label5").Visible) return Verdict::Broken("Label5");
    const auto Text1 = s.after.Cells("Text1");
    for (int i = 0; i <= 29; ++i) {
        if (i % 5 != 0 && !Text1(i).Text.empty()) return Verdict::Broken("Text1(", i, ")");
    }
    for (int i = 0; i <= 5; ++i) {
        if (!s.after.Cells("Text3")(i).Text.empty()) return Verdict::Broken("Text3(", i, ")");
        if (!s.after.List("Combo13", i).Text.empty()) return Verdict::Broken("Combo13(", i, ")");
    }
    const bool refused = Value(s.action.text) > s.record_after.NumTareas.Value();
    return s.Refused() == refused ? Verdict::Holds() : Verdict::Broken("wrongly judged");
}

/// Text that the keys of a limit value can make, or the program's own text of a number.
bool IsNumberText(const std::string& text) {
    return std::ranges::all_of(text, [](char c) {
        return std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '.' || c == ',' ||
               c == 'E' || c == '+' || c == '-';
    });
}

Verdict TheRowsHoldOnlyWhatTheKeysLetThrough(const Step& s) {
    if (s.after.Id() != Form4 || !s.own_after) return Verdict::PassedOver();
    const auto Text1 = s.after.Cells("Text1");
    const auto Text3 = s.after.Cells("Text3");
    for (int r = 1; r <= 6; ++r) {
        if (!IsNumberText(Text1(5 * r - 3).Text)) return Verdict::Broken("VLA-ED of row ", r);
        if (!IsNumberText(Text1(5 * r - 2).Text)) return Verdict::Broken("VLA-EC of row ", r);
        const std::string& group = Text1(5 * r - 1).Text;
        if (group.size() > 1 || !IsNumberText(group)) return Verdict::Broken("mark of row ", r);
        const std::string& time = Text3(r - 1).Text;
        if (!time.empty() && time != "0" && time != "15" && time != "30") {
            return Verdict::Broken("TM of row ", r);
        }
    }
    return Verdict::Holds();
}

}  // namespace

const std::vector<Invariant> kCaptureInvariants = {
    {"Form2 shows DatosEmpresa after a restore, whatever was read.",
     ARestoreShowsDatosEmpresaWhateverWasRead},
    {"Form2 opens with DatosEmpresa once there is a name, and otherwise as it was laid out.",
     OpeningForm2ShowsTheCompanyOnceItHasAName},
    {"Form3 has one of two faces, told by the caption of Command1.",
     ThePlanScreenHasOneOfItsTwoFaces},
    {"The grid of Form3 is numbered day by day and shows the plan of the record.",
     TheGridShowsThePlanOfTheRecord},
    {"Fixing the plan stores the two numbers picked and opens empty rows.",
     FixingThePlanStoresTheTwoNumbersPicked},
    {"A fixed plan asks before it is reopened, and only a Yes reopens it.",
     APlanIsReopenedOnlyByAYes},
    {"Form4 has open as many rows as the task picked has contaminants, and hidden cells are "
     "empty.",
     TheRowsOfTheTaskPickedAreOpenAndNoOther},
    {"A pick of a task empties the rows and shows the headings.", APickOfATaskEmptiesTheRows},
    {"The rows of Form4 hold only what their keys let through.",
     TheRowsHoldOnlyWhatTheKeysLetThrough},
};

}  // namespace velmora::property
