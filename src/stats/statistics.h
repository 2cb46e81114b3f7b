#pragma once

#include "core/record.h"
#include "runtime/array.h"

namespace velmora {

/// The samples of one contaminant, C1 to C6 in subscripts 1 to 6; subscript 0 is never read.
/// A place without a sample holds 0.
using Muestras = Array<Doble, 0, 6>;

/// Estimated mean concentration of a row of log-normal samples, in the samples' own unit.
///
/// The samples count up to the first that is exactly 0. With m and s the mean and the standard
/// deviation (divisor n - 1) of their natural logarithms, MG = exp(m) and GSD = exp(s) are stored
/// in the record at (`dia`, `tarea`, `contaminante`), and the result is MG x F, where F is 1 for
/// two samples, A x exp(B x GSD) for three to six, and never less than 1.
///
/// No sample gives 0 and stores nothing. Throws OperacionNoValida for a single sample (0 / 0),
/// ArgumentoNoValido for a negative one, SubindiceFueraDeRango outside days 1 to 3, tasks 1 to 3
/// and contaminants 1 to 6.
Doble MediaEstimada(EvaluacionRecord& record, const Muestras& muestras, Entero dia, Entero tarea,
                    Entero contaminante);

/// The class of the probability of going over the short-exposure limit: 0, 0.001, 0.01, 0.1, 1, 5
/// or 50.
///
/// `razon` is EC+ divided by MG+, `dispersion` is GSD+. Five curves A x razon^B are tried in the
/// order of their classes, and the first that lies strictly above `dispersion` decides; 50 when
/// none does, 0 when `razon` is 0 or negative.
Doble ProbabilidadExceso(const Doble& razon, const Doble& dispersion);

}  // namespace velmora
