#include "capture/form3.h"

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "capture/form2.h"
#include "support/messages.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

constexpr std::string_view kFixed = " NO OPERATIVO";

class Form3Test : public VelmoraTest {
protected:
    Form3& OpenForm3() { return Open<Form3>(ScreenId::Form3); }

    void Pick(int i, std::string_view item) { VelmoraTest::Pick(Indexed("Combo1", i), item); }

    /// Fixes a plan on an open screen.
    void FixPlan(std::string_view days, std::string_view tasks) {
        Pick(0, days);
        Pick(1, tasks);
        Press("Command1");
    }

    /// Picks the six lists of the entry row from left to right.
    void PickEntry(std::string_view day, std::string_view task, std::string_view hours,
                   std::string_view of30, std::string_view of15, std::string_view contaminants) {
        Pick(2, day);
        Pick(3, task);
        Pick(4, hours);
        Pick(5, of30);
        Pick(6, of15);
        Pick(7, contaminants);
    }

    /// Picks the entry row and validates it.
    void Enter(std::string_view day, std::string_view task, std::string_view hours,
               std::string_view of30, std::string_view of15, std::string_view contaminants) {
        PickEntry(day, task, hours, of30, of15, contaminants);
        Press("Command2");
    }

    /// Presses `Command2` on the entry as it stands: this message, and the record as it was.
    void ExpectEntryRefused(std::string_view message) {
        const EvaluacionRecord before = record;
        const std::vector<std::string> cells = Cells(Current<Form3>());
        host.ExpectBox(std::string(message));
        Press("Command2");
        EXPECT_TRUE(record == before);
        EXPECT_EQ(Cells(Current<Form3>()), cells);
    }

    /// A screen of its own, since one whose load failed is of no use any more.
    void ExpectLoadFails(ErrorKind error) {
        Form3 form(Environment{record, chain, host});
        ExpectError(error, [&] { form.Form_Load(); });
    }

    static std::vector<std::string> Cells(const Form3& form) {
        std::vector<std::string> texts;
        for (const TextCell& cell : form.Text1) texts.push_back(cell.Text);
        return texts;
    }

    /// The six texts of row k, counted from 1.
    static std::vector<std::string> RowOf(const Form3& form, int k) {
        std::vector<std::string> texts;
        for (int i = 6 * (k - 1); i < 6 * k; ++i) texts.push_back(form.Text1(i).Text);
        return texts;
    }
};

using Texts = std::vector<std::string>;

/// The first `n` cells are open and visible, the others closed, hidden and empty.
void ExpectOpenCells(const Form3& form, int n) {
    for (int i = 0; i <= 53; ++i) {
        EXPECT_EQ(form.Text1(i).Visible, i < n) << i;
        EXPECT_EQ(form.Text1(i).Locked, i >= n) << i;
        EXPECT_TRUE(i < n || form.Text1(i).Text.empty()) << i;
    }
}

/// Headings, `Command2` and the six lists of the entry row are all there, or all hidden and closed.
void ExpectEntryRow(const Form3& form, bool there) {
    for (int i = 0; i <= 11; ++i) EXPECT_EQ(form.Label3(i).Visible, there) << i;
    EXPECT_EQ(form.Command2.Visible, there);
    EXPECT_EQ(form.Command2.Enabled, there);
    for (int i = 2; i <= 7; ++i) {
        EXPECT_EQ(form.Combo1(i).Visible, there) << i;
        EXPECT_EQ(form.Combo1(i).Locked, !there) << i;
    }
    for (int i = 0; i <= 1; ++i) {
        EXPECT_TRUE(form.Combo1(i).Visible) << i;
        EXPECT_FALSE(form.Combo1(i).Locked) << i;
    }
}

void ExpectPlanFixed(const Form3& form, int cells) {
    EXPECT_EQ(form.Command1.Caption, kFixed);
    EXPECT_FALSE(form.Command1.Enabled);
    EXPECT_TRUE(form.Command1.Visible);
    ExpectEntryRow(form, true);
    ExpectOpenCells(form, cells);
}

void ExpectPlanOpen(const Form3& form) {
    EXPECT_EQ(form.Command1.Caption, "Validar");
    EXPECT_TRUE(form.Command1.Enabled);
    EXPECT_TRUE(form.Command1.Visible);
    ExpectEntryRow(form, false);
    ExpectOpenCells(form, 0);
}

// ---- layout

