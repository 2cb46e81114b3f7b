#include "stats/statistics.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "support/velmora_test.h"

namespace velmora {
namespace {

using test::ExpectError;

/// C1, C2, ... in subscripts 1, 2, ...; the places left hold 0.
Muestras Samples(std::initializer_list<double> values) {
    Muestras samples;
    int i = 0;
    for (const double value : values) samples(++i) = value;
    return samples;
}

/// Relative error of a few roundings: far below the fifteen digits that are shown.
void ExpectClose(Doble value, double expected) {
    EXPECT_NEAR(value.Value(), expected, 1e-14 * std::fabs(expected));
}

class MediaEstimadaTest : public ::testing::Test {
protected:
    double Media(const Muestras& samples) {
        return MediaEstimada(record, samples, 1, 1, 1).Value();
    }
    Doble Mg() const { return record.MG(1, 1, 1); }
    Doble Gsd() const { return record.GSD(1, 1, 1); }

    EvaluacionRecord record;
};

TEST_F(MediaEstimadaTest, NoSampleGivesZeroAndKeepsMgAndGsd) {
    record.MG(1, 1, 1) = 7.5;
    record.GSD(1, 1, 1) = 1.25;
    EXPECT_EQ(Media({}), 0.0);
    EXPECT_EQ(Mg(), 7.5);
    EXPECT_EQ(Gsd(), 1.25);
}

TEST_F(MediaEstimadaTest, AFirstSampleOfZeroGivesZeroWhateverFollows) {
    record.MG(1, 1, 1) = 7.5;
    record.GSD(1, 1, 1) = 1.25;
    EXPECT_EQ(Media(Samples({0, 2, 3, 4, 5, 6})), 0.0);
    EXPECT_EQ(Mg(), 7.5);
    EXPECT_EQ(Gsd(), 1.25);
}

TEST_F(MediaEstimadaTest, AFirstSampleOfZeroHidesEvenANegativeOne) {
    EXPECT_EQ(Media(Samples({0, -1})), 0.0);
}

TEST_F(MediaEstimadaTest, TheCountStopsAtAZeroAndOneSampleFails) {
    ExpectError(ErrorKind::InvalidOperation, [&] { Media(Samples({3, 0, 7})); });
}

TEST_F(MediaEstimadaTest, ASingleSampleFailsWithNothingStored) {
    record.MG(1, 1, 1) = 7.5;
    record.GSD(1, 1, 1) = 1.25;
    ExpectError(ErrorKind::InvalidOperation, [&] { Media(Samples({5})); });
    EXPECT_EQ(Mg(), 7.5);
    EXPECT_EQ(Gsd(), 1.25);
}

TEST_F(MediaEstimadaTest, SamplesBehindTheFirstZeroDoNotCount) {
    ExpectClose(Media(Samples({2, 3, 0, 7})), 2.4494897427831781);  // sqrt(6)
    ExpectClose(Mg(), 2.4494897427831781);
    ExpectClose(Gsd(), 1.3320340401739694);  // Python: decimal, 40 digits
}

TEST_F(MediaEstimadaTest, AZeroIsTheOnlyEndOfTheSamples) {
    // The smallest Double is a sample: only an exact 0 ends the count.
    const double tiny = std::numeric_limits<double>::denorm_min();
    ExpectError(ErrorKind::InvalidOperation, [&] { Media(Samples({tiny})); });
    EXPECT_GT(Media(Samples({1, 1e-300})), 0.0);
    EXPECT_LT(Mg(), 1e-149);  // the geometric mean of 1 and 1E-300 is 1E-150
}

struct RowCase {
    std::string name;
    std::vector<double> samples;
    double mg;
    double gsd;
    double result;
};

void PrintTo(const RowCase& c, std::ostream* out) { *out << c.name; }

class MediaEstimadaRowTest : public ::testing::TestWithParam<RowCase> {};

TEST_P(MediaEstimadaRowTest, GivesMgGsdAndTheEstimatedMean) {
    EvaluacionRecord record;
    Muestras samples;
    int i = 0;
    for (const double sample : GetParam().samples) samples(++i) = sample;
    ExpectClose(MediaEstimada(record, samples, 1, 1, 1), GetParam().result);
    ExpectClose(record.MG(1, 1, 1), GetParam().mg);
    ExpectClose(record.GSD(1, 1, 1), GetParam().gsd);
}

// Figures from Python's decimal module, 40 digits, by the definitions: MG = exp(mean of
// logarithms), GSD = exp(standard deviation with divisor n - 1), result = MG x max(1, A x exp(B x
// GSD)).
// clang-format off
INSTANTIATE_TEST_SUITE_P(Rows, MediaEstimadaRowTest, ::testing::Values(
    RowCase{"Two",                {2, 8},                             4,                  2.6651441426902252, 4},
    RowCase{"TwoEqual",           {3, 3},                             3,                  1,                  3},
    RowCase{"TwoSmall",           {0.02, 0.05},                       0.031622776601683793, 1.9115518327308148, 0.031622776601683793},
    RowCase{"TwoFarApart",        {0.001, 1000},                      1,                  17483.995543463174, 1},
    RowCase{"Three",              {1, 2, 4},                          2,                  2,                  2.3606124592057436},
    RowCase{"ThreeEqual",         {5, 5, 5},                          5,                  1,                  5},
    RowCase{"ThreeNearlyEqual",   {1, 1.1, 1.2},                      1.0969613104865237, 1.0954795923795017, 1.0969613104865237},
    RowCase{"Four",               {1, 2, 4, 8},                       2.8284271247461901, 2.4469666667017526, 3.7702146008801638},
    RowCase{"FourOfTheWorkedDay", {120, 95, 150, 110},                117.11086773137219, 1.2105874457116014, 117.75871742533576},
    RowCase{"Five",               {0.5, 0.7, 0.9, 1.1, 1.3},          0.85256856988454040, 1.4583730929920149, 0.91771235082950958},
    RowCase{"Six",                {1, 2, 3, 4, 5, 6},                 2.9937951655239090, 1.9399137127453551, 3.6426329555120738},
    RowCase{"SixDoublings",       {100, 200, 400, 800, 1600, 3200},   565.68542494923802, 3.6574260469011501, 1059.2311822489843}),
    [](const auto& test_case) { return test_case.param.name; });
// clang-format on

TEST_F(MediaEstimadaTest, TheStoredGeometricMeanIsWithoutTheFactor) {
    // MG of 1, 2, 4 is exactly 2, the factor 1.18.
    const double result = Media(Samples({1, 2, 4}));
    ExpectClose(Mg(), 2.0);
    EXPECT_GT(result, 2.3);
}

TEST_F(MediaEstimadaTest, TheFactorNeverLowersTheMean) {
    // 0.7969 x exp(0.1964 x 1) is 0.96984 and becomes 1.
    const double of_equals = Media(Samples({5, 5, 5}));
    EXPECT_EQ(of_equals, Mg().Value());
    const double of_neighbours = Media(Samples({1, 1.1, 1.2}));  // 0.98820, lifted, too
    EXPECT_EQ(of_neighbours, Mg().Value());
}

/// n samples of geometric mean 1 whose GSD is `gsd`: half of them h, half 1/h, a 1 where n is odd.
/// The logarithm of h is ln(gsd) x sqrt((n - 1) / number of samples other than 1), by hand.
Muestras SamplesOfSpread(int n, double gsd) {
    const int spread = n - n % 2;
    const double h = std::exp(std::log(gsd) * std::sqrt((n - 1.0) / spread));
    Muestras samples;
    for (int i = 1; i <= n; ++i) samples(i) = i > spread ? 1 : i % 2 == 1 ? h : 1 / h;
    return samples;
}

TEST_F(MediaEstimadaTest, TheFactorIsLiftedToOneBelowItsThreshold) {
    struct Threshold {
        int n;
        double gsd;
    };
    // The GSD at which A x exp(B x GSD) is 1, that is -ln(A) / B, worked with Python's decimal.
    for (const Threshold& t : {Threshold{3, 1.15594}, {4, 1.18639}, {5, 1.15068}, {6, 1.15838}}) {
        SCOPED_TRACE(t.n);
        const double below = Media(SamplesOfSpread(t.n, t.gsd - 0.0001));
        EXPECT_EQ(below, Mg().Value());
        EXPECT_NEAR(Gsd().Value(), t.gsd - 0.0001, 1e-12);
        const double above = Media(SamplesOfSpread(t.n, t.gsd + 0.0001));
        EXPECT_GT(above, Mg().Value());
        EXPECT_NEAR(Gsd().Value(), t.gsd + 0.0001, 1e-12);
    }
}

TEST_F(MediaEstimadaTest, TwoSamplesHaveNoFactorHoweverFarApart) {
    const double result = Media(Samples({0.001, 1000}));
    EXPECT_EQ(result, Mg().Value());
}

TEST_F(MediaEstimadaTest, ANegativeSampleIsAnInvalidArgument) {
    ExpectError(ErrorKind::InvalidArgument, [&] { Media(Samples({2, -3})); });
    ExpectError(ErrorKind::InvalidArgument, [&] { Media(Samples({-2})); });
    EXPECT_EQ(Mg(), 0.0);
}

TEST(MuestrasTest, HaveTheSubscriptsZeroToSixAndNoOther) {
    Muestras samples;
    samples(0) = 1;
    samples(6) = 2;
    EXPECT_EQ(samples(0), 1);
    EXPECT_EQ(samples(6), 2);
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { samples(-1); });
    ExpectError(ErrorKind::SubscriptOutOfRange, [&] { samples(7); });
}

TEST_F(MediaEstimadaTest, SubscriptZeroIsNeverRead) {
    Muestras samples = Samples({2, 8});
    samples(0) = -1;
    ExpectClose(Media(samples), 4.0);
}

TEST_F(MediaEstimadaTest, StoresAtItsDayTaskAndContaminantAndNowhereElse) {
    EvaluacionRecord expected;
    MediaEstimada(record, Samples({2, 8}), 3, 2, 6);
    ExpectClose(record.MG(3, 2, 6), 4.0);
    ExpectClose(record.GSD(3, 2, 6), 2.6651441426902252);
    expected.MG(3, 2, 6) = record.MG(3, 2, 6);
    expected.GSD(3, 2, 6) = record.GSD(3, 2, 6);
    EXPECT_EQ(record, expected);
}

TEST_F(MediaEstimadaTest, ASubscriptOutOfRangeIsAnErrorAtTheMomentOfStoring) {
    const Muestras samples = Samples({2, 8});
    for (const int bad : {0, 4}) {
        ExpectError(ErrorKind::SubscriptOutOfRange,
                    [&] { MediaEstimada(record, samples, bad, 1, 1); });
        ExpectError(ErrorKind::SubscriptOutOfRange,
                    [&] { MediaEstimada(record, samples, 1, bad, 1); });
    }
    for (const int bad : {0, 7}) {
        ExpectError(ErrorKind::SubscriptOutOfRange,
                    [&] { MediaEstimada(record, samples, 1, 1, bad); });
    }
    EXPECT_EQ(record, EvaluacionRecord{});
}

TEST_F(MediaEstimadaTest, WithoutASampleNoSubscriptIsLookedAt) {
    EXPECT_EQ(MediaEstimada(record, {}, 0, 0, 0).Value(), 0.0);
}

TEST_F(MediaEstimadaTest, AFactorTooLargeOverflowsWithTheRecordAlreadyStored) {
    // GSD of 1E-300, 1, 1E+300 is 1E+300, and exp(0.1964E+300) has no Double.
    ExpectError(ErrorKind::Overflow, [&] { Media(Samples({1e-300, 1, 1e300})); });
    EXPECT_NEAR(Mg().Value(), 1.0, 1e-12);
    EXPECT_GT(Gsd(), 1e299);
}

// ProbabilidadExceso

struct LadderCase {
    double ratio;
    double dispersion;
    double probability;
};

// clang-format off
constexpr std::array kLadder = {
    // Ratio 10: the curves stand at 1.7252, 1.8603, 2.1223, 2.7139 and 4.0343.
    LadderCase{10, 1.5, 0.001}, LadderCase{10, 1.7, 0.001}, LadderCase{10, 1.8, 0.01},
    LadderCase{10, 2, 0.1},     LadderCase{10, 2.5, 1},     LadderCase{10, 3, 5},
    LadderCase{10, 4, 5},       LadderCase{10, 5, 50},
    // Ratio 4: 1.3901, 1.4497, 1.5725, 1.8231, 2.3177.
    LadderCase{4, 2, 5},        LadderCase{4, 2.3177, 50},  LadderCase{4, 1.39, 0.001},
    // Ratio 2: 1.1805, 1.2004, ...
    LadderCase{2, 1.2, 0.01},
    // Ratio 0.5: 0.8515, 0.8231, 0.7964, 0.7391, 0.6588: the curves fall.
    LadderCase{0.5, 1.5, 50},   LadderCase{0.5, 0.85, 0.001}, LadderCase{0.5, 0.8515, 50},
    // Ratio 1: the multipliers themselves.
    LadderCase{1, 1, 0.001},    LadderCase{1, 1.0026, 50},  LadderCase{1, 1.01, 50},
    // Ratio 1.01: 1.00495, 0.99670, 1.00236, 1.00292, 1.00805: the curves cross.
    LadderCase{1.01, 1.0049, 0.001}, LadderCase{1.01, 1.005, 5}, LadderCase{1.01, 1.0081, 50},
    // Ratio 100: 2.968, 3.482, 4.508, 7.376, 16.243.
    LadderCase{100, 2.96, 0.001}, LadderCase{100, 3.4, 0.01}, LadderCase{100, 4.5, 0.1},
    LadderCase{100, 7.37, 1},   LadderCase{100, 16.24, 5},  LadderCase{100, 16.25, 50},
};
// clang-format on

TEST(ProbabilidadExcesoTest, TheFirstCurveStrictlyAboveTheDispersionDecides) {
    for (const LadderCase& row : kLadder) {
        EXPECT_EQ(ProbabilidadExceso(row.ratio, row.dispersion).Value(), row.probability)
            << "ratio " << row.ratio << ", dispersion " << row.dispersion;
    }
}

constexpr std::array kClasses = {0.001, 0.01, 0.1, 1.0, 5.0, 50.0};

struct Curves {
    double ratio;
    std::array<double, 5> heights;
};

// Heights A x ratio^B, from Python's decimal module, 40 digits.
constexpr std::array<Curves, 3> kRisingCurves = {{
    {4, {1.3900590, 1.4496632, 1.5725447, 1.8230812, 2.3176818}},
    {10, {1.7251533, 1.8603146, 2.1223107, 2.7138858, 4.0342956}},
    {100, {2.9684361, 3.4816602, 4.5082600, 7.3755016, 16.2430552}},
}};

TEST(ProbabilidadExcesoTest, AboveARatioOfOneEachCurveIsTheEdgeBetweenTwoClasses) {
    for (const Curves& curves : kRisingCurves) {
        for (std::size_t k = 0; k < curves.heights.size(); ++k) {
            const double height = curves.heights.at(k);
            EXPECT_EQ(ProbabilidadExceso(curves.ratio, height - 1e-6).Value(), kClasses.at(k));
            EXPECT_EQ(ProbabilidadExceso(curves.ratio, height + 1e-6).Value(), kClasses.at(k + 1));
        }
    }
}

TEST(ProbabilidadExcesoTest, BelowARatioOfOneTheFirstCurveIsTheOnlyEdge) {
    // The curves fall there: 0.33863177 is the highest at ratio 0.01.
    EXPECT_EQ(ProbabilidadExceso(0.01, 0.33863177 - 1e-6).Value(), 0.001);
    EXPECT_EQ(ProbabilidadExceso(0.01, 0.33863177 + 1e-6).Value(), 50.0);
}

TEST(ProbabilidadExcesoTest, ACurveAtTheDispersionDoesNotCount) {
    // At ratio 1 each curve is its multiplier, exactly.
    EXPECT_EQ(ProbabilidadExceso(1, 1.0026).Value(), 50.0);
    EXPECT_EQ(ProbabilidadExceso(1, std::nextafter(1.0026, 0.0)).Value(), 0.001);
}

TEST(ProbabilidadExcesoTest, ARatioOfZeroOrLessGivesZeroWhateverTheDispersion) {
    for (const double ratio : {0.0, -0.0, -1.0, -1e300}) {
        for (const double dispersion : {-1.0, 0.0, 1.0, 2.5, 1e300}) {
            EXPECT_EQ(ProbabilidadExceso(ratio, dispersion).Value(), 0.0)
                << "ratio " << ratio << ", dispersion " << dispersion;
        }
    }
}

TEST(ProbabilidadExcesoTest, ADispersionOfZeroIsBelowTheFirstCurve) {
    EXPECT_EQ(ProbabilidadExceso(0.001, 0).Value(), 0.001);
}

TEST(ProbabilidadExcesoTest, TheLargestRatioOverflowsOnNoCurve) {
    // 1E+308 raised to 0.6049 is 2E+186.
    EXPECT_EQ(ProbabilidadExceso(1e308, 1e300).Value(), 50.0);
}

}  // namespace
}  // namespace velmora
