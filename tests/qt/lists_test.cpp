// How a list is picked from, and all the ways by which it takes nothing.

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "capture/form3.h"
#include "capture/form4.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

class ListTest : public WindowTest {
protected:
    QComboBox& Box(std::string_view list) { return robot.Find<QComboBox>(list); }

    const ComboBox& Held(std::string_view list) {
        return *std::get<ComboBox*>(chain.Current().FindControl(list)->state);
    }

    void ExpectText(std::string_view list, std::string_view text) {
        EXPECT_EQ(robot.Text(list), text);
        EXPECT_EQ(Held(list).Text, text);
    }

    bool IsOpen(std::string_view list) { return Box(list).view()->isVisible(); }

    /// Sends the wheel over a widget through the native window.
    void TurnWheel(const QWidget& widget, int steps) {
        const QPoint place = widget.mapTo(&window, widget.rect().center());
        QWheelEvent event(place, window.mapToGlobal(place), {}, {0, 120 * steps}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        QCoreApplication::processEvents();
    }

    /// The same, straight to the widget.
    static void TurnWheelOn(QWidget& widget, int steps) {
        const QPoint place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, 120 * steps}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
    }
};

TEST_F(ListTest, TheLongestListOpensWithAllItsItems) {
    auto& form3 = Open<Form3>(ScreenId::Form3);
    window.Run([&] {
        form3.Combo1(4).Visible = true;
        form3.Combo1(4).Locked = false;
    });
    QComboBox& list = Box("Combo1(4)");
    ASSERT_GT(list.count(), 10);
    robot.Act("opening the list", [&] {
        list.showPopup();
        const QRect room = list.view()->viewport()->rect();
        const QModelIndex last = list.model()->index(list.count() - 1, 0);
        EXPECT_TRUE(room.contains(list.view()->visualRect(last)));
        list.hidePopup();
    });
}

/// The contaminants of a plan of three tasks, of two contaminants each.
class TaskListTest : public ListTest {
protected:
    TaskListTest() {
        SetPlan(1, 3, 2);
        Open(ScreenId::Form4);
    }
};

TEST_F(TaskListTest, APickByTheMouseRunsTheHandler) {
    ExpectText("Combo1", "");
    EXPECT_FALSE(robot.Visible("Text1(9)"));
    robot.Pick("Combo1", "2");
    ExpectText("Combo1", "2");
    EXPECT_TRUE(robot.Visible("Text1(9)"));
    EXPECT_FALSE(IsOpen("Combo1"));
}

TEST_F(TaskListTest, PickingTheItemThatItShowsRunsTheHandlerAgain) {
    robot.Pick("Combo1", "1");
    robot.Type("Text1(1)", "tolueno");
    robot.Pick("Combo1", "1");
    EXPECT_EQ(robot.Text("Text1(1)"), "") << "a pick empties the rows";
}

TEST_F(TaskListTest, DownAndUpOnTheClosedListPickAndRunTheHandler) {
    Focus("Combo1");
    for (const auto& [key, text] : {std::pair{Qt::Key_Down, "1"}, std::pair{Qt::Key_Down, "2"},
                                    std::pair{Qt::Key_Down, "3"}, std::pair{Qt::Key_Up, "2"}}) {
        record.NumContaminantes(2) = 2;
        robot.Key(key);
        ExpectText("Combo1", text);
        EXPECT_FALSE(IsOpen("Combo1"));
        EXPECT_TRUE(robot.Visible("Text1(9)")) << text;
        window.Run([this] { Current<Form4>().Text1(9).Visible = false; });
    }
}

TEST_F(TaskListTest, DownAtTheLastItemAndUpAtTheFirstPickNothing) {
    robot.Pick("Combo1", "3");
    robot.Type("Text1(1)", "tolueno");
    Focus("Combo1");
    robot.Key(Qt::Key_Down);
    ExpectText("Combo1", "3");
    EXPECT_EQ(robot.Text("Text1(1)"), "tolueno") << "the handler ran";
}

