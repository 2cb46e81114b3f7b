#include <QTest>

#include <algorithm>
#include <map>

#include "qt/window_test.h"

namespace velmora::test {
namespace {

/// The names of the controls that the Tab key reaches, one round from the first on.
std::vector<std::string> Round(Robot& robot, Qt::Key key = Qt::Key_Tab) {
    constexpr std::size_t kMany = 1000;
    std::vector<std::string> names = {robot.Focused()};
    while (names.size() < kMany) {
        robot.Key(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        if (robot.Focused() == names.front()) break;
        names.push_back(robot.Focused());
    }
    return names;
}

std::vector<std::string> Elements(std::string_view name, std::initializer_list<int> indices) {
    std::vector<std::string> names;
    for (const int index : indices) names.push_back(Indexed(name, index));
    return names;
}

using TabOrderTest = EachScreenTest;

TEST_P(TabOrderTest, NoTwoControlsHaveTheSamePlace) {
    std::map<int, std::string> places;
    for (const Control& control : chain.Current().Controls()) {
        if (control.row.tab == kNoTab) continue;
        const auto [other, is_new] = places.emplace(control.row.tab, control.name);
        EXPECT_TRUE(is_new) << control.name << " and " << other->second;
    }
}

TEST_P(TabOrderTest, TabGoesThroughAllVisibleControlsInTheirOrder) {
    ShowAll();
    std::map<int, std::string> places;
    for (const Control& control : chain.Current().Controls()) {
        if (control.row.tab != kNoTab) places[control.row.tab] = control.name;
    }
    if (places.empty()) {
        EXPECT_EQ(GetParam(), ScreenId::Form1) << "only the splash has nothing to reach";
        return;
    }
    std::vector<std::string> expected;
    for (const auto& [place, name] : places) expected.push_back(name);

    Focus(expected.front());
    EXPECT_THAT(Round(robot), ElementsAreArray(expected));
    std::reverse(expected.begin() + 1, expected.end());
    EXPECT_THAT(Round(robot, Qt::Key_Backtab), ElementsAreArray(expected));
}

INSTANTIATE_TEST_SUITE_P(OnTheWindow, TabOrderTest, ::testing::ValuesIn(kScreens),
                         [](const auto& test) { return NameOf(test.param); });

using ScreensTabOrderTest = WindowTest;

TEST_F(ScreensTabOrderTest, Form2StartsAtTheCompanysNameAndFollowsItsLinesNotItsIndices) {
    Open(ScreenId::Form2);
    EXPECT_THAT(Round(robot),
                ElementsAreArray(Elements(
                    "Text1", {1, 4, 3, 5, 2, 6, 7, 11, 10, 12, 13, 15, 14, 16, 18, 19, 8, 17, 9})));
}

TEST_F(ScreensTabOrderTest, Form3WithoutAPlanReachesTheTwoListsAndItsButton) {
    Open(ScreenId::Form3);
    EXPECT_THAT(Round(robot), ElementsAre("Combo1(0)", "Combo1(1)", "Command1"));
}

TEST_F(ScreensTabOrderTest, Form3WithAPlanPassesTheDisabledButton) {
    SetPlan(1, 1, 1);
    Open(ScreenId::Form3);
    EXPECT_THAT(Round(robot),
                ElementsAre("Combo1(0)", "Combo1(1)", "Command2", "Combo1(2)", "Combo1(3)",
                            "Combo1(4)", "Combo1(5)", "Combo1(6)", "Combo1(7)", "Text1(0)",
                            "Text1(1)", "Text1(2)", "Text1(3)", "Text1(4)", "Text1(5)"));
}

TEST_F(ScreensTabOrderTest, Form4RunsDownItsColumns) {
    OpenRows(2);
    Focus("Combo13(0)");
    EXPECT_THAT(Round(robot),
                ElementsAre("Combo13(0)", "Combo13(1)", "Text3(0)", "Text3(1)", "Text1(1)",
                            "Text1(6)", "Text1(2)", "Text1(7)", "Text1(3)", "Text1(8)", "Text1(4)",
                            "Text1(9)", "Text1(0)", "Text1(5)", "Command1", "Command3", "Combo1"));
}

TEST_F(ScreensTabOrderTest, Form5GoesThroughTheSamplesOfAllRowsThenItsButtonsThenTheRestOfItsGrid) {
    OpenSheet(1, 2, 1);
    Focus("Text1(7)");
    const std::vector<std::string> round = Round(robot);
    std::vector<std::string> first =
        Elements("Text1", {7,   8,   9,   10,  11,  12,  115, 116, 117, 118, 119, 120,
                           0,   1,   2,   3,   4,   5,   6,   13,  14,  15,  16,  17,
                           108, 109, 110, 111, 112, 113, 114, 121, 122, 123, 124, 125});
    first.insert(first.begin() + 12, "Command1");
    ASSERT_GT(round.size(), first.size());
    EXPECT_THAT(
        std::vector(round.begin(), round.begin() + static_cast<std::ptrdiff_t>(first.size())),
        ElementsAreArray(first));
}

}  // namespace
}  // namespace velmora::test
