#pragma once

#include <filesystem>
#include <optional>

#include "core/chain.h"
#include "core/record.h"
#include "qt/qt_host.h"
#include "qt/window.h"
#include "support/robot.h"

namespace velmora::tour {

/// Whether the print dialog is the toolkit's own, which the robot can press. That of Windows isn't,
/// and for a page that goes to a file there is none.
#ifdef _WIN32
constexpr bool kHasToolkitsPrintDialog = false;
#else
constexpr bool kHasToolkitsPrintDialog = true;
#endif

/// One run of the program from its start, put together as `velmora` is, and the robot that uses it.
/// It prints into a PDF file, and its end is noted instead of ending this process.
struct Program {
    /// `pace` in milliseconds between the robot's actions.
    Program(const std::filesystem::path& printed_page, int pace);

    EvaluacionRecord record;
    QtHost host;
    ScreenChain chain;
    Window window;
    Robot robot;
    std::optional<int> exit_status;  ///< once the program has ended
};

}  // namespace velmora::tour
