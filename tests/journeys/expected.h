#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::journeys {

/// A line of the plan as the texts of its six cells: day, task, hours, counts of 30' and 15',
/// agents.
using PlanLine = std::array<std::string, 6>;

struct Agent {
    std::string name;
    std::string daily_limit;
    std::string short_limit;
    std::string minutes;  ///< 15 or 30
    std::string group;
    std::string unit;
};

/// A whole evaluation as evaluations.py has computed it: what is typed and all that must come out.
/// Days, tasks, places of agents, entries, rows and columns are counted from 1; texts are UTF-8.
class Expected {
public:
    /// "one_day", "three_days" or "restarted". Throws when the file isn't of 1524 lines.
    explicit Expected(std::string_view name);

    const std::string& Path() const { return path_; }
    const std::string& Bytes() const { return bytes_; }
    const std::string& Company(int field) const { return Line(field); }
    int Days() const { return Number(20); }
    int Tasks() const { return Number(21); }
    int Agents(int task) const { return Number(48 + task); }
    PlanLine PlanOf(int day, int task) const;
    /// Rows of the task's sheet on that day.
    int Rows(int day, int task) const;
    Agent AgentOf(int task, int place) const;
    /// Entry 1 to 401 of the day's sheet.
    const std::string& Entry(int day, int entry) const { return Line(159 + 3 * (entry - 1) + day); }
    const std::string& Final(int row, int column) const {
        return Line(1362 + 9 * (row - 1) + column);
    }
    /// The measurements of an agent that are typed, C1 on.
    std::vector<std::string> Samples(int day, int task, int place) const;

private:
    const std::string& Line(int number) const {
        return lines_.at(static_cast<std::size_t>(number - 1));
    }
    int Number(int line) const { return std::stoi(Line(line)); }

    std::string path_;
    std::string bytes_;
    std::vector<std::string> lines_;  ///< without their quotes
};

/// The bytes of a file; throws when it can't be read.
std::string BytesOf(const std::string& path);

}  // namespace velmora::journeys
