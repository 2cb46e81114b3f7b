#include "qt/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "qt/spanish.h"

namespace velmora {

namespace {

/// Fusion, with a width for the spacers of the menu bars.
class Style : public QProxyStyle {
public:
    Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        if (type == CT_MenuBarItem && IsSpacer(option))
            return {kSpacerWidth, std::max(size.height(), 1)};
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_MenuBar_AltKeyNavigation) return 1;
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element == CE_MenuBarItem && IsSpacer(option)) {
            QProxyStyle::drawControl(CE_MenuBarEmptyArea, option, painter, widget);
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

private:
    static constexpr int kSpacerWidth = 14;

    static bool IsSpacer(const QStyleOption* option) {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        return item != nullptr && item->text.isEmpty();
    }
};

QPalette LightPalette() {
    const QColor ink(0x14, 0x1e, 0x2d);
    const QColor accent(0x1f, 0x5f, 0x9e);
    QPalette palette(QColor(0xe4, 0xea, 0xf1), QColor(0xee, 0xf2, 0xf6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf2, 0xf5, 0xf9));
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, ink);
    }
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xe6));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0x5c, 0x66, 0x72));
    }
    return palette;
}

}  // namespace

void DressApplication(QApplication& application) {
    constexpr int kDialogPoints = 10;
    QApplication::setApplicationName(QStringLiteral("velmora"));
    QApplication::setApplicationDisplayName({});
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/velmora/velmora.svg")));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setStyle(new Style);  // NOLINT(cppcoreguidelines-owning-memory): taken over
    QApplication::setPalette(LightPalette());
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), kDialogPoints));

    // The file dialog would keep its history in the user's configuration folder.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));

    SpeakSpanish(application);
}

QColor ToQt(Color color) {
    if (color == kFondoDeVentana) return Qt::white;
    if (color == kTextoDeVentana) return {0x14, 0x1e, 0x2d};
    if (color == Look::kTransparente) return Qt::transparent;
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

QFont FontOf(const Look& look, double pixels_per_twip) {
    constexpr double kTwipsPerPoint = 20;
    constexpr double kRoundingSlack = 0.01;
    QFont font(look.family == Family::Serif ? QStringLiteral("Liberation Serif")
                                            : QStringLiteral("Liberation Sans"));
    font.setStyleHint(look.family == Family::Serif ? QFont::Serif : QFont::SansSerif);
    font.setBold(look.bold);
    const double pixels = look.points * kTwipsPerPoint * pixels_per_twip;
    font.setPixelSize(std::max(1, static_cast<int>(std::floor(pixels + kRoundingSlack))));
    return font;
}

void SharePalette(QWidget& widget) {
    static const QPalette shared = [] {
        QPalette palette = QApplication::palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (int i = 0; i < QPalette::NColorRoles; ++i) {
                const auto role = static_cast<QPalette::ColorRole>(i);
                palette.setBrush(group, role, palette.brush(group, role));
            }
        }
        return palette;
    }();
    widget.setPalette(shared);
}

void Paint(QWidget& widget, Color fore, Color back) {
    // Made once for each pair: widgets share the data of palettes that are the same one.
    static std::map<std::pair<Color, Color>, QPalette> made;
    const auto [entry, is_new] = made.try_emplace({fore, back}, QApplication::palette());
    if (is_new) {
        for (const auto role : {QPalette::Text, QPalette::WindowText}) {
            entry->second.setColor(QPalette::All, role, ToQt(fore));
        }
        for (const auto role : {QPalette::Base, QPalette::Window}) {
            entry->second.setColor(QPalette::All, role, ToQt(back));
        }
    }
    widget.setPalette(entry->second);
}

}  // namespace velmora
