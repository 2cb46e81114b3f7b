#include <array>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/sheet_test.h"

namespace velmora::test {
namespace {

constexpr std::array<Twin, 3> kTwins = {{{1, "Command5"}, {2, "Command6"}, {3, "Command7"}}};

/// What a row holds before the press.
struct RowTexts {
    std::string_view group = "0";
    std::string_view ed = "";
    std::string_view ec = "";
    std::array<std::string_view, 6> samples = {};  ///< C1 to C6
    std::string_view mmp = "";
    std::string_view mg = "";
    std::string_view gsd = "";
};

class ShortExposureTest : public DayTest {
protected:
    void Set(int row, const RowTexts& texts) {
        Cell(row, kNumber).Text = Digits((row - 1) % 6 + 1);
        Cell(row, kAdditive).Text = texts.group;
        Cell(row, kEd).Text = texts.ed;
        Cell(row, kEc).Text = texts.ec;
        for (int m = 0; m < 6; ++m) {
            Cell(row, kC1 + m).Text = texts.samples.at(static_cast<std::size_t>(m));
        }
        Cell(row, kMmp).Text = texts.mmp;
        Cell(row, kMg).Text = texts.mg;
        Cell(row, kGsd).Text = texts.gsd;
    }

    /// The four texts of a row of the right-hand grid.
    std::vector<std::string> Right(int row) {
        return {Cell3(row, kEcPlus).Text, Cell3(row, kMgPlus).Text, Cell3(row, kGsdPlus).Text,
                Cell3(row, kProb).Text};
    }
};

class ExposureButtonTest : public TwinTest<ShortExposureTest> {
protected:
    void SetContaminants(int n) { record.NumContaminantes(T().task) = n; }

    /// What the press makes of a contaminant that is the task's only one.
    std::vector<std::string> Judged(const RowTexts& texts) {
        SetContaminants(1);
        Set(Row(1), texts);
        Click();
        return Right(Row(1));
    }
};

INSTANTIATE_TEST_SUITE_P(Buttons, ExposureButtonTest, ::testing::ValuesIn(kTwins), NameOfTwin);

// ------------------------------------------------------------------- contaminants by themselves

TEST_P(ExposureButtonTest, WithoutContaminantsNoCellIsTouched) {
    for (int row = 1; row <= 18; ++row) {
        Set(row, {.group = "0", .ed = "10", .mg = "1.", .gsd = "2."});
        Cell3(row, kEcPlus).Text = "5";
    }
    const auto before = StateOf(form);
    Click();
    EXPECT_THAT(Changed(before, form), IsEmpty());
}

TEST_P(ExposureButtonTest, WithoutShortLimitThreeTimesTheDailyOneTakesItsPlace) {
    // Python: 30 / 0.61 to the curves, the first of which, 2.51, is above 1.5.
    EXPECT_THAT(Judged({.ed = "10", .mg = ".61", .gsd = "1.5"}),
                ElementsAre("30", "0.61", "1.5", "0.001"));
}

TEST_P(ExposureButtonTest, TheShortLimitIsTakenWhenThereIsOne) {
    // A ratio of 10 has its first curve at 1.7252.
    EXPECT_THAT(Judged({.ed = "10", .ec = "25", .mg = "2.5", .gsd = "1.7"}),
                ElementsAre("25", "2.5", "1.7", "0.001"));
}

TEST_P(ExposureButtonTest, AShortLimitThatReadsZeroIsNone) {
    for (const std::string_view ec : {"", "0", ".", "0.00", "x"}) {
        SetContaminants(1);
        Set(Row(1), {.ed = "10", .ec = ec, .mg = "3.", .gsd = "1.7"});
        Click();
        EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "30") << ec;
    }
}

TEST_P(ExposureButtonTest, NumbersAreWrittenToFifteenDigitsWithoutAFormat) {
    SetContaminants(1);
    Set(Row(1), {.ed = "0.1", .mg = "4.", .gsd = "2.40"});
    Click();
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "0.3");  // 3 x 0.1 is 0.30000000000000004
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "4");
    EXPECT_EQ(Cell3(Row(1), kGsdPlus).Text, "2.4");
}

TEST_P(ExposureButtonTest, EachOfTheSixRowsGetsItsOwnFourCells) {
    SetContaminants(6);
    for (int r = 1; r <= 6; ++r) {
        Set(Row(r), {.ec = "10", .mg = "1.", .gsd = "2."});
        Cell(Row(r), kEc).Text = Digits(10 * r);
        Cell(Row(r), kMg).Text = Digits(r) + ".";
    }
    const auto before = StateOf(form);
    Click();
    for (int r = 1; r <= 6; ++r) {
        EXPECT_THAT(Right(Row(r)), ElementsAre(Digits(10 * r), Digits(r), "2", "0.1"));
    }
    EXPECT_EQ(Changed(before, form).size(), 24U) << "nothing else is written";
}

