#pragma once

namespace velmora {

/// Asks for an evaluation with a dialog, or takes those named behind the program's name, in UTF-8,
/// as when they were dropped on its icon; see `MakeReportFor`. Returns the exit status.
int MakeReportsOnDesktop(int argc, char* argv[]);

/// Does what the words behind the program's name order, in UTF-8, without a window. `terminal` is
/// whether messages go to one. Returns the exit status: 2 where the words aren't understood.
int ObeyReportOrder(int argc, char* argv[], bool terminal);

}  // namespace velmora
