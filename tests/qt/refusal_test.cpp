// A key that a filter refuses is seen, heard and told.

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QTest>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

class RefusalTest : public WindowTest {
protected:
    RefusalTest() {
        host.beep = [this] { ++beeps; };
        OpenSheet(1, 1, 2);
    }

    QImage Picture(std::string_view cell) {
        const QWidget& widget = robot.Find(cell);
        return window.grab({widget.mapTo(&window, QPoint()), widget.size()}).toImage();
    }
    QColor Frame(std::string_view cell) { return Picture(cell).pixelColor(0, 0); }

    /// What a screen reader says of the cell beyond its name.
    std::string Described(std::string_view cell) {
        return QAccessible::queryAccessibleInterface(&robot.Find(cell))
            ->text(QAccessible::Description)
            .toStdString();
    }

    const QColor warning{0xc2, 0x41, 0x0c};
    int beeps = 0;
};

TEST_F(RefusalTest, AFrameOfWarningFlashesRoundTheCellAndGoes) {
    robot.Type("Text1(7)", "192");
    const QColor before = Frame("Text1(7)");
    EXPECT_NE(before, warning);
    robot.Type(",");
    EXPECT_EQ(Frame("Text1(7)"), warning);
    EXPECT_EQ(Picture("Text1(7)").pixelColor(Picture("Text1(7)").rect().bottomRight()), warning)
        << "the row below doesn't cover it";
    EXPECT_NE(Picture("Text1(8)").pixelColor(20, 0), warning) << "its neighbour";
    EXPECT_TRUE(QTest::qWaitFor([&] { return Frame("Text1(7)") == before; }));
}

TEST_F(RefusalTest, EachRefusedKeyBeepsAndNoOther) {
    robot.Type("Text1(7)", "19.5");
    robot.Key(Qt::Key_Backspace);
    robot.Key(Qt::Key_Left);
    robot.Key(Qt::Key_Return);
    EXPECT_EQ(beeps, 0) << "Enter goes on: that is seen";
    robot.Type("Text1(7)", ".,-a");
    EXPECT_EQ(beeps, 4);
    Open(ScreenId::Form4);
    robot.Pick("Combo1", "1");
    robot.Type("Text1(2)", "x");
    robot.Type("Text1(1)", "x");  // a name takes all
    EXPECT_EQ(beeps, 5);
}

TEST_F(RefusalTest, AScreenReaderIsToldUntilAKeyPasses) {
    const std::string usual = Described("Text1(7)");
    robot.Type("Text1(7)", "192");
    EXPECT_EQ(Described("Text1(7)"), usual);
    robot.Type(",");
    EXPECT_EQ(Described("Text1(7)"), "Tecla no admitida. " + usual);
    robot.Type("5");
    EXPECT_EQ(Described("Text1(7)"), usual);
    robot.Type(",");
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(Described("Text1(7)"), usual);
}

TEST_F(RefusalTest, AMarkedCellIsToldAsSuchAgainAfterARefusal) {
    window.Run([this] {
        auto& cell = *std::get<TextCell*>(chain.Current().FindControl("Text1(7)")->state);
        cell.BackColor = 250;
    });
    robot.Type("Text1(7)", ",");
    EXPECT_THAT(Described("Text1(7)"), ::testing::StartsWith("Tecla no admitida."));
    robot.Type("5");
    EXPECT_EQ(Described("Text1(7)"), "Sobre el límite");
}

TEST_F(RefusalTest, CellsOfFiguresTellHowDecimalsAreWritten) {
    const std::string told = "Los decimales, con punto y con un cero delante: 0.5";
    const auto tip = [this](std::string_view cell) {
        return robot.Find(cell).toolTip().toStdString();
    };
    for (const char* const sample : {"Text1(7)", "Text1(12)", "Text1(25)"}) {
        EXPECT_EQ(tip(sample), told);
    }
    for (const char* const locked : {"Text1(1)", "Text1(6)", "Text1(13)"})
        EXPECT_EQ(tip(locked), "");
    Open(ScreenId::Form4);
    for (const char* const limit : {"Text1(2)", "Text1(3)", "Text1(28)"}) {
        EXPECT_EQ(tip(limit), told);
    }
    EXPECT_EQ(tip("Text1(1)"), "") << "a name";
}

}  // namespace
}  // namespace velmora::test
