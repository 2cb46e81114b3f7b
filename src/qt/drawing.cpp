#include "qt/drawing.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPicture>
#include <QPixmapCache>

#include <utility>

namespace velmora {

void Drawing::Draw(QPainter& painter, const QRect& target) {
    if (IsEmpty() || target.isEmpty()) return;
    if (painter.paintEngine()->type() != QPaintEngine::Raster) {
        Render(painter, target);
        return;
    }
    const QSize size = target.size() * painter.device()->devicePixelRatioF();
    if (picture_.size() != size) picture_ = Rendered(size);
    painter.drawPixmap(target, picture_);
}

QIcon Drawing::Icon() const {
    QIcon icon;
    for (const int edge : {16, 24, 32, 48, 64, 128}) icon.addPixmap(Rendered(QSize(edge, edge)));
    return icon;
}

void Drawing::Render(QPainter& painter, const QRectF& target) const {
    QPicture recorded;
    if (!recorded.load(QStringLiteral(":/velmora/%1.pic").arg(name_))) return;
    const QSizeF size = recorded.boundingRect().size();
    const QPaintDevice& device = *painter.device();  // for a finer one the player would enlarge
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / size.width() * recorded.logicalDpiX() / device.logicalDpiX(),
                  target.height() / size.height() * recorded.logicalDpiY() / device.logicalDpiY());
    recorded.play(&painter);
    painter.restore();
}

QPixmap Drawing::Rendered(const QSize& size) const {
    // Kept beyond this drawing's life: a screen is made anew at every move.
    const QString key = QStringLiteral("%1 %2x%3").arg(name_).arg(size.width()).arg(size.height());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    QImage drawn(size, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    Render(painter, drawn.rect());
    painter.end();
    picture = QPixmap::fromImage(std::move(drawn));  // opaque where no pixel lets anything through
    QPixmapCache::insert(key, picture);
    return picture;
}

}  // namespace velmora
