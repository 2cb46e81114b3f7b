// What gets into a cell, by every road there is.

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QWindow>

#include "capture/form2.h"
#include "capture/form4.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "sheet/form5.h"

namespace velmora::test {
namespace {

class CellTest : public WindowTest {
protected:
    QLineEdit& Edit(std::string_view cell) { return robot.Find<QLineEdit>(cell); }

    static void Copy(std::string_view text) { QApplication::clipboard()->setText(ToQt(text)); }

    /// Drags a text over the middle of a widget, by the road through the native window, and drops
    /// it where the window takes it; tells whether it did.
    bool Drop(QWidget& widget, std::string_view text) {
        const QPoint place = widget.mapTo(&window, widget.rect().center());
        QMimeData data;
        data.setText(ToQt(text));
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &enter);
        if (!enter.isAccepted()) return false;
        QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &move);
        QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &drop);
        return true;
    }

    /// Hands a text in by the input method, as composed and as committed.
    static void Compose(QWidget& widget, std::string_view text) {
        QInputMethodEvent composing(ToQt(text), {});
        QCoreApplication::sendEvent(&widget, &composing);
        QInputMethodEvent committing;
        committing.setCommitString(ToQt(text));
        QCoreApplication::sendEvent(&widget, &committing);
    }

    /// The captions of a cell's context menu, opened by the mouse and closed without a choice.
    std::vector<std::string> ContextMenuOf(std::string_view cell) {
        std::vector<std::string> captions;
        robot.Act("a context menu", [&] {
            QLineEdit& edit = Edit(cell);
            const auto look = [&] {
                auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                if (menu == nullptr) return;
                for (const QAction* const action : menu->actions()) {
                    const char* const closed = action->isEnabled() ? "" : " (closed)";
                    if (!action->isSeparator()) {
                        captions.push_back(action->text().toStdString() + closed);
                    }
                }
                menu->close();
            };
            QTimer::singleShot(0, &edit, look);  // one kind of menu runs until it is closed
            const QPoint middle = edit.rect().center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, middle, edit.mapToGlobal(middle));
            QCoreApplication::sendEvent(&edit, &event);
            if (captions.empty()) look();
        });
        return captions;
    }
};

/// A cell whose filter is the only way in: a sample of the sheet, a limit value and an additive
/// mark of the contaminants, a cell of the plan that takes no key at all.
struct Filtered {
    const char* name;
    ScreenId screen;
    const char* cell;
    const char* text;  ///< what it holds, typed or given
};

// clang-format off
constexpr std::array<Filtered, 6> kFiltered = {{
    {"Sample",       ScreenId::Form5, "Text1(7)", "12.5"},
    {"LockedName",   ScreenId::Form5, "Text1(1)", "agente"},
    {"LimitEd",      ScreenId::Form4, "Text1(2)", "100"},
    {"AdditiveMark", ScreenId::Form4, "Text1(4)", "0"},
    {"SamplingTime", ScreenId::Form4, "Text3(0)", "15"},
    {"CellOfPlan",   ScreenId::Form3, "Text1(2)", "8"},
}};
// clang-format on

class FilteredCellTest : public CellTest, public ::testing::WithParamInterface<Filtered> {
protected:
    FilteredCellTest() {
        SetPlan(1, 1, 1);
        Open(GetParam().screen);
        if (GetParam().screen == ScreenId::Form4) {
            robot.Pick("Combo1", "1");
            robot.Press("Command3");
        } else if (GetParam().screen == ScreenId::Form5) {
            robot.Choose("introducirdatos", "introprimero");
            if (std::string_view(cell) == "Text1(7)") robot.Type(cell, "12.5");
        }
        robot.Click(cell);
        Edit(cell).selectAll();  // the easiest prey
        Copy("9");
    }

    const TextCell& Held() {
        return *std::get<TextCell*>(chain.Current().FindControl(cell)->state);
    }

    void ExpectUntouched(std::string_view by) {
        EXPECT_EQ(robot.Text(cell), GetParam().text) << by;
        EXPECT_EQ(Held().Text, GetParam().text) << by;
    }

    std::string_view cell = GetParam().cell;
};

