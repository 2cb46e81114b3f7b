// Every message of every screen, on the real window: how it comes, its text to the letter, its
// style and its title.

#include "support/messages.h"
#include "qt/window_test.h"

namespace velmora::test {
namespace {

using namespace messages;

struct Message;

class MessageTest : public WindowTest {
public:
    using WindowTest::Open;
    using WindowTest::record;
    using WindowTest::robot;
    using WindowTest::SetPlan;

    /// The company's screen with its name emptied by hand.
    void OpenWithoutName() {
        Open(ScreenId::Form2);
        robot.Retype("Text1(1)", "");
    }

    /// A plan of one task a day, with its entry row filled but for what is given as empty.
    void OpenEntry(int days, const std::array<std::string_view, 6>& items) {
        SetPlan(days, 1, 1);
        Open(ScreenId::Form3);
        for (int i = 0; i < 6; ++i) {
            const std::string_view item = items.at(static_cast<std::size_t>(i));
            if (!item.empty()) robot.Pick(Indexed("Combo1", i + 2), item);
        }
    }

    /// The contaminants of a plan of one task, two of them, with the stored list in the rows.
    void OpenStoredRows() {
        OpenRows(2);
        robot.Press("Command3");
    }

    /// The contaminants with a task above the plan picked.
    void OpenWithTaskAbove() {
        SetPlan(1, 2, 1);
        Open(ScreenId::Form4);
        robot.ExpectBox({.text = kTaskAboveOnPick});
        robot.Pick("Combo1", "3");
    }

    /// The sheet of one day, of one contaminant in each of its tasks, with the buttons up to that
    /// of the last task opened.
    void OpenSheetAtLastTask(int tasks) {
        OpenSheet(1, tasks, 1);
        for (int t = 1; t < tasks; ++t) {
            Fill(t);
            robot.Press(std::string("Command") + static_cast<char>('0' + t));
        }
    }

    /// Two samples of the task's first row.
    void Fill(int task) {
        robot.Retype(Indexed("Text1", 108 * task - 101), "5");
        robot.Retype(Indexed("Text1", 108 * task - 100), "6");
    }

    /// Wipes a cell of the sheet, a locked one, too.
    void Wipe(int cell) { robot.Key(Indexed("Text1", cell), Qt::Key_Backspace); }
};

struct Message {
    const char* name;
    std::string text;
    MsgBoxStyle style;
    std::function<void(MessageTest&)> prepare;  ///< up to one step ahead of the box
    std::function<void(Robot&)> last_step;
    std::string title = "Velmora";
};

std::function<void(MessageTest&)> At(ScreenId id) {
    return [id](MessageTest& test) { test.Open(id); };
}

std::function<void(Robot&)> Choosing(const std::string& title, const std::string& entry = {}) {
    return [=](Robot& robot) {
        if (entry.empty())
            robot.Choose(title);
        else
            robot.Choose(title, entry);
    };
}

std::function<void(Robot&)> Pressing(const std::string& button) {
    return [=](Robot& robot) { robot.Press(button); };
}

std::function<void(Robot&)> Picking(const std::string& list, const std::string& item) {
    return [=](Robot& robot) { robot.Pick(list, item); };
}

// clang-format off

std::vector<Message> MessagesOfForm1() {
    return {
        {"Form1Salir", kExit, MsgBoxStyle::YesNoInformation, At(ScreenId::Form1), Choosing("salir")},
    };
}

std::vector<Message> MessagesOfForm2() {
    const auto nameless = [](MessageTest& test) { test.OpenWithoutName(); };
    return {
        {"Form2DatosInicialesWithoutName",   kNoName, MsgBoxStyle::Ok, nameless, Choosing("continuar", "datosiniciales")},
        {"Form2ContaminantesWithoutName",    kNoName, MsgBoxStyle::Ok, nameless, Choosing("continuar", "contaminantes")},
        {"Form2CalculosWithoutName",         kNoName, MsgBoxStyle::Ok, nameless, Choosing("continuar", "calculos")},
        {"Form2ResultadoFinalWithoutName",   kNoName, MsgBoxStyle::Ok, nameless, Choosing("continuar", "resulatadofinal")},
        {"Form2Regresar", kGoBack, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form2), Choosing("Regresar")},
        {"Form2Imprimir", PrintQuestion(ScreenId::Form2), MsgBoxStyle::YesNo, At(ScreenId::Form2), Choosing("imprimir")},
        {"Form2Salir", kExit, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form2), Choosing("salir")},
    };
}

