#include <array>
#include <string>

#include "report/review_notes.h"

namespace velmora::report {

namespace {

/// The texts of a finding that lists several columns.
struct Differences {
    std::string what;
    std::string sheet;
    std::string plain;

    void Add(std::string_view column, std::string_view on_sheet, std::string_view in_plan) {
        const std::string_view comma = what.empty() ? "" : ", ";
        what.append(comma).append(column);
        sheet.append(comma).append(on_sheet);
        plain.append(comma).append(in_plan);
    }
    Told Texts() const { return {what, sheet, plain}; }
};

struct PlanCell {
    Column column;
    std::string text;              ///< as the plan has it
    std::optional<double> number;  ///< nothing for a text
};

std::array<PlanCell, 6> PlanCellsOf(const EvaluacionRecord& record, int row) {
    const int task = TaskOf(row);
    const int c = ContaminantOf(row);
    const auto number = [](Column column, double value) {
        return PlanCell{column, NumberText(value), value};
    };
    return {{{Column::Name, record.NombreContaminante(task, c), {}},
             number(Column::VlaEd, record.VlaEd(task, c).Value()),
             number(Column::VlaEc, record.VlaEc(task, c).Value()),
             {Column::Unit, record.Unidades(task, c), {}},
             number(Column::SamplingMinutes, record.TiempoMuestreo(task, c).Value()),
             number(Column::Group, record.Aditivo(task, c).Value())}};
}

bool Agree(const Figure& cell, const PlanCell& plan) {
    if (!plan.number) return cell.text == plan.text;
    return cell.value && SameNumber(*cell.value, *plan.number);
}

void CompareAgent(ReviewNotes& notes, int row) {
    Differences changed;
    Differences wiped;
    for (const PlanCell& plan : PlanCellsOf(notes.record, row)) {
        const Figure& cell = notes.day.Shown(row, plan.column);
        if (Agree(cell, plan)) continue;
        if (plan.number) notes.inputs_changed(row) = true;
        if (plan.column == Column::Group) notes.group_changed(row) = true;
        (cell.text.empty() ? wiped : changed)
            .Add(HeadingOf(plan.column), OrBlank(cell.text), OrBlank(plan.text));
    }
    if (!changed.what.empty()) {
        notes.Add(FindingKind::AgentChanged, {row}, changed.Texts(), Part::All);
    }
    if (!wiped.what.empty()) {
        notes.Add(FindingKind::CellWiped, {row}, wiped.Texts(), Part::All);
    }
}

/// Rows of the sheet within the task: the last that shows anything of the plan or of a result.
int RowsOnSheet(const DayCase& day, int task) {
    for (int c = kRowsPerTask; c >= 1; --c) {
        if (day.on_sheet(RowOf(task, c))) return c;
    }
    return 0;
}

std::vector<int> RowsFromTo(int task, int first, int last) {
    std::vector<int> rows;
    for (int c = first; c <= last; ++c) rows.push_back(RowOf(task, c));
    return rows;
}

std::string Count(int n, std::string_view one, std::string_view many) {
    return NumberText(n) + " " + std::string(n == 1 ? one : many);
}

void CompareShape(ReviewNotes& notes, int task) {
    const int planned = RowsOf(notes.record, notes.day.day, task);
    const int contaminants = ContaminantsOf(notes.record, task);
    const int shown = RowsOnSheet(notes.day, task);
    if (shown != planned) {
        const Told told{"filas", Count(shown, "fila", "filas"),
                        Count(planned, "fila en el plan", "filas en el plan")};
        notes.Add(FindingKind::PlanChanged, {}, told, Part::All, task,
                  RowsFromTo(task, 1, kRowsPerTask));
    } else if (planned > contaminants) {
        const Told told{"filas", Count(planned, "fila", "filas"),
                        Count(contaminants, "contaminante", "contaminantes")};
        notes.Add(FindingKind::RowsBeyondContaminants, RowsFromTo(task, contaminants + 1, planned),
                  told, Part::Probability);
    } else if (planned < contaminants) {
        const Told told{"filas", Count(planned, "fila", "filas"),
                        Count(contaminants, "contaminante", "contaminantes")};
        notes.Add(FindingKind::ContaminantsBeyondRows, RowsFromTo(task, planned + 1, contaminants),
                  told, Part::Probability);
    }
}

void ReadSamples(ReviewNotes& notes, int row) {
    for (int i = 1; i <= kSamples; ++i) {
        const std::string& text = notes.day.Cell(row, SampleColumn(i));
        const Figure cell = FigureOf(text);
        const double read = notes.day.Read(row, SampleColumn(i));
        if (text.empty() || (cell.value && *cell.value == read)) continue;
        const std::string heading(HeadingOf(SampleColumn(i)));
        notes.Add(FindingKind::SampleMisread, {row},
                  {heading, text + ", leída como " + NumberText(read),
                   cell.value ? NumberText(cell.value) : "no es un número"},
                  Part::All);
    }
    if (row != 1 || !notes.day.sample_emptied) return;
    notes.Add(FindingKind::SampleEmptied, {row},
              {"C3", "en blanco", NumberText(notes.day.plan(row).samples(3))}, Part::All);
}

}  // namespace

void CompareWithPlan(ReviewNotes& notes) {
    for (int task = 1; task <= 3; ++task) CompareShape(notes, task);
    for (int row = 1; row <= kRows; ++row) {
        if (!notes.day.on_sheet(row) || !notes.day.in_plan(row)) continue;
        CompareAgent(notes, row);
        ReadSamples(notes, row);
    }
}

}  // namespace velmora::report
