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

TEST(DobleTest, StartsAtZero) { EXPECT_EQ(Doble().Valor(), 0.0); }

TEST(DobleTest, TheFourOperationsGiveWhatADoubleGives) {
    EXPECT_EQ((Doble(2.5) + Doble(0.25)).Valor(), 2.75);
    EXPECT_EQ((Doble(2.5) - Doble(0.25)).Valor(), 2.25);
    EXPECT_EQ((Doble(2.5) * Doble(0.25)).Valor(), 0.625);
    EXPECT_EQ((Doble(2.5) / Doble(0.25)).Valor(), 10.0);
}

TEST(DobleTest, SumsKeepTheRoundingOfPlainDoubles) {
    // 0.1 + 0.2 is the neighbour above 0.3, as everywhere in IEEE 64-bit numbers.
    EXPECT_EQ((Doble(0.1) + Doble(0.2)).Valor(), 0.30000000000000004);
    EXPECT_NE(Doble(0.1) + Doble(0.2), Doble(0.3));
}

TEST(DobleTest, ARunningSumGrowsByEachTerm) {
    Doble sum;
    sum += 1.5;
    sum += 2.25;
    EXPECT_EQ(sum.Valor(), 3.75);
}

TEST(DobleTest, ARunningSumThatOverflowsThrowsAndKeepsItsValue) {
    Doble sum = kMax;
    ExpectError(TipoError::Desbordamiento, [&] { sum += kMax; });
    EXPECT_EQ(sum.Valor(), kMax);
}

TEST(DobleTest, ProductsAreNotFusedWithSums) {
    // 0.1 * 10 is exactly 1 after rounding; a fused operation would leave 5.55e-17.
    EXPECT_EQ((Doble(0.1) * Doble(10.0) - Doble(1.0)).Valor(), 0.0);
}

TEST(DobleTest, SumAndDifferenceOverflow) {
    ExpectError(TipoError::Desbordamiento, [] { Doble(kMax) + Doble(kMax); });
    ExpectError(TipoError::Desbordamiento, [] { Doble(-kMax) - Doble(kMax); });
}

TEST(DobleTest, ProductOverflowsAtEitherSign) {
    ExpectError(TipoError::Desbordamiento, [] { Doble(1e200) * Doble(1e200); });
    ExpectError(TipoError::Desbordamiento, [] { Doble(-1e200) * Doble(1e200); });
}

TEST(DobleTest, QuotientOverflows) {
    ExpectError(TipoError::Desbordamiento, [] { Doble(1e200) / Doble(1e-200); });
}

TEST(DobleTest, TheLargestDoubleIsNoOverflow) {
    EXPECT_EQ((Doble(kMax) + Doble(0.0)).Valor(), kMax);
}

TEST(DobleTest, UnderflowGoesToZeroWithoutAWord) {
    EXPECT_EQ((Doble(kMin) * Doble(kMin)).Valor(), 0.0);
    EXPECT_EQ((Doble(kMin) / Doble(kMax)).Valor(), 0.0);
}

TEST(DobleTest, ANumberDividedByZeroIsADivisionByZero) {
    ExpectError(TipoError::DivisionPorCero, [] { Doble(1.0) / Doble(0.0); });
    ExpectError(TipoError::DivisionPorCero, [] { Doble(-1.0) / Doble(-0.0); });
}

TEST(DobleTest, ZeroDividedByZeroIsAnInvalidOperation) {
    ExpectError(TipoError::OperacionNoValida, [] { Doble(0.0) / Doble(0.0); });
}

TEST(DobleTest, ZeroDividedByANumberIsZero) { EXPECT_EQ((Doble(0.0) / Doble(3.0)).Valor(), 0.0); }

TEST(DobleTest, ComparesExactly) {
    EXPECT_LT(Doble(1.0), Doble(std::nextafter(1.0, 2.0)));
    EXPECT_EQ(Doble(0.0), Doble(-0.0));
    EXPECT_GE(Doble(2.0), 2.0);
    EXPECT_NE(Doble(2.0), 2.5);
}

