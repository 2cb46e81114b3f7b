#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "support/messages.h"
#include "support/sheet_test.h"

namespace velmora::test {
namespace {

using namespace messages;

constexpr std::array<Twin, 3> kTwins = {{{1, "Command1"}, {2, "Command2"}, {3, "Command3"}}};

class TaskValidationTest : public SheetTest {
protected:
    /// A plan of a day and three tasks without rows, the sheet blank, day 1 on it.
    void SetUp() override {
        SetPlan(3, 3, 0);
        form.DiaActual = 1;
    }

    /// The rows of a task that the plan has, those that the day computes, and their limits, which
    /// stand in the cells as well as in the record.
    void SetTask(int task, int contaminants, int samples, double ed = 8, double ec = 0) {
        record.NumContaminantes(task) = contaminants;
        SetRows(1, task, samples);
        for (int r = 1; r <= 6; ++r) {
            record.VlaEd(task, r) = ed;
            record.VlaEc(task, r) = ec;
        }
        for (int r = 1; r <= std::min(contaminants, 6); ++r) {
            Cell((task - 1) * 6 + r, kEd).Text = TextoDoble(ed);
            Cell((task - 1) * 6 + r, kEc).Text = TextoDoble(ec);
        }
    }

    /// One measurement in the first task, so that the second check passes for all three buttons.
    void FillFirstTask() { SetSamples(1, {"1", "1"}); }

    std::string Mmp(int row) { return Cell(row, kMmp).Text; }
    std::string IndexOf(int row) { return Cell(row, kIndex).Text; }
};

class TaskButtonTest : public TwinTest<TaskValidationTest> {
protected:
    const char* NoData() const { return T().task == 1 ? kNoData : kNoDataOfLaterTask; }

    /// A refusal with this message, which changes no control.
    void ExpectRefusal(std::string_view message) {
        host.ExpectBox(std::string(message));
        const auto before = StateOf(form);
        const EvaluacionRecord record_before = record;
        Click();
        EXPECT_THAT(Changed(before, form), IsEmpty());
        EXPECT_TRUE(record == record_before);
    }

    /// Six rows in use, each with these samples.
    void SixRows(std::initializer_list<std::string_view> samples) {
        SetTask(T().task, 6, 6);
        FillFirstTask();
        for (int r = 1; r <= 6; ++r) SetSamples(Row(r), samples);
    }

    /// Other colours than those that the handlers give, on every cell of the main grid.
    void Paint() {
        for (TextCell& cell : form.Text1) {
            cell.ForeColor = 1;
            cell.BackColor = 250;
        }
    }

    /// Whether the cell at `i` is one of C1 to C6 of the task's own block.
    bool IsOwnSample(int i) const {
        const int column = i % 18;
        return i / 108 == T().task - 1 && column >= kC1 && column <= kC6;
    }
};

INSTANTIATE_TEST_SUITE_P(Buttons, TaskButtonTest, ::testing::ValuesIn(kTwins), NameOfTwin);

// ---------------------------------------------------------------------------------- limit values

TEST_P(TaskButtonTest, ARowInUseWithoutEitherLimitIsRefusedFirstOfAll) {
    SetTask(T().task, 2, 2);
    Cell(Row(2), kEd).Text = "0";
    Cell(Row(2), kEc).Text = "0";
    ExpectRefusal(kNoLimits);  // nothing is measured either: this check comes before
}

TEST_P(TaskButtonTest, LimitsThatReadZeroAreNone) {
    SetTask(T().task, 1, 1);
    Cell(Row(1), kEd).Text = "";
    Cell(Row(1), kEc).Text = ".";
    ExpectRefusal(kNoLimits);
}

TEST_P(TaskButtonTest, OneLimitOfTheTwoIsEnough) {
    SetTask(T().task, 2, 0);
    Cell(Row(1), kEd).Text = "0";
    Cell(Row(1), kEc).Text = "0.01";
    Cell(Row(2), kEd).Text = "5";
    Cell(Row(2), kEc).Text = "";
    ExpectRefusal(NoData());
}

TEST_P(TaskButtonTest, TheLimitsOfRowsBeyondTheContaminantsAreNotLookedAt) {
    SetTask(T().task, 1, 6);
    ExpectRefusal(NoData());
}

TEST_P(TaskButtonTest, TheLimitsOfTheRecordAreNotWhatIsChecked) {
    SetTask(T().task, 1, 1);
    for (int r = 1; r <= 6; ++r) record.VlaEd(T().task, r) = 0;
    ExpectRefusal(NoData());
}

TEST_F(TaskValidationTest, ASeventhContaminantLooksAtTheNextTasksFirstRow) {
    SetTask(1, 7, 0);
    host.ExpectBox(kNoLimits);
    form.Command1_Click();
    Cell(7, kEc).Text = "3";
    host.ExpectBox(kNoData);
    form.Command1_Click();
}

TEST_F(TaskValidationTest, ASeventhContaminantOfTheThirdTaskIsASubscriptError) {
    SetTask(3, 7, 0);
    const auto before = StateOf(form);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command3_Click(); });
    EXPECT_THAT(Changed(before, form), IsEmpty());
}

