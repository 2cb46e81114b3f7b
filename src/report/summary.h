#pragma once

#include <string>
#include <string_view>

#include "report/report.h"

namespace velmora::report {

/// An evaluation as one line, its fields parted by tabs: code, company, for each day of the plan
/// its highest index, probability class and sentences, how many things to review, the file's name.
std::string SummaryLine(const Report& report, std::string_view file);

}  // namespace velmora::report
