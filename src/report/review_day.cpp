#include "report/review_day.h"

#include "report/review_notes.h"

namespace velmora::report {

namespace {

std::vector<int> AllRows() {
    std::vector<int> rows;
    for (int row = 1; row <= kRows; ++row) rows.push_back(row);
    return rows;
}

/// A day that was closed without any of its buttons: there is no figure to look at.
std::vector<Finding> ReviewEmptyDay(const DayCase& day) {
    Finding finding = MakeFinding(FindingKind::DayWithoutMeasurements, day.day, {},
                                  {"conclusiones", (*day.sheet)(399), "sin mediciones calculadas"});
    finding.changes_verdict = true;  // there is nothing for a verdict to rest on
    return {finding};
}

void NoteComma(ReviewNotes& notes) {
    if (!notes.day.comma) return;
    const double plain = Summary(VerdictOfPlain(notes.day)).index;
    notes.Add(FindingKind::CommaLocale, {},
              {"mayor índice", (*notes.day.sheet)(397), NumberText(plain)}, Part::All, 0,
              AllRows());
}

}  // namespace

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
