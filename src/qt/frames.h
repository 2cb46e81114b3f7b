#pragma once

#include <QFocusFrame>

namespace velmora {

/// The frames of a screen, drawn above all its controls: round the one that has the focus, round
/// cells that are marked, and for a moment round one that has refused a key. No control is raised
/// for its frame, so that overlapping rows stay as they were laid out. It lets the mouse through,
/// and is of the one kind of widget that screen readers aren't told of.
class Frames : public QFocusFrame {
    Q_OBJECT

public:
    /// Lies over the whole parent, above all its other children.
    explicit Frames(QWidget* parent);

    /// Lays the frames out anew over a parent of a new size.
    void Resize(double pixels_per_twip);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Draw(QPainter& painter, const QRect& place, const QColor& color) const;

    int thickness_ = 2;  ///< in pixels
};

}  // namespace velmora
