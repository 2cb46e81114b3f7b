#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "report/command_line.h"

namespace velmora::report {

/// What stands ahead of each message.
inline constexpr std::string_view kMessageHead = "velmora-informe: ";

/// Where a run speaks.
struct Channels {
    std::ostream& out;  ///< summary lines, the help
    std::ostream& err;  ///< messages and the progress line, with `kMessageHead` ahead
    bool progress;      ///< whether a progress line is wanted where there are many files
};

/// The name of the report beside an evaluation: that of the evaluation with ".html" for its ending.
std::string ReportNameOf(const std::string& evaluation);

/// Does what is ordered. Returns the exit status: 0, or 1 where a file could not be read or
/// written, after what could be done for the others. Evaluations are never written, whatever is
/// ordered, and no file is written twice in a run.
int Run(const Order& order, const Channels& channels);

}  // namespace velmora::report
