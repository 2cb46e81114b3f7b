#include "qt/splash.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace velmora {

void Splash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = width();
    const double h = height();
    QLinearGradient ground(0, 0, w, h);
    ground.setColorAt(0, QColor(0x12, 0x2b, 0x49));
    ground.setColorAt(1, QColor(0x1f, 0x6a, 0x8c));
    painter.fillRect(rect(), ground);

    const double base = 0.86 * h;
    painter.setPen(QPen(QColor(255, 255, 255, 40), 1));
    for (int i = 1; i < 10; ++i)
        painter.drawLine(QPointF(i * w / 10, 0.08 * h), QPointF(i * w / 10, base));

    // Density of a log-normal distribution with a geometric deviation of 1.8, over 0 to 4 medians.
    const double sigma = std::log(1.8);
    const auto density = [&](double x) {
        return std::exp(-std::pow(std::log(x) / sigma, 2) / 2) / x;
    };
    QPainterPath curve(QPointF(0, base));
    constexpr int kSteps = 240;
    for (int i = 1; i <= kSteps; ++i) {
        const double x = 4.0 * i / kSteps;
        curve.lineTo(w * i / kSteps, base - 0.6 * h * density(x));
    }
    QPainterPath area = curve;
    area.lineTo(w, base);
    area.closeSubpath();
    painter.fillPath(area, QColor(0x7f, 0xd1, 0xc7, 90));
    painter.setPen(QPen(QColor(0xa8, 0xec, 0xe2), h / 100));
    painter.drawPath(curve);

    const double limit = 0.62 * w;
    painter.setPen(QPen(QColor(0xff, 0xc8, 0x57), h / 120, Qt::DashLine));
    painter.drawLine(QPointF(limit, 0.12 * h), QPointF(limit, base));
    painter.setPen(QPen(Qt::white, h / 150));
    painter.drawLine(QPointF(0.04 * w, base), QPointF(0.96 * w, base));
}

}  // namespace velmora
