#include "stats/statistics.h"

#include <array>

namespace velmora {

namespace {

/// Correction factor of the estimated mean for n samples, A x exp(B x GSD).
struct Correccion {
    int n;
    double a;
    double b;
};

/// One curve of the ladder: its class holds where A x razon^B is above the dispersion.
struct Curva {
    double a;
    double b;
    double clase;
};

// clang-format off
constexpr std::array<Correccion, 4> kCorrecciones = {{
    {3, 0.7969, 0.1964},
    {4, 0.763,  0.228 },
    {5, 0.7593, 0.2393},
    {6, 0.7477, 0.251 },
}};

constexpr std::array<Curva, 5> kCurvas = {{
    {1.0026, 0.2357, 0.001},
    {0.994,  0.2722, 0.01 },
    {0.9991, 0.3272, 0.1  },
    {0.9986, 0.4342, 1    },
    {1.002,  0.6049, 5    },
}};
// clang-format on

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

Doble MediaEstimada(EvaluacionRecord& record, const Muestras& muestras, Entero dia, Entero tarea,
                    Entero contaminante) {
    Entero n;
    Doble suma_logaritmos;
    for (int i = 1; i <= 6; ++i) {
        if (muestras(i) == 0) break;
        suma_logaritmos += Logaritmo(muestras(i));
        ++n;
    }
    if (n == 0) return 0;

    const Doble m = suma_logaritmos / n.ComoDoble();
    Doble q;
    for (int i = 1; i <= 6; ++i) {
        if (muestras(i) == 0) break;
        q += Potencia(Absoluto(m - Logaritmo(muestras(i))), 2.0);
    }
    // A single sample fails here, with 0 / 0: it is not given a value.
    const Doble s = Potencia(q / (n - 1).ComoDoble(), Doble(1.0) / Doble(2.0));

    const Doble mg = Exponencial(m);
    const Doble gsd = Exponencial(s);
    record.MG(dia, tarea, contaminante) = mg;
    record.GSD(dia, tarea, contaminante) = gsd;
    return mg * FactorDeCorreccion(n, gsd);
}

Doble ProbabilidadExceso(const Doble& razon, const Doble& dispersion) {
    if (razon <= 0) return 0;
    for (const Curva& curva : kCurvas) {
        if (curva.a * Potencia(razon, curva.b) > dispersion) return curva.clase;
    }
    return kClaseMasAlta;
}

}  // namespace velmora
