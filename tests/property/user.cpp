#include "property/user.h"

#include <array>
#include <utility>

#include "property/judging.h"
#include "property/say.h"
#include "support/menus.h"

namespace velmora::property {

namespace {

using enum ScreenId;
using Kind = Action::Kind;
using namespace std::string_view_literals;

constexpr std::array kFiles = {"una.doc"sv, "dos.doc"sv, "tres.doc"sv};

/// What a line of a file may become: numbers out of any range, texts where numbers are due, quotes.
// clang-format off
constexpr std::array kOddLines = {
    ""sv,     "abc"sv, "-1"sv,    "0"sv,     "2"sv,    "4"sv,   "7"sv, "300"sv, "99999"sv,
    "-99999"sv, "2.5"sv, "1e300"sv, "1e400"sv, "-0.5"sv, "1,5"sv, "  3  "sv,
    R"("-5")"sv, R"("1E999")"sv, R"("1E200")"sv, R"("x)"sv, R"("a"b")"sv, R"("7" resto)"sv,
    R"("3.5")"sv, R"("0")"sv, R"("")"sv,
};
// clang-format on

template <class T>
std::vector<std::string> NamesOf(const Screenshot& screen, bool (*wanted)(const T&)) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < screen.Size(); ++i) {
        const auto* const state = std::get_if<T>(&screen.At(i));
        if (state != nullptr && wanted(*state)) names.push_back(screen.NameAt(i));
    }
    return names;
}

std::span<const std::string_view> ItemsOf(const Screenshot& screen, std::string_view name) {
    for (std::size_t i = 0; i < screen.Size(); ++i) {
        if (screen.NameAt(i) == name) return screen.RowAt(i).items;
    }
    return {};
}

void EntriesOf(const std::vector<MenuEntry>& menu, std::vector<std::string>& entries) {
    for (const MenuEntry& entry : menu) {
        if (entry.Click) entries.emplace_back(entry.name);
        EntriesOf(entry.list, entries);
    }
}

std::string Cell(std::string_view array, int index) { return Indexed(array, index); }

/// Whether the first task has samples and a limit to measure them by.
bool IsReadyToMeasure(const EvaluacionRecord& record) {
    const bool sampled = SampledRows(record, 1, 1) > 0;
    return sampled && (record.VlaEd(1, 1) != 0 || record.VlaEc(1, 1) != 0);
}

}  // namespace

void User::Press(std::string button) {
    plan_.push_back({.kind = Kind::Press, .target = std::move(button)});
    if (dice_.Chance(15)) plan_.push_back(plan_.back());
}

void User::Pick(std::string list, std::string item) {
    plan_.push_back({.kind = Kind::Pick, .target = std::move(list), .text = std::move(item)});
    plan_.back().answer = dice_.Chance(30) ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
}

void User::Write(std::string cell, std::string text) {
    plan_.push_back({.kind = Kind::Write, .target = std::move(cell), .text = std::move(text)});
}

void User::Choose(std::string entry, int yes_percent) {
    plan_.push_back({.kind = Kind::Choose, .target = std::move(entry)});
    plan_.back().answer = dice_.Chance(yes_percent) ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
}

void User::ChooseWithFile(std::string entry, bool may_be_missing) {
    Choose(std::move(entry));
    if (dice_.Chance(10)) return;  // cancelled
    plan_.back().file = std::string(dice_.OneOf(kFiles));
    if (may_be_missing && dice_.Chance(5)) plan_.back().file = "falta.doc";
    if (dice_.Chance(2)) plan_.back().file = ".";  // the folder itself
}

void User::Type(const std::string& cell, std::string_view keys) {
    for (const char key : keys) {
        plan_.push_back({.kind = Kind::Key, .target = cell, .number = key});
    }
}

/// The key filters remember the cell that was typed in last, whatever has been laid out since.
void User::TypeWhereLastTyped() {
    if (!last_cell_.empty() && dice_.Chance(20)) Type(last_cell_, ".5");
}

std::string User::AnyName() {
    constexpr std::array kNames = {
        "Tolueno"sv,         "Xileno"sv,   "Etilbenceno"sv,     " "sv,
        "Óxido de hierro"sv, "n-Hexano"sv, R"("Disolvente")"sv, "Ω-álcali"sv,
        "Acetona, 99 %"sv,   "---"sv,
    };
    return std::string(dice_.OneOf(kNames));
}

