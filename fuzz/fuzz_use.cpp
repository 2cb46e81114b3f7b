// Whole uses of the six screens, without a toolkit: bytes become clicks, picks, keys, texts,
// answers to boxes, file names and moves.
//
// Input: one byte that says the separator and where the use starts, then three bytes for each deed
// (use_bytes.h). A run-time error that the rules name ends the use, as it ends the program; any
// other, and any other exception, is a finding.
//
// Most uses run on the bare screens, for speed. One in kWatched is followed action by action by the
// sentences of tests/property; with VELMORA_WATCH in the environment all of them are, and told.

#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/numbers.h"
#include "fuzz/bytes.h"
#include "fuzz/check.h"
#include "fuzz/memory_file.h"
#include "fuzz/route.h"
#include "fuzz/use_bytes.h"
#include "property/invariant.h"
#include "property/process.h"
#include "property/world.h"
#include "store/evaluation_file.h"

namespace velmora::fuzz {
namespace {

using property::Action;
using property::Invariant;
using property::Process;
using property::Step;
using property::World;

constexpr std::size_t kMostActions = 2000;
constexpr unsigned kWatched = 64;

/// The files of a bare use, in memory. The dialogs know them by their names there.
class Files {
public:
    static constexpr std::string_view kFolder = "/proc/self/fd";

    /// Puts them back to what they hold at first: nothing, a plan, a whole evaluation.
    void Reset() {
        if (!used_) return;
        used_ = false;
        static const std::string plan = BytesOf(Starts()[4].record);
        static const std::string evaluation = BytesOf(Starts().back().record);
        files_[0].Fill("");
        files_[1].Fill(plan);
        files_[2].Fill(evaluation);
    }

    /// The action with the name that its file has in memory.
    Action InMemory(Action action) {
        const auto known = std::ranges::find(kFiles, action.file.value_or(""));
        if (known == kFiles.end()) return action;
        used_ = used_ || action.target == "guardararchivo";
        const std::string& name = files_[PlaceOf(known)].Name();
        action.file = name.substr(kFolder.size() + 1);
        return action;
    }

    /// Does to a file what the action says. Only a line is changed; the rest is fuzz_file's.
    void Harm(const Action& action) {
        const auto known = std::ranges::find(kFiles, action.target);
        if (action.kind != Action::Kind::OddLine || known == kFiles.end()) return;
        used_ = true;
        const MemoryFile& file = files_[PlaceOf(known)];
        std::string bytes = file.Content();
        std::size_t start = 0;
        for (int line = 1; line < action.number; ++line) {
            start = std::min(bytes.find('\n', start), bytes.size() - 1) + 1;
        }
        if (start >= bytes.size()) return;
        bytes.replace(start, bytes.find('\r', start) - start, action.text);
        file.Fill(bytes);
    }

private:
    static std::string BytesOf(const EvaluacionRecord& record) {
        const MemoryFile file;
        WriteEvaluation(file.Name(), record);
        return file.Content();
    }
    static std::size_t PlaceOf(const std::string_view* file) {
        return static_cast<std::size_t>(file - kFiles.begin());
    }

    std::array<MemoryFile, kFiles.size()> files_;
    bool used_ = true;
};

/// The deed's actions. Half of the deeds are hasty: the next action comes before anything of theirs
/// is tidied up.
std::vector<Action> Hasty(const Deed& deed, const Screen& screen) {
    std::vector<Action> actions = ActionsOf(deed, screen);
    for (Action& action : actions) action.at_once = deed.which >= 128;
    return actions;
}

bool IsHarm(const Action& action) { return action.kind >= Action::Kind::CutFile; }

/// A use on the bare screens.
class BareUse {
public:
    BareUse(Files& files, const Start& start) : files_(&files), program_(Files::kFolder) {
        files.Reset();
        if (start.screen == ScreenId::Form1) return;
        program_.record = start.record;
        program_.Open(start.screen);
    }

    const Process& Program() const { return program_; }

