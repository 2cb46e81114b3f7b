#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/sheet_test.h"

namespace velmora::test {
namespace {

constexpr std::string_view kBelowTenth = "EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA";
constexpr std::string_view kBelowLimit = "EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA";
constexpr std::string_view kTwoDaysMore = "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS";
constexpr std::string_view kPlanGoesOn = "SE CONTINUA  CON EL PLAN DE MEDICIONES";
constexpr std::string_view kPlanFinished = "PLAN DE MEDICIONES FINALIZADO";
constexpr std::string_view kUnacceptable =
    "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN";
constexpr std::string_view kLow = " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS";
constexpr std::string_view kUncertain =
    " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS";
constexpr std::string_view kHigh = "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS";

constexpr Color kRedOf30 = 250;
constexpr Color kRedOf15 = 255;

class ConclusionsTest : public DayTest {
protected:
    void SetIndexes(int row, std::string_view index, std::string_view combined) {
        Cell(row, kIndex).Text = index;
        Cell(row, kCombinedIndex).Text = combined;
    }

    /// Presses the button over a first row of these texts.
    void Conclude(std::string_view index, std::string_view combined, std::string_view prob) {
        SetIndexes(1, index, combined);
        Cell3(1, kProb).Text = prob;
        form.Command8_Click();
    }

    void SetLimits(int row, std::string_view tm, std::string_view ed, std::string_view ec) {
        Cell(row, kTm).Text = tm;
        Cell(row, kEd).Text = ed;
        Cell(row, kEc).Text = ec;
    }

    /// Names of the cells whose colours aren't those of a window.
    std::vector<std::string> Marked() {
        std::vector<std::string> names;
        for (int i = 0; i < 324; ++i) {
            const TextCell& cell = form.Text1(i);
            if (cell.BackColor != kWindowBackground || cell.ForeColor != kWindowText) {
                names.push_back(Indexed("Text1", i));
            }
        }
        return names;
    }

