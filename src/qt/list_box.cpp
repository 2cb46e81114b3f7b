#include "qt/list_box.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWheelEvent>

#include <utility>

#include "qt/keys.h"

namespace velmora {

ListBox::ListBox(const QStringList& items, Filter filter, QWidget* parent)
    : QComboBox(parent), filter_(std::move(filter)) {
    setEditable(true);  // only an editable list shows a text that isn't among its items
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    addItems(items);
    setMaxVisibleItems(static_cast<int>(items.size()));
    QLineEdit* const edit = lineEdit();
    edit->setReadOnly(true);
    edit->setAcceptDrops(false);
    edit->setContextMenuPolicy(Qt::NoContextMenu);
    edit->setCursor(Qt::ArrowCursor);
    edit->installEventFilter(this);
    Show({});
}

void ListBox::Show(const QString& text) {
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(text);
}

void ListBox::showPopup() {
    if (!locked_) QComboBox::showPopup();
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<KeyCode> character = CharacterOf(*event)) {
        if (filter_) filter_(*character);
        return;
    }
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_F4:
            if (!locked_) QComboBox::keyPressEvent(event);
            return;
        default:
            event->ignore();
    }
}

void ListBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

void ListBox::inputMethodEvent(QInputMethodEvent* /*event*/) {}

bool ListBox::eventFilter(QObject* watched, QEvent* event) {
    // A press anywhere on the list opens it, not on its arrow alone.
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonPress) {
        if (static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton) {
            setFocus(Qt::MouseFocusReason);
            showPopup();
        }
        return true;
    }
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonDblClick) return true;
    return QComboBox::eventFilter(watched, event);
}

}  // namespace velmora
