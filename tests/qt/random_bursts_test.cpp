// A person, a cat on the keyboard and a screen reader at once: raw events to whatever window is on
// top, boxes and dialogs included, in bursts with no turn of the event loop inside one.

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <iostream>
#include <map>
#include <random>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

class RandomBursts : public ::testing::Test {
protected:
    void SetUp() override { usual = qInstallMessageHandler(Hear); }
    void TearDown() override { qInstallMessageHandler(usual); }

    /// The settings of the print dialog are one dialog for all presses of their button: the toolkit
    /// refuses a press that was still queued when they opened, and says so.
    static void Hear(QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (message != QStringLiteral("QDialog::exec: Recursive call detected")) {
            usual(type, context, message);
        }
    }
    inline static QtMessageHandler usual = nullptr;

    /// So many events, from start to start of the program, on each screen in its turn.
    void RunBursts(unsigned seed, int events) {
        constexpr int kOfOneStart = 500;
        random.seed(seed);
        for (std::size_t start = seed; posted < events; ++start) {
            StartOn(kScreens.at(start % kScreens.size()));
            const int end = std::min(events, posted + kOfOneStart);
            Beat();
            while (posted < end && !HasFailed()) {
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            beats = nullptr;
        }
    }

    void StartOn(ScreenId screen) {
        while (QWidget* const list = QApplication::activePopupWidget()) list->close();
        run.reset();
        run = std::make_unique<Program>();
        run->host.find_guide = [] { return QString(); };
        run->host.beep = [] {};
        run->host.make_printer = [this] {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFileName(folder.filePath(QStringLiteral("page.pdf")));
            return printer;
        };
        SetPlan(run->record, 1 + Pick(3), 1 + Pick(3), 1 + Pick(6));
        run->window.show();
        run->window.activateWindow();
        run->window.Run([&] { run->chain.Go(screen); });
    }

    /// Whether a run-time error ended the program; a confirmed exit goes on here.
    bool HasFailed() const { return std::ranges::count(run->ends, 1) > 0; }

    /// From 0 to below `end`.
    int Pick(qsizetype end) {
        return static_cast<int>(random() % static_cast<unsigned>(std::max<qsizetype>(end, 1)));
    }

    /// A burst, and after it the next one: boxes and dialogs turn the loop themselves, and the
    /// bursts go on within.
    void Beat() {
        beats = std::make_unique<QObject>();
        QTimer::singleShot(1, beats.get(), [this] { Beat(); });
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal != nullptr) KeepInFolder(*modal);
        for (int n = 1 + Pick(30); n > 0; --n) PostOne();
        if (modal != nullptr && Pick(4) == 0) Leave(*modal);
    }

    /// A file dialog stays in the folder that it opens in, the test's own, and removes nothing.
    static void KeepInFolder(QWidget& modal) {
        auto* const dialog = qobject_cast<QFileDialog*>(&modal);
        if (dialog == nullptr) return;
        dialog->setOption(QFileDialog::ReadOnly);
        const QString home = QDir::homePath();
        if (dialog->directory() != QDir(home)) dialog->setDirectory(home);
        QObject::connect(dialog, &QFileDialog::directoryEntered, dialog,
                         [dialog, home] { dialog->setDirectory(home); });
    }

    void Leave(QWidget& modal) {
        const auto buttons = modal.findChildren<QAbstractButton*>();
        if (!buttons.isEmpty() && Pick(2) == 0) return buttons.at(Pick(buttons.size()))->click();
        modal.close();
    }

    void PostOne() {
        struct Kind {
            const char* name;
            void (RandomBursts::*post)(QWidget& top);
        };
        constexpr std::array<Kind, 11> kKinds = {{
            {"press", &RandomBursts::PostPress},
            {"click", &RandomBursts::PostClick},
            {"double click", &RandomBursts::PostDoubleClick},
            {"release", &RandomBursts::PostRelease},
            {"move", &RandomBursts::PostMove},
            {"wheel", &RandomBursts::PostWheel},
            {"key", &RandomBursts::PostKey},
            {"focus", &RandomBursts::MoveFocus},
            {"size", &RandomBursts::Resize},
            {"from outside", &RandomBursts::ActFromOutside},
            {"move to a screen", &RandomBursts::MoveAway},
        }};
        QWidget* top = QApplication::activePopupWidget();
        if (top == nullptr) top = QApplication::activeModalWidget();
        if (top == nullptr || Pick(8) == 0) top = &run->window;
        if (top->windowHandle() == nullptr) return;
        const Kind& kind = kKinds.at(static_cast<std::size_t>(Pick(kKinds.size())));
        ++met[NameOf(run->chain.Current().Id()) + "\t" + top->metaObject()->className() + "\t" +
              kind.name];
        ++posted;
        (this->*kind.post)(*top);
    }

    QPoint PlaceIn(const QWidget& top) {
        // A third of them where the menu bar is.
        return {Pick(top.width()), Pick(Pick(3) == 0 ? 24 : top.height())};
    }

    Qt::KeyboardModifiers Modifiers() {
        constexpr std::array kModifiers = {Qt::NoModifier,    Qt::NoModifier,  Qt::NoModifier,
                                           Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier};
        return kModifiers.at(static_cast<std::size_t>(Pick(kModifiers.size())));
    }

