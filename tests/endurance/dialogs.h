#pragma once

#include <string>
#include <vector>

#include "qt/qt_host.h"

namespace velmora::endurance {

/// What one more box or dialog leaves allocated behind, in bytes, once the first ones have warmed
/// up.
struct Remains {
    std::string what;
    double ours = 0;  ///< opened by the program's host
    double bare = 0;  ///< the same opened by the toolkit alone
};

/// Opens message boxes and file dialogs by the host and, in turn, bare ones of the toolkit's, so
/// many of each; every one is answered at once. Needs the event loop to run.
std::vector<Remains> CompareDialogs(QtHost& host, Window& window, int times);

}  // namespace velmora::endurance
