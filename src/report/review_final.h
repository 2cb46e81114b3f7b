#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/record.h"
#include "report/day_case.h"

namespace velmora::report {

/// The second reading of the plan: days not validated, days beyond it, rows that don't match the
/// contaminants on days that have no sheet yet.
std::vector<Finding> ReviewPlan(const EvaluacionRecord& record);

/// The second reading of the final table, cell by cell against the days' sheets and, where these
/// hold something else, against the plain computation of the validated `days`. `cells_read` is how
/// many of its cells, row by row, the file held: the others are passed over.
std::vector<Finding> ReviewFinalTable(const EvaluacionRecord& record,
                                      const std::vector<DayCase>& days, int cells_read);

/// IG of three indices: the cube root of their product; nothing for a negative or too large one.
std::optional<double> OverallIndex(const std::array<double, 3>& indices);

}  // namespace velmora::report
