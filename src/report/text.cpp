#include "report/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "runtime/text.h"
#include "runtime/utf8.h"

namespace velmora::report {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// The character at the start of a text: its code and its bytes.
struct Letter {
    char32_t code = 0;
    std::string_view bytes;
};

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

Letter First(std::string_view text) {
    const Character first = FirstCharacter(text);
    if (first.length == 0) return {kNoCharacter, text.substr(0, 1)};
    return {first.value, text.substr(0, first.length)};
}

bool IsBlank(char32_t code) {
    return code == ' ' || (code >= '\t' && code <= '\r') || code == 0xA0;
}

/// Controls, marks that turn the direction of what follows, and codes that are no characters.
bool IsUnfit(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069) || (code >= 0xFDD0 && code <= 0xFDEF) ||
           (code & 0xFFFEU) == 0xFFFE || code == kNoCharacter;
}

/// Whether a text is shown letter by letter as it stands.
bool IsPlain(std::string_view text) {
    const auto is_letter = [](char letter) { return letter >= ' ' && letter < 0x7F; };
    return text.size() <= kLettersShown && !text.starts_with(' ') && !text.ends_with(' ') &&
           std::ranges::all_of(text, is_letter);
}

std::string_view ShownAs(const Letter& letter) {
    if (IsBlank(letter.code)) return " ";
    return IsUnfit(letter.code) ? kReplacement : letter.bytes;
}

/// The reference that stands in HTML for a letter that marks up; "" for any other.
std::string_view ReferenceTo(char letter) {
    switch (letter) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return "";
    }
}

}  // namespace

std::string Shown(std::string_view text) {
    // Nearly all texts are figures and names in plain letters.
    if (IsPlain(text)) return std::string(text);
    std::string shown;
    std::size_t letters = 0;
    while (!text.empty()) {
        const Letter letter = First(text);
        text.remove_prefix(letter.bytes.size());
        if (shown.empty() && IsBlank(letter.code)) continue;
        if (++letters > kLettersShown) return shown.append("…");
        shown.append(ShownAs(letter));
    }
    shown.erase(shown.find_last_not_of(' ') + 1);
    return shown;
}

std::string UnitShown(std::string_view unit) { return unit == "mg/m3" ? "mg/m³" : Shown(unit); }

std::string Fitting(std::string_view text, std::size_t letters) {
    std::size_t end = 0;  // of the text as it would be cut
    std::size_t size = 0;
    for (std::size_t count = 1; size < text.size(); ++count) {
        if (count == letters) end = size;
        if (count > letters) return std::string(text.substr(0, end)).append("…");
        size += First(text.substr(size)).bytes.size();
    }
    return std::string(text);
}

void AppendEscaped(std::string& markup, std::string_view text) {
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view reference = ReferenceTo(text[i]);
        if (reference.empty()) continue;
        markup.append(text.substr(done, i - done)).append(reference);
        done = i + 1;
    }
    markup.append(text.substr(done));
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    AppendEscaped(escaped, text);
    return escaped;
}

std::string CssString(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string escaped = "\"";
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        const bool plain = byte >= 0x80 || byte == ' ' || IsDigit(byte) ||
                           (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        if (plain) {
            escaped += letter;
        } else {
            escaped.append({'\\', kDigits[byte / 16U], kDigits[byte % 16U], ' '});
        }
    }
    return escaped + '"';
}

std::string Rounded(double value, int digits) {
    const double size = std::fabs(value);
    // Most ticks of an axis and numbers of the plan are whole.
    constexpr double kSmall = 1e6;
    if (size < kSmall && value == std::trunc(value)) return Whole(static_cast<int>(value));
    std::array<char, 32> buffer{};
    const bool plain = size >= 1e-5 && size < 1e15;
    // The places that rounding to so many digits leaves; a carry only adds a zero, taken off below.
    const int places =
        plain ? digits - 1 - static_cast<int>(std::floor(std::log10(size))) : digits - 1;
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), value, format, std::max(places, 0));
    std::string text(buffer.begin(), end.ptr);
    if (!plain || text.find('.') == std::string::npos) return text;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

}  // namespace velmora::report
