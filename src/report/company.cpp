#include "report/company.h"

#include <algorithm>

#include "report/text.h"

namespace velmora::report {

std::string CompanyText(const Report& report, int number) {
    const auto field = std::ranges::find(report.company, number, &CompanyField::number);
    const std::string text = field == report.company.end() ? "" : Shown(field->value);
    return text == "---" ? "" : text;
}

}  // namespace velmora::report
