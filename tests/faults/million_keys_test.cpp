#include <string>
#include <string_view>

#include "support/messages.h"
#include "support/sheet_test.h"

namespace velmora::test {
namespace {

constexpr int kMillion = 1'000'000;

/// One contaminant with a limit of 10, eight hours.
class MillionKeysTest : public SheetTest {
protected:
    void SetUp() override {
        SetPlan(1, 1, 1);
        record.VlaEd(1, 1) = 10;
        record.TiempoExposicion(1, 1) = 8;
        Choose("introprimero");
    }

    int FirstSample() const { return Index(1, kC1); }

    /// A first sample as a restored day may bring it, and a 2 typed beside it.
    void SetSample(const std::string& text) {
        ASSERT_EQ(text.size(), static_cast<std::size_t>(kMillion));
        Cell(1, kC1).Text = text;
        Type(FirstSample() + 1, "2");
    }
};

TEST_F(MillionKeysTest, TheDigitBeyondTheLargestIntegerEndsTheProgram) {
    // The filter counts the digits of a visit in an Integer of 16 bits: 32767 fit.
    Type(FirstSample(), std::string(32767, '7'));
    EXPECT_EQ(Cell(1, kC1).Text, std::string(32767, '7'));
    ExpectError(ErrorKind::Overflow, [this] { Filtered(FirstSample(), '7'); });
}

TEST_F(MillionKeysTest, ABackspaceStartsTheCountAnew) {
    Type(FirstSample(), std::string(32767, '7'));
    EXPECT_EQ(Filtered(FirstSample(), kBackspace), kBackspace);
    EXPECT_EQ(Cell(1, kC1).Text, "");
    EXPECT_EQ(Filtered(FirstSample(), '7'), '7');
}

TEST_F(MillionKeysTest, AMillionRefusedKeysLeaveTheCellEmpty) {
    for (int i = 0; i < kMillion; ++i) {
        ASSERT_EQ(Filtered(FirstSample(), i % 2 == 0 ? '.' : 'x'), kKeyRefused);
    }
    EXPECT_EQ(Cell(1, kC1).Text, "");
}

TEST_F(MillionKeysTest, AMillionDigitsAreTooLargeForANumberAndEndTheProgram) {
    SetSample(std::string(kMillion, '7'));
    ExpectError(ErrorKind::Overflow, [this] { Press("Command1"); });
    EXPECT_EQ(Cell(1, kMmp).Text, "");
}

TEST_F(MillionKeysTest, AMillionDecimalsAreANumberLikeAnyOther) {
    SetSample("1." + std::string(kMillion - 2, '3'));
    Press("Command1");
    EXPECT_EQ(Cell(1, kMmp).Text, "1.63");   // sqrt(4 / 3 x 2) = 1.63299, worked by hand
    EXPECT_EQ(Cell(1, kIndex).Text, ".16");  // 8 x 1.63299 / (10 x 8)
}

TEST_F(MillionKeysTest, ANumberTooSmallForADoubleReadsAsZeroAndIsAGap) {
    SetSample("0." + std::string(kMillion - 3, '0') + "5");
    host.ExpectBox(messages::kNoGaps);
    Press("Command1");
    EXPECT_EQ(Cell(1, kMmp).Text, "");
}

TEST_F(MillionKeysTest, AMillionLettersReadAsZeroAndAreAGap) {
    SetSample(std::string(kMillion, 'x'));
    host.ExpectBox(messages::kNoGaps);
    Press("Command1");
    EXPECT_EQ(Cell(1, kMmp).Text, "");
}

}  // namespace
}  // namespace velmora::test
