// Both statistics routines against the same formulas in 113-bit arithmetic.
//
// Input: one byte that says the routine and how its numbers are spelled, then the numbers.

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "fuzz/bytes.h"
#include "fuzz/check.h"
#include "stats/statistics.h"

// Of the C library; its header declares them for other compilers only.
extern "C" {
__float128 logf128(__float128 x);
__float128 expf128(__float128 x);
__float128 powf128(__float128 x, __float128 y);
}

namespace velmora::fuzz {
namespace {

using Exact = __float128;

constexpr double kLargest = std::numeric_limits<double>::max();

/// The unit of the tolerances: one step of a Double near 1. An operation on Doubles adds at most
/// half of it, relative to its result; a function of the library at most one.
constexpr double kStep = std::numeric_limits<double>::epsilon();
/// The same of the smallest Doubles, whose steps are all alike.
constexpr double kLeastStep = std::numeric_limits<double>::denorm_min();

/// What the formulas give in exact arithmetic, and how far Doubles may stray from it: relative to
/// the value, and in all.
struct Estimate {
    Exact value = 0;
    double tolerance = 0;
    Exact least = kLeastStep;

    bool Matches(double came) const {
        const Exact distance = came > value ? came - value : value - came;
        return distance <= value * tolerance + least;
    }
    bool SurelyOverflows() const { return value * (1 - tolerance) > kLargest; }
    bool SurelyFits() const { return value * (1 + tolerance) < kLargest; }
};

struct Factor {
    double a;
    double b;
};

/// By the number of samples.
constexpr std::array<Factor, 7> kFactors = {
    {{}, {}, {1, 0}, {0.7969, 0.1964}, {0.763, 0.228}, {0.7593, 0.2393}, {0.7477, 0.251}}};

struct Mean {
    Estimate mg;
    Estimate gsd;
    Estimate growth;  ///< exp(B x GSD)
    Estimate result;
};

/// The formulas of two samples and more.
///
/// Tolerances. With L the largest |ln x|, a logarithm is off by at most L steps; so are the sum's
/// terms, and its n - 1 additions add (n - 1) x n x L / 2 half-steps: the mean m is off by at most
/// (1 + n / 2 + 1) x L <= 5 L steps, and so is each distance |m - ln x| by at most 7 L. The spread
/// s, a norm of the distances over sqrt(n - 1), is off by at most sqrt(n / (n - 1)) times that,
/// below 10 L, and by 8 s for its own operations. The exponential turns what its argument is off,
/// absolutely, into what it is off itself, relatively; and one more step for rounding. A mean that
/// is one of the smallest Doubles is off by a whole one of their steps, and the result F times so.
Mean Formulas(const std::vector<double>& samples) {
    const auto n = static_cast<double>(samples.size());
    Exact sum = 0;
    double largest = 0;
    for (const double sample : samples) {
        const Exact logarithm = logf128(sample);
        sum += logarithm;
        largest = std::max(largest, std::fabs(static_cast<double>(logarithm)));
    }
    const Exact m = sum / n;
    Exact squares = 0;
    for (const double sample : samples) {
        const Exact distance = m - logf128(sample);
        squares += distance * distance;
    }
    const Exact s = powf128(squares / (n - 1), 0.5);

    Mean mean;
    mean.mg = {expf128(m), (5 * largest + 2) * kStep};
    mean.gsd = {expf128(s), (10 * largest + 8 * static_cast<double>(s) + 2) * kStep};
    const Factor& factor = kFactors.at(samples.size());
    const Exact argument = factor.b * mean.gsd.value;
    // An argument beyond 1000 overflows by far, however far off it is.
    const double off =
        std::min(static_cast<double>(argument), 1000.0) * (mean.gsd.tolerance + 2 * kStep);
    mean.growth = {expf128(argument), off + 2 * kStep};
    const Exact f = std::max<Exact>(factor.a * mean.growth.value, 1);
    mean.result = {mean.mg.value * f, mean.mg.tolerance + mean.growth.tolerance + 4 * kStep,
                   kLeastStep * (f + 1)};
    return mean;
}

struct Call {
    Muestras samples;
    int day;
    int task;
    int contaminant;

