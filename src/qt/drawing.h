#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

#include <utility>

class QPainter;

namespace velmora {

/// A drawing of the program's own, sharp at every size: on the screen from a pixmap of the size
/// last asked for, on paper as lines.
class Drawing {
public:
    /// `name` is that of a drawing in assets, without its extension; an empty one draws nothing.
    explicit Drawing(QString name) : name_(std::move(name)) {}

    bool IsEmpty() const { return name_.isEmpty(); }
    void Draw(QPainter& painter, const QRect& target);
    /// Draws it as lines and areas, whatever is painted on; keeps nothing.
    void Render(QPainter& painter, const QRectF& target) const;
    /// It as an icon, in the sizes that window systems ask for.
    QIcon Icon() const;

private:
    QPixmap Rendered(const QSize& size) const;

    QString name_;
    QPixmap picture_;
};

}  // namespace velmora
