#include "qt/accessible_menu.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QMenu>
#include <QPointer>

#include "qt/menu_bar.h"

namespace velmora {

namespace {

/// An entry of a menu bar or of one of its lists. The toolkit's own interface of an entry gives a
/// spacer no name and a title no press.
class AccessibleEntry : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    AccessibleEntry(QAction& entry, QWidget& owner, MenuBar& bar)
        : entry_(&entry), owner_(&owner), bar_(&bar) {}

    bool isValid() const override { return entry_ && owner_ && bar_; }
    QObject* object() const override { return entry_.data(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(owner_);
    }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && List() != nullptr ? QAccessible::queryAccessibleInterface(List())
                                               : nullptr;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* const list = child(0);
        return list != nullptr && list->rect().contains(x, y) ? list : nullptr;
    }
    int childCount() const override { return List() != nullptr ? 1 : 0; }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && List() != nullptr && child->object() == List() ? 0 : -1;
    }

    QAccessible::Role role() const override {
        return IsSpacer() ? QAccessible::Separator : QAccessible::MenuItem;
    }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QAccessible::State state() const override;
    QRect rect() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::ActionInterface) return nullptr;
        return static_cast<QAccessibleActionInterface*>(this);
    }
    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

private:
    bool IsSpacer() const { return entry_->text().isEmpty(); }
    QMenu* List() const { return isValid() ? entry_->menu() : nullptr; }
    bool IsActive() const;

    QPointer<QAction> entry_;
    QPointer<QWidget> owner_;  ///< the bar itself, or one of its lists
    QPointer<MenuBar> bar_;
};

QString AccessibleEntry::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !isValid()) return {};
    return IsSpacer() ? QStringLiteral("Separador") : entry_->text();
}

bool AccessibleEntry::IsActive() const {
    if (const auto* list = qobject_cast<QMenu*>(owner_)) return list->activeAction() == entry_;
    return bar_->activeAction() == entry_;
}

QAccessible::State AccessibleEntry::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (!isValid()) return state;
    state.invisible = !owner_->isVisible();
    state.disabled = IsSpacer() || !entry_->isEnabled();
    state.focusable = !IsSpacer();
    state.focused = IsActive();
    state.hasPopup = List() != nullptr;
    return state;
}

QRect AccessibleEntry::rect() const {
    if (!isValid()) return {};
    const auto* const list = qobject_cast<QMenu*>(owner_);
    const QRect place =
        list != nullptr ? list->actionGeometry(entry_) : bar_->actionGeometry(entry_);
    return {owner_->mapToGlobal(place.topLeft()), place.size()};
}

QStringList AccessibleEntry::actionNames() const {
    if (!isValid() || IsSpacer()) return {};
    QStringList names;
    if (List() == nullptr || bar_->MovesAtOnce(*entry_)) names << pressAction();
    if (List() != nullptr) names << showMenuAction();
    return names;
}

void AccessibleEntry::doAction(const QString& action) {
    if (!actionNames().contains(action)) return;
    if (action == pressAction()) {
        bar_->Press(*entry_);
    } else if (List()->isVisible()) {
        List()->hide();
    } else {
        bar_->setActiveAction(entry_);
    }
}

QAccessibleInterface* MakeEntry(const QString& /*class_name*/, QObject* object) {
    auto* const entry = qobject_cast<QAction*>(object);
    if (entry == nullptr) return nullptr;
    for (QObject* const owner : entry->associatedObjects()) {
        if (auto* const bar = qobject_cast<MenuBar*>(owner)) {
            return new AccessibleEntry(*entry, *bar, *bar);
        }
        if (auto* const list = qobject_cast<QMenu*>(owner)) {
            if (auto* const bar = qobject_cast<MenuBar*>(list->parentWidget())) {
                return new AccessibleEntry(*entry, *list, *bar);
            }
        }
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleMenus() { QAccessible::installFactory(MakeEntry); }

}  // namespace velmora
