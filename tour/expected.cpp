#include "expected.h"

namespace velmora::tour {

// clang-format off

// The conclusions and the final table: printed by tests/lockstep/evaluation.py, a model of its own,
// from the plan and the measurements alone.
const std::array<Conclusions, kDays> kConclusions = {{
    {"0.61", "1", "NO",
     "DEBE PROCEDERSE A LA VALORACIÓN DE DOS DÍAS MÁS",
     " SITUACIÓN DE INCERTIDUMBRE PARA EXPOSICIONES EN PERIODOS CORTOS"},
    {"0.44", "50", "SI",
     "SE CONTINUA  CON EL PLAN DE MEDICIONES",
     "ALTA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"},
    {"0.41", "0.001", "NO",
     "PLAN DE MEDICIONES FINALIZADO",
     " BAJA PROBABILIDAD DE SUPERAR EXPOSICIONES EN PERIODOS CORTOS"},
}};

const std::array<FinalRow, kFinalRows> kFinalTable = {{
    {"0.61", "0.44", "0.41", "0.479205862788185", "0.001", "0.001", "0.001"},
    {"0.19", "0.15", "0.13", "0.154737676304838", "0.001", "0.001", "0.001"},
    {"", "", "", "", "", "", ""},
    {"0.35", "0.22", "0.21", "0.252873511842553", "0.001", "0.001", "0.001"},
    {"0.31", "0.28", "0.22", "0.267288825094746", "0.001", "0.001", "0.001"},
    {"0.31", "0.28", "0.22", "0.267288825094746", "", "", ""},
    {"0.04", "0.06", "0.04", "0.0457885697021333", "0.001", "0.001", "0.001"},
    {"", "", "", "", "", "", ""},
    {"0.16", "0.04", "0.04", "0.063496042078728", "0.1", "0.001", "0.001"},
    {"0.12", "0.08", "0.07", "0.0875903827977578", "0.001", "0.1", "0.001"},
    {"0.08", "0.14", "0.05", "0.0824257059961711", "1", "50", "0.001"},
    {"0.02", "0.02", "0.02", "0.02", "0.001", "0.001", "0.001"},
    {"0.06", "0.04", "0.01", "0.0288449914061482", "0.01", "0.001", "0.001"},
    {"0.04", "0.11", "0.02", "0.0444796018113863", "0.001", "0.001", "0.001"},
    {"0.11", "0.13", "0.04", "0.0830103050058941", "0.1", "0.1", "0.001"},
    {"0.06", "0.06", "0.03", "0.047622031559046", "0.001", "0.001", "0.001"},
    {"", "", "", "", "", "", ""},
    {"", "", "", "", "", "", ""},
}};

// The figures of the worked day, as they were given; the model comes to the same.
const std::array<WorkedRow, kAgentsOfWorkedDay> kWorkedDay = {{
    {"117.76", ".61", ".61",  "117.11", "1.21", "384",              "117.11",           "1.21",             "0.001"},
    {"32.77",  ".15", "0.19", "31.18",  "1.4",  "536.069661301946", "47.7472786976975", "1.43136286612149", "0.001"},
    {"17.72",  ".04", "",     "16.55",  "1.49", "",                 "",                 "",                 ""},
}};

// clang-format on

}  // namespace velmora::tour
