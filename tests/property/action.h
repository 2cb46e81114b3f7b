#pragma once

#include <optional>
#include <string>

#include "forms/host.h"

namespace velmora::property {

/// One thing that a user does, told by names and texts so that it can be done again from the start
/// with other actions left out. What can't be done when its turn comes is passed over.
struct Action {
    enum class Kind {
        Press,        ///< the button `target`
        Pick,         ///< the item `text` of the list `target`
        Key,          ///< the key `number`, 1 to 255, into the cell or list `target`
        Write,        ///< `text` in place of what the free-text cell `target` holds, as by pasting
        DoubleClick,  ///< the cell `target`
        Choose,       ///< the menu entry `target`
        Tick,         ///< the clock's timer, `number` seconds later
        CutFile,      ///< the file `target` keeps `number` lines; half of the next if that is odd
        OddLine,      ///< the line `number` of the file `target` becomes `text`
        BareLines,    ///< the lines of the file `target` end in LF, the last one in nothing
        Junk,         ///< the file `target` becomes `number` meaningless bytes
    };

    Kind kind{};
    std::string target{};
    std::string text{};
    int number = 0;
    MsgBoxAnswer answer = MsgBoxAnswer::No;  ///< to a Yes/No box
    std::optional<std::string>
        file{};            ///< name given to a file dialog; without one it is cancelled
    bool at_once = false;  ///< the next action follows before anything of this one is tidied up

    friend bool operator==(const Action&, const Action&) = default;
};

/// One line that tells the action.
std::string Describe(const Action& action);

}  // namespace velmora::property
