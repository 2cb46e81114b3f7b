// One frame, six screens.

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>

#include <set>

#include "capture/form2.h"
#include "capture/form4.h"
#include "qt/text.h"
#include "qt/window_test.h"
#include "sheet/form5.h"
#include "support/messages.h"

namespace velmora::test {
namespace {

class MoveTest : public WindowTest {
protected:
    void ExpectNoNameTwice() {
        std::set<QString> names;
        for (const QWidget* const widget : window.findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            if (name.isEmpty() || name.startsWith(QStringLiteral("qt_"))) continue;
            EXPECT_TRUE(names.insert(name).second) << name.toStdString();
        }
    }
};

TEST_F(MoveTest, TheWindowKeepsItsPlaceAndSize) {
    window.setGeometry(31, 17, 700, 500);
    QCoreApplication::processEvents();
    const QRect before = window.geometry();
    for (const ScreenId id : kScreens) {
        Open(id);
        EXPECT_EQ(window.geometry(), before) << NameOf(id);
    }
}

TEST_F(MoveTest, TheWindowStaysMaximizedOrFullScreen) {
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        window.setWindowState(state);
        QCoreApplication::processEvents();
        const QSize size = window.size();
        for (const ScreenId id : kScreens) {
            Open(id);
            EXPECT_EQ(window.windowState() & state, state) << NameOf(id);
            EXPECT_EQ(window.size(), size) << NameOf(id);
            EXPECT_TRUE(window.isVisible());
        }
        window.setWindowState(Qt::WindowNoState);
    }
}

TEST_F(MoveTest, TheContentOfTheScreenLeftIsGone) {
    for (const ScreenId id : kScreens) {
        const QPointer<QWidget> content = window.centralWidget();
        const QPointer<QMenuBar> menu = window.menuBar();
        Open(id);
        EXPECT_EQ(content, nullptr) << NameOf(id);
        EXPECT_EQ(menu, nullptr) << NameOf(id);
        ExpectNoNameTwice();
    }
}

TEST_F(MoveTest, NoWidgetOfTheScreenLeftIsUnderTheWindowEvenInsideTheMove) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form4);
    robot.Act("moving", [this] {
        window.Run([this] { chain.Go(ScreenId::Form5); });
        EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("Combo13(0)")), nullptr);
        EXPECT_NE(window.findChild<QWidget*>(QStringLiteral("Text1(323)")), nullptr);
        ExpectNoNameTwice();
    });
}

TEST_F(MoveTest, TheNewScreenIsPaintedOnce) {
    EventCount paintings(QEvent::Paint);
    window.Run([this] { chain.Go(ScreenId::Form2); });
    window.menuBar()->installEventFilter(&paintings);               // on which no clock ticks
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();  // whatever is still painted
    EXPECT_EQ(paintings.count, 1);
}

TEST_F(MoveTest, TheFirstControlInTheTabOrderHasTheFocus) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form2);
    EXPECT_EQ(robot.Focused(), "Text1(1)");
    Open(ScreenId::Form3);
    EXPECT_EQ(robot.Focused(), "Combo1(0)");
    Open(ScreenId::Form4);
    EXPECT_EQ(robot.Focused(), "Command1");
    Open(ScreenId::Form6);
    EXPECT_EQ(robot.Focused(), "Command1");
}

TEST_F(MoveTest, IniciarOpensTheCompanysScreenAndClearsTheCompanyAlone) {
    record.DatosEmpresa(1) = "Acme";
    SetPlan(3, 2, 1);
    robot.Choose("Nuevaempresa");
    EXPECT_EQ(robot.ScreenName(), "Form2");
    EXPECT_EQ(robot.Text("Text1(1)"), messages::kNameHint);
    EXPECT_EQ(record.DatosEmpresa(1), "");
    EXPECT_EQ(record.NumJornadas, 3);
}

/// Each entry that moves without a question, with its target.
struct Road {
    ScreenId from;
    const char* title;
    const char* entry;
    const char* target;
};

