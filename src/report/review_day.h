#pragma once

#include <vector>

#include "core/record.h"
#include "report/day_case.h"

namespace velmora::report {

/// The second reading of one validated day of the plan, by row.
///
/// A figure is looked at in two ways: against the plain computation from the samples and the plan,
/// and against what the plain formula gives from the sheet's own cells ahead of it. One that agrees
/// with either is no finding of its own: the first because nothing is wrong with it, the second
/// because it only follows another figure, which has its finding. What is left has one of the
/// sheet's known causes, or was changed.
std::vector<Finding> ReviewDay(const EvaluacionRecord& record, const DayCase& day);

/// The same of a day whose sheet the file of so many lines didn't hold to its end: that alone.
std::vector<Finding> ReviewCutDay(const DayCase& day, int lines);

}  // namespace velmora::report
