#pragma once

#include <string_view>

namespace velmora::report {

/// The version of the program, "1.0.0".
std::string_view Version();

}  // namespace velmora::report
