#include "report/review_final.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>

#include "report/day_case.h"
#include "report/findings.h"

namespace velmora::report {

namespace {

constexpr int kDays = 3;

using final_table::IndexColumn;
using final_table::kIG;
using final_table::ProbabilityColumn;

/// The final table beside the sheets that it was made from.
class FinalReview {
public:
    FinalReview(const EvaluacionRecord& record, const std::vector<DayCase>& days, int cells_read)
        : record_(record), days_(days), cells_read_(cells_read) {}

    std::vector<Finding> Run() {
        for (int day = 1; day <= kDays; ++day) CompareDay(day);
        CompareOverall();
        return std::move(findings_);
    }

private:
    bool IsRead(int row, int column) const {
        return (row - 1) * final_table::kColumns + column <= cells_read_;
    }
    const std::string& Cell(int row, int column) const { return record_.HojaFinal(row, column); }
    double Read(int row, int column) const { return ReadAsTheSheet(Cell(row, column)); }

    void CompareDay(int day) {
        std::vector<int> left;
        for (int row = 1; row <= kRows; ++row) {
            if (LeftOverColumn(day, row) != 0) {
                left.push_back(row);
                continue;
            }
            CompareCell(day, row, IndexColumn(day));
            CompareCell(day, row, ProbabilityColumn(day));
        }
        if (left.empty()) return;
        if (!IsValidated(record_.Hoja(day))) {  // one cause for all of them
            NoteLeftOver(day, left);
            return;
        }
        for (const int row : left) NoteLeftOver(day, {row});
    }

    /// The cell of the day's sheet that a cell of the table is copied from.
    const std::string& OnSheet(int day, int row, int column) const {
        return CellOf(record_.Hoja(day), row,
                      column == IndexColumn(day) ? Column::CombinedIndex : Column::Probability);
    }

    /// The first of the day's two columns with a value that the day's sheet doesn't have; 0 for
    /// none.
    int LeftOverColumn(int day, int row) const {
        for (const int column : {IndexColumn(day), ProbabilityColumn(day)}) {
            if (IsRead(row, column) && !Cell(row, column).empty() &&
                OnSheet(day, row, column).empty()) {
                return column;
            }
        }
        return 0;
    }

    void NoteLeftOver(int day, const std::vector<int>& rows) {
        const int column = LeftOverColumn(day, rows.front());
        Note(FindingKind::StaleFinal, day, rows,
             {HeadingOf(day, column), Cell(rows.front(), column), "en blanco en la hoja del día"});
    }

    void CompareCell(int day, int row, int column) {
        const std::string& cell = Cell(row, column);
        const std::string& on_sheet = OnSheet(day, row, column);
        if (!IsRead(row, column) || on_sheet.empty()) return;
        const double read = ReadAsTheSheet(cell);
        if (!cell.empty() && SameNumber(read, ReadAsTheSheet(on_sheet))) return;
        const auto plain = Plain(day, row, column);
        if (plain && SameNumber(read, *plain)) return;
        Note(FindingKind::DoesNotFollow, day, {row},
             {HeadingOf(day, column), OrBlank(cell), on_sheet + " en la hoja del día"});
    }

    /// What the plain computation has for a cell, through the sheet's two decimals.
    std::optional<double> Plain(int day, int row, int column) const {
        for (const DayCase& one : days_) {
            if (one.day != day) continue;
            if (column == IndexColumn(day)) return one.rounded.combined_index(row);
            const Unit* const unit = UnitAt(one.rounded.units, row);
            return unit != nullptr ? unit->probability : std::nullopt;
        }
        return std::nullopt;
    }

    static std::string HeadingOf(int day, int column) {
        return (column == IndexColumn(day) ? "I" : "P") + NumberText(day);
    }

    void Note(FindingKind kind, int day, const std::vector<int>& rows, Told told) {
        findings_.push_back(MakeFinding(kind, day, rows, std::move(told)));
        findings_.back().name = Cell(rows.front(), final_table::kName);
    }

