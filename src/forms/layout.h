#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "forms/controls.h"

namespace velmora {

/// A place on a screen, in twips (1/1440 inch) from the left upper corner of its client area.
struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// The room that the window gives each of the six screens, in twips: as wide and as high as the one
/// that reaches farthest, so that a letter of one size is equally large on all of them.
inline constexpr Box kRoomOfAScreen{0, 0, 12375, 8415};

enum class Align : std::uint8_t { Left, Center };

/// The faces that controls ask for; the window shows the nearest that the machine has.
enum class Family : std::uint8_t { Arial, MsSansSerif, TimesNewRoman, Verdana };

/// How a control looks: its font in points, its alignment and its colours.
struct Look {
    Family family = Family::Arial;
    double points = 8.25;
    bool bold = false;
    Align align = Align::Left;
    Color fore = kWindowText;
    Color back = kTransparent;

    static constexpr Color kTransparent = 0xFFFFFFFF;  ///< the screen's background shows through
};

/// What stands behind a control in the order of the Tab key.
inline constexpr int kNoTab = -1;

/// One control of a screen, or one element of an array of controls, as it was laid out.
struct Row {
    std::string_view name{};  ///< the control's name
    int index = kNoIndex;     ///< the element's index in its array
    Box box{};
    std::string_view text{};  ///< caption of a label or button, starting text of a cell
    Look look{};
    int tab = kNoTab;           ///< position in the order of the Tab key; -1 takes no focus
    std::string_view spoken{};  ///< what a screen reader says of it, where that isn't its caption
    std::string_view tool_tip{};
    std::span<const std::string_view> items{};  ///< of a list
    bool in_table = false;                      ///< part of the table that is copied whole

    static constexpr int kNoIndex = -1;  ///< no element of an array: a control that stands alone
};

}  // namespace velmora
