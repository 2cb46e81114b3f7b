#include "store/windows1252.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {
namespace {

struct Letter {
    unsigned char byte;
    std::string_view utf8;
};

// The codes 80 to 9F as the code page's table gives them.
// clang-format off
constexpr std::array<Letter, 32> kOwnLetters = {{
    {0x80, "€"}, {0x81, "\xC2\x81"}, {0x82, "‚"}, {0x83, "ƒ"}, {0x84, "„"}, {0x85, "…"}, {0x86, "†"}, {0x87, "‡"},
    {0x88, "ˆ"}, {0x89, "‰"}, {0x8A, "Š"}, {0x8B, "‹"}, {0x8C, "Œ"}, {0x8D, "\xC2\x8D"}, {0x8E, "Ž"}, {0x8F, "\xC2\x8F"},
    {0x90, "\xC2\x90"}, {0x91, "‘"}, {0x92, "’"}, {0x93, "“"}, {0x94, "”"}, {0x95, "•"}, {0x96, "–"}, {0x97, "—"},
    {0x98, "˜"}, {0x99, "™"}, {0x9A, "š"}, {0x9B, "›"}, {0x9C, "œ"}, {0x9D, "\xC2\x9D"}, {0x9E, "ž"}, {0x9F, "Ÿ"},
}};

// Some of the codes A0 to FF, where code and character are the same number.
constexpr std::array<Letter, 18> kLatinLetters = {{
    {0xA0, "\xC2\xA0"}, {0xA1, "¡"}, {0xAA, "ª"}, {0xAB, "«"}, {0xB0, "°"}, {0xB5, "µ"},
    {0xBA, "º"}, {0xBF, "¿"}, {0xC0, "À"}, {0xC1, "Á"}, {0xD1, "Ñ"}, {0xDC, "Ü"},
    {0xE1, "á"}, {0xE7, "ç"}, {0xED, "í"}, {0xF1, "ñ"}, {0xFA, "ú"}, {0xFF, "ÿ"},
}};
// clang-format on

std::string OneByte(unsigned byte) { return std::string() + static_cast<char>(byte); }

TEST(Windows1252Test, TheOwnCodesAreTheLettersOfTheCodePage) {
    for (const Letter& letter : kOwnLetters) {
        EXPECT_EQ(ToWindows1252(letter.utf8), OneByte(letter.byte)) << letter.utf8;
        EXPECT_EQ(FromWindows1252(OneByte(letter.byte)), letter.utf8);
    }
}

TEST(Windows1252Test, AboveThemStandTheLettersOfLatin1) {
    for (const Letter& letter : kLatinLetters) {
        EXPECT_EQ(ToWindows1252(letter.utf8), OneByte(letter.byte)) << letter.utf8;
        EXPECT_EQ(FromWindows1252(OneByte(letter.byte)), letter.utf8);
    }
}

TEST(Windows1252Test, AsciiStaysAsItIsControlCharactersIncluded) {
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        EXPECT_EQ(ToWindows1252(OneByte(byte)), OneByte(byte)) << byte;
        EXPECT_EQ(FromWindows1252(OneByte(byte)), OneByte(byte)) << byte;
    }
}

TEST(Windows1252Test, EachOfThe256BytesComesBackAsItWas) {
    std::set<std::string> letters;
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string utf8 = FromWindows1252(OneByte(byte));
        EXPECT_EQ(ToWindows1252(utf8), OneByte(byte)) << byte;
        letters.insert(utf8);
    }
    EXPECT_EQ(letters.size(), 256U);
}

TEST(Windows1252Test, AWholeTextGoesBothWays) {
    constexpr std::string_view kText = "Evaluación de la exposición: 5 € · «Señalización»";
    constexpr std::string_view kBytes =
        "Evaluaci\xF3n de la exposici\xF3n: 5 \x80 \xB7 \xAB"
        "Se\xF1"
        "alizaci\xF3n\xBB";
    EXPECT_EQ(ToWindows1252(kText), kBytes);
    EXPECT_EQ(FromWindows1252(kBytes), kText);
}

TEST(Windows1252Test, NothingBecomesNothing) {
    EXPECT_EQ(ToWindows1252(""), "");
    EXPECT_EQ(FromWindows1252(""), "");
}

TEST(Windows1252Test, ACharacterWithoutACodeBecomesOneQuestionMark) {
    EXPECT_EQ(ToWindows1252("日本"), "??");
    EXPECT_EQ(ToWindows1252("aЖb"), "a?b");
    EXPECT_EQ(ToWindows1252("😀"), "?");
    EXPECT_EQ(ToWindows1252("−5"), "?5");               // the minus sign of typography, U+2212
    EXPECT_EQ(ToWindows1252("\xF4\x8F\xBF\xBF"), "?");  // U+10FFFF, the last character
}