// ----------------------------------------------------------------------------------- any data

TEST_P(TaskButtonTest, WithTheFirstTaskEmptyThereAreNoDataEvenIfTheOthersAreFull) {
    SetTask(T().task, 1, 1);
    for (int row = 7; row <= 18; ++row) SetSamples(row, {"1", "2", "3", "4", "5", "6"});
    ExpectRefusal(NoData());
}

TEST_P(TaskButtonTest, TheOtherColumnsOfTheFirstTaskAreNoData) {
    SetTask(T().task, 0, 0);
    for (int row = 1; row <= 6; ++row) {
        for (int column = 0; column < 18; ++column) {
            if (column < kC1 || column > kC6) Cell(row, column).Text = "1";
        }
    }
    ExpectRefusal(NoData());
}

TEST_P(TaskButtonTest, TheColoursStayWhenTheFirstTwoChecksRefuse) {
    SetTask(T().task, 1, 1);
    Paint();
    ExpectRefusal(NoData());
    Cell(Row(1), kEd).Text = "";
    ExpectRefusal(kNoLimits);
}

TEST_F(TaskValidationTest, AnyOfThe36CellsOfTheFirstTaskIsEnoughForTheOtherButtons) {
    for (const Twin& twin : {kTwins[1], kTwins[2]}) {
        for (int row = 1; row <= 6; ++row) {
            for (int column = kC1; column <= kC6; ++column) {
                for (const std::string_view text : {"3", "0", " ", "."}) {
                    form.limpia(1);
                    form.Text7.Text = "SI";
                    Cell(row, column).Text = text;
                    Click(twin);
                    EXPECT_EQ(form.Text7.Text, "") << "validated: " << Name(row, column);
                }
            }
        }
    }
}

TEST_F(TaskValidationTest, Command1_OnASingleCellOfItsBlockPassesTheCheckOfData) {
    for (int row = 1; row <= 6; ++row) {
        for (int column = kC1; column <= kC6; ++column) {
            form.limpia(1);
            Cell(row, column).Text = " ";
            if (column > kC1) host.ExpectBox(kNoGaps);
            form.Command1_Click();
        }
    }
}

TEST_F(TaskValidationTest, Command2_OnAnEmptyBlockOfItsOwnPassesTheCheckOfData) {
    SetTask(2, 1, 1);
    FillFirstTask();
    host.ExpectBox(kFewSamples);
    form.Command2_Click();
}

// ------------------------------------------------------------------------------------- colours

TEST_P(TaskButtonTest, TheMeasurementsOfTheBlockAreBlackEvenIfALaterCheckRefuses) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"1", ""});
    Paint();
    host.ExpectBox(kFewSamples);
    Click();
    for (int i = 0; i < 324; ++i) {
        EXPECT_EQ(form.Text1(i).ForeColor, IsOwnSample(i) ? kWindowText : 1U) << i;
        EXPECT_EQ(form.Text1(i).BackColor, 250U) << i;
    }
}