TEST_F(Form3Test, TheListsStandWhereTheDesignPutsThemWithTheirItemsAndNoText) {
    const Form3& form = OpenForm3();
    struct Expected {
        int index;
        Box box;
        int tab;
        std::vector<std::string_view> items;
    };
    // clang-format off
    const std::vector<Expected> lists = {
        {0, {3480, 120,  735, 315}, 0, {"1", "3"}},
        {1, {8040, 120,  855, 315}, 1, {"1", "2", "3"}},
        {2, { 360, 840,  615, 315}, 4, {"1", "2", "3"}},
        {3, {1080, 840,  615, 315}, 5, {"1", "2", "3"}},
        {4, {1800, 840, 1815, 315}, 6, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14"}},
        {5, {3720, 840, 1455, 315}, 7, {"0", "1", "2", "3", "4", "5", "6"}},
        {6, {5280, 840, 1695, 315}, 8, {"0", "1", "2", "3", "4", "5", "6"}},
        {7, {7080, 840, 1815, 315}, 9, {"1", "2", "3", "4", "5", "6"}},
    };
    // clang-format on
    for (const Expected& expected : lists) {
        const Control& list = Find(Indexed("Combo1", expected.index));
        ExpectPlace(list, expected.box);
        EXPECT_EQ(list.row.tab, expected.tab) << list.name;
        EXPECT_EQ(std::vector(list.row.items.begin(), list.row.items.end()), expected.items)
            << list.name;
        EXPECT_EQ(form.Combo1(expected.index).Text, "") << list.name;
    }
}

TEST_F(Form3Test, TheButtonsStandWhereTheDesignPutsThem) {
    const Form3& form = OpenForm3();
    ExpectPlace(Find("Command1"), {9000, 120, 2655, 255});
    EXPECT_EQ(Find("Command1").row.tab, 2);
    EXPECT_EQ(form.Command1.Caption, "Validar");
    ExpectPlace(Find("Command2"), {9000, 840, 2655, 255});
    EXPECT_EQ(Find("Command2").row.tab, 3);
    EXPECT_EQ(form.Command2.Caption, "Validar");
}

TEST_F(Form3Test, TheHeadingsStandWhereTheDesignPutsThemWithTheirTexts) {
    OpenForm3();
    // clang-format off
    const std::vector<Placed> labels = {
        {"Label1(2)",  { 360,  120, 3135, 255}, "  Número de jornadas muestreadas:"},
        {"Label1(3)",  {4320,  120, 3735, 255}, "Número de tareas  en cada jornada:"},
        {"Label3(0)",  { 360,  480,  615, 255}, "     Día"},
        {"Label3(1)",  {1080,  480,  615, 255}, "Tarea"},
        {"Label3(2)",  {1800,  480, 1815, 255}, "Tiempo exposi. horas."},
        {"Label3(3)",  {3720,  480, 1455, 255}, "  Nº de muestras 30'"},
        {"Label3(4)",  {5280,  480, 1695, 255}, "Nº de muestras 15'"},
        {"Label3(5)",  {7080,  480, 1815, 255}, "Nº de contaminantes"},
        {"Label3(6)",  { 360, 1320,  615, 375}, "Día"},
        {"Label3(7)",  {1080, 1320,  615, 375}, "Tarea"},
        {"Label3(8)",  {1800, 1320,  615, 375}, "Tiempo exposi. horas."},
        {"Label3(9)",  {2520, 1320,  615, 375}, "Muestras 30'"},
        {"Label3(10)", {3240, 1320,  615, 375}, "Muestras  15'"},
        {"Label3(11)", {3960, 1320,  615, 375}, "Contami_  nantes"},
    };
    // clang-format on
    for (const Placed& expected : labels) {
        const Control& label = Find(std::string(expected.name));
        ExpectPlaced(label, expected);
        EXPECT_EQ(label.row.tab, kNoTab) << label.name;
    }
}

TEST_F(Form3Test, TheGridHasNineRowsOfSixCellsFilledRowAfterRow) {
    OpenForm3();
    constexpr std::array<int, 6> kLeft = {360, 1080, 1800, 2520, 3240, 3960};
    for (int i = 0; i <= 53; ++i) {
        const Control& cell = Find(Indexed("Text1", i));
        ExpectPlace(cell,
                    {kLeft.at(static_cast<std::size_t>(i % 6)), 1800 + 360 * (i / 6), 615, 285});
        EXPECT_EQ(cell.row.tab, 10 + i) << "behind the ten controls above the grid";
    }
    EXPECT_EQ(chain.Current().FindControl("Text1(54)"), nullptr);
}

TEST_F(Form3Test, TheSmallMarkIsColouredAndOutOfTheTabOrderInBothFaces) {
    const Form3& form = OpenForm3();
    ExpectPlace(Find("Text2"), {9000, 480, 75, 105});
    EXPECT_EQ(Find("Text2").row.tab, kNoTab);
    EXPECT_NE(form.Text2.BackColor, kWindowBackground);
    EXPECT_EQ(form.Text2.BackColor, Find("Text2").row.look.back);
    EXPECT_FALSE(Find("Text2").events.Click || Find("Text2").events.KeyPress);
    EXPECT_TRUE(form.Text2.Visible);
    FixPlan("3", "1");
    EXPECT_TRUE(form.Text2.Visible);
    EXPECT_EQ(form.Text2.Text, "");
}

TEST_F(Form3Test, TheScreenHasTheControlsOfTheDesignAndNoOthers) {
    const Form3& form = OpenForm3();
    std::map<std::string_view, int> count;
    for (const Control& control : form.Controls()) ++count[control.row.name];
    EXPECT_EQ(count, (std::map<std::string_view, int>{{"Label1", 2},
                                                      {"Label2", 1},
                                                      {"Label3", 12},
                                                      {"Combo1", 8},
                                                      {"Command1", 1},
                                                      {"Command2", 1},
                                                      {"Text1", 54},
                                                      {"Text2", 1}}));
}

TEST_F(Form3Test, EveryCellListAndButtonHasASpokenNameOfItsOwn) {
    const Form3& form = OpenForm3();
    std::set<std::string> names;
    int speaking = 0;
    for (const Control& control : form.Controls()) {
        if (std::holds_alternative<Label*>(control.state)) continue;
        ++speaking;
        EXPECT_FALSE(control.spoken.empty()) << control.name;
        names.insert(control.spoken);
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(speaking));
    EXPECT_EQ(Find("Text1(14)").spoken, "Fila 3, tiempo de exposición en horas");
    EXPECT_EQ(Find("Command1").spoken, "Validar jornadas y tareas");
    EXPECT_EQ(Find("Command2").spoken, "Validar la línea del plan");
}

// ---- load

TEST_F(Form3Test, Load_WithoutAPlanShowsTheTwoChoicesAndTheButtonAlone) {
    ExpectPlanOpen(OpenForm3());
}

TEST_F(Form3Test, Load_WithOnlyOneOfTheTwoNumbersIsWithoutAPlan) {
    record.NumJornadas = 3;
    ExpectPlanOpen(OpenForm3());
    record.NumJornadas = 0;
    record.NumTareas = 3;
    ExpectPlanOpen(OpenForm3());
}

TEST_F(Form3Test, Load_WithAPlanOpensItsRowsAndLeavesTheChoicesBlank) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    const Form3& form = OpenForm3();
    ExpectPlanFixed(form, 36);
    for (int i = 0; i <= 7; ++i) EXPECT_EQ(form.Combo1(i).Text, "") << i;
}

