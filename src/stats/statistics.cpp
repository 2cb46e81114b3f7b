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

std::optional<Estimacion> Estimar(const Muestras& muestras) {
    Entero n;
    Doble suma_logaritmos;
    for (int i = 1; i <= 6; ++i) {
        if (muestras(i) == 0) break;
        suma_logaritmos += Logaritmo(muestras(i));
        ++n;
    }
    if (n == 0) return std::nullopt;

    const Doble m = suma_logaritmos / n.ComoDoble();
    Doble q;
    for (int i = 1; i <= 6; ++i) {
        if (muestras(i) == 0) break;
        q += Potencia(Absoluto(m - Logaritmo(muestras(i))), 2.0);
    }
    // A single sample fails here, with 0 / 0: it is not given a value.
    const Doble s = Potencia(q / (n - 1).ComoDoble(), Doble(1.0) / Doble(2.0));

    return Estimacion{n, Exponencial(m), Exponencial(s)};
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