std::vector<Message> MessagesOfForm3() {
    const auto with_plan = [](MessageTest& test) { test.SetPlan(1, 1, 1); test.Open(ScreenId::Form3); };
    const auto entry = [](int days, std::array<std::string_view, 6> items) {
        return [=](MessageTest& test) { test.OpenEntry(days, items); };
    };
    return {
        {"Form3ContaminantesWithoutPlan",  kIncompletePlan, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form3), Choosing("continuar", "contaminantes")},
        {"Form3CalculosWithoutPlan",       kIncompletePlan, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form3), Choosing("continuar", "pagina5")},
        {"Form3ResultadoFinalWithoutPlan", kIncompletePlan, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form3), Choosing("continuar", "resultadofinal")},
        {"Form3Command1WithNothingPicked", kNoPick, MsgBoxStyle::Ok, At(ScreenId::Form3), Pressing("Command1")},
        {"Form3Command1WithOneListPicked", kNoPick, MsgBoxStyle::Ok,
         [](MessageTest& test) { test.Open(ScreenId::Form3); test.robot.Pick("Combo1(0)", "3"); }, Pressing("Command1")},
        {"Form3FifteenMinuteCountAboveSix", kSumAboveSix, MsgBoxStyle::Ok, entry(1, {"", "", "", "4", "", ""}), Picking("Combo1(6)", "3")},
        {"Form3WorkdaysPickedAnew", kRestart, MsgBoxStyle::YesNoQuestionNo, with_plan, Picking("Combo1(0)", "1"), "Aviso"},
        {"Form3TasksPickedAnew",    kRestart, MsgBoxStyle::YesNoQuestionNo, with_plan, Picking("Combo1(1)", "2"), "Aviso"},
        {"Form3EntryWithoutPlan", kNoPlan, MsgBoxStyle::Ok,
         [](MessageTest& test) {  // the button is hidden without a plan: it goes behind the screen's back
             test.OpenEntry(1, {"1", "1", "8", "1", "0", "1"});
             test.record.NumJornadas = 0;
         },
         Pressing("Command2")},
        {"Form3EntryWithoutDay",          kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"",  "1", "8", "1", "0", "1"}), Pressing("Command2")},
        {"Form3EntryWithoutTask",         kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"1", "",  "8", "1", "0", "1"}), Pressing("Command2")},
        {"Form3EntryWithoutHours",        kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"1", "1", "",  "1", "0", "1"}), Pressing("Command2")},
        {"Form3EntryWithout30",           kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"1", "1", "8", "",  "1", "1"}), Pressing("Command2")},
        {"Form3EntryWithout15",           kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"1", "1", "8", "1", "",  "1"}), Pressing("Command2")},
        {"Form3EntryWithoutContaminants", kEntryIncomplete, MsgBoxStyle::Ok, entry(1, {"1", "1", "8", "1", "0", "" }), Pressing("Command2")},
        {"Form3EntryOfADayAbove",         kEntryIncoherent, MsgBoxStyle::Ok, entry(1, {"2", "1", "8", "1", "0", "1"}), Pressing("Command2")},
        {"Form3EntryOfATaskAbove",        kEntryIncoherent, MsgBoxStyle::Ok, entry(3, {"3", "2", "8", "1", "0", "1"}), Pressing("Command2")},
        {"Form3EntryWithAnotherSum",      kSumDiffers,      MsgBoxStyle::Ok, entry(1, {"1", "1", "8", "3", "2", "4"}), Pressing("Command2")},
        {"Form3Imprimir", PrintQuestion(ScreenId::Form3), MsgBoxStyle::YesNo, At(ScreenId::Form3), Choosing("imprimir")},
        {"Form3Salir", kExit, MsgBoxStyle::YesNoInformationNo, At(ScreenId::Form3), Choosing("salir")},
    };
}

