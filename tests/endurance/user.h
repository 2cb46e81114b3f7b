#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "endurance/dialogs.h"
#include "qt/qt_host.h"
#include "support/program_on.h"

namespace velmora::endurance {

/// A small generator of our own, the same on every machine.
class Random {
public:
    explicit Random(unsigned seed) : state_(seed) {}
    /// From 0 to n - 1.
    int Below(int n);

private:
    unsigned long long state_;
};

/// Answers each question with yes and each file dialog with a name, without showing them: the
/// toolkit's own boxes have a test of their own.
class AnsweringHost : public QtHost {
public:
    explicit AnsweringHost(std::string file) : file_(std::move(file)) {}

    MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle style,
                        std::string_view title) override;
    void ShowSave(CommonDialog& dialog) override { dialog.FileName = file_; }

    std::vector<std::string> refusals;  ///< prompts that can only be confirmed

private:
    std::string file_;
};

/// The program put together as `velmora` is, on its real window, and a user who never tires. What
/// the user does goes through the window's own widgets and menu entries, without the detour of the
/// mouse.
class User {
public:
    /// `file` is where evaluations are saved.
    explicit User(std::string file);

    /// Goes to another screen by an entry of the menu, any one that moves.
    void Move(Random& random);
    /// Makes a whole evaluation from the first screen and back to it: company, plan, contaminants,
    /// every day's measurements and buttons, each day recovered, final table, save, restore.
    /// There are eight kinds, which differ in days, tasks, contaminants and figures.
    void Evaluate(int kind);
    /// Goes to the first screen.
    void GoHome();

    std::vector<Remains> CompareDialogs(int times) {
        return endurance::CompareDialogs(program_.host, window_, times);
    }

    ScreenId Screen() const { return program_.chain.Current().Id(); }
    /// What went wrong so far.
    std::vector<std::string> Faults() const;

    static constexpr int kKinds = 8;

private:
    void Choose(std::string_view entry);
    void Press(std::string_view button);
    void Pick(std::string_view list, int item);
    void PickText(std::string_view list, std::string_view text);
    void Type(std::string_view cell, std::string_view text);
    void DoubleClick(std::string_view cell);
    template <class Widget>
    Widget& Find(std::string_view name);
    void Fault(const std::string& fault);

    void EnterPlan(int days, int tasks, const std::vector<int>& agents, Random& random);
    void EnterAgents(int tasks, const std::vector<int>& agents, Random& random);
    void EnterDay(int day, int tasks, const std::vector<int>& agents, Random& random);
    void CompareSaved(int kind);

    std::string file_;
    ProgramOn<AnsweringHost> program_;
    Window& window_ = program_.window;
    std::vector<std::optional<std::string>> saved_;  ///< by kind, from the second round on
    std::vector<int> rounds_;
    std::vector<std::string> faults_;
};

}  // namespace velmora::endurance
