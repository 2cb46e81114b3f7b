#include "qt/window_test.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QMenu>
#include <QMenuBar>

#include <stdexcept>
#include <type_traits>
#include <variant>

#include "qt/text.h"
#include "sheet/form5.h"

namespace velmora::test {

std::string NameOf(ScreenId id) {
    return "Form" + std::string(1, static_cast<char>('0' + static_cast<int>(id)));
}

WindowTest::WindowTest() { Show(); }

void WindowTest::Open(ScreenId id) {
    robot.Act("opening a screen", [&] { window.Run([&] { chain.Go(id); }); });
}

void SetPlan(EvaluacionRecord& record, int days, int tasks, int rows) {
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

Form5& WindowTest::OpenSheet(int days, int tasks, int rows) {
    SetPlan(days, tasks, rows);
    auto& form5 = Open<Form5>(ScreenId::Form5);
    robot.Choose("introducirdatos", "introprimero");
    return form5;
}

void WindowTest::OpenRows(int rows) {
    SetPlan(1, 1, rows);
    Open(ScreenId::Form4);
    robot.Pick("Combo1", "1");
}

void WindowTest::Focus(std::string_view control) {
    QWidget& widget = robot.Find(control);
    widget.setFocus(Qt::TabFocusReason);
    if (window.focusWidget() != &widget) throw std::runtime_error("it takes no focus");
}

std::vector<std::string> WindowTest::Texts(std::string_view name, int first, int last) const {
    std::vector<std::string> texts;
    for (int i = first; i <= last; ++i) texts.push_back(robot.Text(Indexed(name, i)));
    return texts;
}

QAction& WindowTest::Action(std::string_view name) {
    auto* const action = window.menuBar()->findChild<QAction*>(ToQt(name));
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
    window.Run([this] {
        for (const Control& control : chain.Current().Controls()) {
            std::visit(Shower{}, control.state);
        }
    });
}

std::vector<std::string> FilesInHome() {
    std::vector<std::string> files;
    QDirIterator walk(qEnvironmentVariable("HOME"), QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) files.push_back(walk.next().toStdString());
    return files;
}

}  // namespace velmora::test
