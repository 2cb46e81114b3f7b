#include "stats/statistics.h"

namespace velmora {

namespace {

constexpr double kClaseMasAlta = 50;

Doble FactorDeCorreccion(Entero n, Doble gsd) {
    Doble f = 1;
    for (const Correccion& c : kCorrecciones) {
        // GSD itself is the argument, not its logarithm: so the estimator is defined here.
        if (n == c.n) f = c.a * Exponencial(c.b * gsd);
    }
    return f < 1 ? 1.0 : f;
}

}  // namespace

Doble Estimacion::Media() const { return mg * FactorDeCorreccion(n, gsd); }

LogNormal::LogNormal(const Muestras& samples) {
    for (int i = 1; i <= 6 && samples(i) != 0; ++i) {
        logarithms_(i) = Logaritmo(samples(i));
        sum_ += logarithms_(i);
        ++size_;
    }
}

Doble LogNormal::GeometricMean() const { return Exponencial(Mean()); }

Doble LogNormal::GeometricDeviation() const {
    const Doble mean = Mean();
    Doble squares;
    for (int i = 1; i <= size_.Valor(); ++i) {
        squares += Potencia(Absoluto(mean - logarithms_(i)), 2.0);
    }
    return Exponencial(Potencia(squares / (size_ - 1).ComoDoble(), Doble(1.0) / Doble(2.0)));
}

std::optional<Estimacion> Estimar(const Muestras& muestras) {
    const LogNormal series(muestras);
    if (series.Size() == 0) return std::nullopt;
    // A single sample ends the program here, with 0 / 0: it is meant not to be given a value.
    const Doble gsd = series.GeometricDeviation();
    return Estimacion{series.Size(), series.GeometricMean(), gsd};
}

Doble MediaEstimada(EvaluacionRecord& record, const Muestras& muestras, Entero dia, Entero tarea,
                    Entero contaminante) {
    const auto estimacion = Estimar(muestras);
    if (!estimacion) return 0;
    record.MG(dia, tarea, contaminante) = estimacion->mg;
    record.GSD(dia, tarea, contaminante) = estimacion->gsd;
    return estimacion->Media();
}

Doble ProbabilidadExceso(const Doble& razon, const Doble& dispersion) {
    if (razon <= 0) return 0;
    for (const Curva& curva : kCurvas) {
        if (curva.a * Potencia(razon, curva.b) > dispersion) return curva.clase;
    }
    return kClaseMasAlta;
}

}  // namespace velmora
