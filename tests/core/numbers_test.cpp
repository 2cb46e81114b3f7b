#include "core/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <locale>
#include <span>
#include <string>
#include <string_view>

#include "runtime/error.h"
#include "support/velmora_test.h"

namespace velmora {
namespace {

using test::ExpectError;
using test::WithSeparator;

struct Read {
    std::string_view text;
    double value;
};

struct Written {
    double value;
    std::string_view text;
};

// LeerValor: the leading-number rule. Values worked by hand.

// clang-format off
constexpr std::array kLeadingNumbers = {
    Read{"0", 0},            Read{"7", 7},               Read{"12.5", 12.5},
    Read{"007", 7},          Read{"0.61", 0.61},         Read{"-3", -3},
    Read{"-0.25", -0.25},    Read{".5", 0.5},            Read{"-.5", -0.5},
    Read{"5.", 5},           Read{"1E+20", 1e20},        Read{"1e-05", 1e-5},
    Read{"1e3", 1000},       Read{"1E3", 1000},          Read{"5.e2", 500},
    Read{".5e1", 5},         Read{"0e999", 0},           Read{"123456789012345", 123456789012345},
    Read{"0.001", 0.001},    Read{"1e-400", 0},          Read{"-1e-400", 0},
};

constexpr std::array kStoppedNumbers = {
    Read{"1,5", 1},          Read{"12 34", 12},          Read{"1.2.3", 1.2},
    Read{"12abc", 12},       Read{"1e", 1},              Read{"1e+", 1},
    Read{"1E+-5", 1},        Read{"1e5x", 1e5},          Read{"1e2.5", 100},
    Read{"3-4", 3},          Read{"0x10", 0},            Read{"2 ", 2},
    Read{"1d5", 1},          Read{"1_000", 1},           Read{"4,", 4},
    Read{"4\r\n", 4},        Read{"5\t", 5},
};

constexpr std::array kNoLeadingNumber = {
    Read{"", 0},             Read{" ", 0},               Read{".", 0},
    Read{",", 0},            Read{"-", 0},               Read{"-.", 0},
    Read{"--5", 0},          Read{"- 5", 0},             Read{"+5", 0},
    Read{" 5", 0},           Read{"\t5", 0},             Read{",5", 0},
    Read{".e5", 0},          Read{"e5", 0},              Read{"abc", 0},
    Read{"inf", 0},          Read{"nan", 0},             Read{"----", 0},
    Read{"---", 0},          Read{"(5)", 0},             Read{"..5", 0},
    Read{"\xD9\xA5", 0},     Read{"\xE2\x88\x92" "5", 0}, Read{"\xFF", 0},
};
// clang-format on

TEST(LeerValorTest, ReadsTheNumberThatTheTextIs) {
    for (const Read& row : kLeadingNumbers) {
        EXPECT_EQ(LeerValor(row.text).Value(), row.value) << row.text;
    }
}

TEST(LeerValorTest, StopsAtTheFirstCharacterThatCannotContinueTheNumber) {
    for (const Read& row : kStoppedNumbers) {
        EXPECT_EQ(LeerValor(row.text).Value(), row.value) << row.text;
    }
}

TEST(LeerValorTest, GivesZeroWhereNoNumberLeads) {
    for (const Read& row : kNoLeadingNumber) {
        EXPECT_EQ(LeerValor(row.text).Value(), 0.0) << row.text;
    }
}

TEST(LeerValorTest, ReadsAPointAndStopsAtACommaWhateverTheSeparator) {
    const WithSeparator comma(",");
    EXPECT_EQ(LeerValor("1.5").Value(), 1.5);
    EXPECT_EQ(LeerValor("1,5").Value(), 1.0);
    EXPECT_EQ(LeerValor("0,5").Value(), 0.0);
    EXPECT_EQ(LeerValor(",12").Value(), 0.0);
}

TEST(LeerValorTest, ATextThatIsNoZeroTerminatedStringIsReadToItsEndOnly) {
    const std::string_view digits = "12345";
    EXPECT_EQ(LeerValor(digits.substr(0, 2)).Value(), 12.0);
    const std::string_view exponent = "1e+5";
    EXPECT_EQ(LeerValor(exponent.substr(0, 2)).Value(), 1.0);
    EXPECT_EQ(LeerValor(exponent.substr(0, 3)).Value(), 1.0);
    EXPECT_EQ(LeerValor(std::string_view("7\0"
                                         "8",
                                         3))
                  .Value(),
              7.0);
}

TEST(LeerValorTest, TooLargeForADoubleOverflows) {
    ExpectError(ErrorKind::Overflow, [] { LeerValor("1e309"); });
    ExpectError(ErrorKind::Overflow, [] { LeerValor("-1e309"); });
    ExpectError(ErrorKind::Overflow, [] { LeerValor("1e99999999999999999999"); });
    ExpectError(ErrorKind::Overflow, [] { LeerValor(std::string(310, '9')); });
}

TEST(LeerValorTest, ManyDigitsAreNoOverflowByThemselves) {
    EXPECT_EQ(LeerValor(std::string(400, '0') + "7").Value(), 7.0);
    EXPECT_EQ(LeerValor("0." + std::string(400, '0') + "1").Value(), 0.0);
    EXPECT_EQ(LeerValor("0." + std::string(400, '0') + "1e401").Value(), 1.0);
    EXPECT_EQ(LeerValor("1e-99999999999999999999").Value(), 0.0);
}

// Too large or too small is a matter of zeros and exponent together. Worked by hand: a 1 behind
// 0.000... with n zeros is 10^-(n+1), a 1 ahead of n zeros is 10^n.

TEST(LeerValorTest, LettersBehindANumberTooLargeDontMakeItSmall) {
    const std::string nines(310, '9');
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(nines + "e-x900"); });
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(nines + " e-900"); });
}

