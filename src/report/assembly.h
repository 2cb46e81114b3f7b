#pragma once

#include "core/record.h"
#include "report/report.h"

namespace velmora::report {

/// The report of a record whose file held so many cells of the final table, row by row; what it
/// didn't hold isn't missed in the second reading.
Report MakeReport(const EvaluacionRecord& record, int cells_read);

}  // namespace velmora::report
