#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "property/action.h"
#include "property/process.h"
#include "property/record_walk.h"
#include "property/screenshot.h"

namespace velmora::property {

/// A file of the folder, with what is known of its origin.
struct KnownFile {
    std::string bytes;
    EvaluacionRecord record;    ///< as it was saved
    int lines = kLinesOfAFile;  ///< whole lines left of it
    std::set<int> odd;          ///< lines that no longer hold what was saved
    bool own = true;            ///< `record` was made by the program's own screens alone

    bool IsWhole() const { return lines == kLinesOfAFile && odd.empty(); }
};

/// The folder that the file dialogs look at, and what is in it.
using Disk = std::map<std::string, KnownFile>;

/// One action that was done, and all that can be seen of what it did.
struct Step {
    Action action;
    Screenshot before;
    Screenshot after;
    EvaluacionRecord record_before;
    EvaluacionRecord record_after;
    std::vector<Element> written;  ///< elements of the record that changed
    Outcome outcome;
    std::tm now{};
    std::filesystem::path folder;

    /// The menu bar of the screen that stands after a press, a pick or an entry: its names with
    /// captions, "!" behind those with a handler, lists in brackets. Nothing for other actions.
    std::optional<std::string> menu;
    /// The action before, when it was done on the same visit to the screen.
    std::optional<Action> previous;
    /// The record was made by the program's own screens, or read from whole files of such.
    bool own_before = true;
    bool own_after = true;
    /// Name in the folder of the file that this step saved to, or read from; empty for none.
    std::string saved;
    std::string restored;
    const Disk* disk = nullptr;  ///< as it is after the step

    bool Lives() const { return outcome.Lives(); }
    bool Moved() const { return before.Id() != after.Id(); }
    /// A message with nothing but an OK button was shown.
    bool Refused() const;
    /// The action is a press of this button, or of this menu entry, on this screen.
    bool Pressed(ScreenId screen, std::string_view button) const;
    bool Chose(ScreenId screen, std::string_view entry) const;
};

/// A machine with a folder of files, on which the program runs; it is started again, empty, when it
/// has ended. The folder goes with the machine.
class World {
public:
    explicit World(std::string separator);
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    /// Does the action if it can be done at the moment, and tells whether it was.
    bool Perform(const Action& action);

    /// The action done last.
    const Step& Last() const { return step_; }
    /// The screen and the record as they stand, and the files.
    const Screenshot& Shown() const { return started_ ? shown_ : step_.after; }
    const EvaluacionRecord& Record() const { return process_->record; }
    const Process& Program() const { return *process_; }
    const Disk& Files() const { return disk_; }

private:
    void Start();
    bool OffersFileAction(const Action& action) const;
    void ChangeFile(const Action& action);
    void NoteFiles(const Action& action);
    void Begin(const Action& action);
    void TakeIn(const Action& action);

    std::filesystem::path folder_;
    std::string separator_before_;
    std::unique_ptr<Process> process_;
    bool started_ = false;  ///< the program has just been started: nothing was done on it yet
    Screenshot shown_;      ///< what it showed then
    Disk disk_;
    std::optional<Action> previous_;
    bool own_ = true;
    Step step_;
};

/// All bytes of a file; nothing of one that isn't there.
std::optional<std::string> BytesOf(const std::filesystem::path& file);

}  // namespace velmora::property
