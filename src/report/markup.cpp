#include "report/markup.h"

#include <cassert>
#include <utility>

#include "report/text.h"

namespace velmora::report {

namespace {

/// Where the installed guide stands.
constexpr std::string_view kGuide = "file:///usr/share/doc/velmora/guia.html#";

/// The title that an anchor was made of, but for its marks.
std::string TitleOf(std::string_view anchor) {
    std::string title(anchor);
    for (char& letter : title) {
        if (letter == '-') letter = ' ';
    }
    const bool small = !title.empty() && title.front() >= 'a' && title.front() <= 'z';
    if (small) title.front() = static_cast<char>(title.front() - 'a' + 'A');
    return title;
}

}  // namespace

Markup Text(std::string_view text) { return Escaped(Shown(text)); }

Markup Cell(const Figure& figure) {
    const Markup text = Text(figure.text);
    return text.empty() ? "—" : text;
}

Markup Element(std::string_view name, const Markup& content, std::string_view attributes) {
    constexpr std::size_t kSigns = 8;
    Markup markup;
    markup.reserve(content.size() + 2 * name.size() + attributes.size() + kSigns);
    markup.append("<").append(name);
    if (!attributes.empty()) markup.append(" ").append(attributes);
    return markup.append(">").append(content).append("</").append(name).append(">\n");
}

Markup GuideLink(std::string_view anchor) {
    return "<a href=\"" + Escaped(std::string(kGuide).append(anchor)) + "\">Guía, «" +
           Escaped(TitleOf(anchor)) + "»</a>";
}

Table::Table(std::string_view name, const Markup& caption, std::span<const Column> columns)
    : columns_(columns.begin(), columns.end()) {
    const std::string id(name);
    markup_ = R"(<div class="tabla" role="group" tabindex="0" aria-labelledby=")" + id +
              "\">\n<table>\n" + Element("caption", caption, "id=\"" + id + "\"") +
              "<thead>\n<tr>\n";
    for (const Column& column : columns_) {
        markup_ += Element("th", Escaped(column.title),
                           column.figures ? R"(scope="col" class="n")" : R"(scope="col")");
    }
    markup_ += "</tr>\n</thead>\n";
}

void Table::BeginGroup(const Markup& title) {
    if (body_open_) markup_ += "</tbody>\n";
    markup_ +=
        "<tbody>\n<tr class=\"grupo\">" +
        Element("th", title, R"(scope="rowgroup" colspan=")" + Whole(columns_.size()) + "\"") +
        "</tr>\n";
    body_open_ = true;
}

void Table::Row(const std::vector<Markup>& cells) {
    assert(cells.size() == columns_.size());
    if (!body_open_) markup_ += "<tbody>\n";
    body_open_ = true;
    markup_ += "<tr>";
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Column& column = columns_[i];
        markup_ += column.heading   ? "<th scope=\"row\">"
                   : column.figures ? "<td class=\"n\">"
                                    : "<td>";
        markup_.append(cells[i]).append(column.heading ? "</th>" : "</td>");
    }
    markup_ += "</tr>\n";
}

Markup Table::Finish() {
    if (body_open_) markup_ += "</tbody>\n";
    body_open_ = false;
    return std::move(markup_ += "</table>\n</div>\n");
}

}  // namespace velmora::report
