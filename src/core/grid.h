#pragma once

/// The shape of a day's sheet: its rows, which are the final table's, too, the columns of its two
/// grids, and where a cell stands in the arrays that hold them.
///
/// There are 18 rows, six for each of three tasks. Rows, tasks and contaminants count from 1,
/// columns and the cells of an array from 0.
namespace velmora::grid {

inline constexpr int kTasks = 3;
inline constexpr int kRowsPerTask = 6;
inline constexpr int kRows = kTasks * kRowsPerTask;

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
inline constexpr int kSamples = kLastSample - kFirstSample + 1;
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
constexpr int TaskOf(int row) { return (row - 1) / kRowsPerTask + 1; }
constexpr int ContaminantOf(int row) { return (row - 1) % kRowsPerTask + 1; }

/// The cell of Text1, and of Text3, in a row and a column.
constexpr int Cell(int row, int column) { return (row - 1) * kColumns + column; }
constexpr int Cell3(int row, int column) { return (row - 1) * kColumns3 + column; }

/// The title of a task in Label7, behind the headings of all of them.
constexpr int TitleOf(int task) { return kTasks * kColumns + task - 1; }

}  // namespace velmora::grid

/// The columns of the final table, from 1: I1 to I3 and P1 to P3 are the days' indices and
/// probabilities, IG the overall index.
namespace velmora::final_table {

enum Column : int { kNumber = 1, kName, kI1, kI2, kI3, kIG, kP1, kP2, kP3 };
inline constexpr int kColumns = 9;

/// The columns of a day, from 1.
constexpr int IndexColumn(int day) { return kI1 + day - 1; }
constexpr int ProbabilityColumn(int day) { return kP1 + day - 1; }

}  // namespace velmora::final_table
