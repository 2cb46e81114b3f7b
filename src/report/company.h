#pragma once

#include <string>

#include "report/report.h"

namespace velmora::report {

/// Numbers of fields of the company.
inline constexpr int kCompanyName = 1;
inline constexpr int kCode = 19;

/// The field of the company with this number (1 to 19), as `Shown`; one left empty gives "".
std::string CompanyText(const Report& report, int number);

}  // namespace velmora::report
