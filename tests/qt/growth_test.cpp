// What grows with the window: the screens by one factor, the letters, the boxes and dialogs.

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QScreen>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolTip>

#include <set>

#include "qt/canvas.h"
#include "qt/window_test.h"

namespace velmora::test {
namespace {

class GrowthTest : public WindowTest {
protected:
    /// Gives the window this size and lets it lay itself out.
    void Resize(int width, int height) {
        window.resize(width, height);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.size(), QSize(width, height));
    }
};

TEST_F(GrowthTest, ALetterIsAsLargeOnEachOfTheSixScreens) {
    for (const QSize size :
         {QSize(825, 607), QSize(1237, 910), QSize(1600, 700), QSize(900, 1200)}) {
        Resize(size.width(), size.height());
        std::set<int> rooms;
        std::set<int> clocks;  // all of 8.25 points
        for (const ScreenId id : kScreens) {
            Open(id);
            rooms.insert(window.findChild<Canvas*>()->ScreenRect().width());
            const Label* const clock = &chain.Current().Clock();
            for (const Control& control : chain.Current().Controls()) {
                const auto* const label = std::get_if<Label*>(&control.state);
                if (label == nullptr || *label != clock) continue;
                clocks.insert(robot.Find(control.name).font().pixelSize());
            }
        }
        EXPECT_EQ(rooms.size(), 1U) << size.width();
        EXPECT_EQ(clocks.size(), 1U) << size.width();
    }
}

TEST_F(GrowthTest, TheRoomOfAScreenIsAsSmallAsTheScreensLetIt) {
    Box farthest;
    for (const ScreenId id : kScreens) {
        Open(id);
        std::vector<Box> boxes = {chain.Current().ClientArea()};
        for (const Control& control : chain.Current().Controls()) boxes.push_back(control.row.box);
        for (const Box& box : boxes) {
            farthest.width = std::max(farthest.width, box.left + box.width);
            farthest.height = std::max(farthest.height, box.top + box.height);
        }
    }
    EXPECT_EQ(kRoomOfAScreen.width, farthest.width);
    EXPECT_EQ(kRoomOfAScreen.height, farthest.height);
}

TEST_F(GrowthTest, TheSmallestLettersOnASmallDisplayAreOfSevenPixels) {
    Resize(800, 580);  // a frame's title takes the rest of 800 x 600
    for (const ScreenId id : kScreens) {
        Open(id);
        for (const Control& control : chain.Current().Controls()) {
            const bool bears_text = !std::holds_alternative<Picture>(control.state);
            if (!bears_text || control.row.box.height < 200) continue;  // a mark holds no text
            EXPECT_GE(robot.Find(control.name).font().pixelSize(), 7) << control.name;
        }
    }
}

struct Display {
    const char* name;
    QSize room;
    QSize size;
    bool maximized;
};

// Worked by hand: the layout is 825 x 585 with its menu bar, and 1.2 times that is 990 x 702.
// clang-format off
const std::array<Display, 6> kDisplays = {{
    {"Small",      {800, 600},   {560, 397},   true},   // 0.7 x 800 wide
    {"Laptop",     {1366, 768},  {758, 538},   true},   // 0.7 x 768 high
    {"JustBelow",  {2000, 1002}, {989, 701},   true},   // 701.4 high
    {"JustAbove",  {2000, 1004}, {991, 703},   false},  // 702.8 high
    {"FullHd",     {1920, 1080}, {1066, 756},  false},
    {"FourK",      {3840, 2160}, {2132, 1512}, false},
}};
// clang-format on

TEST(FirstSizeTest, IsAboutSeventyPerCentOfALargeDisplayAndAllOfASmallOne) {
    for (const Display& display : kDisplays) {
        const FirstSize first = FirstSizeOn(display.room);
        EXPECT_EQ(first.size, display.size) << display.name;
        EXPECT_EQ(first.maximized, display.maximized) << display.name;
    }
}

TEST_F(GrowthTest, TheWindowStartsMaximizedOnASmallDisplay) {
    ASSERT_EQ(window.screen()->availableSize(), QSize(800, 800));  // what the platform gives
    window.hide();
    window.Start();
    EXPECT_TRUE(window.isMaximized());
}

/// Where the screen stands below the menu bar whenever it is painted.
class Tops : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) seen.insert(qobject_cast<QWidget*>(watched)->y());
        return false;
    }

    std::set<int> seen;
};

