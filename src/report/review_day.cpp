#include "report/review_day.h"

#include <utility>

#include "report/review_notes.h"

namespace velmora::report {

namespace {

std::vector<int> AllRows() {
    std::vector<int> rows;
    for (int row = 1; row <= kRows; ++row) rows.push_back(row);
    return rows;
}

/// The one finding of a day that has nothing for a verdict to rest on.
std::vector<Finding> NothingToRestOn(FindingKind kind, const DayCase& day, Told told) {
    Finding finding = MakeFinding(kind, day.day, {}, std::move(told));
    finding.changes_verdict = true;
    return {finding};
}

/// A day that was closed without any of its buttons: there is no figure to look at.
std::vector<Finding> ReviewEmptyDay(const DayCase& day) {
    return NothingToRestOn(
        FindingKind::DayWithoutMeasurements, day,
        {"conclusiones", AnswerOf(*day.sheet, Answer::IndexSentence), "sin mediciones calculadas"});
}

void NoteComma(ReviewNotes& notes) {
    if (!notes.day.comma) return;
    const double plain = Summary(VerdictOfPlain(notes.day)).index;
    notes.Add(FindingKind::CommaLocale, {},
              {"mayor índice", AnswerOf(*notes.day.sheet, Answer::HighestIndex), NumberText(plain)},
              Part::All, 0, AllRows());
}

}  // namespace

std::vector<Finding> ReviewCutDay(const DayCase& day, int lines) {
    return NothingToRestOn(
        FindingKind::SheetCutShort, day,
        {"hoja del día", "cortada en la línea " + NumberText(lines), "1524 líneas"});
}

std::vector<Finding> ReviewDay(const EvaluacionRecord& record, const DayCase& day) {
    if (!day.computed) return ReviewEmptyDay(day);
    ReviewNotes notes(record, day);
    NoteComma(notes);
    CompareWithPlan(notes);
    CompareRows(notes);
    CompareSums(notes);
    CompareShortExposure(notes);
    CompareConclusion(notes);
    return notes.Finish();
}

}  // namespace velmora::report