TEST_P(ExposureButtonTest, RowsBeyondTheContaminantsAreNotTouched) {
    SetContaminants(1);
    for (int r = 1; r <= 6; ++r) Set(Row(r), {.ec = "10", .mg = "1.", .gsd = "2."});
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1"));
    EXPECT_THAT(Right(Row(2)), ElementsAre("", "", "", ""));
}

TEST_P(ExposureButtonTest, TheSamplingTimeIsNotRead) {
    SetContaminants(1);
    for (const std::string_view tm : {"15", "30", "", "99"}) {
        Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
        Cell(Row(1), kTm).Text = tm;
        Click();
        EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1")) << tm;
    }
}

// -------------------------------------------------------------------------------- groups of one

TEST_P(ExposureButtonTest, AContaminantAloneInItsGroupIsJudgedByItself) {
    for (int r = 1; r <= 6; ++r) {
        for (int k = 1; k <= 6; ++k) {
            form.limpia(1);
            SetContaminants(6);
            for (int other = 1; other <= 6; ++other) Set(Row(other), {.group = "9"});
            Cell(Row(r), kAdditive).Text = Digits(k);
            Cell(Row(r), kEd).Text = "10";
            Cell(Row(r), kMg).Text = "3.";
            Cell(Row(r), kGsd).Text = "1.8";
            const auto before = StateOf(form);
            Click();
            EXPECT_THAT(Right(Row(r)), ElementsAre("30", "3", "1.8", "0.01"));
            EXPECT_EQ(Changed(before, form).size(), 4U);
        }
    }
}

TEST_P(ExposureButtonTest, AContaminantAloneInItsGroupTakesItsShortLimitToo) {
    EXPECT_THAT(Judged({.group = "4", .ed = "10", .ec = "25", .mg = "2.5", .gsd = "1.7"}),
                ElementsAre("25", "2.5", "1.7", "0.001"));
}

TEST_F(ShortExposureTest, Command6_AContaminantAloneInItsGroupIsNoMixture) {
    record.NumContaminantes(2) = 3;
    Set(7, {.group = "9"});
    Set(8, {.group = "9"});
    Set(9, {.group = "1", .ec = "25", .mmp = "2.", .mg = "2.5", .gsd = "1.7"});
    form.Command6_Click();
    EXPECT_THAT(Right(8), ElementsAre("", "", "", "")) << "where a mixture's limit would go";
    EXPECT_THAT(Right(9), ElementsAre("25", "2.5", "1.7", "0.001"));
}

TEST_P(ExposureButtonTest, NumbersAboveSixOrNotWholeAreNoGroupAndTheirRowsKeepTheirCells) {
    for (const std::string_view number : {"7", "12", "20", "1.5", "0.5", "-1"}) {
        form.limpia(1);
        SetContaminants(2);
        Set(Row(1), {.group = number, .ec = "10", .mmp = "2.", .mg = "1.", .gsd = "2."});
        Set(Row(2), {.group = number, .ec = "10", .mmp = "2.", .mg = "1.", .gsd = "2."});
        const auto before = StateOf(form);
        Click();
        EXPECT_THAT(Changed(before, form), IsEmpty()) << number;
    }
}

TEST_P(ExposureButtonTest, ARowThatNoPassWritesKeepsItsOldCellsAndGetsAProbabilityFromThem) {
    SetContaminants(1);
    Set(Row(1), {.group = "7"});
    Cell3(Row(1), kEcPlus).Text = "20";
    Cell3(Row(1), kMgPlus).Text = "2";
    Cell3(Row(1), kGsdPlus).Text = "2.5";
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("20", "2", "2.5", "1"));
}

TEST_P(ExposureButtonTest, TheSameNumberInAnotherTaskIsAnotherGroup) {
    SetContaminants(1);
    for (int row = 1; row <= 18; ++row) {
        Set(row, {.group = "1", .ec = "10", .mmp = "2.", .mg = "1.", .gsd = "2."});
    }
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1")) << "a group of one";
}

// ------------------------------------------------------------------------------- groups of two up

constexpr RowTexts kOfLimit10{.group = "1", .ec = "10", .mmp = "2."};
constexpr RowTexts kOfLimit20{.group = "1", .ec = "20", .mmp = "3."};

class MixtureTest : public ExposureButtonTest {
protected:
    /// Two members of group 1 whose samples add up to 2, 4.
    void SetMixture(int first, int second) {
        Set(Row(first), kOfLimit10);
        Set(Row(second), kOfLimit20);
        SetSamples(Row(first), {"1", "2", "3"});
        SetSamples(Row(second), {"1", "2"});
    }
};

INSTANTIATE_TEST_SUITE_P(Buttons, MixtureTest, ::testing::ValuesIn(kTwins), NameOfTwin);

