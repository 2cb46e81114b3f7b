#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "journeys/expected.h"
#include "support/program.h"
#include "support/velmora_test.h"

namespace velmora::journeys {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The steps of an evaluation, by mouse and keys. Each starts on the screen where the one before it
/// ended and fails the test where the window shows something else than was computed.
class Journey {
public:
    Journey(Program& run, const Expected& evaluation) : robot(run.robot), expected(evaluation) {}

    /// From the first screen: types the fields that aren't left alone, and goes to the plan.
    void EnterCompany();
    /// Picks the two numbers and fixes the plan.
    void FixPlan(int days, int tasks);
    /// Picks the six values of the entry row and validates them.
    void EnterLine(const PlanLine& line);
    /// Every line of the plan, then its grid, then to the contaminants.
    void EnterPlan();
    void TypeAgent(int row, const Agent& agent);
    /// Picks the task, which opens so many rows, and types their agents.
    void TypeAgents(int task, int rows);
    /// Types and stores the agents of each task, then goes to the sheet.
    void EnterAgents();
    /// All that stands ahead of the sheet, from the first screen to the sheet.
    void EnterAll();
    /// Lays the day out, with the first button alone, and types its measurements, from cell to cell
    /// with the Tab key.
    void TypeDay(int day);
    /// The buttons of the day one after another; each must stand open when its turn comes.
    void PressChain();
    /// Every cell of the sheet and of the conclusions, and which rows are shown.
    void ExpectDay(int day);
    void RecoverDay(int day);
    /// From the sheet to the final table, filled and compared.
    void ShowFinalTable();
    void Save(const std::string& path);
    /// From the company's screen.
    void Restore(const std::string& path);

    /// The texts of the cells or lists named `name`(first) to `name`(last).
    std::vector<std::string> Texts(std::string_view name, int first, int last) const;
    /// Cells C1 to C6 that are marked, "red 250" or "red 255", by their name.
    std::vector<std::string> Marked() const;

    Robot& robot;
    const Expected& expected;
};

/// An evaluation's window and its steps; the end of the process fails the test.
class JourneyTest : public ::testing::Test {
protected:
    JourneyTest() { run.Show(); }

    void TearDown() override { EXPECT_THAT(run.ends, IsEmpty()) << "the process ended"; }

    test::WithSeparator separator{"."};
    Program run;
    Robot& robot = run.robot;
};

/// Boxes as the logic opens them.
Robot::Box Refusal(std::string text);
Robot::Box RestartQuestion(QMessageBox::StandardButton answer);
Robot::Box IncompletePlan(QMessageBox::StandardButton answer);

}  // namespace velmora::journeys