TEST_F(TaskListTest, EnterInThePopupPicks) {
    Focus("Combo1");
    robot.Key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(IsOpen("Combo1"));
    robot.Key(Qt::Key_Down);
    robot.Key(Qt::Key_Down);
    const std::string marked = Box("Combo1").view()->currentIndex().data().toString().toStdString();
    EXPECT_EQ(Held("Combo1").Text, "") << "nothing is picked yet";
    robot.Key(Qt::Key_Return);
    EXPECT_FALSE(IsOpen("Combo1"));
    ASSERT_FALSE(marked.empty());
    ExpectText("Combo1", marked);
    EXPECT_TRUE(robot.Visible("Text1(9)"));
}

TEST_F(TaskListTest, F4OpensThePopupAndEscapeClosesItWithoutAPick) {
    Focus("Combo1");
    robot.Key(Qt::Key_F4);
    ASSERT_TRUE(IsOpen("Combo1"));
    robot.Key(Qt::Key_Down);
    robot.Key(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen("Combo1"));
    ExpectText("Combo1", "");
    EXPECT_FALSE(robot.Visible("Text1(4)"));
}

TEST_F(TaskListTest, TheWheelOverTheClosedListDoesNothing) {
    robot.Pick("Combo1", "2");
    robot.Type("Text1(1)", "tolueno");
    Focus("Combo1");
    for (const int steps : {-1, 1, -3, 3}) {
        TurnWheel(Box("Combo1"), steps);
        TurnWheelOn(Box("Combo1"), steps);
        ExpectText("Combo1", "2");
        EXPECT_EQ(robot.Text("Text1(1)"), "tolueno") << "the handler ran";
    }
}

TEST_F(TaskListTest, NoLetterNorAnyOtherKeyThatWritesDoesAnything) {
    robot.Pick("Combo1", "2");
    robot.Type("Text1(1)", "tolueno");
    Focus("Combo1");
    QApplication::clipboard()->setText(QStringLiteral("1"));
    using Row = std::pair<Qt::Key, Qt::KeyboardModifiers>;
    for (const auto& [key, modifiers] :
         {Row{Qt::Key_1, Qt::NoModifier}, Row{Qt::Key_3, Qt::NoModifier},
          Row{Qt::Key_M, Qt::NoModifier}, Row{Qt::Key_Space, Qt::NoModifier},
          Row{Qt::Key_Backspace, Qt::NoModifier}, Row{Qt::Key_Delete, Qt::NoModifier},
          Row{Qt::Key_Return, Qt::NoModifier}, Row{Qt::Key_Escape, Qt::NoModifier},
          Row{Qt::Key_Home, Qt::NoModifier}, Row{Qt::Key_End, Qt::NoModifier},
          Row{Qt::Key_V, Qt::ControlModifier}, Row{Qt::Key_X, Qt::ControlModifier},
          Row{Qt::Key_Insert, Qt::ShiftModifier}, Row{Qt::Key_Delete, Qt::ShiftModifier},
          Row{Qt::Key_Z, Qt::ControlModifier}}) {
        robot.Key(key, modifiers);
        ExpectText("Combo1", "2");
        EXPECT_FALSE(IsOpen("Combo1")) << key;
    }
    EXPECT_EQ(robot.Text("Text1(1)"), "tolueno") << "the handler ran";
}

TEST_F(TaskListTest, AnInputMethodDoesNothing) {
    Focus("Combo1");
    QLineEdit* const edit = Box("Combo1").lineEdit();
    for (QObject* const target : {static_cast<QObject*>(&Box("Combo1")),
                                  static_cast<QObject*>(edit), QGuiApplication::focusObject()}) {
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("1"));
        QCoreApplication::sendEvent(target, &event);
        ExpectText("Combo1", "");
    }
}

