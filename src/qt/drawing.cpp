#include "qt/drawing.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmapCache>

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

QPixmap Drawing::Rendered(const QSize& size) const {
    // Kept beyond this drawing's life: a screen is made anew at every move.
    const QString key = QStringLiteral("%1 %2x%3").arg(name_).arg(size.width()).arg(size.height());
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = QPixmap(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    Render(painter, picture.rect());
    QPixmapCache::insert(key, picture);
    return picture;
}

}  // namespace velmora
