#pragma once

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

#include "core/chain.h"
#include "forms/host.h"
#include "forms/screen.h"

class QPainter;

namespace velmora {

class Canvas;
class CellSignals;
class MenuBar;

/// What the window asks of the host beyond what the logic asks.
class WindowHost : public Host {
public:
    /// Shows the message of a run-time error.
    virtual void ShowError(std::string_view message) = 0;
    /// Shows the user the guide at the heading of this name.
    virtual void OpenGuide(std::string_view section) = 0;
    /// The toolkit's sound for what it doesn't take.
    virtual void Beep() = 0;
};

/// How large the window is at its start.
struct FirstSize {
    QSize size;      ///< where it isn't maximized
    bool maximized;  ///< or the small letters of the screens could hardly be read
};

/// About 70 % of the room that a display leaves to windows, in the shape of the screens; maximized
/// where that is less than 1.2 times their layout.
FirstSize FirstSizeOn(const QSize& room);

/// The one window. It shows any screen: it builds the widgets from the screen's table, runs the
/// screen's handlers, and after each shows what they changed. A move keeps the frame, its place,
/// size and state; its content is destroyed and built anew.
class Window : public QMainWindow {
    Q_OBJECT

public:
    Window(ScreenChain& chain, WindowHost& host);
    ~Window() override;

    /// Shows the window for the first time, as large as `FirstSizeOn` tells.
    void Start();

    /// Runs a handler in the one guard of the program, in which the clock ticks, too: a run-time
    /// error shows its message and ends the process with status 1. Then shows what changed.
    /// Handlers don't nest.
    void Run(const std::function<void()>& handler);

    /// Touches the widgets whose control differs from what they show, and no others.
    void ShowChanges();

    /// Paints the screen's image, fitted into the rectangle.
    void PaintScreen(QPainter& painter, const QRectF& target);

    /// The texts of cells and lists that are too narrow to show them whole, each after its name.
    std::vector<QString> CutTexts() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Shown;

    /// The one guard: tells whether the handler ran to its end. If not, the process is over.
    bool Guard(const std::function<void()>& handler);
    void EndWith(std::string_view message);
    void BuildScreen();
    void AddWidget(const Control& control);
    void BuildMenu();
    void ScaleMenu();
    QWidget* MakeWidget(Shown& shown);
    void ListenToCells();
    QWidget* MakeCell(const Control& control);
    QWidget* MakeList(Shown& shown);
    void SetTabOrder();
    void FocusFirst();
    void FocusNewestButton();
    void FocusRow(int step);
    void CopyTable() const;
    void ShowChange(Shown& shown);
    Shown& ShownBy(const QWidget& widget);
    void Tick();
    void Filter(const Control& control, KeyCode key, bool& passes);

    /// Ties a widget's signal to the screen that is shown, until it is left.
    template <class Sender, class Signal, class Slot>
    void Bind(const Sender& sender, Signal signal, Slot slot) {
        connect(&sender, signal, bonds_.get(), std::move(slot));
    }

    ScreenChain& chain_;
    WindowHost& host_;
    Screen* screen_ = nullptr;  ///< the one that is shown
    /// Every road from a widget to the screen that is shown is a connection to this: all are cut at
    /// once when the screen is left, while its widgets, inside an event perhaps, live a little on.
    std::unique_ptr<QObject> bonds_;
    Canvas* canvas_ = nullptr;
    CellSignals* cells_ = nullptr;
    MenuBar* menu_ = nullptr;
    std::vector<Shown> shown_;
    Shown* clock_ = nullptr;
    QTimer timer_;
    bool running_ = false;
    int openings_ = 0;  ///< of buttons, since the screen was built
};

}  // namespace velmora
