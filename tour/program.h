#pragma once

#include <filesystem>

#include "support/program.h"

namespace velmora::tour {

/// Whether the print dialog is the toolkit's own, which the robot can press. That of Windows isn't,
/// and for a page that goes to a file there is none.
#ifdef _WIN32
constexpr bool kHasToolkitsPrintDialog = false;
#else
constexpr bool kHasToolkitsPrintDialog = true;
#endif

/// One run of the program that prints into a PDF file.
struct Program : velmora::Program {
    /// `pace` in milliseconds between the robot's actions.
    Program(const std::filesystem::path& printed_page, int pace);
};

}  // namespace velmora::tour
