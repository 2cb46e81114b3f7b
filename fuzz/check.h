#pragma once

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string_view>

namespace velmora::fuzz {

/// Ends the process with the rule that doesn't hold; the fuzzer then keeps its input.
template <class... Parts>
[[noreturn]] void Fail(std::string_view rule, const Parts&... found) {
    std::ostringstream text;
    text.precision(17);
    static_cast<void>((text << ... << found));
    std::cerr << "\nThis does not hold: " << rule << "\n  " << text.str() << std::endl;
    std::abort();
}

template <class... Parts>
void Require(bool holds, std::string_view rule, const Parts&... found) {
    if (!holds) Fail(rule, found...);
}

}  // namespace velmora::fuzz
