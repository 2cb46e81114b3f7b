#include "final/form6.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "store/evaluation_file.h"
#include "store/path.h"
#include "support/files.h"
#include "support/messages.h"
#include "support/sheet_test.h"
#include "support/velmora_test.h"

namespace velmora::test {
namespace {

namespace fs = std::filesystem;

constexpr int kCells = 162;

/// Columns of the table.
enum : int { kI1 = 3, kI2, kI3, kIG, kP1 };

class Form6Test : public VelmoraTest {
protected:
    Form6Test() {
        record.NumJornadas = 3;
        record.NumTareas = 3;
        for (int task = 1; task <= 3; ++task) record.NumContaminantes(task) = 6;
    }

    Form6& Screen6() { return Open<Form6>(ScreenId::Form6); }

    void SetIndices(int row, std::string i1, std::string i2, std::string i3) {
        record.HojaFinal(row, kI1) = std::move(i1);
        record.HojaFinal(row, kI2) = std::move(i2);
        record.HojaFinal(row, kI3) = std::move(i3);
    }

    /// The cell of a row (1 to 18) and a column (1 to 9).
    static TextCell& Cell(Form6& form6, int row, int column) {
        return form6.Text1((row - 1) * 9 + column - 1);
    }

    /// Text of the IG cell of the first row after one press, with these three indices.
    std::string OverallIndexOf(std::string i1, std::string i2, std::string i3) {
        SetIndices(1, std::move(i1), std::move(i2), std::move(i3));
        Form6& form6 = Screen6();
        form6.Command1_Click();
        return Cell(form6, 1, kIG).Text;
    }

    static std::vector<int> VisibleCells(Form6& form6) {
        std::vector<int> visible;
        for (int i = 0; i < kCells; ++i) {
            if (form6.Text1(i).Visible) visible.push_back(i);
        }
        return visible;
    }

    /// The cells that the button shows of a single task of so many contaminants.
    std::vector<int> CellsOfATaskOf(int contaminants) {
        record.NumTareas = 1;
        record.NumContaminantes(1) = contaminants;
        Form6& form6 = Screen6();
        form6.Command1_Click();
        return VisibleCells(form6);
    }

