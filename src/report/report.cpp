#include "report/report.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "report/cells.h"

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

/// A count of the file cut to what the record has room for.
int Cut(Entero count, int most) { return std::clamp(count.Valor(), 0, most); }

std::vector<PlanLine> PlanOf(const EvaluacionRecord& record, int days, int tasks) {
    std::vector<PlanLine> plan;
    for (int day = 1; day <= days; ++day) {
        for (int task = 1; task <= tasks; ++task) {
            plan.push_back({day, task, record.TiempoExposicion(day, task).Valor(),
                            record.Muestras30(day, task).Valor(),
                            record.Muestras15(day, task).Valor(),
                            record.NumContaminantes(task).Valor()});
        }
    }
    return plan;
}

std::vector<Agent> AgentsOf(const EvaluacionRecord& record, int tasks) {
    std::vector<Agent> agents;
    for (int task = 1; task <= tasks; ++task) {
        for (int c = 1; c <= Cut(record.NumContaminantes(task), kRowsPerTask); ++c) {
            agents.push_back({task, c, record.NombreContaminante(task, c),
                              record.VlaEd(task, c).Valor(), record.VlaEc(task, c).Valor(),
                              record.TiempoMuestreo(task, c).Valor(),
                              record.Aditivo(task, c).Valor(), record.Unidades(task, c)});
        }
    }
    return agents;
}

SheetRow RowOfSheet(const HojaDelDia& sheet, int row) {
    const auto figure = [&](Column column) { return FigureOf(CellOf(sheet, row, column)); };
    SheetRow made;
    made.row = row;
    made.task = TaskOf(row);
    made.contaminant = ContaminantOf(row);
    made.name = CellOf(sheet, row, Column::Name);
    made.unit = CellOf(sheet, row, Column::Unit);
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

Day DayOf(const EvaluacionRecord& record, int day, int days) {
    const HojaDelDia& sheet = SheetOf(record, day);
    Day made;
    made.day = day;
    made.in_plan = day <= days;
    made.validated = IsValidated(sheet);
    if (!made.validated) return made;
    for (int row = 1; row <= kRows; ++row) {
        if (IsInUse(sheet, row)) made.rows.push_back(RowOfSheet(sheet, row));
    }
    made.sheet = {sheet(401), FigureOf(sheet(397)), FigureOf(sheet(398)), sheet(399), sheet(400)};
    return made;
}

std::vector<FinalRow> FinalTableOf(const EvaluacionRecord& record, int tasks) {
    std::vector<FinalRow> table;
    for (int row = 1; row <= kRows; ++row) {
        const auto figure = [&](int column) { return FigureOf(record.HojaFinal(row, column)); };
        FinalRow made;
        made.row = row;
        made.task = TaskOf(row);
        made.contaminant = ContaminantOf(row);
        made.name = record.HojaFinal(row, 2);
        made.index = {figure(3), figure(4), figure(5)};
        made.overall = figure(6);
        made.probability = {figure(7), figure(8), figure(9)};
        made.in_plan = made.task <= tasks &&
                       made.contaminant <= Cut(record.NumContaminantes(made.task), kRowsPerTask);
        bool holds_figure = false;
        for (int column = 3; column <= 9; ++column) {
            if (!record.HojaFinal(row, column).empty()) holds_figure = true;
        }
        if (made.in_plan || holds_figure) table.push_back(made);
    }
    return table;
}

}  // namespace

Report MakeReport(const EvaluacionRecord& record) {
    Report report;
    report.company = CompanyOf(record);
    report.days_planned = Cut(record.NumJornadas, 3);
    report.tasks_planned = Cut(record.NumTareas, 3);
    report.plan = PlanOf(record, report.days_planned, report.tasks_planned);
    report.agents = AgentsOf(record, report.tasks_planned);
    for (int day = 1; day <= 3; ++day) {
        Day made = DayOf(record, day, report.days_planned);
        if (made.in_plan || made.validated) report.days.push_back(std::move(made));
    }
    report.final_table = FinalTableOf(record, report.tasks_planned);
    return report;
}

Report ReadReport(const std::string& file_name) {
    EvaluacionRecord record;
    ReadEvaluation(file_name, record);
    return MakeReport(record);
}

}  // namespace velmora::report
