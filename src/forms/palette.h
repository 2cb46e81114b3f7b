#pragma once

#include "forms/controls.h"

namespace velmora {

// Colours that several screens share.
inline constexpr Color kWhite = 0xFFFFFF;
inline constexpr Color kNavy = 0x5A2D0C;      ///< of headings
inline constexpr Color kPaleBlue = 0xF5E6D8;  ///< behind headings

}  // namespace velmora
