#include "report/csv.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "report/company.h"
#include "report/text.h"
#include "runtime/text.h"

namespace velmora::report {

namespace {

constexpr std::string_view kFormulaSigns = "=+-@";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::array kHeadings = {
    "Fichero", "Código", "Empresa", "Jornada", "Tarea",  "Nº",      "Contaminante", "Unidad",
    "Horas",   "VLA-ED", "VLA-EC",  "T.M.",    "A+",     "C1",      "C2",           "C3",
    "C4",      "C5",     "C6",      "MMP",     "Indice", "Indic.+", "MG",           "GSD",
    "EC+",     "MG+",    "GSD+",    "Prob.",   "IG",
};

/// A line of the table: its fields, put one behind the other.
class Line {
public:
    explicit Line(char decimal) : decimal_(decimal) {}

    Line& Text(std::string_view text) { return Field(TextField(text)); }
    Line& Number(int number) { return Field(Whole(number)); }
    Line& Cell(const Figure& figure) { return Field(FigureField(figure.text, decimal_)); }
    Line& Value(std::string_view figure) { return Field(FigureField(figure, decimal_)); }
    std::string Finish() { return text_ + std::string(kLineEnd); }

private:
    Line& Field(const std::string& field) {
        if (!first_) text_ += ';';
        first_ = false;
        text_ += field;
        return *this;
    }

    char decimal_;
    bool first_ = true;
    std::string text_;
};

std::string HoursOf(const Report& report, int day, int task) {
    for (const PlanLine& line : report.plan) {
        if (line.day == day && line.task == task) return Rounded(line.hours, 15);
    }
    return "";
}

std::string_view OverallOf(const Report& report, int row) {
    const auto found = std::ranges::find(report.final_table, row, &FinalRow::row);
    return found == report.final_table.end() ? std::string_view() : found->overall.text;
}

}  // namespace

std::string TextField(std::string_view text) {
    std::string field = Shown(text);
    if (!field.empty() && kFormulaSigns.find(field.front()) != std::string_view::npos) {
        field.insert(0, 1, '\'');
    }
    if (field.find_first_of(";\"\r\n") == std::string::npos) return field;
    std::string quoted = "\"";
    for (const char letter : field) quoted.append(letter == '"' ? 2 : 1, letter);
    return quoted + '"';
}

std::string FigureField(std::string_view cell, char decimal) {
    if (cell == ".") return "0";
    if (cell.starts_with('+') || !CompleteNumber(cell, ".")) return TextField(cell);
    std::string figure(cell);
    if (figure.ends_with('.')) figure.pop_back();
    const std::size_t point = figure.find('.');
    if (point == std::string::npos) return figure;
    figure[point] = decimal;
    const std::size_t first = cell.starts_with('-') ? 1 : 0;
    if (point == first) figure.insert(first, 1, '0');
    return figure;
}

std::string TableHead() {
    Line line('.');
    for (const char* const heading : kHeadings) line.Text(heading);
    return std::string(kByteOrderMark) + line.Finish();
}

std::string TableRows(const Report& report, std::string_view file, char decimal) {
    std::string rows;
    for (const Day& day : report.days) {
        for (const SheetRow& row : day.rows) {
            Line line(decimal);
            line.Text(file)
                .Text(CompanyText(report, kCode))
                .Text(CompanyText(report, kCompanyName));
            line.Number(day.day).Number(row.task).Number(row.contaminant);
            line.Text(row.name).Text(row.unit).Value(HoursOf(report, day.day, row.task));
            line.Cell(row.vla_ed).Cell(row.vla_ec).Cell(row.sampling_minutes).Cell(row.group);
            for (const Figure& sample : row.samples) line.Cell(sample);
            for (const Figure* figure :
                 {&row.mmp, &row.index, &row.combined_index, &row.mg, &row.gsd, &row.ec_plus,
                  &row.mg_plus, &row.gsd_plus, &row.probability}) {
                line.Cell(*figure);
            }
            rows += line.Value(OverallOf(report, row.row)).Finish();
        }
    }
    return rows;
}

}  // namespace velmora::report