TEST_P(TaskButtonTest, TheMarksAreTakenAwayFromTheMeasurementsOfTheBlockAlone) {
    SixRows({"2", "8"});
    Paint();
    Click();
    for (int i = 0; i < 324; ++i) {
        EXPECT_EQ(form.Text1(i).ForeColor, IsOwnSample(i) ? kWindowText : 1U) << i;
        EXPECT_EQ(form.Text1(i).BackColor, IsOwnSample(i) ? kWindowBackground : 250U) << i;
    }
}

// ------------------------------------------------------------------------------- enough samples

/// One row among good ones that a validation refuses.
struct BadRow {
    const char* what;
    int row;
    std::vector<std::string_view> samples;
    std::string_view message;
};

const std::vector<BadRow> kBadRows = {
    {"C1 alone", 4, {"2", ""}, kFewSamples},
    {"empty", 6, {"", ""}, kFewSamples},
    {"blanks count as samples, and read 0", 1, {" ", " "}, kNoGaps},
    {"C2 alone: too few before it is a gap", 1, {"", "8"}, kFewSamples},
    {"C5 and C6 are counted, too, and leave a gap", 2, {"", "", "", "", "5", "6"}, kNoGaps},
    {"C1 empty, C2 and C3 filled", 1, {"", "8", "9"}, kNoGaps},
    {"a zero before a sample", 1, {"0", "5"}, kNoGaps},
};

TEST_P(TaskButtonTest, ARowInUseWithTooFewSamplesOrAGapIsRefused) {
    for (const BadRow& bad : kBadRows) {
        SCOPED_TRACE(bad.what);
        form.limpia(1);
        SixRows({"2", "8"});
        SetSamples(Row(bad.row), bad.samples);
        ExpectRefusal(bad.message);
    }
}

TEST_P(TaskButtonTest, TheCountStartsAgainAtEachRow) {
    SixRows({"2", "8", "4", "5", "6", "7"});
    SetSamples(Row(2), {"2", "", "", "", "", ""});
    ExpectRefusal(kFewSamples);
}

TEST_P(TaskButtonTest, OnlyTheRowsOfTheContaminantsNeedSamples) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4.");
}

TEST_P(TaskButtonTest, MoreContaminantsThanRowsOfTheDayAreAllLookedAt) {
    SetTask(T().task, 3, 2);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2", "8"});
    SetSamples(Row(3), {"", ""});
    ExpectRefusal(kFewSamples);
}

// ----------------------------------------------------------------------------------------- gaps

TEST_P(TaskButtonTest, AGapAtAnyPlaceOfARowInUseIsRefused) {
    for (int gap = kC1; gap < kC6; ++gap) {
        for (const std::string_view text : {"", "0", "0.0", ".", " ", "x"}) {
            SixRows({"1", "2", "3", "4", "5", "6"});
            Cell(Row(3), gap).Text = text;
            ExpectRefusal(kNoGaps);
        }
    }
}

TEST_P(TaskButtonTest, AGapInARowBeyondTheContaminantsIsRefusedAlike) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(6), {"", "5", "6"});
    ExpectRefusal(kNoGaps);
}

TEST_P(TaskButtonTest, TheBlocksOfTheOtherTasksMayHaveGaps) {
    SixRows({"2", "8"});
    for (const Twin& other : kTwins) {
        if (other.task != T().task) SetSamples(other.Row(5), {"", "5", "6"});
    }
    Click();
    EXPECT_EQ(Mmp(Row(6)), "4.");
}

TEST_P(TaskButtonTest, OneMessageIsEnoughForManyGaps) {
    SixRows({"0", "5", "0", "5"});
    ExpectRefusal(kNoGaps);
}

TEST_P(TaskButtonTest, ARefusedValidationKeepsWhatTheRowsShowed) {
    SixRows({"2", "8"});
    Cell(Row(1), kMmp).Text = "7.";
    Cell(Row(1), kIndex).Text = ".7";
    form.Text7.Text = "SI";
    SetSamples(Row(6), {"0", "8"});
    ExpectRefusal(kNoGaps);
}

