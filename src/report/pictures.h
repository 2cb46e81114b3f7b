#pragma once

#include <vector>

#include "report/day_case.h"

namespace velmora::report {

/// The figures of the three kinds of pictures; `days` are validated, `table` is the final one.
std::vector<IndexSeries> IndexSeriesOf(const std::vector<FinalRow>& table,
                                       const std::vector<DayCase>& days);
std::vector<ProbabilityPlot> ProbabilityPlotsOf(const std::vector<DayCase>& days);
std::vector<LadderPoint> LadderPointsOf(const std::vector<DayCase>& days);

}  // namespace velmora::report
