#pragma once

#include <string>
#include <vector>

#include "measure.h"

namespace velmora::bench {

/// Where the benchmark finds what it runs and leaves what it writes.
struct Places {
    std::string build;     ///< the build folder: the program, the empty window, the plug-in
    std::string source;    ///< of this folder
    std::string examples;  ///< the evaluation of three days and three tasks
    std::string scratch;   ///< an empty folder
};

using Rows = std::vector<Row>;

/// Start and memory of the program and of the sheet; the worked day by other programs.
Rows MeasureProcesses(const Places& places);
/// The move to the sheet, the eight buttons, the clock.
Rows MeasureWindow(const Places& places);
/// Saving and restoring.
Rows MeasureFiles(const Places& places);
/// A report against reading its evaluation, and many of them in a row.
Rows MeasureReport(const Places& places);
/// A whole evaluation without the window.
Rows MeasureCore(const Places& places);

/// What `main` runs in a process of its own: shows the sheet with results, or an empty window of
/// the same size, and prints the resident memory in bytes.
int ShowMemoryOfSheet(const Places& places);
int ShowMemoryOfEmptyWindow();

}  // namespace velmora::bench
