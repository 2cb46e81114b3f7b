#include "runtime/utf8.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

/// How the first byte of a character tells its length: the bits that mark it, the bits that count,
/// and the smallest character that is spelled at that length.
struct Lead {
    unsigned mask;
    unsigned mark;
    std::size_t length;
    char32_t lowest;
};

constexpr std::array<Lead, 4> kLeads = {{
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }

constexpr bool IsUnicode(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

}  // namespace

Character FirstCharacter(std::string_view utf8) {
    const unsigned first = Byte(utf8[0]);
    const auto lead =
        std::ranges::find_if(kLeads, [&](const Lead& c) { return (first & c.mask) == c.mark; });
    if (lead == kLeads.end() || utf8.size() < lead->length) return {};

    char32_t value = first & ~lead->mask;
    for (const char c : utf8.substr(1, lead->length - 1)) {
        if ((Byte(c) & 0xC0U) != 0x80U) return {};
        value = value << 6U | (Byte(c) & 0x3FU);
    }
    if (value < lead->lowest || !IsUnicode(value)) return {};
    return {value, lead->length};
}

}  // namespace velmora