TEST(LeerValorTest, ALongFractionAndALargerExponentOverflow) {
    const std::string fraction = "0." + std::string(1000, '0') + "1";
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(fraction + "e1320"); });   // 10^319
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(fraction + "E+1320"); });  // 10^319
    ExpectError(ErrorKind::Overflow, [&] { LeerValor("." + fraction.substr(2) + "e1320"); });
}

TEST(LeerValorTest, ALongFractionAndASmallerExponentAreZero) {
    const std::string fraction = "0." + std::string(2000, '0') + "1";
    EXPECT_EQ(LeerValor(fraction + "e1600").Value(), 0.0);   // 10^-401
    EXPECT_EQ(LeerValor(fraction + "e+1600").Value(), 0.0);  // 10^-401
}

TEST(LeerValorTest, ManyDigitsAndANegativeExponentBeyondThemAreZero) {
    const std::string digits = "1" + std::string(1000, '0');
    EXPECT_EQ(LeerValor(digits + "e-1400").Value(), 0.0);    // 10^-400
    EXPECT_EQ(LeerValor(digits + ".5e-1400").Value(), 0.0);  // 10^-400
}

TEST(LeerValorTest, ManyDigitsAndANegativeExponentBelowThemOverflow) {
    const std::string digits = "1" + std::string(2000, '0');
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(digits + "e-1600"); });    // 10^400
    ExpectError(ErrorKind::Overflow, [&] { LeerValor(digits + ".5E-1600"); });  // 10^400
}

TEST(LeerValorTest, TheLargestDoubleIsRead) {
    EXPECT_EQ(LeerValor("1.7976931348623157e308").Value(), std::numeric_limits<double>::max());
}

// The three conversions by the locale's rules.

constexpr std::array kNoNumbers = {
    "",    " ",   "abc", "8h", "8 8", ".",  "-",  "+",   "1e", "--8", "- 8", "1.2.3",
    "inf", "nan", "0x8", "8;", "x8",  "8x", "e5", ".e5", "8/", "8:"};  // the neighbours of 0 and 9

/// Each of the texts raises this run-time error.
template <class Convert>
void ExpectErrorOfEach(ErrorKind kind, std::span<const char* const> texts, Convert convert) {
    for (const char* const text : texts) {
        SCOPED_TRACE(text);
        ExpectError(kind, [&] { convert(text); });
    }
}

TEST(ConvertirDobleTest, TakesBlanksAroundASignAndAnExponent) {
    for (const Read& row :
         {Read{"8", 8}, Read{" 8 ", 8}, Read{"\t8\t", 8}, Read{"+8", 8}, Read{"-8.5", -8.5},
          Read{"8.", 8}, Read{".5", 0.5}, Read{"1E+2", 100}, Read{"1e-400", 0}}) {
        EXPECT_EQ(ConvertirDoble(row.text).Value(), row.value) << row.text;
    }
}

