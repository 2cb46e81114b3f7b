#include "fuzz/use_bytes.h"

#include <algorithm>

#include "property/record_walk.h"
#include "property/say.h"
#include "support/menus.h"
#include "support/use.h"

namespace velmora::fuzz {

namespace {

using property::Action;
using property::Say;
using ActionKind = Action::Kind;
using enum Deed::Kind;
using namespace std::string_view_literals;

constexpr int kHighBit = 0x80;

// clang-format off
/// What is typed into cells of numbers; "\b" empties such a cell. The first kUsual are what work is
/// made of.
constexpr std::array kTyped = {
    "1"sv, "2"sv, "3"sv, "5"sv, "8"sv, "0"sv, "4"sv, "10"sv, "20"sv, "30"sv, "50"sv, "0.5"sv,
    "0.04"sv, "12.5"sv, "120"sv, "95"sv, "150"sv, "110"sv, "45"sv, "35"sv, "15"sv, "25"sv, "192"sv,
    "384"sv, "221"sv, "442"sv, "884"sv, "\b"sv, "7."sv, ".5"sv, "1.2.3"sv, "0.001"sv, "0.004"sv,
    "1000000000"sv, "123456789012345678"sv, "0.12345678901234567"sv, "12\b.3"sv,
};

constexpr int kUsual = 27;

constexpr std::array kWritten = {
    "Tolueno"sv, "Xileno"sv, "Etilbenceno"sv, "Óxido de hierro"sv, "n-Hexano"sv, "Ω-álcali"sv,
    ""sv, " "sv, "---"sv, R"("Disolvente")"sv, "Acetona, 99 %"sv, "-5"sv, "1E999"sv,
};

/// What a line of a file may become.
constexpr std::array kLines = {
    "4"sv, "7"sv, "0"sv, "1"sv, "2"sv, "3"sv, "6"sv, "-1"sv, "300"sv, "99999"sv, "-99999"sv, ""sv,
    "abc"sv, "2.5"sv, "1e300"sv, "1e400"sv, "-0.5"sv, "1e-300"sv, "1,5"sv, "  3  "sv,
    R"("-5")"sv, R"("1E999")"sv, R"("1E200")"sv, R"("x)"sv, R"("a"b")"sv, R"("7" resto)"sv,
    R"("3.5")"sv, R"("0")"sv, R"("")"sv,
};
// clang-format on

template <class List>
const auto& At(const List& list, int place) {
    return list[static_cast<std::size_t>(place) % std::size(list)];
}

bool TakesMeasurements(const Control& control) {
    return use::TakesTyping(control) && control.events.KeyPress;
}

/// How a deed finds its control among those of the screen.
using Offered = bool (*)(const Control&);

Offered OfferedTo(Deed::Kind kind) {
    switch (kind) {
        case Press:
            return use::TakesPress;
        case Pick:
            return use::TakesPicks;
        case Key:
            return use::TakesKeys;
        case Type:
            return TakesMeasurements;
        case Write:
            return use::TakesText;
        case Double:
            return use::TakesDoubleClick;
        default:
            return nullptr;
    }
}

std::vector<const Control*> OnOffer(const Screen& screen, Offered offered) {
    std::vector<const Control*> controls;
    for (const Control& control : screen.Controls()) {
        if (offered(control)) controls.push_back(&control);
    }
    return controls;
}

std::vector<std::string_view> EntriesOf(const Screen& screen) {
    std::vector<std::string_view> entries;
    for (const MenuEntry& title : screen.Menu()) {
        if (title.Click) entries.push_back(title.name);
        for (const MenuEntry& entry : title.list) entries.push_back(entry.name);
    }
    return entries;
}

// --- Deeds on one control.

void TypeInto(std::vector<Action>& actions, const std::string& cell, std::string_view keys) {
    for (const char key : keys) {
        actions.push_back({.kind = ActionKind::Key, .target = cell, .number = key});
    }
}

std::vector<Action> OnControl(const Deed& deed, const Control& control) {
    const std::string& target = control.name;
    switch (deed.kind) {
        case Press:
            return {{.kind = ActionKind::Press, .target = target}};
        case Pick:
            if (control.row.items.empty()) return {};
            return {{.kind = ActionKind::Pick,
                     .target = target,
                     .text = std::string(At(control.row.items, deed.what % kHighBit)),
                     .answer = deed.what >= kHighBit ? MsgBoxAnswer::Yes : MsgBoxAnswer::No}};
        case Key:
            return {
                {.kind = ActionKind::Key, .target = target, .number = std::max<int>(deed.what, 1)}};
        case Type: {
            std::vector<Action> actions;
            if (deed.what >= kHighBit) TypeInto(actions, target, "\b");
            TypeInto(actions, target, At(kTyped, deed.what % kHighBit));
            return actions;
        }
        case Write:
            return {{.kind = ActionKind::Write,
                     .target = target,
                     .text = std::string(At(kWritten, deed.what))}};
        default:
            return {{.kind = ActionKind::DoubleClick, .target = target}};
    }
}

// --- Entries of the menu: bit 0 of `what` answers, the next three name a file.

constexpr int kFileChoices = 8;

Action Entry(std::string_view entry, int what) {
    Action action{.kind = ActionKind::Choose, .target = std::string(entry)};
    action.answer = what % 2 == 0 ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
    const int file = what / 2 % kFileChoices;
    if (file < static_cast<int>(kFiles.size())) action.file = std::string(At(kFiles, file));
    if (file == 3) action.file = "falta.doc";
    if (file == 4) action.file = ".";  // the folder itself
    return action;                     // and without a name the dialog is cancelled
}

// --- Work: what brings each screen forward.

Action Picked(std::string_view list, int index, int item) {
    return {.kind = ActionKind::Pick, .target = Indexed(list, index), .text = Say(item)};
}

std::vector<Action> WorkOnForm2(const Deed& deed) {
    return {{.kind = ActionKind::Write,
             .target = "Text1(1)",
             .text = std::string(At(kWritten, deed.what))},
            Entry(At(std::array{"datosiniciales"sv, "contaminantes"sv, "calculos"sv,
                                "resulatadofinal"sv},
                     deed.which),
                  0)};
}

/// The size of the plan, and once that stands the entry of one day and task.
std::vector<Action> WorkOnForm3(const Deed& deed, bool sized) {
    if (!sized) {
        return {Picked("Combo1", 0, deed.which % 2 == 0 ? 1 : 3),
                Picked("Combo1", 1, 1 + deed.what % 3),
                {.kind = ActionKind::Press, .target = "Command1"}};
    }
    const int count = 1 + deed.what % 6;
    const int half_hours = deed.what / 6 % (count + 1);
    const std::array<int, 6> values = {1 + deed.which % 3,      1 + deed.which / 3 % 3,
                                       1 + deed.which / 9 % 14, half_hours,
                                       count - half_hours,      count};
    std::vector<Action> actions;
    for (int i = 2; i <= 7; ++i) {
        actions.push_back(Picked("Combo1", i, values.at(static_cast<std::size_t>(i - 2))));
    }
    actions.push_back({.kind = ActionKind::Press, .target = "Command2"});
    return actions;
}

bool IsVisibleCell(const Screen& screen, const std::string& name) {
    const Control* const control = screen.FindControl(name);
    const auto* const cell = control == nullptr ? nullptr : use::As<TextCell>(*control);
    return cell != nullptr && cell->Visible;
}

/// A task, and once its rows stand all of their fields.
std::vector<Action> WorkOnForm4(const Deed& deed, const Screen& screen) {
    if (!IsVisibleCell(screen, "Text1(1)")) {
        return {Picked("Combo1", Row::kNoIndex, 1 + deed.which % 3)};
    }
    std::vector<Action> actions;
    for (int row = 1; row <= 6 && IsVisibleCell(screen, Indexed("Text1", 5 * row - 4)); ++row) {
        actions.push_back({.kind = ActionKind::Write,
                           .target = Indexed("Text1", 5 * row - 4),
                           .text = std::string(At(kWritten, row - 1))});
        TypeInto(actions, Indexed("Text1", 5 * row - 3), "\b");
        TypeInto(actions, Indexed("Text1", 5 * row - 3),
                 At(kTyped, (deed.what + 5 * row) % kUsual));
        TypeInto(actions, Indexed("Text1", 5 * row - 2), "\b");
        TypeInto(actions, Indexed("Text1", 5 * row - 2),
                 At(kTyped, (deed.what / 6 + row) % kUsual));
        const bool grouped = (deed.which >> (row - 1)) % 2 == 1;
        TypeInto(actions, Indexed("Text1", 5 * row - 1), grouped ? "1"sv : "0"sv);
        for (int n = deed.which / 64 % 2; n >= 0; --n) {
            actions.push_back(
                {.kind = ActionKind::DoubleClick, .target = Indexed("Text3", row - 1)});
        }
        actions.push_back(
            {.kind = ActionKind::Pick, .target = Indexed("Combo13", row - 1), .text = "ppm"});
    }
    actions.push_back({.kind = ActionKind::Press, .target = "Command1"});
    return actions;
}

/// A day, and once it is laid out its measurements and all the buttons.
std::vector<Action> WorkOnForm5(const Deed& deed, const Screen& screen) {
    const Control* const first = screen.FindControl("Command1");
    if (first == nullptr || !use::TakesPress(*first)) return {Entry(At(kBeginDay, deed.which), 0)};

    std::vector<Action> actions;
    const int samples = 1 + (deed.which + 1) % 6;
    int place = deed.what;
    int taken = 0;
    int row = -1;
    for (const Control* const cell : OnOffer(screen, TakesMeasurements)) {
        if (cell->row.index / 18 != row) taken = 0;
        row = cell->row.index / 18;
        if (taken++ < samples) TypeInto(actions, cell->name, At(kTyped, place++ % kUsual));
    }
    for (int i = 1; i <= 8; ++i) {
        actions.push_back({.kind = ActionKind::Press, .target = Say("Command", i)});
    }
    return actions;
}

std::vector<Action> WorkOnForm6(const Deed& deed) {
    constexpr std::array kWays = {"regresar"sv, "contaminantes"sv, "datosiniciales"sv,
                                  "datosdeempresa"sv};
    return {{.kind = ActionKind::Press, .target = "Command1"},
            Entry("guardararchivo", deed.what),
            Entry(At(kWays, deed.which), 0)};
}

std::vector<Action> WorkOn(const Deed& deed, const Screen& screen) {
    switch (screen.Id()) {
        case ScreenId::Form1:
            return {Entry("Nuevaempresa", 0)};
        case ScreenId::Form2:
            return WorkOnForm2(deed);
        case ScreenId::Form3:
            return WorkOnForm3(deed, !use::TakesPress(*screen.FindControl("Command1")));
        case ScreenId::Form4:
            return WorkOnForm4(deed, screen);
        case ScreenId::Form5:
            return WorkOnForm5(deed, screen);
        case ScreenId::Form6:
            return WorkOnForm6(deed);
    }
    return {};
}

// --- Files that come to harm.

/// Mostly a line of the plan, else any line.
int LineOf(int which) {
    if (which < 32) return 20 + which;
    if (which < 140) return 52 + which - 32;
    return 160 + (which - 140) * 11 % (property::kLinesOfAFile - 160);
}

Action Harmed(const Deed& deed) {
    Action action{.kind = ActionKind::OddLine,
                  .target = std::string(At(kFiles, deed.which)),
                  .text = std::string(At(kLines, deed.what)),
                  .number = LineOf(deed.which)};
    if (deed.what < 200) return action;
    action.text.clear();
    action.number = deed.what < 220 ? deed.which * 6 : deed.which * 20;
    action.kind = deed.what < 220   ? ActionKind::CutFile
                  : deed.what < 240 ? ActionKind::BareLines
                                    : ActionKind::Junk;
    return action;
}

}  // namespace

Deed Deed::Next(Bytes& input) {
    // Of 16: what leads on more often than what doesn't.
    static constexpr std::array<Kind, 16> kKindOfByte = {Press,  Pick,   Key,  Type,  Write, Double,
                                                         Choose, Tick,   Work, Harm,  Press, Pick,
                                                         Type,   Choose, Work, Choose};
    Deed deed;
    deed.kind = At(kKindOfByte, input.Byte());
    deed.which = input.Byte();
    deed.what = input.Byte();
    return deed;
}

std::vector<Action> ActionsOf(const Deed& deed, const Screen& screen) {
    switch (deed.kind) {
        case Choose:
            return {Entry(At(EntriesOf(screen), deed.which), deed.what)};
        case Tick:
            return {{.kind = ActionKind::Tick, .number = deed.what * 400}};
        case Work:
            return WorkOn(deed, screen);
        case Harm:
            return {Harmed(deed)};
        default:
            break;
    }
    const std::vector<const Control*> controls = OnOffer(screen, OfferedTo(deed.kind));
    if (controls.empty()) return {};
    return OnControl(deed, *At(controls, deed.which));
}

std::optional<Deed> DeedOf(const std::vector<Action>& actions, const Screen& screen) {
    for (const Deed::Kind kind : {Press, Pick, Key, Type, Write, Double, Choose}) {
        const std::size_t things =
            kind == Choose ? EntriesOf(screen).size() : OnOffer(screen, OfferedTo(kind)).size();
        for (int which = 0; which < static_cast<int>(std::min<std::size_t>(things, 256)); ++which) {
            for (int what = 0; what < 256; ++what) {
                const Deed deed{kind, static_cast<std::uint8_t>(which),
                                static_cast<std::uint8_t>(what)};
                if (ActionsOf(deed, screen) == actions) return deed;
            }
        }
    }
    return std::nullopt;
}

}  // namespace velmora::fuzz
