#include <algorithm>
#include <string>

#include "report/review_notes.h"
#include "stats/verdicts.h"

namespace velmora::report {

namespace {

std::string YesOrNo(bool yes) { return yes ? "SI" : "NO"; }

/// What the row's question is answered with by the plain computation, and against what.
std::string PlainAnswer(const RowInput& plan) {
    const std::string limit = NumberText(plan.ShortLimit());
    return YesOrNo(ReachesLimit(plan)) + (plan.vla_ec != 0 ? " (VLA-EC: " : " (3 x VLA-ED: ") +
           limit + ")";
}

void CompareLimits(ReviewNotes& notes, int row) {
    const DayCase& day = notes.day;
    if (notes.inputs_changed(row)) return;  // that is the finding
    const double minutes = day.cells(row).minutes;
    const Column limit = minutes == 30 ? Column::VlaEd : Column::VlaEc;
    const bool of_contaminant = ContaminantOf(row) <= ContaminantsOf(notes.record, TaskOf(row));
    if (minutes == 15 || minutes == 30) {
        if (day.Shown(row, limit).value != 0.0) return;
        notes.Add(FindingKind::NoLimitForSamples, {row},
                  {"¿Se ha superado?", "SI (" + std::string(HeadingOf(limit)) + " 0)",
                   PlainAnswer(day.plan(row))},
                  Part::Limits);
    } else if (of_contaminant && !day.Cell(row, Column::SamplingMinutes).empty()) {
        notes.Add(FindingKind::NoSamplingTime, {row},
                  {"¿Se ha superado?", "T.M. " + day.Cell(row, Column::SamplingMinutes),
                   PlainAnswer(day.plan(row))},
                  Part::Limits);
    }
}

/// A figure or sentence of the conclusions that doesn't come from the sheet's cells.
void Doubt(ReviewNotes& notes, std::string what, Answer answer, std::string plain) {
    notes.Add(FindingKind::DoesNotFollow, {},
              {std::move(what), OrBlank(AnswerOf(*notes.day.sheet, answer)), std::move(plain)},
              Part::All);
}

void CompareHighest(ReviewNotes& notes, const char* what, Answer answer, double of_cells,
                    double plain) {
    const std::string& text = AnswerOf(*notes.day.sheet, answer);
    const Figure figure = FigureOf(text);
    if (figure.value && SameNumber(*figure.value, of_cells)) return;
    if (ComesFrom(figure, plain)) return;
    Doubt(notes, what, answer, NumberText(plain));
}

void CompareSentence(ReviewNotes& notes, const char* what, Answer answer,
                     const VerdictScale& verdict, Answer of_number) {
    const auto sentence = verdict.For(ReadAsTheSheet(AnswerOf(*notes.day.sheet, of_number)));
    if (AnswerOf(*notes.day.sheet, answer) == sentence) return;
    Doubt(notes, what, answer, std::string(sentence));
}

void CompareAnswer(ReviewNotes& notes, bool of_sheet, bool plain) {
    const auto& cells = notes.day.cells;
    const bool asked = std::any_of(cells.begin(), cells.end(), [](const RowInput& row) {
        return row.minutes == 15 || row.minutes == 30;
    });
    const std::string& answer = AnswerOf(*notes.day.sheet, Answer::OverLimit);
    const auto changed = [](const ByRow<bool>& marks) {
        return std::find(marks.begin(), marks.end(), true) != marks.end();
    };
    if (changed(notes.samples_changed) || changed(notes.inputs_changed)) return;
    if (!asked || answer == YesOrNo(of_sheet) || answer == YesOrNo(plain)) return;
    Doubt(notes, "¿Se ha superado?", Answer::OverLimit, YesOrNo(plain));
}

}  // namespace

void CompareConclusion(ReviewNotes& notes) {
    const DayCase& day = notes.day;
    for (int row = 1; row <= kRows; ++row) {
        if (day.on_sheet(row) && day.in_plan(row)) CompareLimits(notes, row);
    }
    const RowVerdict sheet = Summary(VerdictOfSheet(day));
    const RowVerdict plain = Summary(VerdictOfPlain(day));
    CompareHighest(notes, "mayor índice", Answer::HighestIndex, sheet.index, plain.index);
    CompareHighest(notes, "mayor probabilidad", Answer::HighestProbability, sheet.probability,
                   plain.probability);
    CompareAnswer(notes, sheet.over, plain.over);
    CompareSentence(notes, "frase del índice", Answer::IndexSentence, kIndexVerdict(day.day),
                    Answer::HighestIndex);
    CompareSentence(notes, "frase de la exposición corta", Answer::ProbabilitySentence,
                    kProbabilityVerdict, Answer::HighestProbability);
}

}  // namespace velmora::report
