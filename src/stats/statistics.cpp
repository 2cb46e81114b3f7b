#include "stats/statistics.h"

namespace velmora {

namespace {

constexpr double kHighestClass = 50;

Doble CorrectionFactor(Entero n, Doble gsd) {
    Doble f = 1;
    for (const Correction& c : kCorrections) {
        // GSD itself is the argument, not its logarithm: so the estimator is defined here.
        if (n == c.n) f = c.a * Exponential(c.b * gsd);
    }
    return f < 1 ? 1.0 : f;
}

}  // namespace

Doble Estimate::Mean() const { return mg * CorrectionFactor(n, gsd); }

LogNormal::LogNormal(const Muestras& samples) {
    for (int i = 1; i <= 6 && samples(i) != 0; ++i) {
        logarithms_(i) = Logarithm(samples(i));
        sum_ += logarithms_(i);
        ++size_;
    }
}

Doble LogNormal::GeometricMean() const { return Exponential(Mean()); }

Doble LogNormal::GeometricDeviation() const {
    const Doble mean = Mean();
    Doble squares;
    for (int i = 1; i <= size_.Value(); ++i) {
        squares += Power(Absolute(mean - logarithms_(i)), 2.0);
    }
    return Exponential(Power(squares / (size_ - 1).AsDoble(), Doble(1.0) / Doble(2.0)));
}

std::optional<Estimate> EstimateOf(const Muestras& samples) {
    const LogNormal series(samples);
    if (series.Size() == 0) return std::nullopt;
    // A single sample ends the program here, with 0 / 0: it is meant not to be given a value.
    const Doble gsd = series.GeometricDeviation();
    return Estimate{series.Size(), series.GeometricMean(), gsd};
}

Doble MediaEstimada(EvaluacionRecord& record, const Muestras& samples, Entero day, Entero task,
                    Entero contaminant) {
    const auto estimate = EstimateOf(samples);
    if (!estimate) return 0;
    record.MG(day, task, contaminant) = estimate->mg;
    record.GSD(day, task, contaminant) = estimate->gsd;
    return estimate->Mean();
}

Doble ProbabilidadExceso(const Doble& ratio, const Doble& dispersion) {
    if (ratio <= 0) return 0;
    for (const LimitCurve& curve : kCurves) {
        if (curve.a * Power(ratio, curve.b) > dispersion) return curve.rank;
    }
    return kHighestClass;
}

}  // namespace velmora
