// A text too long for its cell or list: "…" where it is cut, and its beginning in view.

#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QToolTip>

#include "capture/form2.h"
#include "capture/form4.h"
#include "qt/window_test.h"
#include "sheet/form5.h"

namespace velmora::test {
namespace {

/// The dark pixels in the upper and in the lower half of the place where "…" stands.
std::pair<int, int> InkAtTheCut(QLineEdit& line) {
    const QImage seen = line.grab().toImage();
    const int wide = line.fontMetrics().horizontalAdvance(QStringLiteral("…"));
    constexpr int kFrame = 3;
    std::pair<int, int> ink;
    for (int y = kFrame; y < seen.height() - kFrame; ++y) {
        for (int x = seen.width() - kFrame - wide; x < seen.width() - kFrame; ++x) {
            if (seen.pixelColor(x, y).lightness() > 200) continue;
            ++(y < seen.height() / 2 ? ink.first : ink.second);
        }
    }
    return ink;
}

class CutTextTest : public WindowTest {
protected:
    CutTextTest() { Open(ScreenId::Form2); }

    void Give(const std::string& text) {
        window.Run([&] { Current<Form2>().Text1(4).Text = text; });
    }
    QLineEdit& Cell() { return robot.Find<QLineEdit>("Text1(4)"); }
};

TEST_F(CutTextTest, ItEndsInThreeDotsWhereItIsCut) {
    robot.Click("Text1(3)");
    Give(std::string(400, 'l'));
    const auto [above, below] = InkAtTheCut(Cell());
    EXPECT_EQ(above, 0);  // an l would reach up there
    EXPECT_GE(below, 2);
}

TEST_F(CutTextTest, ATextThatFitsHasNoDots) {
    robot.Click("Text1(3)");
    Give("MMM");
    EXPECT_EQ(InkAtTheCut(Cell()), std::pair(0, 0));
}

TEST_F(CutTextTest, ItShowsItsBeginningWhenTheFocusComes) {
    robot.Click("Text1(1)");
    Give("Principio" + std::string(200, 'M'));
    Cell().grab();
    robot.Key(Qt::Key_Tab);
    ASSERT_EQ(robot.Focused(), "Text1(4)");
    Cell().grab();
    EXPECT_EQ(Cell().cursorPositionAt(QPoint(4, Cell().height() / 2)), 0);
    robot.Key(Qt::Key_End);
    robot.Type("x");
    EXPECT_TRUE(robot.Text("Text1(4)").ends_with("Mx"));
}

TEST_F(CutTextTest, ItsToolTipSaysTheWholeAndThenItsOwnWords) {
    const QString figure(40, u'1');
    OpenSheet(1, 1, 1).Text1(7).Text = figure.toStdString();
    window.ShowChanges();
    auto& cell = robot.Find<QLineEdit>("Text1(7)");
    QHelpEvent event(QEvent::ToolTip, {2, 2}, cell.mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(&cell, &event);
    EXPECT_EQ(QToolTip::text(),
              figure + QStringLiteral("\nLos decimales, con punto y con un cero delante: 0.5"));
    QToolTip::hideText();
}

/// A list whose text, that of a file, isn't among its items.
class CutListTest : public WindowTest {
protected:
    CutListTest() { OpenRows(2); }

    void Give(const std::string& text) {
        window.Run([&] { Current<Form4>().Combo13(0).Text = text; });
    }
    QComboBox& List() { return robot.Find<QComboBox>("Combo13(0)"); }
};

TEST_F(CutListTest, ItEndsInThreeDotsWhereItIsCut) {
    Give(std::string(400, 'l'));
    const auto [above, below] = InkAtTheCut(*List().lineEdit());
    EXPECT_EQ(above, 0);  // an l would reach up there
    EXPECT_GE(below, 2);
    Give("l");
    EXPECT_EQ(InkAtTheCut(*List().lineEdit()), std::pair(0, 0));
}

TEST_F(CutListTest, ItShowsItsBeginningWhenTheFocusComes) {
    Give("Principio" + std::string(200, 'M'));
    List().setFocus(Qt::TabFocusReason);
    List().lineEdit()->grab();
    EXPECT_EQ(List().lineEdit()->cursorPositionAt(QPoint(4, List().height() / 2)), 0);
}

TEST_F(CutListTest, ItsToolTipSaysTheWhole) {
    Give(std::string(40, 'M'));
    const QPoint place = List().rect().center();
    QHelpEvent event(QEvent::ToolTip, place, List().mapToGlobal(place));
    QCoreApplication::sendEvent(List().lineEdit(), &event);
    EXPECT_EQ(QToolTip::text(), QString(40, u'M'));
    QToolTip::hideText();
}

}  // namespace
}  // namespace velmora::test
