#include "qt/splash.h"

#include <QPainter>

namespace velmora {

void Splash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawing_.Draw(painter, rect());
}

}  // namespace velmora