TEST_P(FilteredCellTest, NoKeyThatEditsWithoutACharacterOfTheFilterChangesIt) {
    ExpectUntouched("at first");
    const std::vector<std::tuple<const char*, Qt::Key, Qt::KeyboardModifiers>> keys = {
        {"Ctrl+V", Qt::Key_V, Qt::ControlModifier},
        {"Shift+Insert", Qt::Key_Insert, Qt::ShiftModifier},
        {"Ctrl+Shift+V", Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier},
        {"Ctrl+X", Qt::Key_X, Qt::ControlModifier},
        {"Shift+Delete", Qt::Key_Delete, Qt::ShiftModifier},
        {"Delete", Qt::Key_Delete, Qt::NoModifier},
        {"Ctrl+Delete", Qt::Key_Delete, Qt::ControlModifier},
        {"Ctrl+K", Qt::Key_K, Qt::ControlModifier},
        {"Ctrl+U", Qt::Key_U, Qt::ControlModifier},
        {"Ctrl+D", Qt::Key_D, Qt::ControlModifier},
        {"Ctrl+Z", Qt::Key_Z, Qt::ControlModifier},
        {"Ctrl+Y", Qt::Key_Y, Qt::ControlModifier},
        {"Ctrl+Shift+Z", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier},
        {"Ctrl+5", Qt::Key_5, Qt::ControlModifier},
        {"Alt+5", Qt::Key_5, Qt::AltModifier},
        {"a letter", Qt::Key_A, Qt::NoModifier},
        {"a comma", Qt::Key_Comma, Qt::NoModifier},
        {"a minus", Qt::Key_Minus, Qt::NoModifier},
        {"a blank", Qt::Key_Space, Qt::NoModifier},
        {"Enter", Qt::Key_Return, Qt::NoModifier},
        {"Escape", Qt::Key_Escape, Qt::NoModifier},
    };
    for (const auto& [name, key, modifiers] : keys) {
        robot.Key(key, modifiers);
        ExpectUntouched(name);
        Edit(cell).selectAll();
    }
    for (const Qt::Key key : {Qt::Key_Paste, Qt::Key_Cut, Qt::Key_Undo, Qt::Key_Redo}) {
        QTest::sendKeyEvent(QTest::Click, window.windowHandle(), key, QString(), {});
        ExpectUntouched("a key of its own for an edit");
        Edit(cell).selectAll();
    }
}

TEST_P(FilteredCellTest, ADropChangesNothing) {
    EXPECT_FALSE(Drop(Edit(cell), "9"));
    ExpectUntouched("the window's road");
    QMimeData data;
    data.setText(QStringLiteral("9"));
    QDropEvent drop(Edit(cell).rect().center(), Qt::CopyAction, &data, Qt::LeftButton,
                    Qt::NoModifier);
    QCoreApplication::sendEvent(&Edit(cell), &drop);
    ExpectUntouched("a drop straight on the cell");
}

TEST_P(FilteredCellTest, AMiddleClickPastesNothing) {
    if (QApplication::clipboard()->supportsSelection()) {
        QApplication::clipboard()->setText(QStringLiteral("9"), QClipboard::Selection);
    }
    QTest::mouseClick(&Edit(cell), Qt::MiddleButton);
    ExpectUntouched("a middle click");
}

