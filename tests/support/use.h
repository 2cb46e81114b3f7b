#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "forms/screen.h"
#include "runtime/utf8.h"

/// A screen without its window, used as the window lets a person use it. Controls and entries of
/// the menu go by their names; what the screen doesn't offer at the moment throws
/// std::runtime_error.
namespace velmora::use {

/// What the control holds, or null where it is of another kind.
template <class T>
T* As(const Control& control) {
    auto* const* const state = std::get_if<T*>(&control.state);
    return state == nullptr ? nullptr : *state;
}

// What a control takes at the moment.

inline bool TakesPress(const Control& control) {
    const auto* const button = As<Button>(control);
    return button != nullptr && button->Visible && button->Enabled;
}

inline bool TakesPicks(const Control& control) {
    const auto* const list = As<ComboBox>(control);
    return list != nullptr && list->Visible && !list->Locked;
}

inline bool TakesPick(const Control& control, std::string_view item) {
    return TakesPicks(control) &&
           std::ranges::find(control.row.items, item) != control.row.items.end();
}

inline bool TakesKeys(const Control& control) {
    const auto* const cell = As<TextCell>(control);
    const auto* const list = As<ComboBox>(control);
    return control.row.tab != kNoTab &&
           ((cell != nullptr && cell->Visible) || (list != nullptr && list->Visible));
}

/// Whether what is typed is shown, if the filter lets it through.
inline bool TakesTyping(const Control& control) {
    const auto* const cell = As<TextCell>(control);
    return cell != nullptr && !cell->Locked && TakesKeys(control);
}

/// Whether it is a cell into which text comes by other ways than keys, too.
inline bool TakesText(const Control& control) {
    return TakesTyping(control) && (control.events.free_text || !control.events.KeyPress);
}

inline bool TakesDoubleClick(const Control& control) {
    const auto* const cell = As<TextCell>(control);
    return cell != nullptr && cell->Visible && control.events.DblClick;
}

/// What an ordinary text field makes of the cell's text: a backspace takes the last letter, a code
/// of 32 to 2047 that isn't a control's adds its own.
inline std::string AsTyped(const TextCell& cell, KeyCode key) {
    std::string text = cell.Text;
    if (cell.Locked) return text;
    if (key == kBackspace) {
        while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) {
            text.pop_back();  // all but the first byte of the letter
        }
        if (!text.empty()) text.pop_back();
    } else if (key >= 32 && key < 127) {
        text += static_cast<char>(key);
    } else if (key >= 160) {
        text += {static_cast<char>(0xC0 | key >> 6), static_cast<char>(0x80 | (key & 0x3F))};
    }
    return text;
}

// What a person does.

inline const Control& Find(const Screen& screen, std::string_view name) {
    const Control* const control = screen.FindControl(name);
    if (control == nullptr) throw std::runtime_error("no control " + std::string(name));
    return *control;
}

inline void Require(bool taken, std::string_view what, std::string_view name) {
    if (!taken) throw std::runtime_error(std::string(name) + " takes no " + std::string(what));
}

inline void Press(const Screen& screen, std::string_view button) {
    const Control& control = Find(screen, button);
    Require(TakesPress(control), "press", button);
    control.events.Click();
}

inline void Pick(const Screen& screen, std::string_view list, std::string_view item) {
    const Control& control = Find(screen, list);
    Require(TakesPick(control, item), item, list);
    As<ComboBox>(control)->Text = item;
    if (control.events.Click) control.events.Click();
}

inline void DoubleClick(const Screen& screen, std::string_view cell) {
    const Control& control = Find(screen, cell);
    Require(TakesDoubleClick(control), "double click", cell);
    control.events.DblClick();
}

/// One key, of a code from 1 to 2047: the filter sees it first, then the cell unless refused.
inline void Key(const Control& control, KeyCode key) {
    Require(TakesKeys(control), "keys", control.name);
    if (control.events.KeyPress) control.events.KeyPress(key);
    auto* const cell = As<TextCell>(control);
    if (key != kKeyRefused && cell != nullptr) cell->Text = AsTyped(*cell, key);
}

/// Types at the end of the cell, key by key, refused keys included.
inline void Type(const Screen& screen, std::string_view cell, std::string_view text) {
    const Control& control = Find(screen, cell);
    while (!text.empty()) {
        const Character letter = FirstCharacter(text);
        Key(control, static_cast<KeyCode>(letter.value));
        text.remove_prefix(letter.length);
    }
}

/// Puts the text in place of what the cell holds, as by pasting.
inline void Write(const Screen& screen, std::string_view cell, std::string_view text) {
    const Control& control = Find(screen, cell);
    Require(TakesText(control), "text", cell);
    As<TextCell>(control)->Text = text;
}

inline void Choose(const Screen& screen, std::string_view entry) {
    const MenuEntry* const found = screen.FindEntry(entry);
    Require(found != nullptr && found->Click, "click", entry);
    found->Click();
}

}  // namespace velmora::use
