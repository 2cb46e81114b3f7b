// What a person would see at once and a look at the controls' data doesn't tell: real keys, buttons
// of the mouse, pixels, letters, sizes, the clock on the wall.

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QTest>

#include <array>
#include <ctime>
#include <iomanip>
#include <set>
#include <sstream>

#include "capture/form2.h"
#include "qt/canvas.h"
#include "qt/window_test.h"
#include "sheet/form5.h"
#include "support/robot_input.h"

namespace velmora::test {
namespace {

// Keys and buttons of the mouse.

using EachScreensButtonTest = EachScreenTest;

TEST_P(EachScreensButtonTest, EnterPressesTheOneThatHasTheFocus) {
    ShowAll();
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
        if (!button->isVisible()) continue;
        int presses = 0;
        // Its handler is tested elsewhere; here it would open a box.
        button->disconnect(SIGNAL(clicked(bool)));
        QObject::connect(button, &QPushButton::clicked, button, [&] { ++presses; });
        Focus(button->objectName().toStdString());
        robot.Key(Qt::Key_Return);
        robot.Key(Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(presses, 2) << button->objectName().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachScreensButtonTest,
                         ::testing::Values(ScreenId::Form3, ScreenId::Form4, ScreenId::Form5,
                                           ScreenId::Form6),
                         [](const auto& test) { return NameOf(test.param); });

class TitleTest : public WindowTest {
protected:
    TitleTest() { Open(ScreenId::Form6); }

    QPoint MiddleOf(std::string_view title) {
        const QMenuBar& bar = *window.menuBar();
        return bar.mapTo(&window, bar.actionGeometry(&Action(title)).center());
    }
};

TEST_F(TitleTest, OnlyTheLeftButtonMovesByTheTitleThatMovesAtOnce) {
    for (const auto button : {Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        robot.Act("another button", [&] {
            QTest::mouseClick(window.windowHandle(), button, {}, MiddleOf("regresar"));
        });
        EXPECT_EQ(robot.ScreenName(), "Form6") << button;
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << button;
    }
}

TEST_F(TitleTest, TheTitleThatMovesAtOnceOpensNoListWhenTheMouseIsDraggedOverIt) {
    QWindow* const native = window.windowHandle();
    for (const char* const from : {"guardararchivo", "imprimir", "salir"}) {
        bool opened = false;
        robot.Act("a drag", [&] {
            QTest::mousePress(native, Qt::LeftButton, {}, MiddleOf(from));
            QTest::mouseMove(native, MiddleOf("regresar"));
            opened = QApplication::activePopupWidget() != nullptr;
            QTest::mouseMove(native, QPoint(5, window.height() - 5));
            QTest::mouseRelease(native, Qt::LeftButton, {}, QPoint(5, window.height() - 5));
        });
        EXPECT_FALSE(opened) << from;
        EXPECT_EQ(robot.ScreenName(), "Form6") << from;
        while (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    }
}

using FrameTest = WindowTest;

TEST_F(FrameTest, F11GoesToTheFullScreenAndComesBack) {
    for (const Qt::WindowState before : {Qt::WindowNoState, Qt::WindowMaximized}) {
        window.setWindowState(before);
        robot.Key(Qt::Key_F11);
        EXPECT_TRUE(window.isFullScreen());
        robot.Key(Qt::Key_F11);
        EXPECT_FALSE(window.isFullScreen());
        EXPECT_EQ(window.isMaximized(), before == Qt::WindowMaximized);
    }
}

// The clock.

/// The clock's pattern, with the formatter of the library.
std::string Formatted(std::time_t time) {
    std::ostringstream text;
    text << std::put_time(std::gmtime(&time), "%d:%m:%y     %H:%M:%S");
    return text.str();
}

class TimeZoneTest : public WindowTest {
protected:
    void SetZone(const char* zone) {
        qputenv("TZ", zone);
        tzset();
    }
    void TearDown() override {
        before_.isNull() ? qunsetenv("TZ") : qputenv("TZ", before_);
        tzset();
        WindowTest::TearDown();
    }

private:
    QByteArray before_ = qgetenv("TZ");
};

TEST_F(TimeZoneTest, TheClockShowsTheTimeOfTheUsersZone) {
    constexpr int kHour = 3600;
    const std::array<std::pair<const char*, int>, 3> zones = {
        {{"HERE0", 0}, {"EAST-5:30", 5 * kHour + kHour / 2}, {"WEST11", -11 * kHour}}};
    for (const auto& [zone, offset] : zones) {
        SetZone(zone);
        EXPECT_TRUE(QTest::qWaitFor([&, offset = offset] {
            const std::time_t now = std::time(nullptr);
            return robot.Text("Label5") == Formatted(now + offset);
        })) << zone
            << ": " << robot.Text("Label5");
    }
}

/// A host that counts how often the time is asked for.
class CountingHost : public QtHost {
public:
    std::tm Now() const override {
        ++asked;
        return QtHost::Now();
    }
    mutable int asked = 0;
};

// A timer's turn comes when it is due, and of two that are due both have theirs: however slow the
// machine, one of a millisecond goes at least as often as one of two.
TEST(ClockTimerTest, TheClockIsToldEveryMillisecond) {
    WithSeparator separator{"."};
    ProgramOn<CountingHost> program;
    CountingHost& host = program.host;
    host.Attach(program.window);
    program.window.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return host.asked > 0; }));

    constexpr int kTurns = 100;
    int turns = 0;
    QTimer slower;
    slower.setTimerType(Qt::PreciseTimer);
    QObject::connect(&slower, &QTimer::timeout, &slower, [&] { ++turns; });
    host.asked = 0;
    slower.start(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return turns >= kTurns; }, 60'000));
    EXPECT_GE(host.asked, kTurns - 1);
}

// Pixels.

/// The most colours that stand in one row of the picture within `area`, where `counts` allows.
template <class Counts>
int MostColorsInARow(const QImage& picture, const QRect& area, const Counts& counts) {
    std::size_t most = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        std::set<QRgb> colors;
        for (int x = area.left(); x <= area.right(); ++x) {
            if (counts(QPoint(x, y))) colors.insert(picture.pixel(x, y));
        }
        most = std::max(most, colors.size());
    }
    return static_cast<int>(most);
}

constexpr int kOfADrawing = 4;  // a fill or a gradient from top to foot has one colour in a row

class EachScreensPictureTest : public EachScreenTest {
protected:
    EachScreensPictureTest() {
        window.resize(825, 607);
        QCoreApplication::processEvents();
    }