    /// The overall index that the table's button gives; nothing where it gives none.
    std::optional<double> OverallOf(int row) const {
        const double first = Read(row, IndexColumn(1));
        const double second = Read(row, IndexColumn(2));
        if (first == 0 || second == 0) return std::nullopt;
        return OverallIndex({first, second, Read(row, IndexColumn(3))});
    }

    void CompareOverall() {
        std::vector<int> zero;
        std::vector<int> missing;
        std::vector<int> stale;
        for (int row = 1; row <= kRows; ++row) {
            if (!IsRead(row, kIG)) continue;
            const auto overall = OverallOf(row);
            const std::string& cell = Cell(row, kIG);
            const double shown = FigureOf(cell).value.value_or(0);
            if (cell.empty()) {
                if (overall.value_or(0) != 0) missing.push_back(row);
            } else if (!overall || !SameNumber(shown, *overall)) {
                stale.push_back(row);
            } else if (*overall == 0 && Cell(row, IndexColumn(3)).empty()) {
                zero.push_back(row);
            }
        }
        if (!zero.empty()) {
            Note(FindingKind::OverallZero, 3, zero,
                 {"IG", Cell(zero.front(), kIG), "sin valor: falta I3"});
        }
        if (!stale.empty()) {
            Note(FindingKind::StaleFinal, 0, stale,
                 {"IG", Cell(stale.front(), kIG), NumberText(OverallOf(stale.front()))});
        }
        if (!missing.empty()) {
            Note(FindingKind::OverallMissing, 0, missing,
                 {"IG", "en blanco", NumberText(OverallOf(missing.front()))});
        }
    }

    const EvaluacionRecord& record_;
    const std::vector<DayCase>& days_;
    int cells_read_;
    std::vector<Finding> findings_;
};

int DaysOf(const EvaluacionRecord& record) {
    return std::clamp(record.NumJornadas.Value(), 0, kDays);
}

void ReviewUnvalidatedDay(const EvaluacionRecord& record, int day, std::vector<Finding>& findings) {
    findings.push_back(MakeFinding(FindingKind::DayNotValidated, day, {},
                                   {"jornada", "sin validar", "en el plan"}));
    for (int task = 1; task <= 3; ++task) {
        const int rows = RowsOf(record, day, task);
        const int contaminants = ContaminantsOf(record, task);
        if (rows == 0 || rows == contaminants) continue;
        const auto kind = rows > contaminants ? FindingKind::RowsBeyondContaminants
                                              : FindingKind::ContaminantsBeyondRows;
        findings.push_back(MakeFinding(
            kind, day, {}, {"filas", NumberText(rows), NumberText(contaminants) + " contaminantes"},
            task));
    }
}

}  // namespace

std::optional<double> OverallIndex(const std::array<double, 3>& indices) {
    const double product = indices[0] * indices[1] * indices[2];
    if (product < 0 || !std::isfinite(product)) return std::nullopt;
    return std::pow(product, 1.0 / 3.0);
}

std::vector<Finding> ReviewPlan(const EvaluacionRecord& record) {
    std::vector<Finding> findings;
    for (int day = 1; day <= kDays; ++day) {
        const bool validated = IsValidated(record.Hoja(day));
        const bool planned = day <= DaysOf(record);
        if (planned && !validated) ReviewUnvalidatedDay(record, day, findings);
        if (!planned && validated) {
            findings.push_back(MakeFinding(FindingKind::DayBeyondPlan, day, {},
                                           {"jornada", "validada", "fuera del plan"}));
        }
    }
    return findings;
}

std::vector<Finding> ReviewFinalTable(const EvaluacionRecord& record,
                                      const std::vector<DayCase>& days, int cells_read) {
    return FinalReview(record, days, cells_read).Run();
}

}  // namespace velmora::report
