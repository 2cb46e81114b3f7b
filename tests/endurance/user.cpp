#include "endurance/user.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "core/numbers.h"
#include "qt/text.h"
#include "support/menus.h"

namespace velmora::endurance {

namespace {

/// The entries that move, by the screen that they stand on.
const std::array<std::vector<const char*>, 6> kMoves = {{
    {"Nuevaempresa"},
    {"datosiniciales", "contaminantes", "calculos", "resulatadofinal", "Regresar"},
    {"contaminantes", "pagina5", "datosdeempresa", "resultadofinal"},
    {"pagina5", "datosiniciales", "datosdeempresa", "resultadosfinales"},
    {"datosiniciales", "contaminantes", "resultadosfinales", "datosempresa"},
    {"regresar", "calculos", "contaminantes", "datosiniciales", "datosdeempresa"},
}};

std::string Digits(int n) { return TextoEntero(Entero(n)); }

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void SendKey(QWidget& widget, char letter) {
    const QString text(QLatin1Char{letter});
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, text.front().toUpper().unicode(), Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &event);
    }
}

}  // namespace

MsgBoxAnswer AnsweringHost::MsgBox(std::string_view prompt, MsgBoxStyle style,
                                   std::string_view /*title*/) {
    if (style != MsgBoxStyle::Ok) return MsgBoxAnswer::Yes;
    refusals.emplace_back(prompt);
    return MsgBoxAnswer::Ok;
}

int Random::Below(int n) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<int>((state_ >> 33U) % static_cast<unsigned>(n));
}

User::User(std::string file)
    : file_(std::move(file)), program_(file_), saved_(kKinds), rounds_(kKinds) {
    program_.host.Attach(window_);
    program_.host.end = [this](int status) { Fault("the process ended with " + Digits(status)); };
    window_.show();
}

std::vector<std::string> User::Faults() const {
    std::vector<std::string> all = faults_;
    all.insert(all.end(), program_.host.refusals.begin(), program_.host.refusals.end());
    return all;
}

void User::Fault(const std::string& fault) {
    faults_.push_back(fault + " on " + std::string(program_.chain.Current().Name()));
}

template <class Widget>
Widget& User::Find(std::string_view name) {
    auto* const widget = window_.findChild<Widget*>(ToQt(name));
    if (widget == nullptr) throw std::runtime_error("nothing is called " + std::string(name));
    return *widget;
}

void User::Choose(std::string_view entry) {
    Find<QAction>(entry).trigger();
    QApplication::processEvents();  // a new screen is laid out
    window_.repaint();              // and painted, however fast the next action comes
}

void User::Press(std::string_view name) {
    auto& button = Find<QPushButton>(name);
    if (!button.isVisible() || !button.isEnabled()) Fault(std::string(name) + " isn't open");
    button.click();
}

void User::Pick(std::string_view name, int item) {
    auto& list = Find<QComboBox>(name);
    list.setCurrentIndex(item);
    Q_EMIT list.activated(item);
}

void User::PickText(std::string_view name, std::string_view text) {
    const int item = Find<QComboBox>(name).findText(ToQt(text));
    if (item < 0) Fault(std::string(name) + " has no " + std::string(text));
    Pick(name, item);
}

void User::Type(std::string_view name, std::string_view text) {
    auto& cell = Find<QLineEdit>(name);
    cell.setFocus();
    cell.end(false);
    for (const char letter : text) SendKey(cell, letter);
}

void User::DoubleClick(std::string_view name) {
    auto& cell = Find<QLineEdit>(name);
    const QPointF place = QRectF(cell.rect()).center();
    QMouseEvent event(QEvent::MouseButtonDblClick, place, cell.mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&cell, &event);
}

void User::Move(Random& random) {
    const auto& entries = kMoves.at(static_cast<std::size_t>(Screen()) - 1);
    const ScreenId before = Screen();
    if (Screen() == ScreenId::Form2 && Find<QLineEdit>("Text1(1)").text().isEmpty()) {
        Type("Text1(1)", "Acme");
    }
    Choose(entries.at(static_cast<std::size_t>(random.Below(static_cast<int>(entries.size())))));
    if (Screen() == before) Fault("no move");
}

void User::GoHome() {
    constexpr std::array<const char*, 6> kToCompany = {
        "", "", "datosdeempresa", "datosdeempresa", "datosempresa", "datosdeempresa"};
    if (Screen() == ScreenId::Form1) return;
    if (Screen() != ScreenId::Form2) Choose(kToCompany.at(static_cast<std::size_t>(Screen()) - 1));
    Choose("Regresar");
    if (Screen() != ScreenId::Form1) Fault("not at home");
}