    /// The background alone, as the canvas paints it now.
    QImage Background() {
        QWidget& canvas = *window.centralWidget();
        QImage picture(canvas.size(), QImage::Format_RGB32);
        canvas.render(&picture, {}, {}, QWidget::DrawWindowBackground);
        return picture;
    }
};

TEST_P(EachScreensPictureTest, ADrawingIsSeenBetweenTheControls) {
    const QWidget& canvas = *window.centralWidget();
    const auto is_free = [&](QPoint place) { return canvas.childAt(place) == nullptr; };
    const QImage seen =
        window.grab(QRect(canvas.mapTo(&window, QPoint()), canvas.size())).toImage();
    EXPECT_GE(MostColorsInARow(seen, canvas.rect(), is_free), kOfADrawing);
}

TEST_P(EachScreensPictureTest, TheDrawingIsAsSharpAfterAResizeAsOnANewScreen) {
    Background();
    window.resize(1650, 1214);
    QCoreApplication::processEvents();
    const QImage resized = Background();
    Open(ScreenId::Form1);
    Open(GetParam());
    ASSERT_EQ(Background().size(), resized.size());
    EXPECT_TRUE(Background() == resized);
}

TEST_P(EachScreensPictureTest, ItsEndsGoOnWhereTheWindowIsTooTall) {
    window.resize(825, 1200);
    QCoreApplication::processEvents();
    const QRect drawing = window.findChild<Canvas*>()->ScreenRect();
    const QImage seen = Background();
    ASSERT_LT(drawing.bottom() + 100, seen.height());
    const QPoint foot(seen.width() / 2, drawing.bottom() - 1);
    EXPECT_LT(seen.pixelColor(foot.x(), seen.height() - 1).lightness(), 60) << "dark as the foot";
    EXPECT_GT(seen.pixelColor(foot.x(), 0).lightness(), 240) << "light as the top";
    EXPECT_LT(seen.pixelColor(foot).lightness(), 60);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachScreensPictureTest,
                         ::testing::Values(ScreenId::Form2, ScreenId::Form3, ScreenId::Form4,
                                           ScreenId::Form5, ScreenId::Form6),
                         [](const auto& test) { return NameOf(test.param); });

class FirstScreenTest : public WindowTest {
protected:
    QImage Seen() { return window.centralWidget()->grab().toImage(); }
};

TEST_F(FirstScreenTest, ThePictureIsSeen) {
    const auto everywhere = [](QPoint) { return true; };
    EXPECT_GE(MostColorsInARow(Seen(), robot.Find("Picture1").geometry(), everywhere), kOfADrawing);
}

TEST_F(FirstScreenTest, TheHeadingOfTheNormHasLettersWithSerifsAndPlainTextsHaveNone) {
    EXPECT_EQ(QFontInfo(robot.Find("Label6").font()).family(), QStringLiteral("Liberation Serif"));
    for (const char* const other : {"Label4", "Label7"}) {
        EXPECT_EQ(QFontInfo(robot.Find(other).font()).family(), QStringLiteral("Liberation Sans"));
    }
    // As drawn: the label's ink is that of its text in these letters.
    const auto& label = robot.Find<QLabel>("Label6");
    const auto ink = [&](const QString& family) {
        QFont font = label.font();
        font.setFamily(family);
        QImage picture(label.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setFont(font);
        painter.setPen(label.palette().color(QPalette::WindowText));
        painter.drawText(picture.rect(), static_cast<int>(label.alignment()), label.text());
        return picture;
    };
    QImage drawn(label.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    robot.Find("Label6").render(&drawn, {}, {}, QWidget::DrawChildren);
    EXPECT_TRUE(drawn == ink(QStringLiteral("Liberation Serif")));
    EXPECT_FALSE(drawn == ink(QStringLiteral("Liberation Sans")));
}

// The white heading reaches into the line below it, which is written over it.
TEST_F(FirstScreenTest, TheLineBelowTheHeadingIsWrittenOverIt) {
    const QRect both = robot.Find("Label1").geometry().intersected(robot.Find("Label6").geometry());
    ASSERT_GE(both.height(), 3);
    const auto everywhere = [](QPoint) { return true; };
    EXPECT_GE(MostColorsInARow(Seen(), both, everywhere), kOfADrawing);
}

using EachScreensOrderTest = EachScreenTest;

TEST_P(EachScreensOrderTest, WhereTwoControlsOverlapTheLaterOneIsOnTop) {
    ShowAll();
    window.setFocus();
    const QWidget& canvas = *window.centralWidget();
    std::vector<const QWidget*> widgets;  // in the order of the table
    for (const Control& control : chain.Current().Controls()) {
        widgets.push_back(&robot.Find(control.name));
    }
    std::vector<std::string> wrong;
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        for (std::size_t j = i + 1; j < widgets.size(); ++j) {
            const QRect both = widgets[i]->geometry().intersected(widgets[j]->geometry());
            if (both.isEmpty() || canvas.childAt(both.center()) != widgets[i]) continue;
            wrong.push_back(widgets[i]->objectName().toStdString() + " over " +
                            widgets[j]->objectName().toStdString());
        }
    }
    EXPECT_THAT(wrong, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachScreensOrderTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

// What a screen reader is told, and texts of any length.

using EachScreensListTest = EachScreenTest;

TEST_P(EachScreensListTest, ALockedListIsToldAsReadOnlyAndAnOpenOneIsNot) {
    ShowAll();
    for (const bool locked : {true, false, true}) {
        window.Run([&] {
            for (const Control& control : chain.Current().Controls()) {
                auto* const* const list = std::get_if<ComboBox*>(&control.state);
                if (list != nullptr) (*list)->Locked = locked;
            }
        });
        const auto lists = window.findChildren<QComboBox*>();
        ASSERT_THAT(lists, ::testing::Not(IsEmpty()));
        for (QComboBox* const list : lists) {
            const auto* const told = QAccessible::queryAccessibleInterface(list);
            EXPECT_EQ(told->state().readOnly, locked) << list->objectName().toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachScreensListTest,
                         ::testing::Values(ScreenId::Form3, ScreenId::Form4),
                         [](const auto& test) { return NameOf(test.param); });

class LongTextTest : public WindowTest {
protected:
    static constexpr std::size_t kLetters = 40'000;  // a field of the toolkit's takes 32767
};

TEST_F(LongTextTest, AFieldThatWasReadStaysWholeAndTakesMore) {
    record.DatosEmpresa(1) = "Acme";
    record.DatosEmpresa(4) = std::string(kLetters, 'a');
    auto& form2 = Open<Form2>(ScreenId::Form2);
    EXPECT_EQ(robot.Text("Text1(4)").size(), kLetters);
    robot.Type("Text1(4)", "b");
    EXPECT_EQ(robot.Text("Text1(4)").size(), kLetters + 1);
    EXPECT_EQ(form2.Text1(4).Text.size(), kLetters + 1);
}

TEST_F(LongTextTest, ACellOfARecoveredDayStaysWhole) {
    auto& form5 = OpenSheet(1, 1, 1);
    form5.Text1(7).Text = std::string(kLetters, '7');
    window.ShowChanges();
    EXPECT_EQ(robot.Text("Text1(7)").size(), kLetters);
    robot.Type("Text1(7)", "5");
    EXPECT_EQ(form5.Text1(7).Text.size(), kLetters + 1);
}

}  // namespace
}  // namespace velmora::test
