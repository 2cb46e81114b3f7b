#pragma once

#include <optional>
#include <vector>

#include "report/cells.h"
#include "runtime/array.h"

namespace velmora::report {

/// A value for each row of a day's sheet, 1 to 18.
template <class T>
using ByRow = Array<T, 1, kRows>;

/// What one row of a day is computed from: its samples and what the plan says of it.
struct RowInput {
    bool in_use = false;            ///< the day has this row
    Array<double, 1, 6> samples{};  ///< C1 to C6, 0 for a place without a sample; finite
    double hours = 0;               ///< exposure of its task on that day
    double vla_ed = 0;              ///< 0 for none
    double vla_ec = 0;              ///< 0 for none
    double minutes = 0;             ///< of a sample
    double group = 0;               ///< 0 for none

    /// The limit of a short exposure: the VLA-EC, or 3 x VLA-ED without one; 0 without either.
    double ShortLimit() const { return vla_ec != 0 ? vla_ec : 3 * vla_ed; }
};

/// What the guide's formulas give for a row; nothing for what can't be computed, as with fewer than
/// two samples.
struct RowFigures {
    std::optional<double> mmp;    ///< MG x F
    std::optional<double> index;  ///< hours x MMP / (8 x VLA-ED), 0 without a VLA-ED
    std::optional<double> mg;
    std::optional<double> gsd;
};

/// What is judged in short exposure: a row by itself, or the rows of a task that bear one group
/// number, as one mixture.
struct Unit {
    std::vector<int> rows;          ///< rising; the first is its place
    std::optional<double> ec_plus;  ///< the limit; of a mixture, sum MMP / sum (MMP / limit)
    std::optional<double> mg_plus;
    std::optional<double> gsd_plus;
    std::optional<double> probability;  ///< class by the guide's curves, per cent

    /// Per cent of the log-normal distribution above the limit.
    std::optional<double> PercentAboveLimit() const;
};

/// What the plain formulas of the guide give for a day.
struct DayFigures {
    ByRow<RowFigures> rows;
    ByRow<std::optional<double>> combined_index;  ///< the index, or the sum over the group's rows
    std::vector<Unit> units;                      ///< by their first rows
};

/// The whole day by the plain formulas, without the sheet's oddities: each row with its own hours,
/// a group's sum over all its rows of the day on each of them, each mixture of a task in its place.
/// `rows` are those of `ComputeRow`.
DayFigures ComputeDay(const ByRow<RowInput>& inputs, const ByRow<RowFigures>& rows);

RowFigures ComputeRow(const RowInput& input);

/// The figures with two decimals, as `FormatoDosDecimales` takes them: what the sheet's cells keep.
RowFigures TwoDecimals(const RowFigures& figures);

/// The units of one task (1 to 3) among its first `contaminants` rows, from the figures of the
/// rows. Groups above `last_group` make none.
std::vector<Unit> UnitsOfTask(const ByRow<RowInput>& inputs, const ByRow<RowFigures>& figures,
                              int task, int contaminants, double last_group);

/// The class that the guide's curves give; nothing without a mean above 0.
std::optional<double> ClassOfCurves(double limit, double mg, double gsd);

/// Two decimals, halves away from zero.
double TwoDecimals(double value);

/// Whether one of the row's samples reaches its limit: with 30 minutes 3 x VLA-ED, or the VLA-EC
/// without one; with 15 minutes the VLA-EC, or 3 x VLA-ED without one. False without limits.
bool ReachesLimit(const RowInput& input);

}  // namespace velmora::report