void User::Evaluate(int kind) {
    Random random(static_cast<unsigned>(kind) + 1);
    const int days = kind % 2 == 0 ? 1 : 3;
    const int tasks = 1 + kind % 3;
    std::vector<int> agents;
    for (int task = 0; task < tasks; ++task) agents.push_back(1 + random.Below(6));

    Choose("Nuevaempresa");
    Find<QLineEdit>("Text1(1)").clear();  // a hint stands in it
    Type("Text1(1)", "Acme " + Digits(kind));
    Choose("datosiniciales");
    EnterPlan(days, tasks, agents, random);
    Choose("contaminantes");
    EnterAgents(tasks, agents, random);
    Choose("pagina5");
    for (int day = 1; day <= days; ++day) EnterDay(day, tasks, agents, random);
    for (int day = 1; day <= days; ++day) Choose(EntryOf(kRecoverDay, day));
    Choose("resultadosfinales");
    Press("Command1");
    Choose("guardararchivo");
    CompareSaved(kind);
    Choose("datosdeempresa");
    Choose("recuperardatos");
    if (Find<QLineEdit>("Text1(1)").text() != ToQt("Acme " + Digits(kind))) Fault("not restored");
    Choose("Regresar");
}

void User::EnterPlan(int days, int tasks, const std::vector<int>& agents, Random& random) {
    PickText("Combo1(0)", Digits(days));
    PickText("Combo1(1)", Digits(tasks));
    Press("Command1");
    for (int day = 1; day <= days; ++day) {
        for (int task = 1; task <= tasks; ++task) {
            const int rows = agents.at(static_cast<std::size_t>(task - 1));
            const int half_hour = random.Below(rows + 1);
            int list = 2;
            for (const int number :
                 {day, task, 1 + random.Below(14), half_hour, rows - half_hour, rows}) {
                PickText(Indexed("Combo1", list++), Digits(number));
            }
            Press("Command2");
        }
    }
}

void User::EnterAgents(int tasks, const std::vector<int>& agents, Random& random) {
    for (int task = 1; task <= tasks; ++task) {
        PickText("Combo1", Digits(task));
        for (int row = 0; row < agents.at(static_cast<std::size_t>(task - 1)); ++row) {
            Type(Indexed("Text1", 5 * row + 1), "agente " + Digits(row));
            Type(Indexed("Text1", 5 * row + 2), Digits(100 + random.Below(900)));
            Type(Indexed("Text1", 5 * row + 3), Digits(1000 + random.Below(900)));
            Type(Indexed("Text1", 5 * row + 4), Digits(row < 2 ? 1 : 0));
            DoubleClick(Indexed("Text3", row));
            Pick(Indexed("Combo13", row), random.Below(2));
        }
        Press("Command1");
    }
}

void User::EnterDay(int day, int tasks, const std::vector<int>& agents, Random& random) {
    Choose(EntryOf(kBeginDay, day));
    for (int task = 0; task < tasks; ++task) {
        for (int row = 0; row < agents.at(static_cast<std::size_t>(task)); ++row) {
            const int first = 18 * (6 * task + row) + 7;
            const int samples = 3 + random.Below(4);
            for (int i = 0; i < samples; ++i) {
                Type(Indexed("Text1", first + i),
                     Digits(20 + random.Below(200)) + "." + Digits(random.Below(10)));
            }
        }
    }
    for (int task = 1; task <= tasks; ++task) Press("Command" + Digits(task));
    Press("Command4");
    for (int task = 1; task <= tasks; ++task) Press("Command" + Digits(4 + task));
    Press("Command8");
    if (Find<QLineEdit>("Text5").text().isEmpty()) Fault("no verdict");
}

/// An evaluation starts on what the one before it left in the record, so that the files of a kind
/// are the same from the second round on.
void User::CompareSaved(int kind) {
    const auto place = static_cast<std::size_t>(kind);
    std::string bytes = BytesOf(file_);
    if (std::ranges::count(bytes, '\n') != 1524) Fault("not saved");
    if (++rounds_.at(place) < 2) return;
    if (saved_.at(place) && *saved_.at(place) != bytes) Fault("another file than last time");
    saved_.at(place) = std::move(bytes);
}

}  // namespace velmora::endurance
