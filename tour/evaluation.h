#pragma once

#include <array>
#include <string_view>

namespace velmora::tour {

// What the guided example types: a made-up company, its plan and its measurements. All of it stands
// as the keys that are pressed. Days, tasks and contaminants are counted from 0 here.

inline constexpr int kDays = 3;
inline constexpr int kTasks = 3;
inline constexpr int kAgents = 6;
inline constexpr int kSamples = 6;

/// The nineteen boxes of the company's screen, by their index less one.
using Company = std::array<std::string_view, 19>;

struct Agent {
    std::string_view name;
    std::string_view daily_limit;  ///< VLA-ED
    std::string_view short_limit;  ///< VLA-EC, "0" for none
    int sampling_minutes;          ///< 15 or 30
    std::string_view group;        ///< additive group, "0" for none
    std::string_view unit;
};

using Task = std::array<Agent, kAgents>;

/// The concentrations of one agent, C1 to C6; empty from the first one that wasn't taken.
using Samples = std::array<std::string_view, kSamples>;
using TaskSamples = std::array<Samples, kAgents>;

extern const Company kCompany;
extern const std::array<Task, kTasks> kPlan;
/// Hours of exposure by day and task.
extern const std::array<std::array<std::string_view, kTasks>, kDays> kHours;
extern const std::array<std::array<TaskSamples, kTasks>, kDays> kMeasurements;

/// The company of the worked day, whose agents are the first three of the first task.
extern const Company kCompanyOfWorkedDay;
inline constexpr int kAgentsOfWorkedDay = 3;

/// How many of the first agents of a task are sampled for so many minutes.
int CountSampledFor(int minutes, const Task& task, int agents = kAgents);

}  // namespace velmora::tour
