#include "support/robot.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "qt/text.h"
#include "support/robot_input.h"

namespace velmora {

namespace {

constexpr int kWatchMilliseconds = 5;
constexpr int kSettlingRounds = 3;

/// Whether a click in the middle of the widget would reach it.
bool IsReached(const QWidget& widget) {
    const QWidget* const hit = widget.window()->childAt(CenterOf(widget));
    return hit == &widget || widget.isAncestorOf(hit);
}

}  // namespace

Robot::Robot(Window& window) : window_(window) {
    watch_.setSingleShot(true);
    watch_.setInterval(kWatchMilliseconds);
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] { Watch(); });
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, &watch_,
                     [this](Qt::ApplicationState state) {
                         if (state != Qt::ApplicationActive) deactivated_ = true;
                     });
}

void Robot::Act(std::string_view what, const std::function<void()>& action) {
    faults_.clear();
    // A click would activate the window; not every platform does it by itself.
    if (!window_.isActiveWindow()) window_.activateWindow();
    watch_.start();
    std::string failure;
    try {
        action();
    } catch (const std::exception& error) {
        failure = error.what();
    }
    Wait(pace);
    watch_.stop();
    for (const Expected& expected : std::exchange(expected_, {})) {
        Fault(expected.what + " didn't open");
    }
    for (const std::string& fault : faults_) failure += (failure.empty() ? "" : "; ") + fault;
    if (failure.empty()) return;
    while (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    throw std::runtime_error(std::string(what) + ": " + failure);
}

void Robot::Press(std::string_view button) {
    Act("pressing " + Quoted(button), [&] {
        const QWidget& widget = FindToClick(button);
        if (!widget.isEnabled()) throw std::runtime_error("it is disabled");
        ClickAt(widget, widget.rect().center());
    });
}

void Robot::Choose(std::string_view title, std::string_view entry) {
    Act("choosing " + Quoted(title) + ", " + Quoted(entry), [&] {
        QAction& action = FindTitle(title);
        QMenu* const list = action.menu();
        if (list == nullptr) throw std::runtime_error("the title has no list");
        auto* const line = list->findChild<QAction*>(ToQt(entry), Qt::FindDirectChildrenOnly);
        if (line == nullptr) throw std::runtime_error("the list has no such entry");
        const QMenuBar& bar = *window_.menuBar();
        ClickInList([&] { ClickAt(bar, bar.actionGeometry(&action).center()); }, *list,
                    [&] { return list->actionGeometry(line).center(); });
    });
}

void Robot::Choose(std::string_view title) {
    Act("choosing " + Quoted(title), [&] {
        const QMenuBar& bar = *window_.menuBar();
        ClickAt(bar, bar.actionGeometry(&FindTitle(title)).center());
        if (QApplication::activePopupWidget() != nullptr) {
            throw std::runtime_error("a list opened");
        }
    });
}

void Robot::Type(std::string_view cell, std::string_view text) {
    Act("typing into " + Quoted(cell), [&] {
        QWidget& widget = FindToClick(cell);
        FocusByClick(widget);
        SendKey(Qt::Key_End);
        TypeKeys(widget, text, KeyPause());
    });
}

void Robot::Type(std::string_view text) {
    Act("typing " + Quoted(text), [&] { TypeKeys(window_, text, KeyPause()); });
}

void Robot::Retype(std::string_view cell, std::string_view text) {
    Act("typing anew into " + Quoted(cell), [&] {
        QWidget& widget = FindToClick(cell);
        FocusByClick(widget);
        SendKey(Qt::Key_Home);
        SendKey(Qt::Key_End, Qt::ShiftModifier);
        SendKey(Qt::Key_Backspace);
        TypeKeys(widget, text, KeyPause());
    });
}

void Robot::Key(std::string_view control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Act("a key on " + Quoted(control), [&] {
        QWidget& widget = FindToClick(control);
        if (window_.focusWidget() != &widget) FocusByClick(widget);
        SendKey(key, modifiers);
    });
}

void Robot::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Act("a key", [&] { SendKey(key, modifiers); });
}

void Robot::Click(std::string_view control) {
    Act("clicking " + Quoted(control), [&] {
        const QWidget& widget = FindToClick(control);
        ClickAt(widget, widget.rect().center());
    });
}

void Robot::DoubleClick(std::string_view cell) {
    Act("double-clicking " + Quoted(cell), [&] {
        const QWidget& widget = FindToClick(cell);
        QTest::mouseDClick(&NativeWindowOf(widget), Qt::LeftButton, {}, CenterOf(widget));
    });
}

