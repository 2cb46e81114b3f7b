// Events that come faster than the window turns: what is still on its way when a screen is left
// reaches nothing of it. The presets with sanitizers see a touch of what is gone; elsewhere freed
// memory is overwritten (MALLOC_PERTURB_), so that a handler called from there crashes.

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <QWindow>

#include <random>

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
        QWidget* owner = window->menuBar();
        if (!title.empty()) {
            QMenu* const menu = Action(title).menu();
            menu->popup(window->mapToGlobal(QPoint(20, 20)));
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
    auto* const list = new QMenu(window->menuBar());
    list->addAction(QStringLiteral("entrada"));
    list->popup(window->mapToGlobal(QPoint(20, 20)));
    ASSERT_EQ(QApplication::activePopupWidget(), list);
    window->Run([this] { chain.Go(ScreenId::Form1); });
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(AllSix, BurstTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

/// A person, a cat on the keyboard and a screen reader at once: raw events to whatever window is on
/// top, in bursts, with no turn of the event loop inside one.
class RandomBursts : public WindowTest {
protected:
    RandomBursts() {
        host.make_printer = [this] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFileName(folder.filePath(QStringLiteral("page.pdf")));
            return printer;
        };
    }
    ~RandomBursts() override { TakeEnds(); }

    /// From 0 to below `end`.
    int Pick(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }

    /// Bursts until so many events have been posted, or until a run-time error ended the program.
    int RunBursts(unsigned seed, int events) {
        random.seed(seed);
        Open(kScreens.at(seed % kScreens.size()));
        int posted = 0;
        while (posted < events && !TakesEnd()) {
            for (int n = 1 + Pick(30); n > 0; --n, ++posted) PostOne();
            QCoreApplication::processEvents();
            if (Pick(4) == 0) Drain();
        }
        Drain();
        return posted;
    }

    void PostOne() {
        QWidget* top = QApplication::activePopupWidget();
        if (top == nullptr || Pick(8) == 0) top = window.get();
        if (top->windowHandle() == nullptr) return;
        switch (Pick(8)) {
            case 0:
            case 1:
                return PostKey(*top->windowHandle());
            case 2:
                return ActFromOutside();
            case 3:
                return TriggerOne();
            case 4:
                return MoveAway();
            default:
                return PostButton(*top);
        }
    }

    void PostButton(const QWidget& top) {
        constexpr std::array kTypes = {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                       QEvent::MouseButtonDblClick, QEvent::MouseMove};
        // A third of them where the menu bar is.
        const int height = Pick(3) == 0 ? 24 : top.height();
        const QPoint place(Pick(top.width()), Pick(std::max(1, height)));
        const auto button = Pick(6) == 0 ? Qt::RightButton : Qt::LeftButton;
        const QEvent::Type first = kTypes.at(static_cast<std::size_t>(Pick(4)));
        PostMouse(*top.windowHandle(), first, place, top.mapToGlobal(place), button);
        if (Pick(2) == 0) return;
        PostMouse(*top.windowHandle(), kRelease, place, top.mapToGlobal(place), button);
    }

    void PostKey(QWindow& top) {
        constexpr std::array kKeys = {
            Qt::Key_1,    Qt::Key_Period, Qt::Key_A,    Qt::Key_Backspace, Qt::Key_Delete,
            Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,   Qt::Key_Down,      Qt::Key_Home,
            Qt::Key_End,  Qt::Key_Tab,    Qt::Key_F2,   Qt::Key_F4,        Qt::Key_F10,
            Qt::Key_F11,  Qt::Key_Return, Qt::Key_Menu, Qt::Key_Escape,    Qt::Key_Space};
        const Qt::Key key = kKeys.at(static_cast<std::size_t>(Pick(kKeys.size())));
        const bool is_letter = key < Qt::Key_Escape;
        const QString text = is_letter ? QString(QChar(key)) : QString();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(&top, new QKeyEvent(type, key, Qt::NoModifier, text));
        }
    }

    /// Every action of one control or entry, twice.
    void ActFromOutside() {
        const auto objects = window->findChildren<QObject*>();
        QObject* const object = objects.at(Pick(static_cast<int>(objects.size())));
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(object);
        if (spoken == nullptr || spoken->actionInterface() == nullptr) return;
        const QPointer<QObject> alive = object;
        for (const QString& action : spoken->actionInterface()->actionNames()) {
            for (int i = 0; i < 2 && alive; ++i) spoken->actionInterface()->doAction(action);
        }
    }

    void TriggerOne() {
        const auto entries = window->menuBar()->findChildren<QAction*>();
        const QPointer<QAction> entry = entries.at(Pick(static_cast<int>(entries.size())));
        for (int i = 0; i < 2 && entry; ++i) entry->trigger();
    }

    /// A left screen may still hold what is under the mouse, has the keyboard, or stands open.
    void MoveAway() {
        const ScreenId target = kScreens.at(static_cast<std::size_t>(Pick(6)));
        window->Run([&] { chain.Go(target); });
    }

    /// Whether a run-time error ended the program; a confirmed exit goes on here.
    bool TakesEnd() {
        const std::vector<int> ends = TakeEnds();
        return std::ranges::count(ends, 1) > 0;
    }

    QTemporaryDir folder;
    ModalCloser closer;
    std::mt19937 random;
};

/// VELMORA_BURSTS asks for a long run: so many events from the seed VELMORA_SEED on.
int NumberFrom(const char* variable, int otherwise) {
    bool is_number = false;
    const int number = qEnvironmentVariableIntValue(variable, &is_number);
    return is_number ? number : otherwise;
}

class BurstsOfSeed : public RandomBursts, public ::testing::WithParamInterface<int> {};

TEST_P(BurstsOfSeed, RawEventsWithoutAPauseBringNothingDown) {
    const auto seed = static_cast<unsigned>(NumberFrom("VELMORA_SEED", 1) + GetParam());
    EXPECT_GT(RunBursts(seed, NumberFrom("VELMORA_BURSTS", 600)), 0);
    EXPECT_NE(window->centralWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Seeds, BurstsOfSeed, ::testing::Range(0, 6));

}  // namespace
}  // namespace velmora::test