std::vector<Message> MessagesOfForm4() {
    const auto rows = [](const std::function<void(MessageTest&)>& change) {
        return [=](MessageTest& test) { test.OpenStoredRows(); change(test); };
    };
    const auto above = [](MessageTest& test) { test.OpenWithTaskAbove(); };
    return {
        {"Form4Command1WithoutTask", kNoTask, MsgBoxStyle::Ok, At(ScreenId::Form4), Pressing("Command1")},
        {"Form4Command3WithoutTask", kNoTask, MsgBoxStyle::Ok, At(ScreenId::Form4), Pressing("Command3")},
        {"Form4PickOfATaskAbove", kTaskAboveOnPick, MsgBoxStyle::Ok,
         [](MessageTest& test) { test.SetPlan(1, 1, 1); test.Open(ScreenId::Form4); }, Picking("Combo1", "2")},
        {"Form4PickWithoutPlan", kTaskAboveOnPick, MsgBoxStyle::Ok, At(ScreenId::Form4), Picking("Combo1", "1")},
        {"Form4Command1OfATaskAbove", kTaskAbove, MsgBoxStyle::Ok, above, Pressing("Command1")},
        {"Form4Command3OfATaskAbove", kTaskAbove, MsgBoxStyle::Ok, above, Pressing("Command3")},
        {"Form4NameMissing",    kRowsIncomplete, MsgBoxStyle::Ok, rows([](auto& t) { t.robot.Retype("Text1(6)", ""); }), Pressing("Command1")},
        {"Form4VlaEdMissing",   kRowsIncomplete, MsgBoxStyle::Ok, rows([](auto& t) { t.robot.Retype("Text1(7)", ""); }), Pressing("Command1")},
        {"Form4VlaEcMissing",   kRowsIncomplete, MsgBoxStyle::Ok, rows([](auto& t) { t.robot.Retype("Text1(3)", ""); }), Pressing("Command1")},
        {"Form4RowsJustOpened", kRowsIncomplete, MsgBoxStyle::Ok,
         [](MessageTest& test) { test.SetPlan(1, 1, 1); test.Open(ScreenId::Form4); test.robot.Pick("Combo1", "1"); }, Pressing("Command1")},
        {"Form4UnitMissing", kRowsIncomplete, MsgBoxStyle::Ok,
         [](MessageTest& test) { test.SetPlan(1, 1, 1); test.record.Unidades(1, 1) = ""; test.Open(ScreenId::Form4);
                                 test.robot.Pick("Combo1", "1"); test.robot.Press("Command3"); }, Pressing("Command1")},
        {"Form4SamplingTimeMissing", kRowsIncomplete, MsgBoxStyle::Ok,
         [](MessageTest& test) { test.SetPlan(1, 1, 1); test.Open(ScreenId::Form4); test.robot.Pick("Combo1", "1");
                                 test.robot.Type("Text1(1)", "a"); test.robot.Type("Text1(2)", "1"); test.robot.Type("Text1(3)", "1");
                                 test.robot.Type("Text1(4)", "0"); test.robot.Pick("Combo13(0)", "ppm"); }, Pressing("Command1")},
        {"Form4Imprimir", PrintQuestion(ScreenId::Form4), MsgBoxStyle::YesNo, At(ScreenId::Form4), Choosing("imprimir")},
        {"Form4Salir", kExit, MsgBoxStyle::YesNoInformation, At(ScreenId::Form4), Choosing("salir")},
    };
}

