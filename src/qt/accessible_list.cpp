#include "qt/accessible_list.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QAccessibleWidget>
#include <QLineEdit>
#include <QPointer>

#include <vector>

#include "qt/accessible_text.h"
#include "qt/list_box.h"

namespace velmora {

namespace {

/// A list. The toolkit's own interface of one gives the text shown as the name, and lets the text
/// be written from outside. The text is read here, and changes only by a pick.
class AccessibleList : public QAccessibleWidget, public AccessibleText {
public:
    explicit AccessibleList(ListBox& list)
        : QAccessibleWidget(&list, QAccessible::ComboBox), list_(&list) {}

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && list_ ? QAccessible::queryAccessibleInterface(list_->view()) : nullptr;
    }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && list_ && child->object() == list_->view() ? 0 : -1;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Shown() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = IsOpen();
        state.collapsed = !state.expanded;
        state.readOnly = list_ && list_->IsLocked();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QStringList actionNames() const override {
        return QStringList(showMenuAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action != showMenuAction()) {
            QAccessibleWidget::doAction(action);
        } else if (IsOpen()) {
            list_->hidePopup();
        } else if (list_) {
            list_->showPopup();
        }
    }

    // The text, read only and without a cursor.
    QString text(int begin, int end) const override { return Shown().mid(begin, end - begin); }
    int characterCount() const override { return static_cast<int>(Shown().size()); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* begin, int* end) const override { *begin = *end = 0; }
    void addSelection(int /*begin*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*begin*/, int /*end*/) override {}
    QRect characterRect(int /*offset*/) const override { return rect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*begin*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* begin, int* end) const override {
        *begin = 0;
        *end = characterCount();
        return {};
    }

private:
    bool IsOpen() const { return list_ && list_->view()->isVisible(); }
    QString Shown() const { return list_ ? list_->lineEdit()->text() : QString(); }

    QPointer<ListBox> list_;
};

/// One item of a list, from 0.
class AccessibleItem : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleItem(ListBox& list, int row) : list_(&list), row_(row) {}

    bool isValid() const override { return list_ && row_ < list_->count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return isValid() ? QAccessible::queryAccessibleInterface(list_->view()) : nullptr;
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? list_->itemText(row_) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QAccessible::State state() const override;
    QRect rect() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::ActionInterface) return nullptr;
        return static_cast<QAccessibleActionInterface*>(this);
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (isValid() && action == pressAction()) list_->PickFromOutside(row_);
    }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

private:
    QModelIndex Index() const {
        return list_->model()->index(row_, list_->modelColumn(), list_->rootModelIndex());
    }

    QPointer<ListBox> list_;
    int row_;
};

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (!isValid()) return state;
    state.invisible = !list_->view()->isVisible();
    state.disabled = list_->IsLocked();
    state.selectable = state.focusable = true;
    state.selected = list_->currentIndex() == row_;
    state.focused = !state.invisible && list_->view()->currentIndex().row() == row_;
    return state;
}

QRect AccessibleItem::rect() const {
    if (!isValid()) return {};
    const QRect place = list_->view()->visualRect(Index());
    return {list_->view()->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

/// The items of a list: what drops down.
class AccessibleItems : public QAccessibleWidget {
public:
    AccessibleItems(QAbstractItemView& view, ListBox& list)
        : QAccessibleWidget(&view, QAccessible::List), list_(&list) {}
    AccessibleItems(const AccessibleItems&) = delete;
    AccessibleItems& operator=(const AccessibleItems&) = delete;

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(list_);
    }
    int childCount() const override { return list_ ? list_->count() : 0; }
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && list_ ? list_->accessibleName() : QString();
    }

protected:
    ~AccessibleItems() override {
        for (const QAccessible::Id item : items_) QAccessible::deleteAccessibleInterface(item);
    }

private:
    QPointer<ListBox> list_;
    mutable std::vector<QAccessible::Id> items_;  ///< made when first asked for, in their order
};

QAccessibleInterface* AccessibleItems::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto place = static_cast<std::size_t>(index);
    while (items_.size() <= place) {
        auto* const item = new AccessibleItem(*list_, static_cast<int>(items_.size()));
        items_.push_back(QAccessible::registerAccessibleInterface(item));
    }
    return QAccessible::accessibleInterface(items_[place]);
}

QAccessibleInterface* AccessibleItems::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i) {
        if (child(i)->rect().contains(x, y)) return child(i);
    }
    return nullptr;
}

int AccessibleItems::indexOfChild(const QAccessibleInterface* item) const {
    for (int i = 0; i < childCount(); ++i) {
        if (child(i) == item) return i;
    }
    return -1;
}

QAccessibleInterface* MakeList(const QString& /*class_name*/, QObject* object) {
    if (auto* const list = qobject_cast<ListBox*>(object)) return new AccessibleList(*list);
    auto* const view = qobject_cast<QAbstractItemView*>(object);
    if (view == nullptr || view->parentWidget() == nullptr) return nullptr;
    // What drops down is a window of its own, with the list as its parent.
    auto* const list = qobject_cast<ListBox*>(view->parentWidget()->parentWidget());
    return list != nullptr ? new AccessibleItems(*view, *list) : nullptr;
}

}  // namespace

void InstallAccessibleLists() { QAccessible::installFactory(MakeList); }

}  // namespace velmora
