// The worked day's figures from a cold start: for each contaminant its estimated mean, geometric
// mean, geometric deviation and index.

#include <iomanip>
#include <iostream>

#include "core/grid.h"
#include "core/numbers.h"
#include "evaluation.h"

int main() {
    velmora::bench::Core core;
    const velmora::Form5& sheet = velmora::bench::WorkDay(core);
    std::cout << std::fixed << std::setprecision(2);
    for (int row = 0; row < 3; ++row) {
        for (const int column : {13, 16, 17, 14}) {
            const std::string& text = sheet.Text1(row * velmora::grid::kColumns + column).Text;
            std::cout << velmora::LeerValor(text).Value() << ' ';
        }
        std::cout << '\n';
    }
}
