#pragma once

#include <optional>
#include <string>
#include <vector>

#include "report/report.h"

namespace velmora::report {

/// What a finding says, but for what its kind says.
struct Told {
    std::string what;
    std::string sheet;
    std::string plain;
};

/// A finding of its kind, with its explanation. Of several rows the first is the place; `task`
/// counts when there are none.
Finding MakeFinding(FindingKind kind, int day, std::vector<int> rows, Told told, int task = 0);

/// A cell's text for a finding: "en blanco" for none.
std::string OrBlank(const std::string& cell);

/// A computed number for a finding, with a point and five significant digits; "sin valor" for none.
std::string NumberText(std::optional<double> number);

/// "1 (0.53 %)": a class with the exact percentage behind it.
std::string ClassAndPercent(std::optional<double> probability, std::optional<double> percent);

}  // namespace velmora::report