// ---------------------------------------------------------------------------------- computation

TEST_P(TaskButtonTest, SamplesOneTwoFourGiveTheirMeanAndIndexWithTwoDecimals) {
    SetTask(T().task, 1, 1, 10);
    FillFirstTask();
    record.TiempoExposicion(1, T().task) = 4;
    SetSamples(Row(1), {"1", "2", "4"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "2.36");     // 2.36061
    EXPECT_EQ(IndexOf(Row(1)), ".12");  // 4 x 2.36061 / 80 = 0.11803
}

TEST_P(TaskButtonTest, SamplesTwoAndEightGiveAMeanOfFourAndHalfAnIndex) {
    SetTask(T().task, 1, 1, 8);
    FillFirstTask();
    record.TiempoExposicion(1, T().task) = 8;
    SetSamples(Row(1), {"2", "8"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4.");
    EXPECT_EQ(IndexOf(Row(1)), ".5");
}

TEST_P(TaskButtonTest, TheMeanAndDeviationOfEachRowGoToTheRecordAtItsPlace) {
    SixRows({"2", "8"});
    SetRows(3, T().task, 6);
    form.DiaActual = 3;
    Click();
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) {
            for (int r = 1; r <= 6; ++r) {
                const bool own = day == 3 && task == T().task;
                // Worked by hand: the mean of ln 2 and ln 8 is ln 4, the spread ln 2 x sqrt 2.
                EXPECT_NEAR(record.MG(day, task, r).Value(), own ? 4 : 0, 1e-12);
                EXPECT_NEAR(record.GSD(day, task, r).Value(), own ? 2.66514414269023 : 0, 1e-12);
            }
        }
    }
}

TEST_P(TaskButtonTest, OnlyTheMeanAndDeviationOfTheRecordAreWritten) {
    SixRows({"2", "8"});
    EvaluacionRecord before = record;
    Click();
    before.MG = record.MG;
    before.GSD = record.GSD;
    EXPECT_TRUE(record == before);
}

TEST_P(TaskButtonTest, AValidationWritesTheTwoColumnsOfItsRowsAndNothingElse) {
    SetTask(T().task, 2, 2);
    record.NumTareas = 0;  // no button to open
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2", "8"});
    const auto before = StateOf(form);
    Click();
    EXPECT_THAT(Changed(before, form),
                UnorderedElementsAre(Name(Row(1), kMmp), Name(Row(1), kIndex), Name(Row(2), kMmp),
                                     Name(Row(2), kIndex)));
}

TEST_P(TaskButtonTest, ASampleThatReadsZeroEndsTheRow) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8", "0"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4.");
}

TEST_P(TaskButtonTest, AllSixSamplesAreUsed) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"1", "2", "3", "4", "5", "6"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "3.64");  // Python: 2.99380 x 1.21673 = 3.64263
    Click();
    EXPECT_EQ(Mmp(Row(1)), "3.64") << "the figure beside C6 is no sample";
}

TEST_P(TaskButtonTest, TheLimitOfTheIndexIsThatOfTheRecord) {
    SetTask(T().task, 1, 1, 8);
    FillFirstTask();
    record.TiempoExposicion(1, T().task) = 8;
    SetSamples(Row(1), {"2", "8"});
    Cell(Row(1), kEd).Text = "100";
    Click();
    EXPECT_EQ(IndexOf(Row(1)), ".5");
}

