// A text too long for its cell: "…" where it is cut, and its beginning in view.

#include <QImage>
#include <QLineEdit>

#include "capture/form2.h"
#include "qt/window_test.h"

namespace velmora::test {
namespace {

class CutTextTest : public WindowTest {
protected:
    CutTextTest() { Open(ScreenId::Form2); }

    void Give(const std::string& text) {
        window->Run([&] { Current<Form2>().Text1(4).Text = text; });
    }
    QLineEdit& Cell() { return robot.Find<QLineEdit>("Text1(4)"); }

    /// The dark pixels in the upper and in the lower half of the place where "…" stands.
    std::pair<int, int> InkAtTheCut() {
        const QImage cell = Cell().grab().toImage();
        const int wide = Cell().fontMetrics().horizontalAdvance(QStringLiteral("…"));
        constexpr int kFrame = 3;
        std::pair<int, int> ink;
        for (int y = kFrame; y < cell.height() - kFrame; ++y) {
            for (int x = cell.width() - kFrame - wide; x < cell.width() - kFrame; ++x) {
                if (cell.pixelColor(x, y).lightness() > 200) continue;
                ++(y < cell.height() / 2 ? ink.first : ink.second);
            }
        }
        return ink;
    }
};

TEST_F(CutTextTest, ItEndsInThreeDotsWhereItIsCut) {
    robot.Click("Text1(3)");
    Give(std::string(400, 'l'));
    const auto [above, below] = InkAtTheCut();
    EXPECT_EQ(above, 0);  // an l would reach up there
    EXPECT_GE(below, 2);
}

TEST_F(CutTextTest, ATextThatFitsHasNoDots) {
    robot.Click("Text1(3)");
    Give("MMM");
    EXPECT_EQ(InkAtTheCut(), std::pair(0, 0));
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

}  // namespace
}  // namespace velmora::test
