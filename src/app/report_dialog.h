#pragma once

#include <string>

namespace velmora {

/// Writes the report of an evaluation, named in UTF-8, beside it, asking before it replaces one,
/// and opens it in the browser. What goes wrong is said in a box. Returns the exit status, 0 also
/// where the user declines. The application is running.
int MakeReportFor(const std::string& evaluation);

/// Asks for the evaluation with a dialog. Returns 0 also where the user cancels.
int ReportAskedFor();

}  // namespace velmora
