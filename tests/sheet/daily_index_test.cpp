#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/sheet_test.h"

namespace velmora::test {
namespace {

class DailyIndexTest : public DayTest {
protected:
    /// The group and the index of a row, as texts.
    void SetRow(int row, std::string_view group, std::string_view index) {
        Cell(row, kAdditive).Text = group;
        Cell(row, kIndex).Text = index;
    }

    std::string CombinedIndex(int row) { return Cell(row, kCombinedIndex).Text; }

    /// The texts of the column Indic.+ from the first row to this one.
    std::vector<std::string> CombinedTo(int last) {
        std::vector<std::string> texts;
        for (int row = 1; row <= last; ++row) texts.push_back(CombinedIndex(row));
        return texts;
    }

    /// What the button makes of the group and the index of the first rows.
    std::vector<std::string> CombinedOf(
        const std::vector<std::pair<std::string_view, std::string_view>>& rows) {
        for (int row = 1; const auto& [group, index] : rows) SetRow(row++, group, index);
        form.Command4_Click();
        return CombinedTo(static_cast<int>(rows.size()));
    }

    /// The same of the groups and indices of rows that are told by their numbers.
    struct NumberedRow {
        int row;
        std::string_view group;
        std::string_view index;
    };
    std::vector<std::string> CombinedAt(const std::vector<NumberedRow>& rows) {
        for (const NumberedRow& r : rows) SetRow(r.row, r.group, r.index);
        form.Command4_Click();
        std::vector<std::string> texts;
        texts.reserve(rows.size());
        for (const NumberedRow& r : rows) texts.push_back(CombinedIndex(r.row));
        return texts;
    }
};

// ------------------------------------------------------------------------------ without a group

TEST_F(DailyIndexTest, WithoutGroupsEachRowShowsItsIndexAsItStands) {
    for (int row = 1; row <= 18; ++row) SetRow(row, "0", "." + Digits(row));
    form.Command4_Click();
    for (int row = 1; row <= 18; ++row) EXPECT_EQ(CombinedIndex(row), "." + Digits(row));
}

TEST_F(DailyIndexTest, TheIndexIsCopiedWithoutAConversion) {
    EXPECT_THAT(CombinedOf({{"0", "1.20"}, {"", "."}, {"x", "4. y"}, {".", ""}}),
                ElementsAre("1.20", ".", "4. y", ""));
}

TEST_F(DailyIndexTest, IndexesWithoutAGroupAreNeverSummed) {
    SetRow(1, "0", "1E+308");
    SetRow(2, "0", "1E+308");  // together too large for a Double
    form.Command4_Click();
    EXPECT_THAT(CombinedTo(3), ElementsAre("1E+308", "1E+308", ""));
}

TEST_F(DailyIndexTest, OldTextsOfTheColumnAreCleared) {
    for (int row = 1; row <= 18; ++row) {
        SetRow(row, "30", "1.");  // a group that no later step writes
        Cell(row, kCombinedIndex).Text = "9";
    }
    form.Command4_Click();
    for (int row = 1; row <= 18; ++row) EXPECT_EQ(CombinedIndex(row), "") << row;
}

// -------------------------------------------------------------------------------------- groups

TEST_F(DailyIndexTest, AGroupOfOneEndsEmpty) {
    SetRow(2, "2", ".45");
    form.Command4_Click();
    EXPECT_EQ(CombinedIndex(2), "");
}

TEST_F(DailyIndexTest, AGroupWhoseOtherMembersHaveNoIndexIsEmptiedAndSpreadsAZero) {
    SetRow(1, "1", ".5");
    SetRow(3, "1", "0");
    form.Command4_Click();
    EXPECT_THAT(CombinedTo(3), ElementsAre("", "", "0"));
}

struct GroupCase {
    const char* what;
    std::vector<std::pair<std::string_view, std::string_view>> rows;  ///< group and index
    std::vector<std::string> sums;
};

const std::vector<GroupCase> kGroupCases = {
    {"a group numbered as its first row spreads its sum",
     {{"1", ".45"}, {"0", "1.2"}, {"1", ".3"}, {"", ""}},
     {"0.75", "1.2", "0.75", ""}},
    {"a group numbered otherwise keeps its sum on its first row",
     {{"5", ".45"}, {"0", "1.2"}, {"5", ".3"}, {"", ""}},
     {"0.75", "1.2", "", ""}},
    {"a group whose first member has no index keeps the sum of the others",
     {{"1", "."}, {"1", ".2"}, {"1", ".3"}},
     {"0.5", "0.5", "0.5"}},
    {"19 and 20 keep their sums and never spread them",
     {{"19", ".4"}, {"20", ".1"}, {"19", ".4"}, {"20", ".2"}},
     {"0.8", "0.3", "", ""}},
    {"a group above 20 is left empty", {{"21", ".4"}, {"21", ".1"}}, {"", ""}},
    {"a number that is not whole is no group and no absence of one",
     {{"1.5", ".4"}, {"1.5", ".1"}, {"0.5", ".1"}},
     {"", "", ""}},
    {"group numbers are compared as numbers",
     {{"1", ".4"}, {"1.0", ".1"}, {"01 ", ".2"}},
     {"0.7", "0.7", "0.7"}},
    {"several groups are kept apart",
     {{"1", ".1"}, {"2", "1."}, {"1", ".2"}, {"2", "2."}},
     {"0.3", "3", "0.3", "3"}},
};

TEST_F(DailyIndexTest, TheSumOfAGroupStandsAtItsFirstMemberAndIsSpread) {
    for (const GroupCase& group : kGroupCases) {
        SCOPED_TRACE(group.what);
        form.limpia(1);
        EXPECT_EQ(CombinedOf(group.rows), group.sums);
    }
}

TEST_F(DailyIndexTest, AGroupRunsAcrossTheThreeTasks) {
    EXPECT_THAT(CombinedAt({{1, "1", ".1"}, {7, "1", ".2"}, {18, "1", ".4"}}),
                ElementsAre("0.7", "0.7", "0.7"));
}

TEST_F(DailyIndexTest, EachNumberUpTo20IsSummedAndNoHigherOne) {
    for (int k = 1; k <= 22; ++k) {
        form.limpia(1);
        SetRow(16, Digits(k), ".4");
        SetRow(17, Digits(k), ".5");
        form.Command4_Click();
        EXPECT_EQ(CombinedIndex(16), k <= 20 ? "0.9" : "") << k;
        EXPECT_EQ(CombinedIndex(17), k == 16 ? "0.9" : "") << k;  // spread from its own row alone
    }
}

TEST_F(DailyIndexTest, AMemberWithTheGroupsNumberBehindTheFirstSpreadsItsOwnEmptyCell) {
    // Group 5 stands on rows 2, 5 and 8: row 5 bears its own number, but the sum is on row 2.
    EXPECT_THAT(CombinedAt({{2, "5", ".4"}, {5, "5", ".1"}, {8, "5", ".2"}}),
                ElementsAre("0.7", "", "0"));
}

TEST_F(DailyIndexTest, TheRunningSumLivesInTheCellAsTextOfFifteenDigits) {
    // 1E+14 + 0.4 is written 100000000000000, twice: the sum equals the first row's index. Added
    // without the text in between it would come to 100000000000001.
    SetRow(1, "1", "100000000000000");
    SetRow(2, "1", ".4");
    SetRow(3, "1", ".4");
    form.Command4_Click();
    EXPECT_EQ(CombinedIndex(1), "");
    EXPECT_EQ(CombinedIndex(3), "0");
}

TEST_F(DailyIndexTest, SumsAreWrittenWithoutRoundingToTwoDecimals) {
    SetRow(1, "1", "0.123");
    SetRow(2, "1", "0.0004");
    form.Command4_Click();
    EXPECT_EQ(CombinedIndex(1), "0.1234");
}

// ------------------------------------------------------------- C2 and C3 of the sheet's first row

TEST_F(DailyIndexTest, TwoEqualSamplesInTheFirstRowsC2AndC3LoseTheSecond) {
    SetSamples(1, {"2", "3", "3", "5"});
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 1).Text, "3");
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
    EXPECT_EQ(Cell(1, kC1 + 3).Text, "5");
}

