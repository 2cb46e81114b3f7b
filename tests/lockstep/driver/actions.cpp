#include "actions.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QHash>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPrintDialog>
#include <QPushButton>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <functional>
#include <tuple>
#include <type_traits>

namespace lockstep {

namespace {

QString text(const char* latin) { return QString::fromLatin1(latin); }

QString refused(const char* why, const QString& what) { return text(why) + QChar(u' ') + what; }

template <typename Widget>
Widget* control(const QString& name) {
    const QMainWindow* window = mainWindow();
    return window == nullptr ? nullptr : window->findChild<Widget*>(name);
}

void sendMouse(QWidget* widget, QEvent::Type type, QPoint at) {
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                      held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void clickAt(QWidget* widget, QPoint at) {
    const QPointer<QWidget> alive(widget);
    sendMouse(widget, QEvent::MouseButtonPress, at);
    if (alive) sendMouse(widget, QEvent::MouseButtonRelease, at);
}

struct Key {
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

Key keyOf(const QString& name) {
    static const QHash<QString, Key> special{
        {text("<SPACE>"), {Qt::Key_Space, Qt::NoModifier, text(" ")}},
        {text("<BS>"), {Qt::Key_Backspace, Qt::NoModifier, text("\b")}},
        {text("<DEL>"), {Qt::Key_Delete, Qt::NoModifier, text("\x7f")}},
        {text("<HOME>"), {Qt::Key_Home, Qt::NoModifier, {}}},
        {text("<END>"), {Qt::Key_End, Qt::NoModifier, {}}},
        {text("<S-HOME>"), {Qt::Key_Home, Qt::ShiftModifier, {}}},
        {text("<S-END>"), {Qt::Key_End, Qt::ShiftModifier, {}}},
        {text("<LEFT>"), {Qt::Key_Left, Qt::NoModifier, {}}},
        {text("<RIGHT>"), {Qt::Key_Right, Qt::NoModifier, {}}},
        {text("<UP>"), {Qt::Key_Up, Qt::NoModifier, {}}},
        {text("<DOWN>"), {Qt::Key_Down, Qt::NoModifier, {}}},
        {text("<ENTER>"), {Qt::Key_Return, Qt::NoModifier, text("\r")}},
        {text("<ESC>"), {Qt::Key_Escape, Qt::NoModifier, text("\x1b")}},
        {text("<C-V>"), {Qt::Key_V, Qt::ControlModifier, text("\x16")}},
        {text("<C-X>"), {Qt::Key_X, Qt::ControlModifier, text("\x18")}},
        {text("<C-C>"), {Qt::Key_C, Qt::ControlModifier, text("\x03")}},
        {text("<C-Z>"), {Qt::Key_Z, Qt::ControlModifier, text("\x1a")}},
        {text("<C-H>"), {Qt::Key_H, Qt::ControlModifier, text("\b")}},
        {text("<C-M>"), {Qt::Key_M, Qt::ControlModifier, text("\r")}},
        {text("<S-INS>"), {Qt::Key_Insert, Qt::ShiftModifier, {}}},
        {text("<S-DEL>"), {Qt::Key_Delete, Qt::ShiftModifier, text("\x7f")}},
    };
    const auto found = special.constFind(name);
    if (found != special.constEnd()) return *found;
    const int key = name.size() == 1 && name.at(0).unicode() < 0x80
                        ? name.at(0).toUpper().unicode()
                        : static_cast<int>(Qt::Key_unknown);
    return {key, Qt::NoModifier, name};
}

/// A key goes to the window, as a real one does, and from there to the focus or to the popup.
void sendKey(QWidget* widget, const QString& name) {
    const Key key = keyOf(name);
    QWindow* window = widget->window()->windowHandle();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key.key, key.modifiers, key.text);
        if (window != nullptr)
            QApplication::sendEvent(window, &event);
        else
            QApplication::sendEvent(widget, &event);
    }
}

QString focus(QWidget* widget) {
    widget->setFocus(Qt::OtherFocusReason);
    return widget->window()->focusWidget() == widget ? QString()
                                                     : refused("no focus on", widget->objectName());
}

QString clickButton(QWidget* button) {
    const QPoint centre = button->rect().center();
    QWidget* top = button->window();
    const QWidget* hit = top->childAt(button->mapTo(top, centre));
    if (hit != button && !button->isAncestorOf(hit))
        return refused("covered:", button->objectName());
    clickAt(button, centre);
    return {};
}

QAction* menuEntry(const QString& name) {
    for (QAction* entry : mainWindow()->menuBar()->actions()) {
        if (entry->objectName() == name) return entry;
        if (const QMenu* menu = entry->menu())
            for (QAction* item : menu->actions())
                if (item->objectName() == name) return item;
    }
    return nullptr;
}

QString menu(const QString& name) {
    QAction* entry = menuEntry(name);
    if (entry == nullptr) return refused("no menu entry", name);
    entry->trigger();
    return {};
}

QString menuByMouse(const QString& title, const QString& item) {
    QMenuBar* bar = mainWindow()->menuBar();
    QAction* entry = menuEntry(title);
    if (entry == nullptr || !bar->actions().contains(entry)) return refused("no title", title);
    const QPoint place = bar->actionGeometry(entry).center();
    if (!bar->rect().contains(place)) return refused("outside the bar:", title);
    const QPointer<QMenuBar> alive(bar);
    const QPointer<QMenu> list(entry->menu());
    sendMouse(bar, QEvent::MouseButtonPress, place);
    if (alive) sendMouse(bar, QEvent::MouseButtonRelease, place);
    if (!list || !list->isVisible()) return {};
    if (!item.isEmpty()) {
        QAction* chosen = menuEntry(item);
        if (chosen == nullptr || !list->actions().contains(chosen)) return refused("no item", item);
        const QPoint at = list->actionGeometry(chosen).center();
        QMouseEvent move(QEvent::MouseMove, at, list->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(list, &move);
        clickAt(list, at);
    }
    if (list && list->isVisible()) list->close();
    return {};
}

QString type(const QString& name, const QJsonArray& keys) {
    QPointer<QLineEdit> cell = control<QLineEdit>(name);
    if (!cell) return refused("no cell", name);
    const QString trouble = focus(cell);
    if (!trouble.isEmpty()) return trouble;
    cell->deselect();
    cell->end(false);
    for (const QJsonValue& key : keys)
        if (cell) sendKey(cell, key.toString());
    return {};
}

QString commit(const QString& name, const QString& committed) {
    auto* cell = control<QLineEdit>(name);
    if (cell == nullptr) return refused("no cell", name);
    const QString trouble = focus(cell);
    if (!trouble.isEmpty()) return trouble;
    cell->deselect();
    cell->end(false);
    QInputMethodEvent event;
    event.setCommitString(committed);
    QApplication::sendEvent(cell, &event);
    return {};
}

/// An entry of the cell's context menu, told by the keys that stand beside it in any language
/// ("+V").
QString contextEntry(const QString& name, const QString& entry) {
    const QPointer<QLineEdit> cell = control<QLineEdit>(name);
    if (!cell) return refused("no cell", name);
    const QString trouble = focus(cell);
    if (!trouble.isEmpty()) return trouble;
    cell->deselect();
    if (entry == QLatin1String("+V"))
        cell->end(false);
    else
        cell->selectAll();
    // A menu may hold the event loop until it is closed, so it is answered from a timer.
    QTimer::singleShot(0, qApp, [entry] {
        const QPointer<QWidget> popup(QApplication::activePopupWidget());
        if (!popup) return;  // a cell may have no such menu
        for (QAction* action : popup->actions())
            if (action->text().section(QChar(u'\t'), 1).endsWith(entry) && action->isEnabled())
                action->trigger();
        if (popup) popup->close();
    });
    const QPoint at = cell->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, cell->mapToGlobal(at));
    QApplication::sendEvent(cell, &event);
    return {};
}

QString drop(const QString& name, const QString& dropped) {
    auto* target = control<QWidget>(name);
    if (target == nullptr) return refused("no control", name);
    if (auto* list = qobject_cast<QComboBox*>(target); list != nullptr && list->lineEdit())
        target = list->lineEdit();
    if (!target->acceptDrops()) return {};
    QMimeData data;
    data.setText(dropped);
    const QPoint at = target->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
    return {};
}

/// The way a screen reader presses an entry of the menu bar.
QString pressAsReader(const QString& name) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(mainWindow()->menuBar());
    const QList<QAction*> entries = mainWindow()->menuBar()->actions();
    for (int i = 0; bar != nullptr && i < bar->childCount(); ++i) {
        QAccessibleInterface* entry = bar->child(i);
        if (entries.value(i)->objectName() != name || entry == nullptr) continue;
        if (entry->actionInterface() == nullptr) return refused("no action on", name);
        entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
        return {};
    }
    return refused("not told to a screen reader:", name);
}

QString keysInList(const QString& name, const QJsonArray& keys) {
    QPointer<QComboBox> list = control<QComboBox>(name);
    if (!list) return refused("no list", name);
    const QString trouble = focus(list);
    if (!trouble.isEmpty()) return trouble;
    for (const QJsonValue& key : keys)
        if (list && QApplication::activeModalWidget() == nullptr) sendKey(list, key.toString());
    return {};
}

QString pick(const QString& name, int item, const QString& how) {
    const QPointer<QComboBox> list = control<QComboBox>(name);
    if (!list) return refused("no list", name);
    const QString trouble = focus(list);
    if (!trouble.isEmpty()) return trouble;
    list->showPopup();
    QAbstractItemView* view = list->view();
    if (!view->isVisible()) return refused("no popup of", name);
    const QModelIndex index = list->model()->index(item, 0, list->rootModelIndex());
    view->setCurrentIndex(index);
    if (how == QLatin1String("enter"))
        sendKey(view, text("<ENTER>"));
    else if (how == QLatin1String("esc"))
        sendKey(view, text("<ESC>"));
    else
        clickAt(view->viewport(), view->visualRect(index).center());
    return {};
}

QString wheel(const QString& name) {
    auto* list = control<QComboBox>(name);
    if (list == nullptr) return refused("no list", name);
    focus(list);
    const QPoint at = list->rect().center();
    QWheelEvent event(at, list->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list, &event);
    return {};
}

QString doubleClick(const QString& name) {
    const QPointer<QLineEdit> cell = control<QLineEdit>(name);
    if (!cell) return refused("no cell", name);
    const QPoint at = cell->rect().center();
    clickAt(cell, at);
    if (cell) sendMouse(cell, QEvent::MouseButtonDblClick, at);
    if (cell) sendMouse(cell, QEvent::MouseButtonRelease, at);
    return {};
}

QString answerBox(const QString& which) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return text("no box in front");
    if (which == QLatin1String("esc") || which == QLatin1String("enter")) {
        sendKey(box, which == QLatin1String("esc") ? text("<ESC>") : text("<ENTER>"));
        return {};
    }
    const QMessageBox::StandardButton wanted = which == QLatin1String("yes")  ? QMessageBox::Yes
                                               : which == QLatin1String("no") ? QMessageBox::No
                                                                              : QMessageBox::Ok;
    QAbstractButton* button = box->button(wanted);
    if (button == nullptr) return refused("no button", which);
    return clickButton(button);
}