TEST_F(TaskListTest, ADropIsNotTaken) {
    const QWidget& list = Box("Combo1");
    QMimeData data;
    data.setText(QStringLiteral("1"));
    QDragEnterEvent enter(list.mapTo(&window, list.rect().center()), Qt::CopyAction, &data,
                          Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &enter);
    EXPECT_FALSE(enter.isAccepted());
    ExpectText("Combo1", "");
}

TEST_F(TaskListTest, AMiddleOrRightClickOffersNothingThatChangesIt) {
    if (QApplication::clipboard()->supportsSelection()) {
        QApplication::clipboard()->setText(QStringLiteral("1"), QClipboard::Selection);
    }
    const QWidget& list = Box("Combo1");
    for (const auto button : {Qt::MiddleButton, Qt::RightButton}) {
        QTest::mouseClick(window.windowHandle(), button, {},
                          list.mapTo(&window, list.rect().center()));
        QCoreApplication::processEvents();
        QWidget* const popup = QApplication::activePopupWidget();
        if (popup == nullptr) continue;
        EXPECT_FALSE(IsOpen("Combo1"));
        for (const QAction* const action : popup->actions()) {
            const std::string caption = action->text().toStdString();
            for (const char* const edit :
                 {"Cor&tar", "&Pegar", "Eliminar", "Deshacer", "Rehacer"}) {
                if (action->isEnabled()) {
                    EXPECT_THAT(caption, ::testing::Not(::testing::HasSubstr(edit)));
                }
            }
        }
        popup->close();
        ExpectText("Combo1", "");
    }
}

TEST_F(TaskListTest, AScreenReaderCantWriteIntoIt) {
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&Box("Combo1"));
    list->setText(QAccessible::Value, QStringLiteral("7"));
    ExpectText("Combo1", "");
    QAccessibleInterface* const edit =
        QAccessible::queryAccessibleInterface(Box("Combo1").lineEdit());
    edit->setText(QAccessible::Value, QStringLiteral("7"));
    ExpectText("Combo1", "");
    if (auto* const editor = edit->editableTextInterface()) {
        editor->insertText(0, QStringLiteral("7"));
        ExpectText("Combo1", "");
    }
}

TEST_F(TaskListTest, ItHasItsItemsAndGetsNoMore) {
    robot.Pick("Combo1", "2");
    Focus("Combo1");
    robot.Key(Qt::Key_Return);
    EXPECT_THAT(robot.Items("Combo1"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(robot.Items("Combo13(0)"), ElementsAre("mg/m3", "ppm"));
}

TEST_F(TaskListTest, ATextThatIsNotAmongTheItemsIsShownAndCanBePickedAwayFrom) {
    record.Unidades(1, 1) = "ppb";
    robot.Pick("Combo1", "1");
    robot.Press("Command3");
    ExpectText("Combo13(0)", "ppb");
    ExpectText("Combo13(1)", "ppm");
    EXPECT_THAT(robot.Items("Combo13(0)"), ElementsAre("mg/m3", "ppm"));
    robot.Press("Command1");
    EXPECT_EQ(record.Unidades(1, 1), "ppb");
    Focus("Combo13(0)");
    robot.Key(Qt::Key_Down);
    ExpectText("Combo13(0)", "mg/m3");
    robot.Press("Command3");
    ExpectText("Combo13(0)", "ppb");
    robot.Pick("Combo13(0)", "ppm");
    ExpectText("Combo13(0)", "ppm");
}

TEST_F(TaskListTest, ALockedListCantBePickedFrom) {
    robot.Pick("Combo1", "2");
    window.Run([this] { Current<Form4>().Combo1.Locked = true; });
    robot.Click("Combo1");
    EXPECT_FALSE(IsOpen("Combo1"));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_F4}) {
        robot.Key(key);
        EXPECT_FALSE(IsOpen("Combo1"));
        ExpectText("Combo1", "2");
    }
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&Box("Combo1"));
    spoken->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QCoreApplication::processEvents();
    EXPECT_FALSE(IsOpen("Combo1"));

    window.Run([this] { Current<Form4>().Combo1.Locked = false; });
    robot.Pick("Combo1", "3");
    ExpectText("Combo1", "3");
}

