#include "report/csv.h"

#include "core/numbers.h"
#include "report/text.h"

namespace velmora {

namespace {

constexpr std::string_view kFormulaSigns = "=+-@";

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
    if (cell.starts_with('+') || !NumeroCompleto(cell, ".")) return TextField(cell);
    std::string figure(cell);
    if (figure.ends_with('.')) figure.pop_back();
    const std::size_t point = figure.find('.');
    if (point == std::string::npos) return figure;
    figure[point] = decimal;
    const std::size_t first = cell.starts_with('-') ? 1 : 0;
    if (point == first) figure.insert(first, 1, '0');
    return figure;
}

}  // namespace velmora