    static std::vector<int> Range(int first, int last) {
        std::vector<int> range;
        for (int i = first; i <= last; ++i) range.push_back(i);
        return range;
    }
};

// On loading

TEST_F(Form6Test, LoadHidesTheTableItsHeadingsAndTheLabelsOfTheBlocks) {
    Form6& form6 = Screen6();
    for (int i = 0; i < kCells; ++i) EXPECT_FALSE(form6.Text1(i).Visible) << i;
    for (int i = 0; i <= 8; ++i) EXPECT_FALSE(form6.Label4(i).Visible) << i;
    EXPECT_FALSE(form6.Label3.Visible);
    EXPECT_FALSE(form6.Label5.Visible);
    EXPECT_FALSE(form6.Label6.Visible);
}

TEST_F(Form6Test, LoadLeavesTheButtonAndTheClockInSight) {
    Form6& form6 = Screen6();
    EXPECT_TRUE(form6.Command1.Visible);
    EXPECT_TRUE(form6.Command1.Enabled);
    EXPECT_TRUE(form6.Label2.Visible);
}

TEST_F(Form6Test, LoadReadsNothingFromTheRecord) {
    for (auto& row : record.HojaFinal) std::ranges::fill(row, "x");
    const EvaluacionRecord before = record;
    Form6& form6 = Screen6();
    for (int row = 1; row <= 18; ++row) {
        for (int column = 2; column <= 9; ++column) EXPECT_EQ(Cell(form6, row, column).Text, "");
    }
    EXPECT_EQ(record, before);
}

TEST_F(Form6Test, TheFirstColumnCountsOneToSixInEachBlockFromTheStart) {
    Form6& form6 = Screen6();
    std::string numbers;
    for (int i = 0; i <= 153; i += 9) numbers += form6.Text1(i).Text;
    EXPECT_EQ(numbers, "123456123456123456");
}

TEST_F(Form6Test, TheButtonTheHeadingsAndTheBlocksBearTheirTexts) {
    Form6& form6 = Screen6();
    EXPECT_EQ(form6.Command1.Caption, "RESULTADOS FINALES :    VALIDAR");
    const std::array<std::string_view, 9> headings = {
        "Nº", "Nombre del contaminante", "I1", "I2", "I3", "IG", "P1", "P2", "P3"};
    for (int i = 0; i <= 8; ++i) {
        EXPECT_EQ(form6.Label4(i).Caption, headings.at(static_cast<std::size_t>(i)));
    }
    EXPECT_EQ(form6.Label3.Caption, "Primera Jornada");
    EXPECT_EQ(form6.Label5.Caption, "Segunda  Jornada");
    EXPECT_EQ(form6.Label6.Caption, "Tercera  Jornada");
}

// Command1: IG. Figures from Python's decimal module, 40 digits, cut to fifteen.

TEST_F(Form6Test, Command1_GivesTheGeometricMeanOfTheThreeDays) {
    EXPECT_EQ(OverallIndexOf("0.2", "0.4", "0.8"), "0.4");
    EXPECT_EQ(OverallIndexOf("1", "2", "3"), "1.81712059283214");
    EXPECT_EQ(OverallIndexOf("0.61", "0.5", "0.7"), "0.597676196701383");
    EXPECT_EQ(OverallIndexOf("0.19", "0.25", "0.3"), "0.242440379291994");
    EXPECT_EQ(OverallIndexOf("1.25", "3", "0.001"), "0.155361625297693");
    EXPECT_EQ(OverallIndexOf("100", "200", "400"), "200");
}

// Python, '%.15g' of math.pow((u * v) * w, 1 / 3): any other pairing of the factors gives another
// last digit.
TEST_F(Form6Test, Command1_MultipliesTheFirstTwoDaysFirst) {
    EXPECT_EQ(OverallIndexOf("0.16", "0.96", "0.66"), "0.466278134660116");
    EXPECT_EQ(OverallIndexOf("1.8", "0.64", "0.21"), "0.623099292222133");
    EXPECT_EQ(OverallIndexOf("0.87", "1.06", "0.73"), "0.876427493021296");
}

TEST_F(Form6Test, Command1_StoresTheOverallIndexInTheRecordAndNothingElse) {
    SetIndices(1, "0.2", "0.4", "0.8");
    SetIndices(18, "1", "2", "3");
    EvaluacionRecord expected = record;
    expected.HojaFinal(1, kIG) = "0.4";
    expected.HojaFinal(18, kIG) = "1.81712059283214";
    Screen6().Command1_Click();
    EXPECT_EQ(record, expected);
}

TEST_F(Form6Test, Command1_OneDayOnlySkipsTheRow) {
    EXPECT_EQ(OverallIndexOf("0.2", "", ""), "----");
    EXPECT_EQ(record.HojaFinal(1, kIG), "");
}

TEST_F(Form6Test, Command1_TwoDaysOfThreeGiveZero) {
    EXPECT_EQ(OverallIndexOf("0.2", "0.4", ""), "0");
    EXPECT_EQ(record.HojaFinal(1, kIG), "0");
}

TEST_F(Form6Test, Command1_AThirdDayOfZeroGivesZeroToo) {
    EXPECT_EQ(OverallIndexOf("0.2", "0.4", "0"), "0");
}

TEST_F(Form6Test, Command1_WithoutTheFirstDaySkipsTheRow) {
    EXPECT_EQ(OverallIndexOf("", "0.4", "0.8"), "----");
    EXPECT_EQ(record.HojaFinal(1, kIG), "");
}

TEST_F(Form6Test, Command1_ASecondDayOfZeroSkipsTheRow) {
    EXPECT_EQ(OverallIndexOf("0.2", "0", "0.5"), "----");
}

TEST_F(Form6Test, Command1_AFirstDayOfZeroSkipsTheRow) {
    EXPECT_EQ(OverallIndexOf("0", "0.4", "0.5"), "----");
    EXPECT_EQ(OverallIndexOf(".", "0.4", "0.5"), "----");
}

TEST_F(Form6Test, Command1_ReadsTheIndicesByTheirLeadingNumber) {
    EXPECT_EQ(OverallIndexOf("1 mg", "2.0.5", "3x"), "1.81712059283214");
    EXPECT_EQ(OverallIndexOf(" 1", "2", "3"), "----");
}

TEST_F(Form6Test, Command1_ComputesEachOfTheEighteenRowsWhateverThePlan) {
    record.NumTareas = 1;
    for (int row = 1; row <= 18; ++row) SetIndices(row, TextoEntero(row), "1", "1");
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "1");
    EXPECT_EQ(Cell(form6, 8, kIG).Text, "2");
    for (int row = 1; row <= 18; ++row) {
        EXPECT_EQ(Cell(form6, row, kIG).Text, record.HojaFinal(row, kIG));
        // The cube gives the row's number back.
        const Doble mean = LeerValor(record.HojaFinal(row, kIG));
        EXPECT_NEAR((mean * mean * mean).Value(), row, 1e-12);
    }
}

TEST_F(Form6Test, Command1_WithACommaSeparatorAHalfReadsAsZeroAndSkipsTheRow) {
    const WithSeparator comma(",");
    EXPECT_EQ(OverallIndexOf("0,5", "0,5", "0,5"), "----");
    EXPECT_EQ(OverallIndexOf("2", "0,5", "2"), "----");
}

TEST_F(Form6Test, Command1_WithACommaSeparatorNumbersAreCutAtItAndIgIsWrittenWithIt) {
    const WithSeparator comma(",");
    EXPECT_EQ(OverallIndexOf("1,9", "2,9", "3,9"), "1,81712059283214");  // read as 1, 2 and 3
}

TEST_F(Form6Test, Command1_ANegativeProductIsAnArithmeticError) {
    SetIndices(1, "1", "2", "3");
    SetIndices(2, "-1", "2", "3");
    SetIndices(3, "1", "2", "3");
    Form6& form6 = Screen6();
    ExpectError(ErrorKind::InvalidOperation, [&] { form6.Command1_Click(); });
    EXPECT_EQ(record.HojaFinal(1, kIG), "1.81712059283214");
    EXPECT_EQ(record.HojaFinal(2, kIG), "");
    EXPECT_EQ(record.HojaFinal(3, kIG), "");
    EXPECT_EQ(VisibleCells(form6), std::vector<int>{});
}

// The whole table is copied before the first index is computed, and each index is shown as it is
// stored; what comes after isn't reached.
TEST_F(Form6Test, Command1_AnErrorInARowFindsTheTableCopiedAndTheIndicesUpToItShown) {
    for (int row = 1; row <= 18; ++row) {
        SetIndices(row, "1", "2", "3");
        record.HojaFinal(row, kP1) = "5";
    }
    SetIndices(2, "-1", "2", "3");
    Form6& form6 = Screen6();
    ExpectError(ErrorKind::InvalidOperation, [&] { form6.Command1_Click(); });
    for (const int row : {1, 2, 3, 18}) {
        EXPECT_EQ(Cell(form6, row, kI1).Text, row == 2 ? "-1" : "1") << row;
        EXPECT_EQ(Cell(form6, row, kP1).Text, "5") << row;
        EXPECT_EQ(Cell(form6, row, kIG).Text, row == 1 ? "1.81712059283214" : "") << row;
    }
    EXPECT_EQ(Cell(form6, 1, 2).Text, "") << "no dashes yet for the missing name";
    EXPECT_TRUE(form6.Label3.Visible && form6.Label6.Visible) << "the headings come first";
}

TEST_F(Form6Test, Command1_AProductTooLargeOverflows) {
    SetIndices(1, "1E+200", "1E+200", "1");
    Form6& form6 = Screen6();
    ExpectError(ErrorKind::Overflow, [&] { form6.Command1_Click(); });
}

TEST_F(Form6Test, Command1_TheThirdDayIsReadOnlyWhereTheFirstTwoAreThere) {
    SetIndices(1, "1", "", "1E+999");  // a number too large to be read
    Form6& form6 = Screen6();
    EXPECT_NO_THROW(form6.Command1_Click());
    record.HojaFinal(1, kI2) = "1";
    ExpectError(ErrorKind::Overflow, [&] { form6.Command1_Click(); });
}

// Command1: the copy

TEST_F(Form6Test, Command1_CopiesSevenColumnsAsTextAndNeitherTheNumberNorIg) {
    for (int row = 1; row <= 18; ++row) {
        for (int column = 1; column <= 9; ++column) {
            record.HojaFinal(row, column) = "f" + TextoEntero(row) + "," + TextoEntero(column);
        }
    }
    Form6& form6 = Screen6();
    form6.Command1_Click();
    for (int row = 1; row <= 18; ++row) {
        EXPECT_EQ(Cell(form6, row, 1).Text, TextoEntero((row - 1) % 6 + 1));
        EXPECT_EQ(Cell(form6, row, kIG).Text, "----");
        for (const int column : {2, 3, 4, 5, 7, 8, 9}) {
            EXPECT_EQ(Cell(form6, row, column).Text, record.HojaFinal(row, column));
        }
    }
}

TEST_F(Form6Test, Command1_ShowsTextAsItStands) {
    record.HojaFinal(2, 2) = "  Tolueno  ";
    record.HojaFinal(2, kI1) = "0,61";
    record.HojaFinal(2, kP1) = "1E-05";
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 2, 2).Text, "  Tolueno  ");
    EXPECT_EQ(Cell(form6, 2, kI1).Text, "0,61");
    EXPECT_EQ(Cell(form6, 2, kP1).Text, "1E-05");
}

