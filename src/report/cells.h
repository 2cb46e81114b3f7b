#pragma once

#include <string>
#include <string_view>

#include "core/grid.h"
#include "core/record.h"
#include "report/report.h"

namespace velmora::report {

using grid::ContaminantOf;
using grid::kRows;
using grid::kRowsPerTask;
using grid::kSamples;
using grid::RowOf;
using grid::TaskOf;

/// The columns of a day's sheet, main grid and right-hand grid in one.
enum class Column {
    Number,
    Name,
    VlaEd,
    VlaEc,
    Unit,
    SamplingMinutes,
    Group,
    C1,
    C2,
    C3,
    C4,
    C5,
    C6,
    Mmp,
    Index,
    CombinedIndex,
    Mg,
    Gsd,
    EcPlus,
    MgPlus,
    GsdPlus,
    Probability
};

constexpr int PlaceOf(Column column) { return static_cast<int>(column); }
inline constexpr int kSheetColumns = PlaceOf(Column::Probability) + 1;

/// The text of the cell of row 1 to 18.
const std::string& CellOf(const DaySheet& sheet, int row, Column column);

/// The answers and sentences of a day's conclusions.
enum class Answer {
    HighestIndex = 397,
    HighestProbability,
    IndexSentence,
    ProbabilitySentence,
    OverLimit
};

/// The text of an answer.
inline const std::string& AnswerOf(const DaySheet& sheet, Answer answer) {
    return sheet(static_cast<int>(answer));
}

/// The column of sample 1 to 6.
constexpr Column SampleColumn(int sample) {
    return static_cast<Column>(PlaceOf(Column::C1) + sample - 1);
}

/// Whether the sheet was ever validated: a day that wasn't holds nothing but blanks.
bool IsValidated(const DaySheet& sheet);

/// Whether the row of the sheet shows anything but the means that are written on every row.
bool IsInUse(const DaySheet& sheet, int row);

/// What the text shows: see `Figure`.
Figure FigureOf(std::string_view text);

/// The number that the program's own screens read from the text: up to the first character that
/// can't continue it, 0 when there is none or it is too large for a Double.
double ReadAsTheSheet(std::string_view text);
/// The same of a figure made by `FigureOf`.
double ReadAsTheSheet(const Figure& figure);

}  // namespace velmora::report