TEST_F(DailyIndexTest, EqualMeansEqualAsNumbers) {
    SetSamples(1, {"2", "3", "3.0"});
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
    SetSamples(1, {"2", "", "0"});
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
}

TEST_F(DailyIndexTest, TwoDifferentSamplesThereStay) {
    SetSamples(1, {"3", "3", "4", "4"});
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 1).Text, "3");
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "4");
}

TEST_F(DailyIndexTest, TwoEmptyCellsThereStayEmpty) {
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 1).Text, "");
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
}

TEST_F(DailyIndexTest, EqualSamplesOfTheOtherRowsStay) {
    for (int row = 2; row <= 18; ++row) SetSamples(row, {"3", "3", "3", "3", "3", "3"});
    const auto before = StateOf(form);
    form.Command4_Click();
    for (const std::string& name : Changed(before, form)) {
        for (int row = 2; row <= 18; ++row) {
            for (int column = kC1; column <= kC6; ++column) EXPECT_NE(name, Name(row, column));
        }
    }
}

TEST_F(DailyIndexTest, TheSampleIsLostEvenIfEveryRowHasAGroupOfItsOwn) {
    for (int row = 1; row <= 18; ++row) SetRow(row, Digits(row), ".1");
    SetSamples(1, {"2", "3", "3"});  // the numbers 19 and 20 are matched by no row
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
}

