// The window touches the widgets of the controls that changed, and no others.

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <set>

#include "qt/text.h"
#include "qt/window_test.h"
#include "sheet/form5.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

const QString kMark = QStringLiteral("marca");

/// Notes the widgets whose visibility, lock, colours or enabling is told anew.
class EventWatch : public QObject {
public:
    bool eventFilter(QObject* widget, QEvent* event) override {
        switch (event->type()) {
            case QEvent::ShowToParent:
            case QEvent::HideToParent:
            case QEvent::ReadOnlyChange:
            case QEvent::PaletteChange:
            case QEvent::EnabledChange:
                touched.insert(widget->objectName().toStdString());
                break;
            default:
                break;
        }
        return false;
    }

    std::set<std::string> touched;
};

class ChangeTest : public WindowTest {
protected:
    /// Watches every widget from now on. Texts without a signal of their own are changed behind the
    /// window's back: one that the window sets loses the mark.
    void MarkAll() {
        for (const Control& control : chain.Current().Controls()) {
            QWidget& widget = robot.Find(control.name);
            if (auto* const label = qobject_cast<QLabel*>(&widget)) label->setText(kMark);
            if (auto* const button = qobject_cast<QPushButton*>(&widget)) button->setText(kMark);
            if (auto* const list = qobject_cast<QComboBox*>(&widget)) list->setEditText(kMark);
            if (auto* const cell = qobject_cast<QLineEdit*>(&widget)) {
                QObject::connect(cell, &QLineEdit::textChanged, &watch_,
                                 [this, name = control.name] { watch_.touched.insert(name); });
            }
            widget.installEventFilter(&watch_);
        }
        watch_.touched.clear();
    }

    std::set<std::string> Touched() {
        std::set<std::string> names = watch_.touched;
        for (const Control& control : chain.Current().Controls()) {
            const bool marked = qobject_cast<QLineEdit*>(&robot.Find(control.name)) == nullptr &&
                                !std::holds_alternative<Picture>(control.state);
            if (marked && robot.Text(control.name) != kMark.toStdString())
                names.insert(control.name);
        }
        return names;
    }

    /// The controls whose data differs from `before`, the clock aside.
    std::set<std::string> Differing(const std::vector<Held>& before) {
        std::set<std::string> names;
        const std::vector<Held> after = StateOf(chain.Current());
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (after[i] != before[i]) names.insert(chain.Current().Controls()[i].name);
        }
        names.erase(ClockName());
        return names;
    }

    std::set<std::string> TouchedButTheClock() {
        std::set<std::string> names = Touched();
        names.erase(ClockName());
        return names;
    }

    std::string ClockName() {
        for (const Control& control : chain.Current().Controls()) {
            const auto* const label = std::get_if<Label*>(&control.state);
            if (label != nullptr && *label == &chain.Current().Clock()) return control.name;
        }
        return {};
    }

    bool ClockLostItsMark() { return robot.Text(ClockName()) != kMark.toStdString(); }

private:
    EventWatch watch_;
};

class SheetChangeTest : public ChangeTest {
protected:
    SheetChangeTest() {
        OpenSheet(1, 1, 2);
        for (const char* const cell : {"Text1(7)", "Text1(8)", "Text1(25)", "Text1(26)"}) {
            robot.Type(cell, "5");
        }
    }
};

TEST_F(SheetChangeTest, AButtonTouchesWhatItChangedAndNothingMore) {
    for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) {
        const std::vector<Held> before = StateOf(chain.Current());
        MarkAll();
        robot.Press(button);
        EXPECT_EQ(TouchedButTheClock(), Differing(before)) << button;
    }
}

TEST_F(SheetChangeTest, TheFirstButtonTouchesTheMeansTheIndicesAndTheNextButton) {
    MarkAll();
    robot.Press("Command1");
    EXPECT_THAT(TouchedButTheClock(),
                ElementsAre("Command4", "Text1(13)", "Text1(14)", "Text1(31)", "Text1(32)"));
}

TEST_F(SheetChangeTest, ATypedDigitTouchesNoWidgetButItsOwn) {
    robot.Click("Text1(9)");
    MarkAll();
    robot.Key(Qt::Key_5);
    EXPECT_THAT(TouchedButTheClock(), ElementsAre("Text1(9)"));
    EXPECT_EQ(robot.Text("Text1(9)"), "5");
    MarkAll();
    robot.Key(Qt::Key_Backspace);
    EXPECT_THAT(TouchedButTheClock(), ElementsAre("Text1(9)")) << "wiped by its filter";
}

