// Where the keyboard is: after menus and a new day, by arrows and Enter through the cells, at the
// newest button, and how it shows.

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "qt/text.h"
#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

class FocusTest : public WindowTest {
protected:
    std::string ActiveTitle() const {
        const QAction* const active = window.menuBar()->activeAction();
        return active == nullptr ? std::string() : active->text().toStdString();
    }

    /// Presses and releases Alt by itself, by the road of a real key.
    void PressAlt() {
        robot.Act("Alt", [this] {
            QWindow* const native = window.windowHandle();
            QTest::sendKeyEvent(QTest::Press, native, Qt::Key_Alt, QString(), Qt::NoModifier);
            QTest::sendKeyEvent(QTest::Release, native, Qt::Key_Alt, QString(), Qt::NoModifier);
        });
    }

    /// Opens a title's list by the mouse.
    void OpenList(std::string_view title) {
        robot.Act("opening a list", [&] {
            const QMenuBar& bar = *window.menuBar();
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                              bar.mapTo(&window, bar.actionGeometry(&Action(title)).center()));
        });
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    }

    QImage Picture(const QWidget& widget) {
        const QRect place(widget.mapTo(&window, QPoint()), widget.size());
        return window.grab(place).toImage();
    }

    /// Whether the outermost line of pixels of the widget's picture is of one colour all round.
    static bool IsFramed(const QImage& picture, const QColor& color) {
        const QPoint last = picture.rect().bottomRight();
        for (int x = 0; x <= last.x(); ++x) {
            if (picture.pixelColor(x, 0) != color || picture.pixelColor(x, last.y()) != color) {
                return false;
            }
        }
        for (int y = 0; y <= last.y(); ++y) {
            if (picture.pixelColor(0, y) != color || picture.pixelColor(last.x(), y) != color) {
                return false;
            }
        }
        return true;
    }

    static QColor FocusColor() { return QApplication::palette().color(QPalette::Highlight); }
};

TEST_F(FocusTest, EscapeAfterF10GivesTheKeyboardBack) {
    OpenSheet(1, 1, 1);
    robot.Click("Text1(8)");
    robot.Key(Qt::Key_F10);
    EXPECT_EQ(ActiveTitle(), "Introducir datos");
    robot.Key(Qt::Key_Escape);
    EXPECT_EQ(robot.Focused(), "Text1(8)");
    EXPECT_EQ(ActiveTitle(), "");
}

