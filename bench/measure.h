#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace velmora::bench {

constexpr double kMegabyte = 1024 * 1024;

/// One line of the table: a median of ours and one of what it is measured against, taken in turns
/// in the same run.
struct Row {
    std::string name;
    std::string yardstick;
    double ours = 0;
    double bare = 0;
    std::string unit;
    std::optional<double> budget{};  ///< what is hoped for at most
    bool of_value = false;           ///< the budget is of our value, not of the ratio

    double Ratio() const { return ours / bare; }
    bool Over() const { return budget && (of_value ? ours : Ratio()) > *budget; }
};

/// What is timed, and what has to be done before each time, which isn't.
struct Side {
    std::function<void()> act;
    std::function<void()> prepare = [] {};
};

double Median(std::vector<double> values);

/// Microseconds that the action takes, once.
double Time(const Side& side);

/// Processor time of this process so far, in microseconds.
double ProcessorTime();

/// Times both sides in turns, in alternating order, after one time that doesn't count.
Row Compare(std::string name, std::string yardstick, const Side& ours, const Side& bare,
            int repetitions, std::optional<double> budget = std::nullopt);

/// The same for sides that measure themselves, such as programs of their own.
Row CompareValues(std::string name, std::string yardstick, std::string unit,
                  const std::function<double()>& ours, const std::function<double()>& bare,
                  int repetitions, std::optional<double> budget = std::nullopt);

/// The rows as a table in Markdown.
void Print(const std::vector<Row>& rows, std::ostream& out);

}  // namespace velmora::bench