TEST_P(FilteredCellTest, AnInputMethodChangesNothing) {
    Edit(cell).clearFocus();  // so that no blinking cursor tells two pictures apart
    const QImage before = Edit(cell).grab().toImage();
    QInputMethodEvent composing(QStringLiteral("999"), {});
    QCoreApplication::sendEvent(&Edit(cell), &composing);
    EXPECT_EQ(Edit(cell).grab().toImage(), before) << "text being composed shows";
    Compose(Edit(cell), "9");
    ExpectUntouched("an input method");
    EXPECT_FALSE(Edit(cell).inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST_P(FilteredCellTest, ItsContextMenuCopiesAndSelectsAndNothingMore) {
    std::vector<std::string> entries = {"Copiar", "Seleccionar todo"};
    if (GetParam().screen != ScreenId::Form3) entries.push_back("Copiar toda la tabla");
    EXPECT_THAT(ContextMenuOf(cell), ElementsAreArray(entries));
    Edit(cell).deselect();
    entries.front() = "Copiar (closed)";
    EXPECT_THAT(ContextMenuOf(cell), ElementsAreArray(entries));
    ExpectUntouched("the context menu");
}

TEST_P(FilteredCellTest, AScreenReadersTextInterfaceChangesNothing) {
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&Edit(cell));
    spoken->setText(QAccessible::Value, QStringLiteral("9"));
    ExpectUntouched("setText");
    QAccessibleEditableTextInterface* const editor = spoken->editableTextInterface();
    if (editor != nullptr) {
        editor->insertText(0, QStringLiteral("9"));
        ExpectUntouched("insertText");
        editor->replaceText(0, 1, QStringLiteral("9"));
        ExpectUntouched("replaceText");
        editor->deleteText(0, 1);
        ExpectUntouched("deleteText");
    }
}

TEST_P(FilteredCellTest, ArrowsHomeEndAndSelectingWork) {
    QLineEdit& edit = Edit(cell);
    const int length = static_cast<int>(edit.text().size());
    robot.Key(Qt::Key_End);
    EXPECT_EQ(edit.cursorPosition(), length);
    EXPECT_FALSE(edit.hasSelectedText());
    robot.Key(Qt::Key_Left);
    EXPECT_EQ(edit.cursorPosition(), length - 1);
    robot.Key(Qt::Key_Right);
    EXPECT_EQ(edit.cursorPosition(), length);
    robot.Key(Qt::Key_Home);
    EXPECT_EQ(edit.cursorPosition(), 0);
    robot.Key(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(edit.selectedText().toStdString(), GetParam().text);
    robot.Key(Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), GetParam().text) << "copied";
    ExpectUntouched("moving, selecting and copying");
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, FilteredCellTest, ::testing::ValuesIn(kFiltered),
                         [](const auto& test) { return std::string(test.param.name); });

/// The sheet of a plan of one task of two contaminants, laid out.
class SampleCellTest : public CellTest {
protected:
    SampleCellTest() { OpenSheet(1, 1, 2); }

    std::string Held(int cell) { return Current<Form5>().Text1(cell).Text; }
};

TEST_F(SampleCellTest, WhatIsTypedLandsInTheCellsDataKeyByKey) {
    robot.Click("Text1(7)");
    std::string typed;
    for (const auto& [key, letter] : {std::pair{Qt::Key_1, '1'}, std::pair{Qt::Key_2, '2'},
                                      std::pair{Qt::Key_Period, '.'}, std::pair{Qt::Key_5, '5'}}) {
        robot.Key(key);
        typed.push_back(letter);
        EXPECT_EQ(robot.Text("Text1(7)"), typed);
        EXPECT_EQ(Held(7), typed);
    }
}

TEST_F(SampleCellTest, DigitsAndOnePointPassAndAllElseIsDropped) {
    robot.Type("Text1(7)", ".a-1,2.3.4eE+ ñ");
    EXPECT_EQ(robot.Text("Text1(7)"), "12.34");
    EXPECT_EQ(Held(7), "12.34");
}

TEST_F(SampleCellTest, TheKeypadTypesDigitsAndPoint) {
    robot.Click("Text1(7)");
    robot.Key(Qt::Key_7, Qt::KeypadModifier);
    robot.Key(Qt::Key_Period, Qt::KeypadModifier);
    robot.Key(Qt::Key_5, Qt::KeypadModifier);
    EXPECT_EQ(Held(7), "7.5");
}

TEST_F(SampleCellTest, ADigitReplacesWhatIsSelected) {
    robot.Type("Text1(7)", "12");
    Edit("Text1(7)").selectAll();
    robot.Key(Qt::Key_9);
    EXPECT_EQ(robot.Text("Text1(7)"), "9");
    EXPECT_EQ(Held(7), "9");
}

TEST_F(SampleCellTest, ABackspaceWipesTheCellFromAnyPlaceInIt) {
    robot.Type("Text1(7)", "12.5");
    robot.Key(Qt::Key_Home);
    robot.Key(Qt::Key_Backspace);
    EXPECT_EQ(robot.Text("Text1(7)"), "");
    EXPECT_EQ(Held(7), "");
    robot.Type("Text1(7)", ".5");
    EXPECT_EQ(Held(7), "5") << "a point is refused until a digit comes";
}

TEST_F(SampleCellTest, ABackspaceWipesALockedCellToo) {
    ASSERT_TRUE(robot.Locked("Text1(1)"));
    robot.Key("Text1(1)", Qt::Key_Backspace);
    EXPECT_EQ(robot.Text("Text1(1)"), "");
    EXPECT_EQ(Held(1), "");
    EXPECT_EQ(record.NombreContaminante(1, 1), "agente");
}

TEST_F(SampleCellTest, ALockedCellTakesNoDigit) {
    robot.Type("Text1(1)", "5");
    EXPECT_EQ(robot.Text("Text1(1)"), "agente");
    EXPECT_EQ(Held(1), "agente");
}

TEST_F(SampleCellTest, UndoBringsNothingBackAfterABackspace) {
    robot.Type("Text1(7)", "12");
    robot.Key(Qt::Key_Backspace);
    robot.Key(Qt::Key_Z, Qt::ControlModifier);
    Edit("Text1(7)").undo();
    EXPECT_EQ(robot.Text("Text1(7)"), "");
    EXPECT_EQ(Held(7), "");
}

TEST_F(SampleCellTest, UndoTakesNothingBackOfWhatWasTyped) {
    robot.Type("Text1(7)", "12");
    Edit("Text1(7)").undo();
    EXPECT_EQ(robot.Text("Text1(7)"), "12");
    EXPECT_EQ(Held(7), "12");
    robot.Key(Qt::Key_Backspace, Qt::AltModifier);  // undo, to the toolkit
    EXPECT_EQ(robot.Text("Text1(7)"), Held(7));
}

TEST_F(SampleCellTest, ABoxOpenedByNoKeyLeavesTheFocusWhereItIs) {
    robot.Type("Text1(8)", "5");
    EXPECT_EQ(robot.Focused(), "Text1(8)");
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(robot.Focused(), "Text1(9)");
}

/// The contaminants of a task of one row, opened.
class RowCellTest : public CellTest {
protected:
    RowCellTest() { OpenRows(1); }
};

TEST_F(RowCellTest, AMarkHoldsTheLastDigitTyped) {
    robot.Type("Text1(4)", "1");
    robot.Type("Text1(4)", "a0");
    EXPECT_EQ(robot.Text("Text1(4)"), "0");
    robot.Key(Qt::Key_Backspace);
    EXPECT_EQ(robot.Text("Text1(4)"), "0") << "a backspace in a mark does nothing";
    EXPECT_EQ(Current<Form4>().Text1(4).Text, "0");
}

TEST_F(RowCellTest, ALimitValueTakesDigitsAndAPointAndABackspaceWipesIt) {
    robot.Type("Text1(2)", ".1.5.2,");
    EXPECT_EQ(robot.Text("Text1(2)"), "1.52");
    robot.Key(Qt::Key_Backspace);
    EXPECT_EQ(robot.Text("Text1(2)"), "");
    EXPECT_EQ(Current<Form4>().Text1(2).Text, "");
}

TEST_F(RowCellTest, ASamplingTimeChangesByF2AsByADoubleClick) {
    Focus("Text3(0)");
    for (const char* const next : {"30", "15", "30"}) {
        robot.Key(Qt::Key_F2);
        EXPECT_EQ(Current<Form4>().Text3(0).Text, next);
        EXPECT_EQ(robot.Text("Text3(0)"), next);
    }
    Focus("Text1(2)");
    robot.Key(Qt::Key_F2);
    EXPECT_EQ(robot.Text("Text1(2)"), "") << "a cell without that handler";
}

TEST_F(RowCellTest, ASamplingTimeTakesNoTypingAndChangesByDoubleClick) {
    robot.Type("Text3(0)", "30");
    EXPECT_EQ(robot.Text("Text3(0)"), "");
    for (const char* const next : {"30", "15", "30"}) {
        robot.DoubleClick("Text3(0)");
        EXPECT_EQ(robot.Text("Text3(0)"), next);
        EXPECT_EQ(Current<Form4>().Text3(0).Text, next);
    }
}

TEST_F(RowCellTest, ANumberOfARowIsLockedWhateverTheKey) {
    robot.Type("Text1(0)", "5a");
    robot.Key(Qt::Key_Backspace);
    EXPECT_EQ(robot.Text("Text1(0)"), "1");
}

/// A field of free text: a company's, and the name of a contaminant.
struct Free {
    const char* name;
    ScreenId screen;
    const char* cell;
};

constexpr std::array<Free, 2> kFree = {{
    {"Company", ScreenId::Form2, "Text1(4)"},
    {"Contaminant", ScreenId::Form4, "Text1(1)"},
}};

class FreeCellTest : public CellTest, public ::testing::WithParamInterface<Free> {
protected:
    FreeCellTest() {
        SetPlan(1, 1, 1);
        Open(GetParam().screen);
        if (GetParam().screen == ScreenId::Form4) robot.Pick("Combo1", "1");
        robot.Click(cell);
    }

    void ExpectText(std::string_view text) {
        EXPECT_EQ(robot.Text(cell), text);
        EXPECT_EQ(std::get<TextCell*>(chain.Current().FindControl(cell)->state)->Text, text);
    }

    std::string_view cell = GetParam().cell;
};

TEST_P(FreeCellTest, TakesAnyLetter) {
    robot.Type(cell, "Año 2026, «ñandú» -1.5 & <b>€");
    ExpectText("Año 2026, «ñandú» -1.5 & <b>€");
}

TEST_P(FreeCellTest, ABackspaceAndADeleteTakeOneLetter) {
    robot.Type(cell, "abcd");
    robot.Key(Qt::Key_Backspace);
    ExpectText("abc");
    robot.Key(Qt::Key_Home);
    robot.Key(Qt::Key_Delete);
    ExpectText("bc");
}

TEST_P(FreeCellTest, CutsCopiesAndPastes) {
    robot.Type(cell, "tolueno");
    robot.Key(Qt::Key_A, Qt::ControlModifier);
    robot.Key(Qt::Key_X, Qt::ControlModifier);
    ExpectText("");
    robot.Key(Qt::Key_V, Qt::ControlModifier);
    robot.Key(Qt::Key_Insert, Qt::ShiftModifier);
    ExpectText("toluenotolueno");
    robot.Key(Qt::Key_A, Qt::ControlModifier);
    robot.Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("toluenotolueno"));
}

