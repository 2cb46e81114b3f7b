#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "report/report.h"

namespace velmora::report {

/// HTML in a string, to be told from text that is still to be escaped.
using Markup = std::string;

/// What a text of the file becomes in the page: `Shown` and `Escaped`.
Markup Text(std::string_view text);

/// What a cell of the file becomes: its text, "—" for a blank one.
Markup Cell(const Figure& figure);

/// <name attributes>content</name>, and a line's end. `attributes` is markup.
Markup Element(std::string_view name, const Markup& content, std::string_view attributes = "");

/// A link to a section of the guide, by its anchor.
Markup GuideLink(std::string_view anchor);

/// A table that scrolls sideways where the page is narrow.
class Table {
public:
    struct Column {
        std::string_view title;
        bool figures = false;  ///< numbers, set to the right
        bool heading = false;  ///< its cells name their rows
    };

    /// `name` is unique in the page; the caption is markup.
    Table(std::string_view name, const Markup& caption, std::span<const Column> columns);

    /// A heading across all columns for the rows that follow.
    void BeginGroup(const Markup& title);
    /// A cell for each column, as markup.
    void Row(const std::vector<Markup>& cells);

    /// The whole table. To be called once, at the end.
    Markup Finish();

private:
    std::vector<Column> columns_;
    Markup markup_;
    bool body_open_ = false;
};

}  // namespace velmora::report
