#pragma once

#include <vector>

#include "report/day_case.h"

namespace velmora::report {

/// What one row brings to the day's conclusions.
struct RowVerdict {
    double index = 0;        ///< the greater of its index and its combined index
    double probability = 0;  ///< class, per cent
    bool over = false;       ///< one of its samples reaches its limit
};
using DayVerdict = ByRow<RowVerdict>;

/// What the rows bring by the sheet's cells, and by the plain computation (index unrounded).
DayVerdict VerdictOfSheet(const DayCase& day);
DayVerdict VerdictOfPlain(const DayCase& day);

/// The day's greatest index, greatest class, and whether any row is over its limit.
RowVerdict Summary(const DayVerdict& rows);

/// Whether two verdicts differ in an answer or a sentence: the class of the greatest index, that of
/// the greatest probability, or the limits.
bool SayOther(const DayVerdict& a, const DayVerdict& b);

/// The part of a verdict that a finding bears on.
enum class Part { All, Index, Probability, Limits };

/// Whether the verdict hangs on this part of these rows: it changes when they alone are taken from
/// the plain computation, or when they alone are left as the sheet has them.
bool HangsOn(const DayVerdict& sheet, const DayVerdict& plain, const std::vector<int>& rows,
             Part part);

/// The class of an index by the guide's thresholds (0, 1 or 2), as equal within the last digits.
std::size_t IndexClass(double index);

}  // namespace velmora::report
