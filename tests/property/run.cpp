#include "property/run.h"

#include <algorithm>
#include <ostream>

#include "property/say.h"
#include "property/user.h"
#include "property/world.h"

namespace velmora::property {

namespace {

std::string NameOf(ScreenId id) { return Say("Form", static_cast<int>(id)); }

std::optional<Finding> Judge(const Step& step, const Invariant& invariant) {
    const Verdict verdict = invariant.judge(step);
    if (!verdict.IsBroken()) return std::nullopt;
    return Finding{&invariant, verdict.Why(), {}};
}

std::optional<Finding> JudgeAll(const Step& step, std::span<const Invariant> invariants,
                                Reach* reach) {
    for (const Invariant& invariant : invariants) {
        const Verdict verdict = invariant.judge(step);
        if (verdict.IsBroken()) return Finding{&invariant, verdict.Why(), {}};
        if (reach != nullptr && verdict.Applies()) ++reach->judged[invariant.sentence];
    }
    return std::nullopt;
}

std::vector<Action> Without(const std::vector<Action>& actions, std::size_t first,
                            std::size_t count) {
    std::vector<Action> rest(actions.begin(), actions.begin() + static_cast<std::ptrdiff_t>(first));
    const std::size_t behind = std::min(first + count, actions.size());
    rest.insert(rest.end(), actions.begin() + static_cast<std::ptrdiff_t>(behind), actions.end());
    return rest;
}

/// The finding without the answers and file names that don't matter to it.
Finding Plainer(Finding finding, const std::string& separator) {
    for (std::size_t i = 0; i < finding.actions.size(); ++i) {
        std::vector<Action> plainer = finding.actions;
        plainer[i].answer = MsgBoxAnswer::No;
        plainer[i].file.reset();
        plainer[i].at_once = false;
        if (plainer[i] == finding.actions[i]) continue;
        auto found = Replay(plainer, separator, *finding.invariant);
        if (found && found->actions.size() <= finding.actions.size()) finding = *std::move(found);
    }
    return finding;
}

}  // namespace

void Reach::Note(const Step& step) {
    ++actions;
    if (step.outcome.error) ++errors[*step.outcome.error];
    if (step.outcome.ended) ++ends;
    const std::string deed = NameOf(step.before.Id()) + "." + step.action.target;
    if (step.action.kind != Action::Kind::Key) done.insert(deed);
    for (const ShownBox& box : step.outcome.boxes) {
        ++boxes[deed + ": " + box.prompt.substr(0, box.prompt.find('\r'))];
    }
}

std::optional<Finding> RunAtRandom(const Orders& orders, std::span<const Invariant> invariants,
                                   Reach* reach) {
    World world(orders.separator);
    User user(orders.seed, orders.meddles);
    Dice haste(orders.seed);
    std::vector<Action> actions;
    while (static_cast<int>(actions.size()) < orders.actions) {
        Action action = user.Next(world);
        action.at_once = haste.Chance(50);
        if (!world.Perform(action)) continue;
        actions.push_back(std::move(action));
        if (reach != nullptr) reach->Note(world.Last());
        if (auto finding = JudgeAll(world.Last(), invariants, reach)) {
            finding->actions = std::move(actions);
            return finding;
        }
    }
    return std::nullopt;
}

std::optional<Finding> Replay(const std::vector<Action>& actions, const std::string& separator,
                              const Invariant& invariant) {
    World world(separator);
    std::vector<Action> done;
    for (const Action& action : actions) {
        if (!world.Perform(action)) continue;
        done.push_back(action);
        if (auto finding = Judge(world.Last(), invariant)) {
            finding->actions = std::move(done);
            return finding;
        }
    }
    return std::nullopt;
}

Finding Shorten(Finding finding, const std::string& separator) {
    int replays = 4000;  // enough for any run so far, and a bound for one that resists
    std::size_t count = std::max<std::size_t>(finding.actions.size() / 2, 1);
    for (;;) {
        bool shorter = false;
        for (std::size_t first = 0; first < finding.actions.size() && replays > 0; --replays) {
            auto found =
                Replay(Without(finding.actions, first, count), separator, *finding.invariant);
            if (found && found->actions.size() < finding.actions.size()) {
                finding = *std::move(found);
                shorter = true;
            } else {
                first += count;
            }
        }
        if (replays <= 0 || (count == 1 && !shorter)) return Plainer(finding, separator);
        count = std::max<std::size_t>(count / 2, 1);
    }
}

void Report(std::ostream& out, const Orders& orders, const Finding& finding) {
    out << "Seed " << orders.seed << ", separator \"" << orders.separator << "\", "
        << (orders.meddles ? "with" : "without") << " damaged files: after "
        << finding.actions.size() << " actions this no longer holds:\n  "
        << finding.invariant->sentence << "\n  (" << finding.why << ")\n";
    const Finding shortened = Shorten(finding, orders.separator);
    out << "Shortened to " << shortened.actions.size() << " actions (" << shortened.why << "):\n";
    for (const Action& action : shortened.actions) out << "  " << Describe(action) << '\n';
}

}  // namespace velmora::property