TEST_P(FreeCellTest, UndoesAndRedoes) {
    robot.Type(cell, "abc");
    robot.Key(Qt::Key_Z, Qt::ControlModifier);
    ExpectText("");
    robot.Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ExpectText("abc");
}

TEST_P(FreeCellTest, TakesADropAndAnInputMethod) {
    EXPECT_TRUE(Drop(Edit(cell), "xi"));
    ExpectText("xi");
    Edit(cell).end(false);
    Compose(Edit(cell), "leno");
    ExpectText("xileno");
}

TEST_P(FreeCellTest, ItsContextMenuIsThatOfAnyFieldInSpanish) {
    std::string captions;
    for (const std::string& caption : ContextMenuOf(cell)) captions += caption + "|";
    for (const char* const entry : {"Deshacer", "Cor&tar", "&Copiar", "&Pegar", "Seleccionar"}) {
        EXPECT_THAT(captions, ::testing::HasSubstr(entry));
    }
}

TEST_P(FreeCellTest, AScreenReaderCanWriteIt) {
    QAccessible::queryAccessibleInterface(&Edit(cell))
        ->setText(QAccessible::Value, QStringLiteral("tolueno"));
    ExpectText("tolueno");
}

TEST_P(FreeCellTest, PastedLineBreaksBecomeBlanksOfOneLine) {
    Copy("uno\r\ndos\ntres\rcuatro");
    robot.Key(Qt::Key_V, Qt::ControlModifier);
    ExpectText("uno dos tres cuatro");
}