TEST_P(MixtureTest, TheLimitOfAMixtureIsTheHarmonicMeanWeightedByTheMeans) {
    SetContaminants(2);
    SetMixture(1, 2);
    const auto before = StateOf(form);
    Click();
    // Worked by hand: 5 / (2 / 10 + 3 / 20). Sums 2 and 4: the mean of their logarithms is
    // ln 8 / 2, the spread ln 2 / sqrt 2; Python: exp of both, and the curves of their ratio, 5.05,
    // at 1.468, 1.545 and 1.697, of which the third is above the deviation.
    EXPECT_THAT(Right(Row(1)),
                ElementsAre("14.2857142857143", "2.82842712474619", "1.63252691943815", "0.1"));
    EXPECT_THAT(Right(Row(2)), ElementsAre("", "", "", "")) << "no limit and so no probability";
    EXPECT_EQ(Changed(before, form).size(), 4U);
}

TEST_P(MixtureTest, AMemberWithoutShortLimitEntersWithThreeTimesItsDailyOne) {
    SetContaminants(3);
    SetMixture(1, 2);
    Set(Row(3), {.group = "1", .ed = "10", .ec = "0", .samples = {"2", "3"}, .mmp = "1."});
    Click();
    // Python: 6 / (2 / 10 + 3 / 20 + 1 / 30).
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "15.6521739130435");
}

TEST_P(MixtureTest, MembersNeedNotStandTogetherAndOthersBetweenThemDoNotCount) {
    SetContaminants(6);
    SetMixture(1, 6);
    for (int r = 2; r <= 5; ++r) {
        Set(Row(r), {.group = "9", .ec = "1", .samples = {"7", "7", "7"}, .mmp = "7."});
    }
    Click();
    EXPECT_THAT(Right(Row(1)),
                ElementsAre("14.2857142857143", "2.82842712474619", "1.63252691943815", "0.1"));
}

TEST_P(MixtureTest, TwoGroupsAreJudgedApart) {
    SetContaminants(4);
    Set(Row(1), {.group = "6", .ec = "10", .samples = {"1", "2"}, .mmp = "2."});
    Set(Row(2), {.group = "2", .ec = "10", .samples = {"1", "4"}, .mmp = "1."});
    Set(Row(3), {.group = "6", .ec = "20", .samples = {"1", "2"}, .mmp = "3."});
    Set(Row(4), {.group = "2", .ec = "10", .samples = {"1", "5"}, .mmp = "1."});
    Click();
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "14.2857142857143");
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "2.82842712474619");
    EXPECT_EQ(Cell3(Row(2), kEcPlus).Text, "10");
    EXPECT_EQ(Cell3(Row(2), kMgPlus).Text, "4.24264068711929");  // Python: exp((ln 2 + ln 9) / 2)
    EXPECT_EQ(Cell3(Row(3), kMgPlus).Text, "");
}

TEST_P(MixtureTest, MarksAreComparedAsNumbersInEveryPass) {
    SetContaminants(4);
    SetMixture(1, 2);
    Cell(Row(1), kAdditive).Text = "01";
    Cell(Row(2), kAdditive).Text = "1";
    Set(Row(3), {.group = "00", .ec = "25", .mg = "2.5", .gsd = "1.7"});
    Set(Row(4), {.group = "4.0", .ec = "25", .mg = "2.5", .gsd = "1.7"});
    for (const std::string_view second : {"1", "1.0", "1x"}) {
        Cell(Row(2), kAdditive).Text = second;
        Click();
        // As above for "1" and "1", and for a contaminant by itself.
        EXPECT_THAT(Right(Row(1)),
                    ElementsAre("14.2857142857143", "2.82842712474619", "1.63252691943815", "0.1"));
        EXPECT_THAT(Right(Row(2)), ElementsAre("", "", "", "")) << second;
        EXPECT_THAT(Right(Row(3)), ElementsAre("25", "2.5", "1.7", "0.001"));
        EXPECT_THAT(Right(Row(4)), ElementsAre("25", "2.5", "1.7", "0.001"));
    }
}

TEST_P(MixtureTest, ADailyLimitIsTakenThreeTimesBeforeTheMeanIsDividedByIt) {
    SetContaminants(2);
    const auto limit = [this](auto mmp1, auto ed, auto mmp2, auto ec) {
        Set(Row(1), {.group = "1", .ed = ed, .samples = {"1", "2"}, .mmp = mmp1});
        Set(Row(2), {.group = "1", .ec = ec, .samples = {"1", "2"}, .mmp = mmp2});
        Click();
        return Cell3(Row(1), kEcPlus).Text;
    };
    // Python, '%.15g' of (v + x) / (v / (3 * ed) + x / ec) in this order of operations; the mean
    // divided by 3 and then by the limit, or the other way round, gives another last digit.
    EXPECT_EQ(limit("262.78", "0.7", "22.15", "10"), "2.23740658822913");
    EXPECT_EQ(limit("36.3", "221", "29.47", "384"), "500.167598776623");
    EXPECT_EQ(limit("235.4", "3.7", "224.25", "25"), "15.231694465425");
}

