#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "forms/screen.h"
#include "fuzz/bytes.h"
#include "property/action.h"

namespace velmora::fuzz {

/// What three bytes of a use say: the kind of deed, which of the things that the screen offers at
/// the moment, and with what. Any three bytes are a deed; `which` and `what` are taken modulo the
/// number of things. The high bit of `which` leaves what the deed left for the next to tidy up.
struct Deed {
    /// The first byte of a deed, up to Harm; above, those that lead on come again.
    enum class Kind : std::uint8_t {
        Press,   ///< a button
        Pick,    ///< an item of a list; the high bit of `what` answers Yes
        Key,     ///< the key `what` into a cell or list
        Type,    ///< a text into a cell, key by key; the high bit empties the cell first
        Write,   ///< a text in place of what a free cell holds
        Double,  ///< a double click on a cell
        Choose,  ///< an entry of the menu; its bits answer and name a file
        Tick,    ///< the clock ticks, `what` seconds later
        Work,    ///< a piece of the work that the screen is for: many actions
        Harm     ///< a file comes to harm
    };

    Kind kind{};
    std::uint8_t which = 0;
    std::uint8_t what = 0;

    static Deed Next(Bytes& input);
};

/// The actions of a deed on a screen. Not all of them need be on offer when their turn comes.
std::vector<property::Action> ActionsOf(const Deed& deed, const Screen& screen);

/// The deed that is just these actions on a screen; nothing where none is. Of no haste.
std::optional<Deed> DeedOf(const std::vector<property::Action>& actions, const Screen& screen);

/// The files that the dialogs know.
inline constexpr std::array<std::string_view, 3> kFiles = {"una.doc", "dos.doc", "tres.doc"};

}  // namespace velmora::fuzz
