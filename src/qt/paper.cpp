#include "qt/paper.h"

#include <QFont>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QTextOption>

#include <algorithm>
#include <utility>

#include "qt/text.h"

namespace velmora {

namespace {

constexpr double kPointsPerInch = 72;
constexpr double kEdge = 12;      // points that are left white where the printer could print
constexpr double kLetters = 6.5;  // points
constexpr double kGap = 1.5;      // points between texts and image
constexpr double kMostOfPage = 0.2;
constexpr int kLongest = 400;  // characters of a text

/// A page in the painter's own units: the corner of its page rectangle is at 0, 0.
struct Page {
    QRectF rectangle;
    double top;     ///< where printing may begin
    double bottom;  ///< where it must end
    double point;   ///< how many units a point is
};

Page PageOf(const QPrinter& printer) {
    const double point = printer.resolution() / kPointsPerInch;
    QPageLayout layout = printer.pageLayout();
    layout.setUnits(QPageLayout::Point);
    const QMarginsF margins = layout.margins();
    const QMarginsF least = layout.minimumMargins();
    const QRectF rectangle(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    const auto white = [](double margin, double unprintable) {
        return std::min(margin, std::max(kEdge, unprintable));
    };
    return {
        rectangle, (white(margins.top(), least.top()) - margins.top()) * point,
        rectangle.height() + (margins.bottom() - white(margins.bottom(), least.bottom())) * point,
        point};
}

QFont FontFor(const Page& page) {
    QFont font({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    font.setPixelSize(qRound(kLetters * page.point));
    return font;
}

/// The largest rectangle of this shape, width by height, in the middle of the room.
QRectF Fitted(const QRectF& room, double shape) {
    const double width = std::min(room.width(), room.height() * shape);
    const QSizeF size(width, width / shape);
    return {room.center() - QPointF(size.width() / 2, size.height() / 2), size};
}

/// No more of a text than the page bears, whatever a file brought.
QString Bounded(const QString& text) {
    if (text.size() <= kLongest) return text;
    return QStringLiteral("%1… (%2 caracteres)")
        .arg(text.left(kLongest), QLocale::c().toString(text.size()));
}

/// Lines are broken between words: a figure stands on one line.
QTextOption Wrapped() {
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

double HeightOf(QPainter& painter, const QRectF& room, const QString& notes) {
    return painter.boundingRect(room, notes, Wrapped()).height();
}

QString HeadOf(const QString& name, const QString& text) {
    return text.isEmpty() ? QString() : name + text;
}

/// A line with a text on the left, cut by "…" where it would come near the one on the right.
/// Gives whether it was cut.
bool PaintLine(QPainter& painter, const QRectF& line, const QString& left, const QString& right) {
    const QFontMetricsF metrics(painter.font());
    const double taken = metrics.horizontalAdvance(right) + 3 * metrics.averageCharWidth();
    const QString shown =
        metrics.elidedText(left.left(kLongest), Qt::ElideRight, line.width() - taken);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, shown);
    painter.drawText(line, Qt::AlignRight | Qt::AlignTop | Qt::TextSingleLine, right);
    return shown != left;
}

/// The texts one after the other, as many as a fifth of the page holds, and how many are left out.
QString NotesOf(const std::vector<QString>& texts, QPainter& painter, const Page& page) {
    const QRectF room(0, 0, page.rectangle.width(), page.rectangle.height() * kMostOfPage);
    QString notes;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QString more =
            (i == 0 ? QStringLiteral("Textos completos: ") : notes + QStringLiteral(";  ")) +
            Bounded(texts[i]);
        QString counted =
            notes + QStringLiteral(";  … y %1 más que no caben").arg(texts.size() - i);
        if (HeightOf(painter, room, more + counted.right(40)) > room.height()) return counted;
        notes = more;
    }
    return notes;
}

}  // namespace

QString TitleOf(const Imprint& imprint) {
    constexpr int kLongestTitle = 120;
    QString title = imprint.caption;
    if (!imprint.company.isEmpty()) title += QStringLiteral(" - ") + imprint.company;
    if (title.size() <= kLongestTitle) return title;
    return title.left(kLongestTitle) + QChar(u'…');
}

QRectF PaintImprint(QPainter& painter, const QPrinter& printer, const Imprint& imprint,
                    double shape_of_image) {
    const Page page = PageOf(printer);
    painter.save();
    painter.setFont(FontFor(page));
    painter.setPen(Qt::black);
    const QFontMetricsF metrics(painter.font());
    const double width = page.rectangle.width();
    const double line = metrics.height();
    const double gap = kGap * page.point;

    std::vector<QString> cut = imprint.cut;
    const QString company = HeadOf(QStringLiteral("Empresa: "), imprint.company);
    const QString code = HeadOf(QStringLiteral("Código de evaluación: "), imprint.code);
    const QString source = imprint.program + QStringLiteral("    ") + imprint.time;
    const QRectF first(0, page.top, width, line);
    if (PaintLine(painter, first.translated(0, line), code, source)) cut.insert(cut.begin(), code);
    if (PaintLine(painter, first, company, imprint.caption)) cut.insert(cut.begin(), company);

    const QString notes = NotesOf(cut, painter, page);
    const double high = HeightOf(painter, page.rectangle, notes);
    QRectF room = page.rectangle;
    room.setTop(std::max(room.top(), first.top() + 2 * line + gap));
    room.setBottom(std::min(room.bottom(), page.bottom - high - gap));
    QRectF image = Fitted(page.rectangle, shape_of_image);
    if (!room.contains(image)) image = Fitted(room, shape_of_image);
    painter.drawText(QRectF(0, image.bottom() + gap, width, high), notes, Wrapped());
    painter.restore();
    return image;
}

}  // namespace velmora
