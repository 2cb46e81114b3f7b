#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/evaluation_test.h"
#include "report/expected.h"
#include "report/report.h"
#include "report/verdict.h"

// What the second reading finds in evaluations made on the real screens. Each kind has a test that
// shows it and one, of nearly the same evaluation, that must not show it. Expected figures are
// those of reference.R.

namespace velmora::report {

void PrintTo(const Finding& f, std::ostream* out) {
    *out << "kind " << static_cast<int>(f.kind) << ", day " << f.day << ", task " << f.task
         << ", contaminant " << f.contaminant << ": " << f.what << ", sheet \"" << f.sheet
         << "\", plain \"" << f.plain << '"' << (f.changes_verdict ? ", changes" : "");
}

}  // namespace velmora::report

namespace velmora::test {
namespace {

using ::testing::StartsWith;

/// A finding at its place; task and contaminant 0 for all.
auto Finds(FindingKind kind, int day, int task, int contaminant, const std::string& sheet,
           const std::string& plain, bool changes_verdict = false) {
    return AllOf(Field(&Finding::kind, kind), Field(&Finding::day, day),
                 Field(&Finding::task, task), Field(&Finding::contaminant, contaminant),
                 Field(&Finding::sheet, sheet), Field(&Finding::plain, plain),
                 Field(&Finding::changes_verdict, changes_verdict));
}

const TypedAgent kToluene{"Tolueno", "192", "384"};
const TypedAgent kAcetone{"Acetona", "1210", "0", 30};
const Samples kToluenesDay = {"120", "95", "150", "110"};
const Samples kAcetonesDay = {"60", "45", "80"};

const std::vector<Samples> kMixturesDay = {
    kToluenesDay, {"30", "45", "20", "35"}, {"15", "25", "10", "20"}};

std::vector<TypedAgent> WithGroup(std::string_view group) {
    return {
        kToluene, {"Xileno", "221", "442", 15, group}, {"Etilbenceno", "442", "884", 15, group}};
}

class ReviewTest : public EvaluationTest {
protected:
    /// Toluene and acetone, of which nothing is to be found.
    void WorkPlainDay(int day = 1) { WorkDay(day, {{1, kToluenesDay}, {2, kAcetonesDay}}); }
    void PlanPlain(int days = 1) { PlanOneTask(days, {kToluene, kAcetone}); }
    void MakePlainDay() {
        PlanPlain();
        WorkPlainDay();
    }

    /// A cell of toluene's typed over and all buttons pressed again: there is nothing to find.
    void ExpectNothingAfterTyping(int column, const char* text) {
        MakePlainDay();
        Type(CellName(1, column), text);
        PressAll();
        EXPECT_THAT(Finish().findings, IsEmpty());
    }

    void SavePlainDay() {
        MakePlainDay();
        Finish();
    }

    /// The same is found of two whole days, and nothing else.
    void ExpectDays(FindingKind kind, int day, int other, const char* sheet, const char* plain) {
        EXPECT_THAT(Finish().findings, ElementsAre(Finds(kind, day, 0, 0, sheet, plain),
                                                   Finds(kind, other, 0, 0, sheet, plain)));
    }

    /// A figure of toluene's changed in the file of a plain day is the one thing found.
    void ExpectFigureInDoubt(int column, const std::string& figure) {
        SavePlainDay();
        EXPECT_THAT(WithLine(LineOfCell(1, 1, column), '"' + figure + '"').findings,
                    ElementsAre(Finds(FindingKind::DoesNotFollow, 1, 1, 1, figure,
                                      Expected("toluene.index"))));
    }

    /// A change after the day is the one thing found, and the plain computation gives the index of
    /// this key of reference.R.
    void ExpectChange(FindingKind kind, const char* sheet, const char* plain, const char* index) {
        const Report report = Finish();
        EXPECT_THAT(report.findings, ElementsAre(Finds(kind, 1, 1, 1, sheet, plain, true)));
        EXPECT_EQ(report.days.at(0).plain.highest_index.text, Expected(index));
    }