TEST_F(GrowthTest, NoPictureOfTheStartHasTheMenuBarAtTheHeightOfOtherLetters) {
    Window fresh(chain, host);
    Tops tops;
    fresh.centralWidget()->installEventFilter(&tops);
    fresh.Start();
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();  // whatever is still laid out
    EXPECT_EQ(tops.seen, std::set<int>{fresh.centralWidget()->y()});
}

/// Sizes at the layout's own size and at twice it.
struct Twice {
    int once = 0;
    int twice = 0;
};

class GrowingThings : public GrowthTest {
protected:
    /// What is measured in the window at its layout's size, and at twice it.
    Twice Measure(const std::function<int()>& measured) {
        Resize(825, 607);
        const int once = measured();
        Resize(1650, 1214);
        return {once, measured()};
    }

    /// The letters, in pixels, of every widget of a dialog; a test of one that bears no text gives
    /// a set without them.
    static std::set<int> LettersOf(const QDialog& dialog) {
        std::set<int> sizes;
        for (const QWidget* const widget : dialog.findChildren<QWidget*>()) {
            const bool bears_text = widget->inherits("QLabel") || widget->inherits("QLineEdit") ||
                                    widget->inherits("QAbstractButton") ||
                                    widget->inherits("QAbstractItemView") ||
                                    widget->inherits("QComboBox");
            if (bears_text) sizes.insert(QFontInfo(widget->font()).pixelSize());
        }
        return sizes;
    }

    static int LinesOf(const QLabel& label) {
        const double line = label.fontMetrics().lineSpacing();
        return qRound(label.contentsRect().height() / line);
    }
};

// 10 points are 13 pixels at the size of the layout, and 26 at twice it: worked by hand.

TEST_F(GrowingThings, ABoxGrowsWithItsLettersAndItsSign) {
    std::set<int> letters;
    int sign = 0;
    robot.on_modal = [&](QDialog& modal) {
        letters = LettersOf(modal);
        sign = dynamic_cast<QMessageBox&>(modal).iconPixmap().width();
    };
    const Twice signs = Measure([&] {
        robot.ExpectBox(BoxOf("x", MsgBoxStyle::YesNoInformation, QMessageBox::Yes));
        robot.Act("a box", [&] { host.MsgBox("x", MsgBoxStyle::YesNoInformation, "Velmora"); });
        EXPECT_THAT(letters, ::testing::ElementsAre(window.width() == 825 ? 13 : 26));
        return sign;
    });
    EXPECT_GT(signs.once, 0);
    EXPECT_EQ(signs.twice, 2 * signs.once);
}

TEST_F(GrowingThings, ABoxKeepsItsTwoLines) {
    // Each line is longer than the 400 pixels from which the toolkit breaks it on this display.
    const std::string line(75, 'a');
    std::string text = line;
    for (std::size_t i = 8; i < text.size(); i += 9) text[i] = ' ';
    int lines = 0;
    robot.on_modal = [&](QDialog& modal) {
        const auto& label = *modal.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        lines = LinesOf(label);
        EXPECT_GT(label.width(), 400);
        EXPECT_FALSE(label.wordWrap());
    };
    Resize(825, 607);
    robot.ExpectBox(BoxOf(text + "\n" + text, MsgBoxStyle::Ok));
    robot.Act("a box", [&] { host.MsgBox(text + "\r\n" + text, MsgBoxStyle::Ok, "Velmora"); });
    EXPECT_EQ(lines, 2);
}

TEST_F(GrowingThings, ABoxIsInTheMiddleAndKeepsItsSizeWhenItIsLaidOutAgain) {
    std::string text(75, 'a');  // wider than the 400 pixels from which the toolkit breaks it
    for (std::size_t i = 8; i < text.size(); i += 9) text[i] = ' ';
    EventCount resizes(QEvent::Resize);
    QRect place;
    robot.on_modal = [&](QDialog& modal) {
        place = modal.frameGeometry();
        modal.installEventFilter(&resizes);
        QCoreApplication::postEvent(&modal, new QEvent(QEvent::LayoutRequest));
        QCoreApplication::sendPostedEvents(&modal);
    };
    Resize(825, 607);
    robot.ExpectBox(BoxOf(text, MsgBoxStyle::Ok));
    robot.Act("a box", [&] { host.MsgBox(text, MsgBoxStyle::Ok, "Velmora"); });
    EXPECT_EQ(resizes.count, 0);
    EXPECT_NEAR(place.center().x(), window.frameGeometry().center().x(), 2);
}