    bool IsInBounds() const {
        return day >= 1 && day <= 3 && task >= 1 && task <= 3 && contaminant >= 1 &&
               contaminant <= 6;
    }
    /// The samples up to the first zero.
    std::vector<double> Counted() const {
        std::vector<double> counted;
        for (int i = 1; i <= 6 && samples(i) != 0; ++i) counted.push_back(samples(i).Value());
        return counted;
    }
};

/// What a call came to.
struct Outcome {
    std::optional<double> result;
    std::optional<ErrorKind> error;
};

template <class Routine>
Outcome Came(Routine routine) {
    try {
        return {routine().Value(), std::nullopt};
    } catch (const ErrorEjecucion& error) {
        return {std::nullopt, error.Kind()};
    }
}

void RequireError(const Outcome& came, ErrorKind due, std::string_view rule) {
    Require(came.error == due, rule, "result ", came.result.value_or(-1), ", error ",
            came.error ? static_cast<int>(*came.error) : -1);
}

/// A record with values of its own where the routine writes and where it doesn't.
EvaluacionRecord MarkedRecord() {
    EvaluacionRecord record;
    for (int day = 1; day <= 3; ++day) {
        for (int task = 1; task <= 3; ++task) {
            for (int c = 1; c <= 6; ++c) {
                record.MG(day, task, c) = 100 * day + 10 * task + c;
                record.GSD(day, task, c) = -100 * day - 10 * task - c;
            }
        }
    }
    return record;
}

/// Judges one call. Tells whether the routine had to store what it computed.
bool Judge(const Call& call, const Outcome& came, const EvaluacionRecord& record) {
    const std::vector<double> counted = call.Counted();
    if (counted.empty()) {
        Require(came.result == 0.0, "no sample gives 0", came.result.value_or(-1));
        return false;
    }
    if (std::ranges::any_of(counted, [](double sample) { return sample < 0; })) {
        RequireError(came, ErrorKind::InvalidArgument, "a negative sample has no logarithm");
        return false;
    }
    if (counted.size() == 1) {
        RequireError(came, ErrorKind::InvalidOperation, "a single sample is 0 / 0");
        return false;
    }
    const Mean mean = Formulas(counted);
    const bool fits = mean.mg.SurelyFits() && mean.gsd.SurelyFits();
    if (came.error == ErrorKind::Overflow && !fits) return false;
    Require(!mean.mg.SurelyOverflows() && !mean.gsd.SurelyOverflows(), "MG and GSD fit a Double");
    if (!call.IsInBounds()) {
        RequireError(came, ErrorKind::SubscriptOutOfRange, "the place is in bounds");
        return false;
    }
    const double mg = record.MG(call.day, call.task, call.contaminant).Value();
    const double gsd = record.GSD(call.day, call.task, call.contaminant).Value();
    Require(mean.mg.Matches(mg), "MG is the geometric mean", mg, " against ",
            static_cast<double>(mean.mg.value));
    Require(mean.gsd.Matches(gsd), "GSD is the geometric deviation", gsd, " against ",
            static_cast<double>(mean.gsd.value));
    if (came.error) {
        RequireError(came, ErrorKind::Overflow, "only an overflow can come behind storing");
        Require(!mean.growth.SurelyFits() || !mean.result.SurelyFits(), "what fits is given");
        return true;
    }
    Require(!mean.growth.SurelyOverflows() && !mean.result.SurelyOverflows(),
            "what doesn't fit is an error", *came.result);
    Require(mean.result.Matches(*came.result), "the result is MG x F", *came.result, " against ",
            static_cast<double>(mean.result.value));
    return true;
}

void CheckMean(const Call& call) {
    static const EvaluacionRecord before = MarkedRecord();
    static EvaluacionRecord record = before;
    const Outcome came = Came(
        [&] { return MediaEstimada(record, call.samples, call.day, call.task, call.contaminant); });
    if (Judge(call, came, record)) {
        record.MG(call.day, call.task, call.contaminant) =
            before.MG(call.day, call.task, call.contaminant);
        record.GSD(call.day, call.task, call.contaminant) =
            before.GSD(call.day, call.task, call.contaminant);
    }
    Require(record.MG == before.MG && record.GSD == before.GSD,
            "nothing is stored but at the place of a row with a value");
}

struct Curve {
    double a;
    double b;
    double level;
};

constexpr std::array<Curve, 5> kCurves = {{{1.0026, 0.2357, 0.001},
                                           {0.994, 0.2722, 0.01},
                                           {0.9991, 0.3272, 0.1},
                                           {0.9986, 0.4342, 1},
                                           {1.002, 0.6049, 5}}};

/// A x ratio^B in exact arithmetic, and rounded: a power and a product, two steps at most.
Estimate Height(const Curve& curve, double ratio) {
    return {curve.a * powf128(ratio, curve.b), 2 * kStep};
}

/// Walks the ladder. Where Doubles can't tell a curve from the dispersion, both turns are good;
/// at a ratio of 1 a curve is its A, with nothing to stray.
void CheckProbability(double ratio, double dispersion) {
    const Outcome came = Came([&] { return ProbabilidadExceso(ratio, dispersion); });
    Require(came.result.has_value(), "the ladder raises no error", ratio, ", ", dispersion);
    if (ratio <= 0) {
        Require(*came.result == 0, "a ratio of 0 or below gives 0", *came.result);
        return;
    }
    for (const Curve& curve : kCurves) {
        const Estimate height = Height(curve, ratio);
        const bool can_tell = ratio == 1 || !height.Matches(dispersion);
        if (*came.result == curve.level && (!can_tell || height.value > dispersion)) return;
        Require(!can_tell || !(height.value > dispersion),
                "the first curve above the dispersion decides", ratio, ", ", dispersion,
                " came as ", *came.result, ", due ", curve.level);
    }
    Require(*came.result == 50, "beyond all curves the class is 50", *came.result);
}

/// A number, by its bits or as it is typed: up to five digits, some behind the point.
double Number(Bytes& input, bool typed) {
    if (!typed) {
        const double number = input.Double();
        return std::isfinite(number) ? number : 0;
    }
    static constexpr std::array<double, 4> kScales = {1, 10, 100, 1000};
    const int low = input.Byte();
    const int high = input.Byte();
    return (low + 256 * high) % 20000 / kScales.at(static_cast<std::size_t>(high / 64));
}

void Run(Bytes input) {
    const int kind = input.Byte();
    const bool typed = kind % 2 == 0;
    const int routine = kind / 2 % 4;
    if (routine < 2) {
        Call call{{}, 1 + input.Below(3), 1 + input.Below(3), 1 + input.Below(6)};
        if (routine == 1) {  // a place out of bounds
            (call.day == 1    ? call.day
             : call.task == 1 ? call.task
                              : call.contaminant) = input.Byte() - 128;
        }
        call.samples(0) = -1;  // never read
        for (int i = 1; i <= 6; ++i) call.samples(i) = Number(input, typed);
        CheckMean(call);
        return;
    }
    const double ratio = Number(input, typed);
    double dispersion = Number(input, typed);
    if (routine == 3 && ratio > 0) {  // hard by one of the curves
        const Curve& curve = kCurves.at(static_cast<std::size_t>(input.Below(5)));
        dispersion = static_cast<double>(Height(curve, ratio).value);
        dispersion *= 1 + (input.Below(9) - 4) * kStep;
    }
    CheckProbability(ratio, dispersion);
}

}  // namespace
}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::fuzz::Run({data, size});
    return 0;
}
