#pragma once

#include <cstdint>
#include <iosfwd>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "property/action.h"
#include "property/invariant.h"

namespace velmora::property {

/// How a run is made: the same orders give the same run.
struct Orders {
    std::uint64_t seed = 1;
    int actions = 1000;
    std::string separator = ".";
    bool meddles = true;  ///< the user also damages files
};

/// A sentence that a run went against, and the actions that led there.
struct Finding {
    const Invariant* invariant = nullptr;
    std::string why;
    std::vector<Action> actions;  ///< the last one went against it
};

/// What runs have put to the test, to tell that they put anything to the test at all.
struct Reach {
    std::map<std::string_view, int> judged;  ///< how often each sentence had something to look at
    std::set<std::string> done;              ///< "Form5.Command8", by what was pressed or chosen
    std::map<std::string, int> boxes;        ///< "Form5.Command1: " with the first line of the box
    int actions = 0;
    std::map<ErrorKind, int> errors;
    int ends = 0;

    void Note(const Step& step);
};

/// Has a user work through the program. Stops at the first sentence that is gone against.
std::optional<Finding> RunAtRandom(const Orders& orders, std::span<const Invariant> invariants,
                                   Reach* reach = nullptr);

/// Does the actions from the start, those that can be done, looking at one sentence alone.
std::optional<Finding> Replay(const std::vector<Action>& actions, const std::string& separator,
                              const Invariant& invariant);

/// The finding with as few actions as leaving some out can bring it to.
Finding Shorten(Finding finding, const std::string& separator);

/// Tells a developer of a finding, shortened.
void Report(std::ostream& out, const Orders& orders, const Finding& finding);

}  // namespace velmora::property