std::string User::AnyConcentration() {
    constexpr std::array kUsual = {"1"sv, "2"sv, "3"sv,  "5"sv,  "8"sv,   "1"sv,   "2"sv,
                                   "3"sv, "5"sv, "12"sv, "30"sv, "120"sv, "0.5"sv, "0.04"sv};
    constexpr std::array kRare = {"0"sv,
                                  "0.001"sv,
                                  "100000"sv,
                                  "1000000000"sv,
                                  "7."sv,
                                  "0.004"sv,
                                  "12345678901234567890"sv,
                                  "12\b.3"sv,
                                  "1.2.3"sv,
                                  ".5"sv};
    return std::string(dice_.Chance(3) ? dice_.OneOf(kRare) : dice_.OneOf(kUsual));
}

std::string User::AnyLimit() {
    constexpr std::array kUsual = {"10"sv, "50"sv, "192"sv, "0.5"sv, "5"sv, "221"sv, "1"sv, "20"sv};
    constexpr std::array kRare = {"0.05"sv,
                                  "123456789012345678"sv,
                                  "0.12345678901234567"sv,
                                  "3.1"sv,
                                  "1.5.2"sv,
                                  ".5"sv,
                                  "12.5"sv,
                                  "78"sv};
    if (dice_.Chance(12)) return "0";
    return std::string(dice_.Chance(5) ? dice_.OneOf(kRare) : dice_.OneOf(kUsual));
}

Action User::Next(const World& world) {
    if (dice_.Chance(plan_.empty() ? 35 : 2)) return AnythingOnOffer(world);
    if (plan_.empty()) Plan(world);
    Action action = std::move(plan_.front());
    plan_.pop_front();
    if (action.kind == Kind::Key) last_cell_ = action.target;
    return action;
}

void User::Plan(const World& world) {
    if (world.Shown().Id() != Form1 && dice_.Chance(4)) Choose("imprimir");
    if (dice_.Chance(4)) Choose("salir", 6);
    switch (world.Shown().Id()) {
        case Form1:
            Choose("Nuevaempresa");
            break;
        case Form2:
            PlanForm2(world);
            break;
        case Form3:
            PlanForm3(world);
            break;
        case Form4:
            PlanForm4(world);
            break;
        case Form5:
            PlanForm5(world);
            break;
        case Form6:
            PlanForm6(world);
            break;
    }
}

void User::PlanForm2(const World& world) {
    if (!world.Files().empty() && dice_.Chance(world.Record().NumTareas == 0 ? 60
                                               : meddles_                    ? 25
                                                                             : 10)) {
        ChooseWithFile("recuperardatos", true);
    }
    for (int n = dice_.Below(4); n > 0; --n) {
        const int box = dice_.Between(1, 19);
        if (dice_.Chance(70))
            Write(Cell("Text1", box), box == 1 || dice_.Chance(80) ? AnyName() : "");
        else
            Type(Cell("Text1", box), "ab\b1");
    }
    if (dice_.Chance(8)) {  // no name: none of the four entries leads on
        Write("Text1(1)", "");
        for (const char* entry :
             {"resulatadofinal", "calculos", "contaminantes", "datosiniciales"}) {
            Choose(entry);
        }
        Write("Text1(1)", AnyName());
    }
    if (dice_.Chance(10)) Choose("Regresar", 70);
    constexpr std::array kEntries = {"datosiniciales"sv, "datosiniciales"sv, "contaminantes"sv,
                                     "calculos"sv,       "calculos"sv,       "resulatadofinal"sv};
    const bool has_plan = world.Record().NumTareas != 0;
    Choose(has_plan || dice_.Chance(20) ? std::string(dice_.OneOf(kEntries)) : "datosiniciales");
}

int User::AnyCount() {
    if (has_many_agents_ && dice_.Chance(70)) return dice_.Between(4, 6);
    return dice_.Chance(75) ? dice_.Between(1, 3) : dice_.Between(1, 6);
}

void User::PlanEntry(int day, int task, int count) {
    const int half_hours = dice_.Between(0, count);
    const std::array<int, 6> values = {
        day, task, dice_.Between(1, 14), half_hours, count - half_hours, count};
    for (int i = 2; i <= 7; ++i) {
        const int value = values.at(static_cast<std::size_t>(i - 2));
        if (!dice_.Chance(2)) Pick(Cell("Combo1", i), Say(value));
    }
    if (dice_.Chance(4)) {  // more samples than there can be
        Pick("Combo1(5)", Say(dice_.Between(3, 6)));
        Pick("Combo1(6)", Say(dice_.Between(2, 6)));
    }
    Press("Command2");
}

