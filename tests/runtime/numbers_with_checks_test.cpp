#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>

#include "runtime/array.h"
#include "runtime/doble.h"
#include "runtime/entero.h"
#include "runtime/error.h"
#include "support/velmora_test.h"

namespace velmora {
namespace {

using test::ExpectError;

constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kMin = std::numeric_limits<double>::min();

// Doble: figures worked by hand.

TEST(DobleTest, StartsAtZero) { EXPECT_EQ(Doble().Value(), 0.0); }

TEST(DobleTest, TheFourOperationsGiveWhatADoubleGives) {
    EXPECT_EQ((Doble(2.5) + Doble(0.25)).Value(), 2.75);
    EXPECT_EQ((Doble(2.5) - Doble(0.25)).Value(), 2.25);
    EXPECT_EQ((Doble(2.5) * Doble(0.25)).Value(), 0.625);
    EXPECT_EQ((Doble(2.5) / Doble(0.25)).Value(), 10.0);
}

TEST(DobleTest, SumsKeepTheRoundingOfPlainDoubles) {
    // 0.1 + 0.2 is the neighbour above 0.3, as everywhere in IEEE 64-bit numbers.
    EXPECT_EQ((Doble(0.1) + Doble(0.2)).Value(), 0.30000000000000004);
    EXPECT_NE(Doble(0.1) + Doble(0.2), Doble(0.3));
}

TEST(DobleTest, ARunningSumGrowsByEachTerm) {
    Doble sum;
    sum += 1.5;
    sum += 2.25;
    EXPECT_EQ(sum.Value(), 3.75);
}

TEST(DobleTest, ARunningSumThatOverflowsThrowsAndKeepsItsValue) {
    Doble sum = kMax;
    ExpectError(ErrorKind::Overflow, [&] { sum += kMax; });
    EXPECT_EQ(sum.Value(), kMax);
}

TEST(DobleTest, ProductsAreNotFusedWithSums) {
    // 0.1 * 10 is exactly 1 after rounding; a fused operation would leave 5.55e-17.
    EXPECT_EQ((Doble(0.1) * Doble(10.0) - Doble(1.0)).Value(), 0.0);
}

TEST(DobleTest, SumAndDifferenceOverflow) {
    ExpectError(ErrorKind::Overflow, [] { Doble(kMax) + Doble(kMax); });
    ExpectError(ErrorKind::Overflow, [] { Doble(-kMax) - Doble(kMax); });
}

TEST(DobleTest, ProductOverflowsAtEitherSign) {
    ExpectError(ErrorKind::Overflow, [] { Doble(1e200) * Doble(1e200); });
    ExpectError(ErrorKind::Overflow, [] { Doble(-1e200) * Doble(1e200); });
}

TEST(DobleTest, QuotientOverflows) {
    ExpectError(ErrorKind::Overflow, [] { Doble(1e200) / Doble(1e-200); });
}

TEST(DobleTest, TheLargestDoubleIsNoOverflow) {
    EXPECT_EQ((Doble(kMax) + Doble(0.0)).Value(), kMax);
}

TEST(DobleTest, UnderflowGoesToZeroWithoutAWord) {
    EXPECT_EQ((Doble(kMin) * Doble(kMin)).Value(), 0.0);
    EXPECT_EQ((Doble(kMin) / Doble(kMax)).Value(), 0.0);
}

TEST(DobleTest, ANumberDividedByZeroIsADivisionByZero) {
    ExpectError(ErrorKind::DivisionByZero, [] { Doble(1.0) / Doble(0.0); });
    ExpectError(ErrorKind::DivisionByZero, [] { Doble(-1.0) / Doble(-0.0); });
}

TEST(DobleTest, ZeroDividedByZeroIsAnInvalidOperation) {
    ExpectError(ErrorKind::InvalidOperation, [] { Doble(0.0) / Doble(0.0); });
}

TEST(DobleTest, ZeroDividedByANumberIsZero) { EXPECT_EQ((Doble(0.0) / Doble(3.0)).Value(), 0.0); }

TEST(DobleTest, ComparesExactly) {
    EXPECT_LT(Doble(1.0), Doble(std::nextafter(1.0, 2.0)));
    EXPECT_EQ(Doble(0.0), Doble(-0.0));
    EXPECT_GE(Doble(2.0), 2.0);
    EXPECT_NE(Doble(2.0), 2.5);
}

TEST(PowerTest, IsTheGeneralPower) {
    EXPECT_EQ(Power(2.0, 10.0).Value(), 1024.0);
    EXPECT_EQ(Power(-3.0, 2.0).Value(), 9.0);
    EXPECT_EQ(Power(2.0, -1.0).Value(), 0.5);
    EXPECT_EQ(Power(9.0, 0.5).Value(), 3.0);
}

TEST(PowerTest, ZeroToAPositivePowerIsZeroAndToTheZerothOne) {
    EXPECT_EQ(Power(0.0, 1.0 / 3.0).Value(), 0.0);
    EXPECT_EQ(Power(0.0, 0.0).Value(), 1.0);
}

TEST(PowerTest, ZeroToANegativePowerDividesByZero) {
    ExpectError(ErrorKind::DivisionByZero, [] { Power(0.0, -1.0); });
}

TEST(PowerTest, ANegativeBaseWithAFractionIsInvalid) {
    ExpectError(ErrorKind::InvalidOperation, [] { Power(-8.0, 1.0 / 3.0); });
}

TEST(PowerTest, Overflows) {
    ExpectError(ErrorKind::Overflow, [] { Power(10.0, 309.0); });
    ExpectError(ErrorKind::Overflow, [] { Power(-10.0, 309.0); });
}

TEST(ExponentialTest, IsEToTheX) {
    EXPECT_EQ(Exponential(0.0).Value(), 1.0);
    // e to 17 digits, from its series.
    EXPECT_DOUBLE_EQ(Exponential(1.0).Value(), 2.7182818284590452);
}

TEST(ExponentialTest, OverflowsAboveTheLargestDoubleAndUnderflowsToZero) {
    // ln(1.798E+308) is 709.78, ln(4.9E-324) is -744.4.
    EXPECT_NO_THROW(Exponential(709.0));
    ExpectError(ErrorKind::Overflow, [] { Exponential(710.0); });
    EXPECT_EQ(Exponential(-750.0).Value(), 0.0);
}

TEST(LogarithmTest, IsTheNaturalLogarithm) {
    EXPECT_EQ(Logarithm(1.0).Value(), 0.0);
    // ln 2 to 17 digits, from tables.
    EXPECT_DOUBLE_EQ(Logarithm(2.0).Value(), 0.69314718055994531);
}

TEST(LogarithmTest, ANumberThatIsNotPositiveIsAnInvalidArgument) {
    ExpectError(ErrorKind::InvalidArgument, [] { Logarithm(-1.0); });
    ExpectError(ErrorKind::InvalidArgument, [] { Logarithm(0.0); });
    ExpectError(ErrorKind::InvalidArgument, [] { Logarithm(-0.0); });
}

TEST(AbsoluteTest, DropsTheSign) {
    EXPECT_EQ(Absolute(-2.5).Value(), 2.5);
    EXPECT_EQ(Absolute(2.5).Value(), 2.5);
}

// Entero: signed 16 bits, -32768 to 32767.

TEST(EnteroTest, StartsAtZero) { EXPECT_EQ(Entero().Value(), 0); }

TEST(EnteroTest, HoldsSixteenBits) {
    EXPECT_EQ(Entero(32767).Value(), 32767);
    EXPECT_EQ(Entero(-32768).Value(), -32768);
    ExpectError(ErrorKind::Overflow, [] { Entero(32768); });
    ExpectError(ErrorKind::Overflow, [] { Entero(-32769); });
}

TEST(EnteroTest, SumsDifferencesAndProductsAreWholeNumbers) {
    EXPECT_EQ((Entero(3) + Entero(4)).Value(), 7);
    EXPECT_EQ((Entero(3) - Entero(4)).Value(), -1);
    EXPECT_EQ((Entero(3) * Entero(-4)).Value(), -12);
}

TEST(EnteroTest, SumsAndDifferencesOverflow) {
    ExpectError(ErrorKind::Overflow, [] { Entero(32767) + Entero(1); });
    ExpectError(ErrorKind::Overflow, [] { Entero(-32768) - Entero(1); });
}

TEST(EnteroTest, ProductsOverflow) {
    EXPECT_EQ((Entero(181) * Entero(181)).Value(), 32761);
    ExpectError(ErrorKind::Overflow, [] { Entero(182) * Entero(182); });
    ExpectError(ErrorKind::Overflow, [] { Entero(-32768) * Entero(-32768); });
}

TEST(EnteroTest, CountsUpToItsLimitOnly) {
    Entero n = 32766;
    EXPECT_EQ((++n).Value(), 32767);
    ExpectError(ErrorKind::Overflow, [&] { ++n; });
    EXPECT_EQ(n.Value(), 32767);
}

TEST(EnteroTest, ARunningSumGrowsAndOverflows) {
    Entero n = 30000;
    n += 2000;
    EXPECT_EQ(n.Value(), 32000);
    ExpectError(ErrorKind::Overflow, [&] { n += 1000; });
    EXPECT_EQ(n.Value(), 32000);
}

TEST(EnteroTest, ComparesWithWholeNumbers) {
    EXPECT_TRUE(Entero(3) == 3);
    EXPECT_TRUE(Entero(2) < 3);
    EXPECT_TRUE(Entero(-1) < Entero(0));
}

TEST(EnteroTest, StandsInForADouble) { EXPECT_EQ((Entero(7).AsDoble() / Doble(2.0)).Value(), 3.5); }

// Array: first to last inclusive.

TEST(ArrayTest, ElementsStartAtTheirOwnZero) {
    const Array<Entero, 1, 3> numbers;
    const Array<std::string, 0, 2> texts;
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(numbers(i).Value(), 0);
    for (int i = 0; i <= 2; ++i) EXPECT_EQ(texts(i), "");
}

TEST(ArrayTest, FirstAndLastAreElements) {
    Array<int, 1, 19> numbers;
    numbers(1) = 5;
    numbers(19) = 7;
    EXPECT_EQ(std::as_const(numbers)(1), 5);
    EXPECT_EQ(std::as_const(numbers)(19), 7);
}

TEST(ArrayTest, OneBeyondEitherEndIsASubscriptError) {
    Array<int, 1, 19> numbers;
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(0); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(20); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { std::as_const(numbers)(-1); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(std::numeric_limits<int>::min()); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(std::numeric_limits<int>::max()); });
}

TEST(ArrayTest, AnArrayFromZeroHasNoElementMinusOne) {
    Array<int, 0, 6> numbers;
    EXPECT_NO_THROW(numbers(0));
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(-1); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(7); });
}

