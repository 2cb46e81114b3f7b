#pragma once

#include <chrono>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/host.h"
#include "property/action.h"
#include "runtime/error.h"
#include "support/core.h"

namespace velmora::property {

struct ShownBox {
    std::string prompt;
    MsgBoxStyle style;
    std::string title;
    MsgBoxAnswer answer;

    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// What came of one action, besides what the screen shows and the record holds.
struct Outcome {
    std::vector<ShownBox> boxes;
    std::vector<CommonDialog> file_dialogs;   ///< as they were set when shown
    std::vector<CommonDialog> print_dialogs;  ///< as they were set when shown
    int prints = 0;
    int screens_made = 0;
    std::optional<ErrorKind> error;
    std::string foreign_exception;  ///< what() of an exception that is no run-time error
    std::optional<int> ended;       ///< status with which the process was ended

    bool Lives() const { return !error && foreign_exception.empty() && !ended; }
};

/// A toolkit that answers every box and dialog as the action at hand says.
class AnsweringHost : public Host {
public:
    explicit AnsweringHost(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void Answer(const Action& action) { action_ = &action; }
    void Wait(int seconds) { now_ += std::chrono::seconds(seconds); }

    MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle style,
                        std::string_view title) override;
    void ShowSave(CommonDialog& dialog) override;
    void ShowPrinter(CommonDialog& dialog) override;
    void PrintForm() override;
    std::tm Now() const override;
    [[noreturn]] void End(int status) override;

    Outcome outcome;

private:
    std::filesystem::path folder_;
    const Action* action_ = nullptr;
    std::chrono::sys_seconds now_{std::chrono::sys_days{std::chrono::year{2024} / 2 / 28} +
                                  std::chrono::hours{23}};
};

/// One run of the program, from `Form1` on, used as a window would use it.
class Process : Core<AnsweringHost> {
public:
    /// Files are named within `folder`.
    explicit Process(const std::filesystem::path& folder);

    /// Whether the screen offers this action at the moment. Never so for the actions on files.
    bool Offers(const Action& action) const;

    /// Does an action that the screen offers. Once the outcome doesn't live, the process is over.
    const Outcome& Perform(const Action& action);

    Screen& Current() const { return chain.Current(); }
    std::tm Now() const { return host.Now(); }
    /// Goes to a screen by no entry of a menu, as a start from the middle.
    void Open(ScreenId id);

    using Core::record;

private:
    void Do(const Action& action);
};

}  // namespace velmora::property
