#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// A text as a field of the table: as `Shown`, quoted by RFC 4180 where it has to be. What a
/// spreadsheet program would take for a formula, by its first letter, gets an apostrophe ahead.
std::string TextField(std::string_view text);

/// A figure of the sheet as a field of the table: its digits as they stand, with a zero ahead of a
/// leading mark, none behind a trailing one, and `decimal` for the point; "." is the sheet's 0.
/// What is no number with a point goes as a text.
std::string FigureField(std::string_view cell, char decimal);

}  // namespace velmora
