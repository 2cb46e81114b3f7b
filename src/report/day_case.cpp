#include "report/day_case.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace velmora::report {

namespace {

int SumOfCounts(Entero a, Entero b) { return std::clamp(a.Value() + b.Value(), 0, kRowsPerTask); }

/// A sample as it was meant: with a comma, too; else what the sheet reads.
double SampleOf(const std::string& text) {
    const auto meant = FigureOf(text).value;
    const double value = meant ? *meant : ReadAsTheSheet(text);
    return value > 0 ? value : 0;
}

RowInput FromPlan(const EvaluacionRecord& record, const DayCase& day, int row) {
    const int task = TaskOf(row);
    const int c = ContaminantOf(row);
    RowInput input;
    for (int i = 1; i <= kSamples; ++i) {
        input.samples(i) = SampleOf(day.Cell(row, SampleColumn(i)));
    }
    input.in_use = day.in_plan(row) && input.samples(1) != 0;
    input.hours = record.TiempoExposicion(day.day, task).Value();
    input.vla_ed = record.VlaEd(task, c).Value();
    input.vla_ec = record.VlaEc(task, c).Value();
    input.minutes = record.TiempoMuestreo(task, c).Value();
    input.group = record.Aditivo(task, c).Value();
    return input;
}

RowInput FromCells(const DayCase& day, int row) {
    RowInput input;
    for (int i = 1; i <= kSamples; ++i) input.samples(i) = day.Read(row, SampleColumn(i));
    input.in_use = day.on_sheet(row);
    input.hours = day.plan(row).hours;
    input.vla_ed = day.Read(row, Column::VlaEd);
    input.vla_ec = day.Read(row, Column::VlaEc);
    input.minutes = day.Read(row, Column::SamplingMinutes);
    input.group = day.Read(row, Column::Group);
    return input;
}

/// Whether the row's MMP, MG and GSD come from these samples. Means that a button without its task
/// has set to zero say nothing.
bool Explains(const DayCase& day, int row, const RowInput& input) {
    const RowFigures figures = ComputeRow(input);
    if (!figures.mmp || !ComesFrom(day.Shown(row, Column::Mmp), *figures.mmp)) return false;
    if (day.Read(row, Column::Gsd) == 0) return true;
    return ComesFrom(day.Shown(row, Column::Mg), *figures.mg) &&
           ComesFrom(day.Shown(row, Column::Gsd), *figures.gsd);
}

/// The search for a group that isn't there empties C3 of the first row when it reads as its C2.
void PutBackEmptiedSample(DayCase& day) {
    RowInput& input = day.plan(1);
    if (!day.Cell(1, Column::C3).empty() || Explains(day, 1, input)) return;
    RowInput whole = input;
    whole.samples(3) = whole.samples(2);
    if (!Explains(day, 1, whole)) return;
    input = whole;
    day.sample_emptied = true;
}

void ReadGrid(DayCase& day) {
    day.grid.reserve(std::size_t{kRows} * kSheetColumns);
    for (int row = 1; row <= kRows; ++row) {
        for (int place = 0; place < kSheetColumns; ++place) {
            const Figure shown = FigureOf(CellOf(*day.sheet, row, static_cast<Column>(place)));
            day.grid.push_back({shown, ReadAsTheSheet(shown)});
        }
    }
}

/// Cells that are written by the sheet, with the separator of its machine.
bool HoldsComma(const DayCase& day) {
    for (int row = 1; row <= kRows; ++row) {
        for (const Column column : {Column::VlaEd, Column::VlaEc, Column::Mmp, Column::Index,
                                    Column::CombinedIndex, Column::Mg, Column::Gsd, Column::EcPlus,
                                    Column::MgPlus, Column::GsdPlus, Column::Probability}) {
            if (day.Cell(row, column).find(',') != std::string::npos) return true;
        }
    }
    return false;
}

}  // namespace

DayCase CaseOf(const EvaluacionRecord& record, int day) {
    DayCase made;
    made.day = day;
    made.sheet = &record.Hoja(day);
    ReadGrid(made);
    for (int row = 1; row <= kRows; ++row) {
        made.in_plan(row) = ContaminantOf(row) <= RowsOf(record, day, TaskOf(row));
        made.on_sheet(row) = IsInUse(*made.sheet, row);
        made.plan(row) = FromPlan(record, made, row);
        made.cells(row) = FromCells(made, row);
        if (!made.Cell(row, Column::Mmp).empty()) made.computed = true;
    }
    PutBackEmptiedSample(made);
    made.comma = HoldsComma(made);
    ByRow<RowFigures> whole;
    ByRow<RowFigures> cut;
    for (int row = 1; row <= kRows; ++row) {
        whole(row) = ComputeRow(made.plan(row));
        cut(row) = TwoDecimals(whole(row));
    }
    made.exact = ComputeDay(made.plan, whole);
    made.rounded = ComputeDay(made.plan, cut);
    return made;
}

int RowsOf(const EvaluacionRecord& record, int day, int task) {
    if (task > record.NumTareas.Value()) return 0;
    return SumOfCounts(record.Muestras30(day, task), record.Muestras15(day, task));
}

int ContaminantsOf(const EvaluacionRecord& record, int task) {
    if (task > record.NumTareas.Value()) return 0;
    return SumOfCounts(record.NumContaminantes(task), 0);
}

const Unit* UnitAt(const std::vector<Unit>& units, int row) {
    const auto found = std::find_if(units.begin(), units.end(),
                                    [row](const Unit& unit) { return unit.rows.front() == row; });
    return found == units.end() ? nullptr : &*found;
}

bool SameNumber(double a, double b) {
    return std::fabs(a - b) <= 1e-9 * std::max(std::fabs(a), std::fabs(b));
}

bool ComesFrom(const Figure& cell, double number) {
    constexpr double kHalfOfTheLastPlace = 0.005;
    return cell.value && std::fabs(*cell.value - number) <=
                             kHalfOfTheLastPlace + 1e-9 * std::max(1.0, std::fabs(number));
}

}  // namespace velmora::report