void User::PlanForm3(const World& world) {
    const EvaluacionRecord& record = world.Record();
    int days = record.NumJornadas.Value();
    int tasks = record.NumTareas.Value();
    if (world.Shown().ButtonOf("Command1").Enabled) {
        days = dice_.Chance(60) ? 3 : 1;
        tasks = dice_.Chance(50) ? 3 : dice_.Between(1, 2);
        Pick("Combo1(0)", Say(days));
        Pick("Combo1(1)", Say(tasks));
        Press("Command1");
    }
    // A task has as many contaminants on each day, most of the time.
    std::array<int, 4> counts{};
    for (int task = 1; task <= 3; ++task) {
        const int stored = record.NumContaminantes(task).Value();
        const bool keeps = stored >= 1 && stored <= 6 && dice_.Chance(80);
        counts.at(static_cast<std::size_t>(task)) = keeps ? stored : AnyCount();
    }
    const int entered = dice_.Chance(70) ? 97 : 40;
    for (int day = 1; day <= days && day <= 3; ++day) {
        for (int task = 1; task <= tasks && task <= 3; ++task) {
            const int usual = counts.at(static_cast<std::size_t>(task));
            const int count = dice_.Chance(90) ? usual : AnyCount();
            if (dice_.Chance(entered)) PlanEntry(day, task, count);
        }
    }
    if (dice_.Chance(20)) PlanEntry(dice_.Between(1, 3), dice_.Between(1, 3), AnyCount());
    constexpr std::array kEntries = {"contaminantes"sv, "contaminantes"sv,  "contaminantes"sv,
                                     "pagina5"sv,       "datosdeempresa"sv, "resultadofinal"sv};
    Choose(std::string(dice_.OneOf(kEntries)), 80);
}

/// A row of `Form4`, from 1; now and then something is left out.
void User::PlanContaminant(int row, std::string_view group) {
    if (!dice_.Chance(2)) Write(Cell("Text1", 5 * row - 4), AnyName());
    Type(Cell("Text1", 5 * row - 3), "\b" + AnyLimit());
    Type(Cell("Text1", 5 * row - 2), "\b" + AnyLimit());
    if (!dice_.Chance(2)) Type(Cell("Text1", 5 * row - 1), group);
    for (int n = dice_.Chance(3) ? 0 : dice_.Between(1, 2); n > 0; --n) {
        plan_.push_back({.kind = Kind::DoubleClick, .target = Cell("Text3", row - 1)});
    }
    if (!dice_.Chance(2)) Pick(Cell("Combo13", row - 1), dice_.Chance(70) ? "mg/m3" : "ppm");
}

void User::PlanContaminants(int task, int count) {
    Pick("Combo1", Say(task));
    TypeWhereLastTyped();
    const bool stored_before = dice_.Chance(15);
    if (stored_before) Press("Command3");
    // One group of the task is larger than others. Its number tells whether its sum is spread.
    constexpr std::array kGroups = {"1"sv, "2"sv, "3"sv, "4"sv, "6"sv, "7"sv, "8"sv, "9"sv};
    const std::string_view group = dice_.Chance(60) ? "1"sv : dice_.OneOf(kGroups);
    const int grouped = dice_.Chance(50) ? 60 : 10;
    for (int row = 1; row <= count; ++row) {
        if (stored_before && dice_.Chance(70)) continue;
        PlanContaminant(row, dice_.Chance(grouped) ? group
                             : dice_.Chance(90)    ? "0"sv
                                                   : dice_.OneOf(kGroups));
    }
    if (count > 0 && dice_.Chance(25)) {  // a limit again, with its cell the last one typed in
        Type(Cell("Text1", 5 * dice_.Between(1, count) - dice_.Between(2, 3)), "\b" + AnyLimit());
    }
    Press("Command1");
}

void User::PlanForm4(const World& world) {
    const EvaluacionRecord& record = world.Record();
    if (dice_.Chance(5)) Press("Command1");
    if (dice_.Chance(5)) Press("Command3");
    for (int task = 1; task <= 3; ++task) {
        const bool in_plan = task <= record.NumTareas.Value();
        const int count = std::clamp(record.NumContaminantes(task).Value(), 0, 6);
        if (dice_.Chance(in_plan ? 90 : 8)) PlanContaminants(task, count);
        if (!in_plan && dice_.Chance(30)) Press("Command3");
    }
    constexpr std::array kEntries = {"pagina5"sv,        "pagina5"sv,        "pagina5"sv,
                                     "datosiniciales"sv, "datosdeempresa"sv, "resultadosfinales"sv};
    Choose(std::string(dice_.OneOf(kEntries)));
}