    /// The one marked cell, with light text on this red.
    void ExpectMark(int row, int column, Color red) {
        EXPECT_EQ(form.Text7.Text, "SI");
        EXPECT_THAT(Marked(), UnorderedElementsAre(Name(row, column)));
        EXPECT_EQ(Cell(row, column).BackColor, red);
        EXPECT_EQ(Cell(row, column).ForeColor, 0x80000005U);
    }
};

// ------------------------------------------------------------------------------- greatest index

TEST_F(ConclusionsTest, TheGreatestIndexIsTheGreaterOfTheTwoColumns) {
    SetIndexes(3, "0.8", "");
    SetIndexes(9, "0.1", "0.3");
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0.8");
    SetIndexes(18, "", "0.9");
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0.9");
}

TEST_F(ConclusionsTest, EachOfThe18RowsCountsInBothColumns) {
    record.NumTareas = 1;  // whatever the plan says
    for (int row = 1; row <= 18; ++row) {
        form.limpia(1);
        SetIndexes(row, ".61", "");
        form.Command8_Click();
        EXPECT_EQ(form.Text2.Text, "0.61") << row;
        SetIndexes(row, "", "4.");
        form.Command8_Click();
        EXPECT_EQ(form.Text2.Text, "4") << row;
    }
}

TEST_F(ConclusionsTest, TheOtherColumnsAreNoIndexes) {
    for (int row = 1; row <= 18; ++row) {
        for (int column = 0; column < 18; ++column) {
            if (column != kIndex && column != kCombinedIndex) Cell(row, column).Text = "9";
        }
        for (int column = 0; column < 4; ++column) Cell3(row, column).Text = "9";
    }
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0");
}

TEST_F(ConclusionsTest, AnIndexIsWrittenToFifteenDigits) {
    SetIndexes(1, "0.123456789012345678", "");
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0.123456789012346");
}

TEST_F(ConclusionsTest, NegativeFiguresCountAsNone) {
    Conclude("-3", "-2", "-1");
    EXPECT_EQ(form.Text2.Text, "0");
    EXPECT_EQ(form.Text4.Text, "0");
}

// ------------------------------------------------------------------------- greatest probability

TEST_F(ConclusionsTest, ASheetOfNegativeFiguresAloneGivesZero) {
    for (int row = 1; row <= 18; ++row) {
        SetIndexes(row, "-0.5", "-0.25");
        Cell3(row, kProb).Text = "-5";
    }
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0");
    EXPECT_EQ(form.Text4.Text, "0");
}

TEST_F(ConclusionsTest, EachOfThe18RowsCountsInTheProbability) {
    for (int row = 1; row <= 18; ++row) {
        form.limpia(1);
        Cell3(row, kProb).Text = "0.001";
        form.Command8_Click();
        EXPECT_EQ(form.Text4.Text, "0.001") << row;
    }
}

TEST_F(ConclusionsTest, TheGreatestProbabilityIsTakenFromItsColumnAlone) {
    for (int row = 1; row <= 18; ++row) {
        for (int column = 0; column < 18; ++column) Cell(row, column).Text = "90";
        for (int column = 0; column < kProb; ++column) Cell3(row, column).Text = "90";
    }
    Cell3(4, kProb).Text = "5";
    Cell3(11, kProb).Text = "50";
    Cell3(12, kProb).Text = "1";
    form.Command8_Click();
    EXPECT_EQ(form.Text4.Text, "50");
}

// -------------------------------------------------------------------------- samples over a limit

TEST_F(ConclusionsTest, A30MinuteSampleAtThreeTimesTheDailyLimitIsOver) {
    SetLimits(1, "30", "10", "");
    SetSamples(1, {"29.99", "30"});
    form.Command8_Click();
    ExpectMark(1, kC1 + 1, kRedOf30);
}

TEST_F(ConclusionsTest, A30MinuteSampleBelowThreeTimesTheDailyLimitIsNot) {
    SetLimits(1, "30", "10", "5");
    SetSamples(1, {"29.99", "29.99", "29.99", "29.99", "29.99", "29.99"});
    form.Command8_Click();
    EXPECT_EQ(form.Text7.Text, "NO");
    EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(ConclusionsTest, A15MinuteSampleOverItsShortLimitIsMarkedWithTheOtherRed) {
    SetLimits(1, "15", "100", "5");
    SetSamples(1, {"7"});
    form.Command8_Click();
    ExpectMark(1, kC1, kRedOf15);
}

TEST_F(ConclusionsTest, A15MinuteSampleAtItsShortLimitIsOver) {
    SetLimits(1, "15", "0.1", "5");
    SetSamples(1, {"4.99", "4.99", "5"});
    form.Command8_Click();
    ExpectMark(1, kC1 + 2, kRedOf15);
}

TEST_F(ConclusionsTest, A30MinuteHitAnywhereOnTheSheetComesBeforeThe15MinuteOnes) {
    SetLimits(1, "15", "100", "5");
    SetSamples(1, {"7"});
    SetLimits(18, "30", "10", "");
    SetSamples(18, {"1", "1", "1", "1", "1", "31"});
    form.Command8_Click();
    ExpectMark(18, kC6, kRedOf30);
}

TEST_F(ConclusionsTest, TheSearchEndsAtTheFirstSampleFound) {
    SetLimits(4, "30", "10", "");
    SetSamples(4, {"31", "31", "31"});
    SetLimits(9, "30", "10", "");
    SetSamples(9, {"1", "40"});
    SetLimits(10, "30", "10", "");
    SetSamples(10, {"1", "1"});
    form.Command8_Click();
    ExpectMark(4, kC1, kRedOf30);
}

TEST_F(ConclusionsTest, EachCellOfEachRowCanBeTheOneFound) {
    for (const auto& [tm, red] : {std::pair{"30", kRedOf30}, std::pair{"15", kRedOf15}}) {
        for (int row = 1; row <= 18; ++row) {
            for (int column = kC1; column <= kC6; ++column) {
                form.limpia(1);
                SetLimits(row, tm, "2", "6");
                Cell(row, column).Text = "6";
                form.Command8_Click();
                ExpectMark(row, column, red);
                Cell(row, column).BackColor = kWindowBackground;
                Cell(row, column).ForeColor = kWindowText;
            }
        }
    }
}

TEST_F(ConclusionsTest, TheFiguresBesideTheMeasurementsAreNoSamples) {
    SetLimits(1, "30", "10", "");
    SetSamples(1, {"1", "1", "1", "1", "1", "1"});
    Cell(1, kAdditive).Text = "90";
    Cell(1, kMmp).Text = "90.";
    form.Command8_Click();
    EXPECT_EQ(form.Text7.Text, "NO");
    EXPECT_THAT(Marked(), IsEmpty());
}

TEST_F(ConclusionsTest, WithoutItsLimitTheFirstCellOfARowIsOverEvenIfEmpty) {
    SetLimits(2, "15", "10", "");
    form.Command8_Click();
    ExpectMark(2, kC1, kRedOf15);
    SetLimits(3, "30", "", "10");
    form.Command8_Click();
    EXPECT_EQ(Cell(3, kC1).BackColor, kRedOf30);
    EXPECT_EQ(form.Text7.Text, "SI");
}

TEST_F(ConclusionsTest, OnlyTimesOfExactly30And15AreLookedAt) {
    form.Text7.Text = "antes";
    for (const std::string_view tm : {"", "0", "29.9", "30.1", "14", "16", "10", "45", "x30"}) {
        SetLimits(1, tm, "0", "0");
        form.Command8_Click();
        EXPECT_EQ(form.Text7.Text, "antes") << tm;
    }
    EXPECT_THAT(Marked(), IsEmpty());
    SetLimits(1, "15.0", "1", "1");
    form.Command8_Click();
    EXPECT_EQ(form.Text7.Text, "NO");
}

TEST_F(ConclusionsTest, AMarkStaysWhenTheValueIsCorrectedUntilItsTaskIsValidated) {
    SetPlan(1, 1, 1);
    record.VlaEd(1, 1) = 10;
    record.TiempoMuestreo(1, 1) = 30;
    Choose("introprimero");
    SetSamples(1, {"31", "2"});
    form.Command8_Click();
    ExpectMark(1, kC1, kRedOf30);
    SetSamples(1, {"3", "2"});
    form.Command8_Click();
    EXPECT_EQ(form.Text7.Text, "NO");
    EXPECT_THAT(Marked(), UnorderedElementsAre(Name(1, kC1)));
    Choose("recupprimerdia");
    EXPECT_THAT(Marked(), UnorderedElementsAre(Name(1, kC1)));
    Choose("introprimero");
    EXPECT_THAT(Marked(), UnorderedElementsAre(Name(1, kC1)));
    SetSamples(1, {"3", "2"});
    form.Command1_Click();
    EXPECT_THAT(Marked(), IsEmpty());
    EXPECT_EQ(form.Text7.Text, "");
}

// ------------------------------------------------------------------------------------- verdicts

struct IndexVerdict {
    std::string_view index;
    std::array<std::string_view, 3> per_day;
};

constexpr std::array<IndexVerdict, 8> kIndexVerdicts = {{
    {"", {kBelowTenth, kBelowTenth, kBelowLimit}},
    {"0.05", {kBelowTenth, kBelowTenth, kBelowLimit}},
    {"0.1", {kBelowTenth, kBelowTenth, kBelowLimit}},
    {"0.1001", {kTwoDaysMore, kPlanGoesOn, kPlanFinished}},
    {"0.5", {kTwoDaysMore, kPlanGoesOn, kPlanFinished}},
    {"1", {kTwoDaysMore, kPlanGoesOn, kPlanFinished}},
    {"1.01", {kUnacceptable, kUnacceptable, kUnacceptable}},
    {"250", {kUnacceptable, kUnacceptable, kUnacceptable}},
}};

TEST_F(ConclusionsTest, TheVerdictOnTheIndexDependsOnItsClassAndOnTheDay) {
    for (const IndexVerdict& verdict : kIndexVerdicts) {
        for (int day = 1; day <= 3; ++day) {
            form.DiaActual = day;
            SetIndexes(1, verdict.index, "");
            form.Command8_Click();
            EXPECT_EQ(form.Text5.Text, verdict.per_day.at(static_cast<std::size_t>(day - 1)))
                << verdict.index << " on day " << day;
        }
    }
}

struct ProbabilityVerdict {
    std::string_view probability;
    std::string_view sentence;
};

constexpr std::array<ProbabilityVerdict, 11> kProbabilityVerdicts = {{{"", kLow},
                                                                      {"0", kLow},
                                                                      {"0.001", kLow},
                                                                      {"0.01", kLow},
                                                                      {"0.1", kLow},
                                                                      {"0.11", kUncertain},
                                                                      {"1", kUncertain},
                                                                      {"5", kUncertain},
                                                                      {"5.01", kHigh},
                                                                      {"50", kHigh},
                                                                      {"384", kHigh}}};

TEST_F(ConclusionsTest, TheVerdictOnTheProbabilityIsTheSameOnAllDays) {
    for (const ProbabilityVerdict& verdict : kProbabilityVerdicts) {
        for (int day = 1; day <= 3; ++day) {
            form.DiaActual = day;
            Cell3(7, kProb).Text = verdict.probability;
            form.Command8_Click();
            EXPECT_EQ(form.Text6.Text, verdict.sentence) << verdict.probability;
        }
    }
}

TEST_F(ConclusionsTest, TheVerdictGoesByTheNumberInHandAndNotByItsText) {
    // The sixteenth digit isn't in the cell's text, which reads 0.1.
    SetIndexes(1, "0.10000000000000001", "");
    form.Command8_Click();
    EXPECT_EQ(form.Text5.Text, kBelowTenth) << "that is the very number 0.1";
    SetIndexes(1, "0.1000000000000001", "");
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0.1");
    EXPECT_EQ(form.Text5.Text, kTwoDaysMore);
}

TEST_F(ConclusionsTest, AnEmptySheetIsClosedLikeAnyOther) {
    form.Command8_Click();
    EXPECT_EQ(form.Text2.Text, "0");
    EXPECT_EQ(form.Text4.Text, "0");
    EXPECT_EQ(form.Text5.Text, kBelowTenth);
    EXPECT_EQ(form.Text6.Text, kLow);
    EXPECT_EQ(form.Text7.Text, "");
    EXPECT_EQ(record.HojaPrimerDia(397), "0");
}

TEST_F(ConclusionsTest, ThePlanOfDaysIsNotLookedAt) {
    record.NumJornadas = 1;
    SetIndexes(1, ".5", "");
    form.Command8_Click();
    EXPECT_EQ(form.Text5.Text, kTwoDaysMore);
    record.NumJornadas = 0;
    form.DiaActual = 3;
    form.Command8_Click();
    EXPECT_EQ(form.Text5.Text, kPlanFinished);
    EXPECT_EQ(record.HojaTercerDia(397), "0.5");
}

// ------------------------------------------------------------------------------------- snapshot

class SnapshotTest : public ConclusionsTest, public ::testing::WithParamInterface<int> {
protected:
    DaySheet& Slot(int day) {
        return day == 1 ? record.HojaPrimerDia
                        : (day == 2 ? record.HojaSegundoDia : record.HojaTercerDia);
    }
};

INSTANTIATE_TEST_SUITE_P(Days, SnapshotTest, ::testing::Values(1, 2, 3),
                         [](const auto& tested) { return "Day" + Digits(tested.param); });

TEST_P(SnapshotTest, EachEntryHoldsTheTextOfItsCellAsItStood) {
    for (int i = 0; i < 324; ++i) form.Text1(i).Text = " t" + Digits(i) + " ";
    for (int i = 0; i < 72; ++i) form.Text3(i).Text = " r" + Digits(i) + " ";
    form.Text7.Text = "?";
    form.DiaActual = GetParam();
    const EvaluacionRecord before = record;
    form.Command8_Click();
    const DaySheet& slot = Slot(GetParam());
    for (int i = 0; i < 324; ++i) EXPECT_EQ(slot(i + 1), " t" + Digits(i) + " ");
    for (int i = 0; i < 72; ++i) EXPECT_EQ(slot(i + 325), " r" + Digits(i) + " ");
    EXPECT_EQ(slot(397), "0");
    EXPECT_EQ(slot(398), "0");
    EXPECT_EQ(slot(399), GetParam() == 3 ? kBelowLimit : kBelowTenth);
    EXPECT_EQ(slot(400), kLow);
    EXPECT_EQ(slot(401), "?");
    for (int day = 1; day <= 3; ++day) {
        if (day != GetParam()) {
            EXPECT_TRUE(Slot(day) == DaySheet{}) << day;
        }
    }
    EXPECT_TRUE(record.MG == before.MG && record.DatosEmpresa == before.DatosEmpresa);
}

TEST_P(SnapshotTest, ASecondPressOverwritesTheSlot) {
    form.DiaActual = GetParam();
    Cell(1, kC1).Text = "5";
    form.Command8_Click();
    ASSERT_EQ(Slot(GetParam())(kC1 + 1), "5");
    Cell(1, kC1).Text = "";
    form.Command8_Click();
    EXPECT_EQ(Slot(GetParam())(kC1 + 1), "");
}

TEST_P(SnapshotTest, RecuperaBringsBackWhatWasValidated) {
    SetPlan(3, 3, 2);
    form.intro(GetParam());
    SetIndexes(1, ".5", ".5");
    SetSamples(8, {"1", "2"});
    Cell3(14, kProb).Text = "50";
    form.Command8_Click();
    std::vector<std::string> texts;
    for (const TextCell& cell : form.Text1) texts.push_back(cell.Text);
    for (const TextCell& cell : form.Text3) texts.push_back(cell.Text);
    form.limpia(1);
    form.recupera(GetParam());
    std::vector<std::string> again;
    for (const TextCell& cell : form.Text1) again.push_back(cell.Text);
    for (const TextCell& cell : form.Text3) again.push_back(cell.Text);
    EXPECT_EQ(again, texts);
    EXPECT_EQ(form.Text2.Text, "0.5");
    EXPECT_EQ(form.Text6.Text, kHigh);
}

// ---------------------------------------------------------------------------------- final table

TEST_P(SnapshotTest, TheIndexesAndProbabilitiesGoToTheColumnsOfTheDay) {
    form.DiaActual = GetParam();
    for (int row = 1; row <= 18; ++row) {
        SetIndexes(row, "99", "." + Digits(row + 10));
        Cell3(row, kProb).Text = Digits(row) + ".0";
    }
    form.Command8_Click();
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) {
            std::string expected;
            if (column == GetParam() + 2) expected = "0." + Digits(row + 10);
            if (column == GetParam() + 6) expected = Digits(row);
            if (expected == "0.20") expected = "0.2";
            EXPECT_EQ(record.HojaFinal(row, column), expected) << row << ", " << column;
        }
    }
}

TEST_P(SnapshotTest, AnEmptyCellLeavesItsElementOfTheTable) {
    form.DiaActual = GetParam();
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) record.HojaFinal(row, column) = "antes";
    }
    SetIndexes(2, ".5", "");
    SetIndexes(3, "", ".");
    Cell3(4, kProb).Text = " ";
    form.Command8_Click();
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) {
            const bool index = row == 3 && column == GetParam() + 2;
            const bool probability = row == 4 && column == GetParam() + 6;
            EXPECT_EQ(record.HojaFinal(row, column), index || probability ? "0" : "antes")
                << row << ", " << column;
        }
    }
    EXPECT_EQ(form.Text2.Text, "0.5") << "the index alone counts on the sheet";
}

