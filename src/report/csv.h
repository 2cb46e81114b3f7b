#pragma once

#include <string>
#include <string_view>

#include "report/report.h"

namespace velmora::report {

/// A text as a field of the table: as `Shown`, quoted by RFC 4180 where it has to be. What a
/// spreadsheet program would take for a formula, by its first letter, gets an apostrophe ahead.
std::string TextField(std::string_view text);

/// A figure of the sheet as a field of the table: its digits as they stand, with a zero ahead of a
/// leading mark, none behind a trailing one, and `decimal` for the point; "." is the sheet's 0.
/// What is no number with a point goes as a text.
std::string FigureField(std::string_view cell, char decimal);

/// The table's start: the mark by which spreadsheet programs know UTF-8, and the line of headings.
/// Fields are parted by semicolons, lines end with CR LF.
std::string TableHead();

/// A line for each row of each validated day. `file` is the evaluation's name, shown in the first
/// column.
std::string TableRows(const Report& report, std::string_view file, char decimal);

}  // namespace velmora::report