TEST_P(MixtureTest, TheMeanAndDeviationGoToTheRecordOfTheDayAndToNothingElse) {
    SetContaminants(3);
    form.DiaActual = 3;
    Set(Row(1), {.group = "0", .ec = "9", .mg = "1.", .gsd = "2."});
    SetMixture(2, 3);
    EvaluacionRecord before = record;
    Click();
    // Python: exp(ln 8 / 2) and exp(ln 2 / sqrt 2).
    EXPECT_NEAR(record.MGmas(3, T().task, 2).Value(), 2.82842712474619, 1e-13);
    EXPECT_NEAR(record.GSDmas(3, T().task, 2).Value(), 1.6325269194381529, 1e-13);
    before.MGmas(3, T().task, 2) = record.MGmas(3, T().task, 2);
    before.GSDmas(3, T().task, 2) = record.GSDmas(3, T().task, 2);
    EXPECT_TRUE(record == before);
}

TEST_P(MixtureTest, TheFirstSampleThatAMemberLacksEndsTheSeries) {
    SetContaminants(2);
    SetMixture(1, 2);
    SetSamples(Row(1), {"1", "2", "3", "9", "9", "9"});
    SetSamples(Row(2), {"1", "2", "", "9", "9", "9"});
    Click();
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "2.82842712474619") << "of 2 and 4 alone";
    EXPECT_EQ(Cell3(Row(1), kGsdPlus).Text, "1.63252691943815");
}

TEST_P(MixtureTest, AllSixSamplesCountWhenEveryMemberHasThem) {
    SetContaminants(2);
    SetMixture(1, 2);
    SetSamples(Row(1), {"1", "2", "1", "2", "1", "2"});
    SetSamples(Row(2), {"1", "2", "1", "2", "1", "2"});
    Click();
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "2.82842712474619");
    // Python: the spread is ln 2 / 2 x sqrt(6 / 5).
    EXPECT_EQ(Cell3(Row(1), kGsdPlus).Text, "1.46177630938356");
}

TEST_P(MixtureTest, ASumOfOneHasTheLogarithmZeroAndStillCounts) {
    SetContaminants(2);
    SetMixture(1, 2);
    SetSamples(Row(1), {".5", "2", ""});
    SetSamples(Row(2), {".5", "2"});
    Click();
    // Worked by hand: sums 1 and 4, a mean of 2, the spread ln 2 x sqrt 2.
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "2");
    EXPECT_EQ(Cell3(Row(1), kGsdPlus).Text, "2.66514414269023");
}

TEST_P(MixtureTest, TheNumberOfTheFirstMemberIsReadFromItsCell) {
    SetContaminants(2);
    SetMixture(1, 2);
    Cell(Row(1), kNumber).Text = "5";
    // The limit stands beside no mean now, so the press ends at the probabilities.
    ExpectError(ErrorKind::DivisionByZero, [&] { Click(); });
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "14.2857142857143") << "the limit goes by the place";
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "");
    EXPECT_EQ(Cell3(Row(5), kMgPlus).Text, "2.82842712474619");
    EXPECT_EQ(Cell3(Row(5), kGsdPlus).Text, "1.63252691943815");
    EXPECT_NEAR(record.MGmas(1, T().task, 5).Value(), 2.82842712474619, 1e-13);
    EXPECT_EQ(record.MGmas(1, T().task, 1), 0);
}

TEST_P(MixtureTest, AGroupWithoutAnyMeanGetsNoLimit) {
    SetContaminants(2);
    SetMixture(1, 2);
    Cell(Row(1), kMmp).Text = ".";
    Cell(Row(2), kMmp).Text = "";
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("", "2.82842712474619", "1.63252691943815", ""));
}

// The cell of a mixture's limit: every group of two whose first member stands in row r of its task.
// In the third row of the second task, 150 * 0.222 - 1.3 is 31.999999999999996, so 31 and not 32.

struct LimitCell {
    int task;
    int r;
    int index;  ///< Python: math.floor(p * F - 1.3)
};

void PrintTo(const LimitCell& cell, std::ostream* out) {
    *out << "Task" << cell.task << "Row" << cell.r;
}

// clang-format off
constexpr std::array<LimitCell, 15> kLimitCells = {{
    {1, 1,  0}, {1, 2,  4}, {1, 3,  8}, {1, 4, 12}, {1, 5, 16},
    {2, 1, 24}, {2, 2, 28}, {2, 3, 31}, {2, 4, 35}, {2, 5, 39},
    {3, 1, 48}, {3, 2, 52}, {3, 3, 56}, {3, 4, 60}, {3, 5, 64},
}};
// clang-format on

class LimitCellTest : public ShortExposureTest, public ::testing::WithParamInterface<LimitCell> {};

INSTANTIATE_TEST_SUITE_P(Rows, LimitCellTest, ::testing::ValuesIn(kLimitCells),
                         [](const auto& tested) {
                             return "Task" + Digits(tested.param.task) + "Row" +
                                    Digits(tested.param.r);
                         });