void User::PlanMeasurements(const World& world) {
    const Screenshot& sheet = world.Shown();
    const auto Text1 = sheet.Cells("Text1");
    TypeWhereLastTyped();
    for (int row = 0; row < 18; ++row) {
        const bool open = Text1(row * 18 + Col::kC1).Visible && !Text1(row * 18 + Col::kC1).Locked;
        if (!open || dice_.Chance(2)) continue;
        const bool filled = !Text1(row * 18 + Col::kC1 + 1).Text.empty();
        if (filled && dice_.Chance(80)) continue;
        const int samples = dice_.Chance(80)   ? dice_.Between(2, 4)
                            : dice_.Chance(92) ? dice_.Between(2, 6)
                                               : 1;
        const int gap = dice_.Chance(2) ? dice_.Below(samples) : 6;
        const bool alike = dice_.Chance(10);  // equal samples
        std::string sample = AnyConcentration();
        for (int i = 0; i < 6; ++i) {
            const int cell = row * 18 + Col::kC1 + i;
            if (!Text1(cell).Text.empty()) Type(Cell("Text1", cell), "\b");
            if (i >= samples || i == gap) continue;
            if (!alike) sample = AnyConcentration();
            Type(Cell("Text1", cell), sample);
        }
    }
}

void User::PlanCalculation() {
    if (dice_.Chance(15)) Type(Cell("Text1", 18 * dice_.Below(3)), "\b");  // a row's number goes
    const int wiped_before = dice_.Chance(12) ? dice_.Between(2, 3) : 0;
    for (int i = 1; i <= 8; ++i) {
        // Without a sample in the first task no other is validated.
        for (int cell = 0; i == wiped_before && cell < 108; ++cell) {
            const int column = cell % 18;
            if (column >= Col::kC1 && column <= Col::kC6) Type(Cell("Text1", cell), "\b");
        }
        if (i <= 3 && dice_.Chance(5 * i)) {  // a sample is missed in the task to be validated
            Type(Cell("Text1", At(i, 1, Col::kC1 + dice_.Below(2))), "\b");
        }
        if (!dice_.Chance(2)) Press(Say("Command", i));
        if (dice_.Chance(5)) Press(Say("Command", dice_.Between(1, 8)));
    }
}

/// Begins a day, or recovers one; mostly one of the plan that has not been validated.
void User::PlanDay(const World& world) {
    const EvaluacionRecord& record = world.Record();
    const int in_plan = record.NumJornadas.Value();
    const int days = in_plan >= 1 && in_plan <= 3 && dice_.Chance(93) ? in_plan : 3;
    int day = 1 + dice_.Below(days);
    for (int other = 1; other <= days; ++other) {
        const bool validated = !record.Hoja(other)(397).empty();
        if (!validated && dice_.Chance(50)) day = other;
    }
    Choose(std::string(EntryOf(dice_.Chance(25) ? kRecoverDay : kBeginDay, day)));
}

void User::PlanForm5(const World& world) {
    const Screenshot& sheet = world.Shown();
    const bool ready = IsReadyToMeasure(world.Record()) || dice_.Chance(20);
    const bool done = sheet.ButtonOf("Command8").Visible;
    if (ready && sheet.ButtonOf("Command1").Visible && dice_.Chance(done ? 40 : 90)) {
        PlanMeasurements(world);
        PlanCalculation();
        return;
    }
    if (dice_.Chance(ready ? 70 : 15)) {
        PlanDay(world);
        return;
    }
    constexpr std::array kEntries = {"resultadosfinales"sv, "resultadosfinales"sv,
                                     "datosiniciales"sv, "contaminantes"sv, "datosempresa"sv};
    Choose(ready              ? std::string(dice_.OneOf(kEntries))
           : dice_.Chance(70) ? "contaminantes"
                              : "datosiniciales");
}

/// Harms a file and has the program read it.
void User::PlanMeddling(const World& world) {
    plan_.push_back(Meddling(world));
    const std::string harmed = plan_.back().target;
    Choose("datosdeempresa");
    Choose("recuperardatos");
    plan_.back().file = harmed;
    constexpr std::array kEntries = {"datosiniciales"sv, "contaminantes"sv, "calculos"sv,
                                     "resulatadofinal"sv};
    Choose(std::string(dice_.OneOf(kEntries)));
}

void User::PlanForm6(const World& world) {
    if (dice_.Chance(85)) Press("Command1");
    if (dice_.Chance(60)) ChooseWithFile("guardararchivo", false);
    if (dice_.Chance(15)) ChooseWithFile("guardararchivo", false);
    if (meddles_ && !world.Files().empty() && dice_.Chance(40)) {
        PlanMeddling(world);
        return;
    }
    constexpr std::array kEntries = {"regresar"sv, "calculos"sv, "contaminantes"sv,
                                     "datosiniciales"sv, "datosdeempresa"sv};
    Choose(std::string(dice_.OneOf(kEntries)));
}