TEST_F(Form6Test, Command1_AnEmptyProbabilityShowsDashes) {
    record.HojaFinal(1, 2) = "Tolueno";
    record.HojaFinal(1, kP1) = "0.001";
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kP1).Text, "0.001");
    EXPECT_EQ(Cell(form6, 1, kP1 + 1).Text, "----");
    EXPECT_EQ(Cell(form6, 1, kP1 + 2).Text, "----");
}

TEST_F(Form6Test, Command1_DashesGoToTheScreenOnly) {
    Screen6().Command1_Click();
    EXPECT_EQ(record.HojaFinal, EvaluacionRecord{}.HojaFinal);
}

// Command1: what is shown

TEST_F(Form6Test, Command1_ShowsTheNineHeadingsEvenWithoutAPlan) {
    record.NumTareas = 0;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    for (int i = 0; i <= 8; ++i) EXPECT_TRUE(form6.Label4(i).Visible) << i;
    EXPECT_FALSE(form6.Label3.Visible);
    EXPECT_EQ(VisibleCells(form6), std::vector<int>{});
}

TEST_F(Form6Test, Command1_ATaskWithTwoContaminantsShowsTheFirst18CellsOfItsBlock) {
    EXPECT_EQ(CellsOfATaskOf(2), Range(0, 17));
    auto& form6 = Current<Form6>();
    for (int row = 3; row <= 6; ++row) {
        for (int column = 2; column <= 9; ++column) {
            EXPECT_EQ(Cell(form6, row, column).Text, "----") << row << ", " << column;
        }
    }
}

