// Geometry at several sizes of the window: nothing out of it, no caption clipped, no control over
// another.

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

#include "qt/canvas.h"
#include "qt/text.h"
#include "qt/window_test.h"

namespace velmora::test {
namespace {

struct Size {
    const char* name;
    int width;
    int height;
};

// clang-format off
constexpr std::array<Size, 5> kSizes = {{
    {"At100PerCent", 825,  607},
    {"At125PerCent", 1031, 759},
    {"At150PerCent", 1237, 910},
    {"At200PerCent", 1650, 1214},
    {"At800x600",    800,  600},
}};
// clang-format on

std::ostream& operator<<(std::ostream& out, const Size& size) { return out << size.name; }

class LayoutTest : public WindowTest,
                   public ::testing::WithParamInterface<std::tuple<ScreenId, Size>> {
protected:
    LayoutTest() {
        const auto& [id, size] = GetParam();
        Open(id);
        window.resize(size.width, size.height);
        QCoreApplication::processEvents();
        const auto shown = std::make_pair(window.width(), window.height());
        EXPECT_EQ(shown, std::make_pair(size.width, size.height));
    }

    const Screen& Shown() { return chain.Current(); }
    Canvas& Area() { return *window.findChild<Canvas*>(); }
};

TEST_P(LayoutTest, NoControlReachesOutOfTheWindow) {
    const QRect area = Area().rect();
    for (const Control& control : Shown().Controls()) {
        const QRect place = robot.Find(control.name).geometry();
        EXPECT_TRUE(area.contains(place))
            << control.name << " " << place.right() << "," << place.bottom() << " of "
            << area.right() << "," << area.bottom();
    }
}

TEST_P(LayoutTest, EachControlStandsWhereItsRowTellsByOneFactor) {
    // The first control's width tells the factor to within a pixel; the widest one tells it best.
    const Control* widest = nullptr;
    for (const Control& control : Shown().Controls()) {
        if (widest == nullptr || control.row.box.width > widest->row.box.width) widest = &control;
    }
    const QRect ruler = robot.Find(widest->name).geometry();
    const double scale = static_cast<double>(ruler.width()) / widest->row.box.width;
    const QPointF origin(ruler.left() - widest->row.box.left * scale,
                         ruler.top() - widest->row.box.top * scale);
    constexpr double kSlack = 2.5;  // pixels: rounding of the ruler and of the control
    for (const Control& control : Shown().Controls()) {
        const QRect place = robot.Find(control.name).geometry();
        const Box& box = control.row.box;
        EXPECT_NEAR(place.left(), origin.x() + box.left * scale, kSlack) << control.name;
        EXPECT_NEAR(place.top(), origin.y() + box.top * scale, kSlack) << control.name;
        EXPECT_NEAR(place.width(), box.width * scale, kSlack) << control.name;
        EXPECT_NEAR(place.height(), box.height * scale, kSlack) << control.name;
    }
}

TEST_P(LayoutTest, NoControlLiesOverAnotherWhereTheirRowsDont) {
    const auto& controls = Shown().Controls();
    const auto twips = [](const Control& c) {
        return QRect(c.row.box.left, c.row.box.top, c.row.box.width, c.row.box.height);
    };
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const QRect mine = robot.Find(controls[i].name).geometry();
        for (std::size_t j = i + 1; j < controls.size(); ++j) {
            if (twips(controls[i]).intersects(twips(controls[j]))) continue;
            EXPECT_FALSE(mine.intersects(robot.Find(controls[j].name).geometry()))
                << controls[i].name << " and " << controls[j].name;
        }
    }
}

TEST_P(LayoutTest, EachCaptionFitsItsLabelOrButton) {
    for (const Control& control : Shown().Controls()) {
        QWidget& widget = robot.Find(control.name);
        const QFontMetrics metrics(widget.font());
        if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            const QString text = ToQt(control.row.text);
            if (label->wordWrap()) {
                const QRect needed =
                    metrics.boundingRect(label->contentsRect(), Qt::TextWordWrap, text);
                EXPECT_LE(needed.width(), label->contentsRect().width()) << control.name;
                EXPECT_LE(needed.height(), label->contentsRect().height() + metrics.descent())
                    << control.name << ": " << control.row.text;
            } else {
                EXPECT_LE(metrics.horizontalAdvance(text), label->contentsRect().width())
                    << control.name << ": " << control.row.text;
                EXPECT_LE(metrics.ascent(), label->contentsRect().height()) << control.name;
            }
        } else if (const auto* const button = qobject_cast<const QPushButton*>(&widget)) {
            QStyleOptionButton option;
            option.initFrom(button);
            const int room = button->style()
                                 ->subElementRect(QStyle::SE_PushButtonContents, &option, button)
                                 .width();
            EXPECT_LE(metrics.horizontalAdvance(button->text()), room)
                << control.name << ": " << control.row.text;
            EXPECT_LE(metrics.ascent(), button->height()) << control.name;
        }
    }
}

TEST_P(LayoutTest, AFigureOfTheSheetFitsItsCellInHeight) {
    for (const Control& control : Shown().Controls()) {
        const auto* const edit = qobject_cast<const QLineEdit*>(&robot.Find(control.name));
        if (edit == nullptr || control.row.box.height < 200) continue;  // a mark holds no text
        EXPECT_LE(QFontMetrics(edit->font()).tightBoundingRect(QStringLiteral("Ñg0")).height(),
                  edit->height() - 2)
            << control.name;
    }
}

TEST_P(LayoutTest, TheMenuBarShowsEveryTitle) {
    const QRect bar = window.menuBar()->rect();
    for (QAction* const action : window.menuBar()->actions()) {
        const QRect place = window.menuBar()->actionGeometry(action);
        EXPECT_TRUE(bar.contains(place)) << action->objectName().toStdString();
        EXPECT_GT(place.width(), 7) << action->objectName().toStdString();
        if (action->text().isEmpty()) continue;
        EXPECT_GE(place.width(),
                  QFontMetrics(window.menuBar()->font()).horizontalAdvance(action->text()))
            << action->objectName().toStdString();
    }
}

std::string NameOfCase(const ::testing::TestParamInfo<std::tuple<ScreenId, Size>>& test) {
    return NameOf(std::get<0>(test.param)) + std::get<1>(test.param).name;
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, LayoutTest,
                         ::testing::Combine(::testing::ValuesIn(kScreens),
                                            ::testing::ValuesIn(kSizes)),
                         NameOfCase);

}  // namespace
}  // namespace velmora::test
