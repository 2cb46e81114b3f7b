#include "report/text.h"

#include <gtest/gtest.h>

namespace velmora::report {
namespace {

TEST(TextTest, ShownLeavesLettersAsTheyAre) {
    EXPECT_EQ(Shown("Óxido de cinc, <5 % & \"más\""), "Óxido de cinc, <5 % & \"más\"");
    EXPECT_EQ(Shown("µg/m³ €"), "µg/m³ €");
}

TEST(TextTest, ShownTakesBlanksAroundAndBreaksInside) {
    EXPECT_EQ(Shown("  BAJA\r\nPROBABILIDAD\t! "), "BAJA  PROBABILIDAD !");
    EXPECT_EQ(Shown(" \n\xC2\xA0 "), "");
}

TEST(TextTest, ShownReplacesWhatNoPageMayHold) {
    EXPECT_EQ(Shown(std::string("a\0b\x1B[31m\x7F", 9)), "a\uFFFDb\uFFFD[31m\uFFFD");
    EXPECT_EQ(Shown("a\xC2\x8Dz"), "a\uFFFDz") << "a control of the second row";
    EXPECT_EQ(Shown("a\xE2\x80\xAEz"), "a\uFFFDz") << "right-to-left override";
    EXPECT_EQ(Shown("a\xEF\xBF\xBFz"), "a\uFFFDz") << "a non-character";
}

TEST(TextTest, ShownReplacesBytesThatAreNoUtf8) {
    EXPECT_EQ(Shown("a\xFFz"), "a\uFFFDz");
    EXPECT_EQ(Shown("a\xC0\xBCz"), "a\uFFFD\uFFFDz") << "\"<\" in two bytes";
    EXPECT_EQ(Shown("a\xED\xA0\x80z"), "a\uFFFD\uFFFD\uFFFDz") << "half of a pair";
    EXPECT_EQ(Shown("a\xF4\x90\x80\x80"), "a\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last code";
    EXPECT_EQ(Shown("a\xE2\x82"), "a\uFFFD\uFFFD") << "cut short";
}

TEST(TextTest, ShownCutsLongTextsAndSaysSo) {
    std::string letters;
    for (std::size_t i = 0; i < kLettersShown; ++i) letters += "ñ";
    EXPECT_EQ(Shown(letters), letters);
    EXPECT_EQ(Shown(letters + "x"), letters + "…");
}

TEST(TextTest, FittingCutsAtWholeLetters) {
    EXPECT_EQ(Fitting("ñandú", 5), "ñandú");
    EXPECT_EQ(Fitting("ñandúes", 5), "ñand…");
    EXPECT_EQ(Fitting("", 5), "");
}

TEST(TextTest, EscapedLeavesNoLetterThatMarksUp) {
    EXPECT_EQ(Escaped("<script>alert('1')</script>"),
              "&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt;");
    EXPECT_EQ(Escaped("\"]]>&amp;"), "&quot;]]&gt;&amp;amp;");
}

TEST(TextTest, CssStringLetsNothingOut) {
    EXPECT_EQ(CssString("Año 1"), "\"Año 1\"");
    EXPECT_EQ(CssString("a\";}</style>\\"), "\"a\\22 \\3b \\7d \\3c \\2f style\\3e \\5c \"");
}

TEST(TextTest, RoundedGivesSignificantDigitsWithAPoint) {
    EXPECT_EQ(Rounded(0), "0");
    EXPECT_EQ(Rounded(117.114), "117.1");
    EXPECT_EQ(Rounded(0.61401), "0.614");
    EXPECT_EQ(Rounded(0.000123456), "0.0001235");
    EXPECT_EQ(Rounded(2), "2");
    EXPECT_EQ(Rounded(9.99996), "10") << "the carry adds a place";
    EXPECT_EQ(Rounded(48210), "48210") << "whole places aren't rounded away";
    EXPECT_EQ(Rounded(-0.5), "-0.5");
    EXPECT_EQ(Rounded(1.26e-9, 2), "1.3e-09");
    EXPECT_EQ(Rounded(3e20, 2), "3.0e+20");
    EXPECT_EQ(Rounded(536.069661301946, 15), "536.069661301946");
}

}  // namespace
}  // namespace velmora::report