// --------------------------------------------------------------------------- the press as a whole

TEST_F(ConclusionsTest, WithoutADayTheAnswersAreWrittenAndNothingElse) {
    for (const int day : {0, 4, -1}) {
        form.DiaActual = day;
        form.Text5.Text = "antes";
        form.Text6.Text = "antes";
        form.Text7.Text = "";
        SetIndexes(1, "", ".5");
        Cell3(1, kProb).Text = "50";
        SetLimits(1, "30", "10", "");
        form.Command8_Click();
        EXPECT_EQ(form.Text2.Text, "0.5");
        EXPECT_EQ(form.Text4.Text, "50");
        EXPECT_EQ(form.Text7.Text, "NO");
        EXPECT_EQ(form.Text5.Text, "antes");
        EXPECT_EQ(form.Text6.Text, "antes");
        EXPECT_TRUE(record == EvaluacionRecord{}) << day;
    }
}

TEST_F(ConclusionsTest, TouchesTheFiveAnswersAndTheMarkAndNothingElseOfTheSheet) {
    SetIndexes(1, ".5", "");
    SetLimits(1, "30", "1", "");
    SetSamples(1, {"3"});
    const auto before = StateOf(form);
    form.Command8_Click();
    EXPECT_THAT(Changed(before, form),
                UnorderedElementsAre("Text2", "Text4", "Text5", "Text6", "Text7", Name(1, kC1)));
}

