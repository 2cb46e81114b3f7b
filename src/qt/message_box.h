#pragma once

#include <QMessageBox>

namespace velmora {

/// A message box that shows each line of its text on one line, where the display is wide enough.
class MessageBox : public QMessageBox {
    Q_OBJECT

public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Gives whether the display is wide enough.
    bool KeepLines();
};

}  // namespace velmora
