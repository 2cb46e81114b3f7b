#include "qt/text_line.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace velmora {

namespace {

constexpr int kMargin = 2;           // pixels: the line edit's own, left and right
constexpr int kMostThatFits = 2000;  // characters; a file may bring a million

}  // namespace

TextLine::TextLine(QWidget* parent) : QLineEdit(parent) { setFrame(false); }

bool TextLine::IsTooNarrow() const {
    return fontMetrics().horizontalAdvance(text().left(kMostThatFits)) > width() - 2 * kMargin;
}

QString TextLine::TipText() const {
    constexpr int kLongest = 160;
    const QString whole = text();
    return whole.size() <= kLongest ? whole : whole.left(kLongest) + QStringLiteral("…");
}

bool TextLine::TellWhole(const QHelpEvent& event, const QString& tool_tip) {
    if (!IsTooNarrow()) return false;
    QStringList told(TipText());
    if (!tool_tip.isEmpty()) told << tool_tip;
    QToolTip::showText(event.globalPos(), told.join(u'\n'), this);
    return true;
}

void TextLine::PaintCut(QPainter& painter) const {
    const QFontMetrics metrics = fontMetrics();
    const QString seen =
        metrics.elidedText(text().left(kMostThatFits), Qt::ElideRight, width() - 2 * kMargin);
    const bool selected = hasSelectedText();
    const QPalette& colors = palette();
    painter.fillRect(rect().adjusted(kMargin + 1, 0, 0, 0),
                     colors.color(selected ? QPalette::Highlight : QPalette::Base));
    painter.setFont(font());
    painter.setPen(colors.color(selected ? QPalette::HighlightedText : QPalette::Text));
    // As the line edit places its own letters.
    const int top = (height() - metrics.height() + 1) / 2;
    painter.drawText(kMargin, top + metrics.ascent(), seen);
}

void TextLine::SelectTowardsTheBeginning() {
    const int size = static_cast<int>(text().size());
    if (hasSelectedText()) setSelection(size, -size);
}

}  // namespace velmora
