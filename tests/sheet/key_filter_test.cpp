#include <string>
#include <string_view>

#include "support/sheet_test.h"

namespace velmora::test {
namespace {

constexpr int kCell = 7;      ///< C1 of the first row
constexpr int kNextCell = 8;  ///< C2 of the first row
constexpr KeyCode kPoint = 46;
constexpr KeyCode kComma = 44;
constexpr KeyCode kMinus = 45;

constexpr bool IsDigitCode(KeyCode code) { return code >= 48 && code <= 57; }

class KeyFilterTest : public SheetTest {
protected:
    KeyFilterTest() {
        SetPlan(1, 1, 1);
        Choose("introprimero");
    }

    bool Accepts(int cell, KeyCode key) { return Filtered(cell, key) == key; }
    bool Refuses(int cell, KeyCode key) { return Filtered(cell, key) == kKeyRefused; }

    /// A sheet without any key pressed on it yet.
    Form5& Fresh() { return Open<Form5>(ScreenId::Form5); }
};

TEST_F(KeyFilterTest, OfThe256CodesTheFirstKeyOfACellMayBeADigitOrBackspace) {
    for (KeyCode code = 0; code < 256; ++code) {
        KeyCode key = code;
        Fresh().Text1_KeyPress(kCell, key);
        const bool accepted = IsDigitCode(code) || code == 8;
        EXPECT_EQ(key, accepted ? code : 0) << code;
    }
}

TEST_F(KeyFilterTest, OfThe256CodesThePointPassesToo_BehindADigit) {
    for (KeyCode code = 0; code < 256; ++code) {
        Form5& sheet = Fresh();
        KeyCode digit = '5';
        sheet.Text1_KeyPress(kCell, digit);
        KeyCode key = code;
        sheet.Text1_KeyPress(kCell, key);
        const bool accepted = IsDigitCode(code) || code == 8 || code == kPoint;
        EXPECT_EQ(key, accepted ? code : 0) << code;
    }
}

TEST_F(KeyFilterTest, OfThe256CodesASecondPointIsRefusedAgain) {
    for (KeyCode code = 0; code < 256; ++code) {
        Form5& sheet = Fresh();
        for (const KeyCode typed : {KeyCode{'5'}, kPoint}) {
            KeyCode key = typed;
            sheet.Text1_KeyPress(kCell, key);
        }
        KeyCode key = code;
        sheet.Text1_KeyPress(kCell, key);
        const bool accepted = IsDigitCode(code) || code == 8;
        EXPECT_EQ(key, accepted ? code : 0) << code;
    }
}

TEST_F(KeyFilterTest, KeysBeyondTheSingleByteCodesAreRefused) {
    for (const KeyCode code : {256, 0x0132, 0x0663, 0x20AC, 0xFF15, 0x1F600, -1}) {
        EXPECT_TRUE(Refuses(kCell, code)) << code;
    }
}

TEST_F(KeyFilterTest, ItSitsOnEachCellOfTheMainGridWithTheCellsOwnIndex) {
    for (int i = 0; i < 324; ++i) {
        const Control* control = form.FindControl(Indexed("Text1", i));
        ASSERT_TRUE(control->events.KeyPress) << i;
        EXPECT_FALSE(control->events.free_text) << i;
        form.Text1(i).Text = "12.5";
        KeyCode key = kBackspace;
        control->events.KeyPress(key);
        EXPECT_EQ(form.Text1(i).Text, "") << i;
    }
}

TEST_F(KeyFilterTest, TheRightHandGridAndTheAnswersTakeNoFreeText) {
    for (const Control& control : form.Controls()) {
        EXPECT_FALSE(control.events.free_text) << control.name;
        const bool main_grid = control.name.starts_with("Text1(");
        EXPECT_EQ(static_cast<bool>(control.events.KeyPress), main_grid) << control.name;
    }
}

TEST_F(KeyFilterTest, APointFirstInAnEmptyCellIsRefused) {
    Type(kCell, ".5");
    EXPECT_EQ(form.Text1(kCell).Text, "5");
}

TEST_F(KeyFilterTest, ASecondPointIsDropped) {
    Type(kCell, "1.2.3");
    EXPECT_EQ(form.Text1(kCell).Text, "1.23");
}

TEST_F(KeyFilterTest, SignsCommasLettersAndBlanksAreDropped) {
    Type(kCell, "-1,5 e+2\t\r\n\x1b");
    EXPECT_EQ(form.Text1(kCell).Text, "152");
}

TEST_F(KeyFilterTest, ThePointAloneIsTheDecimalMarkUnderACommaLocaleToo) {
    const WithSeparator comma(",");
    Type(kCell, "1,5.2");
    EXPECT_EQ(form.Text1(kCell).Text, "15.2");
    EXPECT_TRUE(Refuses(kCell, kComma));
}

TEST_F(KeyFilterTest, BackspaceEmptiesTheCellAndAPointIsRefusedUntilADigitComes) {
    Type(kCell, "12.5");
    ASSERT_EQ(form.Text1(kCell).Text, "12.5");
    EXPECT_TRUE(Accepts(kCell, kBackspace));
    EXPECT_EQ(form.Text1(kCell).Text, "");
    EXPECT_TRUE(Refuses(kCell, kPoint));
    EXPECT_TRUE(Accepts(kCell, '3'));
    EXPECT_TRUE(Accepts(kCell, kPoint));
}

TEST_F(KeyFilterTest, BackspaceOnTextThatNobodyTypedEmptiesItToo) {
    form.Text1(kCell).Text = "12.5";
    EXPECT_TRUE(Accepts(kCell, kBackspace));
    EXPECT_EQ(form.Text1(kCell).Text, "");
}

TEST_F(KeyFilterTest, BackspaceInALockedCellOfTheNamesEmptiesItAndLeavesTheRecord) {
    SetPlan(1, 1, 1);
    record.NombreContaminante(1, 1) = "tolueno";
    Choose("introprimero");
    ASSERT_TRUE(Cell(1, kName).Locked);
    ASSERT_EQ(Cell(1, kName).Text, "tolueno");
    const EvaluacionRecord before = record;
    EXPECT_TRUE(Accepts(Index(1, kName), kBackspace));
    EXPECT_EQ(Cell(1, kName), (TextCell{.Text = "", .Visible = true, .Locked = true}));
    EXPECT_TRUE(record == before);
}

TEST_F(KeyFilterTest, AKeyChangesNoControlButForBackspacesOwnCell) {
    Scribble();
    const auto before = StateOf(form);
    Filtered(kCell, '1');
    Filtered(kCell, kPoint);
    Filtered(kCell, kComma);
    EXPECT_THAT(Changed(before, form), ::testing::IsEmpty());
    Filtered(kCell, kBackspace);
    EXPECT_THAT(Changed(before, form), ::testing::ElementsAre("Text1(7)"));
}

TEST_F(KeyFilterTest, TheTextThatIsThereIsNotLookedAt) {
    form.Text1(kCell).Text = "12";
    EXPECT_TRUE(Refuses(kCell, kPoint)) << "no digit was typed on this visit";
    EXPECT_TRUE(Accepts(kCell, '1'));
    form.Text1(kCell).Text = "1.5";
    EXPECT_TRUE(Accepts(kCell, kPoint)) << "no point was typed on this visit";
}

TEST_F(KeyFilterTest, ComingBackToACellTakesAFurtherPointAfterOneMoreDigit) {
    Type(kCell, "1.5");
    Type(kNextCell, "2");
    EXPECT_TRUE(Refuses(kCell, kPoint));
    Type(kCell, "3.4");
    EXPECT_EQ(form.Text1(kCell).Text, "1.53.4");
}

TEST_F(KeyFilterTest, LookingAtAnotherCellWithoutAKeyThereIsNoVisit) {
    Type(kCell, "1.5");
    EXPECT_TRUE(Refuses(kCell, kPoint));
    Type(kCell, "25");
    EXPECT_TRUE(Refuses(kCell, kPoint)) << "still the same visit";
}

TEST_F(KeyFilterTest, ARefusedKeyCountsAsAVisitToItsCell) {
    Type(kCell, "12");
    EXPECT_TRUE(Refuses(kNextCell, kComma));
    EXPECT_TRUE(Refuses(kCell, kPoint)) << "the counters start at 0 again";
}

TEST_F(KeyFilterTest, BackspaceCountsAsAVisitToItsCell) {
    Type(kCell, "12");
    EXPECT_TRUE(Accepts(kNextCell, kBackspace));
    EXPECT_EQ(form.Text1(kCell).Text, "12");
    EXPECT_TRUE(Refuses(kCell, kPoint));
}

TEST_F(KeyFilterTest, ARefusedKeyLeavesTheCountersOfItsOwnCell) {
    Type(kCell, "1");
    EXPECT_TRUE(Refuses(kCell, kMinus));
    EXPECT_TRUE(Accepts(kCell, kPoint));
    EXPECT_TRUE(Refuses(kCell, kMinus));
    EXPECT_TRUE(Refuses(kCell, kPoint));
}

TEST_F(KeyFilterTest, AnAcceptedPointDoesNotCountAsADigitNorClearThem) {
    Type(kCell, "1.");
    EXPECT_TRUE(Refuses(kCell, kPoint));
    EXPECT_TRUE(Accepts(kCell, '7'));
}

TEST_F(KeyFilterTest, TheFirstCellOfTheSheetIsFilteredLikeAnyOther) {
    EXPECT_TRUE(Refuses(0, kPoint));
    EXPECT_TRUE(Accepts(0, '1'));
    EXPECT_TRUE(Accepts(0, kPoint));
    EXPECT_TRUE(Refuses(0, kPoint));
}

TEST_F(KeyFilterTest, TheCountersOutliveTheLayingOutOfADay) {
    SetPlan(3, 1, 1);
    Choose("introprimero");
    Type(kCell, "5");
    Choose("introsegundo");
    ASSERT_EQ(form.Text1(kCell).Text, "");
    EXPECT_TRUE(Accepts(kCell, kPoint)) << "the digit of the first day still counts";
    Choose("recuptercerdia");
    EXPECT_TRUE(Refuses(kCell, kPoint)) << "and so does the point";
    form.limpia(1);
    EXPECT_TRUE(Refuses(kCell, kPoint));
}

TEST_F(KeyFilterTest, TheCountersEndWithTheScreen) {
    Type(kCell, "5");
    KeyCode key = kPoint;
    Fresh().Text1_KeyPress(kCell, key);
    EXPECT_EQ(key, kKeyRefused);
}

TEST_F(KeyFilterTest, TheDigitsOfOneVisitAreCountedInAnInteger) {
    for (int i = 0; i < 32767; ++i) ASSERT_TRUE(Accepts(kCell, '1'));
    ExpectError(ErrorKind::Overflow, [&] { Filtered(kCell, '1'); });
}

TEST_F(KeyFilterTest, ACellThatTheArrayDoesNotHaveIsASubscriptError) {
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { Filtered(324, kBackspace); });
}

}  // namespace
}  // namespace velmora::test
