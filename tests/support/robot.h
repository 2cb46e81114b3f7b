#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "qt/window.h"

class QPrintDialog;

namespace velmora {

/// Drives the window as a person does, with mouse and key events that take the road of real ones:
/// through the native window, past whatever lies on top, blocked by an open box.
///
/// Controls and menu entries go by their names, "Text1(5)" or "calculos". Texts are UTF-8. An
/// action throws std::runtime_error when its control is missing, hidden or covered, when a box
/// opens that wasn't expected, and when an expected one doesn't open or differs. Boxes are modal:
/// say with `Expect...` what an action will open, in order, before it; each is answered inside the
/// action. The window must be shown; no event loop needs to run.
class Robot {
public:
    explicit Robot(Window& window);

    // Actions.

    void Press(std::string_view button);
    /// Opens the list of a title of the menu bar and clicks one of its entries.
    void Choose(std::string_view title, std::string_view entry);
    /// Presses a title without a list, or one that moves at once.
    void Choose(std::string_view title);
    /// Clicks into the cell, then types at the end of its text, key by key, refused keys included.
    void Type(std::string_view cell, std::string_view text);
    /// The same, after wiping what the cell holds: all selected, then the backspace key.
    void Retype(std::string_view cell, std::string_view text);
    /// Types key by key into whatever has the focus.
    void Type(std::string_view text);
    /// Sends one key to the cell or list; clicks into it first unless it has the focus.
    void Key(std::string_view control, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Sends one key to whatever has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void Click(std::string_view control);
    void DoubleClick(std::string_view cell);
    /// Opens the list and clicks the item that reads so.
    void Pick(std::string_view list, std::string_view item);
    /// Closes the window by its frame.
    void CloseWindow();
    /// Runs any other action under the watch for boxes; `what` tells it in faults.
    void Act(std::string_view what, const std::function<void()>& action);

    // What the next action opens, in order.

    enum class By { Click, Enter, Escape, Close };

    struct Box {
        std::string text;  ///< CR LF or LF between lines
        QMessageBox::StandardButton answer = QMessageBox::Ok;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons = QMessageBox::Ok;
        QMessageBox::StandardButton preset = QMessageBox::Ok;
        std::string title = "Velmora";
        By by = By::Click;  ///< `answer` counts for a click alone
    };
    void ExpectBox(const Box& box);

    /// The file dialog: types the name and accepts, or cancels.
    void ExpectFileDialog(const std::optional<std::string>& name,
                          const std::string& title = " Guardar datos");
    /// A question of the toolkit's over the file dialog, which holds this text.
    void ExpectPrompt(const std::string& part, QMessageBox::StandardButton answer);

    enum class Print { Accept, Cancel };
    /// `look` sees the dialog before it is answered.
    void ExpectPrintDialog(Print answer, const std::function<void(QPrintDialog&)>& look = nullptr);

    /// Sees each box and dialog before it is answered.
    std::function<void(QDialog&)> on_modal;

    // What is seen.

    std::string Text(std::string_view control) const;
    bool Visible(std::string_view control) const;
    bool Enabled(std::string_view control) const;
    bool Locked(std::string_view control) const;
    std::vector<std::string> Items(std::string_view list) const;
    std::string WindowCaption() const;
    std::string ScreenName() const;
    /// Name of the control that has the focus, empty for none.
    std::string Focused() const;
    /// The control's widget, shown or hidden; throws when there is none of this kind.
    template <class Widget = QWidget>
    Widget& Find(std::string_view name) const;

    /// The window with what stands open over it.
    QPixmap Picture() const;
    /// Writes `Picture()` as PNG; throws when it can't.
    void Snapshot(const std::string& file_name) const;

    /// Milliseconds between actions, for an audience; 0 for none.
    int pace = 0;

private:
    /// Answers a box or dialog when it is of the kind expected; false when it isn't.
    using Answer = std::function<bool(QDialog&)>;
    struct Expected {
        std::string what;
        Answer answer;
    };

    QWidget* FindWidget(std::string_view name) const;
    QWidget& FindToClick(std::string_view name) const;
    QAction& FindTitle(std::string_view name) const;
    void FocusByClick(QWidget& widget);
    void SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    int KeyPause() const { return pace / 20; }
    /// Opens a list and clicks one of its lines. A desktop that takes the focus away for a
    /// moment, as one without a window manager does, closes the list: it is opened again.
    void ClickInList(const std::function<void()>& press, const QWidget& list,
                     const std::function<QPoint()>& line);
    void Watch();
    void AnswerModal(QDialog& modal);
    void Fault(const std::string& fault) { faults_.push_back(fault); }
    void Compare(std::string_view what, const std::string& seen, const std::string& expected);
    void ClickButton(QAbstractButton* button);
    void Wait(int milliseconds);

    Window& window_;
    QTimer watch_;
    std::vector<QPointer<QDialog>> answering_;  ///< being answered, the topmost last
    bool deactivated_ = false;                  ///< the desktop has taken the focus away
    std::deque<Expected> expected_;
    std::vector<std::string> faults_;
};

template <class Widget>
Widget& Robot::Find(std::string_view name) const {
    auto* const widget = qobject_cast<Widget*>(FindWidget(name));
    if (widget == nullptr) throw std::runtime_error("no such control: " + std::string(name));
    return *widget;
}

/// The box that a style of the logic stands for.
Robot::Box BoxOf(std::string text, MsgBoxStyle style,
                 QMessageBox::StandardButton answer = QMessageBox::Ok,
                 std::string title = "Velmora");

}  // namespace velmora