    /// Does the action if it is on offer, and tells what came of it. Pieces of work are told ahead,
    /// whatever comes of them; all else was taken from what the screen offers.
    const property::Outcome* Perform(const Action& action, bool told_ahead) {
        if (IsHarm(action)) {
            files_->Harm(action);
            return nullptr;
        }
        const Action in_memory = files_->InMemory(action);
        if (told_ahead && !program_.Offers(in_memory)) return nullptr;
        return &program_.Perform(in_memory);
    }

private:
    Files* files_;
    Process program_;
};

void RequireSentences(const Step& step, std::span<const Invariant> sentences) {
    for (const Invariant& sentence : sentences) {
        const property::Verdict verdict = sentence.judge(step);
        if (!verdict.IsBroken()) continue;
        Fail(sentence.sentence, verdict.Why(), "\n  by: ", property::Describe(step.action),
             " on Form", static_cast<int>(step.before.Id()));
    }
}

/// Judges the end of a bare use: goes there again, to see what stood before its last action.
void JudgeEnd(Files& files, const Start& start, const std::vector<Action>& actions,
              const property::Outcome& outcome) {
    BareUse again(files, start);
    Step step;
    step.action = actions.back();
    step.outcome = outcome;
    for (const Action& action : std::span(actions).first(actions.size() - 1)) {
        again.Perform(action, true);
    }
    step.before.Take(again.Program().Current());
    step.after = step.before;
    step.record_before = again.Program().record;
    step.record_after = step.record_before;
    RequireSentences(step, property::kErrorInvariants);
}

void RunBare(const Start& start, Bytes input) {
    static Files files;
    BareUse use(files, start);
    std::vector<Action> done;
    while (!input.Empty() && done.size() < kMostActions) {
        const Deed deed = Deed::Next(input);
        for (const Action& action : Hasty(deed, use.Program().Current())) {
            const auto* const outcome = use.Perform(action, deed.kind == Deed::Kind::Work);
            done.push_back(action);
            if (outcome == nullptr || outcome->Lives()) continue;
            JudgeEnd(files, start, done, *outcome);
            return;
        }
    }
}

bool WatchesAll() {
    static const bool all = std::getenv("VELMORA_WATCH") != nullptr;
    return all;
}

void Tell(const Step& step) {
    std::cerr << "Form" << static_cast<int>(step.before.Id()) << ": "
              << property::Describe(step.action);
    for (const property::ShownBox& box : step.outcome.boxes) std::cerr << "; box: " << box.prompt;
    if (step.outcome.error) std::cerr << "; " << MessageOf(*step.outcome.error);
    if (step.outcome.ended) std::cerr << "; ended";
    std::cerr << '\n';
}

void RunWatched(const Start& start, const std::string& separator, Bytes input) {
    World world(separator);
    SetDecimalSeparator(".");  // as the records of the starts were made
    for (const Deed& deed : start.deeds) {
        for (const Action& action : ActionsOf(deed, world.Program().Current())) {
            world.Perform(action);
        }
    }
    SetDecimalSeparator(separator);
    std::size_t done = 0;
    while (!input.Empty() && done < kMostActions) {
        for (const Action& action : Hasty(Deed::Next(input), world.Program().Current())) {
            ++done;
            if (!world.Perform(action)) continue;
            if (WatchesAll()) Tell(world.Last());
            RequireSentences(world.Last(), property::Invariants());
            if (!world.Last().Lives()) return;
        }
    }
}

/// A number that looks random and is always the same for the same bytes.
unsigned Scatter(std::span<const std::uint8_t> bytes) {
    unsigned number = 2166136261U;  // FNV-1a
    for (const std::uint8_t byte : bytes) number = (number ^ byte) * 16777619U;
    return number ^ number >> 16U;
}

bool IsWatched(std::span<const std::uint8_t> bytes) {
    return WatchesAll() || Scatter(bytes) % kWatched == 0;
}

void Run(std::span<const std::uint8_t> bytes) {
    Bytes input(bytes.data(), bytes.size());
    const std::uint8_t first = input.Byte();
    const std::string separator = first % 8 == 7 ? "," : ".";
    const Start& start = Starts()[first / 8 % Starts().size()];
    SetDecimalSeparator(separator);
    if (IsWatched(bytes))
        RunWatched(start, separator, input);
    else
        RunBare(start, input);
}

}  // namespace
}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    setenv("TMPDIR", "/dev/shm", 0);  // where the folders of watched uses stand
    velmora::fuzz::Starts();          // under the point, whatever the first use is under
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velmora::fuzz::Run({data, size});
    return 0;
}
