#pragma once

#include <QWidget>

namespace velmora {

/// The picture of the first screen: a log-normal distribution of concentrations and its limit.
class Splash : public QWidget {
    Q_OBJECT

public:
    explicit Splash(QWidget* parent) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
