#pragma once

#include "core/record.h"
#include "report/report.h"

namespace velmora::report {

/// The report of a record whose file held so many lines, up to kLinesOfEvaluation; what it didn't
/// hold isn't missed in the second reading.
Report MakeReport(const EvaluacionRecord& record, int lines);

// Where the parts of the file begin, by line.
inline constexpr int kFirstOfPlan = 22;
inline constexpr int kFirstCount = 49;
inline constexpr int kFirstOfAgents = 52;
inline constexpr int kFirstOfSheets = 160;
inline constexpr int kFirstOfFinalTable = 1363;

}  // namespace velmora::report
