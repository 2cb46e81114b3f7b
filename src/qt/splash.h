#pragma once

#include <QWidget>

#include <utility>

#include "qt/drawing.h"

namespace velmora {

/// A picture among the controls of a screen.
class Splash : public QWidget {
    Q_OBJECT

public:
    Splash(QString drawing, QWidget* parent) : QWidget(parent), drawing_(std::move(drawing)) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing drawing_;
};

}  // namespace velmora
