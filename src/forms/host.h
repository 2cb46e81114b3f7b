#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "forms/controls.h"
#include "runtime/text.h"

namespace velmora {

/// Styles of a message box: its buttons, its icon and the button that Enter presses.
enum class MsgBoxStyle {
    Ok = 0,                    ///< OK
    YesNo = 4,                 ///< Yes (default), No
    YesNoInformation = 68,     ///< Yes (default), No; information icon
    YesNoQuestionNo = 292,     ///< Yes, No (default); question icon
    YesNoInformationNo = 324,  ///< Yes, No (default); information icon
};

enum class MsgBoxAnswer { Ok = 1, Yes = 6, No = 7 };

inline constexpr std::string_view kBoxTitle = "Velmora";

/// What the logic needs from a toolkit. Everything is called from handlers, on the one thread.
class Host {
public:
    Host() = default;
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    virtual ~Host() = default;

    /// Shows a modal message box and tells the button pressed. Lines of the prompt are joined with
    /// CR LF. Closing a Yes/No box answers No.
    virtual MsgBoxAnswer MsgBox(std::string_view prompt, MsgBoxStyle style = MsgBoxStyle::Ok,
                                std::string_view title = kBoxTitle) = 0;

    /// Shows a file dialog of the save kind. An accepted name goes to `dialog.FileName`; a
    /// cancelled dialog leaves the name that it held.
    virtual void ShowSave(CommonDialog& dialog) = 0;

    /// Shows a print dialog with the two page numbers. Nothing tells Print from Cancel.
    virtual void ShowPrinter(CommonDialog& dialog) = 0;

    /// Prints the image of the screen that is shown.
    virtual void PrintForm() = 0;

    /// The present date and time, local.
    virtual std::tm Now() const = 0;

    /// Ends the process with this status, at once, with no further handlers run.
    virtual void End(int status) = 0;
};

}  // namespace velmora