TEST_P(TaskButtonTest, WithoutADailyLimitTheIndexIsZero) {
    SetTask(T().task, 1, 1, 0, 5);
    FillFirstTask();
    record.TiempoExposicion(1, T().task) = 8;
    SetSamples(Row(1), {"2", "8"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4.");
    EXPECT_EQ(IndexOf(Row(1)), ".");
}

TEST_P(TaskButtonTest, EachRowTakesItsOwnLimit) {
    SixRows({"2", "8"});
    record.TiempoExposicion(1, T().task) = 8;
    for (int r = 1; r <= 6; ++r) record.VlaEd(T().task, r) = r == 3 ? 0.5 : 4.0 / r;
    Click();
    const std::array<std::string_view, 6> expected = {"1.", "2.", "8.", "4.", "5.", "6."};
    for (int r = 1; r <= 6; ++r) {
        EXPECT_EQ(IndexOf(Row(r)), expected.at(static_cast<std::size_t>(r - 1)));
    }
}

TEST_P(TaskButtonTest, WithOneSampleInThePlanOfTwoContaminantsTheSecondRowKeepsItsOldFigures) {
    SetTask(T().task, 2, 0);
    record.Muestras30(1, T().task) = 1;
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2", "8"});
    Cell(Row(2), kMmp).Text = "9.";
    Cell(Row(2), kIndex).Text = ".9";
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4.");
    EXPECT_EQ(Mmp(Row(2)), "9.");
    EXPECT_EQ(IndexOf(Row(2)), ".9");
}

TEST_P(TaskButtonTest, ThreeContaminantsAndTwoSamplesComputeTwoRows) {
    SetTask(T().task, 3, 0);
    record.Muestras30(1, T().task) = 1;
    record.Muestras15(1, T().task) = 1;
    FillFirstTask();
    for (int r = 1; r <= 3; ++r) SetSamples(Row(r), {"2", "8"});
    Click();
    EXPECT_EQ(Mmp(Row(2)), "4.");
    EXPECT_EQ(Mmp(Row(3)), "");
}

TEST_P(TaskButtonTest, TwoContaminantsAndFiveSamplesComputeTheEmptyRowsToo) {
    SetTask(T().task, 2, 5);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2", "8"});
    record.MG(1, T().task, 3) = 7;
    Click();
    for (int r = 3; r <= 5; ++r) {
        EXPECT_EQ(Mmp(Row(r)), ".");
        EXPECT_EQ(IndexOf(Row(r)), ".");
    }
    EXPECT_EQ(Mmp(Row(6)), "");
    EXPECT_EQ(record.MG(1, T().task, 3), 7) << "an empty row stores nothing";
}

TEST_P(TaskButtonTest, TwoContaminantsAndSixSamplesWriteZerosInTheOtherFourRows) {
    SetTask(T().task, 2, 6);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"2", "8"});
    Click();
    for (int r = 3; r <= 6; ++r) {
        EXPECT_EQ(Mmp(Row(r)), ".");
        EXPECT_EQ(IndexOf(Row(r)), ".");
    }
}

TEST_P(TaskButtonTest, MoreThanSixSamplesComputeSixRows) {
    SixRows({"2", "8"});
    SetRows(1, T().task, 9);
    Click();
    EXPECT_EQ(Mmp(Row(6)), "4.");
    if (T().task < 3) {
        EXPECT_EQ(Mmp(Row(7)), "");
    }
}

TEST_P(TaskButtonTest, WithoutSamplesInThePlanNoRowIsComputedAndTheNextButtonOpens) {
    SetTask(T().task, 1, 0);
    record.NumTareas = T().task;
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    form.Text7.Text = "SI";
    Click();
    EXPECT_EQ(Mmp(Row(1)), "");
    EXPECT_EQ(form.Text7.Text, "");
    EXPECT_TRUE(form.Command4.Visible && form.Command4.Enabled);
}

TEST_P(TaskButtonTest, ANegativeSampleReachesTheLogarithmAndEndsTheProgram) {
    for (const std::string_view sample : {"-1", "-0.5"}) {  // as a file may hold them
        FillFirstTask();
        SetTask(T().task, 1, 1);
        SetSamples(Row(1), {"2", sample});
        ExpectError(ErrorKind::InvalidArgument, [&] { Click(); });
    }
}

TEST_P(TaskButtonTest, ANegativeNumberOfSamplesComputesNoRow) {
    SetTask(T().task, 1, -4);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "");
}

TEST_P(TaskButtonTest, SamplesThatAddUpBeyondAnIntegerOverflow) {
    SixRows({"2", "8"});
    record.Muestras15(1, T().task) = 32767;
    record.Muestras30(1, T().task) = 1;
    ExpectError(ErrorKind::Overflow, [&] { Click(); });
}

