#include "qt/appearance.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

#include "qt/drawing.h"
#include "qt/late_icon.h"
#include "qt/platform.h"
#include "qt/spanish.h"

namespace velmora {

namespace {

/// The sizes of the style that grow with the window, the letters of a dialog with them.
constexpr std::array kGrowing = {
    QStyle::PM_MessageBoxIconSize,
    QStyle::PM_SmallIconSize,
    QStyle::PM_LargeIconSize,
    QStyle::PM_ListViewIconSize,
    QStyle::PM_ButtonIconSize,
    QStyle::PM_ScrollBarExtent,
    QStyle::PM_IndicatorWidth,
    QStyle::PM_IndicatorHeight,
    QStyle::PM_ExclusiveIndicatorWidth,
    QStyle::PM_ExclusiveIndicatorHeight,
    QStyle::PM_LayoutLeftMargin,
    QStyle::PM_LayoutTopMargin,
    QStyle::PM_LayoutRightMargin,
    QStyle::PM_LayoutBottomMargin,
    QStyle::PM_LayoutHorizontalSpacing,
    QStyle::PM_LayoutVerticalSpacing,
    QStyle::PM_ButtonMargin,
    QStyle::PM_CheckBoxLabelSpacing,
    QStyle::PM_RadioButtonLabelSpacing,
    QStyle::PM_HeaderMarkSize,
    QStyle::PM_TabBarTabHSpace,
    QStyle::PM_ToolTipLabelFrameWidth,
};

/// A disc with a white sign on it: it stands out from a light ground and from a dark one.
QIcon SignOnADisc(const QColor& disc, QChar sign) {
    constexpr int kSide = 256;  // icons are made smaller from it, up to a large projector's
    QPixmap picture(kSide, kSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    painter.drawEllipse(picture.rect().adjusted(4, 4, -4, -4));
    QFont font(QStringLiteral("Liberation Sans"));
    font.setBold(true);
    font.setPixelSize(kSide * 3 / 4);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(picture.rect(), Qt::AlignCenter, sign);
    return {picture};
}

/// Fusion, whose sizes follow the window's, and which looks the same on every desktop.
class Style : public QProxyStyle {
public:
    Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    /// How large things are, 1 at the size of the screens' layout.
    void SetFactor(double factor) { factor_ = factor; }

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int size = QProxyStyle::pixelMetric(metric, option, widget);
        return size > 0 && std::ranges::count(kGrowing, metric) > 0 ? qRound(size * factor_) : size;
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        if (type == CT_MenuBarItem && IsSpacer(option))
            return {qRound(kSpacerWidth * factor_), std::max(size.height(), 1)};
        if (const auto* counter = qstyleoption_cast<const QStyleOptionSpinBox*>(option))
            return QProxyStyle::sizeFromContents(type, Grown(*counter).get(), size, widget);
        const QSize contents = QProxyStyle::sizeFromContents(type, option, size, widget);
        if (type == CT_PushButton) return contents.expandedTo({qRound(kButtonWidth * factor_), 0});
        return type == CT_ComboBox ? contents + QSize(ExtraWidthOfArrow(), 0) : contents;
    }

    using QProxyStyle::polish;
    /// No label guesses that a text is markup: those of the toolkit's own boxes and of tool tips
    /// show names of files and texts of cells, which come from anywhere.
    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (auto* const label = qobject_cast<QLabel*>(widget)) label->setTextFormat(Qt::PlainText);
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        if (hint == SH_MenuBar_AltKeyNavigation) return 1;
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        if (hint == SH_DialogButtonLayout) return QDialogButtonBox::WinLayout;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        if (const auto* counter = qstyleoption_cast<const QStyleOptionSpinBox*>(option))
            return QProxyStyle::subControlRect(control, Grown(*counter).get(), part, widget);
        QRect place = QProxyStyle::subControlRect(control, option, part, widget);
        if (control != CC_ComboBox) return place;
        if (part == SC_ComboBoxArrow) place.setLeft(place.left() - ExtraWidthOfArrow());
        if (part == SC_ComboBoxEditField) place.setRight(place.right() - ExtraWidthOfArrow());
        return place;
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override {
        if (const auto* counter = qstyleoption_cast<const QStyleOptionSpinBox*>(option)) {
            QProxyStyle::drawComplexControl(control, Grown(*counter).get(), painter, widget);
            return;
        }
        const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        if (control != CC_ComboBox || list == nullptr) {
            QProxyStyle::drawComplexControl(control, option, painter, widget);
            return;
        }
        QStyleOptionComboBox without_arrow = *list;
        without_arrow.subControls &= ~SC_ComboBoxArrow;
        QProxyStyle::drawComplexControl(control, &without_arrow, painter, widget);
        if (list->subControls.testFlag(SC_ComboBoxArrow)) DrawArrow(*list, *painter, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element == CE_MenuBarItem && IsSpacer(option)) {
            QProxyStyle::drawControl(CE_MenuBarEmptyArea, option, painter, widget);
            return;
        }
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    /// The signs of the boxes are drawn here: a desktop's own may be white, for a dark ground.
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        const QColor blue(0x1f, 0x5f, 0x9e);
        switch (icon) {
            case SP_MessageBoxInformation:
                return SignOnADisc(blue, u'i');
            case SP_MessageBoxQuestion:
                return SignOnADisc(blue, u'?');
            case SP_MessageBoxWarning:
                return SignOnADisc({0xa8, 0x5a, 0x00}, u'!');
            case SP_MessageBoxCritical:
                return SignOnADisc({0xb0, 0x1c, 0x1c}, u'\u00d7');
            case SP_ToolBarHorizontalExtensionButton:  // every menu bar asks for it, at every move
                return more_;
            default:
                return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

private:
    static constexpr int kSpacerWidth = 14;
    static constexpr int kButtonWidth = 80;  ///< at least

    /// The option of a counter, for a denser display: by that the style sizes its arrows.
    std::unique_ptr<QStyleOptionSpinBox> Grown(const QStyleOptionSpinBox& counter) const {
        constexpr double kDotsPerMetre = 96 / 0.0254;  // at the size of the layout
        auto grown = std::make_unique<QStyleOptionSpinBox>(counter);
        QImage denser(1, 1, QImage::Format_RGB32);
        denser.setDotsPerMeterX(qRound(kDotsPerMetre * factor_));
        denser.setDotsPerMeterY(qRound(kDotsPerMetre * factor_));
        grown->fontMetrics = QFontMetrics(QApplication::font("QDialog"), &denser);
        return grown;
    }

    static bool IsSpacer(const QStyleOption* option) {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        return item != nullptr && item->text.isEmpty();
    }

    /// What the arrow of a list takes beyond the style's own 19 pixels.
    int ExtraWidthOfArrow() const {
        constexpr int kWidth = 19;
        return qRound(kWidth * factor_) - kWidth;
    }

    void DrawArrow(const QStyleOptionComboBox& list, QPainter& painter,
                   const QWidget* widget) const {
        const QRectF room = subControlRect(CC_ComboBox, &list, SC_ComboBoxArrow, widget);
        const double half = std::min(4 * factor_, room.height() / 4);
        const QPointF middle = room.center() + QPointF(0.5, 0.5);
        QColor color = list.palette.buttonText().color();
        constexpr int kSoft = 160;
        color.setAlpha(kSoft);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(
            QPolygonF({middle + QPointF(-half, -half / 2), middle + QPointF(half, -half / 2),
                       middle + QPointF(0, half / 2)}));
        painter.restore();
    }

    double factor_ = 1;
    /// Of a menu bar too narrow for its titles.
    QIcon more_ =
        LateIcon([this] { return QProxyStyle::standardIcon(SP_ToolBarHorizontalExtensionButton); });
};

/// The face asked for, and those that stand in for it.
QStringList FacesOf(Family family) {
    switch (family) {
        case Family::MsSansSerif:
            return {QStringLiteral("MS Sans Serif"), QStringLiteral("Microsoft Sans Serif"),
                    QStringLiteral("Liberation Sans")};
        case Family::TimesNewRoman:
            return {QStringLiteral("Times New Roman"), QStringLiteral("Liberation Serif")};
        case Family::Verdana:
            return {QStringLiteral("Verdana"), QStringLiteral("DejaVu Sans")};
        case Family::Arial:
            break;
    }
    return {QStringLiteral("Arial"), QStringLiteral("Liberation Sans")};
}

/// Those of the faces that the machine has, or all where it has none of them.
QStringList Installed(const QStringList& faces) {
    // QFontDatabase::hasFamily asks the font library about each: 6 % of the start.
    const QStringList families = QFontDatabase::families();
    QStringList installed;
    for (const QString& face : faces) {
        const QString of_a_maker = face + QStringLiteral(" [");  // where several have one
        const bool is_there = std::ranges::any_of(families, [&](const QString& family) {
            return family.compare(face, Qt::CaseInsensitive) == 0 ||
                   family.startsWith(of_a_maker, Qt::CaseInsensitive);
        });
        if (is_there) installed << face;
    }
    return installed.isEmpty() ? faces : installed;
}

/// The faces of a family, once they were looked for: for one that the machine doesn't have the
/// toolkit sorts all others by their likeness, and does so anew for each weight.
const QStringList& InstalledFacesOf(Family family) {
    static std::map<Family, QStringList> found;
    const auto [entry, is_new] = found.try_emplace(family);
    if (is_new) entry->second = Installed(FacesOf(family));
    return entry->second;
}

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

/// The application's palette with every colour as its own, which no widget's parent adds to.
const QPalette& WholePalette() {
    static const QPalette whole = [] {
        QPalette palette = QApplication::palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (int i = 0; i < QPalette::NColorRoles; ++i) {
                const auto role = static_cast<QPalette::ColorRole>(i);
                palette.setBrush(group, role, palette.brush(group, role));
            }
        }
        return palette;
    }();
    return whole;
}

constexpr int kDialogPoints = 10;

}  // namespace

void DressApplication(QApplication& application) {
    QApplication::setApplicationName(QStringLiteral("velmora"));
    QApplication::setApplicationDisplayName({});
    QApplication::setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
    QApplication::setWindowIcon(LateIcon([] { return Drawing(QStringLiteral("velmora")).Icon(); }));
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setStyle(new Style);  // NOLINT(cppcoreguidelines-owning-memory): taken over
    QApplication::setPalette(LightPalette());
    AddTypefaces();
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), kDialogPoints));
    // No theme is called so: the toolkit's own icons are shown, since a desktop's may be white ones
    // for a dark ground.
    QIcon::setThemeName(QStringLiteral("velmora"));
    QIcon::setFallbackThemeName(QStringLiteral("velmora"));

    // The file dialog would keep its history in the user's configuration folder.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));

    SpeakSpanish(application);
}

