#include <algorithm>

#include "core/grid.h"
#include "core/numbers.h"
#include "sheet/form5.h"
#include "stats/verdicts.h"

namespace velmora {

namespace {

constexpr Color kRedOf30Minutes = 250;  ///< mark of a 30-minute sample over its limit
constexpr Color kRedOf15Minutes = 255;  ///< mark of a 15-minute sample over its limit

/// The greatest number in a column of a grid of so many columns; 0 when none is above it.
template <class Cells>
Doble Greatest(const Cells& cells, int column, int columns) {
    Doble greatest = 0;
    for (int row = 0; row < grid::kRows; ++row) {
        const Doble value = LeerValor(cells(row * columns + column).Text);
        if (value > greatest) greatest = value;
    }
    return greatest;
}

}  // namespace

void Form5::Command8_Click() {
    const Doble x = Greatest(Text1, grid::kIndex, grid::kColumns);
    const Doble y = std::max(Greatest(Text1, grid::kIndexPlus, grid::kColumns), x);
    Text2.Text = TextoDoble(y);
    const Doble p = Greatest(Text3, grid::kProbability, grid::kColumns3);
    Text4.Text = TextoDoble(p);
    // The first sample over its limit ends the search: the 30-minute rows come first.
    if (!MarkSampleOverLimit(30, kRedOf30Minutes)) MarkSampleOverLimit(15, kRedOf15Minutes);

    if (DiaActual < 1 || DiaActual > 3) return;
    Text5.Text = kIndexVerdict(DiaActual).For(y);
    Text6.Text = kProbabilityVerdict.For(p);
    ForEachEntry([](std::string& entry, const TextCell& cell) { entry = cell.Text; });
    CopyToFinalTable();
}

bool Form5::MarkSampleOverLimit(int minutes, Color color) {
    for (int R = 1; R <= grid::kRows; ++R) {
        if (Value(R, grid::kSamplingTime) != minutes) continue;
        const Doble limit = minutes == 30 ? 3 * Value(R, grid::kEd) : Value(R, grid::kEc);
        for (int c = grid::kFirstSample; c <= grid::kLastSample; ++c) {
            // An empty sample is over an empty limit: both read 0, and that is meant.
            if (Value(R, c) < limit) {
                Text7.Text = "NO";
                continue;
            }
            Text7.Text = "SI";
            Cell(R, c).BackColor = color;
            Cell(R, c).ForeColor = kWindowBackground;
            return true;
        }
    }
    return false;
}

void Form5::CopyToFinalTable() {
    const int index_column = final_table::IndexColumn(DiaActual.Value());
    const int probability_column = final_table::ProbabilityColumn(DiaActual.Value());
    // An empty cell leaves what an earlier press put into the table.
    const auto copy = [this](const std::string& text, int row, int column) {
        if (!text.empty()) environment_.record.HojaFinal(row, column) = TextoDoble(LeerValor(text));
    };
    for (int R = 1; R <= grid::kRows; ++R) {
        copy(Cell(R, grid::kIndexPlus).Text, R, index_column);
        copy(Cell3(R, grid::kProbability).Text, R, probability_column);
    }
}

void Form5::IndiceFinal(const Entero& a) {
    for (int i = 1; i <= grid::kRows; ++i) {
        if (Value(i, grid::kAdditive) != i - 1) continue;
        environment_.record.HojaFinal(a + 1, i) = TextoDoble(Value(i, grid::kIndex));
    }
}

}  // namespace velmora
