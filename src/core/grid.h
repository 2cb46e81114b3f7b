#pragma once

/// The shape of the sheet, for all of its files: its rows, the columns of its two grids, and where
/// a cell stands in the arrays that hold them.
///
/// There are 18 rows, six for each of three tasks. Rows, tasks and contaminants count from 1,
/// columns and the cells of an array from 0.
namespace velmora::grid {

inline constexpr int kRows = 18;
inline constexpr int kRowsPerTask = 6;

// Columns of Text1.
inline constexpr int kNumber = 0;  ///< of the contaminant within its task
inline constexpr int kName = 1;
inline constexpr int kEd = 2;
inline constexpr int kEc = 3;
inline constexpr int kUnits = 4;
inline constexpr int kSamplingTime = 5;
inline constexpr int kAdditive = 6;     ///< "A+", the number of the additive group
inline constexpr int kFirstSample = 7;  ///< C1
inline constexpr int kLastSample = 12;  ///< C6
inline constexpr int kMmp = 13;
inline constexpr int kIndex = 14;
inline constexpr int kIndexPlus = 15;
inline constexpr int kMg = 16;
inline constexpr int kGsd = 17;
inline constexpr int kColumns = 18;

// Columns of Text3.
inline constexpr int kEcPlus = 0;
inline constexpr int kMgPlus = 1;
inline constexpr int kGsdPlus = 2;
inline constexpr int kProbability = 3;
inline constexpr int kColumns3 = 4;

/// The row of a contaminant of a task. A contaminant beyond the sixth stands in the next task.
constexpr int RowOf(int task, int contaminant) { return (task - 1) * kRowsPerTask + contaminant; }

/// The cell of Text1, and of Text3, in a row and a column.
constexpr int Cell(int row, int column) { return (row - 1) * kColumns + column; }
constexpr int Cell3(int row, int column) { return (row - 1) * kColumns3 + column; }

}  // namespace velmora::grid