TEST_F(DailyIndexTest, ALaterValidationSeesTheChangedRow) {
    SetPlan(1, 1, 1);
    record.VlaEd(1, 1) = 8;
    Choose("introprimero");
    SetSamples(1, {"2", "8", "8"});
    form.Command1_Click();
    const std::string mmp = Cell(1, kMmp).Text;
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kMmp).Text, mmp) << "what was computed stays";
    form.Command1_Click();
    EXPECT_EQ(Cell(1, kMmp).Text, "4.") << "the mean of 2 and 8";
    EXPECT_NE(mmp, "4.");
}

// ---------------------------------------------------------------------------------- MG and GSD

TEST_F(DailyIndexTest, All18RowsShowTheMeanAndDeviationThatTheRecordHoldsForTheDay) {
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) {
            for (int c = 1; c <= 6; ++c) {
                record.MG(day, task, c) = 100 * day + 10 * task + c + 0.126;
                record.GSD(day, task, c) = 100 * day + 10 * task + c + 0.5;
            }
        }
    }
    for (int day = 1; day <= 3; ++day) {
        form.DiaActual = day;
        form.Command4_Click();
        for (int row = 1; row <= 18; ++row) {
            const int n = 100 * day + 10 * ((row - 1) / 6 + 1) + (row - 1) % 6 + 1;
            EXPECT_EQ(Cell(row, kMg).Text, Digits(n) + ".13");
            EXPECT_EQ(Cell(row, kGsd).Text, Digits(n) + ".5");
        }
    }
}

TEST_F(DailyIndexTest, AfterARestoreTheShownFiguresGiveWayToTheZerosOfTheRecord) {
    SetPlan(1, 1, 1);
    record.HojaPrimerDia(Index(1, kMg) + 1) = "117.11";
    record.HojaPrimerDia(Index(1, kGsd) + 1) = "1.21";
    Choose("recupprimerdia");
    ASSERT_EQ(Cell(1, kMg).Text, "117.11");
    form.Command4_Click();
    for (int row = 1; row <= 18; ++row) {
        EXPECT_EQ(Cell(row, kMg).Text, ".");
        EXPECT_EQ(Cell(row, kGsd).Text, ".");
    }
}

// --------------------------------------------------------------------------- the press as a whole

TEST_F(DailyIndexTest, OpensCommand5AndTouchesNothingElseThanItsThreeColumns) {
    SetRow(1, "0", ".5");
    SetSamples(1, {"2", "3", "4"});
    const auto before = StateOf(form);
    const EvaluacionRecord record_before = record;
    form.Command4_Click();
    std::vector<std::string> expected = {Name(1, kCombinedIndex), "Command5"};
    for (int row = 1; row <= 18; ++row) {
        expected.push_back(Name(row, kMg));
        expected.push_back(Name(row, kGsd));
    }
    EXPECT_THAT(Changed(before, form), ::testing::UnorderedElementsAreArray(expected));
    EXPECT_TRUE(form.Command5.Visible);
    EXPECT_TRUE(form.Command5.Enabled);
    EXPECT_TRUE(record == record_before);
}

