#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// A character cut out of a text, and how many bytes it took.
struct Character {
    char32_t value = 0;
    std::size_t length = 0;  ///< 0 when the bytes are no UTF-8
};

/// The character at the start of a text that isn't empty. Longer spellings than needed, halves of
/// surrogate pairs and numbers above 10FFFF are no UTF-8.
Character FirstCharacter(std::string_view utf8);

}  // namespace velmora
