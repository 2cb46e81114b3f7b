#pragma once

#include <iosfwd>
#include <string_view>

#include "report/markup.h"
#include "report/report.h"

namespace velmora::report {

/// The sections of the page, in its order; each is whole, with its heading.
Markup CompanySection(const Report& report);
Markup VerdictSection(const Report& report);
Markup PlanSection(const Report& report);
Markup AgentSection(const Report& report);
void WriteDaySections(const Report& report, std::ostream& out);
Markup FinalSection(const Report& report);
void WritePictureSection(const Report& report, std::ostream& out);
Markup ReviewSection(const Report& report);
Markup NormSection(const Report& report);
Markup MethodSection();

/// A section's start, with its heading, and its end; `name` is unique in the page.
Markup SectionStart(std::string_view name, std::string_view title, std::string_view kind = "");
inline constexpr std::string_view kSectionEnd = "</section>\n";

/// A whole section.
Markup Section(std::string_view name, std::string_view title, const Markup& content,
               std::string_view kind = "");

/// The field of the company with this number (1 to 19), as markup.
Markup CompanyMarkup(const Report& report, int number);

/// The page's style, but for what depends on the evaluation.
std::string_view PageStyle();

}  // namespace velmora::report