// clang-format off
constexpr std::array<Road, 21> kRoads = {{
    {ScreenId::Form2, "continuar", "datosiniciales",    "Form3"},
    {ScreenId::Form2, "continuar", "contaminantes",     "Form4"},
    {ScreenId::Form2, "continuar", "calculos",          "Form5"},
    {ScreenId::Form2, "continuar", "resulatadofinal",   "Form6"},
    {ScreenId::Form3, "continuar", "contaminantes",     "Form4"},
    {ScreenId::Form3, "continuar", "pagina5",           "Form5"},
    {ScreenId::Form3, "continuar", "datosdeempresa",    "Form2"},
    {ScreenId::Form3, "continuar", "resultadofinal",    "Form6"},
    {ScreenId::Form4, "continuar", "pagina5",           "Form5"},
    {ScreenId::Form4, "continuar", "datosiniciales",    "Form3"},
    {ScreenId::Form4, "continuar", "datosdeempresa",    "Form2"},
    {ScreenId::Form4, "continuar", "resultadosfinales", "Form6"},
    {ScreenId::Form5, "continuar", "datosiniciales",    "Form3"},
    {ScreenId::Form5, "continuar", "contaminantes",     "Form4"},
    {ScreenId::Form5, "continuar", "resultadosfinales", "Form6"},
    {ScreenId::Form5, "continuar", "datosempresa",      "Form2"},
    {ScreenId::Form6, "regresar",  "",                  "Form5"},
    {ScreenId::Form6, "regresar",  "calculos",          "Form5"},
    {ScreenId::Form6, "regresar",  "contaminantes",     "Form4"},
    {ScreenId::Form6, "regresar",  "datosiniciales",    "Form3"},
    {ScreenId::Form6, "regresar",  "datosdeempresa",    "Form2"},
}};
// clang-format on

TEST_F(MoveTest, EachEntryGoesToItsScreenByTheMouseAndByItsActivationFromOutside) {
    SetPlan(1, 1, 1);
    for (const Road& road : kRoads) {
        const std::string what = NameOf(road.from) + " " + road.title + " " + road.entry;
        const std::string_view entry = road.entry;
        const bool by_mouse = std::string_view(road.title) != "regresar" || entry.empty();
        if (by_mouse) {
            Open(road.from);
            if (entry.empty())
                robot.Choose(road.title);
            else
                robot.Choose(road.title, entry);
            EXPECT_EQ(robot.ScreenName(), road.target) << what;
        }
        Open(road.from);
        QAction& action = Action(entry.empty() ? road.title : entry);
        robot.Act(what, [&] { action.trigger(); });
        EXPECT_EQ(robot.ScreenName(), road.target) << what << " from outside";
    }
}

TEST_F(MoveTest, ATitleWithoutAHandlerOnlyOpensItsList) {
    for (const auto& [id, title] :
         {std::pair{ScreenId::Form2, "continuar"}, std::pair{ScreenId::Form3, "continuar"},
          std::pair{ScreenId::Form4, "continuar"}, std::pair{ScreenId::Form5, "introducirdatos"},
          std::pair{ScreenId::Form5, "recuperar"}, std::pair{ScreenId::Form5, "continuar"}}) {
        Open(id);
        QAction& action = Action(title);
        const QPoint place = window.menuBar()->actionGeometry(&action).center();
        QTest::mouseClick(window.menuBar(), Qt::LeftButton, {}, place);
        EXPECT_TRUE(action.menu()->isVisible()) << title;
        action.menu()->close();
        EXPECT_EQ(robot.ScreenName(), NameOf(id));
    }
}

TEST_F(MoveTest, ThePressOfRegresarOpensNoList) {
    Open(ScreenId::Form6);
    bool opened = false;
    QObject::connect(Action("regresar").menu(), &QMenu::aboutToShow, &window,
                     [&] { opened = true; });
    robot.Choose("regresar");
    EXPECT_FALSE(opened);
    EXPECT_EQ(robot.ScreenName(), "Form5");
}

TEST_F(MoveTest, AScreenReadersPressOfRegresarMoves) {
    Open(ScreenId::Form6);
    QAccessibleInterface* const bar = QAccessible::queryAccessibleInterface(window.menuBar());
    const auto place = window.menuBar()->actions().indexOf(&Action("regresar"));
    QAccessibleInterface* const title = bar->child(static_cast<int>(place));
    ASSERT_EQ(title->text(QAccessible::Name), QStringLiteral("Continuar/Regresar"));
    robot.Act("a screen reader's press", [&] {
        title->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    });
    EXPECT_EQ(robot.ScreenName(), "Form5");
}

