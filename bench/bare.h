#pragma once

#include <QMainWindow>

#include <memory>
#include <vector>

#include "forms/screen.h"

namespace velmora::bench {

/// A plain window of the toolkit with as many plain widgets as a screen has controls, of the same
/// kinds, at the same places and with the same texts: what showing a screen is measured against.
class BareWindow : public QMainWindow {
    Q_OBJECT

public:
    BareWindow();

    /// Throws its widgets and its menu away and makes those of the screen.
    void Show(const Screen& screen);

    /// Gives the widget of this control, by its place among the screen's, what the control shows.
    void SetText(std::size_t control, const Control::State& state);

private:
    std::vector<QWidget*> widgets_;
};

}  // namespace velmora::bench