TEST(ConvertirDobleTest, BadTextIsATypeError) {
    ExpectErrorOfEach(ErrorKind::TypeMismatch, kNoNumbers, ConvertirDoble);
}

TEST(ConvertirDobleTest, TakesTheLocalesSeparatorAndNoOther) {
    ExpectError(ErrorKind::TypeMismatch, [] { ConvertirDoble("8,5"); });
    const WithSeparator comma(",");
    EXPECT_EQ(ConvertirDoble("8,5").Value(), 8.5);
    ExpectError(ErrorKind::TypeMismatch, [] { ConvertirDoble("8.5"); });
}

TEST(ConvertirDobleTest, TooLargeOverflows) {
    ExpectError(ErrorKind::Overflow, [] { ConvertirDoble("1e309"); });
    ExpectError(ErrorKind::Overflow, [] { ConvertirDoble("-1e309"); });
}

TEST(ConvertirEnteroTest, RoundsHalvesToEven) {
    for (const Read& row :
         {Read{"6", 6}, Read{" -6 ", -6}, Read{"2.5", 2}, Read{"3.5", 4}, Read{"-2.5", -2},
          Read{"2.51", 3}, Read{"1E+3", 1000}, Read{"32767.4", 32767}, Read{"-32768.5", -32768}}) {
        EXPECT_EQ(ConvertirEntero(row.text).Value(), row.value) << row.text;
    }
}

TEST(ConvertirEnteroTest, OutsideSixteenBitsOverflows) {
    ExpectErrorOfEach(
        ErrorKind::Overflow,
        std::to_array<const char*>({"32768", "32767.5", "-32769", "-32768.6", "1e300"}),
        ConvertirEntero);
}

TEST(ConvertirEnteroTest, BadTextIsATypeError) {
    ExpectErrorOfEach(ErrorKind::TypeMismatch, kNoNumbers, ConvertirEntero);
}

TEST(ConvertirEnteroTest, TakesTheLocalesSeparator) {
    const WithSeparator comma(",");
    EXPECT_EQ(ConvertirEntero("3,5").Value(), 4);
    ExpectError(ErrorKind::TypeMismatch, [] { ConvertirEntero("3.5"); });
}

