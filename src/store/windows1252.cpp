#include "store/windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "runtime/utf8.h"

namespace velmora {

namespace {

constexpr unsigned kFirstOwn = 0x80;  ///< first code that isn't Latin-1
constexpr char kNoCode = '?';

/// The characters of the codes 80 to 9F; below and above them code and character are the same
/// number.
// clang-format off
constexpr std::array<char16_t, 32> kOwn = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

constexpr bool IsOwn(char32_t c) { return c >= kFirstOwn && c < kFirstOwn + kOwn.size(); }

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }

char CodeOf(char32_t c) {
    if (!IsOwn(c) && c <= 0xFF) return static_cast<char>(c);
    const auto own = std::ranges::find(kOwn, c);
    if (own == kOwn.end()) return kNoCode;
    return static_cast<char>(kFirstOwn + static_cast<unsigned>(own - kOwn.begin()));
}

/// Appends a character below 10000, as all of Windows-1252 are.
void AppendUtf8(std::string& utf8, char32_t c) {
    if (c < 0x80) {
        utf8 += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        utf8 += static_cast<char>(0xC0U | c >> 6U);
    } else {
        utf8 += static_cast<char>(0xE0U | c >> 12U);
        utf8 += static_cast<char>(0x80U | (c >> 6U & 0x3FU));
    }
    utf8 += static_cast<char>(0x80U | (c & 0x3FU));
}

}  // namespace

std::string ToWindows1252(std::string_view utf8) {
    std::string bytes;
    bytes.reserve(utf8.size());
    while (!utf8.empty()) {
        const Character c = FirstCharacter(utf8);
        bytes += c.length == 0 ? kNoCode : CodeOf(c.value);
        utf8.remove_prefix(std::max<std::size_t>(c.length, 1));
    }
    return bytes;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        const unsigned code = Byte(byte);
        AppendUtf8(utf8, IsOwn(code) ? kOwn.at(code - kFirstOwn) : code);
    }
    return utf8;
}

}  // namespace velmora