    /// By the road of the window system's events.
    void Mouse(QWidget& top, QPoint place, std::initializer_list<QEvent::Type> types) {
        const auto button = Pick(6) == 0 ? Qt::RightButton : Qt::LeftButton;
        const Qt::KeyboardModifiers modifiers = Modifiers();
        for (const QEvent::Type type : types) {
            const bool is_move = type == QEvent::MouseMove;
            if (!is_move) down.setFlag(button, type == QEvent::MouseButtonPress);
            const auto changed = is_move ? Qt::MouseButton::NoButton : button;
            qt_handleMouseEvent(top.windowHandle(), place, top.mapToGlobal(place), down, changed,
                                type, modifiers, ++moment);
        }
    }

    void PostPress(QWidget& top) { Mouse(top, PlaceIn(top), {kPress}); }
    void PostRelease(QWidget& top) { Mouse(top, PlaceIn(top), {kRelease}); }
    void PostClick(QWidget& top) { Mouse(top, PlaceIn(top), {kPress, kRelease}); }
    void PostDoubleClick(QWidget& top) {
        Mouse(top, PlaceIn(top), {kPress, kRelease, kPress, kRelease});
    }
    void PostMove(QWidget& top) { Mouse(top, PlaceIn(top), {QEvent::MouseMove}); }

    void PostWheel(QWidget& top) {
        const QPoint place = PlaceIn(top);
        QCoreApplication::postEvent(
            top.windowHandle(),
            new QWheelEvent(place, top.mapToGlobal(place), {}, {0, 120 - Pick(2) * 240}, down,
                            Modifiers(), Qt::NoScrollPhase, false));
    }

    void PostKey(QWidget& top) {
        constexpr std::array kKeys = {
            Qt::Key_1,    Qt::Key_Period, Qt::Key_A,      Qt::Key_Backspace, Qt::Key_Delete,
            Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Home,
            Qt::Key_End,  Qt::Key_Tab,    Qt::Key_F1,     Qt::Key_F2,        Qt::Key_F4,
            Qt::Key_F6,   Qt::Key_F10,    Qt::Key_F11,    Qt::Key_Return,    Qt::Key_Menu,
            Qt::Key_Alt,  Qt::Key_Escape, Qt::Key_Space,  Qt::Key_PageDown,  Qt::Key_Insert,
            Qt::Key_C,    Qt::Key_V,      Qt::Key_Ntilde, Qt::Key_Z,         Qt::Key_X};
        const Qt::Key key = kKeys.at(static_cast<std::size_t>(Pick(kKeys.size())));
        const QString text = key < Qt::Key_Escape ? QString(QChar(key)) : QString();
        const Qt::KeyboardModifiers modifiers = Modifiers();
        const QPointer<QWidget> still_there = &top;  // a shortcut acts at once, and may end a menu
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (still_there) qt_handleKeyEvent(top.windowHandle(), type, key, modifiers, text);
        }
    }

    void MoveFocus(QWidget& top) {
        const auto widgets = top.findChildren<QWidget*>();
        if (Pick(4) == 0 || widgets.isEmpty()) {
            return QApplication::setActiveWindow(Pick(2) == 0 ? nullptr : &top);
        }
        QWidget* const widget = widgets.at(Pick(widgets.size()));
        if (Pick(4) == 0) return widget->clearFocus();
        widget->setFocus(static_cast<Qt::FocusReason>(Pick(8)));
    }

    void Resize(QWidget& /*top*/) { run->window.resize(320 + Pick(1200), 240 + Pick(800)); }

    /// Every action of one control or entry of this very window, twice.
    void ActFromOutside(QWidget& top) {
        const auto objects = top.findChildren<QObject*>();
        if (objects.isEmpty()) return;
        const QPointer<QObject> object = objects.at(Pick(objects.size()));
        const auto* const widget = qobject_cast<QWidget*>(object);
        if (widget != nullptr && widget->window() != &top) return;
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(object);
        if (spoken == nullptr || spoken->actionInterface() == nullptr) return;
        for (const QString& action : spoken->actionInterface()->actionNames()) {
            for (int i = 0; i < 2 && object; ++i) spoken->actionInterface()->doAction(action);
        }
    }

    /// A left screen may still hold what is under the mouse, has the keyboard, or stands open.
    void MoveAway(QWidget& /*top*/) {
        if (Pick(3) != 0) return TriggerOne();
        const ScreenId target = kScreens.at(static_cast<std::size_t>(Pick(kScreens.size())));
        run->window.Run([&] { run->chain.Go(target); });
    }

    void TriggerOne() {
        const auto entries = run->window.menuBar()->findChildren<QAction*>();
        const QPointer<QAction> entry = entries.at(Pick(entries.size()));
        for (int i = 0; i < 2 && entry; ++i) entry->trigger();
    }

    static constexpr auto kPress = QEvent::MouseButtonPress;
    static constexpr auto kRelease = QEvent::MouseButtonRelease;

    WithSeparator separator{"."};
    QTemporaryDir folder;
    std::unique_ptr<Program> run;
    std::unique_ptr<QObject> beats;  ///< waits for the next burst
    std::mt19937 random;
    Qt::MouseButtons down;
    int moment = 0;  ///< milliseconds, as the window system stamps its events
    int posted = 0;
    std::map<std::string, int> met;  ///< events by screen, window on top and kind
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
    RunBursts(seed, NumberFrom("VELMORA_BURSTS", 600));
    EXPECT_NE(run->window.centralWidget(), nullptr);
    if (!qEnvironmentVariableIsSet("VELMORA_BURSTS")) return;
    for (const auto& [what, count] : met) std::cout << what << '\t' << count << '\n';
}

INSTANTIATE_TEST_SUITE_P(Seeds, BurstsOfSeed, ::testing::Range(0, 6));

}  // namespace
}  // namespace velmora::test
