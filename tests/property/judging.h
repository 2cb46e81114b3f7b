#pragma once

#include <string>
#include <string_view>

#include "core/record.h"
#include "property/world.h"

namespace velmora::property {

// What the invariants share: readings of cells, and the shape of a plan.

/// The number that the program reads in a cell; infinity for one too large.
double Value(std::string_view text);

/// The number that a cell shows, whatever the decimal separator.
double Shows(std::string text);

/// Whether two numbers agree but for the last digits of a text.
bool Agree(double a, double b);

/// Contaminants with samples of a task on a day.
int SampledRows(const EvaluacionRecord& record, int day, int task);

/// One or three days (two by way of a file), up to three tasks.
bool HasSoundSize(const EvaluacionRecord& record);
/// Every day of every task has 0 to 6 contaminants with samples.
bool HasSoundSamples(const EvaluacionRecord& record);
/// Every task has 0 to 6 contaminants.
bool HasSoundCounts(const EvaluacionRecord& record);

/// Whether some number of the plan or of the final table is so large or so small that arithmetic
/// on it may overflow.
bool HasExtremeNumbers(const EvaluacionRecord& record);
/// Whether some cell of the screen is.
bool HasExtremeCells(const Screenshot& screen);

/// Whether one of the three buttons "Validar" of the sheet's tasks was pressed: its task, else 0.
int ValidatedTask(const Step& step);
/// The same of the three short-exposure buttons.
int EvaluatedTask(const Step& step);

/// Groups of two or more of a task, as the short-exposure buttons see them.
struct Group {
    std::vector<int> members;  ///< contaminants, from 1
    std::vector<double> sums;  ///< of the common samples, up to the first that a member lacks
};
std::vector<Group> GroupsOf(const Screenshot& sheet, int task, int contaminants);

/// Index of a cell of the sheet: `Text1` by task, contaminant (from 1) and column, and `Text3`.
constexpr int At(int task, int contaminant, int column) {
    return ((task - 1) * 6 + contaminant - 1) * 18 + column;
}
constexpr int At3(int task, int contaminant, int column) {
    return ((task - 1) * 6 + contaminant - 1) * 4 + column;
}

/// Columns of `Text1` and of `Text3`.
struct Col {
    static constexpr int kNumber = 0, kEd = 2, kEc = 3, kGroup = 6, kC1 = 7, kC6 = 12, kMmp = 13,
                         kIndex = 14, kIndexPlus = 15, kMg = 16, kGsd = 17;
    static constexpr int kEcPlus = 0, kMgPlus = 1, kGsdPlus = 2, kProb = 3;
};

/// Samples of a row that count: up to the first that is empty or reads 0.
std::vector<double> UsableSamples(const Screenshot& sheet, int task, int contaminant);

}  // namespace velmora::property
