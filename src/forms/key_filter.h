#pragma once

#include "forms/controls.h"
#include "runtime/entero.h"

namespace velmora {

/// The code of a key as a key filter sees it; a filter refuses the key by setting it to 0.
using KeyCode = int;

inline constexpr KeyCode kKeyRefused = 0;
inline constexpr KeyCode kBackspace = 8;

/// The key filter of a cell that takes a number. Digits pass, and one point after the first digit;
/// a backspace wipes the whole cell. The counters, of the digits and points typed so far, are the
/// caller's: the filter doesn't look at the text that is there. Throws Overflow when a
/// counter leaves 16 bits.
void FilterNumber(TextCell& cell, KeyCode& key, Entero& digits, Entero& points);

}  // namespace velmora
