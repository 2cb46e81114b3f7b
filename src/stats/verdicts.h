#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "runtime/array.h"
#include "runtime/doble.h"

namespace velmora {

/// The three sentences for a value up to the low limit, up to the high one, and above.
struct VerdictScale {
    double low;
    double high;
    std::array<std::string_view, 3> sentences;

    /// 0 up to the low limit, 1 up to the high one, 2 above.
    std::size_t ClassOf(const Doble& value) const {
        return value <= low ? 0 : value <= high ? 1 : 2;
    }
    std::string_view For(const Doble& value) const { return sentences.at(ClassOf(value)); }
};

// clang-format off
/// By day, from the first. The third day's lowest sentence has no "/10", though its limit is the
/// same: that is meant.
inline constexpr Array<VerdictScale, 1, 3> kIndexVerdict({{
    {0.1, 1, {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
              "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS",
              "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"}},
    {0.1, 1, {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE/10: SITUACIÓN SEGURA",
              "SE CONTINUA  CON EL PLAN DE MEDICIONES",
              "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"}},
    {0.1, 1, {"EXPOSICIÓN INFERIOR AL VALOR LÍMITE: SITUACIÓN SEGURA",
              "PLAN DE MEDICIONES FINALIZADO",
              "RIESGO INACEPTABLE DEBE PROCEDERSE A CORREGIR LA EXPOSICIÓN"}},
}});

inline constexpr VerdictScale kProbabilityVerdict =
    {0.1, 5, {" BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS",
              " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS",
              "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"}};
// clang-format on

}  // namespace velmora
