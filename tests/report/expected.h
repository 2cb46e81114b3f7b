#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/numbers.h"
#include "report/text.h"

namespace velmora::test {

/// A figure of reference.csv, which reference.R computes.
inline double ExpectedNumber(std::string_view name) {
    std::ifstream in(VELMORA_REPORT_REFERENCE);
    for (std::string line; std::getline(in, line);) {
        const std::size_t mark = line.find(';');
        if (line.substr(0, mark) != name) continue;
        return CompleteNumber(line.substr(mark + 1), ".").value();
    }
    throw std::runtime_error("reference.csv doesn't hold " + std::string(name));
}

/// The same as the report writes it, with five significant digits.
inline std::string Expected(std::string_view name) {
    return report::Rounded(ExpectedNumber(name), 5);
}

}  // namespace velmora::test
