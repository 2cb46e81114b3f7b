#include "qt/drawing.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

namespace velmora {

Drawing::Drawing(const QString& name) {
    if (!name.isEmpty()) drawing_.load(QStringLiteral(":/velmora/%1.svg").arg(name));
}

void Drawing::Draw(QPainter& painter, const QRect& target) {
    if (!IsValid() || target.isEmpty()) return;
    if (painter.paintEngine()->type() != QPaintEngine::Raster) {
        drawing_.render(&painter, target);
        return;
    }
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize size = target.size() * ratio;
    if (cache_.size() != size) {
        cache_ = QPixmap(size);
        cache_.fill(Qt::transparent);
        QPainter on_cache(&cache_);
        drawing_.render(&on_cache);
    }
    painter.drawPixmap(target, cache_);
}

}  // namespace velmora
