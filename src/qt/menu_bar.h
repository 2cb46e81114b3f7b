#pragma once

#include <QMenuBar>
#include <QPointer>

#include <functional>
#include <vector>

#include "forms/screen.h"

namespace velmora {

/// The menu bar of a screen, made from its table. An entry that has both a handler and a list runs
/// its handler on a press of the mouse, and on its activation from outside; its list is reached by
/// the keyboard alone.
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    using Run = std::function<void(const std::function<void()>&)>;

    /// `run` runs a handler, for as long as `bonds` lives; the entries must outlive `bonds`.
    MenuBar(const std::vector<MenuEntry>& entries, const Run& run, const QObject& bonds,
            QWidget* parent);

    /// Sets the font of the bar and of its lists.
    void SetFont(const QFont& font);

    /// Gives the bar the keyboard, on its first title, as Alt alone does. Escape gives it back to
    /// what had it, also from an open list.
    void TakeKeyboard();

    /// Whether the entry is a title that runs a handler of its own at a press.
    bool MovesAtOnce(const QAction& entry) const;

    /// Closes the open list and runs the entry's handler, after what is being done now.
    void Press(QAction& entry);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool StandsOnSpacer() const;

    QPointer<QWidget> before_;             ///< had the keyboard before the bar
    std::vector<QAction*> moves_at_once_;  ///< titles with a handler of their own
};

}  // namespace velmora