TEST_F(Form3Test, Load_FillsEachRowFromItsDayAndTaskAndTheTasksCount) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    record.TiempoExposicion(2, 1) = 7.5;
    record.Muestras30(2, 1) = 2;
    record.Muestras15(2, 1) = 3;
    record.NumContaminantes(1) = 5;
    const Form3& form = OpenForm3();
    EXPECT_EQ(RowOf(form, 3), (Texts{"2", "1", "7.5", "2", "3", "5"}));
}

TEST_F(Form3Test, Load_ShowsZerosInARowNeverEnteredAndTheCountOfItsTask) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    record.NumContaminantes(2) = 4;
    const Form3& form = OpenForm3();
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "0", "0", "0", "0"}));
    EXPECT_EQ(RowOf(form, 2), (Texts{"1", "2", "0", "0", "0", "4"}));
    EXPECT_EQ(RowOf(form, 6), (Texts{"3", "2", "0", "0", "0", "4"}));
}

TEST_F(Form3Test, Load_WritesHoursWithTheLocalesSeparator) {
    const WithSeparator comma(",");
    record.NumJornadas = 1;
    record.NumTareas = 1;
    record.TiempoExposicion(1, 1) = 7.5;
    EXPECT_EQ(OpenForm3().Text1(2).Text, "7,5");
}

TEST_F(Form3Test, Load_ChangesNothingInTheRecord) {
    record.NumJornadas = 3;
    record.NumTareas = 3;
    record.TiempoExposicion(3, 3) = 8;
    const EvaluacionRecord before = record;
    OpenForm3();
    EXPECT_TRUE(record == before);
}

TEST_F(Form3Test, Load_TakesARestoredPlanOfTwoDays) {
    record.NumJornadas = 2;
    record.NumTareas = 3;
    const Form3& form = OpenForm3();
    ExpectPlanFixed(form, 36);
    EXPECT_EQ(RowOf(form, 6)[0], "2");
    EXPECT_EQ(RowOf(form, 6)[1], "3");
}

TEST_F(Form3Test, Load_OfARestoredPlanOfFourDaysEndsOnTheSubscriptError) {
    record.NumJornadas = 4;
    for (int tasks = 1; tasks <= 3; ++tasks) {  // with three, the cells themselves run out
        record.NumTareas = tasks;
        ExpectLoadFails(ErrorKind::SubscriptOutOfRange);
    }
}

TEST_F(Form3Test, Load_OfARestoredPlanOfFourTasksEndsOnTheSubscriptError) {
    record.NumJornadas = 1;
    record.NumTareas = 4;
    ExpectLoadFails(ErrorKind::SubscriptOutOfRange);
}

TEST_F(Form3Test, Load_OfAPlanWhoseCellsDoNotFitAnIntegerEndsOnTheOverflow) {
    record.NumJornadas = 200;  // 200 x 200 = 40000
    record.NumTareas = 200;
    ExpectLoadFails(ErrorKind::Overflow);
    record.NumJornadas = 5462;  // 5462 x 1 x 6 = 32772
    record.NumTareas = 1;
    ExpectLoadFails(ErrorKind::Overflow);
    record.NumJornadas = 5461;  // 5461 x 1 x 6 = 32766, an Integer, but no cell 54
    ExpectLoadFails(ErrorKind::SubscriptOutOfRange);
}

// ---- Command1

TEST_F(Form3Test, Command1_FixesAPlanOfOneByOneWithOneRow) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    EXPECT_EQ(record.NumJornadas, 1);
    EXPECT_EQ(record.NumTareas, 1);
    ExpectPlanFixed(form, 6);
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "", "", "", ""}));
}

TEST_F(Form3Test, Command1_FixesAPlanOfThreeByThreeWithTheWholeGrid) {
    const Form3& form = OpenForm3();
    FixPlan("3", "3");
    EXPECT_EQ(record.NumJornadas, 3);
    EXPECT_EQ(record.NumTareas, 3);
    ExpectPlanFixed(form, 54);
    for (int d = 1; d <= 3; ++d) {
        for (int t = 1; t <= 3; ++t) {
            EXPECT_EQ(RowOf(form, (d - 1) * 3 + t),
                      (Texts{TextoEntero(d), TextoEntero(t), "", "", "", ""}));
        }
    }
}

TEST_F(Form3Test, Command1_InAPlanOfThreeByTwoPutsDay2Task1InRow3) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    ExpectPlanFixed(form, 36);
    EXPECT_EQ(form.Text1(12).Text, "2");
    EXPECT_EQ(form.Text1(13).Text, "1");
}

TEST_F(Form3Test, Command1_OpensTheCellsOfEveryPlanThatTheListsOffer) {
    struct Plan {
        std::string_view days, tasks;
        int cells;
    };
    // One workday: 6, 12, 18 cells; three: 18, 36, 54.
    for (const Plan& plan : {Plan{"1", "1", 6}, Plan{"1", "2", 12}, Plan{"1", "3", 18},
                             Plan{"3", "1", 18}, Plan{"3", "2", 36}, Plan{"3", "3", 54}}) {
        record = {};
        const Form3& form = OpenForm3();
        FixPlan(plan.days, plan.tasks);
        ExpectPlanFixed(form, plan.cells);
    }
}