TEST_F(SheetChangeTest, TheClockTouchesItsLabelAlone) {
    MarkAll();
    ASSERT_TRUE(QTest::qWaitFor([this] { return ClockLostItsMark(); }));
    EXPECT_THAT(Touched(), ElementsAre("Label5"));
}

TEST_F(SheetChangeTest, AMarkedSampleShowsLightOnRedUntilItsTaskIsValidated) {
    robot.Retype("Text1(7)", "999");  // far above its EC of 200
    for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) {
        robot.Press(button);
    }
    const auto colors = [this] {
        const QPalette palette = robot.Find("Text1(7)").palette();
        return std::pair{palette.color(QPalette::Base), palette.color(QPalette::Text)};
    };
    EXPECT_EQ(robot.Text("Text7"), "SI");
    EXPECT_EQ(colors(), std::pair(QColor(255, 0, 0), QColor(255, 255, 255)));
    EXPECT_EQ(robot.Find("Text1(8)").palette().color(QPalette::Base), QColor(255, 255, 255));
    robot.Press("Command1");
    EXPECT_EQ(colors(), std::pair(QColor(255, 255, 255), QColor(0x14, 0x1e, 0x2d)));
}

TEST_F(SheetChangeTest, A30MinuteSampleOverItsLimitIsMarkedInItsOwnRed) {
    record.TiempoMuestreo(1, 1) = 30;
    robot.Choose("introducirdatos", "introprimero");
    for (const char* const cell : {"Text1(7)", "Text1(8)", "Text1(25)", "Text1(26)"}) {
        robot.Type(cell, "300");  // three times the ED of 100: equality counts
    }
    for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) {
        robot.Press(button);
    }
    EXPECT_EQ(robot.Find("Text1(7)").palette().color(QPalette::Base), QColor(250, 0, 0));
}

using ClockTest = EachScreenTest;

TEST_P(ClockTest, ShowsTheTimeByItsPatternAndGoesOn) {
    const std::map<ScreenId, std::string> clocks = {
        {ScreenId::Form1, "Label5"}, {ScreenId::Form2, "Label3"}, {ScreenId::Form3, "Label2"},
        {ScreenId::Form4, "Label1"}, {ScreenId::Form5, "Label5"}, {ScreenId::Form6, "Label2"}};
    const std::string& clock = clocks.at(GetParam());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !robot.Text(clock).empty(); }));
    const std::string first = robot.Text(clock);
    EXPECT_THAT(first, ::testing::MatchesRegex(
                           "[0-3][0-9]:[01][0-9]:[0-9][0-9]     [0-2][0-9]:[0-5][0-9]:[0-5][0-9]"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return robot.Text(clock) != first; })) << "it stands still";
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, ClockTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

TEST_F(ChangeTest, TheClockGoesOnBehindABoxAndTouchesItsLabelAlone) {
    Open(ScreenId::Form2);
    bool went_on = false;
    std::set<std::string> touched;
    robot.on_modal = [&](QDialog&) {
        MarkAll();
        went_on = QTest::qWaitFor([this] { return ClockLostItsMark(); });
        touched = Touched();
    };
    robot.ExpectBox(BoxOf(messages::kExit, MsgBoxStyle::YesNoInformationNo, QMessageBox::No));
    robot.Choose("salir");
    EXPECT_TRUE(went_on);
    EXPECT_THAT(touched, ElementsAre("Label3"));
}

TEST_F(ChangeTest, WhatAHandlerChangedIsShownBeforeItsBox) {
    OpenSheet(1, 1, 1);
    ASSERT_TRUE(robot.Visible("Text1(7)"));
    std::string caption;
    bool sheet_visible = true;
    robot.on_modal = [&](QDialog&) {
        caption = robot.WindowCaption();
        sheet_visible = robot.Visible("Text1(7)");
    };
    robot.ExpectBox({.text = messages::kIncoherentDay});
    robot.Choose("introducirdatos", "introsegundo");
    EXPECT_EQ(caption,
              "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA");
    EXPECT_FALSE(sheet_visible);
}

TEST_F(ChangeTest, TheHeadingsStandBehindTheRefusalOfATask) {
    Open(ScreenId::Form4);
    bool heading = false;
    std::string picked;
    robot.on_modal = [&](QDialog&) {
        heading = robot.Visible("Label4(1)");
        picked = robot.Text("Combo1");
    };
    robot.ExpectBox({.text = messages::kTaskAboveOnPick});
    robot.Pick("Combo1", "2");
    EXPECT_TRUE(heading);
    EXPECT_EQ(picked, "2");
}

}  // namespace
}  // namespace velmora::test
