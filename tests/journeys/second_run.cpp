#include <QCoreApplication>
#include <QProcess>

#include "journeys/journey.h"
#include "journeys/second_run.h"

namespace velmora::journeys {

namespace {

class SecondRunTest : public JourneyTest {
public:
    explicit SecondRunTest(SecondRun told) : told_(std::move(told)) {}

private:
    void TestBody() override {
        const Expected expected(told_.evaluation);
        Journey journey(run, expected);
        robot.Choose("Nuevaempresa");
        journey.Restore(told_.saved);
        EXPECT_EQ(run.record.MG, EvaluacionRecord().MG) << "the file holds no working values";
        robot.Choose("continuar", "calculos");
        EXPECT_FALSE(robot.Visible("Text1(0)"));
        for (int day = 1; day <= expected.Days(); ++day) {
            journey.RecoverDay(day);
            journey.ExpectDay(day);
        }
        // Recomputed from the cells that came back, in another order: all as it was.
        for (int day = expected.Days(); day >= 1; --day) {
            journey.RecoverDay(day);
            EXPECT_FALSE(robot.Visible("Command3"));
            journey.PressChain();
            journey.ExpectDay(day);
        }
        journey.ShowFinalTable();
        journey.Save(told_.saved_again);
    }

    SecondRun told_;
};

}  // namespace

void RegisterSecondRun(const SecondRun& run) {
    ::testing::RegisterTest("SecondRun", "FindsEverythingAndSavesItAgain", nullptr, nullptr,
                            __FILE__, __LINE__,
                            [run]() -> JourneyTest* { return new SecondRunTest(run); });
    GTEST_FLAG_SET(filter, "SecondRun.*");
}

::testing::AssertionResult RunAgain(const SecondRun& run) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QLatin1String(kSecondRun), QString::fromStdString(run.evaluation),
                   QString::fromStdString(run.saved), QString::fromStdString(run.saved_again)});
    constexpr int kPatience = 300'000;
    const bool over = process.waitForFinished(kPatience);
    const std::string said = process.readAll().toStdString();
    const bool ran = said.find("[  PASSED  ] 1 test.") != std::string::npos;
    if (over && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 && ran) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "the second process failed:\n" << said;
}

}  // namespace velmora::journeys
