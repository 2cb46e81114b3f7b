#include <QPainter>
#include <QSvgRenderer>

#include "qt/drawing.h"

namespace velmora {

void Drawing::Render(QPainter& painter, const QRectF& target) const {
    QSvgRenderer(QStringLiteral(":/velmora/%1.svg").arg(name_)).render(&painter, target);
}

}  // namespace velmora
