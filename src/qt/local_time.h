#pragma once

#include <ctime>

namespace velmora {

/// The local date and time of a moment. A time zone that was changed meanwhile counts from the next
/// second on. For the window's thread alone.
std::tm LocalTime(std::time_t moment);

}  // namespace velmora
