#pragma once

#include <QWidget>

#include "qt/drawing.h"

namespace velmora {

/// The picture of the first screen: a log-normal distribution of concentrations and its limit.
class Splash : public QWidget {
    Q_OBJECT

public:
    explicit Splash(QWidget* parent) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing drawing_{QStringLiteral("splash")};
};

}  // namespace velmora
