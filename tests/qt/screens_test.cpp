// Over the tables of all six screens: each control and each menu entry stands on the window as the
// screen holds it.

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <cmath>

#include "qt/text.h"
#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

/// A colour number as the toolkit's: low byte red; the two system colours are those of the window.
QColor Seen(Color color) {
    if (color == kWindowBackground) return {255, 255, 255};
    if (color == kWindowText) return {0x14, 0x1e, 0x2d};
    return {static_cast<int>(color & 0xFFU), static_cast<int>(color >> 8U & 0xFFU),
            static_cast<int>(color >> 16U & 0xFFU)};
}

class ScreenOnWindowTest : public EachScreenTest {
protected:
    const Screen& Shown() { return chain.Current(); }

    /// Each control against the one widget of its name.
    void ExpectAllShown() {
        for (const Control& control : Shown().Controls()) {
            SCOPED_TRACE(control.name);
            const auto found = window.findChildren<QWidget*>(ToQt(control.name));
            ASSERT_EQ(found.size(), 1);
            std::visit([&](const auto& held) { Expect(*found.front(), held, control.row); },
                       control.state);
        }
    }

    static void Expect(const QWidget& widget, const TextCell* cell, const Row& row) {
        const auto* const edit = qobject_cast<const QLineEdit*>(&widget);
        ASSERT_NE(edit, nullptr) << "a cell is a QLineEdit";
        EXPECT_EQ(edit->text().toStdString(), cell->Text);
        EXPECT_EQ(edit->isVisible(), cell->Visible);
        EXPECT_EQ(edit->property("Locked"), QVariant(cell->Locked));
        EXPECT_TRUE(edit->isHidden() || edit->isReadOnly() == cell->Locked);
        EXPECT_TRUE(edit->isEnabled());
        const Color fore = cell->ForeColor == kWindowText ? row.look.fore : cell->ForeColor;
        EXPECT_EQ(edit->palette().color(QPalette::Text), Seen(fore));
        if (row.look.back != Look::kTransparent) {
            const Color back =
                cell->BackColor == kWindowBackground ? row.look.back : cell->BackColor;
            EXPECT_EQ(edit->palette().color(QPalette::Base), Seen(back));
        }
    }

    static void Expect(const QWidget& widget, const ComboBox* list, const Row& row) {
        const auto* const box = qobject_cast<const QComboBox*>(&widget);
        ASSERT_NE(box, nullptr) << "a list is a QComboBox";
        EXPECT_EQ(box->currentText().toStdString(), list->Text);
        EXPECT_EQ(box->isVisible(), list->Visible);
        EXPECT_EQ(box->property("Locked"), QVariant(list->Locked));
        EXPECT_TRUE(box->isEnabled());
        ASSERT_EQ(box->count(), static_cast<int>(row.items.size()));
        for (int i = 0; i < box->count(); ++i) {
            EXPECT_EQ(box->itemText(i).toStdString(), row.items[static_cast<std::size_t>(i)]);
        }
    }

    static void Expect(const QWidget& widget, const Label* label, const Row& row) {
        const auto* const text = qobject_cast<const QLabel*>(&widget);
        ASSERT_NE(text, nullptr) << "a label is a QLabel";
        EXPECT_EQ(text->text().toStdString(), label->Caption);
        EXPECT_EQ(text->isVisible(), label->Visible);
        EXPECT_EQ(text->textFormat(), Qt::PlainText);
        EXPECT_EQ(text->palette().color(QPalette::WindowText), Seen(row.look.fore));
        EXPECT_EQ(text->autoFillBackground(), row.look.back != Look::kTransparent);
        if (row.look.back != Look::kTransparent) {
            EXPECT_EQ(text->palette().color(QPalette::Window), Seen(row.look.back));
        }
    }

    static void Expect(const QWidget& widget, const Button* button, const Row& /*row*/) {
        const auto* const push = qobject_cast<const QPushButton*>(&widget);
        ASSERT_NE(push, nullptr) << "a button is a QPushButton";
        EXPECT_EQ(push->text().toStdString(), button->Caption);
        EXPECT_EQ(push->isVisible(), button->Visible);
        EXPECT_EQ(push->isEnabled(), button->Enabled);
    }

    static void Expect(const QWidget& widget, const Picture& /*picture*/, const Row& /*row*/) {
        EXPECT_TRUE(widget.isVisible());
    }
};

TEST_P(ScreenOnWindowTest, TheWindowBearsTheNameAndTheCaptionOfTheScreen) {
    EXPECT_EQ(robot.ScreenName(), NameOf(GetParam()));
    EXPECT_EQ(robot.WindowCaption(), Shown().Caption);
}

TEST_P(ScreenOnWindowTest, EachControlIsShownAsTheScreenOpens) { ExpectAllShown(); }

TEST_P(ScreenOnWindowTest, EachControlIsShownWithEverythingVisibleAndOpen) {
    ShowAll();
    ExpectAllShown();
}

TEST_P(ScreenOnWindowTest, EachCellIsLockedAndOpenedAgainWhereItIsSeen) {
    for (const bool locked : {true, false, true}) {
        window.Run([&] {
            for (const Control& control : Shown().Controls()) {
                auto* const cell = std::get_if<TextCell*>(&control.state);
                if (cell != nullptr) (*cell)->Visible = true, (*cell)->Locked = locked;
            }
        });
        ExpectAllShown();
    }
}