TEST_P(FreeCellTest, UndoAfterAPasteOfSeveralLinesKeepsScreenAndDataAlike) {
    robot.Type(cell, "a");
    Copy("1\n2");
    robot.Key(Qt::Key_V, Qt::ControlModifier);
    robot.Key(Qt::Key_Z, Qt::ControlModifier);
    ExpectText(robot.Text(cell));
}

TEST_P(FreeCellTest, AMillionLettersStayWhole) {
    const std::string text(1'000'000, 'x');
    Copy(text);
    robot.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(robot.Text(cell) == text);
    EXPECT_TRUE(std::get<TextCell*>(chain.Current().FindControl(cell)->state)->Text == text);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, FreeCellTest, ::testing::ValuesIn(kFree),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(CellTest, TheNineteenFieldsOfTheCompanyAreAllFreeText) {
    Open(ScreenId::Form2);
    for (int i = 1; i <= 19; ++i) {
        const std::string name = Indexed("Text1", i);
        robot.Retype(name, "");
        robot.Key(Qt::Key_A, Qt::ControlModifier);
        Copy("ñ -1,5\n");
        robot.Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(Current<Form2>().Text1(i).Text, "ñ -1,5 ") << name;
    }
}

TEST_F(CellTest, ALongTextShowsItsBeginningOnceTheFocusHasLeft) {
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", std::string(200, 'm'));
    EXPECT_EQ(Edit("Text1(4)").cursorPosition(), 200);
    robot.Key(Qt::Key_Tab);
    EXPECT_EQ(Edit("Text1(4)").cursorPosition(), 0);
}

TEST_F(CellTest, ALongTextGoesOnWhereItsCaretWasWhenTheFocusComesBack) {
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", std::string(200, 'm'));
    robot.Key(Qt::Key_Left);
    Edit("Text1(3)").setFocus();
    Edit("Text1(4)").grab();  // it is seen, and shows its beginning
    Edit("Text1(4)").setFocus();
    robot.Type("x");
    EXPECT_EQ(robot.Text("Text1(4)"), std::string(199, 'm') + "xm");
}

TEST_F(CellTest, ALongTextTakesAKeyWhereAScreenReaderPutTheCaret) {
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", std::string(200, 'm'));
    Edit("Text1(3)").setFocus();
    Edit("Text1(4)").grab();
    Edit("Text1(4)").setFocus();
    QAccessible::queryAccessibleInterface(&Edit("Text1(4)"))->textInterface()->setCursorPosition(7);
    robot.Type("x");
    EXPECT_EQ(robot.Text("Text1(4)").find('x'), 7U);
}

TEST_F(CellTest, ALongTextTakesAKeyAtItsCaretEvenWithoutTheFocus) {
    Open(ScreenId::Form2);
    window.Run([this] { Current<Form2>().Text1(4).Text = std::string(200, 'm'); });
    robot.Click("Text1(3)");
    QTest::keyClick(&Edit("Text1(4)"), Qt::Key_X);
    EXPECT_EQ(robot.Text("Text1(4)"), std::string(200, 'm') + "x");
}

TEST_F(CellTest, ATextThatTheProgramGivesHasTheCaretAtItsEnd) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form2);
    window.Run([this] { Current<Form2>().Text1(4).Text = "Pinturas"; });
    Edit("Text1(4)").setFocus();
    robot.Type(" del Norte");
    EXPECT_EQ(robot.Text("Text1(4)"), "Pinturas del Norte");
}

