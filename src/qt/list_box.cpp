#include "qt/list_box.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "qt/accessible_list.h"
#include "qt/keys.h"
#include "qt/text_line.h"

namespace velmora {

namespace {

/// Whether a key has a part in an open list: a letter or a digit doesn't look for an item.
bool MovesOrPicks(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            return true;
        default:
            return !CharacterOf(event).has_value();
    }
}

/// The line of a list. Nothing moves in it: its beginning is what is seen.
class ListLine : public TextLine {
public:
    using TextLine::TextLine;

protected:
    void focusInEvent(QFocusEvent* event) override {
        TextLine::focusInEvent(event);
        SelectTowardsTheBeginning();
    }
    void paintEvent(QPaintEvent* event) override {
        TextLine::paintEvent(event);
        if (!IsTooNarrow()) return;
        QPainter painter(this);
        PaintCut(painter);
    }
};

}  // namespace

ListBox::ListBox(const QStringList& items, QWidget* parent) : QComboBox(parent) {
    InstallAccessibleLists();
    setLineEdit(new ListLine(this));  // without one it shows only texts that are among its items
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    addItems(items);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMaxVisibleItems(static_cast<int>(items.size()));
    QLineEdit* const edit = lineEdit();
    edit->setReadOnly(true);
    edit->setAcceptDrops(false);
    edit->setContextMenuPolicy(Qt::NoContextMenu);
    edit->setCursor(Qt::ArrowCursor);
    edit->installEventFilter(this);
    view()->installEventFilter(this);
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        // Only a pick and `Show` change the text; a screen reader's or an input method's goes back.
        if (text != shown_ && text != itemText(currentIndex())) setEditText(shown_);
    });
    Show({});
}

TextLine& ListBox::Line() const { return static_cast<TextLine&>(*lineEdit()); }

void ListBox::Show(const QString& text) {
    shown_ = text;
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    setEditText(text);
    lineEdit()->setCursorPosition(0);  // the beginning is what is seen
}

void ListBox::showPopup() {
    if (!locked_) QComboBox::showPopup();
}

void ListBox::PickFromOutside(int item) {
    hidePopup();
    const auto pick = [this, item] {
        const bool behind_a_box = QApplication::activeModalWidget() != nullptr;
        if (locked_ || behind_a_box || !isVisible()) return;
        setCurrentIndex(item);
        Q_EMIT activated(item);
    };
    QMetaObject::invokeMethod(this, pick, Qt::QueuedConnection);
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<KeyCode> character = CharacterOf(*event)) {
        Q_EMIT KeyPressed(*character);
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
    if (watched == view() && event->type() == QEvent::KeyPress) {
        return !MovesOrPicks(*static_cast<const QKeyEvent*>(event)) ||
               QComboBox::eventFilter(watched, event);
    }
    if (watched != lineEdit()) return QComboBox::eventFilter(watched, event);
    // A click anywhere on the list opens it, not on its arrow alone: at the release, since one that
    // came after the opening would close it again.
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            setFocus(Qt::MouseFocusReason);
            return true;
        case QEvent::MouseButtonRelease:
            if (static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton) showPopup();
            return true;
        case QEvent::MouseButtonDblClick:
            return true;
        case QEvent::ToolTip:
            return Line().TellWhole(static_cast<const QHelpEvent&>(*event), toolTip());
        default:
            return QComboBox::eventFilter(watched, event);
    }
}

}  // namespace velmora