TEST_F(Form3Test, Command1_KeepsTheTwoPicksOnTheScreen) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    EXPECT_EQ(form.Combo1(0).Text, "3");
    EXPECT_EQ(form.Combo1(1).Text, "2");
}

TEST_F(Form3Test, Command1_ChangesTheTwoNumbersAlone) {
    record.TiempoExposicion(1, 1) = 8;
    record.NumContaminantes(1) = 2;
    EvaluacionRecord expected = record;
    expected.NumJornadas = 3;
    expected.NumTareas = 1;
    OpenForm3();
    FixPlan("3", "1");
    EXPECT_TRUE(record == expected);
}

TEST_F(Form3Test, Command1_EmptiesTheCellsThatItOpens) {
    Form3& form = OpenForm3();
    FixPlan("1", "1");
    Enter("1", "1", "8", "1", "1", "2");
    form.Command1_Click();  // disabled now: a user can't press it
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "", "", "", ""}));
}

TEST_F(Form3Test, Command1_WithOneListEmptyGivesTheMessageAndKeepsThePlan) {
    for (const int missing : {0, 1}) {
        record.NumJornadas = 0;
        record.NumTareas = 2;  // without the other number this is no plan
        const Form3& form = OpenForm3();
        Pick(1 - missing, "1");
        host.ExpectBox(messages::kNoPick);
        Press("Command1");
        EXPECT_EQ(record.NumJornadas, 0);
        EXPECT_EQ(record.NumTareas, 2);
        ExpectPlanOpen(form);
    }
}

TEST_F(Form3Test, Command1_WithBothListsEmptyGivesTheMessageOnce) {
    const Form3& form = OpenForm3();
    host.ExpectBox(messages::kNoPick);
    Press("Command1");
    ExpectPlanOpen(form);
}

TEST_F(Form3Test, Command1_WithAValueOfZeroGivesTheSameMessage) {
    Form3& form = OpenForm3();
    for (const auto& [days, tasks] : {std::pair{"0", "1"}, {"3", "0"}, {"x", "1"}, {"3", "x"}}) {
        form.Combo1(0).Text = days;
        form.Combo1(1).Text = tasks;
        host.ExpectBox(messages::kNoPick);
        Press("Command1");
        EXPECT_EQ(record.NumJornadas, 0);
        EXPECT_EQ(record.NumTareas, 0);
        ExpectPlanOpen(form);
    }
}

TEST_F(Form3Test, Command1_WithALockedListEndsWithoutAWord) {
    for (const int locked : {0, 1}) {
        Form3& form = OpenForm3();
        Pick(0, "3");
        Pick(1, "2");
        form.Combo1(locked).Locked = true;
        Press("Command1");
        EXPECT_EQ(record.NumJornadas, 0);
        EXPECT_EQ(record.NumTareas, 0);
        EXPECT_EQ(form.Command1.Caption, "Validar");
    }
}

TEST_F(Form3Test, Command1_LooksForEmptyListsBeforeLockedOnes) {
    Form3& form = OpenForm3();
    form.Combo1(0).Locked = true;
    host.ExpectBox(messages::kNoPick);
    Press("Command1");
}

TEST_F(Form3Test, Command1_DoesNotStoreANegativeNumber) {
    record.NumJornadas = 0;
    Form3& form = OpenForm3();
    form.Combo1(0).Text = "-3";
    form.Combo1(1).Text = "2";
    Press("Command1");
    EXPECT_EQ(record.NumJornadas, 0);
    EXPECT_EQ(record.NumTareas, 2);
    EXPECT_EQ(form.Command1.Caption, kFixed);
}

TEST_F(Form3Test, Command1_DoesNotStoreANegativeNumberOfTasks) {
    record.NumTareas = 0;
    Form3& form = OpenForm3();
    form.Combo1(0).Text = "3";
    form.Combo1(1).Text = "-2";
    Press("Command1");
    EXPECT_EQ(record.NumJornadas, 3);
    EXPECT_EQ(record.NumTareas, 0);
    EXPECT_EQ(form.Command1.Caption, kFixed);
}

TEST_F(Form3Test, Command1_ReadsTheTwoListsByDifferentRules) {
    Form3& form = OpenForm3();
    form.Combo1(0).Text = "3 jornadas";  // the leading number will do here
    form.Combo1(1).Text = "2 tareas";    // here the whole text has to be a number
    ExpectError(ErrorKind::TypeMismatch, [&] { form.Command1_Click(); });
    EXPECT_EQ(record.NumJornadas, 3);
    EXPECT_EQ(record.NumTareas, 0);
}

// ---- picks in the lists

TEST_F(Form3Test, APickBeforeThePlanIsFixedAsksNothing) {
    const Form3& form = OpenForm3();
    Pick(0, "1");
    Pick(1, "3");
    Pick(0, "3");
    ExpectPlanOpen(form);
    EXPECT_EQ(record.NumJornadas, 0);
}

TEST_F(Form3Test, APickInEitherNumberOfAFixedPlanAsksWhetherToStartAgain) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    for (const int list : {0, 1}) {
        host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::No, "Aviso");
        Pick(list, "1");
        ExpectPlanFixed(form, 36);
    }
}

TEST_F(Form3Test, PickingTheValueThatThePlanHasAsksAllTheSame) {
    OpenForm3();
    FixPlan("3", "2");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::No, "Aviso");
    Pick(0, "3");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::No, "Aviso");
    Pick(1, "2");
}

TEST_F(Form3Test, APickInAScreenThatLoadedWithItsPlanAsksToo) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    const Form3& form = OpenForm3();
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "1");
    ExpectPlanOpen(form);
}