// -------------------------------------------------------------------------------- exposure time

TEST_P(TaskButtonTest, EachRowTakesTheTimeOfItsDayButTheSixthOfCommand2ThatOfTheFirstDay) {
    SixRows({"2", "8"});
    for (int t = 1; t <= 3; ++t) {
        for (int day = 1; day <= 3; ++day) {
            record.TiempoExposicion(day, t) = 10 * t + 2 * day;
            SetRows(day, t, 6);
        }
        for (int r = 1; r <= 6; ++r) record.VlaEd(t, r) = 1;
    }
    for (int day = 1; day <= 3; ++day) {
        form.DiaActual = day;
        Click();
        for (int r = 1; r <= 6; ++r) {
            const bool first_days = T().task == 2 && r == 6;
            // Worked by hand: time x 4 / (1 x 8), with a time of 10t + 2d, is 5t + d.
            EXPECT_EQ(IndexOf(Row(r)), Digits(5 * T().task + (first_days ? 1 : day)) + ".")
                << "day " << day << ", row " << r;
        }
    }
}

// ----------------------------------------------------------------------------------- closing step

struct Opening {
    int command;
    int num_tasks;
    std::string_view opened;
};

// clang-format off
constexpr std::array<Opening, 18> kOpenings = {{
    {1, -1, ""}, {1, 0, ""}, {1, 1, "Command4"}, {1, 2, "Command2"}, {1, 3, "Command2"}, {1, 4, "Command2"},
    {2, -1, ""}, {2, 0, ""}, {2, 1, ""},         {2, 2, "Command4"}, {2, 3, "Command3"}, {2, 4, "Command3"},
    {3, -1, ""}, {3, 0, ""}, {3, 1, ""},         {3, 2, ""},         {3, 3, "Command4"}, {3, 4, ""},
}};
// clang-format on

TEST_F(TaskValidationTest, EachButtonOpensTheNextOneOfThePlanAndClosesNone) {
    for (const Opening& opening : kOpenings) {
        SCOPED_TRACE(Indexed("Command", opening.command) + " of " + Digits(opening.num_tasks));
        form.limpia(1);
        FillFirstTask();
        record.NumTareas = opening.num_tasks;
        const auto before = StateOf(form);
        Click(kTwins.at(static_cast<std::size_t>(opening.command - 1)));
        if (opening.opened.empty()) {
            EXPECT_THAT(Changed(before, form), IsEmpty());
        } else {
            EXPECT_THAT(Changed(before, form), ElementsAre(opening.opened));
            const auto& state = form.FindControl(opening.opened)->state;
            EXPECT_TRUE(std::get<Button*>(state)->Visible);
            EXPECT_TRUE(std::get<Button*>(state)->Enabled);
        }
    }
}

TEST_P(TaskButtonTest, WithEveryButtonOpenNoneIsClosed) {
    SixRows({"2", "8"});
    for (int tasks = 0; tasks <= 4; ++tasks) {
        record.NumTareas = tasks;
        Scribble();
        for (TextCell& cell : form.Text1) cell.Text = "";
        SixRows({"2", "8"});
        Click();
        for (const Button* button :
             {&form.Command1, &form.Command2, &form.Command3, &form.Command4, &form.Command5,
              &form.Command6, &form.Command7, &form.Command8}) {
            EXPECT_TRUE(button->Visible && button->Enabled);
        }
    }
}

TEST_P(TaskButtonTest, ATaskCanBeValidatedAgainAndIsRecomputedFromItsCells) {
    SixRows({"2", "8"});
    Click();
    ASSERT_EQ(Mmp(Row(1)), "4.");
    for (int r = 1; r <= 6; ++r) SetSamples(Row(r), {"5", "5", "5"});
    form.Text7.Text = "SI";
    Click();
    EXPECT_EQ(Mmp(Row(1)), "5.");
    EXPECT_EQ(form.Text7.Text, "");
}

// -------------------------------------------------------------------------------- run-time errors