std::vector<Message> MessagesOfForm5() {
    const auto one_day = [](MessageTest& test) { test.SetPlan(1, 1, 1); test.Open(ScreenId::Form5); };
    const auto at = [](int tasks, const std::function<void(MessageTest&)>& change) {
        return [=](MessageTest& test) { test.OpenSheetAtLastTask(tasks); change(test); };
    };
    return {
        {"Form5FirstDayWithoutPlan",    kIncoherentDay, MsgBoxStyle::Ok, At(ScreenId::Form5), Choosing("introducirdatos", "introprimero")},
        {"Form5RecoverWithoutPlan",     kIncoherentDay, MsgBoxStyle::Ok, At(ScreenId::Form5), Choosing("recuperar", "recupprimerdia")},
        {"Form5SecondDayAbove",         kIncoherentDay, MsgBoxStyle::Ok, one_day, Choosing("introducirdatos", "introsegundo")},
        {"Form5ThirdDayAbove",          kIncoherentDay, MsgBoxStyle::Ok, one_day, Choosing("introducirdatos", "introtercero")},
        {"Form5RecoverSecondDayAbove",  kIncoherentDay, MsgBoxStyle::Ok, one_day, Choosing("recuperar", "recupsegundodia")},
        {"Form5RecoverThirdDayAbove",   kIncoherentDay, MsgBoxStyle::Ok, one_day, Choosing("recuperar", "recuptercerdia")},
        {"Form5Command1WithoutLimits", kNoLimits, MsgBoxStyle::Ok,
         at(1, [](auto& t) { t.Wipe(2); t.Wipe(3); }), Pressing("Command1")},
        {"Form5Command2WithoutLimits", kNoLimits, MsgBoxStyle::Ok,
         at(2, [](auto& t) { t.Wipe(110); t.Wipe(111); }), Pressing("Command2")},
        {"Form5Command3WithoutLimits", kNoLimits, MsgBoxStyle::Ok,
         at(3, [](auto& t) { t.Wipe(218); t.Wipe(219); }), Pressing("Command3")},
        {"Form5Command1WithoutData", kNoData, MsgBoxStyle::Ok, at(1, [](auto&) {}), Pressing("Command1")},
        {"Form5Command2WithoutData", kNoDataOfLaterTask, MsgBoxStyle::Ok,
         at(2, [](auto& t) { t.Wipe(7); t.Wipe(8); }), Pressing("Command2")},
        {"Form5Command3WithoutData", kNoDataOfLaterTask, MsgBoxStyle::Ok,
         at(3, [](auto& t) { t.Wipe(7); t.Wipe(8); }), Pressing("Command3")},
        {"Form5Command1WithOneSample", kFewSamples, MsgBoxStyle::Ok,
         at(1, [](auto& t) { t.robot.Type("Text1(7)", "5"); }), Pressing("Command1")},
        {"Form5Command2WithOneSample", kFewSamples, MsgBoxStyle::Ok,
         at(2, [](auto& t) { t.robot.Type("Text1(115)", "5"); }), Pressing("Command2")},
        {"Form5Command3WithOneSample", kFewSamples, MsgBoxStyle::Ok,
         at(3, [](auto& t) { t.robot.Type("Text1(223)", "5"); }), Pressing("Command3")},
        {"Form5Command1WithAGap", kNoGaps, MsgBoxStyle::Ok,
         at(1, [](auto& t) { t.robot.Type("Text1(8)", "5"); t.robot.Type("Text1(9)", "5"); }), Pressing("Command1")},
        {"Form5Command2WithAGap", kNoGaps, MsgBoxStyle::Ok,
         at(2, [](auto& t) { t.robot.Type("Text1(115)", "0"); t.robot.Type("Text1(116)", "5"); }), Pressing("Command2")},
        {"Form5Command3WithAGap", kNoGaps, MsgBoxStyle::Ok,
         at(3, [](auto& t) { t.robot.Type("Text1(223)", "5"); t.robot.Type("Text1(228)", "5"); }), Pressing("Command3")},
        {"Form5Imprimir", PrintQuestion(ScreenId::Form5), MsgBoxStyle::YesNo, At(ScreenId::Form5), Choosing("imprimir")},
        {"Form5Salir", kExit, MsgBoxStyle::YesNoInformation, At(ScreenId::Form5), Choosing("salir")},
    };
}

