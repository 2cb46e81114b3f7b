#include "core/grid.h"
#include "core/numbers.h"
#include "sheet/form5.h"

namespace velmora {

namespace {

constexpr int kLastGroup = 20;

// From the A+ cell of a row to two others of the same row.
constexpr int kToIndex = grid::kIndex - grid::kAdditive;
constexpr int kToIndexPlus = grid::kIndexPlus - grid::kAdditive;

}  // namespace

void Form5::Command4_Click() {
    for (int R = 1; R <= grid::kRows; ++R) Cell(R, grid::kIndexPlus).Text.clear();
    for (int k = 1; k <= kLastGroup; ++k) SumGroup(k);
    ShowMeansAndDeviations();
    Open(Command5);
    CopyIndicesWithoutGroup();
    SpreadSums();
}

void Form5::SumGroup(int k) {
    int F = 0;  // the A+ cell of the group's first row
    for (int R = 1; R <= grid::kRows; ++R) {
        if (F == 0 && Value(R, grid::kAdditive) == k) F = grid::Cell(R, grid::kAdditive);
        if (Value(R, grid::kAdditive) == k) {
            // The running sum lives in that one cell, as text.
            const Doble x = Value(R, grid::kIndex);
            const Doble y = Value(F + kToIndexPlus);
            Text1(F + kToIndexPlus).Text = TextoDoble(x + y);
        }
    }
    // Also when no row holds k: then F is 0, and the first row's C3 goes if it reads as its C2.
    // That is meant, not to be guarded.
    const Doble u = Value(F + kToIndex);
    const Doble v = Value(F + kToIndexPlus);
    if (u == v) Text1(F + kToIndexPlus).Text.clear();
}

void Form5::ShowMeansAndDeviations() {
    const EvaluacionRecord& record = environment_.record;
    for (int t = 1; t <= 3; ++t) {
        for (int c = 1; c <= grid::kRowsPerTask; ++c) {
            const int R = grid::RowOf(t, c);
            Cell(R, grid::kMg).Text = FormatoDosDecimales(record.MG(DiaActual, t, c));
            Cell(R, grid::kGsd).Text = FormatoDosDecimales(record.GSD(DiaActual, t, c));
        }
    }
}

void Form5::CopyIndicesWithoutGroup() {
    for (int R = 1; R <= grid::kRows; ++R) {
        if (Value(R, grid::kAdditive) == 0) {
            Cell(R, grid::kIndexPlus).Text = Cell(R, grid::kIndex).Text;
        }
    }
}

void Form5::SpreadSums() {
    // Only a group that bears the number of its first row is spread; the others keep their sum on
    // their first row. That is meant.
    for (int R = 1; R <= grid::kRows; ++R) {
        if (Value(R, grid::kAdditive) != R) continue;
        const Doble w = Value(R, grid::kIndexPlus);
        for (int M = R + 1; M <= grid::kRows; ++M) {
            if (Value(M, grid::kAdditive) == R) Cell(M, grid::kIndexPlus).Text = TextoDoble(w);
        }
    }
}

}  // namespace velmora
