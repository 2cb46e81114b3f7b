#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// A colour number of the forms toolkit: low byte red, then green, then blue; with the high bit
/// set, a system colour.
using Color = std::uint32_t;

inline constexpr Color kWindowBackground = 0x80000005;  ///< system colour 5, window background
inline constexpr Color kWindowText = 0x80000008;        ///< system colour 8, window text

// The controls as the handlers see them: plain data. The window shows what stands here, and what
// the user types lands here as it is typed. Text is UTF-8.

struct TextCell {
    std::string Text;
    bool Visible = true;
    bool Locked = false;  ///< shows text but takes no typing
    Color BackColor = kWindowBackground;
    Color ForeColor = kWindowText;

    friend bool operator==(const TextCell&, const TextCell&) = default;
};

/// A list whose text may be one that isn't among its items.
struct ComboBox {
    std::string Text;
    bool Visible = true;
    bool Locked = false;  ///< nothing can be picked

    friend bool operator==(const ComboBox&, const ComboBox&) = default;
};

struct Label {
    std::string Caption;
    bool Visible = true;

    friend bool operator==(const Label&, const Label&) = default;
};

struct Button {
    std::string Caption;
    bool Visible = true;
    bool Enabled = true;

    friend bool operator==(const Button&, const Button&) = default;
};

/// The common dialog of a screen: it holds the last name accepted for as long as the screen lives.
struct CommonDialog {
    std::string DialogTitle;
    std::uint32_t Flags = 0;
    std::string DefaultExt;  ///< added to a name without a point
    std::string FileName;    ///< UTF-8; empty until a name has been accepted
    int FromPage = 0;
    int ToPage = 0;
};

}  // namespace velmora
