#pragma once

#include <array>
#include <string_view>

#include "evaluation.h"

namespace velmora::tour {

// What must come out, as the cells show it.

/// The answers and sentences that close a day.
struct Conclusions {
    std::string_view index;                ///< Text2
    std::string_view probability;          ///< Text4
    std::string_view over;                 ///< Text7
    std::string_view index_verdict;        ///< Text5
    std::string_view probability_verdict;  ///< Text6
};
extern const std::array<Conclusions, kDays> kConclusions;

/// A row of the final table: I1, I2, I3, IG, P1, P2, P3; empty where the table has nothing.
using FinalRow = std::array<std::string_view, 7>;
inline constexpr int kFinalRows = kTasks * kAgents;
extern const std::array<FinalRow, kFinalRows> kFinalTable;

/// The results of one row of the worked day: MMP, Indice, Indic.+, MG, GSD, then EC+, MG+, GSD+,
/// Prob.
using WorkedRow = std::array<std::string_view, 9>;
extern const std::array<WorkedRow, kAgentsOfWorkedDay> kWorkedDay;

}  // namespace velmora::tour