QString pressIn(QDialog* dialog, std::initializer_list<QDialogButtonBox::StandardButton> wanted) {
    const auto* box = dialog->findChild<QDialogButtonBox*>();
    for (const QDialogButtonBox::StandardButton standard : wanted) {
        QPushButton* button = box == nullptr ? nullptr : box->button(standard);
        if (button != nullptr) return clickButton(button);
    }
    return text("no such button in the dialog");
}

QString answerFile(const QString& what, const QString& path) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return text("no file dialog in front");
    if (what == QLatin1String("cancel")) return pressIn(dialog, {QDialogButtonBox::Cancel});
    auto* name = dialog->findChild<QLineEdit*>(text("fileNameEdit"));
    if (name == nullptr) return text("no name field in the file dialog");
    // Without the focus in the name field the dialog holds on to the file chosen before.
    QApplication::setActiveWindow(dialog);
    name->setFocus(Qt::OtherFocusReason);
    name->setText(path);
    return pressIn(dialog, {QDialogButtonBox::Save, QDialogButtonBox::Open});
}

QString answerPrint(const QString& what) {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return text("no print dialog in front");
    if (what == QLatin1String("cancel")) return pressIn(dialog, {QDialogButtonBox::Cancel});
    dialog->done(QDialog::Accepted);  // its button asks for a file when there is no printer
    return {};
}

}  // namespace

