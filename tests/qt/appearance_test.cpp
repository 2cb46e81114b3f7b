// What is told apart at a glance: contrast of every text with its ground, the whole text of a cell
// that is too narrow for it, marks that are more than a colour, Spanish.
#include "qt/appearance.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QToolTip>

#include <cmath>

#include "qt/window_test.h"
#include "sheet/form5.h"

namespace velmora::test {
namespace {

/// Relative luminance as WCAG 2 defines it, 0 for black to 1 for white.
double Luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double la = Luminance(a);
    const double lb = Luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(ContrastOfColours, BlackOnWhiteIsTwentyOne) {
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 1e-9);  // by the definition
}

class EachScreensColours : public EachScreenTest {};

TEST_P(EachScreensColours, EachTextStandsOutFromItsGroundByFourAndAHalf) {
    Open(GetParam());
    // Transparent texts stand on the backgrounds: the palest and the darkest of their light part,
    // and for the white clock the dark foot.
    const std::array<QColor, 2> light = {QColor(0xf7, 0xfa, 0xfd), QColor(0xb3, 0xc8, 0xd8)};
    const QColor foot(0x16, 0x2c, 0x47);
    int compared = 0;
    for (const Control& control : chain.Current().Controls()) {
        if (std::holds_alternative<Picture>(control.state)) continue;
        if (control.row.box.height < 200) continue;  // a mark holds no text
        const Look& look = control.row.look;
        const QColor fore = ToQt(look.fore);
        if (look.back != Look::kTransparent) {
            // The one field that can't do without its text is labelled in red by design; it is bold
            // for that, and pure red on white comes to just under four.
            const double wanted = control.name == "Label1(0)" && look.bold ? 3.9 : 4.5;
            EXPECT_GE(Contrast(fore, ToQt(look.back)), wanted) << control.name;
        } else if (fore == QColor(Qt::white)) {
            EXPECT_GE(Contrast(fore, foot), 4.5) << control.name;
        } else {
            for (const QColor& ground : light) {
                EXPECT_GE(Contrast(fore, ground), 4.5) << control.name;
            }
        }
        ++compared;
    }
    EXPECT_GE(compared, 7);  // the labels of the first screen
}

INSTANTIATE_TEST_SUITE_P(AllSix, EachScreensColours, ::testing::ValuesIn(kScreens));

class SheetAppearance : public WindowTest {
protected:
    QLineEdit& Cell(std::string_view name) { return robot.Find<QLineEdit>(name); }

    /// What the tool tip over a cell says, empty for none.
    QString ToolTipOver(QWidget& widget) {
        QToolTip::hideText();
        const QPoint place = widget.rect().center();
        QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QApplication::sendEvent(&widget, &event);
        return QToolTip::text();
    }
};

TEST_F(SheetAppearance, ACellTooNarrowForItsTextTellsItWholeInItsToolTip) {
    auto& form5 = OpenSheet(1, 1, 1);
    form5.Text3(0).Text = "536.069661301946";
    window.ShowChanges();
    EXPECT_EQ(ToolTipOver(Cell("Text3(0)")), QStringLiteral("536.069661301946"));
}

TEST_F(SheetAppearance, ACellThatShowsAllItsTextHasNoToolTip) {
    auto& form5 = OpenSheet(1, 1, 1);
    form5.Text3(0).Text = "384";
    window.ShowChanges();
    EXPECT_EQ(ToolTipOver(Cell("Text3(0)")), QString());
}

TEST_F(SheetAppearance, ASampleOverItsLimitIsToldToAScreenReaderToo) {
    auto& form5 = OpenSheet(1, 1, 1);
    EXPECT_EQ(Cell("Text1(7)").accessibleDescription(), QString());
    form5.Text1(7).BackColor = 250;
    form5.Text1(7).ForeColor = kWindowBackground;
    window.ShowChanges();
    EXPECT_EQ(Cell("Text1(7)").accessibleDescription(), QStringLiteral("Sobre el límite"));
    EXPECT_EQ(Cell("Text1(7)").palette().color(QPalette::Base), QColor(250, 0, 0));
    EXPECT_EQ(Cell("Text1(7)").palette().color(QPalette::Text), QColor(Qt::white));
    form5.Text1(7).BackColor = kWindowBackground;
    form5.Text1(7).ForeColor = kWindowText;
    window.ShowChanges();
    EXPECT_EQ(Cell("Text1(7)").accessibleDescription(), QString());
}

TEST(SpanishOfTheToolkit, ButtonsAndTheGapsOfItsTranslation) {
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "&Yes"), QStringLiteral("&Sí"));
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancelar"));
    EXPECT_EQ(QCoreApplication::translate("QPrintSettingsOutput", "Double Sided Printing"),
              QStringLiteral("Impresión a doble cara"));
    EXPECT_EQ(QCoreApplication::translate("QFileDialog", "Parent Directory"),
              QStringLiteral("Ir al directorio superior"));
    EXPECT_EQ(QCoreApplication::translate("QPrintPropertiesWidget", "Page Set:"),
              QStringLiteral("Conjunto de páginas:"));
    EXPECT_EQ(QCoreApplication::translate("QPrintSettingsOutput", "Pages"),
              QStringLiteral("Páginas"));
    EXPECT_EQ(QCoreApplication::translate("QPrintPropertiesWidget", "Advanced"),
              QStringLiteral("Avanzado"));
}

}  // namespace
}  // namespace velmora::test