TEST_P(TaskButtonTest, ARowOfOneUsableSampleEndsTheProgramWithTheRowsBeforeItWritten) {
    SixRows({"2", "8"});
    Paint();
    SetSamples(Row(3), {"5", "0"});
    form.Text7.Text = "SI";
    ExpectError(ErrorKind::InvalidOperation, [&] { Click(); });
    EXPECT_EQ(Mmp(Row(2)), "4.");
    EXPECT_EQ(Mmp(Row(3)), "");
    EXPECT_EQ(IndexOf(Row(3)), "");
    EXPECT_EQ(Mmp(Row(4)), "");
    EXPECT_EQ(Cell(Row(1), kC1).ForeColor, kWindowText);
    EXPECT_EQ(Cell(Row(1), kC1).BackColor, 250U) << "the closing step wasn't reached";
    EXPECT_EQ(form.Text7.Text, "SI");
    EXPECT_FALSE(form.Command2.Visible || form.Command3.Visible || form.Command4.Visible);
    EXPECT_EQ(record.MG(1, T().task, 3), 0);
}

TEST_P(TaskButtonTest, ASingleValueInARowBeyondTheContaminantsEndsTheProgramToo) {
    SetTask(T().task, 1, 2);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    SetSamples(Row(2), {"5", ""});
    ExpectError(ErrorKind::InvalidOperation, [&] { Click(); });
    EXPECT_EQ(Mmp(Row(1)), "4.");
    EXPECT_EQ(Mmp(Row(2)), "");
}

TEST_P(TaskButtonTest, AnIndexTooLargeEndsTheProgramWithTheMeanWritten) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"2", "8"});
    record.TiempoExposicion(1, T().task) = 1e308;
    ExpectError(ErrorKind::Overflow, [&] { Click(); });
    EXPECT_EQ(Mmp(Row(1)), "4.");
    EXPECT_EQ(IndexOf(Row(1)), "");
}

TEST_P(TaskButtonTest, AMeasurementTooLongForADoubleEndsTheProgramAtTheCheckOfGaps) {
    SetTask(T().task, 1, 1);
    FillFirstTask();
    Cell(Row(1), kC1).Text = std::string(400, '9');
    Cell(Row(1), kC1 + 1).Text = "1";
    ExpectError(ErrorKind::Overflow, [&] { Click(); });
    EXPECT_EQ(Mmp(Row(1)), "");
}

TEST_P(TaskButtonTest, ADayOutsideThePlansArraysEndsTheProgramAtTheComputation) {
    for (const int day : {0, 4}) {
        SixRows({"2", "8"});
        Paint();
        form.DiaActual = day;
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Click(); });
        EXPECT_EQ(Cell(Row(6), kC6).ForeColor, kWindowText);
        EXPECT_EQ(Mmp(Row(1)), "");
    }
}

// ------------------------------------------------------------------------------------- the comma

TEST_P(TaskButtonTest, UnderACommaALimitOfAHalfReadsAsNone) {
    const WithSeparator comma(",");
    SetTask(T().task, 1, 1, 0.5);
    ASSERT_EQ(Cell(Row(1), kEd).Text, "0,5");
    ExpectRefusal(kNoLimits);
}

TEST_P(TaskButtonTest, UnderACommaTheFiguresAreWrittenWithItAndTheMeasurementsReadWithAPoint) {
    const WithSeparator comma(",");
    SetTask(T().task, 1, 1, 10);
    FillFirstTask();
    record.TiempoExposicion(1, T().task) = 4;
    SetSamples(Row(1), {"1.0", "2.0", "4.0"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "2,36");
    EXPECT_EQ(IndexOf(Row(1)), ",12");
}

TEST_P(TaskButtonTest, UnderACommaAMeasurementWithOneIsCutThere) {
    const WithSeparator comma(",");
    SetTask(T().task, 1, 1);
    FillFirstTask();
    SetSamples(Row(1), {"2,9", "8,9"});
    Click();
    EXPECT_EQ(Mmp(Row(1)), "4,");
}

}  // namespace
}  // namespace velmora::test
