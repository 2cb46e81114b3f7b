#pragma once

#include <QComboBox>

#include "forms/screen.h"

namespace velmora {

class TextLine;

/// A list on the window. It changes only by a pick from its items, and can show a text that isn't
/// among them. It takes no typing by any road, and no pick while it is locked.
class ListBox : public QComboBox {
    Q_OBJECT
    Q_PROPERTY(bool Locked READ IsLocked)

public:
    ListBox(const QStringList& items, QWidget* parent);

    /// Sets what the list shows.
    void Show(const QString& text);
    void SetLocked(bool locked) { locked_ = locked; }
    bool IsLocked() const { return locked_; }

    /// Where the list shows its text.
    TextLine& Line() const;

    /// Picks an item, from 0, as the mouse does in the open list; after what is being done now.
    void PickFromOutside(int item);

    void showPopup() override;

Q_SIGNALS:
    /// A character key; the list takes none of them.
    void KeyPressed(KeyCode key);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString shown_;  ///< the text that the list was last told to show
    bool locked_ = false;
};

}  // namespace velmora