TEST_F(GrowingThings, ABoxWhoseLineIsWiderThanTheDisplayBreaksItAndShowsItWhole) {
    std::string text(200, 'a');
    for (std::size_t i = 8; i < text.size(); i += 9) text[i] = ' ';
    robot.on_modal = [&](QDialog& modal) {
        const auto& label = *modal.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        EXPECT_TRUE(label.wordWrap());
        EXPECT_GE(label.height(), label.heightForWidth(label.width()));
        EXPECT_LE(modal.width(), modal.screen()->availableSize().width());
    };
    Resize(1650, 1214);
    robot.ExpectBox(BoxOf(text, MsgBoxStyle::Ok));
    robot.Act("a box", [&] { host.MsgBox(text, MsgBoxStyle::Ok, "Velmora"); });
}

TEST_F(GrowingThings, AFileDialogGrowsWithItsQuestion) {
    const QTemporaryDir folder;
    Open(ScreenId::Form6);
    std::set<int> letters;
    robot.on_modal = [&](QDialog& modal) {
        letters.merge(LettersOf(modal));
        const QSize display = modal.screen()->availableSize();
        EXPECT_EQ(modal.size().boundedTo(display), modal.size()) << "it fits the display";
    };
    Resize(1650, 1214);
    robot.ExpectFileDialog(folder.filePath(QStringLiteral("nuevo")).toStdString());
    robot.ExpectPrompt("no existe", QMessageBox::No);
    robot.ExpectFileDialog(std::nullopt);
    robot.Choose("guardararchivo");
    EXPECT_THAT(letters, ::testing::ElementsAre(26));
}

TEST_F(GrowingThings, AFileDialogsQuestionsKeepTheirTwoLines) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("guardado.doc")));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    Open(ScreenId::Form6);
    std::vector<int> lines;
    robot.on_modal = [&](QDialog& modal) {
        const auto* const label = modal.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        if (label == nullptr) return;
        lines.push_back(LinesOf(*label));
    };
    Resize(1650, 1214);
    for (const auto& [name, question] :
         {std::pair("guardado", "ya existe"), std::pair("nuevo", "no existe")}) {
        robot.ExpectFileDialog(folder.filePath(QString::fromUtf8(name)).toStdString());
        robot.ExpectPrompt(question, QMessageBox::No);
        robot.ExpectFileDialog(std::nullopt);
        robot.Choose("guardararchivo");
    }
    EXPECT_THAT(lines, ::testing::ElementsAre(2, 2));
}

/// The dark pixels of the arrows at the right end of a counter.
int InkOfArrows(QAbstractSpinBox& counter) {
    const QImage seen = counter.grab().toImage();
    constexpr int kFrame = 3;
    int ink = 0;
    for (int y = kFrame; y < seen.height() - kFrame; ++y) {
        for (int x = counter.findChild<QLineEdit*>()->geometry().right() + kFrame;
             x < seen.width() - kFrame; ++x) {
            if (seen.pixelColor(x, y).lightness() < 130) ++ink;
        }
    }
    return ink;
}

TEST_F(GrowingThings, TheArrowsOfACounterAndTheButtonsOfADialogGrow) {
    Open(ScreenId::Form2);
    CommonDialog dialog;
    int button = 0;
    const Twice ink = Measure([&] {
        int arrows = 0;
        robot.ExpectPrintDialog(Robot::Print::Cancel, [&](QPrintDialog& shown) {
            QSpinBox counter(&shown);  // with a value in the middle both arrows are dark
            counter.setValue(7);
            counter.resize(counter.sizeHint());
            arrows = InkOfArrows(counter);
            button = shown.findChild<QDialogButtonBox*>()->buttons().front()->width();
        });
        robot.Act("the print dialog", [&] { host.ShowPrinter(dialog); });
        return arrows;
    });
    EXPECT_GT(ink.once, 8);
    EXPECT_GE(ink.twice, 2 * ink.once);
    EXPECT_GE(button, 160);  // twice the style's own 80 pixels
}

