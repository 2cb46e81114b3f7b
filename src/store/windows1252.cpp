#include "store/windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmora {

namespace {

constexpr unsigned kPrimeroPropio = 0x80;  ///< first code that isn't Latin-1
constexpr char kSinCodigo = '?';

/// The characters of the codes 80 to 9F; below and above them code and character are the same
/// number.
// clang-format off
constexpr std::array<char16_t, 32> kPropios = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
// clang-format on

constexpr bool EsPropio(char32_t c) {
    return c >= kPrimeroPropio && c < kPrimeroPropio + kPropios.size();
}

/// A character cut out of a text, and how many bytes it took.
struct Caracter {
    char32_t valor = 0;
    std::size_t largo = 0;  ///< 0 when the bytes are no UTF-8
};

/// How the first byte of a character tells its length: the bits that mark it, the bits that count,
/// and the smallest character that is spelled at that length.
struct Cabeza {
    unsigned mascara;
    unsigned marca;
    std::size_t largo;
    char32_t minimo;
};

constexpr std::array<Cabeza, 4> kCabezas = {{
    {0x80, 0x00, 1, 0x0},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
}};

constexpr unsigned Byte(char c) { return static_cast<unsigned char>(c); }

constexpr bool EsDeUnicode(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

/// The character at the start of a text that isn't empty.
Caracter CaracterInicial(std::string_view utf8) {
    const unsigned primero = Byte(utf8[0]);
    const auto cabeza = std::ranges::find_if(
        kCabezas, [&](const Cabeza& c) { return (primero & c.mascara) == c.marca; });
    if (cabeza == kCabezas.end() || utf8.size() < cabeza->largo) return {};

    char32_t valor = primero & ~cabeza->mascara;
    for (const char c : utf8.substr(1, cabeza->largo - 1)) {
        if ((Byte(c) & 0xC0U) != 0x80U) return {};
        valor = valor << 6U | (Byte(c) & 0x3FU);
    }
    if (valor < cabeza->minimo || !EsDeUnicode(valor)) return {};
    return {valor, cabeza->largo};
}

char CodigoDe(char32_t c) {
    if (!EsPropio(c) && c <= 0xFF) return static_cast<char>(c);
    const auto propio = std::ranges::find(kPropios, c);
    if (propio == kPropios.end()) return kSinCodigo;
    return static_cast<char>(kPrimeroPropio + static_cast<unsigned>(propio - kPropios.begin()));
}

/// Appends a character below 10000, as all of Windows-1252 are.
void AnadirUtf8(std::string& utf8, char32_t c) {
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
        const Caracter c = CaracterInicial(utf8);
        bytes += c.largo == 0 ? kSinCodigo : CodigoDe(c.valor);
        utf8.remove_prefix(std::max<std::size_t>(c.largo, 1));
    }
    return bytes;
}

std::string FromWindows1252(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        const unsigned codigo = Byte(byte);
        AnadirUtf8(utf8, EsPropio(codigo) ? kPropios.at(codigo - kPrimeroPropio) : codigo);
    }
    return utf8;
}

}  // namespace velmora
