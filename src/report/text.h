#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <string_view>

namespace velmora::report {

/// How many letters of a text from a file are shown at most.
inline constexpr std::size_t kLettersShown = 400;

/// A text from a file as it may be shown anywhere: UTF-8 on one line, without the blanks around it.
/// Line breaks and tabs become blanks; control characters, non-characters and bytes that are no
/// UTF-8 become U+FFFD; behind `kLettersShown` letters the rest is cut off and "…" stands for it.
std::string Shown(std::string_view text);

/// The unit of a concentration as `Shown`, with the third power raised.
std::string UnitShown(std::string_view unit);

/// A text on one line cut to so many letters, the last of which is then "…". `text` is UTF-8.
std::string Fitting(std::string_view text, std::size_t letters);

/// UTF-8 as it may stand in HTML between tags and in quoted attribute values.
std::string Escaped(std::string_view text);
/// The same, written behind what `markup` holds.
void AppendEscaped(std::string& markup, std::string_view text);

/// UTF-8 as a string of CSS, with its quotes, that may stand in a style element.
std::string CssString(std::string_view text);

/// A whole number's digits.
template <std::integral T>
std::string Whole(T number) {
    std::array<char, 24> digits{};
    return {digits.begin(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}

/// A number with a point and up to `digits` significant digits (1 to 15), in plain notation from
/// 0.00001 to below 1E+15, with an exponent outside. `value` is finite.
std::string Rounded(double value, int digits = 4);

}  // namespace velmora::report