TEST_F(MoveTest, TheListOfRegresarOpensByKeyboardAndItsEntriesGoWhereTheySay) {
    for (const auto& [downs, target] : {std::pair{1, "Form5"}, std::pair{2, "Form4"},
                                        std::pair{3, "Form3"}, std::pair{4, "Form2"}}) {
        Open(ScreenId::Form6);
        QMenu* const list = Action("regresar").menu();
        robot.Key(Qt::Key_Alt);  // into the menu bar
        for (int i = 0; i < 20 && window.menuBar()->activeAction() != &Action("regresar"); ++i) {
            robot.Key(Qt::Key_Right);
        }
        ASSERT_EQ(window.menuBar()->activeAction(), &Action("regresar"));
        EXPECT_EQ(robot.ScreenName(), "Form6") << "reaching the title moves nothing";
        robot.Key(Qt::Key_Down);
        ASSERT_TRUE(list->isVisible());
        EXPECT_EQ(robot.ScreenName(), "Form6") << "opening the list moves nothing";
        for (int i = 1; i < downs; ++i) robot.Key(Qt::Key_Down);
        robot.Key(Qt::Key_Return);
        EXPECT_EQ(robot.ScreenName(), target);
    }
}

TEST_F(MoveTest, LeavingTheSheetBlanksItAndItsDayComesBackFromItsSlot) {
    SetPlan(1, 1, 1);
    record.HojaPrimerDia(8) = "12.5";
    Open(ScreenId::Form5);
    robot.Choose("introducirdatos", "introprimero");
    robot.Type("Text1(7)", "7");
    robot.Choose("continuar", "contaminantes");
    robot.Choose("continuar", "pagina5");
    EXPECT_FALSE(robot.Visible("Text1(7)"));
    EXPECT_EQ(robot.Text("Text1(7)"), "");
    robot.Choose("recuperar", "recupprimerdia");
    EXPECT_EQ(robot.Text("Text1(7)"), "12.5");
}

TEST_F(MoveTest, ARefusedMoveLeavesWhatWasTyped) {
    Open(ScreenId::Form2);
    robot.Type("Text1(4)", "Calle Mayor");
    robot.Retype("Text1(1)", "");
    robot.ExpectBox({.text = messages::kNoName});
    robot.Choose("continuar", "calculos");
    EXPECT_EQ(robot.Text("Text1(4)"), "Calle Mayor");
    EXPECT_EQ(record.DatosEmpresa(4), "");
}

class LeavingTest : public EachScreenTest {
protected:
    /// `Form2` and `Form3` default to No, the others to Yes.
    Robot::Box Question(QMessageBox::StandardButton answer) {
        const bool defaults_to_no = GetParam() == ScreenId::Form2 || GetParam() == ScreenId::Form3;
        return BoxOf(
            messages::kExit,
            defaults_to_no ? MsgBoxStyle::YesNoInformationNo : MsgBoxStyle::YesNoInformation,
            answer);
    }
};

TEST_P(LeavingTest, SalirAnsweredYesEndsWithStatus0) {
    robot.ExpectBox(Question(QMessageBox::Yes));
    robot.Choose("salir");
    EXPECT_THAT(TakeEnds(), ElementsAre(0));
}

TEST_P(LeavingTest, SalirAnsweredNoStays) {
    robot.ExpectBox(Question(QMessageBox::No));
    robot.Choose("salir");
    EXPECT_THAT(TakeEnds(), IsEmpty());
    EXPECT_EQ(robot.ScreenName(), NameOf(GetParam()));
}

TEST_P(LeavingTest, ClosingTheWindowDoesWhatSalirDoes) {
    robot.ExpectBox(Question(QMessageBox::No));
    robot.CloseWindow();
    EXPECT_THAT(TakeEnds(), IsEmpty());
    EXPECT_TRUE(window.isVisible());

    robot.ExpectBox(Question(QMessageBox::Yes));
    robot.CloseWindow();
    EXPECT_THAT(TakeEnds(), ElementsAre(0));
}

TEST_P(LeavingTest, EscapeAndEnterAnswerAsTheBoxTells) {
    Robot::Box escape = Question(QMessageBox::No);
    escape.by = Robot::By::Escape;
    robot.ExpectBox(escape);
    robot.Choose("salir");
    EXPECT_THAT(TakeEnds(), IsEmpty());

    Robot::Box enter = Question(QMessageBox::No);
    enter.by = Robot::By::Enter;
    robot.ExpectBox(enter);
    robot.Choose("salir");
    const bool ended = GetParam() != ScreenId::Form2 && GetParam() != ScreenId::Form3;
    EXPECT_EQ(TakeEnds().size(), ended ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, LeavingTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

TEST_F(MoveTest, ClosingTheWindowBehindABoxDoesNothing) {
    int boxes = 0;
    robot.on_modal = [&](QDialog&) {
        ++boxes;
        window.close();
    };
    robot.ExpectBox(BoxOf(messages::kExit, MsgBoxStyle::YesNoInformation, QMessageBox::No));
    robot.Choose("salir");
    EXPECT_EQ(boxes, 1);
    EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace velmora::test