TEST_F(Form6Test, Command1_OneTaskShowsTheFirstBlockAndItsLabel) {
    record.NumTareas = 1;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_TRUE(form6.Label3.Visible);
    EXPECT_FALSE(form6.Label5.Visible);
    EXPECT_FALSE(form6.Label6.Visible);
    EXPECT_EQ(VisibleCells(form6), Range(0, 53));
}

TEST_F(Form6Test, Command1_TwoTasksHideTheThirdBlockWhateverTheTableHolds) {
    record.NumTareas = 2;
    for (auto& row : record.HojaFinal) std::ranges::fill(row, "7");
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_TRUE(form6.Label5.Visible);
    EXPECT_FALSE(form6.Label6.Visible);
    EXPECT_EQ(VisibleCells(form6), Range(0, 107));
    EXPECT_EQ(Cell(form6, 13, 2).Text, "7");
}

TEST_F(Form6Test, Command1_EachTaskShowsAsManyRowsAsItHasContaminants) {
    record.NumContaminantes(1) = 1;
    record.NumContaminantes(2) = 3;
    record.NumContaminantes(3) = 6;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    std::vector<int> expected = Range(0, 8);
    std::ranges::copy(Range(54, 80), std::back_inserter(expected));
    std::ranges::copy(Range(108, 161), std::back_inserter(expected));
    EXPECT_EQ(VisibleCells(form6), expected);
    EXPECT_TRUE(form6.Label3.Visible);
    EXPECT_TRUE(form6.Label5.Visible);
    EXPECT_TRUE(form6.Label6.Visible);
}