std::vector<Message> MessagesOfForm6() {
    return {
        {"Form6Imprimir", PrintQuestion(ScreenId::Form6), MsgBoxStyle::YesNo, At(ScreenId::Form6), Choosing("imprimir")},
        {"Form6Salir", kExit, MsgBoxStyle::YesNoInformation, At(ScreenId::Form6), Choosing("salir")},
    };
}

// clang-format on

std::vector<Message> AllMessages() {
    std::vector<Message> all;
    for (const auto& part : {MessagesOfForm1(), MessagesOfForm2(), MessagesOfForm3(),
                             MessagesOfForm4(), MessagesOfForm5(), MessagesOfForm6()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

std::ostream& operator<<(std::ostream& out, const Message& message) { return out << message.name; }

class EachMessageTest : public MessageTest, public ::testing::WithParamInterface<Message> {};

TEST_P(EachMessageTest, ComesWithItsTextStyleAndTitleAndLeavesTheScreenWhereItIs) {
    const Message& message = GetParam();
    message.prepare(*this);
    const std::string before = robot.ScreenName();
    const auto answer = message.style == MsgBoxStyle::Ok ? QMessageBox::Ok : QMessageBox::No;
    robot.ExpectBox(BoxOf(message.text, message.style, answer, message.title));
    message.last_step(robot);
    EXPECT_EQ(robot.ScreenName(), before);
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, EachMessageTest, ::testing::ValuesIn(AllMessages()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(MessageTest, APickInThe30MinuteListMakesNoComparison) {
    OpenEntry(1, {"", "", "", "", "3", ""});
    robot.Pick("Combo1(5)", "4");  // a box would be a fault
    EXPECT_EQ(robot.Text("Combo1(5)"), "4");
}

TEST_F(MessageTest, AYesToTheIncompletePlanMovesAllTheSame) {
    for (const auto& [entry, screen] :
         {std::pair{"contaminantes", "Form4"}, std::pair{"pagina5", "Form5"},
          std::pair{"resultadofinal", "Form6"}}) {
        Open(ScreenId::Form3);
        robot.ExpectBox(BoxOf(kIncompletePlan, MsgBoxStyle::YesNoInformationNo, QMessageBox::Yes));
        robot.Choose("continuar", entry);
        EXPECT_EQ(robot.ScreenName(), screen);
    }
}

TEST_F(MessageTest, AYesToRegresarGoesToTheStart) {
    Open(ScreenId::Form2);
    robot.ExpectBox(BoxOf(kGoBack, MsgBoxStyle::YesNoInformationNo, QMessageBox::Yes));
    robot.Choose("Regresar");
    EXPECT_EQ(robot.ScreenName(), "Form1");
}

TEST_F(MessageTest, AYesToTheRestartClosesTheEntryRowAndTheGrid) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    EXPECT_EQ(robot.Text("Command1"), " NO OPERATIVO");
    EXPECT_FALSE(robot.Enabled("Command1"));
    EXPECT_TRUE(robot.Visible("Text1(5)"));
    robot.ExpectBox(BoxOf(kRestart, MsgBoxStyle::YesNoQuestionNo, QMessageBox::Yes, "Aviso"));
    robot.Pick("Combo1(0)", "3");
    EXPECT_EQ(robot.Text("Command1"), "Validar");
    EXPECT_TRUE(robot.Enabled("Command1"));
    EXPECT_FALSE(robot.Visible("Command2"));
    EXPECT_FALSE(robot.Visible("Text1(5)"));
    EXPECT_FALSE(robot.Visible("Combo1(7)"));
    EXPECT_EQ(robot.Text("Combo1(0)"), "3");
}

}  // namespace
}  // namespace velmora::test