TEST_F(Form3Test, APickInTheEntryRowNeverAsksToStartAgain) {
    const Form3& form = OpenForm3();
    FixPlan("3", "3");
    for (int list = 2; list <= 7; ++list) Pick(list, "1");
    ExpectPlanFixed(form, 54);
}

TEST_F(Form3Test, NoInTheRestartBoxKeepsTheNewPickAndTheOldNumbers) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    Enter("1", "1", "8", "1", "1", "2");
    const Texts cells = Cells(form);
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::No, "Aviso");
    Pick(0, "1");
    EXPECT_EQ(form.Combo1(0).Text, "1");
    EXPECT_EQ(record.NumJornadas, 3);
    EXPECT_EQ(Cells(form), cells);
    Enter("3", "1", "8", "1", "1", "2");  // judged against the old three workdays
    EXPECT_EQ(RowOf(form, 5), (Texts{"3", "1", "8", "1", "1", "2"}));
}

TEST_F(Form3Test, YesInTheRestartBoxClosesTheScreenAndKeepsTheWholeRecord) {
    const Form3& form = OpenForm3();
    FixPlan("3", "3");
    Enter("3", "3", "8", "1", "1", "2");
    const EvaluacionRecord before = record;
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(1, "1");
    ExpectPlanOpen(form);
    EXPECT_EQ(form.Combo1(1).Text, "1");
    EXPECT_TRUE(record == before);
}

TEST_F(Form3Test, TheEntryRowKeepsItsPicksWhileItIsHidden) {
    const Form3& form = OpenForm3();
    FixPlan("3", "3");
    PickEntry("2", "3", "14", "0", "6", "6");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "3");
    Press("Command1");
    Texts texts;
    for (int i = 2; i <= 7; ++i) texts.push_back(form.Combo1(i).Text);
    EXPECT_EQ(texts, (Texts{"2", "3", "14", "0", "6", "6"}));
}

TEST_F(Form3Test, AfterARestartTheGridShowsDaysAndTasksOnlyThoughTheRecordHoldsTheHours) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    Enter("1", "1", "8", "1", "1", "2");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "1");
    Pick(1, "2");  // the plan is open again: no question
    Press("Command1");
    ExpectPlanFixed(form, 12);
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "", "", "", ""}));
    EXPECT_EQ(RowOf(form, 2), (Texts{"1", "2", "", "", "", ""}));
    EXPECT_EQ(record.TiempoExposicion(1, 1), 8);
}

TEST_F(Form3Test, AfterARestartTheFirstStoreBringsBackEveryRowThatTheRecordHolds) {
    const Form3& form = OpenForm3();
    FixPlan("3", "1");
    Enter("1", "1", "8", "1", "1", "2");
    Enter("3", "1", "4", "2", "0", "2");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "3");
    Press("Command1");
    Enter("3", "1", "5", "2", "0", "2");
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "8", "1", "1", "2"}));
    EXPECT_EQ(RowOf(form, 2), (Texts{"2", "1", "", "", "", ""}));
    EXPECT_EQ(RowOf(form, 3), (Texts{"3", "1", "5", "2", "0", "2"}));
}

TEST_F(Form3Test, AReopenedPlanDoesNotOutliveTheScreen) {
    OpenForm3();
    FixPlan("3", "2");
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "1");
    ExpectPlanFixed(OpenForm3(), 36);
}

TEST_F(Form3Test, FourAndThreeGiveTheLimitMessageWhenThe15MinuteCountIsPickedLast) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    Pick(5, "4");
    host.ExpectBox(messages::kSumAboveSix);
    Pick(6, "3");
    EXPECT_EQ(form.Combo1(6).Text, "3") << "the pick stands";
    EXPECT_EQ(form.Combo1(5).Text, "4");
}

TEST_F(Form3Test, FourAndThreeGiveNoMessageWhenThe30MinuteCountIsPickedLast) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    Pick(6, "3");
    Pick(5, "4");
    EXPECT_EQ(form.Combo1(5).Text, "4");
}

TEST_F(Form3Test, ASumOfSixOrAnEmptyOtherCountGivesNoMessage) {
    OpenForm3();
    FixPlan("1", "1");
    Pick(6, "6");  // the other list is empty: 0
    Pick(5, "3");
    Pick(6, "3");
    EXPECT_EQ(Current<Form3>().Combo1(6).Text, "3");
}

TEST_F(Form3Test, TheLimitMessageComesAtEveryPickOfThe15MinuteCountThatIsAboveIt) {
    OpenForm3();
    FixPlan("1", "1");
    Pick(5, "6");
    host.ExpectBox(messages::kSumAboveSix);
    Pick(6, "1");
    host.ExpectBox(messages::kSumAboveSix);
    Pick(6, "1");
    Pick(6, "0");
    EXPECT_EQ(Current<Form3>().Combo1(6).Text, "0");
}

// ---- keys

TEST_F(Form3Test, NoKeyReachesAnyListOrCell) {
    record.NumJornadas = 3;
    record.NumTareas = 3;
    Form3& form = OpenForm3();
    form.Combo1(2).Text = "2";
    const Texts cells = Cells(form);
    int filtered = 0;
    for (const Control& control : form.Controls()) {
        if (control.row.name != "Combo1" && control.row.name != "Text1") continue;
        ASSERT_TRUE(control.events.KeyPress) << control.name;
        EXPECT_FALSE(control.events.free_text) << control.name;
        ++filtered;
        for (int code = 0; code <= 255; ++code) {
            KeyCode key = code;
            control.events.KeyPress(key);
            ASSERT_EQ(key, 0) << control.name << " lets " << code << " through";
        }
    }
    EXPECT_EQ(filtered, 62);
    EXPECT_EQ(Cells(form), cells);
    EXPECT_EQ(form.Combo1(2).Text, "2");
}

// ---- Command2

