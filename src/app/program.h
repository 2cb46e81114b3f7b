#pragma once

#include <string>

namespace velmora {

/// Runs the program under this decimal separator, in UTF-8, up to its end; gives its exit status.
int RunProgram(int argc, char* argv[], const std::string& separator);

}  // namespace velmora