TEST_F(Form6Test, Command1_ATaskWithoutContaminantsShowsItsLabelAndNoRow) {
    record.NumContaminantes(2) = 0;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_TRUE(form6.Label5.Visible);
    EXPECT_FALSE(Cell(form6, 7, 1).Visible);
    EXPECT_TRUE(Cell(form6, 13, 1).Visible);
}

TEST_F(Form6Test, Command1_ShowsRowsWithoutANameToo) {
    record.NumTareas = 1;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_TRUE(Cell(form6, 6, 1).Visible);
    EXPECT_TRUE(Cell(form6, 6, 2).Visible);
    EXPECT_EQ(Cell(form6, 6, 2).Text, "----");
}

// Plans that only a restored file can hold

TEST_F(Form6Test, Command1_FourTasksShowTwoBlocks) {
    record.NumTareas = 4;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_TRUE(form6.Label5.Visible);
    EXPECT_FALSE(form6.Label6.Visible);
    EXPECT_EQ(VisibleCells(form6), Range(0, 107));
}

TEST_F(Form6Test, Command1_MoreThanSixContaminantsRunIntoTheNextBlock) {
    EXPECT_EQ(CellsOfATaskOf(7), Range(0, 62));
    auto& form6 = Current<Form6>();
    EXPECT_FALSE(form6.Label5.Visible);
}

TEST_F(Form6Test, Command1_MoreRowsThanTheTableHasEndOnTheSubscriptError) {
    record.NumTareas = 1;
    record.NumContaminantes(1) = 19;
    Form6& form6 = Screen6();
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { form6.Command1_Click(); });
    EXPECT_EQ(VisibleCells(form6), Range(0, 161));
    EXPECT_EQ(Cell(form6, 1, 2).Text, "");  // ended before the dashes
}

TEST_F(Form6Test, Command1_ACountTimesNineBeyondSixteenBitsOverflows) {
    record.NumTareas = 1;
    record.NumContaminantes(1) = 3641;  // 32769 cells
    Form6& form6 = Screen6();
    ExpectError(ErrorKind::Overflow, [&] { form6.Command1_Click(); });
    EXPECT_EQ(VisibleCells(form6), std::vector<int>{});
}

TEST_F(Form6Test, Command1_ANegativeCountShowsNoRow) {
    record.NumTareas = 1;
    record.NumContaminantes(1) = -2;
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_EQ(VisibleCells(form6), std::vector<int>{});
}

// Command1, pressed again

TEST_F(Form6Test, Command1_PressedAgainChangesNothingByItself) {
    SetIndices(1, "0.2", "0.4", "0.8");
    Form6& form6 = Screen6();
    form6.Command1_Click();
    const auto shown = StateOf(form6);
    const EvaluacionRecord after_the_first = record;
    form6.Command1_Click();
    EXPECT_EQ(Changed(shown, form6), std::vector<std::string>{});
    EXPECT_EQ(record, after_the_first);
}

TEST_F(Form6Test, Command1_PressedAgainWritesOverTheDashes) {
    Form6& form6 = Screen6();
    form6.Command1_Click();
    ASSERT_EQ(Cell(form6, 1, kIG).Text, "----");
    SetIndices(1, "0.2", "0.4", "0.8");
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kI1).Text, "0.2");
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "0.4");
}

TEST_F(Form6Test, Command1_AnEarlierIgStaysUntilANewValueReplacesIt) {
    SetIndices(1, "0.2", "0.4", "0.8");
    Form6& form6 = Screen6();
    form6.Command1_Click();
    SetIndices(1, "0.2", "", "");
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kI2).Text, "----");
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "0.4");
    EXPECT_EQ(record.HojaFinal(1, kIG), "0.4");
    SetIndices(1, "1", "2", "3");
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "1.81712059283214");
}

TEST_F(Form6Test, Command1_AnIgOfTheRecordIsNotShownOnAScreenThatIsEnteredAnew) {
    record.HojaFinal(1, kIG) = "0.4";  // restored, or of an earlier visit
    Form6& form6 = Screen6();
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "----");
    EXPECT_EQ(record.HojaFinal(1, kIG), "0.4");
}

