#pragma once

#include <QFont>
#include <QWidget>

#include <map>
#include <tuple>
#include <vector>

#include "forms/screen.h"
#include "qt/drawing.h"
#include "qt/frames.h"

namespace velmora {

/// The area below the menu bar: it holds the widgets of one screen and lays them out, all by one
/// factor, the same one for each screen, so that the screen fills the window at every size.
class Canvas : public QWidget {
    Q_OBJECT

public:
    /// Widgets are placed at once where its size is known already, else when it gets one.
    Canvas(const Screen& screen, const QSize& size, QWidget* parent);

    /// Takes a widget in, to stand where its row tells.
    void Place(QWidget& widget, const Row& row);

    /// The screen's room in pixels.
    QRect ScreenRect() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Placed {
        QWidget* widget;
        Row row;
    };

    void Measure();
    void LayOut(const Placed& placed);
    const QFont& FontFor(const Look& look);
    QRect ToPixels(const Box& box) const;

    Drawing background_;
    Frames* frames_;
    std::vector<Placed> placed_;
    std::map<std::tuple<Family, double, bool>, QFont> fonts_;  ///< at the present scale, by look
    QSize measured_;                                           ///< the size that the rest is for
    double scale_ = 0;
    QPointF origin_;
};

}  // namespace velmora