Action User::AnyEntry(const World& world) {
    std::vector<std::string> entries;
    EntriesOf(world.Program().Current().Menu(), entries);
    Action action{.kind = Kind::Choose, .target = dice_.OneOf(entries)};
    const bool ends = action.target == "salir";
    action.answer = dice_.Chance(ends ? 15 : 50) ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
    if (dice_.Chance(80)) action.file = std::string(dice_.OneOf(kFiles));
    return action;
}

Action User::AnyKey(const std::string& target) {
    constexpr std::array kSpecial = {',', '-', '+', 'e', 'E', 'A', ' ', '\t', '\r', '\x1b', '\x16'};
    const int what = dice_.Below(100);
    const int key = what < 40   ? dice_.Between('0', '9')
                    : what < 55 ? '.'
                    : what < 65 ? '\b'
                    : what < 80 ? dice_.OneOf(kSpecial)
                                : dice_.Between(1, 255);
    return {.kind = Kind::Key, .target = target, .number = key};
}

Action User::Meddling(const World& world) {
    const auto& [name, file] =
        *std::next(world.Files().begin(), dice_.Below(static_cast<int>(world.Files().size())));
    Action action{.target = name, .number = dice_.Between(1, kLinesOfAFile)};
    const int what = dice_.Below(100);
    if (what < 25) {
        action.kind = Kind::CutFile;
        action.number = dice_.Chance(30) ? dice_.Below(160) : dice_.Below(kLinesOfAFile);
    } else if (what < 80) {
        action.kind = Kind::OddLine;
        action.text = std::string(dice_.OneOf(kOddLines));
        const int where = dice_.Below(100);
        if (where < 55) {  // days, tasks, samples or contaminants beyond what there is room for
            constexpr std::array kCounts = {"4"sv, "7"sv, "7"sv, "300"sv, "-1"sv, "0"sv};
            action.number = where < 10   ? dice_.Between(20, 21)
                            : where < 30 ? dice_.Between(49, 51)
                                         : dice_.Between(22, 48);
            action.text = std::string(dice_.OneOf(kCounts));
        } else if (where < 75) {
            action.number = dice_.Between(20, 159);
        } else if (where < 85) {
            action.number = dice_.Between(1363, kLinesOfAFile);
        }
    } else if (what < 90) {
        action.kind = Kind::BareLines;
    } else {
        action.kind = Kind::Junk;
        action.number = dice_.Below(5000);
    }
    return action;
}

Action User::AnythingOnOffer(const World& world) {
    const Screenshot& screen = world.Shown();
    const int what = dice_.Below(100);
    if (what < 6) return AnyEntry(world);
    if (what < 12) return {.kind = Kind::Tick, .number = dice_.Below(100000)};
    if (what < 18 && meddles_ && !world.Files().empty()) return Meddling(world);
    if (what < 40) {
        const auto buttons = NamesOf<Button>(
            screen, [](const Button& button) { return button.Visible && button.Enabled; });
        if (!buttons.empty()) return {.kind = Kind::Press, .target = dice_.OneOf(buttons)};
    }
    if (what < 60) {
        const auto lists = NamesOf<ComboBox>(
            screen, [](const ComboBox& list) { return list.Visible && !list.Locked; });
        if (!lists.empty()) {
            const std::string& list = dice_.OneOf(lists);
            Action pick{.kind = Kind::Pick,
                        .target = list,
                        .text = std::string(dice_.OneOf(ItemsOf(screen, list)))};
            pick.answer = dice_.Chance(30) ? MsgBoxAnswer::Yes : MsgBoxAnswer::No;
            return pick;
        }
    }
    auto cells = NamesOf<TextCell>(screen, [](const TextCell& cell) { return cell.Visible; });
    if (what < 70) {
        const auto lists = NamesOf<ComboBox>(screen, [](const ComboBox& l) { return l.Visible; });
        cells.insert(cells.end(), lists.begin(), lists.end());
    }
    if (cells.empty()) return AnyEntry(world);
    const std::string& cell = dice_.OneOf(cells);
    if (what < 75) return {.kind = Kind::Write, .target = cell, .text = AnyName()};
    if (what < 80) return {.kind = Kind::DoubleClick, .target = cell};
    return AnyKey(cell);
}

}  // namespace velmora::property
