#include "report/html.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "report/company.h"
#include "report/html_parts.h"
#include "report/text.h"
#include "report/version.h"

namespace velmora::report {

namespace {

constexpr std::size_t kHeadLetters = 70;  ///< of the company in each printed page's head

/// What stands in the margins of each printed page.
std::string PageMargins(const Report& report) {
    const std::string company = Fitting(CompanyText(report, kCompanyName), kHeadLetters);
    const std::string code = Fitting(CompanyText(report, kCode), kHeadLetters / 2);
    return "@page {\n@top-left { content: " + CssString(company) +
           "; }\n@top-right { content: " + CssString(code.empty() ? "" : "Evaluación " + code) +
           "; }\n@bottom-left { content: " + CssString("Informe de Velmora") +
           "; }\n@bottom-right { content: \"Página \" counter(page) \" de \" counter(pages); "
           "}\n}\n";
}

std::string TitleOf(const Report& report) {
    std::string title = "Informe de exposición";
    for (const int number : {kCode, kCompanyName}) {
        const std::string text = CompanyText(report, number);
        if (!text.empty()) title += " · " + Fitting(text, kHeadLetters);
    }
    return title;
}

Markup Head(const Report& report) {
    return "<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<meta name=\"generator\" content=\"Velmora " +
           std::string(Version()) + "\">\n" + Element("title", Escaped(TitleOf(report))) +
           Element("style", "\n" + std::string(PageStyle()) + PageMargins(report)) + "</head>\n";
}

Markup Masthead(const Report& report) {
    Markup company = CompanyMarkup(report, kCompanyName);
    if (company.empty()) company = "Empresa sin nombre";
    Markup line;
    constexpr std::array<std::pair<int, const char*>, 4> kFields = {
        {{kCode, "Evaluación"}, {18, ""}, {16, "Centro"}, {8, "Fecha"}}};
    for (const auto& [number, label] : kFields) {
        const Markup text = CompanyMarkup(report, number);
        if (text.empty()) continue;
        const Markup before = *label == '\0' ? "" : std::string(label) + " ";
        line += Element("span", before + text);
    }
    return Element("header", Element("p", "Exposición a agentes químicos · Informe de evaluación",
                                     "class=\"antetitulo\"") +
                                 Element("h1", company) + Element("p", line, "class=\"ficha\""));
}

Markup Contents() {
    constexpr std::array<std::pair<const char*, const char*>, 10> kEntries = {{
        {"datos", "Datos"},
        {"conclusiones", "Conclusiones"},
        {"plan", "Plan"},
        {"contaminantes", "Contaminantes"},
        {"jornadas", "Jornadas"},
        {"final", "Tabla final"},
        {"graficos", "Gráficos"},
        {"revisar", "Lo que conviene revisar"},
        {"norma", "UNE-EN 689:2018"},
        {"calculo", "Cómo se ha calculado"},
    }};
    Markup entries;
    for (const auto& [name, title] : kEntries) {
        entries += Element("li", "<a href=\"#" + std::string(name) + "\">" + title + "</a>");
    }
    return Element("nav", Element("ol", entries), "aria-label=\"Contenido\"");
}

}  // namespace

Markup CompanyMarkup(const Report& report, int number) {
    return Escaped(CompanyText(report, number));
}

Markup SectionStart(std::string_view name, std::string_view title, std::string_view kind) {
    const std::string id(name);
    const std::string look = kind.empty() ? "" : " class=\"" + std::string(kind) + "\"";
    return "<section aria-labelledby=\"" + id + '"' + look + ">\n" +
           Element("h2", Escaped(title), "id=\"" + id + '"');
}

Markup Section(std::string_view name, std::string_view title, const Markup& content,
               std::string_view kind) {
    return SectionStart(name, title, kind).append(content).append(kSectionEnd);
}

void WriteHtml(const Report& report, std::ostream& out) {
    out << "<!DOCTYPE html>\n<html lang=\"es\">\n" << Head(report) << "<body>\n";
    out << Masthead(report) << Contents() << "<main>\n";
    out << CompanySection(report) << VerdictSection(report) << PlanSection(report);
    out << AgentSection(report);
    WriteDaySections(report, out);
    out << FinalSection(report);
    WritePictureSection(report, out);
    out << ReviewSection(report) << NormSection(report) << MethodSection();
    out << "</main>\n</body>\n</html>\n";
}

std::string Html(const Report& report) {
    std::ostringstream page;
    WriteHtml(report, page);
    return page.str();
}

}  // namespace velmora::report
