#include "report/findings.h"

#include <cmath>
#include <utility>

#include "report/cells.h"
#include "report/explanations.h"
#include "report/text.h"

namespace velmora::report {

Finding MakeFinding(FindingKind kind, int day, std::vector<int> rows, Told told, int task) {
    const Explanation& explanation = ExplanationOf(kind);
    Finding finding;
    finding.kind = kind;
    finding.day = day;
    finding.task = rows.empty() ? task : TaskOf(rows.front());
    finding.contaminant = rows.empty() ? 0 : ContaminantOf(rows.front());
    finding.rows = std::move(rows);
    finding.what = std::move(told.what);
    finding.sheet = std::move(told.sheet);
    finding.plain = std::move(told.plain);
    finding.why = explanation.why;
    finding.anchor = explanation.anchor;
    return finding;
}

std::string OrBlank(const std::string& cell) { return cell.empty() ? "en blanco" : cell; }

std::string NumberText(std::optional<double> number) {
    constexpr int kDigits = 5;
    return number && std::isfinite(*number) ? Rounded(*number, kDigits) : "sin valor";
}

std::string ClassAndPercent(std::optional<double> probability, std::optional<double> percent) {
    if (!probability) return "sin valor";
    const std::string text = NumberText(probability);
    return percent ? text + " (" + NumberText(percent) + " %)" : text;
}

}  // namespace velmora::report
