#include "report/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "report/evaluation_test.h"
#include "report/expected.h"
#include "report/explanations.h"
#include "report/normal.h"
#include "report/preliminary.h"

namespace velmora::test {
namespace {

using report::PreliminaryTest;
using report::Remark;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using Outcome = PreliminaryTest::Outcome;

class ReportTest : public EvaluationTest {
protected:
    void MakeDay() {
        PlanOneTask(1, {{"Tolueno", "192", "384"}});
        WorkDay(1, {{1, {"120", "95", "150", "110"}}});
        Finish();
    }
};

// What is shown

TEST_F(ReportTest, ShowsTheCellsAsTheyAreAndThePlainFiguresBeside) {
    MakeDay();
    const Report report = report::ReadReport(file_.string());
    ASSERT_THAT(report.days, SizeIs(1));
    ASSERT_THAT(report.days.at(0).rows, SizeIs(1));
    const report::SheetRow& row = report.days.at(0).rows.at(0);
    EXPECT_EQ(row.name, "Tolueno");
    EXPECT_EQ(row.samples.at(3).text, "110");
    EXPECT_EQ(row.index.text, ".61");
    EXPECT_EQ(row.index.value, 0.61);
    EXPECT_EQ(row.probability.text, "0.001");
    EXPECT_NEAR(row.plain_index.value(), ExpectedNumber("toluene.index"), 1e-12);
    EXPECT_NEAR(row.exact_probability.value(), ExpectedNumber("toluene.percent"), 1e-12);
    EXPECT_EQ(report.days.at(0).sheet.over_limit, "NO");
    EXPECT_EQ(report.final_table.at(0).index.at(0).text, "0.61");
}

TEST_F(ReportTest, PutsSamplesOnProbabilityPaper) {
    MakeDay();
    const Report report = report::ReadReport(file_.string());
    ASSERT_THAT(report.probability_plots, SizeIs(1));
    const report::ProbabilityPlot& plot = report.probability_plots.at(0);
    ASSERT_THAT(plot.points, SizeIs(4));
    EXPECT_EQ(plot.points.at(0).value, 95);
    // R: qnorm((1 - 3/8) / (4 + 1/4))
    EXPECT_NEAR(plot.points.at(0).z, ExpectedNumber("quantile.1.of.4"), 1e-12);
    EXPECT_NEAR(plot.points.at(3).z, -ExpectedNumber("quantile.1.of.4"), 1e-12);
    EXPECT_NEAR(plot.mg, ExpectedNumber("toluene.mg"), 1e-9);
    EXPECT_NEAR(plot.gsd, ExpectedNumber("toluene.gsd"), 1e-12);
    EXPECT_EQ(plot.vla_ed, 192);
    EXPECT_EQ(plot.ec_plus, 384);
}

TEST(NormalTest, AnEqualSampleLiesWhollyOnItsMean) {
    EXPECT_EQ(report::PercentAbove(5, 4, 1), 0);
    EXPECT_EQ(report::PercentAbove(4, 4, 1), 100);
}

TEST(NormalTest, AClassHoldsItsUpperEnd) {
    EXPECT_EQ(report::ClassOfPercent(0.1), 0.1);
    EXPECT_EQ(report::ClassOfPercent(0.1000001), 1);
    EXPECT_EQ(report::ClassOfPercent(5.1), 50);
}

// What the reading passes over

TEST_F(ReportTest, AWholeFileHasNoRemark) {
    MakeDay();
    EXPECT_THAT(report::ReadReport(file_.string()).remarks, IsEmpty());
}

TEST_F(ReportTest, AFileCutShortIsTold) {
    MakeDay();
    std::vector<std::string> lines = Lines();
    lines.resize(1400);
    const Report report = WithLines(lines);
    EXPECT_THAT(report.remarks, ElementsAre(Field(&Remark::text, HasSubstr("línea 1400"))));
    EXPECT_THAT(report.findings, IsEmpty()) << "what the file doesn't hold isn't missed twice";
}

TEST_F(ReportTest, AFileCutWithinTheSheetsLeavesTheirDaysUnread) {
    MakeDay();
    std::vector<std::string> lines = Lines();
    lines.resize(700);
    EXPECT_THAT(
        WithLines(lines).findings,
        ElementsAre(AllOf(Field(&Finding::kind, FindingKind::SheetCutShort),
                          Field(&Finding::day, 1), Field(&Finding::changes_verdict, true))));
}

TEST_F(ReportTest, AFileCutBehindTheSheetOfItsDayIsReadWithIt) {
    MakeDay();
    std::vector<std::string> lines = Lines();
    lines.resize(static_cast<std::size_t>(LineOfEntry(1, 401)));
    EXPECT_THAT(WithLines(lines).findings, IsEmpty());
    lines.pop_back();
    EXPECT_THAT(WithLines(lines).findings,
                ElementsAre(Field(&Finding::kind, FindingKind::SheetCutShort)));
}

TEST_F(ReportTest, AFileThatGoesOnIsTold) {
    MakeDay();
    std::vector<std::string> lines = Lines();
    lines.emplace_back("\"\"");
    EXPECT_THAT(WithLines(lines).remarks,
                ElementsAre(Field(&Remark::text, HasSubstr("sigue después"))));
}

TEST_F(ReportTest, ANumberThatCannotBeReadIsToldWithItsName) {
    MakeDay();
    EXPECT_THAT(WithLine(22, "ocho").remarks,
                ElementsAre(AllOf(Field(&Remark::line, 22),
                                  Field(&Remark::text, HasSubstr("horas, día 1, tarea 1")))));
    WithLine(22, "8");
    EXPECT_THAT(WithLine(53 + 36 + 6, "x").remarks,
                ElementsAre(Field(&Remark::text, HasSubstr("VLA-ED, tarea 2, contaminante 2"))));
}

TEST_F(ReportTest, ATextWithoutItsQuotesIsTold) {
    MakeDay();
    EXPECT_THAT(WithLine(3, "\"Parcela \"12\"\"").remarks, ElementsAre(Field(&Remark::line, 3)));
}

TEST_F(ReportTest, NumbersBeyondTheRecordAreCutAndTold) {
    MakeDay();
    const Report report = WithLine(21, "7");
    EXPECT_EQ(report.tasks_planned, 3);
    EXPECT_THAT(report.remarks, ElementsAre(Field(&Remark::text, HasSubstr("tareas: 7"))));
}

TEST_F(ReportTest, WhatIsNoEvaluationIsRefused) {
    EXPECT_THROW(report::ReadReport(file_.string()), report::Refused) << "there is no such file";
    EXPECT_THROW(report::ReadReport("/"), report::Refused);
    EXPECT_THROW(WithLines({}), report::Refused);
    EXPECT_THROW(WithLines({"Estimados señores:", "", "les remito"}), report::Refused);
    EXPECT_THROW(WithLines(std::vector<std::string>(1524, "\"texto\"")), report::Refused);
}

// The preliminary test

Outcome OutcomeOf(const std::vector<double>& indices) {
    PreliminaryTest test;
    int day = 1;
    for (const double index : indices) test.results.push_back({day++, index});
    report::Judge(test);
    return test.outcome;
}

// UNE-EN 689:2018, 5.5.2.
TEST(PreliminaryTestTest, JudgesThreeToFiveResults) {
    EXPECT_EQ(OutcomeOf({0.1, 0.05, 0.1}), Outcome::Compliance);
    EXPECT_EQ(OutcomeOf({0.1, 0.05, 0.11}), Outcome::MoreMeasurements);
    EXPECT_EQ(OutcomeOf({0.15, 0.1, 0.1, 0.1}), Outcome::Compliance);
    EXPECT_EQ(OutcomeOf({0.16, 0.1, 0.1, 0.1}), Outcome::MoreMeasurements);
    EXPECT_EQ(OutcomeOf({0.2, 0.1, 0.1, 0.1, 0.1}), Outcome::Compliance);
    EXPECT_EQ(OutcomeOf({0.21, 0.1, 0.1, 0.1, 0.1}), Outcome::MoreMeasurements);
    EXPECT_EQ(OutcomeOf({0.01, 0.01, 0.01, 0.01, 0.01, 0.01}), Outcome::MoreMeasurements);
    EXPECT_EQ(OutcomeOf({0.1, 1.01, 0.1}), Outcome::NoCompliance);
    EXPECT_EQ(OutcomeOf({0.1, 1, 0.1}), Outcome::MoreMeasurements);
}

TEST(PreliminaryTestTest, WithFewerThanThreeOnlyOneAboveTheLimitDecides) {
    EXPECT_EQ(OutcomeOf({0.01, 0.01}), Outcome::TooFew);
    EXPECT_EQ(OutcomeOf({}), Outcome::TooFew);
    EXPECT_EQ(OutcomeOf({1.01}), Outcome::NoCompliance);
}

TEST_F(ReportTest, ThePreliminaryTestIsOfContaminantsAndOfGroups) {
    PlanOneTask(3, {{"Xileno", "221", "442", 15, "1"},
                    {"Etilbenceno", "442", "884", 15, "1"},
                    {"Cloro", "0", "1.5", 15}});
    for (int day = 1; day <= 3; ++day) {
        WorkDay(
            day,
            {{1, {"30", "45", "20", "35"}}, {2, {"15", "25", "10", "20"}}, {3, {"0.02", "0.03"}}});
    }
    const auto tests = Finish().preliminary_tests;
    ASSERT_THAT(tests, ElementsAre(Field(&PreliminaryTest::outcome, Outcome::MoreMeasurements),
                                   Field(&PreliminaryTest::outcome, Outcome::Compliance),
                                   Field(&PreliminaryTest::outcome, Outcome::NoLimit),
                                   AllOf(Field(&PreliminaryTest::group, 1),
                                         Field(&PreliminaryTest::name, "Xileno + Etilbenceno"))));
    EXPECT_NEAR(tests.at(3).results.at(2).index, ExpectedNumber("mixture.sum"), 1e-12);
}

// The guide

/// The id that a heading of the guide gets in its HTML: small letters, without punctuation, with
/// hyphens for blanks.
std::string IdOf(const std::string& heading) {
    std::string id;
    for (const char letter : heading.substr(heading.find_first_not_of("# "))) {
        const auto byte = static_cast<unsigned char>(letter);
        if (letter == ' ') id.push_back('-');
        if (byte >= 0x80 || std::isalnum(byte) != 0 || letter == '-') {
            id.push_back(static_cast<char>(std::tolower(byte)));
        }
    }
    return id;
}

TEST(ExplanationsTest, EachKindLinksToAHeadingOfTheGuide) {
    std::set<std::string> ids;
    std::ifstream guide(VELMORA_SOURCES "/docs/guia.md");
    for (std::string line; std::getline(guide, line);) {
        if (line.starts_with("#")) ids.insert(IdOf(line));
    }
    for (int kind = 0; kind <= static_cast<int>(FindingKind::StaleFinal); ++kind) {
        const auto& explanation = report::ExplanationOf(static_cast<FindingKind>(kind));
        EXPECT_EQ(explanation.kind, static_cast<FindingKind>(kind));
        EXPECT_TRUE(ids.contains(std::string(explanation.anchor))) << explanation.anchor;
        EXPECT_TRUE(explanation.why.ends_with('.')) << explanation.why;
    }
}

}  // namespace
}  // namespace velmora::test
