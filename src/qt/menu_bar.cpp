#include "qt/menu_bar.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

#include "qt/accessible_menu.h"
#include "qt/text.h"

namespace velmora {

MenuBar::MenuBar(const std::vector<MenuEntry>& entries, const Run& run, const QObject& bonds,
                 QWidget* parent)
    : QMenuBar(parent) {
    InstallAccessibleMenus();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, const QWidget* now) {
        if (now == this && before != nullptr && before->window() == window()) before_ = before;
    });
    setAccessibleName(QStringLiteral("Menú"));
    setNativeMenuBar(false);
    for (const MenuEntry& entry : entries) {
        QAction* action = nullptr;
        if (entry.list.empty()) {
            action = addAction(ToQt(entry.caption));
        } else {
            QMenu* const menu = addMenu(ToQt(entry.caption));
            menu->setAccessibleName(menu->title());
            menu->installEventFilter(this);
            action = menu->menuAction();
            for (const MenuEntry& item : entry.list) {
                QAction* const line = menu->addAction(ToQt(item.caption));
                line->setObjectName(ToQt(item.name));
                connect(line, &QAction::triggered, &bonds, [run, &item] { run(item.Click); });
            }
            if (entry.Click) moves_at_once_.push_back(action);
        }
        action->setObjectName(ToQt(entry.name));
        if (entry.Click) {
            connect(action, &QAction::triggered, &bonds, [run, &entry] { run(entry.Click); });
        }
    }
}

void MenuBar::SetFont(const QFont& font) {
    setFont(font);
    for (const QAction* action : actions()) {
        if (action->menu() != nullptr) action->menu()->setFont(font);
    }
}

void MenuBar::TakeKeyboard() {
    // The toolkit remembers who had the keyboard only when Alt takes it.
    QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
    QMenuBar::eventFilter(this, &press);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
    QMenuBar::eventFilter(this, &release);
}

bool MenuBar::StandsOnSpacer() const {
    return activeAction() != nullptr && activeAction()->text().isEmpty();
}

void MenuBar::focusInEvent(QFocusEvent* event) {
    QMenuBar::focusInEvent(event);
    if (!StandsOnSpacer()) return;
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    keyPressEvent(&right);
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
    auto* const list = qobject_cast<QMenu*>(watched);
    if (list == nullptr || event->type() != QEvent::KeyPress) {
        return QMenuBar::eventFilter(watched, event);
    }
    auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Escape) return QMenuBar::eventFilter(watched, event);
    list->close();
    QMenuBar::keyPressEvent(key);
    return true;
}

void MenuBar::keyPressEvent(QKeyEvent* event) {
    QMenuBar::keyPressEvent(event);
    // A box of the entry that was pressed has taken the keyboard: it goes back past the bar.
    const bool is_over = activeAction() == nullptr && window()->focusWidget() == this;
    if (is_over && before_) before_->setFocus(Qt::OtherFocusReason);
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) return;
    // The spacers are no place to stop at.
    for (qsizetype i = 0; i < actions().size() && StandsOnSpacer(); ++i) {
        QKeyEvent again(QEvent::KeyPress, event->key(), event->modifiers());
        QMenuBar::keyPressEvent(&again);
    }
}

bool MenuBar::MovesAtOnce(const QAction& entry) const {
    return std::ranges::count(moves_at_once_, &entry) > 0;
}

void MenuBar::Press(QAction& entry) {
    if (QApplication::activeModalWidget() != nullptr) return;
    while (QWidget* const list = QApplication::activePopupWidget()) list->close();
    // Queued: the handler rebuilds this menu bar, which must not happen inside its own press.
    QMetaObject::invokeMethod(&entry, &QAction::trigger, Qt::QueuedConnection);
}

void MenuBar::mousePressEvent(QMouseEvent* event) {
    QAction* const pressed = actionAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && pressed != nullptr && MovesAtOnce(*pressed)) {
        Press(*pressed);
        return;
    }
    QMenuBar::mousePressEvent(event);
}

void MenuBar::mouseMoveEvent(QMouseEvent* event) {
    // A drag from another title opens no list that the mouse isn't meant to reach.
    const QAction* const below = actionAt(event->position().toPoint());
    if (event->buttons() != Qt::NoButton && below != nullptr && MovesAtOnce(*below)) return;
    QMenuBar::mouseMoveEvent(event);
}

}  // namespace velmora
