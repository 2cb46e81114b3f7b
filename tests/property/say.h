#pragma once

#include <sstream>
#include <string>

namespace velmora::property {

/// The parts put together as text, for messages to the developer.
template <class... Parts>
std::string Say(const Parts&... parts) {
    std::ostringstream text;
    text.precision(17);
    (text << ... << parts);
    return text.str();
}

}  // namespace velmora::property