TEST_F(FocusTest, EscapeInAListOpenedFromF10GivesTheKeyboardBack) {
    OpenSheet(1, 1, 1);
    robot.Click("Text1(8)");
    robot.Key(Qt::Key_F10);
    robot.Key(Qt::Key_Down);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    robot.Key(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(robot.Focused(), "Text1(8)");
    EXPECT_EQ(ActiveTitle(), "");
}

TEST_F(FocusTest, EscapeInAListOpenedByTheMouseGivesTheKeyboardBack) {
    OpenSheet(1, 1, 1);
    robot.Click("Text1(8)");
    OpenList("continuar");
    robot.Key(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(robot.Focused(), "Text1(8)");
    EXPECT_EQ(ActiveTitle(), "");
}

TEST_F(FocusTest, AltAloneGoesToTheFirstTitleWithACaptionAndBack) {
    for (const auto& [screen, first] :
         {std::pair{ScreenId::Form1, "Iniciar"}, std::pair{ScreenId::Form5, "Introducir datos"}}) {
        Open(screen);
        PressAlt();
        EXPECT_EQ(ActiveTitle(), first);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        PressAlt();
        EXPECT_EQ(ActiveTitle(), "");
    }
    OpenSheet(1, 1, 1);
    robot.Click("Text1(8)");
    PressAlt();
    robot.Key(Qt::Key_Escape);
    EXPECT_EQ(robot.Focused(), "Text1(8)");
}

TEST_F(FocusTest, ABoxReachedByF10LeavesTheKeyboardWhereItWas) {
    OpenSheet(1, 1, 1);
    robot.Click("Text1(8)");
    robot.Key(Qt::Key_F10);
    robot.Key(Qt::Key_Left);  // round to the last title
    ASSERT_EQ(ActiveTitle(), "Salir");
    robot.ExpectBox(BoxOf(messages::kExit, MsgBoxStyle::YesNoInformation, QMessageBox::No));
    robot.Key(Qt::Key_Return);
    EXPECT_EQ(robot.Focused(), "Text1(8)");
}

TEST_F(FocusTest, ADayLaidOutTakesItsFirstDigitInC1) {
    OpenSheet(1, 1, 2);
    EXPECT_EQ(robot.Focused(), "Text1(7)");
    robot.Type("5");
    EXPECT_EQ(robot.Text("Text1(7)"), "5");
    robot.Click("Text1(26)");
    robot.Choose("introducirdatos", "introprimero");
    EXPECT_EQ(robot.Focused(), "Text1(7)") << "laid out once more";
    robot.Click("Text1(26)");
    robot.Choose("recuperar", "recupprimerdia");
    EXPECT_EQ(robot.Focused(), "Text1(7)") << "recovered";
    robot.Type("6");
    EXPECT_EQ(robot.Text("Text1(7)"), "6");
}

TEST_F(FocusTest, ADayChosenByKeysTakesItsFirstDigitInC1) {
    OpenSheet(1, 1, 2);
    robot.Click("Text1(26)");
    robot.Key(Qt::Key_F10);
    robot.Key(Qt::Key_Down);
    robot.Key(Qt::Key_Return);
    EXPECT_EQ(robot.Focused(), "Text1(7)");
}

TEST_F(FocusTest, ABoxOfTheSheetLeavesTheKeyboardInItsCell) {
    OpenSheet(1, 1, 2);
    robot.Click("Text1(26)");
    robot.ExpectBox(BoxOf(messages::kExit, MsgBoxStyle::YesNoInformation, QMessageBox::No));
    robot.Choose("salir");
    EXPECT_EQ(robot.Focused(), "Text1(26)");
}

TEST_F(FocusTest, AfterTheSheetsLastSampleTabReachesItsButtons) {
    OpenSheet(1, 1, 1);
    robot.Click("Text1(12)");
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(robot.Focused(), "Command1");
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(robot.Focused(), "Text1(0)");
}

TEST_F(FocusTest, F6GoesToTheButtonThatOpenedLast) {
    OpenSheet(1, 2, 1);
    for (const char* const cell : {"Text1(7)", "Text1(8)", "Text1(115)", "Text1(116)"}) {
        robot.Type(cell, "5");
    }
    for (const char* const button : {"Command1", "Command2", "Command4", "Command5", "Command6"}) {
        robot.Click("Text1(7)");
        robot.Key(Qt::Key_F6);
        EXPECT_EQ(robot.Focused(), button);
        robot.Key(Qt::Key_Return);
    }
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Command8");
    robot.Choose("introducirdatos", "introprimero");
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Command1") << "the others have closed again";
}

TEST_F(FocusTest, F6ReachesTheButtonsOfTheOtherScreensFromListsToo) {
    Open(ScreenId::Form3);
    Focus("Combo1(0)");
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Command1");
    robot.Pick("Combo1(0)", "1");
    robot.Pick("Combo1(1)", "1");
    robot.Press("Command1");
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Command2");
    Open(ScreenId::Form4);
    Focus("Combo1");
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Command1");
    Open(ScreenId::Form2);
    robot.Key(Qt::Key_F6);
    EXPECT_EQ(robot.Focused(), "Text1(1)") << "a screen without buttons";
}

TEST_F(FocusTest, UpAndDownGoByARowFromTaskToTask) {
    OpenSheet(1, 2, 2);
    robot.Click("Text1(8)");
    for (const char* const cell : {"Text1(26)", "Text1(116)", "Text1(134)", "Text1(134)"}) {
        robot.Key(Qt::Key_Down);
        EXPECT_EQ(robot.Focused(), cell);
    }
    for (const char* const cell : {"Text1(116)", "Text1(26)", "Text1(8)", "Text1(8)"}) {
        robot.Key(Qt::Key_Up);
        EXPECT_EQ(robot.Focused(), cell);
    }
    robot.Click("Text3(0)");
    robot.Key(Qt::Key_Down);
    EXPECT_EQ(robot.Focused(), "Text3(4)");
    robot.Key(Qt::Key_Up, Qt::KeypadModifier);
    EXPECT_EQ(robot.Focused(), "Text3(0)") << "the arrows of the number pad";
}

TEST_F(FocusTest, UpAndDownGoByARowInTheOtherGrids) {
    OpenRows(2);
    for (const auto& [upper, lower] :
         {std::pair{"Text1(1)", "Text1(6)"}, std::pair{"Text3(0)", "Text3(1)"},
          std::pair{"Text1(4)", "Text1(9)"}}) {
        robot.Click(upper);
        robot.Key(Qt::Key_Down);
        EXPECT_EQ(robot.Focused(), lower);
        robot.Key(Qt::Key_Up);
        EXPECT_EQ(robot.Focused(), upper);
    }
    Open(ScreenId::Form6);
    robot.Press("Command1");
    robot.Click("Text1(2)");
    robot.Key(Qt::Key_Down);
    EXPECT_EQ(robot.Focused(), "Text1(11)");
}

TEST_F(FocusTest, EnterInACellGoesOnLikeTabOnceItsFilterHasSeenIt) {
    OpenSheet(1, 1, 2);
    robot.Type("Text1(12)", "5");
    const QWidget& cell = robot.Find("Text1(12)");
    robot.Key(Qt::Key_Return);
    EXPECT_EQ(robot.Focused(), "Text1(25)");
    robot.Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(robot.Focused(), "Text1(26)");
    EXPECT_EQ(robot.Text("Text1(12)"), "5");
    EXPECT_FALSE(cell.hasFocus());
    // The filter has counted the two keys as visits: a point as the first key is refused again.
    robot.Click("Text1(12)");
    robot.Type(".");
    EXPECT_EQ(robot.Text("Text1(12)"), "5");
    Open(ScreenId::Form2);
    robot.Key(Qt::Key_Return);
    EXPECT_EQ(robot.Focused(), "Text1(4)") << "a field of free text";
}

TEST_F(FocusTest, ADigitAfterTabIsAddedToWhatTheFilteredCellHolds) {
    OpenSheet(1, 1, 2);
    robot.Type("Text1(7)", "12");
    robot.Type("Text1(8)", "34");
    robot.Type("Text1(25)", "56");
    robot.Key("Text1(8)", Qt::Key_Home);
    robot.Click("Text1(7)");
    robot.Key(Qt::Key_Tab);
    EXPECT_FALSE(robot.Find<QLineEdit>("Text1(8)").hasSelectedText());
    robot.Type("5");
    EXPECT_EQ(robot.Text("Text1(8)"), "345");
    robot.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    robot.Type("6");
    EXPECT_EQ(robot.Text("Text1(7)"), "126");
    robot.Key(Qt::Key_Down);
    robot.Type("7");
    EXPECT_EQ(robot.Text("Text1(25)"), "567");
}

TEST_F(FocusTest, AFieldOfFreeTextIsSelectedByTabAsEverywhere) {
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", "abc");
    robot.Click("Text1(1)");
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(robot.Find<QLineEdit>("Text1(4)").selectedText(), QStringLiteral("abc"));
}

TEST_F(FocusTest, CellsListsAndButtonsShowTheFocusWithTheSameFrame) {
    OpenRows(1);
    for (const char* const name : {"Text1(2)", "Combo13(0)", "Command1", "Combo1"}) {
        QWidget& widget = robot.Find(name);
        EXPECT_FALSE(IsFramed(Picture(widget), FocusColor())) << name;
        Focus(name);
        EXPECT_TRUE(IsFramed(Picture(widget), FocusColor())) << name;
    }
}

TEST_F(FocusTest, TheFrameGrowsWithTheWindow) {
    Open(ScreenId::Form6);
    QWidget& button = robot.Find("Command1");
    Focus("Command1");
    const auto thickness = [&] {
        const QImage picture = Picture(button);
        int lines = 0;
        while (picture.pixelColor(picture.width() / 2, lines) == FocusColor()) ++lines;
        return lines;
    };
    robot.Act("a small window", [this] { window.resize(825, 585); });
    EXPECT_EQ(thickness(), 2);
    robot.Act("a large one", [this] { window.resize(2475, 1755); });
    EXPECT_EQ(thickness(), 6) << "three times as large";
}

TEST_F(FocusTest, TheFrameOfAnUpperRowIsWholeAndAllElseStaysAsItWasLaidOut) {
    OpenSheet(1, 1, 3);
    const QWidget& cell = robot.Find("Text1(8)");
    robot.Click("Text1(26)");
    const QImage before = window.grab().toImage();
    robot.Click("Text1(8)");
    EXPECT_TRUE(IsFramed(Picture(cell), FocusColor()));
    robot.Click("Text1(26)");
    EXPECT_EQ(window.grab().toImage(), before) << "coming back, nothing has been restacked";
}

TEST_F(FocusTest, WalkingThroughTheCellsKeepsTheOrderThatAScreenReaderTells) {
    OpenSheet(1, 1, 2);
    const auto told = [this] {
        const QAccessibleInterface* const canvas =
            QAccessible::queryAccessibleInterface(window.centralWidget());
        std::vector<std::string> names;
        names.reserve(static_cast<std::size_t>(canvas->childCount()));
        for (int i = 0; i < canvas->childCount(); ++i) {
            names.push_back(canvas->child(i)->object()->objectName().toStdString());
        }
        return names;
    };
    std::vector<std::string> laid_out;
    for (const Control& control : chain.Current().Controls()) laid_out.push_back(control.name);
    EXPECT_THAT(told(), ElementsAreArray(laid_out));
    for (int i = 0; i < 8; ++i) robot.Key(Qt::Key_Tab);
    EXPECT_THAT(told(), ElementsAreArray(laid_out));
}

}  // namespace
}  // namespace velmora::test