TEST_P(ScreenOnWindowTest, EachControlFollowsEveryOfItsProperties) {
    struct Flipper {
        void operator()(TextCell* cell) const {
            cell->Text += " ñ 1,5  ";
            cell->Visible = !cell->Visible;
            cell->Locked = !cell->Locked;
            cell->BackColor = 250;
            cell->ForeColor = 0x80000005;
        }
        void operator()(ComboBox* list) const {
            list->Text += "no de la lista";
            list->Visible = !list->Visible;
            list->Locked = !list->Locked;
        }
        void operator()(Label* label) const {
            label->Caption += " <b>&amp;</b>";
            label->Visible = !label->Visible;
        }
        void operator()(Button* button) const {
            button->Caption += "  2";
            button->Visible = !button->Visible;
            button->Enabled = !button->Enabled;
        }
        void operator()(Picture) const {}
    };
    window.Run([this] {
        for (const Control& control : Shown().Controls()) std::visit(Flipper{}, control.state);
    });
    ExpectAllShown();
}

TEST_P(ScreenOnWindowTest, EachToolTipIsThatOfItsRow) {
    for (const Control& control : Shown().Controls()) {
        EXPECT_EQ(robot.Find(control.name).toolTip().toStdString(), control.row.tool_tip)
            << control.name;
    }
}

TEST_P(ScreenOnWindowTest, EachFontIsAsLargeAndAsBoldAsItsRowTells) {
    for (const QSize size : {QSize(825, 607), QSize(1650, 1200)}) {
        window.resize(size);
        QCoreApplication::processEvents();
        for (const Control& control : Shown().Controls()) {
            const QWidget& widget = robot.Find(control.name);
            const Look& look = control.row.look;
            EXPECT_EQ(widget.font().bold(), look.bold) << control.name;
            // A point is 20 twips; the scale is taken from the control's own width.
            const double wanted = look.points * 20 * widget.width() / control.row.box.width;
            if (control.row.box.width < 300) continue;  // too few pixels to tell the scale
            EXPECT_NEAR(widget.font().pixelSize(), wanted, 1.0 + 0.03 * wanted) << control.name;
        }
    }
}

TEST_P(ScreenOnWindowTest, TheTextStandsOnTheSideThatItsRowTells) {
    for (const Control& control : Shown().Controls()) {
        const QWidget& widget = robot.Find(control.name);
        const auto* const label = qobject_cast<const QLabel*>(&widget);
        const auto* const cell = qobject_cast<const QLineEdit*>(&widget);
        if (label == nullptr && cell == nullptr) continue;
        const Qt::Alignment side =
            (label != nullptr ? label->alignment() : cell->alignment()) & Qt::AlignHorizontal_Mask;
        const auto wanted =
            control.row.look.align == Align::Center ? Qt::AlignHCenter : Qt::AlignLeft;
        EXPECT_EQ(side, wanted) << control.name;
    }
}

TEST_P(ScreenOnWindowTest, EachCellListAndButtonIsSpoken) {
    ShowAll();
    for (const Control& control : Shown().Controls()) {
        if (std::holds_alternative<Picture>(control.state)) continue;
        QWidget& widget = robot.Find(control.name);
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&widget);
        ASSERT_NE(spoken, nullptr) << control.name;
        const bool is_clock = std::holds_alternative<Label*>(control.state) &&
                              std::get<Label*>(control.state) == &Shown().Clock();
        if (is_clock) continue;  // its text comes with the first tick
        EXPECT_FALSE(spoken->text(QAccessible::Name).trimmed().isEmpty()) << control.name;
    }
}

TEST_P(ScreenOnWindowTest, NoTwoControlsThatTakeTheFocusAreSpokenAlike) {
    std::map<std::string, std::string> names;
    for (const Control& control : Shown().Controls()) {
        if (control.row.tab == kNoTab) continue;
        QWidget& widget = robot.Find(control.name);
        const std::string spoken =
            QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name).toStdString();
        const auto [other, is_new] = names.emplace(spoken, control.name);
        EXPECT_TRUE(is_new) << control.name << " and " << other->second << ": " << spoken;
    }
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, ScreenOnWindowTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

using CaptionTest = WindowTest;

// As they stand in the title bar on arrival; the sheet's load handler sets its own.
TEST_F(CaptionTest, EachScreenHasItsCaptionToTheLetter) {
    // clang-format off
    const std::vector<std::pair<ScreenId, std::string>> captions = {
        {ScreenId::Form1, ".     Velmora / h1"},
        {ScreenId::Form2, "     Velmora / h2"},
        {ScreenId::Form3, "    Velmora / h3"},
        {ScreenId::Form4, " Velmora / h4"},
        {ScreenId::Form5, "Velmora / h5                          CÁLCULOS   Y   RESULTADOS "},
        {ScreenId::Form6, " Velmora / h6"},
    };
    // clang-format on
    for (const auto& [id, caption] : captions) {
        Open(id);
        EXPECT_EQ(robot.WindowCaption(), caption);
    }
}

TEST_F(CaptionTest, AnEntryOfADayNamesItInTheTitleBarEvenWhenTheDayIsRefused) {
    // clang-format off
    const std::vector<std::array<std::string, 3>> captions = {
        {"introducirdatos", "introprimero",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA "},
        {"introducirdatos", "introsegundo",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA"},
        {"introducirdatos", "introtercero",    "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA"},
        {"recuperar",       "recupprimerdia",  "Velmora / h5                          CÁLCULOS   Y   RESULTADOS: PRIMER DIA "},
        {"recuperar",       "recupsegundodia", "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : SEGUNDO DIA"},
        {"recuperar",       "recuptercerdia",  "Velmora / h5                          CÁLCULOS   Y   RESULTADOS : TERCER DIA"},
    };
    // clang-format on
    Open(ScreenId::Form5);
    for (const auto& [title, entry, caption] : captions) {
        robot.ExpectBox({.text = messages::kIncoherentDay});
        robot.Choose(title, entry);
        EXPECT_EQ(robot.WindowCaption(), caption);
    }
}

}  // namespace
}  // namespace velmora::test
