#pragma once

#include "forms/layout.h"

namespace velmora {

// Colours that several screens share.
inline constexpr Color kWhite = 0xFFFFFF;
inline constexpr Color kNavy = 0x5A2D0C;      ///< of headings
inline constexpr Color kPaleBlue = 0xF5E6D8;  ///< behind headings

/// A heading: points as large as its text fits its box, bold where that fits, too.
constexpr Look Heading(double points, bool bold, Align align = Align::Center) {
    return {.points = points, .bold = bold, .align = align, .fore = kNavy, .back = kPaleBlue};
}

}  // namespace velmora
