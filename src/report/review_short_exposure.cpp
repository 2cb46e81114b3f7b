#include <algorithm>
#include <array>
#include <string>

#include "report/normal.h"
#include "report/review_notes.h"

namespace velmora::report {

namespace {

constexpr double kLastGroupJudged = 6;

/// In the second task alone, the EC+ of a mixture from this row on lands in the cell that stands
/// before its own: Prob. of the row above.
constexpr int kTaskWithLostLimits = 2;
constexpr int kFirstRowWithLostLimit = 3;

constexpr std::array kColumnsOfUnit = {Column::EcPlus, Column::MgPlus, Column::GsdPlus};

bool LosesItsLimit(const Unit& unit) {
    const int first = unit.rows.front();
    return unit.rows.size() > 1 && TaskOf(first) == kTaskWithLostLimits &&
           ContaminantOf(first) >= kFirstRowWithLostLimit;
}

const std::optional<double>& NumberOf(const Unit& unit, Column column) {
    return column == Column::EcPlus   ? unit.ec_plus
           : column == Column::MgPlus ? unit.mg_plus
                                      : unit.gsd_plus;
}

/// The units that the sheet's button makes of a task, from the sheet's cells.
std::vector<Unit> UnitsOfSheet(const ReviewNotes& notes, int task) {
    const DayCase& day = notes.day;
    ByRow<RowFigures> figures;
    for (int row = 1; row <= kRows; ++row) {
        figures(row) = {day.Read(row, Column::Mmp), day.Read(row, Column::Index),
                        day.Read(row, Column::Mg), day.Read(row, Column::Gsd)};
    }
    return UnitsOfTask(day.cells, figures, task, ContaminantsOf(notes.record, task),
                       kLastGroupJudged);
}

/// Whether the cell holds what its formula gives, from the sheet's cells or from the plain ones.
bool Agrees(const DayCase& day, const Unit& unit, Column column) {
    const int row = unit.rows.front();
    const auto& number = NumberOf(unit, column);
    if (day.Cell(row, column).empty()) return !number;
    const auto& shown = day.Shown(row, column).value;
    if (!shown) return false;
    if (number && SameNumber(*shown, *number)) return true;
    const Unit* const plain = UnitAt(day.rounded.units, row);
    return plain != nullptr && NumberOf(*plain, column) &&
           SameNumber(*shown, *NumberOf(*plain, column));
}

bool AgreesWithClass(const DayCase& day, int row) {
    const auto& shown = day.Shown(row, Column::Probability).value;
    if (!shown) return false;
    const Unit* const plain = UnitAt(day.rounded.units, row);
    if (plain != nullptr && plain->probability == shown) return true;
    return ClassOfCurves(day.Read(row, Column::EcPlus), day.Read(row, Column::MgPlus),
                         day.Read(row, Column::GsdPlus)) == shown;
}

std::string PlainClass(const DayCase& day, int row) {
    const Unit* const exact = UnitAt(day.exact.units, row);
    const Unit* const rounded = UnitAt(day.rounded.units, row);
    if (exact == nullptr || rounded == nullptr) return "sin valor";
    return ClassAndPercent(rounded->probability, exact->PercentAboveLimit());
}

void CompareUnit(ReviewNotes& notes, const Unit& unit) {
    const DayCase& day = notes.day;
    const int first = unit.rows.front();
    const Unit* const plain = UnitAt(day.exact.units, first);
    for (const Column column : kColumnsOfUnit) {
        if (Agrees(day, unit, column)) continue;
        notes.Fault(first, column,
                    plain == nullptr ? "sin valor" : NumberText(NumberOf(*plain, column)));
    }
    const bool has_limit = !day.Cell(first, Column::EcPlus).empty();
    const bool has_class = !day.Cell(first, Column::Probability).empty();
    if (has_limit ? !has_class || !AgreesWithClass(day, first) : has_class && unit.ec_plus) {
        notes.Fault(first, Column::Probability, PlainClass(day, first));
    }
}

/// A mixture whose limit went to the row above, where it stays unless that row has a class.
void CompareLostLimit(ReviewNotes& notes, const Unit& unit) {
    const DayCase& day = notes.day;
    const int first = unit.rows.front();
    const Unit* const exact = UnitAt(day.exact.units, first);
    if (!unit.ec_plus || exact == nullptr) return;
    const Figure& above = day.Shown(first - 1, Column::Probability);
    const bool stays = day.Cell(first - 1, Column::EcPlus).empty() && above.value &&
                       SameNumber(*above.value, *unit.ec_plus);
    const Told told{stays ? "Prob." : "EC+",
                    stays ? above.text + " en la fila anterior" : "en blanco",
                    "EC+ " + NumberText(exact->ec_plus) + ", Prob. " + PlainClass(day, first)};
    notes.Add(stays ? FindingKind::EcPlusAsProbability : FindingKind::EcPlusElsewhere, unit.rows,
              told, Part::Probability, 0, {first - 1});
}

bool IsExcused(const ReviewNotes& notes, const Unit& unit) {
    return std::any_of(unit.rows.begin(), unit.rows.end(), [&](int row) {
        return notes.samples_changed(row) || !notes.day.on_sheet(row);
    });
}

/// The class against the exact tail, where nothing else is wrong with the unit.
void CompareClass(ReviewNotes& notes, const Unit& unit) {
    const DayCase& day = notes.day;
    const int first = unit.rows.front();
    const Unit* const exact = UnitAt(day.exact.units, first);
    const Unit* const rounded = UnitAt(day.rounded.units, first);
    if (exact == nullptr || exact->rows != unit.rows || notes.IsFaulty(first)) return;
    const bool faithful =
        std::all_of(kColumnsOfUnit.begin(), kColumnsOfUnit.end(), [&](Column column) {
            const auto& number = NumberOf(*rounded, column);
            return number && SameNumber(day.Read(first, column), *number);
        });
    const auto percent = exact->PercentAboveLimit();
    const Figure& shown = day.Shown(first, Column::Probability);
    if (!faithful || !percent || !shown.value) return;
    const double exact_class = ClassOfPercent(*percent);
    if (exact_class == *shown.value) return;
    notes.AddClass(first, {"Prob.", shown.text, ClassAndPercent(exact_class, percent)},
                   exact_class);
}

/// The numbers above six among a task's contaminants, each once.
void CompareUnjudgedGroups(ReviewNotes& notes, int task) {
    const DayCase& day = notes.day;
    std::vector<int> told;
    for (int c = 1; c <= ContaminantsOf(notes.record, task); ++c) {
        const int row = RowOf(task, c);
        const double group = day.cells(row).group;
        if (group <= kLastGroupJudged || std::count(told.begin(), told.end(), row) > 0) continue;
        std::vector<int> rows;
        for (int other = c; other <= ContaminantsOf(notes.record, task); ++other) {
            if (day.cells(RowOf(task, other)).group == group) rows.push_back(RowOf(task, other));
        }
        told.insert(told.end(), rows.begin(), rows.end());
        if (!day.Cell(row, Column::EcPlus).empty()) continue;
        notes.Add(FindingKind::GroupWithoutShortLimit, rows,
                  {"Prob.", OrBlank(day.Cell(row, Column::EcPlus)), PlainClass(day, row)},
                  Part::Probability);
    }
}

}  // namespace

void CompareShortExposure(ReviewNotes& notes) {
    for (int task = 1; task <= 3; ++task) {
        for (const Unit& unit : UnitsOfSheet(notes, task)) {
            if (IsExcused(notes, unit)) continue;
            const bool lost =
                LosesItsLimit(unit) && notes.day.Cell(unit.rows.front(), Column::EcPlus).empty();
            if (lost) {
                CompareLostLimit(notes, unit);
            } else {
                CompareUnit(notes, unit);
                CompareClass(notes, unit);
            }
        }
        CompareUnjudgedGroups(notes, task);
    }
}

}  // namespace velmora::report
