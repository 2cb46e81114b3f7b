#include "report/svg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace velmora::report {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::vector<double> Ends(std::initializer_list<double> values, double least = 10) {
    const std::vector<double> all(values);
    const LogAxis axis = AxisFor(all, 0, 1, least);
    return {axis.low, axis.high};
}

TEST(LogAxisTest, ItsEndsAreRoundValuesAroundAll) {
    EXPECT_THAT(Ends({0.04, 0.61}), ElementsAre(0.02, 1));
    EXPECT_THAT(Ends({3, 70}), ElementsAre(2, 100));
    EXPECT_THAT(Ends({1, 100}), ElementsAre(1, 100));
}

TEST(LogAxisTest, CloseValuesStillSpanTheLeastFactor) {
    const auto ends = Ends({3, 3.1}, 10);
    EXPECT_LE(ends[0], 3);
    EXPECT_GE(ends[1], 3.1);
    EXPECT_GE(ends[1] / ends[0], 10);
    EXPECT_LE(ends[1] / ends[0], 25) << "one step further than it had to";
}

TEST(LogAxisTest, EqualFactorsAreEqualLengths) {
    const LogAxis axis{0.1, 10, 0, 200};
    EXPECT_DOUBLE_EQ(axis.At(1), 100);
    EXPECT_DOUBLE_EQ(axis.At(0.001), 0) << "outside stands at the end";
    EXPECT_DOUBLE_EQ(axis.At(50), 200);
}

TEST(LogAxisTest, TicksAreOneTwoFiveUntilTheyAreTooMany) {
    const LogAxis axis{0.05, 2, 0, 1};
    EXPECT_THAT(axis.Ticks(9),
                ElementsAre(::testing::DoubleEq(0.05), ::testing::DoubleEq(0.1),
                            ::testing::DoubleEq(0.2), ::testing::DoubleEq(0.5), 1, 2));
    EXPECT_THAT(axis.Ticks(3), ElementsAre(::testing::DoubleEq(0.1), 1));
}

TEST(PictureTest, TextsAreEscapedAndTheNamesAreTold) {
    Picture picture("p-1", 20, 10.24, "Un <título>", "Qué & cómo");
    picture.Text({1, 2.06}, "a<b", "rotulo", Anchor::End);
    const std::string markup = picture.Markup();
    EXPECT_THAT(markup, HasSubstr(R"(<svg role="img" viewBox="0 0 20 10.2")"));
    EXPECT_THAT(markup, HasSubstr(R"(aria-labelledby="p-1-t p-1-d")"));
    EXPECT_THAT(markup, HasSubstr(R"(<title id="p-1-t">Un &lt;título&gt;</title>)"));
    EXPECT_THAT(markup, HasSubstr(R"(<desc id="p-1-d">Qué &amp; cómo</desc>)"));
    EXPECT_THAT(markup,
                HasSubstr(R"(<text class="rotulo" x="1" y="2.1" text-anchor="end">a&lt;b</text>)"));
    EXPECT_THAT(markup, ::testing::EndsWith("</svg>\n"));
}

TEST(PictureTest, DaysHaveFormsOfTheirOwn) {
    const std::array<std::string, 3> forms = {"<circle", "<rect", "<path"};
    for (int day = 1; day <= 3; ++day) {
        Picture picture("p", 9, 9, "t", "d");
        picture.DayMark(day, {4, 4});
        EXPECT_THAT(picture.Markup(), HasSubstr(forms.at(static_cast<std::size_t>(day - 1))));
    }
}

}  // namespace
}  // namespace velmora::report
