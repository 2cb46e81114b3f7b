#include "qt/window_test.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <stdexcept>
#include <type_traits>
#include <utility>

#include "qt/text.h"

namespace velmora::test {

std::string NameOf(ScreenId id) {
    return "Form" + std::string(1, static_cast<char>('0' + static_cast<int>(id)));
}

WindowTest::WindowTest()
    : window(MakeWindow()), driver(std::make_unique<Robot>(*window)), robot(*driver) {}

std::unique_ptr<Window> WindowTest::MakeWindow() {
    host.end = [this](int status) { ends_.push_back(status); };
    chain.Go(ScreenId::Form1);
    auto made = std::make_unique<Window>(chain, host);
    host.Attach(*made);
    host.owner = [this] { return OwnerOf(chain.Current(), record); };
    made->show();
    made->activateWindow();
    if (!QTest::qWaitForWindowActive(made.get())) throw std::runtime_error("no active window");
    return made;
}

void WindowTest::Open(ScreenId id) {
    robot.Act("opening a screen", [&] { window->Run([&] { chain.Go(id); }); });
}

void WindowTest::SetPlan(int days, int tasks, int rows) {
    record.NumJornadas = days;
    record.NumTareas = tasks;
    for (int t = 1; t <= tasks; ++t) {
        record.NumContaminantes(t) = rows;
        for (int d = 1; d <= days; ++d) {
            record.TiempoExposicion(d, t) = 8;
            record.Muestras15(d, t) = rows;
        }
        for (int c = 1; c <= rows; ++c) {
            record.NombreContaminante(t, c) = "agente";
            record.VlaEd(t, c) = 100;
            record.VlaEc(t, c) = 200;
            record.TiempoMuestreo(t, c) = 15;
            record.Unidades(t, c) = "ppm";
        }
    }
}

void WindowTest::Focus(std::string_view control) {
    QWidget& widget = robot.Find(control);
    widget.setFocus(Qt::TabFocusReason);
    if (window->focusWidget() != &widget) throw std::runtime_error("it takes no focus");
}

std::vector<std::string> WindowTest::Texts(std::string_view name, int first, int last) const {
    std::vector<std::string> texts;
    for (int i = first; i <= last; ++i) texts.push_back(robot.Text(Indexed(name, i)));
    return texts;
}

QAction& WindowTest::Action(std::string_view name) {
    auto* const action = window->menuBar()->findChild<QAction*>(ToQt(name));
    if (action == nullptr) throw std::runtime_error("no entry " + std::string(name));
    return *action;
}

void EachScreenTest::ShowAll() {
    struct Shower {
        void operator()(TextCell* cell) const { cell->Visible = true, cell->Locked = false; }
        void operator()(ComboBox* list) const { list->Visible = true, list->Locked = false; }
        void operator()(Label* label) const { label->Visible = true; }
        void operator()(Button* button) const { button->Visible = button->Enabled = true; }
        void operator()(Picture) const {}
    };
    window->Run([this] {
        for (const Control& control : chain.Current().Controls()) {
            std::visit(Shower{}, control.state);
        }
    });
}

Robot::Box BoxOf(std::string text, MsgBoxStyle style, QMessageBox::StandardButton answer,
                 std::string title) {
    struct Style {
        MsgBoxStyle style;
        QMessageBox::StandardButtons buttons;
        QMessageBox::Icon icon;
        QMessageBox::StandardButton preset;
    };
    constexpr auto kYesNo = QMessageBox::Yes | QMessageBox::No;
    // clang-format off
    static const std::array<Style, 5> kStyles = {{
        {MsgBoxStyle::Ok,           QMessageBox::Ok, QMessageBox::NoIcon,      QMessageBox::Ok},
        {MsgBoxStyle::YesNo,              kYesNo,          QMessageBox::NoIcon,      QMessageBox::Yes},
        {MsgBoxStyle::YesNoInformation,   kYesNo,          QMessageBox::Information, QMessageBox::Yes},
        {MsgBoxStyle::YesNoQuestionNo,    kYesNo,          QMessageBox::Question,    QMessageBox::No},
        {MsgBoxStyle::YesNoInformationNo, kYesNo,          QMessageBox::Information, QMessageBox::No},
    }};
    // clang-format on
    const auto found = std::ranges::find(kStyles, style, &Style::style);
    return {.text = std::move(text),
            .answer = answer,
            .icon = found->icon,
            .buttons = found->buttons,
            .preset = found->preset,
            .title = std::move(title)};
}

std::vector<std::string> FilesInHome() {
    std::vector<std::string> files;
    QDirIterator walk(qEnvironmentVariable("HOME"), QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) files.push_back(walk.next().toStdString());
    return files;
}

}  // namespace velmora::test
