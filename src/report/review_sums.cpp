#include <algorithm>
#include <set>
#include <string>

#include "report/review_notes.h"

namespace velmora::report {

namespace {

constexpr int kLastGroupSummed = 20;

/// The rows of the sheet that bear a group's number.
std::vector<int> MembersOf(const DayCase& day, double group) {
    std::vector<int> rows;
    for (int row = 1; row <= kRows; ++row) {
        if (day.cells(row).group == group) rows.push_back(row);
    }
    return rows;
}

double SumOf(const DayCase& day, const std::vector<int>& rows) {
    double sum = 0;
    for (const int row : rows) sum += day.Read(row, Column::Index);
    return sum;
}

std::set<double> GroupsOf(const DayCase& day) {
    std::set<double> groups;
    for (int row = 1; row <= kRows; ++row) {
        if (day.cells(row).group != 0) groups.insert(day.cells(row).group);
    }
    return groups;
}

/// What the sheet's button writes from its cells; nothing for a blank. The sum stands on the first
/// row, and goes on to later ones only from the row whose number the group bears.
ByRow<std::optional<double>> WrittenBySheet(const DayCase& day) {
    ByRow<std::optional<double>> written;
    for (int row = 1; row <= kRows; ++row) {
        if (day.cells(row).group == 0) written(row) = day.Shown(row, Column::Index).value;
    }
    for (int group = 1; group <= kLastGroupSummed; ++group) {
        const std::vector<int> rows = MembersOf(day, group);
        if (rows.empty()) continue;
        const double sum = SumOf(day, rows);
        if (sum != day.Read(rows.front(), Column::Index)) written(rows.front()) = sum;
        const auto source = std::find(rows.begin(), rows.end(), group);
        if (source == rows.end()) continue;
        for (auto row = source + 1; row != rows.end(); ++row) {
            written(*row) = written(*source).value_or(0);
        }
    }
    return written;
}

/// Whether the cell holds what the button writes.
bool IsWritten(const DayCase& day, int row, const std::optional<double>& written) {
    const std::string& cell = day.Cell(row, Column::CombinedIndex);
    if (!written || cell.empty()) return !written && cell.empty();
    const auto& shown = day.Shown(row, Column::CombinedIndex).value;
    return shown && SameNumber(*shown, *written);
}

bool IsPlain(const DayCase& day, int row) {
    const Figure& cell = day.Shown(row, Column::CombinedIndex);
    const auto& plain = day.rounded.combined_index(row);
    return cell.value && plain && SameNumber(*cell.value, *plain);
}

/// Whether the sum is nothing but the first row's index, so that the sheet blanks it.
bool IsErased(const DayCase& day, const std::vector<int>& rows) {
    return day.Cell(rows.front(), Column::CombinedIndex).empty() &&
           std::all_of(rows.begin() + 1, rows.end(), [&](int row) {
               return day.Shown(row, Column::Index).value.value_or(0) == 0;
           });
}

/// The group's sums by task: "0.45 (tarea 1) + 0.3 (tarea 2)"; "" when it is in one task alone.
std::string SumsByTask(const DayCase& day, const std::vector<int>& rows) {
    std::string text;
    int tasks = 0;
    for (int task = 1; task <= 3; ++task) {
        double sum = 0;
        bool in_task = false;
        for (const int row : rows) {
            if (TaskOf(row) != task) continue;
            in_task = true;
            sum += day.exact.rows(row).index.value_or(0);
        }
        if (!in_task) continue;
        text.append(tasks++ == 0 ? "" : " + ").append(NumberText(sum));
        text.append(" (tarea ").append(NumberText(task)).append(")");
    }
    return tasks > 1 ? text : "";
}

void CompareGroup(ReviewNotes& notes, const std::vector<int>& rows,
                  const ByRow<std::optional<double>>& written) {
    const DayCase& day = notes.day;
    if (notes.AnyRelated(rows, notes.group_changed)) return;  // that is the finding
    const int first = rows.front();
    const std::string& cell = day.Cell(first, Column::CombinedIndex);
    const std::string heading(HeadingOf(Column::CombinedIndex));
    const std::string by_task = SumsByTask(day, rows);
    if (!by_task.empty()) {
        notes.Add(FindingKind::GroupSpansTasks, rows, {heading, OrBlank(cell), by_task},
                  Part::Index);
    }
    if (IsErased(day, rows)) {
        notes.Add(FindingKind::SumErased, rows,
                  {heading, OrBlank(cell), NumberText(day.exact.combined_index(first))},
                  Part::Index);
        return;
    }
    std::vector<int> without;
    for (const int row : rows) {
        const bool has = !day.Cell(row, Column::CombinedIndex).empty() &&
                         SameNumber(day.Read(row, Column::CombinedIndex), SumOf(day, rows));
        if (!has && IsWritten(day, row, written(row)) && !IsPlain(day, row)) without.push_back(row);
    }
    if (without.empty() || (without.front() == first && day.comma)) return;
    notes.Add(FindingKind::SumNotSpread, without,
              {heading, OrBlank(day.Cell(without.front(), Column::CombinedIndex)),
               NumberText(day.exact.combined_index(without.front()))},
              Part::Index);
}

}  // namespace

void CompareSums(ReviewNotes& notes) {
    const DayCase& day = notes.day;
    const auto written = WrittenBySheet(day);
    for (int row = 1; row <= kRows; ++row) {
        if (!day.on_sheet(row) || !day.in_plan(row)) continue;
        if (IsWritten(day, row, written(row)) || IsPlain(day, row)) continue;
        notes.Fault(row, Column::CombinedIndex, NumberText(day.exact.combined_index(row)));
    }
    for (const double group : GroupsOf(day)) CompareGroup(notes, MembersOf(day, group), written);
}

}  // namespace velmora::report