TEST_F(ConclusionsTest, AnIndexTooLargeForADoubleEndsTheProgramWithNothingWritten) {
    SetIndexes(1, "1E+999", "");
    const auto before = StateOf(form);
    ExpectError(ErrorKind::Overflow, [&] { form.Command8_Click(); });
    EXPECT_THAT(Changed(before, form), IsEmpty());
    EXPECT_TRUE(record == EvaluacionRecord{});
}

// ------------------------------------------------------------------------------------- the comma

TEST_F(ConclusionsTest, UnderACommaAnIndexOfAHalfReadsAsNothing) {
    const WithSeparator comma(",");
    Conclude(",5", "0,5", "0,1");
    EXPECT_EQ(form.Text2.Text, "0");
    EXPECT_EQ(form.Text5.Text, kBelowTenth);
    EXPECT_EQ(record.HojaFinal(1, 3), "0");
    EXPECT_EQ(record.HojaFinal(1, 7), "0");
    EXPECT_EQ(record.HojaPrimerDia(Index(1, kIndex) + 1), ",5") << "as it stood";
}

TEST_F(ConclusionsTest, UnderACommaTheAnswersAreWrittenWithIt) {
    const WithSeparator comma(",");
    Conclude("0.5", "", "0.25");
    EXPECT_EQ(form.Text2.Text, "0,5");
    EXPECT_EQ(form.Text4.Text, "0,25");
    EXPECT_EQ(form.Text5.Text, kTwoDaysMore);
    EXPECT_EQ(record.HojaFinal(1, 7), "0,25");
}

