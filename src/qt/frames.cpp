#include "qt/frames.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

#include "qt/cell_edit.h"

namespace velmora {

Frames::Frames(QWidget* parent) : QFocusFrame(parent) {}

void Frames::Resize(double pixels_per_twip) {
    constexpr int kThickness = 30;  // twips
    thickness_ = std::max(2, qRound(kThickness * pixels_per_twip));
    setGeometry(parentWidget()->rect());
    raise();
}

void Frames::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QWidget* const focused = QApplication::focusWidget();
    if (focused != nullptr && focused->parentWidget() == parentWidget()) {
        Draw(painter, focused->geometry(), palette().color(QPalette::Highlight));
    }
    for (const QObject* child : parentWidget()->children()) {
        const auto* const cell = qobject_cast<const CellEdit*>(child);
        if (cell == nullptr || cell->isHidden()) continue;
        if (!cell->geometry().intersects(event->rect())) continue;
        const QColor color = cell->FrameColor();
        if (color.isValid()) Draw(painter, cell->geometry(), color);
    }
}

void Frames::Draw(QPainter& painter, const QRect& place, const QColor& color) const {
    const double half = thickness_ / 2.0;
    painter.setPen(QPen(color, thickness_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(place).adjusted(half, half, -half, -half));
}

}  // namespace velmora
