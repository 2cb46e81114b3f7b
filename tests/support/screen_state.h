#pragma once

#include <type_traits>
#include <variant>
#include <vector>

#include "forms/screen.h"

namespace velmora::test {

/// What one control holds; nothing for a picture.
using Held = std::variant<std::monostate, TextCell, ComboBox, Label, Button>;

/// What every control of a screen holds, in the order of its controls.
inline std::vector<Held> StateOf(const Screen& screen) {
    std::vector<Held> state;
    state.reserve(screen.Controls().size());
    for (const Control& control : screen.Controls()) {
        state.push_back(std::visit(
            [](const auto& held) -> Held {
                if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Picture>)
                    return {};
                else
                    return *held;
            },
            control.state));
    }
    return state;
}

}  // namespace velmora::test
