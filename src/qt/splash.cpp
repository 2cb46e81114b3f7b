#include "qt/splash.h"

#include <QPainter>

namespace velmora {

void Splash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawing_.Render(painter, rect());  // seldom painted: a picture to keep would be 0.7 MB
}

}  // namespace velmora
