#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/host.h"

namespace velmora::test {

/// A host that follows a script. A box, a file dialog or an end of the process that the script
/// doesn't hold fails the test, as does a script that isn't played to its end.
class ScriptedHost : public Host {
public:
    ~ScriptedHost() override {
        EXPECT_TRUE(boxes_.empty()) << "box never shown: " << boxes_.front().prompt;
        EXPECT_TRUE(files_.empty()) << "file dialog never shown";
        EXPECT_EQ(ends_, 0) << "the process was to end";
    }

    /// The next box has exactly this prompt, style and title, and gets this answer.
    void ExpectBox(std::string prompt, MsgBoxStyle style = MsgBoxStyle::Ok,
                   MsgBoxAnswer answer = MsgBoxAnswer::Ok, std::string title = "Velmora") {
        boxes_.push_back({std::move(prompt), style, std::move(title), answer});
    }

    /// The next file dialog accepts this name, or is cancelled when there is none.
    void ExpectFileDialog(std::optional<std::string> name) { files_.push_back(std::move(name)); }

    /// The process is ended, once, with status 0.
    void ExpectEnd() { ++ends_; }

    MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle style,
                        std::string_view title) override {
        if (boxes_.empty()) {
            ADD_FAILURE() << "box not in the script: " << prompt;
            return MsgBoxAnswer::No;
        }
        const ScriptedBox expected = boxes_.front();
        boxes_.pop_front();
        EXPECT_EQ(prompt, expected.prompt);
        EXPECT_EQ(static_cast<int>(style), static_cast<int>(expected.style));
        EXPECT_EQ(title, expected.title);
        if (on_box) on_box();
        return expected.answer;
    }

    void ShowSave(CommonDialog& dialog) override {
        dialogs_shown.push_back(dialog);
        if (files_.empty()) {
            ADD_FAILURE() << "file dialog not in the script";
            return;
        }
        if (files_.front()) dialog.FileName = *files_.front();
        files_.pop_front();
    }

    void ShowPrinter(CommonDialog& dialog) override { print_dialogs.push_back(dialog); }
    void PrintForm() override {
        ++printed;
        if (on_print) on_print();
    }
    std::tm Now() const override { return now; }
    void End(int status) override {
        EXPECT_EQ(status, 0);
        if (ends_ == 0)
            ADD_FAILURE() << "the process ended";
        else
            --ends_;
    }

    std::tm now{};
    std::vector<CommonDialog> dialogs_shown;  ///< file dialogs as they were set when shown
    std::vector<CommonDialog> print_dialogs;  ///< print dialogs as they were set when shown
    int printed = 0;
    std::function<void()> on_box;    ///< runs while a box is shown
    std::function<void()> on_print;  ///< runs while the screen is printed

private:
    struct ScriptedBox {
        std::string prompt;
        MsgBoxStyle style;
        std::string title;
        MsgBoxAnswer answer;
    };

    std::deque<ScriptedBox> boxes_;
    std::deque<std::optional<std::string>> files_;
    int ends_ = 0;
};

}  // namespace velmora::test
