#pragma once

#include <vector>

#include "core/record.h"
#include "report/plain.h"

namespace velmora::report {

/// A cell of the sheet, and the number that the sheet itself reads from it.
struct ReadCell {
    Figure shown;
    double read = 0;
};

/// A validated day, ready for its second reading.
struct DayCase {
    int day = 0;                      ///< 1 to 3
    const DaySheet* sheet = nullptr;  ///< as the file holds it
    ByRow<RowInput> plan;    ///< the sheet's samples, an emptied one put back, with the plan's data
    ByRow<RowInput> cells;   ///< all from the sheet's cells, as the sheet reads them
    ByRow<bool> in_plan{};   ///< the plan has the row on this day
    ByRow<bool> on_sheet{};  ///< the sheet shows the row
    bool sample_emptied = false;  ///< C3 of the first row was there when the row was computed
    bool comma = false;           ///< a cell that the sheet wrote holds a decimal comma
    bool computed = false;        ///< at least one row has an MMP
    DayFigures exact;             ///< of `plan`
    DayFigures rounded;           ///< of `plan`, through the two decimals of the sheet's cells

    const std::string& Cell(int row, Column column) const { return Shown(row, column).text; }
    const Figure& Shown(int row, Column column) const { return At(row, column).shown; }
    double Read(int row, Column column) const { return At(row, column).read; }

    std::vector<ReadCell> grid;  ///< row by row, each with all its columns

private:
    const ReadCell& At(int row, Column column) const {
        const int place = (row - 1) * kSheetColumns + PlaceOf(column);
        return grid.at(static_cast<std::size_t>(place));
    }
};

/// The day of the record, which must be validated. The record must outlive it.
DayCase CaseOf(const EvaluacionRecord& record, int day);

/// Rows of a task on a day by the plan: the sum of its two sample counts, 0 to 6; 0 for a task
/// beyond the plan's.
int RowsOf(const EvaluacionRecord& record, int day, int task);

/// Contaminants of a task by the plan, 0 to 6; 0 for a task beyond the plan's.
int ContaminantsOf(const EvaluacionRecord& record, int task);

/// The unit whose first row this is; null when there is none.
const Unit* UnitAt(const std::vector<Unit>& units, int row);

/// Whether two numbers agree but for the last of fifteen digits.
bool SameNumber(double a, double b);

/// Whether a cell of two decimals can come from this number.
bool ComesFrom(const Figure& cell, double number);

}  // namespace velmora::report
