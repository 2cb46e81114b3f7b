#include <algorithm>
#include <string>

#include "report/review_notes.h"

namespace velmora::report {

namespace {

/// The only row of the sheet that takes the first day's hours, on whatever day.
constexpr int kRowWithFirstDaysTime = RowOf(2, 6);

constexpr int kMostHours = 14;  ///< that the plan's list offers

double IndexWith(double hours, double mmp, double vla_ed) {
    return vla_ed == 0 ? 0 : hours * mmp / (8 * vla_ed);
}

/// Whether the row's index comes from these hours, with the limit of the plan or of the sheet.
bool IndexComesFrom(const ReviewNotes& notes, int row, double hours) {
    const Figure& cell = notes.day.Shown(row, Column::Index);
    const double mmp = notes.day.exact.rows(row).mmp.value_or(0);
    return ComesFrom(cell, IndexWith(hours, mmp, notes.day.plan(row).vla_ed)) ||
           ComesFrom(cell, IndexWith(hours, mmp, notes.day.cells(row).vla_ed));
}

bool IsCompared(const ReviewNotes& notes, int row) {
    return notes.day.on_sheet(row) && notes.day.in_plan(row);
}

void CompareMeans(ReviewNotes& notes, int row) {
    const RowFigures& exact = notes.day.exact.rows(row);
    const Figure& mmp = notes.day.Shown(row, Column::Mmp);
    if (!exact.mmp) {
        if (mmp.value.value_or(0) == 0) return;  // a row that nobody measured
        notes.samples_changed(row) = true;
        notes.Fault(row, Column::Mmp, "sin mediciones suficientes");
        return;
    }
    if (!ComesFrom(mmp, *exact.mmp)) {
        notes.samples_changed(row) = true;
        notes.Fault(row, Column::Mmp, NumberText(exact.mmp));
    } else if (notes.day.Shown(row, Column::Gsd).value == 0.0) {  // a deviation is never below 1
        notes.means_lost(row) = true;
    } else if (!ComesFrom(notes.day.Shown(row, Column::Mg), *exact.mg)) {
        notes.Fault(row, Column::Mg, NumberText(exact.mg));
    } else if (!ComesFrom(notes.day.Shown(row, Column::Gsd), *exact.gsd)) {
        notes.Fault(row, Column::Gsd, NumberText(exact.gsd));
    }
}

/// The rows of a task whose index tells the hours that it was computed with.
std::vector<int> TellingRows(const ReviewNotes& notes, int task) {
    std::vector<int> rows;
    for (int c = 1; c <= kRowsPerTask; ++c) {
        const int row = RowOf(task, c);
        if (!IsCompared(notes, row) || notes.samples_changed(row)) continue;
        if (!notes.day.exact.rows(row).index || notes.day.plan(row).vla_ed == 0) continue;
        if (row == kRowWithFirstDaysTime && notes.day.day > 1) continue;
        rows.push_back(row);
    }
    return rows;
}

/// The hours that all these rows' indices come from; "" when there are none.
std::string HoursOf(const ReviewNotes& notes, const std::vector<int>& rows) {
    std::string all;
    for (int hours = 1; hours <= kMostHours && !rows.empty(); ++hours) {
        const bool fit = std::all_of(rows.begin(), rows.end(),
                                     [&](int row) { return IndexComesFrom(notes, row, hours); });
        if (fit) all.append(all.empty() ? "" : " o ").append(NumberText(hours));
    }
    return all;
}

void CompareIndices(ReviewNotes& notes, int task) {
    const double planned = notes.record.TiempoExposicion(notes.day.day, task).Value();
    const std::vector<int> rows = TellingRows(notes, task);
    const bool all_right = std::all_of(
        rows.begin(), rows.end(), [&](int row) { return IndexComesFrom(notes, row, planned); });
    if (all_right) return;
    const std::string hours = HoursOf(notes, rows);
    if (!hours.empty()) {
        notes.Add(FindingKind::PlanChanged, rows,
                  {"horas", hours, NumberText(planned) + " en el plan"}, Part::All);
        return;
    }
    for (const int row : rows) {
        if (IndexComesFrom(notes, row, planned)) continue;
        notes.Fault(row, Column::Index, NumberText(notes.day.exact.rows(row).index));
    }
}

void CompareRowWithFirstDaysTime(ReviewNotes& notes) {
    constexpr int kRow = kRowWithFirstDaysTime;
    const auto index = notes.day.exact.rows(kRow).index;
    if (notes.day.day == 1 || !IsCompared(notes, kRow) || !index) return;
    if (notes.samples_changed(kRow) || IndexComesFrom(notes, kRow, notes.day.plan(kRow).hours)) {
        return;
    }
    const double first_days = notes.record.TiempoExposicion(1, 2).Value();
    // The first day's hours may have been changed since: any whole hours are taken for them.
    if (!IndexComesFrom(notes, kRow, first_days) && HoursOf(notes, {kRow}).empty()) {
        notes.Fault(kRow, Column::Index, NumberText(index));
        return;
    }
    notes.Add(FindingKind::FirstDaysTime, {kRow},
              {"Indice", notes.day.Cell(kRow, Column::Index), NumberText(index)}, Part::Index);
}

void NoteLostMeans(ReviewNotes& notes, int task) {
    std::vector<int> rows;
    for (int c = 1; c <= kRowsPerTask; ++c) {
        if (notes.means_lost(RowOf(task, c))) rows.push_back(RowOf(task, c));
    }
    if (rows.empty()) return;
    const RowFigures& exact = notes.day.exact.rows(rows.front());
    notes.Add(FindingKind::MeansLost, rows,
              {"MG y GSD", "0 y 0", NumberText(exact.mg) + " y " + NumberText(exact.gsd)},
              Part::Probability);
}

/// An index that shows as a threshold without being it, or that stands on the other side of one.
bool IsRoundedOver(double shown, double exact) {
    for (const double threshold : {0.1, 1.0}) {
        if (SameNumber(shown, threshold) && !SameNumber(exact, threshold)) return true;
    }
    return IndexClass(shown) != IndexClass(exact);
}

void CompareRounding(ReviewNotes& notes, int row, Column column, std::optional<double> exact,
                     std::optional<double> rounded) {
    const Figure& cell = notes.day.Shown(row, column);
    if (!cell.value || !exact || !rounded || !SameNumber(*cell.value, *rounded)) return;
    if (!IsRoundedOver(*cell.value, *exact)) return;
    notes.Add(FindingKind::RoundedIndex, {row},
              {std::string(HeadingOf(column)), cell.text, NumberText(exact)}, Part::Index);
}

void CompareRoundings(ReviewNotes& notes, int row) {
    const DayCase& day = notes.day;
    CompareRounding(notes, row, Column::Index, day.exact.rows(row).index,
                    day.rounded.rows(row).index);
    for (int before = 1; before < row; ++before) {  // a group's sum is told once
        if (day.plan(before).group == day.plan(row).group) return;
    }
    if (day.plan(row).group == 0) return;
    CompareRounding(notes, row, Column::CombinedIndex, day.exact.combined_index(row),
                    day.rounded.combined_index(row));
}

}  // namespace

void CompareRows(ReviewNotes& notes) {
    for (int row = 1; row <= kRows; ++row) {
        if (IsCompared(notes, row)) CompareMeans(notes, row);
    }
    for (int task = 1; task <= 3; ++task) {
        CompareIndices(notes, task);
        NoteLostMeans(notes, task);
    }
    CompareRowWithFirstDaysTime(notes);
    for (int row = 1; row <= kRows; ++row) {
        if (IsCompared(notes, row)) CompareRoundings(notes, row);
    }
}

}  // namespace velmora::report