    /// One day of one task with these contaminants and samples.
    Report OneDay(const std::vector<TypedAgent>& agents, const std::vector<Samples>& samples) {
        PlanOneTask(1, agents);
        std::vector<std::pair<int, Samples>> rows;
        rows.reserve(samples.size());
        int row = 1;
        for (const Samples& of_row : samples) rows.emplace_back(row++, of_row);
        WorkDay(1, rows);
        return Finish();
    }

    /// The evaluation as a later run of the program has it.
    void Restart() {
        Finish();
        EvaluacionRecord fresh;
        ReadEvaluation(file_.string(), fresh);
        record = fresh;
    }
};

TEST_F(ReviewTest, APlainEvaluationHasNothingToReview) {
    MakePlainDay();
    EXPECT_THAT(Finish().findings, IsEmpty());
}

TEST_F(ReviewTest, ThreePlainDaysHaveNothingToReview) {
    PlanPlain(3);
    for (int day = 1; day <= 3; ++day) WorkPlainDay(day);
    EXPECT_THAT(Finish().findings, IsEmpty());
}

TEST_F(ReviewTest, DaysOfThePlanThatWereNotValidated) {
    PlanPlain(3);
    WorkPlainDay(2);
    ExpectDays(FindingKind::DayNotValidated, 1, 3, "sin validar", "en el plan");
}

TEST_F(ReviewTest, ADayClosedEmptyWithoutAnyButton) {
    PlanPlain();
    RecoverDay(1);
    Press("Command8");
    EXPECT_THAT(Finish().findings,
                ElementsAre(Finds(FindingKind::DayWithoutMeasurements, 1, 0, 0,
                                  "EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
                                  "sin mediciones calculadas", true)));
}

TEST_F(ReviewTest, DaysThatThePlanNoLongerHas) {
    PlanPlain(3);
    for (int day = 1; day <= 3; ++day) WorkPlainDay(day);
    FixPlan("1", "1");
    ExpectDays(FindingKind::DayBeyondPlan, 2, 3, "validada", "fuera del plan");
}

TEST_F(ReviewTest, HoursChangedAfterTheDayAreOneFinding) {
    MakePlainDay();
    PlanLine(1, 1, 14, 2, 2);
    ExpectChange(FindingKind::PlanChanged, "8", "14 en el plan", "toluene.index.14h");
}

TEST_F(ReviewTest, HoursThatCameBackAreNone) {
    MakePlainDay();
    PlanLine(1, 1, 6, 2, 2);
    PlanLine(1, 1, 8, 2, 2);
    EXPECT_THAT(Finish().findings, IsEmpty());
}

TEST_F(ReviewTest, ATaskAddedAfterTheDay) {
    MakePlainDay();
    FixPlan("1", "2");
    PlanLine(1, 2, 8, 1, 1);
    TypeAgents(2, {kToluene});
    EXPECT_THAT(Finish().findings, ElementsAre(Finds(FindingKind::PlanChanged, 1, 2, 0, "0 filas",
                                                     "1 fila en el plan")));
}

TEST_F(ReviewTest, ALimitChangedAfterTheDay) {
    MakePlainDay();
    TypeAgents(1, {{"Tolueno", "100", "384"}, kAcetone});
    ExpectChange(FindingKind::AgentChanged, "192", "100", "toluene.index.ed100");
}

TEST_F(ReviewTest, ContaminantsTypedAgainAlikeAreNone) {
    MakePlainDay();
    TypeAgents(1, {kToluene, kAcetone});
    EXPECT_THAT(Finish().findings, IsEmpty());
}

TEST_F(ReviewTest, ALimitWipedByBackspace) {
    PlanPlain();
    NewDay(1);
    TypeSamples(1, kToluenesDay);
    TypeSamples(2, kAcetonesDay);
    Type(CellName(1, 3), "");  // the VLA-EC: 3 x VLA-ED takes its place, and any sample reaches 0
    PressAll();
    EXPECT_THAT(Finish().findings,
                ElementsAre(Finds(FindingKind::CellWiped, 1, 1, 1, "en blanco", "384", true)));
}

TEST_F(ReviewTest, AResultWipedAndComputedAgainIsNone) { ExpectNothingAfterTyping(13, ""); }

TEST_F(ReviewTest, ADayComputedUnderACommaIsOneFinding) {
    {
        const WithSeparator comma(",");
        PlanOneTask(1, {kToluene,
                        {"Xileno", "221", "442", 15, "1"},
                        {"Etilbenceno", "441.5", "884", 15, "1"}});
        WorkDay(1, {{1, kToluenesDay}, {2, {"30", "45", "20"}}, {3, {"15", "25", "10"}}});
        Finish();
    }
    const Report report = report::ReadReport(file_.string());
    EXPECT_THAT(report.findings, ElementsAre(Finds(FindingKind::CommaLocale, 1, 0, 0, "0",
                                                   Expected("toluene.index"), true)));
    EXPECT_TRUE(report.days.at(0).comma);
    EXPECT_EQ(report.days.at(0).rows.at(0).index.value, 0.61);  // as a reader sees ",61"
}

TEST_F(ReviewTest, ACommaInANameIsNone) {
    EXPECT_THAT(
        OneDay({{"Xileno, mezcla de isómeros", "221", "442"}}, {{"30", "45", "20"}}).findings,
        IsEmpty());
}

TEST_F(ReviewTest, ASampleTypedOverAfterComputing) {
    PlanPlain();
    NewDay(1);
    TypeSamples(1, kToluenesDay);
    TypeSamples(2, kAcetonesDay);
    for (const char* const button : {"Command1", "Command4", "Command5"}) Press(button);
    Type(CellName(1, 9), "999");
    Press("Command8");
    EXPECT_THAT(Finish().findings, ElementsAre(Finds(FindingKind::DoesNotFollow, 1, 1, 1, "117.76",
                                                     Expected("toluene.mmp.c3.999"), true)));
}

TEST_F(ReviewTest, ASampleTypedOverAndAllButtonsPressedAgainIsNone) {
    ExpectNothingAfterTyping(9, "130");
}

TEST_F(ReviewTest, ASampleTypedOverAndItsTaskAloneValidatedAgain) {
    MakePlainDay();
    Type(CellName(1, 9), "999");
    Press("Command1");
    Press("Command8");
    EXPECT_THAT(Finish().findings,
                ElementsAre(AllOf(Field(&Finding::kind, FindingKind::DoesNotFollow),
                                  Field(&Finding::contaminant, 1))));
}

TEST_F(ReviewTest, AFigureOfTheFileChangedByHand) { ExpectFigureInDoubt(14, ".16"); }

TEST_F(ReviewTest, ASentenceOfTheFileChangedByHand) {
    SavePlainDay();
    EXPECT_THAT(
        WithLine(LineOfEntry(1, 397), "\"0.1\"").findings,
        ElementsAre(AllOf(Field(&Finding::kind, FindingKind::DoesNotFollow),
                          Field(&Finding::what, "mayor índice"), Field(&Finding::sheet, "0.1")),
                    Field(&Finding::what, "frase del índice")));
}

TEST_F(ReviewTest, AFigureThatGoesOnToTheFinalTableIsOneFinding) { ExpectFigureInDoubt(15, ".91"); }

TEST_F(ReviewTest, AGroupChangedInTheFileIsOneFinding) {
    OneDay(WithGroup("2"), kMixturesDay);
    EXPECT_THAT(WithLine(LineOfCell(1, 3, 6), "\"0\"").findings,
                ElementsAre(Finds(FindingKind::AgentChanged, 1, 1, 3, "0", "2")));
}

TEST_F(ReviewTest, ASampleOfAMixtureTypedOverIsOneFinding) {
    PlanOneTask(1, WithGroup("2"));
    NewDay(1);
    int row = 1;
    for (const Samples& samples : kMixturesDay) TypeSamples(row++, samples);
    for (const char* const button : {"Command1", "Command4", "Command5"}) Press(button);
    Type(CellName(2, 8), "60");
    Press("Command8");
    EXPECT_THAT(
        Finish().findings,
        ElementsAre(AllOf(Field(&Finding::kind, FindingKind::DoesNotFollow),
                          Field(&Finding::contaminant, 2), Field(&Finding::sheet, "32.77"))));
}

TEST_F(ReviewTest, AnIndexOfTheFinalTableChangedByHand) {
    SavePlainDay();
    EXPECT_THAT(
        WithLine(1362 + 3, "\"0.16\"").findings,
        ElementsAre(Finds(FindingKind::DoesNotFollow, 1, 1, 1, "0.16", ".61 en la hoja del día")));
}

TEST_F(ReviewTest, ASampleWithTwoPointsIsReadUpToTheSecond) {
    PlanPlain();
    NewDay(1);
    TypeSamples(1, {"120", "95", "150", "110.5"});
    TypeSamples(2, kAcetonesDay);
    // Back in the cell after another one, the filter lets a second point through.
    VelmoraTest::Type(CellName(1, 10), "2.3");
    PressAll();
    EXPECT_THAT(Finish().findings,
                ElementsAre(Finds(FindingKind::SampleMisread, 1, 1, 1,
                                  "110.52.3, leída como 110.52", "no es un número")));
}

TEST_F(ReviewTest, ASampleThatEndsInAPointIsNone) {
    EXPECT_THAT(OneDay({kToluene}, {{"120", "95", "150", "110."}}).findings, IsEmpty());
}

TEST_F(ReviewTest, MeansOfATaskThatWasNotValidatedAgain) {
    FixPlan("1", "2");
    for (const int task : {1, 2}) {
        PlanLine(1, task, 8, 1, 1);
        TypeAgents(task, {kToluene});
    }
    WorkDay(1, {{1, kToluenesDay}, {7, kToluenesDay}});
    Restart();
    RecoverDay(1);
    for (const char* const button : {"Command2", "Command4", "Command8"}) Press(button);
    EXPECT_THAT(Finish().findings,
                ElementsAre(Finds(FindingKind::MeansLost, 1, 1, 1, "0 y 0",
                                  Expected("toluene.mg") + " y " + Expected("toluene.gsd"))));
}

TEST_F(ReviewTest, MeansOfADayWhoseTasksWereAllValidatedAgainAreNone) {
    MakePlainDay();
    Restart();
    RecoverDay(1);
    for (const char* const button : {"Command1", "Command4", "Command5", "Command8"}) Press(button);
    EXPECT_THAT(Finish().findings, IsEmpty());
}

TEST_F(ReviewTest, TheSampleThatTheSearchForAGroupEmptied) {
    const Report report = OneDay({kToluene}, {{"120", "95", "95", "110"}});
    EXPECT_THAT(report.findings,
                ElementsAre(Finds(FindingKind::SampleEmptied, 1, 1, 1, "en blanco", "95")));
    EXPECT_EQ(report.probability_plots.at(0).points.size(), 4U);
}

TEST_F(ReviewTest, TheSampleThatTheSearchEmptiedInAMixture) {
    const Report report =
        OneDay({{"Xileno", "221", "442", 15, "1"}, {"Etilbenceno", "442", "884", 15, "1"}},
               {{"30", "45", "45", "35"}, {"15", "25", "10", "20"}});
    EXPECT_THAT(report.findings,
                ElementsAre(Finds(FindingKind::SampleEmptied, 1, 1, 1, "en blanco", "45")));
    EXPECT_EQ(report.ladder_points.size(), 1U);
    EXPECT_NEAR(report.ladder_points.at(0).gsd_plus, ExpectedNumber("mixture.gsd.c3"), 1e-9);
}

TEST_F(ReviewTest, EqualFirstAndSecondSamplesAreNone) {
    EXPECT_THAT(OneDay({kToluene}, {{"95", "95", "120", "110"}}).findings, IsEmpty());
}

class SixRowsTest : public ReviewTest {
protected:
    /// Three days with six rows in the second task: the first day of so many hours, the others of
    /// two.
    Report WorkDays(int first_days_hours) {
        FixPlan("3", "2");
        for (int day = 1; day <= 3; ++day) {
            PlanLine(day, 1, 8, 1, 1);
            PlanLine(day, 2, day == 1 ? first_days_hours : 2, 6, 6);
        }
        TypeAgents(1, {kToluene});
        TypeAgents(2, std::vector<TypedAgent>(6, {"Butanona", "600", "900"}));
        for (int day = 1; day <= 3; ++day) {
            NewDay(day);
            TypeSamples(1, {"1", "2", "3"});
            for (int row = 7; row <= 12; ++row) TypeSamples(row, {"150", "200", "175"});
            PressAll();
        }
        return Finish();
    }
    static auto TakesTheFirstDaysHours(int day) {
        return Finds(FindingKind::FirstDaysTime, day, 2, 6, ".29", Expected("butanone.index.2h"),
                     true);
    }
};

TEST_F(SixRowsTest, TheLastTakesTheFirstDaysHours) {
    EXPECT_THAT(WorkDays(8).findings,
                ElementsAre(TakesTheFirstDaysHours(2), TakesTheFirstDaysHours(3)));
}

TEST_F(SixRowsTest, TheLastTookThemBeforeTheyWereChanged) {
    WorkDays(8);
    PlanLine(1, 2, 5, 6, 6);
    EXPECT_THAT(Save().findings, ElementsAre(Field(&Finding::kind, FindingKind::PlanChanged),
                                             TakesTheFirstDaysHours(2), TakesTheFirstDaysHours(3)));
}

TEST_F(SixRowsTest, TheSameHoursAreNone) { EXPECT_THAT(WorkDays(2).findings, IsEmpty()); }

TEST_F(ReviewTest, ASumThatDidNotReachItsMembers) {
    EXPECT_THAT(OneDay(WithGroup("1"), kMixturesDay).findings,
                ElementsAre(Finds(FindingKind::SumNotSpread, 1, 1, 3, "en blanco",
                                  Expected("mixture.sum"))));
}

TEST_F(ReviewTest, ASumThatReachedItsMembersIsNone) {
    EXPECT_THAT(OneDay(WithGroup("2"), kMixturesDay).findings, IsEmpty());
}

TEST_F(ReviewTest, AGroupOfOneLosesItsSum) {
    EXPECT_THAT(
        OneDay({{"Xileno", "221", "442", 15, "3"}}, {{"30", "45", "20", "35"}}).findings,
        ElementsAre(Finds(FindingKind::SumErased, 1, 1, 1, "en blanco", Expected("xylene.index"))));
}

TEST_F(ReviewTest, ASumWithMembersOfIndexZeroIsErased) {
    EXPECT_THAT(OneDay({{"Xileno", "221", "442", 15, "1"}, {"Agua", "99999", "99999", 15, "1"}},
                       {{"30", "45", "20", "35"}, {"1", "2", "1", "2"}})
                    .findings,
                ElementsAre(Field(&Finding::kind, FindingKind::SumErased)));
}

TEST_F(ReviewTest, AGroupInTwoTasks) {
    FixPlan("1", "2");
    for (const int task : {1, 2}) {
        PlanLine(1, task, 8, 1, 1);
        TypeAgents(task, {{"Xileno", "221", "442", 15, "1"}});
    }
    WorkDay(1, {{1, {"30", "45", "20", "35"}}, {7, {"30", "45", "20", "35"}}});
    const std::string index = Expected("xylene.index");
    EXPECT_THAT(Finish().findings,
                ElementsAre(Finds(FindingKind::GroupSpansTasks, 1, 1, 1, "0.3",
                                  index + " (tarea 1) + " + index + " (tarea 2)")));
}

TEST_F(ReviewTest, AGroupAboveSixIsNotJudgedInShortExposure) {
    EXPECT_THAT(OneDay({{"Xileno", "15", "30", 30, "7"}, {"Etilbenceno", "30", "60", 30, "7"}},
                       {{"30", "44", "20", "35"}, {"15", "25", "10", "20"}})
                    .findings,
                ElementsAre(Finds(FindingKind::GroupWithoutShortLimit, 1, 1, 1, "en blanco",
                                  "50 (" + Expected("high.mixture.percent") + " %)", true),
                            Field(&Finding::kind, FindingKind::SumNotSpread)));
}

/// A second task of four contaminants of which the last two are a group.
class SecondTaskTest : public ReviewTest {
protected:
    Report SecondTask(std::string_view first_pair, std::string_view second_pair) {
        FixPlan("1", "2");
        PlanLine(1, 1, 8, 1, 1);
        PlanLine(1, 2, 8, 4, 4);
        TypeAgents(1, {kToluene});
        TypeAgents(2, {{"Butanona", "600", "900", 15, first_pair},
                       {"Metanol", "266", "0", 30, first_pair},
                       {"Xileno", "221", "442", 15, second_pair},
                       {"Etilbenceno", "442", "884", 15, second_pair}});
        WorkDay(1, {{1, kToluenesDay},
                    {7, {"40", "50", "45"}},
                    {8, {"20", "25", "30"}},
                    {9, {"30", "45", "20", "35"}},
                    {10, {"15", "25", "10", "20"}}});
        return Finish();
    }
    static bool IsSum(const Finding& finding) { return finding.kind == FindingKind::SumNotSpread; }
};

TEST_F(SecondTaskTest, AGroupsLimitThatLandedInAnotherCellAndWasLost) {
    Report report = SecondTask("0", "3");
    std::erase_if(report.findings, IsSum);  // no group number fits its row in this task
    EXPECT_THAT(report.findings,
                ElementsAre(Finds(FindingKind::EcPlusElsewhere, 1, 2, 3, "en blanco",
                                  "EC+ " + Expected("mixture.ec") + ", Prob. 0.001 (" +
                                      Expected("mixture.percent") + " %)")));
}

TEST_F(SecondTaskTest, AGroupsLimitThatWasTakenForAProbability) {
    Report report = SecondTask("1", "3");
    std::erase_if(report.findings, IsSum);
    EXPECT_THAT(report.findings,
                ElementsAre(AllOf(Field(&Finding::kind, FindingKind::EcPlusAsProbability),
                                  Field(&Finding::contaminant, 3),
                                  Field(&Finding::sheet, StartsWith("536.0")),
                                  Field(&Finding::changes_verdict, true))));
}

TEST_F(SecondTaskTest, AGroupInItsFirstTwoRowsIsNone) {
    Report report = SecondTask("1", "0");
    std::erase_if(report.findings, IsSum);
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(ReviewTest, RowsBeyondTheContaminants) {
    FixPlan("3", "1");
    PlanLine(1, 1, 8, 2, 2);
    TypeAgents(1, {kToluene, {"Xileno", "20", "20"}});
    PlanLine(2, 1, 8, 1, 1);
    PlanLine(3, 1, 8, 1, 1);
    WorkDay(1, {{1, kToluenesDay}, {2, {"9", "14", "6", "10"}}});
    WorkDay(2, {{1, kToluenesDay}});
    WorkDay(3, {{1, kToluenesDay}});
    EXPECT_THAT(Finish().findings, ElementsAre(Finds(FindingKind::RowsBeyondContaminants, 1, 1, 2,
                                                     "2 filas", "1 contaminante", true)));
}

TEST_F(ReviewTest, ContaminantsBeyondTheRows) {
    FixPlan("3", "1");
    for (int day = 1; day <= 3; ++day) PlanLine(day, 1, 8, 1, 1);
    TypeAgents(1, {kToluene});
    for (int day = 1; day <= 3; ++day) WorkDay(day, {{1, kToluenesDay}});
    PlanLine(3, 1, 8, 2, 2);
    TypeAgents(1, {kToluene, kToluene});
    WorkDay(3, {{1, kToluenesDay}, {2, kToluenesDay}});
    EXPECT_THAT(
        Finish().findings,
        ElementsAre(
            Finds(FindingKind::ContaminantsBeyondRows, 1, 1, 2, "1 fila", "2 contaminantes"),
            Finds(FindingKind::ContaminantsBeyondRows, 2, 1, 2, "1 fila", "2 contaminantes")));
}

TEST_F(ReviewTest, NoShortLimitAtFifteenMinutes) {
    EXPECT_THAT(OneDay({{"Acetona", "1210", "0", 15}}, {kAcetonesDay}).findings,
                ElementsAre(Finds(FindingKind::NoLimitForSamples, 1, 1, 1, "SI (EC 0)",
                                  "NO (3 x VLA-ED: 3630)", true)));
}

TEST_F(ReviewTest, NoDailyLimitAtThirtyMinutes) {
    EXPECT_THAT(OneDay({{"Cloro", "0", "1.5", 30}}, {{"0.02", "0.03", "0.02"}}).findings,
                ElementsAre(Finds(FindingKind::NoLimitForSamples, 1, 1, 1, "SI (ED 0)",
                                  "NO (VLA-EC: 1.5)", true)));
}

TEST_F(ReviewTest, NoShortLimitAtThirtyMinutesIsNone) {
    EXPECT_THAT(OneDay({{"Acetona", "1210", "0", 30}}, {kAcetonesDay}).findings, IsEmpty());
}

TEST_F(ReviewTest, ASamplingTimeThatIsNeitherFifteenNorThirty) {
    PlanPlain();
    chain.Settle();
    chain.Go(ScreenId::Form4);
    record.TiempoMuestreo(1, 1) = 0;  // as a task never stored shows it
    Pick("Combo1", "1");
    Press("Command3");
    Press("Command1");
    WorkPlainDay();
    EXPECT_THAT(Finish().findings, ElementsAre(Finds(FindingKind::NoSamplingTime, 1, 1, 1, "T.M. 0",
                                                     "NO (VLA-EC: 384)")));
}

TEST_F(ReviewTest, AClassThatTheExactTailDoesNotHave) {
    EXPECT_THAT(OneDay({{"Manganeso", "0.2", "0.55", 15}}, {{"0.05", "0.1", "0.16"}}).findings,
                ElementsAre(Finds(
                    FindingKind::ClassDiffers, 1, 1, 1, Expected("class.curves"),
                    Expected("class.exact") + " (" + Expected("class.percent") + " %)", true)));
}

TEST_F(ReviewTest, AnIndexThatIsATenthByRoundingAlone) {
    EXPECT_THAT(OneDay({{"Tolueno", "192", "384"}}, {{"20", "20"}}).findings,
                ElementsAre(Finds(FindingKind::RoundedIndex, 1, 1, 1, ".1", Expected("tenth.index"),
                                  true)));
}

TEST_F(ReviewTest, AnIndexThatIsOneByRoundingAlone) {
    EXPECT_THAT(
        OneDay({{"Tolueno", "192", "999"}}, {{"191.5", "191.5"}}).findings,
        ElementsAre(Finds(FindingKind::RoundedIndex, 1, 1, 1, "1.", Expected("unit.index"))));
}

TEST_F(ReviewTest, ASumBelowATenthByRoundingAlone) {
    const TypedAgent toluene{"Tolueno", "192", "384", 15, "1"};  // three times 0.03 for 0.0339
    EXPECT_THAT(
        OneDay({toluene, toluene, toluene}, {{"6.5", "6.5"}, {"6.5", "6.5"}, {"6.5", "6.5"}})
            .findings,
        ElementsAre(
            Finds(FindingKind::RoundedIndex, 1, 1, 1, "0.09", Expected("sum.index"), true)));
}

TEST(VerdictTest, HangsOnEachOfTwoRowsThatAreBothAboveTheLimit) {
    report::DayVerdict sheet;
    report::DayVerdict plain;
    for (const int row : {1, 2}) {
        sheet(row).index = 2;
        plain(row).index = 0.5;
    }
    sheet(3).index = plain(3).index = 0.7;
    EXPECT_TRUE(report::HangsOn(sheet, plain, {1}, report::Part::Index));
    EXPECT_FALSE(report::HangsOn(sheet, plain, {3}, report::Part::Index));
    EXPECT_FALSE(report::HangsOn(sheet, plain, {1}, report::Part::Limits));
}

TEST_F(ReviewTest, AnIndexOfExactlyATenthIsNone) {
    EXPECT_THAT(OneDay({{"Tolueno", "192", "384"}}, {{"19.2", "19.2"}}).findings, IsEmpty());
}

TEST_F(ReviewTest, AnOverallIndexOfZeroForWantOfADay) {
    PlanPlain(3);
    WorkPlainDay(1);
    WorkPlainDay(2);
    const Report report = Finish();
    EXPECT_THAT(report.findings,
                ElementsAre(Field(&Finding::kind, FindingKind::DayNotValidated),
                            Finds(FindingKind::OverallZero, 3, 1, 1, "0", "sin valor: falta I3")));
    EXPECT_THAT(report.findings.at(1).rows, ElementsAre(1, 2));
}

TEST_F(ReviewTest, AnOverallIndexThatWasNotComputed) {
    PlanPlain(3);
    for (int day = 1; day <= 3; ++day) WorkPlainDay(day);
    EXPECT_THAT(Save().findings,
                ElementsAre(Finds(FindingKind::OverallMissing, 0, 1, 1, "en blanco", "0.61")));
}

TEST_F(ReviewTest, AValueOfAnEarlierRunInTheFinalTable) {
    MakePlainDay();
    TypeAgents(1, {kToluene, {"Acetona", "1210", "0", 30, "4"}});
    WorkPlainDay();
    EXPECT_THAT(Finish().findings, ElementsAre(Field(&Finding::kind, FindingKind::SumErased),
                                               Finds(FindingKind::StaleFinal, 1, 1, 2, "0.05",
                                                     "en blanco en la hoja del día")));
}

TEST_F(ReviewTest, AnOverallIndexOfAnEarlierRun) {
    PlanPlain(3);
    for (int day = 1; day <= 3; ++day) WorkPlainDay(day);
    Finish();
    WorkDay(3, {{1, {"12", "9", "15", "11"}}, {2, kAcetonesDay}});
    EXPECT_THAT(Save().findings, ElementsAre(Finds(FindingKind::StaleFinal, 0, 1, 1, "0.61",
                                                   Expected("overall.mended"))));
}

TEST_F(ReviewTest, OverallIndicesOfAnEarlierRunAreOneFinding) {
    PlanPlain(3);
    WorkPlainDay(1);
    WorkPlainDay(2);
    Finish();
    WorkPlainDay(3);
    const Report report = Save();
    EXPECT_THAT(report.findings, ElementsAre(Finds(FindingKind::StaleFinal, 0, 1, 1, "0", "0.61")));
    EXPECT_THAT(report.findings.front().rows, ElementsAre(1, 2));
}

TEST_F(ReviewTest, ADayWorkedAgainAlikeIsNone) {
    PlanPlain(3);
    for (int day = 1; day <= 3; ++day) WorkPlainDay(day);
    Finish();
    WorkPlainDay(2);
    EXPECT_THAT(Finish().findings, IsEmpty());
}

}  // namespace
}  // namespace velmora::test