void Robot::Pick(std::string_view list, std::string_view item) {
    Act("picking " + Quoted(item) + " in " + Quoted(list), [&] {
        FindToClick(list);
        auto& box = Find<QComboBox>(list);
        const int index = box.findText(ToQt(item), Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (index < 0) throw std::runtime_error("no such item");
        QAbstractItemView& view = *box.view();
        const QModelIndex line = box.model()->index(index, box.modelColumn());
        const auto place = [&] {
            view.scrollTo(line);
            return view.visualRect(line).center();
        };
        const QPoint arrow(box.width() - box.height() / 2, box.height() / 2);
        ClickInList([&] { ClickAt(box, arrow); }, *view.viewport(), place);
    });
}

void Robot::ClickInList(const std::function<void()>& press, const QWidget& list,
                        const std::function<QPoint()>& line) {
    constexpr int kPresses = 4;
    for (int i = 0; i < kPresses; ++i) {
        deactivated_ = false;
        press();
        Wait(pace);
        if (list.isVisible()) MoveTo(list, line());
        // cppcheck-suppress duplicateCondition ; moving there may have closed it
        if (list.isVisible()) return ClickHere(list, line());
        if (!deactivated_) break;
    }
    throw std::runtime_error("the list didn't open");
}

void Robot::CloseWindow() {
    Act("closing the window", [this] { window_.close(); });
}

std::string Robot::Text(std::string_view control) const {
    const QWidget& widget = Find(control);
    if (const auto* const cell = qobject_cast<const QLineEdit*>(&widget)) {
        return cell->text().toStdString();
    }
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
        return list->currentText().toStdString();
    }
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        return label->text().toStdString();
    }
    return Find<QPushButton>(control).text().toStdString();
}

bool Robot::Visible(std::string_view control) const { return Find(control).isVisible(); }

bool Robot::Enabled(std::string_view control) const { return Find(control).isEnabled(); }

bool Robot::Locked(std::string_view control) const {
    const QVariant locked = Find(control).property("Locked");
    if (!locked.isValid()) throw std::runtime_error(std::string(control) + " has no lock");
    return locked.toBool();
}

std::vector<std::string> Robot::Items(std::string_view list) const {
    const auto& box = Find<QComboBox>(list);
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(box.count()));
    for (int i = 0; i < box.count(); ++i) items.push_back(box.itemText(i).toStdString());
    return items;
}

std::string Robot::WindowCaption() const { return window_.windowTitle().toStdString(); }

std::string Robot::ScreenName() const { return window_.objectName().toStdString(); }

std::string Robot::Focused() const {
    const QWidget* const focused = window_.focusWidget();
    return focused == nullptr ? std::string() : focused->objectName().toStdString();
}

QPixmap Robot::Picture() const {
    // What is open over the window, the topmost first: a popup, a question over a dialog.
    std::vector<QWidget*> open;
    for (QWidget* top : {QApplication::activePopupWidget(), QApplication::activeModalWidget()}) {
        while (top != nullptr && top != &window_ && std::ranges::count(open, top) == 0) {
            open.push_back(top);
            top = top->parentWidget() == nullptr ? nullptr : top->parentWidget()->window();
        }
    }
    open.push_back(&window_);
    QRect whole;
    const auto place = [](const QWidget& widget) {
        return QRect(widget.mapToGlobal(QPoint()), widget.size());
    };
    for (const QWidget* widget : open) whole |= place(*widget);
    QPixmap picture(whole.size() * window_.devicePixelRatio());
    picture.setDevicePixelRatio(window_.devicePixelRatio());
    picture.fill(Qt::darkGray);
    QPainter painter(&picture);
    std::ranges::reverse(open);
    for (QWidget* widget : open) {
        const QRect frame = place(*widget).translated(-whole.topLeft());
        painter.drawPixmap(frame.topLeft(), widget->grab());
        painter.drawRect(frame.adjusted(0, 0, -1, -1));
    }
    return picture;
}

void Robot::Snapshot(const std::string& file_name) const {
    if (!Picture().save(ToQt(file_name), "PNG")) {
        throw std::runtime_error("can't write " + file_name);
    }
}

QWidget* Robot::FindWidget(std::string_view name) const {
    return window_.findChild<QWidget*>(ToQt(name));
}

QWidget& Robot::FindToClick(std::string_view name) const {
    auto& widget = Find(name);
    if (!widget.isVisible()) throw std::runtime_error(std::string(name) + " is hidden");
    if (!IsReached(widget)) throw std::runtime_error(std::string(name) + " is covered");
    return widget;
}

QAction& Robot::FindTitle(std::string_view name) const {
    for (QAction* const action : window_.menuBar()->actions()) {
        if (action->objectName() == ToQt(name) && !name.empty()) return *action;
    }
    throw std::runtime_error("no such title: " + std::string(name));
}

void Robot::FocusByClick(QWidget& widget) {
    ClickAt(widget, widget.rect().center());
    if (window_.focusWidget() != &widget) throw std::runtime_error("it takes no focus");
}

void Robot::SendKey(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    const QWidget* const popup = QApplication::activePopupWidget();
    QTest::keyClick(&NativeWindowOf(popup == nullptr ? window_ : *popup), key, modifiers);
}

void Robot::Wait(int milliseconds) {
    if (milliseconds > 0) QTest::qWait(milliseconds);
    for (int i = 0; i < kSettlingRounds; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace velmora