TEST_F(TaskListTest, ACharacterDoesNothingInTheOpenListEither) {
    robot.Pick("Combo1", "2");
    robot.Key("Combo1", Qt::Key_F4);
    ASSERT_TRUE(IsOpen("Combo1"));
    for (const Qt::Key key : {Qt::Key_3, Qt::Key_Space, Qt::Key_Backspace}) {
        robot.Key(key);
        EXPECT_TRUE(IsOpen("Combo1"));
        EXPECT_EQ(Box("Combo1").view()->currentIndex().row(), 1);
    }
    robot.Key(Qt::Key_Return);
    EXPECT_FALSE(IsOpen("Combo1"));
    ExpectText("Combo1", "2");
}

TEST_F(TaskListTest, AHiddenListCantBePickedFrom) {
    ASSERT_FALSE(robot.Visible("Combo13(0)"));
    QComboBox& hidden = Box("Combo13(0)");
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_F4}) {
        QTest::keyClick(&hidden, key);
        ExpectText("Combo13(0)", "");
    }
    window.Run([this] { Current<Form4>().Combo13(0).Locked = false; });
    QTest::keyClick(&hidden, Qt::Key_Down);
    ExpectText("Combo13(0)", "");
}

TEST_F(ListTest, TheListsOfThePlanOfferTheirItems) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    EXPECT_THAT(robot.Items("Combo1(0)"), ElementsAre("1", "3"));
    EXPECT_THAT(robot.Items("Combo1(1)"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(robot.Items("Combo1(2)"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(robot.Items("Combo1(3)"), ElementsAre("1", "2", "3"));
    EXPECT_THAT(robot.Items("Combo1(4)"), ElementsAre("1", "2", "3", "4", "5", "6", "7", "8", "9",
                                                      "10", "11", "12", "13", "14"));
    EXPECT_THAT(robot.Items("Combo1(5)"), ElementsAre("0", "1", "2", "3", "4", "5", "6"));
    EXPECT_THAT(robot.Items("Combo1(6)"), ElementsAre("0", "1", "2", "3", "4", "5", "6"));
    EXPECT_THAT(robot.Items("Combo1(7)"), ElementsAre("1", "2", "3", "4", "5", "6"));
    for (int i = 0; i <= 7; ++i) ExpectText(Indexed("Combo1", i), "");
}

TEST_F(ListTest, EveryItemOfALongListIsReachedByTheMouse) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    for (const std::string& item : robot.Items("Combo1(4)")) {
        robot.Pick("Combo1(4)", item);
        ExpectText("Combo1(4)", item);
    }
}

TEST_F(ListTest, TheEntryRowKeepsItsPicksWhileItIsHidden) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    robot.Pick("Combo1(4)", "14");
    robot.ExpectBox(
        BoxOf(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, QMessageBox::Yes, "Aviso"));
    robot.Pick("Combo1(0)", "1");
    EXPECT_FALSE(robot.Visible("Combo1(4)"));
    robot.Pick("Combo1(1)", "1");
    robot.Press("Command1");
    EXPECT_TRUE(robot.Visible("Combo1(4)"));
    ExpectText("Combo1(4)", "14");
}

TEST_F(ListTest, ANoToTheRestartLeavesTheValueJustPickedInTheList) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    robot.ExpectBox(
        BoxOf(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, QMessageBox::No, "Aviso"));
    robot.Pick("Combo1(0)", "3");
    ExpectText("Combo1(0)", "3");
    EXPECT_EQ(record.NumJornadas, 1);
}

}  // namespace
}  // namespace velmora::test
