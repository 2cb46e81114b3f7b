#include "qt/canvas.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "qt/appearance.h"
#include "qt/text.h"

namespace velmora {

namespace {

constexpr QRgb kTop = 0xfff7fafd;   ///< of the backgrounds
constexpr QRgb kFoot = 0xff162c47;  ///< of the backgrounds, behind the white clock
constexpr QRgb kBottomOfFirst = 0xffcfdde9;

}  // namespace

Canvas::Canvas(const Screen& screen, const QSize& size, QWidget* parent)
    : QWidget(parent), background_(ToQt(screen.Background())), frames_(new Frames(this)) {
    setMinimumSize(320, 240);
    if (size.isEmpty()) return;
    resize(size);
    Measure();
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

QRect Canvas::ScreenRect() const { return ToPixels(kRoomOfAScreen); }

void Canvas::Measure() {
    constexpr Box kRoom = kRoomOfAScreen;
    measured_ = size();
    scale_ = std::min(static_cast<double>(width()) / kRoom.width,
                      static_cast<double>(height()) / kRoom.height);
    origin_ = {(width() - kRoom.width * scale_) / 2, (height() - kRoom.height * scale_) / 2};
    fonts_.clear();
    setFont(FontFor({}));  // that of most widgets, which have it from here
}

void Canvas::LayOut(const Placed& placed) {
    placed.widget->setGeometry(ToPixels(placed.row.box));
    const QFont& font = FontFor(placed.row.look);
    if (placed.widget->font() != font) placed.widget->setFont(font);
}

const QFont& Canvas::FontFor(const Look& look) {
    const auto [entry, is_new] = fonts_.try_emplace({look.family, look.points, look.bold});
    if (is_new) entry->second = FontOf(look, scale_);
    return entry->second;
}

void Canvas::resizeEvent(QResizeEvent* /*event*/) {
    if (measured_ != size()) {
        Measure();
        for (const Placed& placed : placed_) LayOut(placed);
    }
    frames_->Resize(scale_);
}

void Canvas::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (background_.IsEmpty()) {
        QLinearGradient sky(0, 0, 0, height());
        sky.setColorAt(0, QColor(kTop));
        sky.setColorAt(1, QColor(kBottomOfFirst));
        painter.fillRect(rect(), sky);
        return;
    }
    // The drawing goes from edge to edge; where the window is too tall for it, its ends go on.
    const QRect screen = ScreenRect();
    painter.fillRect(0, 0, width(), screen.top(), QColor(kTop));
    painter.fillRect(0, screen.bottom(), width(), height() - screen.bottom(), QColor(kFoot));
    background_.Draw(painter, QRect(0, screen.top(), width(), screen.height()));
}

}  // namespace velmora