TEST_F(GrowingThings, ThePrintDialogGrows) {
    Open(ScreenId::Form2);
    std::set<int> letters;
    Resize(1650, 1214);
    CommonDialog dialog;
    robot.ExpectPrintDialog(Robot::Print::Cancel,
                            [&](QPrintDialog& shown) { letters = LettersOf(shown); });
    robot.Act("the print dialog", [&] { host.ShowPrinter(dialog); });
    EXPECT_THAT(letters, ::testing::ElementsAre(26));
}

TEST_F(GrowingThings, AToolTipGrows) {
    Resize(1650, 1214);
    QToolTip::showText(window.mapToGlobal(QPoint(10, 10)), QStringLiteral("una frase"));
    const auto shown = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        shown, [](const QWidget* w) { return w->inherits("QTipLabel") && w->isVisible(); });
    ASSERT_NE(tip, shown.end());
    EXPECT_EQ(QFontInfo((*tip)->font()).pixelSize(), 26);
    QToolTip::hideText();
}

TEST_F(GrowingThings, TheArrowOfAListGrows) {
    Open(ScreenId::Form3);
    // The dark pixels in the right half of a list are those of its arrow.
    const Twice dark = Measure([&] {
        Focus("Combo1(1)");  // the focus paints dark lines, too
        const QImage list = robot.Find("Combo1(0)").grab().toImage();
        int count = 0;
        for (int y = 3; y < list.height() - 3; ++y) {
            for (int x = list.width() / 2; x < list.width() - 3; ++x) {
                if (list.pixelColor(x, y).lightness() < 130) ++count;
            }
        }
        return count;
    });
    EXPECT_GT(dark.once, 8);
    EXPECT_GE(dark.twice, 2 * dark.once);
}

// What a label shows is compared with a text painted in the face by its own name.

int WidthOfInk(const QImage& picture) {
    int left = picture.width();
    int right = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y).lightness() > 128) continue;
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    return right - left;
}

int WidthIn(const QString& face, const QString& text, const QFont& like) {
    QFont font(face);
    font.setPixelSize(like.pixelSize());
    font.setBold(like.bold());
    QImage picture(1600, 60, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.drawText(20, 40, text);
    painter.end();
    return WidthOfInk(picture);
}

struct Face {
    ScreenId screen;
    const char* control;
    std::array<const char*, 2> faces;  ///< the one asked for, and its stand-in
};

// clang-format off
constexpr std::array<Face, 3> kFaces = {{
    {ScreenId::Form1, "Label1", {"Verdana", "DejaVu Sans"}},
    {ScreenId::Form1, "Label6", {"Times New Roman", "Liberation Serif"}},
    {ScreenId::Form1, "Label4", {"Arial", "Liberation Sans"}},
}};
// clang-format on

int WidthOfInk(QLabel& label) {
    QImage picture(label.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter(&picture).drawPixmap(0, 0, label.grab());
    return WidthOfInk(picture);
}

TEST_F(GrowingThings, TheLettersOfTheScreenThatIsShownGrow) {
    const Twice ink = Measure([&] { return WidthOfInk(robot.Find<QLabel>("Label4")); });
    EXPECT_NEAR(ink.twice, 2 * ink.once, ink.once / 10.0);
}

TEST_F(GrowthTest, LabelsAreShownInTheFaceThatTheyAskForOrItsStandIn) {
    const QStringList installed = QFontDatabase::families();
    for (const auto& [screen, control, faces] : kFaces) {
        Open(screen);
        Resize(1237, 910);
        auto& label = robot.Find<QLabel>(control);
        const int shown = WidthOfInk(label);
        for (const Face& other : kFaces) {
            const auto face = std::ranges::find_if(other.faces, [&](const char* name) {
                return installed.contains(QLatin1String(name));
            });
            ASSERT_NE(face, other.faces.end()) << other.control << ": neither face is installed";
            const int width = WidthIn(QLatin1String(*face), label.text().trimmed(), label.font());
            if (other.control == control) {
                EXPECT_NEAR(shown, width, 1) << control << " in " << *face;
            } else {
                EXPECT_GT(std::abs(shown - width), 3) << control << " against " << *face;
            }
        }
    }
}

}  // namespace
}  // namespace velmora::test
