#pragma once

#include <QPixmap>
#include <QString>
#include <QSvgRenderer>

class QPainter;

namespace velmora {

/// A drawing of the program's own, sharp at every size: on the screen from a pixmap of the size
/// last asked for, on paper as lines.
class Drawing {
public:
    /// `name` is that of a drawing in assets, without its extension; a name that isn't there, or an
    /// empty one, draws nothing.
    explicit Drawing(const QString& name);

    bool IsValid() const { return drawing_.isValid(); }
    void Draw(QPainter& painter, const QRect& target);

private:
    QSvgRenderer drawing_;
    QPixmap cache_;
};

}  // namespace velmora
