#pragma once

#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::report {

/// Words that aren't understood: the Spanish sentence says why.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What the program is told to do. Names of files are in UTF-8.
struct Order {
    bool help = false;
    bool version = false;
    bool summary = false;               ///< a line for each evaluation
    bool replace = false;               ///< existing files may be written over
    bool decimal_point = false;         ///< in the table, instead of a comma
    std::optional<std::string> report;  ///< name of the one report
    std::optional<std::string> table;   ///< name of the table
    std::vector<std::string> evaluations;

    /// Reports are what is made when nothing else is asked for.
    bool WantsReports() const { return report.has_value() || (!summary && !table); }
};

/// Reads the words behind the program's name, in the manner of GNU's programs: options in any place
/// and shortened as far as they stay unique, `--option=value` or the value in the next word, `--`
/// before names that begin with a hyphen. Throws `UsageError`.
Order ReadOrder(std::span<const std::string> words);

/// How the program is used, in Spanish.
std::string_view UsageText();

}  // namespace velmora::report
