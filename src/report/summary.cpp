#include "report/summary.h"

#include "report/company.h"
#include "report/text.h"

namespace velmora::report {

namespace {

std::string DayField(const Day& day) {
    const std::string name = "Jornada " + Whole(day.day) + ": ";
    if (!day.validated) return name + "sin validar";
    const Conclusion& said = day.sheet;
    return name + "índice " + Shown(said.highest_index.text) + "; corta exposición " +
           Shown(said.highest_probability.text) + " %; " + Shown(said.index_sentence) + "; " +
           Shown(said.probability_sentence);
}

}  // namespace

std::string SummaryLine(const Report& report, std::string_view file) {
    std::string line = CompanyText(report, kCode) + '\t' + CompanyText(report, kCompanyName);
    for (const Day& day : report.days) line += '\t' + DayField(day);
    const std::size_t things = report.findings.size() + report.remarks.size();
    line += '\t' + Whole(things) + " por revisar\t" + Shown(file) + '\n';
    return line;
}

}  // namespace velmora::report