TEST_P(LimitCellTest, TheLimitOfAMixtureGoesToTheCellThatTheFactorGives) {
    const auto [task, r, index] = GetParam();
    const Twin& twin = kTwins.at(static_cast<std::size_t>(task - 1));
    record.NumContaminantes(task) = r + 1;
    for (int other = 1; other < r; ++other) Set(twin.Row(other), {.group = "9"});
    Set(twin.Row(r), kOfLimit10);
    Set(twin.Row(r + 1), kOfLimit20);
    SetSamples(twin.Row(r), {"1", "2"});
    SetSamples(twin.Row(r + 1), {"1", "2"});
    const auto before = StateOf(form);
    Click(twin);
    EXPECT_EQ(form.Text3(index).Text, "14.2857142857143");
    EXPECT_EQ(Cell3(twin.Row(r), kMgPlus).Text, "2.82842712474619");
    EXPECT_EQ(Cell3(twin.Row(r), kGsdPlus).Text, "1.63252691943815");
    std::vector<std::string> expected = {Indexed("Text3", index), Name3(twin.Row(r), kMgPlus),
                                         Name3(twin.Row(r), kGsdPlus)};
    // A group whose own cell stays empty gets no probability.
    if (index == Index3(twin.Row(r), kEcPlus)) expected.push_back(Name3(twin.Row(r), kProb));
    EXPECT_THAT(Changed(before, form), ::testing::UnorderedElementsAreArray(expected));
}

// A group that begins in the sixth row needs a seventh. The tasks 1 and 2 find one in the next
// task; it can't have a common sample there, so the press ends with the limit already written.
TEST_F(ShortExposureTest, AGroupThatBeginsInTheSixthRowWritesItsLimitAndEndsTheProgram) {
    const std::array<std::pair<Twin, int>, 2> cases = {{{kTwins[0], 20}, {kTwins[1], 43}}};
    for (const auto& [twin, index] : cases) {
        record.NumContaminantes(twin.task) = 7;
        for (int r = 1; r <= 5; ++r) Set(twin.Row(r), {.group = "9"});
        Set(twin.Row(6), kOfLimit10);
        Set(twin.Row(7), kOfLimit20);
        SetSamples(twin.Row(6), {"1", "2"});
        SetSamples(twin.Row(7), {"1", "2"});
        ExpectError(ErrorKind::InvalidOperation, [&, click = twin] { Click(click); });
        EXPECT_EQ(form.Text3(index).Text, "14.2857142857143");
        EXPECT_EQ(Cell3(twin.Row(6), kMgPlus).Text, "");
    }
}

TEST_F(ShortExposureTest,
       Command6_FromTheThirdRowOnPutsTheLimitInTheRowAboveWhereItsClassReplacesIt) {
    record.NumContaminantes(2) = 4;
    Set(7, {.group = "9"});
    Set(8, {.group = "0", .ec = "25", .mg = "5.", .gsd = "1.5"});
    Set(9, kOfLimit10);
    Set(10, kOfLimit20);
    SetSamples(9, {"1", "2"});
    SetSamples(10, {"1", "2"});
    form.Command6_Click();
    // Python: a ratio of 5 has its curves at 1.465 and 1.540, of which the second is above 1.5.
    EXPECT_THAT(Right(8), ElementsAre("25", "5", "1.5", "0.01"));
    EXPECT_THAT(Right(9), ElementsAre("", "2.82842712474619", "1.63252691943815", ""));
}

TEST_F(ShortExposureTest, Command6_TheLimitLeftInTheRowAboveIsTakenForAProbability) {
    record.NumContaminantes(2) = 4;
    Set(7, {.group = "9"});
    Set(8, {.group = "9"});
    Set(9, kOfLimit10);
    Set(10, kOfLimit20);
    SetSamples(9, {"1", "2"});
    SetSamples(10, {"1", "2"});
    form.Command6_Click();
    EXPECT_THAT(Right(8), ElementsAre("", "", "", "14.2857142857143"));
    form.Command8_Click();
    EXPECT_EQ(form.Text4.Text, "14.2857142857143");
    EXPECT_EQ(form.Text6.Text, "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS");
}

// ------------------------------------------------------------------------------- probabilities

struct Ladder {
    std::string_view gsd;
    std::string_view rank;
};

TEST_P(ExposureButtonTest, EachClassOfProbabilityIsWrittenAsItIs) {
    // A ratio of 10 has its curves at 1.7252, 1.8603, 2.1223, 2.7139 and 4.0343.
    for (const auto& [gsd, rank] : std::initializer_list<Ladder>{{"1.5", "0.001"},
                                                                 {"1.7", "0.001"},
                                                                 {"1.8", "0.01"},
                                                                 {"2.", "0.1"},
                                                                 {"2.5", "1"},
                                                                 {"3.", "5"},
                                                                 {"4.", "5"},
                                                                 {"5.", "50"}}) {
        SetContaminants(1);
        Set(Row(1), {.ec = "10", .mg = "1.", .gsd = gsd});
        Click();
        EXPECT_EQ(Cell3(Row(1), kProb).Text, rank) << gsd;
    }
}