TEST_F(Form6Test, Command1_NeedsNoBoxAndNoDialog) {
    Screen6().Command1_Click();  // the host fails the test on any box
    EXPECT_TRUE(host.dialogs_shown.empty());
    EXPECT_EQ(host.printed, 0);
}

// The table's cells

TEST_F(Form6Test, NoCellIsEverLocked) {
    Form6& form6 = Screen6();
    for (int i = 0; i < kCells; ++i) EXPECT_FALSE(form6.Text1(i).Locked) << i;
    form6.Command1_Click();
    for (int i = 0; i < kCells; ++i) EXPECT_FALSE(form6.Text1(i).Locked) << i;
}

TEST_F(Form6Test, WhatIsTypedOverTheTableDoesNotReachTheRecord) {
    SetIndices(1, "0.2", "0.4", "0.8");
    Form6& form6 = Screen6();
    form6.Command1_Click();
    Cell(form6, 1, kI1).Text = "9";
    Cell(form6, 1, kIG).Text = "9";
    form6.Command1_Click();
    EXPECT_EQ(Cell(form6, 1, kI1).Text, "0.2");
    EXPECT_EQ(Cell(form6, 1, kIG).Text, "0.4");
    EXPECT_EQ(record.HojaFinal(1, kI1), "0.2");
}

TEST_F(Form6Test, NoCellHasAKeyFilter) {
    const Form6& form6 = Screen6();
    for (int i = 0; i < kCells; ++i) {
        const Control* cell = form6.FindControl(Indexed("Text1", i));
        ASSERT_NE(cell, nullptr) << i;
        EXPECT_FALSE(cell->events.KeyPress) << i;
        EXPECT_FALSE(cell->events.free_text) << i;
    }
}

TEST_F(Form6Test, PressingTheButtonRunsItsHandler) {
    Form6& form6 = Screen6();
    Press("Command1");
    EXPECT_TRUE(form6.Label4(0).Visible);
}

TEST_F(Form6Test, TabGoesFromTheButtonThroughTheTableRowByRow) {
    const Form6& form6 = Screen6();
    EXPECT_EQ(form6.FindControl("Command1")->row.tab, 0);
    for (int i = 0; i < kCells; ++i) {
        EXPECT_EQ(form6.FindControl(Indexed("Text1", i))->row.tab, i + 1);
    }
}

TEST_F(Form6Test, EachCellIsSpokenByItsTaskItsContaminantAndItsColumn) {
    const Form6& form6 = Screen6();
    const auto spoken = [&](int row, int column) {
        return form6.FindControl(Indexed("Text1", (row - 1) * 9 + column - 1))->spoken;
    };
    EXPECT_EQ(spoken(1, 1), "Tarea 1, contaminante 1, número");
    EXPECT_EQ(spoken(6, 2), "Tarea 1, contaminante 6, nombre del contaminante");
    EXPECT_EQ(spoken(9, 3), "Tarea 2, contaminante 3, índice del primer día");
    EXPECT_EQ(spoken(9, 4), "Tarea 2, contaminante 3, índice del segundo día");
    EXPECT_EQ(spoken(9, 5), "Tarea 2, contaminante 3, índice del tercer día");
    EXPECT_EQ(spoken(9, 6), "Tarea 2, contaminante 3, índice global IG");
    EXPECT_EQ(spoken(18, 7), "Tarea 3, contaminante 6, probabilidad del primer día");
    EXPECT_EQ(spoken(18, 8), "Tarea 3, contaminante 6, probabilidad del segundo día");
    EXPECT_EQ(spoken(18, 9), "Tarea 3, contaminante 6, probabilidad del tercer día");
    std::set<std::string> all;
    for (const Control& control : form6.Controls()) {
        if (control.row.name == "Text1") all.insert(control.spoken);
    }
    EXPECT_EQ(all.size(), 162U);
}

// Layout

bool Overlap(const Box& a, const Box& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

TEST_F(Form6Test, NoTwoControlsOverlap) {
    const auto& controls = Screen6().Controls();
    ASSERT_EQ(controls.size(), 162U + 9U + 3U + 2U);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(Overlap(controls[i].row.box, controls[j].row.box))
                << controls[i].name << " and " << controls[j].name;
        }
    }
}

