#pragma once

#include <array>
#include <optional>

#include "core/record.h"
#include "runtime/array.h"

namespace velmora {

/// The samples of one contaminant, C1 to C6 in subscripts 1 to 6; subscript 0 is never read.
/// A place without a sample holds 0.
using Muestras = Array<Doble, 0, 6>;

/// Correction factor of the estimated mean for n samples, A x exp(B x GSD).
struct Correction {
    int n;
    double a;
    double b;
};

/// One curve of the ladder: its class holds where A x ratio^B is above the dispersion.
struct LimitCurve {
    double a;
    double b;
    double rank;  ///< per cent
};

// clang-format off
/// Given with the method. For GSD from 1.2 to 4 they come within 2 % of the factor of the unbiased
/// estimator of a log-normal mean with the least variance (D. J. Finney, 1941).
inline constexpr std::array<Correction, 4> kCorrections = {{
    {3, 0.7969, 0.1964},
    {4, 0.763,  0.228 },
    {5, 0.7593, 0.2393},
    {6, 0.7477, 0.251 },
}};

/// The curves in the order in which they are tried. Given with the method. Each comes close to
/// ratio^(1 / z), the dispersion at which a log-normal concentration passes `ratio` times its
/// geometric mean with the class's probability; z is the normal quantile, 4.265, 3.719, 3.090,
/// 2.326 and 1.645. B is within 1.3 % of 1 / z.
inline constexpr std::array<LimitCurve, 5> kCurves = {{
    {1.0026, 0.2357, 0.001},
    {0.994,  0.2722, 0.01 },
    {0.9991, 0.3272, 0.1  },
    {0.9986, 0.4342, 1    },
    {1.002,  0.6049, 5    },
}};
// clang-format on

/// The log-normal distribution that a series of samples comes from: those up to the first that is
/// exactly 0, in the samples' own unit.
class LogNormal {
public:
    /// Throws InvalidArgument for a negative sample within the series.
    explicit LogNormal(const Muestras& samples);

    /// How many samples there are, 0 to 6.
    Entero Size() const { return size_; }

    /// exp(m), m the mean of the natural logarithms. Throws InvalidOperation without samples.
    Doble GeometricMean() const;

    /// exp(s), s the standard deviation of the natural logarithms, its divisor one less than their
    /// number. Throws InvalidOperation for fewer than two samples.
    Doble GeometricDeviation() const;

private:
    Doble Mean() const { return sum_ / size_.AsDoble(); }

    Array<Doble, 1, 6> logarithms_;
    Doble sum_;
    Entero size_;
};

/// What a row of log-normal samples gives, in the samples' own unit but for the deviation.
struct Estimate {
    Entero n;   ///< samples that counted
    Doble mg;   ///< geometric mean
    Doble gsd;  ///< geometric deviation

    /// The estimated mean: MG x F, where F is 1 for two samples, A x exp(B x GSD) for three to six,
    /// and never less than 1.
    Doble Mean() const;
};

/// The `LogNormal` of the samples; nothing without any. Throws InvalidOperation for a single
/// sample (0 / 0), InvalidArgument for a negative one.
std::optional<Estimate> EstimateOf(const Muestras& samples);

/// The estimated mean of the samples, 0 without any. Stores MG and GSD in the record at (`day`,
/// `task`, `contaminant`) unless there is no sample. Throws as `EstimateOf` does, and
/// SubscriptOutOfRange outside days 1 to 3, tasks 1 to 3 and contaminants 1 to 6.
Doble MediaEstimada(EvaluacionRecord& record, const Muestras& samples, Entero day, Entero task,
                    Entero contaminant);

/// The class of the probability of going over the short-exposure limit: 0, 0.001, 0.01, 0.1, 1, 5
/// or 50.
///
/// `ratio` is EC+ divided by MG+, `dispersion` is GSD+. Five curves A x ratio^B are tried in the
/// order of their classes, and the first that lies strictly above `dispersion` decides; 50 when
/// none does, 0 when `ratio` is 0 or negative.
Doble ProbabilidadExceso(const Doble& ratio, const Doble& dispersion);

}  // namespace velmora