TEST_F(Form3Test, Command2_StoresTheSixListsAsOneTaskOfOneDay) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    EvaluacionRecord expected = record;
    expected.TiempoExposicion(2, 1) = 14;
    expected.Muestras30(2, 1) = 2;
    expected.Muestras15(2, 1) = 3;
    expected.NumContaminantes(1) = 5;
    Enter("2", "1", "14", "2", "3", "5");
    EXPECT_TRUE(record == expected);
    EXPECT_EQ(RowOf(form, 3), (Texts{"2", "1", "14", "2", "3", "5"}));
}

TEST_F(Form3Test, Command2_InAPlanOfThreeByTwoFillsCells14To17AndLeavesTheOthersEmpty) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    Enter("2", "1", "8", "1", "2", "3");
    EXPECT_EQ(form.Text1(14).Text, "8");
    EXPECT_EQ(form.Text1(15).Text, "1");
    EXPECT_EQ(form.Text1(16).Text, "2");
    EXPECT_EQ(form.Text1(17).Text, "3");
    for (const int k : {1, 2, 4, 5, 6}) {
        const Texts row = RowOf(form, k);
        EXPECT_EQ(Texts(row.begin() + 2, row.end()), Texts(4)) << k;
    }
}

TEST_F(Form3Test, Command2_KeepsTheListsForTheNextEntry) {
    const Form3& form = OpenForm3();
    FixPlan("1", "3");
    Enter("1", "2", "6", "0", "4", "4");
    Texts texts;
    for (int i = 2; i <= 7; ++i) texts.push_back(form.Combo1(i).Text);
    EXPECT_EQ(texts, (Texts{"1", "2", "6", "0", "4", "4"}));
    Pick(3, "3");
    Press("Command2");
    EXPECT_EQ(RowOf(form, 3), (Texts{"1", "3", "6", "0", "4", "4"}));
}

TEST_F(Form3Test, Command2_WithAPlanOfOneDayRefusesDay2ThoughTheListOffersIt) {
    OpenForm3();
    FixPlan("1", "3");
    PickEntry("2", "1", "8", "1", "1", "2");
    ExpectEntryRefused(messages::kEntryIncoherent);
}

TEST_F(Form3Test, Command2_WithThreeDaysTakesDay3) {
    const Form3& form = OpenForm3();
    FixPlan("3", "1");
    Enter("3", "1", "8", "1", "1", "2");
    EXPECT_EQ(RowOf(form, 3), (Texts{"3", "1", "8", "1", "1", "2"}));
}

TEST_F(Form3Test, Command2_RefusesATaskBeyondThePlan) {
    OpenForm3();
    FixPlan("3", "2");
    PickEntry("1", "3", "8", "1", "1", "2");
    ExpectEntryRefused(messages::kEntryIncoherent);
}

TEST_F(Form3Test, Command2_TakesEverySumThatMatchesAndRefusesEveryOther) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    for (int of30 = 0; of30 <= 6; ++of30) {
        for (int of15 = 0; of15 <= 6; ++of15) {
            for (int contaminants = 1; contaminants <= 6; ++contaminants) {
                Pick(2, "1");
                Pick(3, "1");
                Pick(4, "8");
                Pick(5, TextoEntero(of30));
                if (of30 + of15 > 6) host.ExpectBox(messages::kSumAboveSix);
                Pick(6, TextoEntero(of15));
                Pick(7, TextoEntero(contaminants));
                if (of30 + of15 != contaminants) {
                    ExpectEntryRefused(messages::kSumDiffers);
                } else {
                    Press("Command2");
                    EXPECT_EQ(RowOf(form, 1),
                              (Texts{"1", "1", "8", TextoEntero(of30), TextoEntero(of15),
                                     TextoEntero(contaminants)}));
                }
            }
        }
    }
}

TEST_F(Form3Test, Command2_ThreeAndTwoWithFourChangeNothing) {
    OpenForm3();
    FixPlan("1", "1");
    Enter("1", "1", "8", "2", "3", "5");
    PickEntry("1", "1", "4", "3", "2", "4");
    ExpectEntryRefused(messages::kSumDiffers);
    EXPECT_EQ(record.TiempoExposicion(1, 1), 8);
}

TEST_F(Form3Test, Command2_WithAnyOneListEmptyGivesTheMessage) {
    const Texts entry = {"1", "1", "8", "1", "1", "2"};
    for (int missing = 2; missing <= 7; ++missing) {
        record = {};
        OpenForm3();
        FixPlan("1", "1");
        for (int i = 2; i <= 7; ++i) {
            if (i != missing) Pick(i, entry.at(static_cast<std::size_t>(i - 2)));
        }
        ExpectEntryRefused(messages::kEntryIncomplete);
    }
}

TEST_F(Form3Test, Command2_WithAnEmpty15MinuteCountIsRefusedThoughTheSumWouldFit) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    Pick(2, "1");
    Pick(3, "1");
    Pick(4, "8");
    Pick(5, "2");
    Pick(7, "2");
    ExpectEntryRefused(messages::kEntryIncomplete);
    Pick(6, "0");
    Press("Command2");
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "8", "2", "0", "2"}));
}

TEST_F(Form3Test, Command2_LooksForEmptyListsThenForThePlanThenForTheSum) {
    OpenForm3();
    FixPlan("1", "1");
    Pick(2, "3");
    Pick(3, "3");
    ExpectEntryRefused(messages::kEntryIncomplete);
    Pick(4, "8");
    Pick(5, "1");
    Pick(6, "1");
    Pick(7, "6");
    ExpectEntryRefused(messages::kEntryIncoherent);
    Pick(2, "1");
    ExpectEntryRefused(messages::kEntryIncoherent);
    Pick(3, "1");
    ExpectEntryRefused(messages::kSumDiffers);
}

