#pragma once

#include <iosfwd>
#include <string>

#include "report/report.h"

namespace velmora::report {

/// Writes a report as one page of valid HTML 5 in Spanish: no script, nothing from outside, no time
/// of making. Figures of the sheet stand as the sheet holds them.
///
/// It goes out part by part: a page of hundreds of kilobytes in one piece costs more than making
/// it.
void WriteHtml(const Report& report, std::ostream& out);

/// The same as a string.
std::string Html(const Report& report);

}  // namespace velmora::report