TEST_F(Form6Test, EverythingButTheClockStandsAboveTheBandAtTheFoot) {
    for (const Control& control : Screen6().Controls()) {
        const Box& box = control.row.box;
        EXPECT_GE(box.left, 0) << control.name;
        EXPECT_LE(box.left + box.width, 11880) << control.name;
        if (control.name == "Label2") continue;
        EXPECT_GE(box.top, 0) << control.name;
        EXPECT_LE(box.top + box.height, 7900) << control.name;
    }
}

TEST_F(Form6Test, HeadingsStandAboveTheirColumnsAndLabelsAboveTheirBlocks) {
    const Form6& form6 = Screen6();
    const auto box = [&](std::string_view name) { return form6.FindControl(name)->row.box; };
    for (int column = 0; column < 9; ++column) {
        const Box heading = box(Indexed("Label4", column));
        for (int row = 0; row < 18; ++row) {
            const Box cell = box(Indexed("Text1", row * 9 + column));
            EXPECT_EQ(cell.left, heading.left);
            EXPECT_EQ(cell.width, heading.width);
            EXPECT_EQ(cell.height, 285);
            EXPECT_LT(heading.top, cell.top);
        }
    }
    int block = 0;
    for (const std::string_view label : {"Label3", "Label5", "Label6"}) {
        const Box first = box(Indexed("Text1", block * 54));
        EXPECT_LE(box(label).top + box(label).height, first.top);
        if (block > 0) {  // and below the block before it, with a gap
            const Box last = box(Indexed("Text1", block * 54 - 1));
            EXPECT_GT(box(label).top, last.top + last.height + 100);
        }
        ++block;
    }
}

TEST_F(Form6Test, RowsOfABlockStandEvenlyBelowEachOther) {
    const Form6& form6 = Screen6();
    for (int row = 0; row < 18; ++row) {
        if (row % 6 == 0) continue;
        EXPECT_EQ(form6.FindControl(Indexed("Text1", row * 9))->row.box.top -
                      form6.FindControl(Indexed("Text1", row * 9 - 9))->row.box.top,
                  300);
    }
}

TEST_F(Form6Test, HeadingsAndBlocksAreBoldDarkOnPaleAndIgStandsOut) {
    const Form6& form6 = Screen6();
    const auto look = [&](std::string_view name) { return form6.FindControl(name)->row.look; };
    for (const std::string_view name : {"Label4(0)", "Label4(8)", "Label3", "Label5", "Label6"}) {
        EXPECT_TRUE(look(name).bold) << name;
        EXPECT_EQ(look(name).fore, 0x5A2D0CU) << name;
        EXPECT_EQ(look(name).back, 0xF5E6D8U) << name;
    }
    for (int i = 0; i < kCells; ++i) {
        const bool overall = i % 9 == 5;
        EXPECT_EQ(look(Indexed("Text1", i)).back, overall ? 0xE1F5E1U : kWindowBackground) << i;
    }
}

// Moves

TEST_F(Form6Test, LeavingAndComingBackHidesTheTableAgain) {
    Screen6().Command1_Click();
    Choose("calculos");
    Form6& again = Screen6();
    EXPECT_EQ(VisibleCells(again), std::vector<int>{});
    EXPECT_EQ(Cell(again, 1, 2).Text, "");
}

// Saving

class Form6SavingTest : public Form6Test {
protected:
    void SetUp() override { folder = test::MakeTemporaryFolder(); }
    void TearDown() override { fs::remove_all(folder); }

    std::string Path(std::string_view name) const { return NameOf(folder / PathOf(name)); }

    EvaluacionRecord Restored(std::string_view name) const {
        EvaluacionRecord restored;
        ReadEvaluation(Path(name), restored);
        return restored;
    }

    fs::path folder;
};

TEST_F(Form6SavingTest, guardararchivo_ShowsTheDialogWithItsTitleFlagsAndExtension) {
    host.ExpectFileDialog(Path("a.doc"));
    Screen6();
    Choose("guardararchivo");
    ASSERT_EQ(host.dialogs_shown.size(), 1U);
    EXPECT_EQ(host.dialogs_shown[0].DialogTitle, " Guardar datos");
    EXPECT_EQ(host.dialogs_shown[0].Flags, 2629634U);  // 2 + 8192 + 524288 + 2097152
    EXPECT_EQ(host.dialogs_shown[0].DefaultExt, "doc");
    EXPECT_EQ(host.dialogs_shown[0].FileName, "");
}

