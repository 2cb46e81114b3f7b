// The report: any bytes are read as an evaluation, and its page, its table and its line are looked
// at.
//
// Input: the bytes of the file.

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "fuzz/check.h"
#include "fuzz/memory_file.h"
#include "report/csv.h"
#include "report/html.h"
#include "report/report.h"
#include "report/summary.h"

namespace velmora::fuzz {
namespace {

/// All elements that a page has.
constexpr std::array<std::string_view, 46> kElements = {
    "a",      "article", "b",      "body",       "caption", "circle",  "dd",    "desc",
    "div",    "dl",      "dt",     "figcaption", "figure",  "g",       "h1",    "h2",
    "h3",     "head",    "header", "html",       "li",      "line",    "main",  "meta",
    "nav",    "ol",      "p",      "path",       "rect",    "section", "small", "span",
    "strong", "style",   "sup",    "svg",        "table",   "tbody",   "td",    "text",
    "th",     "thead",   "title",  "tr",         "ul",      "!DOCTYPE"};

bool IsControl(char letter) { return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F; }

/// Each "<" begins an element that pages have, and each that was begun ends in its turn.
void JudgePage(const std::string& page) {
    Require(page.ends_with("</html>\n"), "a page is whole");
    std::vector<std::string_view> open;
    for (std::size_t at = page.find('<'); at != std::string::npos; at = page.find('<', at + 1)) {
        const bool closes = page[at + 1] == '/';
        const std::size_t from = at + (closes ? 2 : 1);
        const std::string_view name =
            std::string_view(page).substr(from, page.find_first_of(" />\n", from) - from);
        Require(std::ranges::find(kElements, name) != kElements.end(),
                "a page has no other element", name);
        const std::size_t end = page.find('>', at);
        if (closes) {
            Require(!open.empty() && open.back() == name, "elements end in their turn", name);
            open.pop_back();
        } else if (page[end - 1] != '/' && name != "meta" && name != "!DOCTYPE") {
            open.push_back(name);
        }
    }
    Require(open.empty(), "every element ends");
    Require(std::ranges::none_of(page, [](char c) { return c != '\n' && IsControl(c); }),
            "a page holds no control character");
}

/// How many fields a line of the table has.
std::ptrdiff_t FieldsOf(std::string_view line) {
    bool quoted = false;
    std::ptrdiff_t fields = 1;
    for (const char letter : line) {
        if (letter == '"') quoted = !quoted;
        if (letter == ';' && !quoted) ++fields;
    }
    Require(!quoted, "quotes come in pairs");
    return fields;
}

void JudgeTable(std::string_view rows) {
    const std::ptrdiff_t fields = FieldsOf(report::TableHead());
    while (!rows.empty()) {
        const std::size_t end = rows.find("\r\n");
        Require(end != std::string_view::npos, "each line of the table ends");
        const std::string_view line = rows.substr(0, end);
        Require(FieldsOf(line) == fields, "each line has a field for each heading", line);
        Require(std::ranges::none_of(line, IsControl), "a line holds no control character");
        for (const std::string_view formula : {";=", ";+", ";@", ";\"=", ";\"+", ";\"@", ";\"-"}) {
            const std::size_t at = line.find(formula);
            // Inside quotes such a thing is text: what is ahead of it has an odd number of quotes.
            Require(at == std::string_view::npos ||
                        std::ranges::count(line.substr(0, at), '"') % 2 == 1,
                    "no text becomes a formula", line);
        }
        rows.remove_prefix(end + 2);
    }
}

void Run(std::string_view bytes) {
    static const MemoryFile file;
    file.Fill(bytes);
    report::Report report;
    try {
        report = report::ReadReport(file.Name());
    } catch (const report::Refused&) {
        return;
    }
    const std::string page = report::Html(report);
    JudgePage(page);
    Require(page == report::Html(report::ReadReport(file.Name())), "the same file, the same page");
    JudgeTable(report::TableRows(report, "fichero.doc", ','));
    const std::string line = report::SummaryLine(report, "fichero.doc");
    Require(std::ranges::count(line, '\n') == 1 && line.back() == '\n', "a line is a line");
}

}  // namespace
}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::fuzz::Run(std::string(data, data + size));
    return 0;
}
