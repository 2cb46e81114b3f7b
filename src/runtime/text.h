#pragma once

#include <string_view>

namespace velmora {

inline constexpr std::string_view kLineEnd = "\r\n";

constexpr bool IsDigit(int character) { return character >= '0' && character <= '9'; }

/// The text without the spaces and tabs around it.
constexpr std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace velmora
