#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "property/invariant.h"
#include "property/process.h"
#include "property/run.h"

namespace velmora::property {
namespace {

/// The runs of every test: the same seeds each time, some with files that come to harm, and some
/// under a comma.
std::vector<Orders> FixedRuns() {
    std::vector<Orders> runs;
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        runs.push_back({.seed = seed,
                        .actions = 2000,
                        .separator = seed % 6 == 0 ? "," : ".",
                        .meddles = seed % 2 == 0});
    }
    return runs;
}

std::string KeyOf(const KnownBox& box) {
    const std::string prompt(box.prompt);
    return Say("Form", static_cast<int>(box.screen), ".", box.cause, ": ",
               prompt.substr(0, prompt.find('\r')));
}

void AddEntries(const std::string& screen, const std::vector<MenuEntry>& menu,
                std::vector<std::string>& deeds) {
    for (const MenuEntry& entry : menu) {
        if (entry.Click) deeds.push_back(Say(screen, ".", entry.name));
        AddEntries(screen, entry.list, deeds);
    }
}

/// Every button, list and entry of the six screens, as "Form5.Command8".
std::vector<std::string> EverythingToDo() {
    Process program(".");
    std::vector<std::string> deeds;
    for (const ScreenId id : {ScreenId::Form1, ScreenId::Form2, ScreenId::Form3, ScreenId::Form4,
                              ScreenId::Form5, ScreenId::Form6}) {
        program.Open(id);
        const Screen& screen = program.Current();
        const std::string name(screen.Name());
        AddEntries(name, screen.Menu(), deeds);
        for (const Control& control : screen.Controls()) {
            const bool used = std::holds_alternative<Button*>(control.state) ||
                              std::holds_alternative<ComboBox*>(control.state);
            if (used) deeds.push_back(Say(name, ".", control.name));
        }
    }
    return deeds;
}

TEST(RandomUse, KeepsEverySentenceTrueAndPutsEachToTheTest) {
    Reach reach;
    for (const Orders& orders : FixedRuns()) {
        if (const auto finding = RunAtRandom(orders, Invariants(), &reach)) {
            std::ostringstream report;
            Report(report, orders, *finding);
            FAIL() << report.str();
        }
    }
    for (const Invariant& invariant : Invariants()) {
        EXPECT_GT(reach.judged[invariant.sentence], 0) << "never looked at: " << invariant.sentence;
    }
    for (const KnownBox& box : KnownBoxes()) {
        EXPECT_TRUE(reach.boxes.contains(KeyOf(box))) << "never shown: " << KeyOf(box);
    }
    for (const std::string& deed : EverythingToDo()) {
        EXPECT_TRUE(reach.done.contains(deed)) << "never pressed, picked or chosen: " << deed;
    }
    for (const ErrorKind error :
         {ErrorKind::InvalidOperation, ErrorKind::DivisionByZero, ErrorKind::SubscriptOutOfRange}) {
        EXPECT_GT(reach.errors[error], 0) << "never met: " << MessageOf(error);
    }
    EXPECT_GT(reach.ends, 0) << "no run was ended by Salir";
}

/// A sentence that is false on purpose.
Verdict NoPlanHasThreeDays(const Step& step) {
    if (step.record_after.NumJornadas != 3) return Verdict::Holds();
    return Verdict::Broken("it has three");
}

constexpr Invariant kFalse{"No plan has three days.", NoPlanHasThreeDays};

/// The first fixed run that goes against the false sentence.
std::pair<Orders, Finding> FalseFinding() {
    for (const Orders& orders : FixedRuns()) {
        if (auto finding = RunAtRandom(orders, std::span(&kFalse, 1))) {
            return {orders, *std::move(finding)};
        }
    }
    return {};
}

TEST(Shortening, LeavesTheActionsThatMatterAndNoOther) {
    const auto [orders, finding] = FalseFinding();
    ASSERT_EQ(finding.invariant, &kFalse);
    const Finding shortened = Shorten(finding, orders.separator);
    // By hand: from the splash screen to the plan, two picks and the button.
    std::vector<std::string> lines;
    for (const Action& action : shortened.actions) lines.push_back(Describe(action));
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0], "choose Nuevaempresa");
    EXPECT_EQ(lines[1], "choose datosiniciales");
    const std::string picks = lines[2] + lines[3];
    EXPECT_NE(picks.find("pick \"3\" in Combo1(0)"), std::string::npos) << picks;
    EXPECT_NE(picks.find("in Combo1(1)"), std::string::npos) << picks;
    EXPECT_EQ(lines[4], "press Command1");
}

TEST(Report, TellsTheSeedTheSentenceAndTheActions) {
    const auto [orders, finding] = FalseFinding();
    ASSERT_EQ(finding.invariant, &kFalse);
    std::ostringstream report;
    Report(report, orders, finding);
    for (const std::string& part :
         {Say("Seed ", orders.seed, ","), std::string(kFalse.sentence), std::string("it has three"),
          std::string("Shortened to 5 actions"), std::string("  press Command1\n")}) {
        EXPECT_NE(report.str().find(part), std::string::npos) << part;
    }
}

TEST(Replaying, TheSameOrdersGiveTheSameRun) {
    const auto [orders, finding] = FalseFinding();
    ASSERT_EQ(finding.invariant, &kFalse);
    const auto again = RunAtRandom(orders, std::span(&kFalse, 1));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->actions, finding.actions);
    const auto replayed = Replay(finding.actions, orders.separator, kFalse);
    ASSERT_TRUE(replayed);
    EXPECT_EQ(replayed->actions, finding.actions);
}

}  // namespace
}  // namespace velmora::property