TEST_F(DailyIndexTest, ASecondPressComesToTheSame) {
    SetRow(1, "1", ".45");
    SetRow(2, "0", "1.2");
    SetRow(3, "1", ".3");
    SetSamples(1, {"2", "3", "3"});
    form.Command4_Click();
    const auto after_first = StateOf(form);
    form.Command4_Click();
    EXPECT_THAT(Changed(after_first, form), IsEmpty());
}

TEST_F(DailyIndexTest, ASecondPressFollowsChangedGroups) {
    SetRow(1, "1", ".45");
    SetRow(3, "1", ".3");
    form.Command4_Click();
    SetRow(3, "0", ".3");
    form.Command4_Click();
    EXPECT_THAT(CombinedTo(3), ElementsAre("", "", ".3"));
}

// -------------------------------------------------------------------------------- run-time errors

TEST_F(DailyIndexTest, ASumTooLargeEndsTheProgramWithTheColumnsBehindItUntouched) {
    Cell(1, kCombinedIndex).Text = "9";
    SetRow(1, "0", ".5");
    SetRow(2, "1", "1E+308");
    SetRow(3, "1", "1E+308");
    ExpectError(ErrorKind::Overflow, [&] { form.Command4_Click(); });
    EXPECT_EQ(CombinedIndex(1), "") << "cleared, not copied yet";
    EXPECT_EQ(CombinedIndex(2), "1E+308");
    EXPECT_EQ(Cell(1, kMg).Text, "");
    EXPECT_FALSE(form.Command5.Visible || form.Command5.Enabled);
}

TEST_F(DailyIndexTest, ADayOutsideTheRecordEndsTheProgramWithTheSumsWritten) {
    for (const int day : {0, 4}) {
        form.limpia(1);
        form.DiaActual = day;
        SetRow(1, "1", ".5");
        SetRow(2, "1", ".25");
        SetRow(3, "0", ".1");
        SetSamples(1, {"2", "3", "3"});
        ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form.Command4_Click(); });
        EXPECT_THAT(CombinedTo(3), ElementsAre("0.75", "", ""));
        EXPECT_EQ(Cell(1, kC1 + 2).Text, "");
        EXPECT_EQ(Cell(1, kMg).Text, "");
        EXPECT_FALSE(form.Command5.Visible);
    }
}

// ------------------------------------------------------------------------------------- the comma

TEST_F(DailyIndexTest, UnderACommaTheIndexesEnterTheSumsCutAtIt) {
    const WithSeparator comma(",");
    EXPECT_THAT(CombinedOf({{"1", "1,23"}, {"1", ",45"}, {"1", "2,9"}, {"0", "1,23"}}),
                ElementsAre("3", "3", "3", "1,23"));
}

TEST_F(DailyIndexTest, UnderACommaAGroupOfFractionsAddsUpToNothing) {
    const WithSeparator comma(",");
    EXPECT_THAT(CombinedOf({{"1", ",45"}, {"1", ",45"}}), ElementsAre("", "0"));
}

TEST_F(DailyIndexTest, UnderACommaARunningSumIsReadBackCut) {
    const WithSeparator comma(",");
    // Worked by hand: 0 + 1.5 is 1,5, read back as 1; 1 + 1.5 is 2,5, which spreads as 2.
    EXPECT_THAT(CombinedOf({{"1", "1.5"}, {"1", "1.5"}}), ElementsAre("2,5", "2"));
}

TEST_F(DailyIndexTest, UnderACommaTheColumnsAreWrittenWithIt) {
    const WithSeparator comma(",");
    record.MG(1, 1, 1) = 0.5;
    form.Command4_Click();
    EXPECT_EQ(Cell(1, kMg).Text, ",5");
    EXPECT_EQ(Cell(2, kGsd).Text, ",");
}

}  // namespace
}  // namespace velmora::test