TEST(PotenciaTest, IsTheGeneralPower) {
    EXPECT_EQ(Potencia(2.0, 10.0).Valor(), 1024.0);
    EXPECT_EQ(Potencia(-3.0, 2.0).Valor(), 9.0);
    EXPECT_EQ(Potencia(2.0, -1.0).Valor(), 0.5);
    EXPECT_EQ(Potencia(9.0, 0.5).Valor(), 3.0);
}

TEST(PotenciaTest, ZeroToAPositivePowerIsZeroAndToTheZerothOne) {
    EXPECT_EQ(Potencia(0.0, 1.0 / 3.0).Valor(), 0.0);
    EXPECT_EQ(Potencia(0.0, 0.0).Valor(), 1.0);
}

TEST(PotenciaTest, ZeroToANegativePowerDividesByZero) {
    ExpectError(TipoError::DivisionPorCero, [] { Potencia(0.0, -1.0); });
}

TEST(PotenciaTest, ANegativeBaseWithAFractionIsInvalid) {
    ExpectError(TipoError::OperacionNoValida, [] { Potencia(-8.0, 1.0 / 3.0); });
}

TEST(PotenciaTest, Overflows) {
    ExpectError(TipoError::Desbordamiento, [] { Potencia(10.0, 309.0); });
    ExpectError(TipoError::Desbordamiento, [] { Potencia(-10.0, 309.0); });
}

TEST(ExponencialTest, IsEToTheX) {
    EXPECT_EQ(Exponencial(0.0).Valor(), 1.0);
    // e to 17 digits, from its series.
    EXPECT_DOUBLE_EQ(Exponencial(1.0).Valor(), 2.7182818284590452);
}

TEST(ExponencialTest, OverflowsAboveTheLargestDoubleAndUnderflowsToZero) {
    // ln(1.798E+308) is 709.78, ln(4.9E-324) is -744.4.
    EXPECT_NO_THROW(Exponencial(709.0));
    ExpectError(TipoError::Desbordamiento, [] { Exponencial(710.0); });
    EXPECT_EQ(Exponencial(-750.0).Valor(), 0.0);
}

TEST(LogaritmoTest, IsTheNaturalLogarithm) {
    EXPECT_EQ(Logaritmo(1.0).Valor(), 0.0);
    // ln 2 to 17 digits, from tables.
    EXPECT_DOUBLE_EQ(Logaritmo(2.0).Valor(), 0.69314718055994531);
}

TEST(LogaritmoTest, ANumberThatIsNotPositiveIsAnInvalidArgument) {
    ExpectError(TipoError::ArgumentoNoValido, [] { Logaritmo(-1.0); });
    ExpectError(TipoError::ArgumentoNoValido, [] { Logaritmo(0.0); });
    ExpectError(TipoError::ArgumentoNoValido, [] { Logaritmo(-0.0); });
}

TEST(AbsolutoTest, DropsTheSign) {
    EXPECT_EQ(Absoluto(-2.5).Valor(), 2.5);
    EXPECT_EQ(Absoluto(2.5).Valor(), 2.5);
}

// Entero: signed 16 bits, -32768 to 32767.

TEST(EnteroTest, StartsAtZero) { EXPECT_EQ(Entero().Valor(), 0); }

TEST(EnteroTest, HoldsSixteenBits) {
    EXPECT_EQ(Entero(32767).Valor(), 32767);
    EXPECT_EQ(Entero(-32768).Valor(), -32768);
    ExpectError(TipoError::Desbordamiento, [] { Entero(32768); });
    ExpectError(TipoError::Desbordamiento, [] { Entero(-32769); });
}