void GrowDialogs(double pixels_per_twip) {
    constexpr double kTwipsPerPixel = 15;  // at the size of the layout
    static_cast<Style*>(QApplication::style())->SetFactor(pixels_per_twip * kTwipsPerPixel);
    const QFont font = FontOf({.points = kDialogPoints}, pixels_per_twip);
    for (const char* const kind : {"QDialog", "QMenu", "QTipLabel"}) {
        if (QApplication::font(kind) != font) QApplication::setFont(font, kind);
    }
}

QColor ToQt(Color color) {
    if (color == kWindowBackground) return Qt::white;
    if (color == kWindowText) return {0x14, 0x1e, 0x2d};
    if (color == Look::kTransparent) return Qt::transparent;
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

QFont FontOf(const Look& look, double pixels_per_twip) {
    constexpr double kTwipsPerPoint = 20;
    constexpr double kRoundingSlack = 0.01;
    QFont font;
    font.setFamilies(InstalledFacesOf(look.family));
    font.setStyleHint(look.family == Family::TimesNewRoman ? QFont::Serif : QFont::SansSerif);
    font.setBold(look.bold);
    const double pixels = look.points * kTwipsPerPoint * pixels_per_twip;
    font.setPixelSize(std::max(1, static_cast<int>(std::floor(pixels + kRoundingSlack))));
    return font;
}

void SharePalette(QWidget& widget) { widget.setPalette(WholePalette()); }

void Paint(QWidget& widget, Color fore, Color back) {
    // Made once for each pair: widgets share the data of palettes that are the same one.
    static std::map<std::pair<Color, Color>, QPalette> made;
    const auto [entry, is_new] = made.try_emplace({fore, back}, WholePalette());
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