// ------------------------------------------------------------------------- a routine that is kept

TEST_F(ConclusionsTest, IndiceFinal_CopiesTheIndexOfEachRowWhoseGroupIsItsNumberLessOne) {
    for (int row = 1; row <= 18; ++row) SetIndexes(row, "." + Digits(row), "9");
    Cell(1, kAdditive).Text = "0";
    Cell(2, kAdditive).Text = "1";
    Cell(3, kAdditive).Text = "3";
    Cell(9, kAdditive).Text = "8.0";
    form.IndiceFinal(4);
    EvaluacionRecord expected;
    expected.HojaFinal(5, 1) = "0.1";
    expected.HojaFinal(5, 2) = "0.2";
    expected.HojaFinal(5, 9) = "0.9";
    EXPECT_TRUE(record == expected);
}

TEST_F(ConclusionsTest, IndiceFinal_AnEmptyGroupReadsAsTheFirstRowsNumber) {
    form.IndiceFinal(0);
    EXPECT_EQ(record.HojaFinal(1, 1), "0");
}

TEST_F(ConclusionsTest, IndiceFinal_TheSecondSubscriptReachesNineOnly) {
    Cell(10, kAdditive).Text = "9";
    SetIndexes(1, ".5", "");
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.IndiceFinal(2); });
    EXPECT_EQ(record.HojaFinal(3, 1), "0.5") << "the rows before it are written";
}

TEST_F(ConclusionsTest, IndiceFinal_EachRowBehindTheNinthIsLookedAtAndFails) {
    for (int row = 10; row <= 18; ++row) {
        form.limpia(1);
        Cell(row, kAdditive).Text = Digits(row - 1);
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.IndiceFinal(2); });
    }
}

TEST_F(ConclusionsTest, IndiceFinal_TheFirstSubscriptReaches18Only) {
    form.IndiceFinal(17);
    EXPECT_EQ(record.HojaFinal(18, 1), "0");
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.IndiceFinal(18); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.IndiceFinal(-1); });
}

TEST_F(ConclusionsTest, IndiceFinal_WithNoMatchDoesNothing) {
    Cell(1, kAdditive).Text = "1";
    form.IndiceFinal(30);
    EXPECT_TRUE(record == EvaluacionRecord{});
}

}  // namespace
}  // namespace velmora::test