TEST(EnteroTest, SumsDifferencesAndProductsAreWholeNumbers) {
    EXPECT_EQ((Entero(3) + Entero(4)).Valor(), 7);
    EXPECT_EQ((Entero(3) - Entero(4)).Valor(), -1);
    EXPECT_EQ((Entero(3) * Entero(-4)).Valor(), -12);
}

TEST(EnteroTest, SumsAndDifferencesOverflow) {
    ExpectError(TipoError::Desbordamiento, [] { Entero(32767) + Entero(1); });
    ExpectError(TipoError::Desbordamiento, [] { Entero(-32768) - Entero(1); });
}

TEST(EnteroTest, ProductsOverflow) {
    EXPECT_EQ((Entero(181) * Entero(181)).Valor(), 32761);
    ExpectError(TipoError::Desbordamiento, [] { Entero(182) * Entero(182); });
    ExpectError(TipoError::Desbordamiento, [] { Entero(-32768) * Entero(-32768); });
}

TEST(EnteroTest, CountsUpToItsLimitOnly) {
    Entero n = 32766;
    EXPECT_EQ((++n).Valor(), 32767);
    ExpectError(TipoError::Desbordamiento, [&] { ++n; });
    EXPECT_EQ(n.Valor(), 32767);
}

TEST(EnteroTest, ARunningSumGrowsAndOverflows) {
    Entero n = 30000;
    n += 2000;
    EXPECT_EQ(n.Valor(), 32000);
    ExpectError(TipoError::Desbordamiento, [&] { n += 1000; });
    EXPECT_EQ(n.Valor(), 32000);
}

TEST(EnteroTest, ComparesWithWholeNumbers) {
    EXPECT_TRUE(Entero(3) == 3);
    EXPECT_TRUE(Entero(2) < 3);
    EXPECT_TRUE(Entero(-1) < Entero(0));
}

TEST(EnteroTest, StandsInForADouble) {
    EXPECT_EQ((Entero(7).ComoDoble() / Doble(2.0)).Valor(), 3.5);
}

// Array: first to last inclusive.

TEST(ArrayTest, ElementsStartAtTheirOwnZero) {
    const Array<Entero, 1, 3> numbers;
    const Array<std::string, 0, 2> texts;
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(numbers(i).Valor(), 0);
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
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { numbers(0); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { numbers(20); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { std::as_const(numbers)(-1); });
    ExpectError(TipoError::SubindiceFueraDeRango,
                [&] { numbers(std::numeric_limits<int>::min()); });
    ExpectError(TipoError::SubindiceFueraDeRango,
                [&] { numbers(std::numeric_limits<int>::max()); });
}

TEST(ArrayTest, AnArrayFromZeroHasNoElementMinusOne) {
    Array<int, 0, 6> numbers;
    EXPECT_NO_THROW(numbers(0));
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { numbers(-1); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { numbers(7); });
}

TEST(ArrayTest, AnIntegerSubscriptIsCheckedLikeAnyOther) {
    Array<int, 1, 3> numbers;
    numbers(Entero(3)) = 9;
    EXPECT_EQ(numbers(3), 9);
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { numbers(Entero(4)); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { std::as_const(numbers)(Entero(0)); });
}

TEST(ArrayTest, EachSubscriptOfThreeDimensionsIsCheckedWithItsOwnBounds) {
    Array<Array<Array<Doble, 1, 6>, 1, 3>, 1, 3> values;
    values(3, 2, 6) = 1.5;
    EXPECT_EQ(std::as_const(values)(Entero(3), Entero(2), 6).Valor(), 1.5);
    EXPECT_EQ(values(3)(2)(6).Valor(), 1.5);
    EXPECT_EQ(values(2, 3, 6).Valor(), 0.0);
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { values(4, 1, 1); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { values(1, 4, 1); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { values(1, 1, 7); });
    ExpectError(TipoError::SubindiceFueraDeRango, [&] { values(1, 1, 0); });
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
