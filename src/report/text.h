#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// How many letters of a text from a file are shown at most.
inline constexpr std::size_t kLettersShown = 400;

/// A text from a file as it may be shown anywhere: UTF-8 on one line, without the blanks around it.
/// Line breaks and tabs become blanks; control characters, non-characters and bytes that are no
/// UTF-8 become U+FFFD; behind `kLettersShown` letters the rest is cut off and "…" stands for it.
std::string Shown(std::string_view text);

/// UTF-8 as it may stand in HTML between tags and in quoted attribute values.
std::string Escaped(std::string_view text);

/// UTF-8 as a string of CSS, with its quotes, that may stand in a style element.
std::string CssString(std::string_view text);

/// A number with a point and up to `digits` significant digits (1 to 15), in plain notation from
/// 0.00001 to below 1E+15, with an exponent outside. `value` is finite.
std::string Figure(double value, int digits = 4);

}  // namespace velmora