TEST_P(ExposureButtonTest, ALimitOfZeroHasTheClassZero) {
    EXPECT_THAT(Judged({.ed = "0", .ec = "", .mg = "1.", .gsd = "2."}),
                ElementsAre("0", "1", "2", "0"));
}

TEST_P(ExposureButtonTest, ALimitCellThatHoldsABlankIsNotEmpty) {
    SetContaminants(1);
    Set(Row(1), {.group = "9"});
    Cell3(Row(1), kEcPlus).Text = " ";
    Cell3(Row(1), kMgPlus).Text = "1";
    Click();
    EXPECT_EQ(Cell3(Row(1), kProb).Text, "0");
}

TEST_P(ExposureButtonTest, ASecondPressOverwritesTheSameCells) {
    SetContaminants(1);
    Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
    Click();
    const auto after_first = StateOf(form);
    Click();
    EXPECT_THAT(Changed(after_first, form), IsEmpty());
    Set(Row(1), {.ec = "20", .mg = "2.", .gsd = "5."});
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("20", "2", "5", "50"));
}

// --------------------------------------------------------------------------------- the next step

struct Opening {
    int command;
    int num_tasks;
    std::string_view next;
    bool conclusions;
};

// clang-format off
constexpr std::array<Opening, 18> kOpenings = {{
    {5, -1, "", false}, {5, 0, "", false}, {5, 1, "", true},
    {5, 2, "Command6", false}, {5, 3, "Command6", false}, {5, 4, "Command6", false},
    {6, -1, "", false}, {6, 0, "", false}, {6, 1, "", false},
    {6, 2, "", true}, {6, 3, "Command7", false}, {6, 4, "Command7", false},
    {7, -1, "", false}, {7, 0, "", false}, {7, 1, "", false},
    {7, 2, "", false}, {7, 3, "", true}, {7, 4, "", false},
}};
// clang-format on

TEST_F(ShortExposureTest, EachButtonOpensTheNextOrTheConclusionsOfThePlan) {
    for (const Opening& opening : kOpenings) {
        SCOPED_TRACE(Indexed("Command", opening.command) + " of " + Digits(opening.num_tasks));
        form.limpia(1);
        record.NumTareas = opening.num_tasks;
        const auto before = StateOf(form);
        Click(kTwins.at(static_cast<std::size_t>(opening.command - 5)));
        std::vector<std::string> expected;
        if (!opening.next.empty()) expected.emplace_back(opening.next);
        if (opening.conclusions) {
            expected = {"Command8", "Label1", "Label2", "Label4", "Text2",
                        "Text4",    "Text5",  "Text6",  "Text7"};
            EXPECT_TRUE(form.Command8.Visible && form.Command8.Enabled);
            EXPECT_TRUE(form.Label1.Visible && form.Text5.Visible);
        }
        EXPECT_THAT(Changed(before, form), ::testing::UnorderedElementsAreArray(expected));
        EXPECT_EQ(form.Command6.Visible && form.Command6.Enabled, opening.next == "Command6");
        EXPECT_EQ(form.Command7.Visible && form.Command7.Enabled, opening.next == "Command7");
    }
}

TEST_F(ShortExposureTest, Command6_OnAPlanOfTwoTasksLeavesCommand7AsItWas) {
    record.NumTareas = 2;
    form.Command7.Visible = true;
    form.Command6_Click();
    EXPECT_TRUE(form.Command7.Visible);
    EXPECT_FALSE(form.Command7.Enabled);
    EXPECT_TRUE(form.Command8.Visible && form.Command8.Enabled);
}

TEST_P(ExposureButtonTest, NothingIsHiddenOrDisabled) {
    for (int tasks = 0; tasks <= 4; ++tasks) {
        Scribble();
        record.NumTareas = tasks;
        const auto before = StateOf(form);
        Click();
        EXPECT_THAT(Changed(before, form), IsEmpty()) << tasks;
    }
}

// -------------------------------------------------------------------------------- run-time errors

class ExposureErrorTest : public MixtureTest {
protected:
    void SetUp() override {
        MixtureTest::SetUp();
        record.NumTareas = T().task;
    }

    /// The press ends the program, and the next step isn't opened.
    void ExpectEnd(ErrorKind kind) {
        ExpectError(kind, [&] { Click(); });
        EXPECT_FALSE(form.Command8.Visible || form.Command8.Enabled);
    }
};

INSTANTIATE_TEST_SUITE_P(Buttons, ExposureErrorTest, ::testing::ValuesIn(kTwins), NameOfTwin);

TEST_P(ExposureErrorTest, ALimitBesideAMeanOfZeroEndsTheProgramWithTheRowsBeforeItJudged) {
    SetContaminants(3);
    Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
    Set(Row(2), {.ec = "10", .mg = ".", .gsd = "2."});
    Set(Row(3), {.ec = "10", .mg = "1.", .gsd = "2."});
    ExpectEnd(ErrorKind::DivisionByZero);
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1"));
    EXPECT_THAT(Right(Row(2)), ElementsAre("10", "0", "2", ""));
    EXPECT_THAT(Right(Row(3)), ElementsAre("10", "1", "2", ""));
}