TEST(ConvertirLargoTest, HoldsThirtyTwoBits) {
    EXPECT_EQ(ConvertirLargo("3"), 3);
    EXPECT_EQ(ConvertirLargo("40000"), 40000);
    EXPECT_EQ(ConvertirLargo("2147483647"), 2147483647);
    EXPECT_EQ(ConvertirLargo("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(ConvertirLargo("2147483647.4"), 2147483647);
}

TEST(ConvertirLargoTest, RoundsHalvesToEven) {
    EXPECT_EQ(ConvertirLargo("0.5"), 0);
    EXPECT_EQ(ConvertirLargo("1.5"), 2);
    EXPECT_EQ(ConvertirLargo("2.5"), 2);
}

TEST(ConvertirLargoTest, OutsideThirtyTwoBitsOverflows) {
    ExpectErrorOfEach(
        ErrorKind::Overflow,
        std::to_array<const char*>({"2147483648", "2147483647.5", "-2147483649", "1e300"}),
        ConvertirLargo);
}

TEST(ConvertirLargoTest, BadTextIsATypeError) {
    ExpectErrorOfEach(ErrorKind::TypeMismatch, kNoNumbers, ConvertirLargo);
}

// RedondearEntero

TEST(RedondearEnteroTest, RoundsToNearestWithTiesToEven) {
    for (const auto& [value, rounded] : {std::pair{0.0, 0},
                                         {0.5, 0},
                                         {1.5, 2},
                                         {2.5, 2},
                                         {-0.5, 0},
                                         {-1.5, -2},
                                         {-2.5, -2},
                                         {2.4999999, 2},
                                         {2.5000001, 3},
                                         {32767.49, 32767},
                                         {-32768.5, -32768}}) {
        EXPECT_EQ(RedondearEntero(value).Value(), rounded) << value;
    }
}

TEST(RedondearEnteroTest, OverflowsOutsideSixteenBits) {
    for (const double value : {32767.5, 32768.0, -32768.6, -32769.0, 1e300, -1e300}) {
        SCOPED_TRACE(value);
        ExpectError(ErrorKind::Overflow, [&] { RedondearEntero(value); });
    }
}

TEST(TextoEnteroTest, WritesDigitsWithAMinusSignIfNegative) {
    EXPECT_EQ(TextoEntero(0), "0");
    EXPECT_EQ(TextoEntero(30), "30");
    EXPECT_EQ(TextoEntero(-7), "-7");
    EXPECT_EQ(TextoEntero(32767), "32767");
    EXPECT_EQ(TextoEntero(-32768), "-32768");
}

// Double to text. Values worked by hand.

// clang-format off
constexpr std::array kGeneralForm = {
    Written{0.0, "0"},                    Written{-0.0, "0"},
    Written{4, "4"},                      Written{100, "100"},
    Written{0.5, "0.5"},                  Written{-0.5, "-0.5"},
    Written{0.1 + 0.2, "0.3"},            Written{1.0 / 3, "0.333333333333333"},
    Written{2.0 / 3, "0.666666666666667"}, Written{0.001, "0.001"},
    Written{0.0001, "0.0001"},            Written{0.00009999, "9.999E-05"},
    Written{0.00001, "1E-05"},            Written{-0.00001234, "-1.234E-05"},
    Written{123456789012345, "123456789012345"},
    Written{999999999999999, "999999999999999"},
    Written{999999999999999.9, "1E+15"},  Written{1e15, "1E+15"},
    Written{1e20, "1E+20"},               Written{-1.5e20, "-1.5E+20"},
    Written{1e100, "1E+100"},             Written{1e-100, "1E-100"},
    Written{99999999999999.95, "100000000000000"},
    Written{0.0000999999999999999999, "0.0001"},
    Written{1.7976931348623157e308, "1.79769313486232E+308"},
    Written{5e-324, "4.94065645841247E-324"},
};

constexpr std::array kTwoDecimals = {
    Written{2.36061, "2.36"},             Written{0.118, ".12"},
    Written{4, "4."},                     Written{0, "."},
    Written{-0.0, "."},                   Written{0.125, ".13"},
    Written{2.675, "2.68"},               Written{0.995, "1."},
    Written{1.005, "1.01"},               Written{0.005, ".01"},
    Written{0.00499999999999999, "."},    Written{0.004, "."},
    Written{-0.004, "."},                 Written{-0.005, "-.01"},
    Written{-0.125, "-.13"},              Written{0.1, ".1"},
    Written{0.10, ".1"},                  Written{1.5, "1.5"},
    Written{99.994, "99.99"},             Written{99.995, "100."},
    Written{9.999, "10."},                Written{0.994999999999999, ".99"},
    Written{1000, "1000."},               Written{1e15, "1000000000000000."},
    Written{1e-300, "."},                 Written{0.015, ".02"},
    Written{0.045, ".05"},                Written{12345678.905, "12345678.91"},
};

constexpr std::array kPlainForm = {
    Written{0, "0"},                      Written{-0.0, "0"},
    Written{8.5, "8.5"},                  Written{-8.5, "-8.5"},
    Written{0.5, "0.5"},                  Written{1.0 / 3, "0.333333333333333"},
    Written{1e15, "1000000000000000"},    Written{1e20, "100000000000000000000"},
    Written{0.00001, "0.00001"},          Written{1.5e-7, "0.00000015"},
    Written{123456789012345678.0, "123456789012346000"},
};
// clang-format on

TEST(TextoDobleTest, WritesTheGeneralFormWithUpToFifteenDigits) {
    for (const Written& row : kGeneralForm) EXPECT_EQ(TextoDoble(row.value), row.text);
}

TEST(TextoDobleTest, WritesTheLocalesSeparatorInBothNotations) {
    const WithSeparator comma(",");
    EXPECT_EQ(TextoDoble(0.5), "0,5");
    EXPECT_EQ(TextoDoble(1.5e20), "1,5E+20");
    EXPECT_EQ(TextoDoble(4), "4");
}

TEST(FormatoDosDecimalesTest, KeepsTwoDecimalsAtMostAndTheSeparatorAlways) {
    for (const Written& row : kTwoDecimals) {
        EXPECT_EQ(FormatoDosDecimales(row.value), row.text) << row.value;
    }
}

TEST(FormatoDosDecimalesTest, WritesTheLocalesSeparator) {
    const WithSeparator comma(",");
    EXPECT_EQ(FormatoDosDecimales(2.36061), "2,36");
    EXPECT_EQ(FormatoDosDecimales(0.118), ",12");
    EXPECT_EQ(FormatoDosDecimales(4), "4,");
    EXPECT_EQ(FormatoDosDecimales(0), ",");
}

TEST(FormatoDosDecimalesTest, ZeroIsATextThatIsNotEmptyAndReadsAsZero) {
    EXPECT_FALSE(FormatoDosDecimales(0).empty());
    EXPECT_EQ(LeerValor(FormatoDosDecimales(0)).Value(), 0.0);
}

TEST(FormatoDosDecimalesTest, ReadsBackOnlyUpToACommaSeparator) {
    EXPECT_EQ(LeerValor(FormatoDosDecimales(12.34)).Value(), 12.34);
    const WithSeparator comma(",");
    EXPECT_EQ(LeerValor(FormatoDosDecimales(12.34)).Value(), 12.0);
    EXPECT_EQ(LeerValor(FormatoDosDecimales(0.34)).Value(), 0.0);
}

TEST(PlainDecimalTextTest, WritesNoExponentAndALeadingZero) {
    for (const Written& row : kPlainForm) EXPECT_EQ(PlainDecimalText(row.value), row.text);
}

TEST(PlainDecimalTextTest, WritesAPointWhateverTheLocale) {
    const WithSeparator comma(",");
    EXPECT_EQ(PlainDecimalText(8.5), "8.5");
}

TEST(PlainDecimalTextTest, HasAsManyDigitsAsTheMagnitudeNeeds) {
    EXPECT_EQ(PlainDecimalText(1e300), "1" + std::string(300, '0'));
    EXPECT_EQ(PlainDecimalText(1e-300), "0." + std::string(299, '0') + "1");
}

struct ThreeForms {
    double value;
    std::string_view general;
    std::string_view two_decimals;
    std::string_view plain;
};

// Random values of all magnitudes; texts from Python: '%.15G' and, for the other two columns, the
// decimal module on '%.14e', quantized to 0.01 with ROUND_HALF_UP or written without exponent.
// clang-format off
constexpr std::array kRandomValues = {
    ThreeForms{0x1.143f1e7702b36p+32,  "4634648183.01055",      "4634648183.01",          "4634648183.01055"},
    ThreeForms{0x1.9505638d28b30p+68,  "4.669574786907E+20",    "466957478690700000000.", "466957478690700000000"},
    ThreeForms{0x1.0fa1203a7a51cp+69,  "6.2633474851396E+20",   "626334748513960000000.", "626334748513960000000"},
    ThreeForms{0x1.4a91f9b97b134p+12,  "5289.12346790386",      "5289.12",                "5289.12346790386"},
    ThreeForms{0x1.99fe32829ddb9p+19,  "839665.578444413",      "839665.58",              "839665.578444413"},
    ThreeForms{-0x1.36982c3f2e172p-11, "-0.000592411852173887", ".",                      "-0.000592411852173887"},
    ThreeForms{0x1.758300a568413p-17,  "1.1131516951592E-05",   ".",                      "0.000011131516951592"},
    ThreeForms{0x1.dfe260afe04cbp+12,  "7678.14860522859",      "7678.15",                "7678.14860522859"},
    ThreeForms{0x1.d5d8d792e9088p-16,  "2.80050658819785E-05",  ".",                      "0.0000280050658819785"},
    ThreeForms{0x1.90340fe271bd3p-14,  "9.54159182021541E-05",  ".",                      "0.0000954159182021541"},
    ThreeForms{0x1.4da152e471d8fp+2,   "5.21297142323546",      "5.21",                   "5.21297142323546"},
    ThreeForms{0x1.7c6b04c97d3a5p+2,   "5.94403190304448",      "5.94",                   "5.94403190304448"},
    ThreeForms{0x1.d88770da349e7p+66,  "1.36197230360984E+20",  "136197230360984000000.", "136197230360984000000"},
    ThreeForms{0x1.47b5c161b8dd5p+54,  "2.30605398893013E+16",  "23060539889301300.",     "23060539889301300"},
    ThreeForms{-0x1.ae591e945f2b6p+2,  "-6.72418941964559",     "-6.72",                  "-6.72418941964559"},
    ThreeForms{-0x1.dc8145a130211p+51, "-4.19138203035265E+15", "-4191382030352650.",     "-4191382030352650"},
    ThreeForms{0x1.b6157d122e0d3p+2,   "6.84506155753498",      "6.85",                   "6.84506155753498"},
    ThreeForms{0x1.6557da8077e83p+19,  "731838.828182176",      "731838.83",              "731838.828182176"},
    ThreeForms{-0x1.6d73703177000p-11, "-0.000697042332997722", ".",                      "-0.000697042332997722"},
    ThreeForms{0x1.3adef4fbf5e08p+3,   "9.83971642695452",      "9.84",                   "9.83971642695452"},
    ThreeForms{0x1.1bd810f3b46eep+3,   "8.87012527083013",      "8.87",                   "8.87012527083013"},
    ThreeForms{0x1.055cfe916e0b3p+53,  "9.19590216910474E+15",  "9195902169104740.",      "9195902169104740"},
    ThreeForms{-0x1.53531fe92f09ap+56, "-9.5511413626178E+16",  "-95511413626178000.",    "-95511413626178000"},
    ThreeForms{0x1.2fe3ab6d24f3ap+3,   "9.49654170338873",      "9.5",                    "9.49654170338873"},
};
// clang-format on

TEST(NumberFormsTest, AgreeWithAnIndependentProgramOnRandomValues) {
    for (const ThreeForms& row : kRandomValues) {
        EXPECT_EQ(TextoDoble(row.value), row.general);
        EXPECT_EQ(FormatoDosDecimales(row.value), row.two_decimals);
        EXPECT_EQ(PlainDecimalText(row.value), row.plain);
    }
}

TEST(NumberFormsTest, WhatTheFileHoldsReadsBackAsTheValueThatItShows) {
    for (const ThreeForms& row : kRandomValues) {
        const auto read = CompleteNumber(PlainDecimalText(row.value), ".");
        ASSERT_TRUE(read);
        EXPECT_EQ(PlainDecimalText(*read), row.plain);
        EXPECT_EQ(LeerValor(row.general).Value(), *read);
    }
}

// CompleteNumber: the whole text must be the number.

TEST(CompleteNumberTest, ReadsAnyDecimalForm) {
    for (const Read& row :
         {Read{"0", 0}, Read{"8.5", 8.5}, Read{".5", 0.5}, Read{"-.5", -0.5}, Read{"5.", 5},
          Read{"+3", 3}, Read{"1E+20", 1e20}, Read{"1e-05", 1e-5}, Read{"007", 7}}) {
        EXPECT_EQ(CompleteNumber(row.text, "."), row.value) << row.text;
    }
}

TEST(CompleteNumberTest, IsNothingForAnythingElse) {
    for (const std::string_view text : {"", " ", "8 ", " 8", "8h", ".", "-", "+", "+-8", "1e",
                                        "1.2.3", "8,5", "inf", "nan", R"("8")", "0x8"}) {
        EXPECT_EQ(CompleteNumber(text, "."), std::nullopt) << text;
    }
}

TEST(CompleteNumberTest, IsInfiniteForANumberTooLarge) {
    EXPECT_EQ(CompleteNumber("1e309", "."), std::numeric_limits<double>::infinity());
    EXPECT_EQ(CompleteNumber("-1e309", "."), -std::numeric_limits<double>::infinity());
}

// The separator is the program's own, not the run-time library's.

TEST(DecimalSeparatorTest, IsThePointUntilToldOtherwise) { EXPECT_EQ(DecimalSeparator(), "."); }

TEST(DecimalSeparatorTest, MayTakeMoreThanOneByte) {
    const WithSeparator momayyez("\xD9\xAB");  // U+066B, two bytes in UTF-8
    EXPECT_EQ(DecimalSeparator(), "\xD9\xAB");
    EXPECT_EQ(TextoDoble(0.5),
              "0\xD9\xAB"
              "5");
    EXPECT_EQ(ConvertirDoble(TextoDoble(12.25)).Value(), 12.25);
    EXPECT_EQ(FormatoDosDecimales(0), "\xD9\xAB");
}

TEST(DecimalSeparatorTest, TheStandardLibrarysLocaleChangesNoNumber) {
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Comma));
    EXPECT_EQ(TextoDoble(1234.5), "1234.5");
    EXPECT_EQ(FormatoDosDecimales(1234.5), "1234.5");
    EXPECT_EQ(PlainDecimalText(1234.5), "1234.5");
    EXPECT_EQ(TextoEntero(12345), "12345");
    EXPECT_EQ(LeerValor("1234.5").Value(), 1234.5);
    EXPECT_EQ(ConvertirDoble("1234.5").Value(), 1234.5);
    std::locale::global(before);
}

}  // namespace
}  // namespace velmora
