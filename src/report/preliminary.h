#pragma once

#include <vector>

#include "report/day_case.h"

namespace velmora::report {

/// What the preliminary test of UNE-EN 689:2018, 5.5.2, says of the daily results of one
/// contaminant or mixture, each an exposure of a day divided by its limit: fills in `threshold`,
/// `outcome` and `sentence`. One above the limit decides alone, whatever their number.
void Judge(PreliminaryTest& test);

/// The test of each contaminant of the plan and of each group with two rows or more, over the
/// validated days of the plan. Results are the plain indices: estimated mean over hours, against
/// VLA-ED; short-term limits aren't judged by it.
std::vector<PreliminaryTest> PreliminaryTests(const EvaluacionRecord& record,
                                              const std::vector<DayCase>& days);

}  // namespace velmora::report