TEST_P(ExposureErrorTest, AnEmptyRowAmongTheContaminantsEndsTheProgramWithZeroByZero) {
    // A task with more contaminants than rows on this day: the row's limit is 0, and so its mean.
    SetContaminants(2);
    Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
    ExpectEnd(ErrorKind::InvalidOperation);
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1"));
    EXPECT_THAT(Right(Row(2)), ElementsAre("0", "0", "0", ""));
}

TEST_P(ExposureErrorTest, AMemberWithoutEitherLimitEndsTheProgramWithTheSingleRowsWritten) {
    SetContaminants(4);
    SetMixture(1, 2);
    Cell(Row(2), kEc).Text = "0";
    Cell(Row(2), kEd).Text = "";
    Set(Row(3), {.group = "0", .ec = "10", .mg = "1.", .gsd = "2."});
    Set(Row(4), {.group = "5", .ec = "10", .mg = "1.", .gsd = "2."});
    ExpectEnd(ErrorKind::DivisionByZero);
    EXPECT_THAT(Right(Row(1)), ElementsAre("", "", "", ""));
    EXPECT_THAT(Right(Row(3)), ElementsAre("10", "1", "2", ""));
    EXPECT_THAT(Right(Row(4)), ElementsAre("10", "1", "2", ""));
}

TEST_P(ExposureErrorTest, AMemberWithoutLimitsAndWithoutAMeanIsZeroByZero) {
    SetContaminants(2);
    SetMixture(1, 2);
    Cell(Row(2), kEc).Text = "";
    Cell(Row(2), kMmp).Text = ".";
    ExpectEnd(ErrorKind::InvalidOperation);
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "");
}

TEST_P(ExposureErrorTest, TheGroupsBeforeTheOneWithoutLimitsHaveTheirsWritten) {
    SetContaminants(4);
    SetMixture(1, 2);
    Set(Row(3), {.group = "2", .samples = {"1", "2"}, .mmp = "1."});
    Set(Row(4), {.group = "2", .samples = {"1", "2"}, .mmp = "1."});
    ExpectEnd(ErrorKind::DivisionByZero);
    EXPECT_EQ(Cell3(Row(1), kEcPlus).Text, "14.2857142857143");
    EXPECT_EQ(Cell3(Row(1), kMgPlus).Text, "") << "the means are a later pass";
}

TEST_P(ExposureErrorTest, AGroupWithoutACommonFirstSampleEndsTheProgramWithItsLimitWritten) {
    SetContaminants(2);
    SetMixture(1, 2);
    SetSamples(Row(2), {"0", "2"});
    ExpectEnd(ErrorKind::InvalidOperation);
    EXPECT_THAT(Right(Row(1)), ElementsAre("14.2857142857143", "", "", ""));
    EXPECT_EQ(record.MGmas(1, T().task, 1), 0);
}

TEST_P(ExposureErrorTest, AGroupWithOneCommonSampleEndsTheProgramWithItsMeanStoredAndWritten) {
    SetContaminants(3);
    SetMixture(1, 2);
    SetSamples(Row(1), {"1", "2", ""});
    SetSamples(Row(2), {"1", "0", ""});
    Set(Row(3), {.group = "0", .ec = "10", .mg = "1.", .gsd = "2."});
    Cell3(Row(1), kGsdPlus).Text = "antes";
    ExpectEnd(ErrorKind::InvalidOperation);
    // The one sum is 2, and the mean of its logarithm gives it back.
    EXPECT_THAT(Right(Row(1)), ElementsAre("14.2857142857143", "2", "antes", ""));
    EXPECT_NEAR(record.MGmas(1, T().task, 1).Value(), 2, 1e-14);
    EXPECT_EQ(record.GSDmas(1, T().task, 1), 0);
    EXPECT_THAT(Right(Row(3)), ElementsAre("10", "1", "2", "")) << "no later pass runs";
}

TEST_P(ExposureErrorTest, ASampleBeyondAllNumbersEndsTheProgramInAGroupOfOneToo) {
    SetContaminants(1);
    Set(Row(1), {.group = "4", .ec = "25", .mg = "2.5", .gsd = "1.7"});
    SetSamples(Row(1), {"1", "2", "1E400"});
    ExpectEnd(ErrorKind::Overflow);
    EXPECT_THAT(Right(Row(1)), ElementsAre("25", "2.5", "1.7", "")) << "no later pass runs";
}

TEST_P(ExposureErrorTest, AFirstMemberWhoseNumberIsNotOneToSixIsASubscriptError) {
    for (const std::string_view number : {"", "0", "7", "x", "-1"}) {
        SetContaminants(2);
        SetMixture(1, 2);
        Cell(Row(1), kNumber).Text = number;
        ExpectEnd(ErrorKind::SubscriptOutOfRange);
        EXPECT_THAT(Right(Row(1)), ElementsAre("14.2857142857143", "", "", "")) << number;
    }
}

