#include <QPaintDevice>
#include <QPainter>
#include <QPicture>

#include "qt/drawing.h"

namespace velmora {

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

}  // namespace velmora