TEST_F(Form3Test, Command2_WithoutAPlanInTheRecordGivesItsOwnMessageFirst) {
    Form3& form = OpenForm3();
    for (const auto& [days, tasks] : {std::pair{0, 0}, {0, 2}, {3, 0}}) {
        record.NumJornadas = days;
        record.NumTareas = tasks;
        const EvaluacionRecord before = record;
        host.ExpectBox(messages::kNoPlan);
        form.Command2_Click();  // hidden and disabled here: a user can't press it
        EXPECT_TRUE(record == before);
    }
}

TEST_F(Form3Test, Command2_ASecondStoreOfAPairReplacesIt) {
    const Form3& form = OpenForm3();
    FixPlan("1", "1");
    Enter("1", "1", "8", "2", "3", "5");
    Enter("1", "1", "4", "1", "0", "1");
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "4", "1", "0", "1"}));
    EXPECT_EQ(record.TiempoExposicion(1, 1), 4);
    EXPECT_EQ(record.Muestras30(1, 1), 1);
    EXPECT_EQ(record.Muestras15(1, 1), 0);
    EXPECT_EQ(record.NumContaminantes(1), 1);
}

TEST_F(Form3Test, Command2_ALaterDayOverwritesTheTasksCountInAllItsRows) {
    const Form3& form = OpenForm3();
    FixPlan("3", "2");
    Enter("1", "2", "8", "1", "2", "3");
    Enter("3", "2", "4", "2", "2", "4");
    EXPECT_EQ(record.NumContaminantes(2), 4);
    EXPECT_EQ(RowOf(form, 2), (Texts{"1", "2", "8", "1", "2", "4"}));
    EXPECT_EQ(RowOf(form, 6), (Texts{"3", "2", "4", "2", "2", "4"}));
    // Each day keeps its own sample counts, whatever their sum.
    EXPECT_EQ(record.Muestras30(1, 2) + record.Muestras15(1, 2), 3);
    EXPECT_EQ(record.Muestras30(3, 2) + record.Muestras15(3, 2), 4);
}

TEST_F(Form3Test, Command2_AnEarlierDayEnteredLaterOverwritesTheCountToo) {
    OpenForm3();
    FixPlan("3", "1");
    Enter("3", "1", "8", "2", "2", "4");
    Enter("1", "1", "8", "1", "0", "1");
    EXPECT_EQ(record.NumContaminantes(1), 1);
}

TEST_F(Form3Test, Command2_LeavesARowOfZerosFromTheLoadAsItStands) {
    record.NumJornadas = 3;
    record.NumTareas = 1;
    record.NumContaminantes(1) = 2;
    const Form3& form = OpenForm3();
    Enter("2", "1", "8", "3", "0", "3");
    // Without hours a row isn't refreshed: the old count of the task stays in it.
    EXPECT_EQ(RowOf(form, 1), (Texts{"1", "1", "0", "0", "0", "2"}));
    EXPECT_EQ(RowOf(form, 2), (Texts{"2", "1", "8", "3", "0", "3"}));
}

TEST_F(Form3Test, Command2_WritesRestoredHoursWithTheLocalesSeparator) {
    const WithSeparator comma(",");
    const Form3& form = OpenForm3();
    FixPlan("3", "1");
    record.TiempoExposicion(1, 1) = 7.25;
    Enter("2", "1", "8", "1", "0", "1");
    EXPECT_EQ(form.Text1(2).Text, "7,25");
    EXPECT_EQ(form.Text1(8).Text, "8");
}

TEST_F(Form3Test, Command2_FailsOnTextThatIsNoNumber) {
    OpenForm3();
    FixPlan("1", "1");
    struct Bad {
        int list;
        const char* text;
    };
    for (const Bad& bad :
         {Bad{2, "x"}, Bad{3, "x"}, Bad{4, "8 horas"}, Bad{5, "1 x"}, Bad{6, "1 x"}}) {
        auto& form = Current<Form3>();
        PickEntry("1", "1", "8", "1", "1", "2");
        form.Combo1(bad.list).Text = bad.text;
        const EvaluacionRecord before = record;
        ExpectError(ErrorKind::TypeMismatch, [&] { form.Command2_Click(); });
        EXPECT_TRUE(bad.list > 4 || record == before) << bad.list;
        record = before;
    }
}

TEST_F(Form3Test, Command2_ADayOrTaskOfZeroIsTheSubscriptError) {
    Form3& form = OpenForm3();
    FixPlan("1", "1");
    PickEntry("1", "1", "8", "1", "1", "2");
    const EvaluacionRecord before = record;
    for (const int list : {2, 3}) {
        form.Combo1(2).Text = "1";
        form.Combo1(3).Text = "1";
        form.Combo1(list).Text = "0";
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command2_Click(); });
        EXPECT_TRUE(record == before);
    }
}

// ---- the guards on leaving

struct Way {
    std::string_view entry;
    ScreenId target;
};

void PrintTo(const Way& way, std::ostream* out) { *out << way.entry; }

class Form3WayTest : public Form3Test, public ::testing::WithParamInterface<Way> {
protected:
    void ExpectAsksAndStaysOnNo() {
        const Screen* before = &chain.Current();
        host.ExpectBox(messages::kIncompletePlan, MsgBoxStyle::YesNoInformationNo,
                       MsgBoxAnswer::No);
        Choose(GetParam().entry);
        EXPECT_EQ(&chain.Current(), before);
    }

    void ExpectGoesWithoutAWord() {
        Choose(GetParam().entry);
        EXPECT_EQ(chain.Current().Id(), GetParam().target);
    }
};

TEST_P(Form3WayTest, WithoutAPlanItAsksAndStaysOnNo) {
    OpenForm3();
    ExpectAsksAndStaysOnNo();
}