TEST_P(ExposureErrorTest, ADayOutsideOneToThreeIsASubscriptErrorOfTheFirstMixture) {
    for (const int day : {0, 4}) {
        SetContaminants(2);
        SetMixture(1, 2);
        form.DiaActual = day;
        ExpectEnd(ErrorKind::SubscriptOutOfRange);
        EXPECT_THAT(Right(Row(1)), ElementsAre("14.2857142857143", "", "", ""));
    }
}

TEST_P(ExposureErrorTest, WithoutAMixtureTheDayIsNotUsed) {
    SetContaminants(1);
    form.DiaActual = 0;
    Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
    Click();
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "1", "2", "0.1"));
}

TEST_F(ShortExposureTest, ASeventhContaminantOfTheThirdTaskEndsTheProgramWithSixRowsWritten) {
    record.NumContaminantes(3) = 7;
    for (int row = 13; row <= 18; ++row) Set(row, {.ec = "10", .mg = "1.", .gsd = "2."});
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command7_Click(); });
    for (int row = 13; row <= 18; ++row) {
        EXPECT_THAT(Right(row), ElementsAre("10", "1", "2", ""));
    }
}

TEST_F(ShortExposureTest, ASeventhContaminantOfTheFirstTaskJudgesTheFirstRowOfTheSecond) {
    record.NumContaminantes(1) = 7;
    for (int row = 1; row <= 7; ++row) Set(row, {.ec = "10", .mg = "1.", .gsd = "2."});
    form.Command5_Click();
    EXPECT_THAT(Right(7), ElementsAre("10", "1", "2", "0.1"));
}

TEST_F(ShortExposureTest, AnEighthMemberOfAGroupDoesNotFitItsMatrix) {
    record.NumContaminantes(1) = 8;
    for (int row = 1; row <= 7; ++row) Set(row, {.group = "9"});
    Set(1, kOfLimit10);
    Set(8, kOfLimit20);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command5_Click(); });
    EXPECT_EQ(Cell3(1, kEcPlus).Text, "14.2857142857143");
}

TEST_F(ShortExposureTest, AnEighthContaminantAloneInItsGroupDoesNotFitTheMatrixEither) {
    record.NumContaminantes(1) = 8;
    for (int row = 1; row <= 7; ++row) Set(row, {.group = "9"});
    Set(8, {.group = "1", .ec = "25", .mmp = "2.", .mg = "2.5", .gsd = "1.7"});
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command5_Click(); });
    EXPECT_THAT(Right(8), ElementsAre("25", "2.5", "1.7", ""));
}

TEST_F(ShortExposureTest, Command5_TheFactorMissesTheLimitCellOfARowBeyondItsTask) {
    record.NumContaminantes(1) = 10;
    for (int row = 1; row <= 8; ++row) Set(row, {.group = "9"});
    Set(9, kOfLimit10);
    Set(10, kOfLimit20);
    // 150 * 0.222 - 1.3 falls just short of 32, the limit cell of row 9; row 9 of the matrix fails.
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command5_Click(); });
    EXPECT_EQ(form.Text3(31).Text, "14.2857142857143");
    EXPECT_EQ(form.Text3(32).Text, "");
}

TEST_P(ExposureButtonTest, ANegativeCountOfContaminantsTouchesNoCell) {
    Set(Row(1), {.ec = "10", .mg = "1.", .gsd = "2."});
    // -1750 is near the end: the last row's cell is reckoned in whole numbers, 18 * -1751 = -31518.
    for (const int count : {-1, -1750}) {
        SetContaminants(count);
        const auto before = StateOf(form);
        Click();
        EXPECT_THAT(Changed(before, form), IsEmpty()) << count;
    }
}

// ------------------------------------------------------------------------------------- the comma

TEST_P(ExposureButtonTest, UnderACommaAValueOfTwoAndAHalfReadsAsTwo) {
    const WithSeparator comma(",");
    EXPECT_THAT(Judged({.ec = "2,5", .mg = "1,9", .gsd = "1,1"}),
                ElementsAre("2", "1", "1", "0,001"));
}

TEST_P(MixtureTest, UnderACommaTheFiguresOfAMixtureAreReadBackCut) {
    const WithSeparator comma(",");
    SetContaminants(2);
    SetMixture(1, 2);
    Click();
    // A ratio of 14 / 2 and a deviation of 1: the first curve, 1.0026 x 7^0.2357, is above.
    EXPECT_THAT(Right(Row(1)),
                ElementsAre("14,2857142857143", "2,82842712474619", "1,63252691943815", "0,001"));
}

TEST_P(ExposureButtonTest, UnderACommaAMeanBelowOneReadsZeroAndEndsTheProgram) {
    const WithSeparator comma(",");
    SetContaminants(1);
    Set(Row(1), {.ec = "10", .mg = ",61", .gsd = "1,5"});
    ExpectError(ErrorKind::DivisionByZero, [&] { Click(); });
    EXPECT_THAT(Right(Row(1)), ElementsAre("10", "0", "1", ""));
}

}  // namespace
}  // namespace velmora::test