QMainWindow* mainWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = qobject_cast<QMainWindow*>(widget)) return window;
    return nullptr;
}

namespace {

/// One upon the other, without a turn of the event loop between them.
QString performAll(const QJsonArray& burst) {
    for (qsizetype i = 1; i < burst.size(); ++i) {
        const QString trouble = perform(burst.at(i).toArray());
        if (!trouble.isEmpty()) return trouble;
    }
    return {};
}

QString pressBySpace(const QString& name) {
    auto* button = control<QPushButton>(name);
    if (button == nullptr) return refused("no button", name);
    if (!button->isEnabled()) return {};
    const QString trouble = focus(button);
    if (trouble.isEmpty()) sendKey(button, text("<SPACE>"));
    return trouble;
}

QString click(const QString& name) {
    auto* button = control<QPushButton>(name);
    return button == nullptr ? refused("no button", name) : clickButton(button);
}

QString copy(const QString& copied) {
    QApplication::clipboard()->setText(copied);
    return {};
}

QString close() {
    mainWindow()->close();
    return {};
}

using Deed = std::function<QString(const QJsonArray& action)>;

void read(QString& word, const QJsonValue& from) { word = from.toString(); }
void read(int& word, const QJsonValue& from) { word = from.toInt(); }
void read(QJsonArray& word, const QJsonValue& from) { word = from.toArray(); }

/// With an action's further words as its arguments.
template <typename... Arguments>
Deed with(QString (*deed)(Arguments...)) {
    return [deed](const QJsonArray& action) {
        std::tuple<std::decay_t<Arguments>...> words;
        int place = 0;
        const auto readAll = [&](auto&... word) { (read(word, action.at(++place)), ...); };
        std::apply(readAll, words);
        return std::apply(deed, words);
    };
}

/// What an action's first word does.
const QHash<QString, Deed>& deeds() {
    static const QHash<QString, Deed> all = {
        {text("click"), with(click)},
        {text("space"), with(pressBySpace)},
        {text("reader"), with(pressAsReader)},
        {text("menu"), with(menu)},
        {text("menumouse"), with(menuByMouse)},
        {text("context"), with(contextEntry)},
        {text("drop"), with(drop)},
        {text("clip"), with(copy)},
        {text("type"), with(type)},
        {text("im"), with(commit)},
        {text("listkeys"), with(keysInList)},
        {text("pick"), with(pick)},
        {text("wheel"), with(wheel)},
        {text("double"), with(doubleClick)},
        {text("answer"), with(answerBox)},
        {text("file"), with(answerFile)},
        {text("print"), with(answerPrint)},
        {text("close"), with(close)},
    };
    return all;
}

}  // namespace

QString perform(const QJsonArray& action) {
    if (action.isEmpty()) return {};
    if (action.at(0) == QLatin1String("burst")) return performAll(action);
    if (mainWindow() == nullptr) return text("no window");
    const Deed deed = deeds().value(action.at(0).toString());
    return deed ? deed(action) : refused("no such action:", action.at(0).toString());
}

}  // namespace lockstep
