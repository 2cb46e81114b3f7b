// Events that come faster than the window turns: what is still on its way when a screen is left
// reaches nothing of it. The presets with sanitizers see a touch of what is gone; elsewhere freed
// memory is overwritten (MALLOC_PERTURB_), so that a handler called from there crashes.

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

/// Closes each box and dialog as soon as it stands.
class ModalCloser {
public:
    ModalCloser() {
        QObject::connect(&timer_, &QTimer::timeout, [] {
            if (auto* const modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                modal->close();
            }
        });
        timer_.start();
    }

private:
    QTimer timer_;
};

void PostMouse(QObject& target, QEvent::Type type, QPoint place, QPoint on_display,
               Qt::MouseButton button = Qt::LeftButton) {
    const bool down = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    QCoreApplication::postEvent(
        &target, new QMouseEvent(type, place, on_display, button,
                                 down ? button : Qt::MouseButton::NoButton, Qt::NoModifier));
}

void Drain() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

/// Each way of using an entry, twice at once.
struct Use {
    const char* name;
    void (*twice)(QAction&, QWidget& owner);
};

QPoint PlaceOf(QAction& entry, const QWidget& owner) {
    if (const auto* const menu = qobject_cast<const QMenu*>(&owner)) {
        return menu->actionGeometry(&entry).center();
    }
    return static_cast<const QMenuBar&>(owner).actionGeometry(&entry).center();
}

void Send(QAction& entry, QWidget& owner, std::initializer_list<QEvent::Type> types) {
    const QPoint place = PlaceOf(entry, owner);
    for (const QEvent::Type type : types) PostMouse(owner, type, place, owner.mapToGlobal(place));
}

constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kRelease = QEvent::MouseButtonRelease;

const std::array<Use, 5> kUses = {{
    {"presses",
     [](QAction& e, QWidget& owner) {
         Send(e, owner, {kPress, kPress});
     }},
    {"releases",
     [](QAction& e, QWidget& owner) {
         Send(e, owner, {kPress, kRelease, kRelease});
     }},
    {"clicks",
     [](QAction& e, QWidget& owner) {
         Send(e, owner, {kPress, kRelease, QEvent::MouseButtonDblClick, kRelease});
     }},
    {"activations",
     [](QAction& e, QWidget& /*owner*/) {
         const QPointer<QAction> entry = &e;
         entry->trigger();
         if (entry) entry->trigger();
     }},
    {"presses from outside",
     [](QAction& e, QWidget& /*owner*/) {
         QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&e);
         for (int i = 0; i < 2; ++i) {
             spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
         }
     }},
}};

class BurstTest : public EachScreenTest {
protected:
    /// The entries that run a handler, with their titles where they stand in a list.
    std::vector<std::pair<std::string, std::string>> Entries() {
        std::vector<std::pair<std::string, std::string>> entries;
        for (const MenuEntry& title : chain.Current().Menu()) {
            if (title.Click) entries.emplace_back("", title.name);
            for (const MenuEntry& item : title.list) entries.emplace_back(title.name, item.name);
        }
        return entries;
    }

    /// Uses the entry on a fresh screen and gives how many screens were made for it.
    int ScreensMadeBy(const std::string& title, const std::string& name, const Use& use) {
        Open(GetParam());
        Drain();
        QWidget* owner = window.menuBar();
        if (!title.empty()) {
            QMenu* const menu = Action(title).menu();
            menu->popup(window.mapToGlobal(QPoint(20, 20)));
            owner = menu;
        }
        const int before = screens_made;
        use.twice(Action(name), *owner);
        Drain();
        return screens_made - before;
    }

    ModalCloser closer;
};

TEST_P(BurstTest, AnEntryUsedTwiceAtOnceMovesOnce) {
    SetPlan(1, 1, 1);
    for (const auto& [title, name] : Entries()) {
        for (const Use& use : kUses) {
            EXPECT_LE(ScreensMadeBy(title, name, use), 1) << name << ": two " << use.name;
        }
    }
}

TEST_P(BurstTest, AListThatStandsOpenGoesWithItsScreen) {
    auto* const list = new QMenu(window.menuBar());
    list->addAction(QStringLiteral("entrada"));
    list->popup(window.mapToGlobal(QPoint(20, 20)));
    ASSERT_EQ(QApplication::activePopupWidget(), list);
    window.Run([this] { chain.Go(ScreenId::Form1); });
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(AllSix, BurstTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

}  // namespace
}  // namespace velmora::test
