#pragma once

namespace velmora {

/// Asks for an evaluation with a dialog, writes its report beside it, asking before it replaces
/// one, and opens it in the browser. What goes wrong is said in a box. Returns the exit status, 0
/// also where the user cancels. The application is running.
int ReportAskedFor();

}  // namespace velmora