TEST(ArrayTest, AnIntegerSubscriptIsCheckedLikeAnyOther) {
    Array<int, 1, 3> numbers;
    numbers(Entero(3)) = 9;
    EXPECT_EQ(numbers(3), 9);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { numbers(Entero(4)); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { std::as_const(numbers)(Entero(0)); });
}

TEST(ArrayTest, EachSubscriptOfThreeDimensionsIsCheckedWithItsOwnBounds) {
    Array<Array<Array<Doble, 1, 6>, 1, 3>, 1, 3> values;
    values(3, 2, 6) = 1.5;
    EXPECT_EQ(std::as_const(values)(Entero(3), Entero(2), 6).Value(), 1.5);
    EXPECT_EQ(values(3)(2)(6).Value(), 1.5);
    EXPECT_EQ(values(2, 3, 6).Value(), 0.0);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { values(4, 1, 1); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { values(1, 4, 1); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { values(1, 1, 7); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { values(1, 1, 0); });
}

TEST(ArrayTest, IsWalkedFromFirstToLast) {
    Array<int, 4, 6> numbers;
    for (int i = 4; i <= 6; ++i) numbers(i) = i * i;
    std::string walked;
    for (const int n : numbers) walked += std::string(1, static_cast<char>('0' + n % 10));
    EXPECT_EQ(walked, "656");  // 16, 25, 36
}

TEST(ArrayTest, EqualMeansEqualElementByElement) {
    Array<int, 1, 2> a;
    Array<int, 1, 2> b;
    EXPECT_EQ(a, b);
    b(2) = 1;
    EXPECT_NE(a, b);
}

}  // namespace
}  // namespace velmora