TEST_F(Form6SavingTest, guardararchivo_WritesTheEvaluationAndTheScreenStays) {
    record.DatosEmpresa(1) = "Talleres Ñ";
    record.HojaFinal(18, 9) = "50";
    host.ExpectFileDialog(Path("a.doc"));
    Form6& form6 = Screen6();
    const auto shown = StateOf(form6);
    Choose("guardararchivo");
    EXPECT_EQ(Restored("a.doc"), record);
    EXPECT_EQ(&chain.Current(), &form6);
    EXPECT_EQ(Changed(shown, form6), std::vector<std::string>{});
}

TEST_F(Form6SavingTest, guardararchivo_BeforeCommand1SavesAnEmptyIg) {
    SetIndices(1, "0.2", "0.4", "0.8");
    host.ExpectFileDialog(Path("antes.doc"));
    host.ExpectFileDialog(Path("después.doc"));
    Form6& form6 = Screen6();
    form6.guardararchivo_Click();
    form6.Command1_Click();
    form6.guardararchivo_Click();
    EXPECT_EQ(Restored("antes.doc").HojaFinal(1, kIG), "");
    EXPECT_EQ(Restored("después.doc").HojaFinal(1, kIG), "0.4");
}

TEST_F(Form6SavingTest, guardararchivo_CancelledAtFirstMakesNoFile) {
    host.ExpectFileDialog(std::nullopt);
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    Screen6();
    Choose("guardararchivo");
    fs::current_path(before);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(Form6SavingTest, guardararchivo_CancelledLaterWritesTheOldNameAgain) {
    host.ExpectFileDialog(Path("a.doc"));
    host.ExpectFileDialog(std::nullopt);
    Form6& form6 = Screen6();
    form6.guardararchivo_Click();
    record.DatosEmpresa(1) = "otra";
    form6.guardararchivo_Click();
    EXPECT_EQ(Restored("a.doc").DatosEmpresa(1), "otra");
}

TEST_F(Form6SavingTest, guardararchivo_TheNameIsHeldForOneVisitToTheScreen) {
    host.ExpectFileDialog(Path("a.doc"));
    host.ExpectFileDialog(std::nullopt);
    Screen6().guardararchivo_Click();
    record.DatosEmpresa(1) = "otra";
    Screen6().guardararchivo_Click();
    EXPECT_EQ(Restored("a.doc").DatosEmpresa(1), "");
}

TEST_F(Form6SavingTest, guardararchivo_AfterPrintingSetsItsFlagsAnewAndKeepsItsName) {
    host.ExpectFileDialog(Path("a.doc"));
    host.ExpectBox(messages::PrintQuestion(ScreenId::Form6), MsgBoxStyle::YesNo, MsgBoxAnswer::Yes);
    host.ExpectFileDialog(std::nullopt);
    Form6& form6 = Screen6();
    form6.guardararchivo_Click();
    form6.imprimir_Click();
    form6.guardararchivo_Click();
    EXPECT_EQ(host.dialogs_shown[1].Flags, 2629634U);
    EXPECT_EQ(host.dialogs_shown[1].FileName, Path("a.doc"));
}

TEST_F(Form6SavingTest, guardararchivo_AFailureToOpenIsNotReported) {
    host.ExpectFileDialog(Path("no/está.doc"));
    Screen6();
    Choose("guardararchivo");  // the host fails the test on any box
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(Form6SavingTest, guardararchivo_ADialogThatFailsIsPassedOverAndTheNameHeldIsWritten) {
    class WithoutDialogs : public ScriptedHost {
        void ShowSave(CommonDialog& /*dialog*/) override {
            throw ErrorEjecucion(ErrorKind::InvalidOperation);
        }
    };
    WithoutDialogs failing;
    Form6 form6(Environment{record, chain, failing});
    form6.CommonDialog1.FileName = Path("a.doc");
    record.DatosEmpresa(1) = "Talleres";
    EXPECT_NO_THROW(form6.guardararchivo_Click());
    EXPECT_EQ(Restored("a.doc").DatosEmpresa(1), "Talleres");
}

}  // namespace
}  // namespace velmora::test