TEST_F(CellTest, ComingBackToALimitADigitAndAPointPassOnceMoreAtItsEnd) {
    OpenRows(1);
    Edit("Text1(2)").setFocus();
    robot.Type("1.5");
    Edit("Text1(3)").setFocus();
    robot.Type("7");
    Edit("Text1(2)").setFocus();
    robot.Type("2.3");
    EXPECT_EQ(robot.Text("Text1(2)"), "1.52.3");
}

TEST_F(CellTest, ALetterWithAltTypesNothing) {
    OpenRows(1);
    for (const char* const cell : {"Text1(1)", "Text1(2)"}) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_7, Qt::AltModifier, QStringLiteral("7"));
        QApplication::sendEvent(&Edit(cell), &press);
        EXPECT_EQ(robot.Text(cell), "") << cell;
        EXPECT_FALSE(press.isAccepted()) << cell << ": the menus' turn";
    }
}

TEST_F(CellTest, ACellOfTheFinalTableIsAnOrdinaryOne) {
    SetPlan(1, 1, 1);
    record.HojaFinal(1, 2) = "tolueno";
    Open(ScreenId::Form6);
    robot.Press("Command1");
    robot.Type("Text1(1)", "x5");
    EXPECT_EQ(robot.Text("Text1(1)"), "toluenox5");
    EXPECT_EQ(record.HojaFinal(1, 2), "tolueno");
    robot.Press("Command1");
    EXPECT_EQ(robot.Text("Text1(1)"), "tolueno");
}

}  // namespace
}  // namespace velmora::test