TEST(Windows1252Test, TheFirstCharacterOfEachLengthIsWhole) {
    EXPECT_EQ(ToWindows1252("\xC2\x80"), "?");          // U+0080, the first of two bytes
    EXPECT_EQ(ToWindows1252("\xE0\xA0\x80"), "?");      // U+0800, the first of three
    EXPECT_EQ(ToWindows1252("\xF0\x90\x80\x80"), "?");  // U+10000, the first of four
}

TEST(Windows1252Test, TheNeighboursOfTheSurrogatesAreCharacters) {
    EXPECT_EQ(ToWindows1252("\xED\x9F\xBF"), "?");  // U+D7FF
    EXPECT_EQ(ToWindows1252("\xEE\x80\x80"), "?");  // U+E000
}

TEST(Windows1252Test, TheNeighbourOfLatin1HasNoCode) {
    EXPECT_EQ(ToWindows1252("ÿĀ"), "\xFF?");  // U+00FF and U+0100
}

TEST(Windows1252Test, EachFirstByteOfACharacterIsKnown) {
    for (unsigned first = 0xC2; first <= 0xF4; ++first) {
        std::string character(1, static_cast<char>(first));
        // Continuations that are allowed behind each of them: 90 behind F0, A0 behind E0, 80 else.
        const char second = first == 0xF0 ? '\x90' : first == 0xE0 ? '\xA0' : '\x80';
        character += second;
        if (first >= 0xE0) character += '\x80';
        if (first >= 0xF0) character += '\x80';
        const std::string written = ToWindows1252(character);
        EXPECT_EQ(written.size(), 1U) << std::hex << first;
    }
}

TEST(Windows1252Test, TheControlCharactersWhoseCodesAreLettersHaveNoCode) {
    EXPECT_EQ(ToWindows1252("\xC2\x80"), "?");  // U+0080; the code 80 is the euro sign
    EXPECT_EQ(ToWindows1252("\xC2\x9F"), "?");
}

struct Broken {
    std::string_view what;
    std::string_view bytes;
    std::string_view written;
};

// clang-format off
constexpr std::array kBroken = {
    Broken{"a continuation byte alone",      "\x80",               "?"},
    Broken{"two of them",                    "\xBF\x80",           "??"},
    Broken{"two bytes cut to one",           "\xC3",               "?"},
    Broken{"three bytes cut to two",         "\xE2\x82",           "??"},
    Broken{"four bytes cut to three",        "\xF0\x9F\x98",       "???"},
    Broken{"a letter where one is due",      "\xC3" "a",           "?a"},
    Broken{"a letter inside three bytes",    "\xE2\x82" "a",       "??a"},
    Broken{"Latin-1 instead of UTF-8",       "ca\xF1" "a",         "ca?a"},
    Broken{"zero in two bytes",              "\xC0\x80",           "??"},
    Broken{"an A in two bytes",              "\xC1\x81",           "??"},
    Broken{"the last of one byte in two",    "\xC1\xBF",           "??"},
    Broken{"the last of two bytes in three", "\xE0\x9F\xBF",       "???"},
    Broken{"the last of three in four",      "\xF0\x8F\xBF\xBF",   "????"},
    Broken{"a letter in three bytes",        "\xE0\x83\xB1",       "???"},
    Broken{"the euro sign in four bytes",    "\xF0\x82\x82\xAC",   "????"},
    Broken{"half of a pair of surrogates",   "\xED\xA0\x80",       "???"},
    Broken{"the other half",                 "\xED\xBF\xBF",       "???"},
    Broken{"above the last character",       "\xF4\x90\x80\x80",   "????"},
    Broken{"five bytes",                     "\xF8\x88\x80\x80\x80", "?????"},
    Broken{"bytes that never occur",         "\xFE\xFF",           "??"},
    Broken{"a good letter after a bad byte", "\xC3\xC3\xB1",       "?\xF1"},
};
// clang-format on

TEST(Windows1252Test, EachByteThatIsNoUtf8BecomesAQuestionMark) {
    for (const Broken& row : kBroken) {
        EXPECT_EQ(ToWindows1252(row.bytes), row.written) << row.what;
    }
}

TEST(Windows1252Test, ACharacterCutAtTheEndIsNotReadBeyondIt) {
    // A block of exactly these bytes, so that the address sanitizer sees any step outside.
    for (const Broken& row : kBroken) {
        const std::vector<char> block(row.bytes.begin(), row.bytes.end());
        EXPECT_EQ(ToWindows1252({block.data(), block.size()}), row.written) << row.what;
    }
}

TEST(Windows1252Test, NoiseBecomesBytesThatComeBackAsTheyAre) {
    std::mt19937 random(1252);
    for (int round = 0; round < 200; ++round) {
        std::string noise(random() % 400, '\0');
        for (char& c : noise) c = static_cast<char>(random());
        const std::string bytes = ToWindows1252(noise);
        EXPECT_LE(bytes.size(), noise.size());
        EXPECT_EQ(ToWindows1252(FromWindows1252(bytes)), bytes);
        EXPECT_EQ(ToWindows1252(FromWindows1252(noise)), noise);
    }
}

}  // namespace
}  // namespace velmora