TEST_P(Form3WayTest, WithoutAPlanItAsksAndGoesOnYes) {
    OpenForm3();
    host.ExpectBox(messages::kIncompletePlan, MsgBoxStyle::YesNoInformationNo, MsgBoxAnswer::Yes);
    Choose(GetParam().entry);
    EXPECT_EQ(chain.Current().Id(), GetParam().target);
}

TEST_P(Form3WayTest, WithOnlyOneOfTheTwoNumbersItAsks) {
    record.NumJornadas = 1;
    OpenForm3();
    ExpectAsksAndStaysOnNo();
    record.NumJornadas = 0;
    record.NumTareas = 1;
    OpenForm3();
    ExpectAsksAndStaysOnNo();
}

TEST_P(Form3WayTest, ACompletePlanGoesWithoutAWord) {
    OpenForm3();
    FixPlan("1", "2");
    Enter("1", "1", "8", "1", "0", "1");
    Enter("1", "2", "8", "1", "0", "1");
    ExpectGoesWithoutAWord();
}

TEST_P(Form3WayTest, AnEmptyCellMakesItAskThoughTheLastPairIsSet) {
    OpenForm3();
    FixPlan("3", "2");
    Enter("3", "2", "8", "1", "0", "1");
    ExpectAsksAndStaysOnNo();
}

TEST_P(Form3WayTest, AnyOneEmptyCellOfThePlanMakesItAsk) {
    record.NumJornadas = 1;
    record.NumTareas = 3;
    record.TiempoExposicion(1, 3) = 8;
    for (int i = 0; i < 18; ++i) {
        OpenForm3().Text1(i).Text = "";
        ExpectAsksAndStaysOnNo();
    }
}

TEST_P(Form3WayTest, AnEmptyCellBehindThePlanIsNotLookedAt) {
    record.NumJornadas = 1;
    record.NumTareas = 3;
    record.TiempoExposicion(1, 3) = 8;
    EXPECT_EQ(OpenForm3().Text1(18).Text, "");
    ExpectGoesWithoutAWord();
}

TEST_P(Form3WayTest, ZerosForEarlierPairsDoNotTripItWhenTheLastPairIsSet) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    record.TiempoExposicion(3, 2) = 8;  // the load shows the others as rows of zeros
    OpenForm3();
    ExpectGoesWithoutAWord();
}

TEST_P(Form3WayTest, AZeroForTheLastPairMakesItAskThoughAllOthersAreSet) {
    record.NumJornadas = 3;
    record.NumTareas = 2;
    for (int d = 1; d <= 3; ++d) {
        for (int t = 1; t <= 2; ++t) record.TiempoExposicion(d, t) = 8;
    }
    record.TiempoExposicion(3, 2) = 0;
    record.TiempoExposicion(3, 3) = 8;  // beyond the plan: not looked at
    OpenForm3();
    ExpectAsksAndStaysOnNo();
}

TEST_P(Form3WayTest, AZeroForTheOnlyPairMakesItAsk) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    OpenForm3();  // shows the pair as a row of zeros: no cell is empty
    ExpectAsksAndStaysOnNo();
}

TEST_P(Form3WayTest, AReopenedPlanMakesItAskSinceItsCellsAreEmpty) {
    record.NumJornadas = 1;
    record.NumTareas = 1;
    record.TiempoExposicion(1, 1) = 8;
    OpenForm3();
    host.ExpectBox(messages::kRestart, MsgBoxStyle::YesNoQuestionNo, MsgBoxAnswer::Yes, "Aviso");
    Pick(0, "1");
    ExpectAsksAndStaysOnNo();
}

INSTANTIATE_TEST_SUITE_P(Continuar, Form3WayTest,
                         ::testing::Values(Way{"contaminantes", ScreenId::Form4},
                                           Way{"pagina5", ScreenId::Form5},
                                           Way{"resultadofinal", ScreenId::Form6}),
                         [](const auto& way) { return std::string(way.param.entry); });

// ---- datosdeempresa

TEST_F(Form3Test, Datosdeempresa_NeedsNoPlanAndShowsNoPrompt) {
    OpenForm3();
    Choose("datosdeempresa");
    EXPECT_EQ(chain.Current().Id(), ScreenId::Form2);
}

TEST_F(Form3Test, Datosdeempresa_FillsTheBoxesEvenWithoutACompanysName) {
    record.DatosEmpresa(2) = "Los Olivos";
    OpenForm3();
    Choose("datosdeempresa");
    const auto& form2 = Current<Form2>();
    EXPECT_EQ(form2.Text1(1).Text, "") << "the hint is gone";
    EXPECT_EQ(form2.Text1(2).Text, "Los Olivos");
    EXPECT_EQ(form2.Text1(9).Text, "") << "the blank is gone";
}

TEST_F(Form3Test, Datosdeempresa_ShowsAllNineteenElementsAndChangesNoneOfTheRecord) {
    for (int i = 1; i <= 19; ++i) record.DatosEmpresa(i) = "dato " + TextoEntero(i);
    record.NumJornadas = 3;
    record.NumTareas = 3;
    const EvaluacionRecord before = record;
    OpenForm3();
    Choose("datosdeempresa");
    for (int i = 1; i <= 19; ++i) {
        EXPECT_EQ(Current<Form2>().Text1(i).Text, "dato " + TextoEntero(i));
    }
    EXPECT_TRUE(record == before);
}

TEST_F(Form3Test, Datosdeempresa_UnloadsThePlanScreen) {
    OpenForm3();
    Pick(0, "3");
    Choose("datosdeempresa");
    EXPECT_EQ(OpenForm3().Combo1(0).Text, "");
}

}  // namespace
}  // namespace velmora::test
