#pragma once

#include <optional>

#include "forms/screen.h"

class QKeyEvent;

namespace velmora {

/// The code of the character that a key bears, as a key filter sees it: 8 for the backspace, 13 for
/// Enter, 1 to 26 for Ctrl with a letter. Nothing for keys without a character, such as the arrows,
/// Delete and Tab, nor for any key with Alt.
std::optional<KeyCode> CharacterOf(const QKeyEvent& event);

/// Whether the key is pressed with Alt, which belongs to the menus: it types nothing.
bool OpensMenu(const QKeyEvent& event);

/// Whether the key is Enter, on the keypad or not.
bool IsEnter(const QKeyEvent& event);

/// Whether the key only moves or selects: arrows, Home, End.
bool IsMovement(const QKeyEvent& event);

}  // namespace velmora
