#pragma once

#include "evaluation.h"
#include "guide.h"
#include "program.h"

namespace velmora::tour {

// The road of an evaluation, step by step. Each step starts on the screen where the one before it
// ended. A step throws when something can't be pressed, and notes in the guide what differs.

struct Road {
    Program& program;
    Robot& robot;
    Guide& guide;
};

/// From the first screen to the company's.
void Start(const Road& road);
/// Types the company's data and goes to the plan.
void EnterCompany(const Road& road, const Company& company);
/// Fixes a plan of these days, tasks and agents in each task, and goes to the contaminants.
void EnterPlan(const Road& road, int days, int tasks, int agents);
/// Enters the first agents of each task.
void EnterContaminants(const Road& road, int tasks, int agents);

/// From the sheet, blank: types the measurements of a day, presses the chain of buttons and looks
/// at the conclusions.
void EvaluateDay(const Road& road, int day);
/// Compares the rows of the worked day on the sheet of the first day, to the last digit.
void CompareWorkedDay(const Road& road);
/// Recovers a day from its slot, on the sheet.
void RecoverDay(const Road& road, int day);
/// Leaves the sheet, comes back to it and recovers the first day.
void RecoverFirstDay(const Road& road);

/// The final table, from the sheet.
void ShowFinalTable(const Road& road);
/// Saves from the final table under a name without its extension.
void Save(const Road& road, const std::filesystem::path& file);
void PrintFinalTable(const Road& road);
/// From the final table back to the company's data, and restores the file over what is typed there.
void RestoreInPlace(const Road& road, const std::filesystem::path& file);
/// From the company's screen in a new run: restores the file and finds everything again.
void RestoreInNewRun(const Road& road, const std::filesystem::path& file,
                     const EvaluacionRecord& saved);
/// Presses `Salir`: No at first, then Yes.
void Leave(const Road& road, QMessageBox::StandardButton preset);

}  // namespace velmora::tour
