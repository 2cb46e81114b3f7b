#pragma once

#include <QPrinter>

#include <functional>
#include <memory>

#include "forms/page.h"
#include "qt/paper.h"
#include "qt/window.h"

namespace velmora {

/// The guide's page for a program in this folder: the installed one, or that of the tree where it
/// was built, or the one beside it on Windows; empty when there is neither.
QString GuideFor(const QString& program_folder);

/// The host on Qt: message boxes, file and print dialogs, printing, the guide, the time, the end.
class QtHost : public WindowHost {
public:
    QtHost();

    /// The window that dialogs stand over, and whose screen is printed.
    void Attach(Window& window) { window_ = &window; }

    MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle style,
                        std::string_view title) override;
    void ShowSave(CommonDialog& dialog) override;
    void ShowPrinter(CommonDialog& dialog) override;
    void PrintForm() override;
    std::tm Now() const override;
    void End(int status) override { end(status); }
    void ShowError(std::string_view message) override;
    void OpenGuide(std::string_view section) override;
    void Beep() override { beep(); }

    /// What ends the process; the guided example and the tests put theirs.
    std::function<void(int)> end;
    /// What gives the path of the guide's page, empty when there is none.
    std::function<QString()> find_guide;
    /// What sounds for a key that isn't taken.
    std::function<void()> beep;
    /// What gives the printer that is printed on.
    std::function<std::unique_ptr<QPrinter>()> make_printer;
    /// What tells whose the evaluation on a printed page is; without it, the page doesn't say.
    std::function<PageOwner()> owner;

private:
    void Say(const QString& text);
    Imprint MakeImprint() const;

    Window* window_ = nullptr;
    std::unique_ptr<QPrinter> printer_;  ///< as the print dialog left it
};

}  // namespace velmora
