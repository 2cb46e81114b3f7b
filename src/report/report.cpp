#include "report/report.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include "report/assembly.h"
#include "report/day_case.h"
#include "report/findings.h"
#include "report/pictures.h"
#include "report/preliminary.h"
#include "report/review_day.h"
#include "report/review_final.h"
#include "report/verdict.h"
#include "stats/verdicts.h"

namespace velmora::report {

namespace {

struct Field {
    int number;
    std::string_view label;
};

// clang-format off
constexpr std::array<Field, 19> kFields = {{
    { 1, "Nombre de la empresa"},
    { 4, "Calle, carretera, avenida o plaza"},
    { 3, "Parcela"},
    { 5, "Número"},
    { 2, "Polígono industrial"},
    { 6, "Localidad"},
    { 7, "Provincia"},
    {11, "Teléfono o fax"},
    {10, "Número C.I.F."},
    {12, "Correo electrónico"},
    {13, "Página web"},
    {15, "Número de centros de trabajo"},
    {14, "Número total de trabajadores"},
    {16, "Evaluación: centro de trabajo"},
    {18, "Identificación de la evaluación"},
    {19, "Código de evaluación"},
    { 8, "Fecha de la evaluación"},
    {17, "Número de trabajadores expuestos"},
    { 9, "Responsable de la empresa"},
}};
// clang-format on

std::vector<CompanyField> CompanyOf(const EvaluacionRecord& record) {
    std::vector<CompanyField> company;
    company.reserve(kFields.size());
    for (const auto& [number, label] : kFields) {
        company.push_back({number, std::string(label), record.DatosEmpresa(number)});
    }
    return company;
}

constexpr int kDays = 3;

/// A count of the file cut to what the record has room for.
int Cut(Entero count, int most) { return std::clamp(count.Value(), 0, most); }

std::vector<PlanLine> PlanOf(const EvaluacionRecord& record, int days, int tasks) {
    std::vector<PlanLine> plan;
    for (int day = 1; day <= days; ++day) {
        for (int task = 1; task <= tasks; ++task) {
            plan.push_back({day, task, record.TiempoExposicion(day, task).Value(),
                            record.Muestras30(day, task).Value(),
                            record.Muestras15(day, task).Value(),
                            record.NumContaminantes(task).Value()});
        }
    }
    return plan;
}

std::vector<Agent> AgentsOf(const EvaluacionRecord& record, int tasks) {
    std::vector<Agent> agents;
    for (int task = 1; task <= tasks; ++task) {
        for (int c = 1; c <= Cut(record.NumContaminantes(task), kRowsPerTask); ++c) {
            agents.push_back({task, c, record.NombreContaminante(task, c),
                              record.VlaEd(task, c).Value(), record.VlaEc(task, c).Value(),
                              record.TiempoMuestreo(task, c).Value(),
                              record.Aditivo(task, c).Value(), record.Unidades(task, c)});
        }
    }
    return agents;
}

SheetRow RowOfSheet(const DayCase& day, int row) {
    const auto figure = [&](Column column) { return day.Shown(row, column); };
    SheetRow made;
    made.row = row;
    made.task = TaskOf(row);
    made.contaminant = ContaminantOf(row);
    made.name = day.Cell(row, Column::Name);
    made.unit = day.Cell(row, Column::Unit);
    made.vla_ed = figure(Column::VlaEd);
    made.vla_ec = figure(Column::VlaEc);
    made.sampling_minutes = figure(Column::SamplingMinutes);
    made.group = figure(Column::Group);
    for (int i = 1; i <= kSamples; ++i) {
        made.samples.at(static_cast<std::size_t>(i - 1)) = figure(SampleColumn(i));
    }
    made.mmp = figure(Column::Mmp);
    made.index = figure(Column::Index);
    made.combined_index = figure(Column::CombinedIndex);
    made.mg = figure(Column::Mg);
    made.gsd = figure(Column::Gsd);
    made.ec_plus = figure(Column::EcPlus);
    made.mg_plus = figure(Column::MgPlus);
    made.gsd_plus = figure(Column::GsdPlus);
    made.probability = figure(Column::Probability);
    return made;
}

/// What the plain computation gives beside the row.
void AddPlainFigures(SheetRow& row, const DayCase& day) {
    row.plain_index = day.exact.rows(row.row).index;
    row.plain_combined_index = day.exact.combined_index(row.row);
    const Unit* const rounded = UnitAt(day.rounded.units, row.row);
    const Unit* const exact = UnitAt(day.exact.units, row.row);
    if (rounded != nullptr) row.plain_probability = rounded->probability;
    if (exact != nullptr) row.exact_probability = exact->PercentAboveLimit();
}

Figure Computed(double number) { return {NumberText(number), number}; }

Conclusion PlainConclusion(const DayCase& day) {
    const RowVerdict verdict = Summary(VerdictOfPlain(day));
    const auto& sentences = kIndexVerdict(day.day).sentences;
    std::string_view probability = kProbabilityVerdict.For(verdict.probability);
    probability.remove_prefix(std::min(probability.find_first_not_of(' '), probability.size()));
    return {verdict.over ? "SI" : "NO", Computed(verdict.index), Computed(verdict.probability),
            std::string(sentences.at(IndexClass(verdict.index))), std::string(probability)};
}

void FillFromSheet(Day& made, const DayCase& day) {
    made.validated = true;
    made.rows.reserve(kRows);
    made.comma = day.comma;
    for (int row = 1; row <= kRows; ++row) {
        if (!day.on_sheet(row)) continue;
        made.rows.push_back(RowOfSheet(day, row));
        AddPlainFigures(made.rows.back(), day);
    }
    const DaySheet& sheet = *day.sheet;
    made.sheet = {
        AnswerOf(sheet, Answer::OverLimit), FigureOf(AnswerOf(sheet, Answer::HighestIndex)),
        FigureOf(AnswerOf(sheet, Answer::HighestProbability)),
        AnswerOf(sheet, Answer::IndexSentence), AnswerOf(sheet, Answer::ProbabilitySentence)};
    if (day.computed) made.plain = PlainConclusion(day);
}

std::vector<FinalRow> FinalTableOf(const EvaluacionRecord& record, int tasks) {
    std::vector<FinalRow> table;
    for (int row = 1; row <= kRows; ++row) {
        const auto figure = [&](int column) { return FigureOf(record.HojaFinal(row, column)); };
        FinalRow made;
        made.row = row;
        made.task = TaskOf(row);
        made.contaminant = ContaminantOf(row);
        made.name = record.HojaFinal(row, final_table::kName);
        made.index = {figure(final_table::kI1), figure(final_table::kI2), figure(final_table::kI3)};
        made.overall = figure(final_table::kIG);
        made.probability = {figure(final_table::kP1), figure(final_table::kP2),
                            figure(final_table::kP3)};
        made.in_plan = made.task <= tasks &&
                       made.contaminant <= Cut(record.NumContaminantes(made.task), kRowsPerTask);
        bool holds_figure = false;
        for (int column = final_table::kI1; column <= final_table::kP3; ++column) {
            if (!record.HojaFinal(row, column).empty()) holds_figure = true;
        }
        if (made.in_plan || holds_figure) table.push_back(made);
    }
    return table;
}

/// The days that hold a sheet.
std::vector<DayCase> CasesOf(const EvaluacionRecord& record) {
    std::vector<DayCase> days;
    days.reserve(kDays);
    for (int day = 1; day <= kDays; ++day) {
        if (IsValidated(record.Hoja(day))) days.push_back(CaseOf(record, day));
    }
    return days;
}

std::vector<Day> DaysOf(const std::vector<DayCase>& cases, int days_planned) {
    std::vector<Day> days;
    for (int day = 1; day <= kDays; ++day) {
        const auto found = std::find_if(cases.begin(), cases.end(),
                                        [day](const DayCase& c) { return c.day == day; });
        Day made;
        made.day = day;
        made.in_plan = day <= days_planned;
        if (found != cases.end()) FillFromSheet(made, *found);
        if (made.in_plan || made.validated) days.push_back(std::move(made));
    }
    return days;
}

/// Whether the file held all entries of the day's sheet; those of the three days take turns in it.
bool HeldSheet(int lines, int day) { return lines >= kFirstOfFinalTable - kDays + day - 1; }

std::vector<Finding> ReviewSheet(const EvaluacionRecord& record, const DayCase& day, int lines) {
    return HeldSheet(lines, day.day) ? ReviewDay(record, day) : ReviewCutDay(day, lines);
}

/// All findings, those of no day last.
std::vector<Finding> FindingsOf(const EvaluacionRecord& record,
                                const std::vector<DayCase>& planned_days, int lines) {
    std::vector<Finding> all = ReviewPlan(record);
    const auto add = [&all](std::vector<Finding> more) {
        std::move(more.begin(), more.end(), std::back_inserter(all));
    };
    for (const DayCase& day : planned_days) add(ReviewSheet(record, day, lines));
    const int final_cells = std::max(lines - kFirstOfFinalTable + 1, 0);
    add(ReviewFinalTable(record, planned_days, final_cells));
    std::stable_sort(all.begin(), all.end(), [](const Finding& a, const Finding& b) {
        return (a.day == 0 ? kDays + 1 : a.day) < (b.day == 0 ? kDays + 1 : b.day);
    });
    return all;
}

}  // namespace

Report MakeReport(const EvaluacionRecord& record, int lines) {
    Report report;
    report.company = CompanyOf(record);
    report.days_planned = Cut(record.NumJornadas, kDays);
    report.tasks_planned = Cut(record.NumTareas, 3);
    report.plan = PlanOf(record, report.days_planned, report.tasks_planned);
    report.agents = AgentsOf(record, report.tasks_planned);
    std::vector<DayCase> days = CasesOf(record);
    report.days = DaysOf(days, report.days_planned);
    std::erase_if(days, [&](const DayCase& day) { return day.day > report.days_planned; });
    report.findings = FindingsOf(record, days, lines);
    report.final_table = FinalTableOf(record, report.tasks_planned);
    // From a part of a sheet nothing is concluded.
    std::erase_if(days, [&](const DayCase& day) { return !HeldSheet(lines, day.day); });
    for (Day& day : report.days) {
        if (!HeldSheet(lines, day.day)) day.plain = {};
    }
    report.index_series = IndexSeriesOf(report.final_table, days);
    report.probability_plots = ProbabilityPlotsOf(days);
    report.ladder_points = LadderPointsOf(days);
    report.preliminary_tests = PreliminaryTests(record, days);
    return report;
}

Report MakeReport(const EvaluacionRecord& record) { return MakeReport(record, kLinesOfEvaluation); }

}  // namespace velmora::report
