#include "qt/canvas.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "qt/appearance.h"

namespace velmora {

namespace {

/// The client area, grown where a control reaches beyond it to the right or below.
Box AreaOf(const Screen& screen) {
    Box area = screen.ClientArea();
    for (const Control& control : screen.Controls()) {
        const Box& box = control.row.box;
        area.width = std::max(area.width, box.left + box.width);
        area.height = std::max(area.height, box.top + box.height);
    }
    return area;
}

/// Top of the band behind a white clock; 0 where the clock is dark.
int FootOf(const Screen& screen) {
    constexpr int kMargin = 45;
    constexpr Color kWhite = 0xFFFFFF;
    for (const Control& control : screen.Controls()) {
        const auto* const label = std::get_if<Label*>(&control.state);
        if (label == nullptr || *label != &screen.Clock()) continue;
        return control.row.look.fore == kWhite ? control.row.box.top - kMargin : 0;
    }
    return 0;
}

}  // namespace

Canvas::Canvas(const Screen& screen, QWidget* parent)
    : QWidget(parent), area_(AreaOf(screen)), foot_(FootOf(screen)) {
    setMinimumSize(320, 240);
}

void Canvas::Place(QWidget& widget, const Row& row) {
    placed_.push_back({&widget, row});
    if (scale_ > 0) LayOut(placed_.back());
}

QRect Canvas::ToPixels(const Box& box) const {
    const auto x = [&](int twips) { return qRound(origin_.x() + twips * scale_); };
    const auto y = [&](int twips) { return qRound(origin_.y() + twips * scale_); };
    return {QPoint(x(box.left), y(box.top)),
            QPoint(x(box.left + box.width) - 1, y(box.top + box.height) - 1)};
}

QRect Canvas::ScreenRect() const { return ToPixels(area_); }

void Canvas::LayOut(const Placed& placed) const {
    placed.widget->setGeometry(ToPixels(placed.row.box));
    placed.widget->setFont(FontOf(placed.row.look, scale_));
}

void Canvas::resizeEvent(QResizeEvent* /*event*/) {
    scale_ = std::min(static_cast<double>(width()) / area_.width,
                      static_cast<double>(height()) / area_.height);
    origin_ = {(width() - area_.width * scale_) / 2, (height() - area_.height * scale_) / 2};
    for (const Placed& placed : placed_) LayOut(placed);
}

void Canvas::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, QColor(0xf4, 0xf8, 0xfb));
    sky.setColorAt(1, QColor(0xcf, 0xdd, 0xe9));
    painter.fillRect(rect(), sky);
    if (foot_ == 0) return;
    const int top = qRound(origin_.y() + foot_ * scale_);
    painter.fillRect(QRect(0, top, width(), height() - top), QColor(0x16, 0x2c, 0x47));
}

}  // namespace velmora
