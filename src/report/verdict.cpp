#include "report/verdict.h"

#include <algorithm>

#include "stats/verdicts.h"

namespace velmora::report {

namespace {

/// The sheet's own rule: 3 x VLA-ED at 30 minutes, VLA-EC at 15, and blank cells count as 0.
bool SheetSaysOver(const RowInput& cells) {
    if (cells.minutes != 30 && cells.minutes != 15) return false;
    const double limit = cells.minutes == 30 ? 3 * cells.vla_ed : cells.vla_ec;
    return std::any_of(cells.samples.begin(), cells.samples.end(),
                       [limit](double sample) { return sample >= limit; });
}

DayVerdict WithRowsOf(DayVerdict verdict, const DayVerdict& other, const std::vector<int>& rows,
                      Part part) {
    for (const int row : rows) {
        const RowVerdict& from = other(row);
        RowVerdict& to = verdict(row);
        if (part == Part::All || part == Part::Index) to.index = from.index;
        if (part == Part::All || part == Part::Probability) to.probability = from.probability;
        if (part == Part::All || part == Part::Limits) to.over = from.over;
    }
    return verdict;
}

}  // namespace

DayVerdict VerdictOfSheet(const DayCase& day) {
    DayVerdict verdict;
    for (int row = 1; row <= kRows; ++row) {
        verdict(row) = {
            std::max(day.Read(row, Column::Index), day.Read(row, Column::CombinedIndex)),
            day.Read(row, Column::Probability), SheetSaysOver(day.cells(row))};
    }
    return verdict;
}

DayVerdict VerdictOfPlain(const DayCase& day) {
    DayVerdict verdict;
    for (int row = 1; row <= kRows; ++row) {
        verdict(row).index = std::max(day.exact.rows(row).index.value_or(0),
                                      day.exact.combined_index(row).value_or(0));
        verdict(row).over = day.plan(row).in_use && ReachesLimit(day.plan(row));
    }
    for (const Unit& unit : day.rounded.units) {
        verdict(unit.rows.front()).probability = unit.probability.value_or(0);
    }
    return verdict;
}

RowVerdict Summary(const DayVerdict& rows) {
    RowVerdict summary;
    for (const RowVerdict& row : rows) {
        summary.index = std::max(summary.index, row.index);
        summary.probability = std::max(summary.probability, row.probability);
        summary.over = summary.over || row.over;
    }
    return summary;
}

bool SayOther(const DayVerdict& a, const DayVerdict& b) {
    const RowVerdict first = Summary(a);
    const RowVerdict second = Summary(b);
    return IndexClass(first.index) != IndexClass(second.index) || first.over != second.over ||
           kProbabilityVerdict.ClassOf(first.probability) !=
               kProbabilityVerdict.ClassOf(second.probability);
}

bool HangsOn(const DayVerdict& sheet, const DayVerdict& plain, const std::vector<int>& rows,
             Part part) {
    return SayOther(sheet, WithRowsOf(sheet, plain, rows, part)) ||
           SayOther(plain, WithRowsOf(plain, sheet, rows, part));
}

std::size_t IndexClass(double index) {
    constexpr double kLastDigits = 1e-9;
    return kIndexVerdict(1).ClassOf(index - kLastDigits);  // the same on all days
}

}  // namespace velmora::report
