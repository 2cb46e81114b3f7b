#include "report/cells.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "runtime/error.h"

namespace velmora::report {

namespace {

/// The entry of a day's sheet: the main grid's cells, then the other's.
int EntryOf(int row, Column column) {
    constexpr int kFirst = 1;
    constexpr int kFirstOfRight = kFirst + kRows * grid::kColumns;
    const int place = PlaceOf(column);
    return place < grid::kColumns ? kFirst + grid::Cell(row, place)
                                  : kFirstOfRight + grid::Cell3(row, place - grid::kColumns);
}

}  // namespace

const std::string& CellOf(const DaySheet& sheet, int row, Column column) {
    return sheet(EntryOf(row, column));
}

bool IsValidated(const DaySheet& sheet) {
    return std::any_of(sheet.begin(), sheet.end(),
                       [](const std::string& text) { return !text.empty(); });
}

bool IsInUse(const DaySheet& sheet, int row) {
    for (int place = 0; place <= PlaceOf(Column::Probability); ++place) {
        const auto column = static_cast<Column>(place);
        if (column == Column::Mg || column == Column::Gsd) continue;
        if (!CellOf(sheet, row, column).empty()) return true;
    }
    return false;
}

Figure FigureOf(std::string_view text) {
    Figure figure{std::string(text), {}};
    if (text.empty()) return figure;
    if (text == "." || text == ",") {  // zero, as the sheet writes it
        figure.value = 0;
        return figure;
    }
    const bool comma = text.find(',') != std::string_view::npos;
    const auto number = CompleteNumber(text, comma ? "," : ".");
    if (number && std::isfinite(*number)) figure.value = number;
    return figure;
}

double ReadAsTheSheet(const Figure& figure) {
    // What is a number with a point reads the same, but for a plus sign, at which the sheet stops.
    const std::string& text = figure.text;
    const bool alike =
        figure.value && !text.starts_with('+') && text.find(',') == std::string::npos;
    return alike ? *figure.value : ReadAsTheSheet(text);
}

double ReadAsTheSheet(std::string_view text) {
    try {
        return LeerValor(text).Value();
    } catch (const ErrorEjecucion&) {
        return 0;
    }
}

}  // namespace velmora::report
