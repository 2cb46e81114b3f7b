#include "report/review_notes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::report {

ReviewNotes::ReviewNotes(const EvaluacionRecord& its_record, const DayCase& its_day)
    : record(its_record),
      day(its_day),
      sheet_(VerdictOfSheet(its_day)),
      plain_(VerdictOfPlain(its_day)) {}

void ReviewNotes::Add(FindingKind kind, const std::vector<int>& rows, Told told, Part part,
                      int task, const std::vector<int>& also) {
    Finding finding = MakeFinding(kind, day.day, rows, std::move(told), task);
    if (!rows.empty()) finding.name = NameOf(rows.front());
    std::vector<int> bearing = WithGroups(rows);
    bearing.insert(bearing.end(), also.begin(), also.end());
    finding.changes_verdict = HangsOn(sheet_, plain_, bearing, part);
    findings_.push_back(std::move(finding));
}

void ReviewNotes::AddClass(int row, Told told, double exact_class) {
    Finding finding = MakeFinding(FindingKind::ClassDiffers, day.day, {row}, std::move(told));
    finding.name = NameOf(row);
    DayVerdict exact = sheet_;
    exact(row).probability = exact_class;
    finding.changes_verdict = SayOther(sheet_, exact);
    findings_.push_back(std::move(finding));
}

void ReviewNotes::Fault(int row, Column column, std::string plain) {
    const bool excused = AnyRelated({row}, inputs_changed);
    if (faults_(row) || (excused && !samples_changed(row))) return;
    faults_(row) = {std::string(HeadingOf(column)), OrBlank(day.Cell(row, column)),
                    std::move(plain)};
}

std::vector<Finding> ReviewNotes::Finish() {
    for (int row = 1; row <= kRows; ++row) {
        if (!faults_(row)) continue;
        Add(FindingKind::DoesNotFollow, {row}, std::move(*faults_(row)), Part::All);
    }
    const auto place = [](const Finding& f) {
        return f.rows.empty() ? (f.task - 1) * kRowsPerTask : f.rows.front();
    };
    std::stable_sort(findings_.begin(), findings_.end(),
                     [&](const Finding& a, const Finding& b) { return place(a) < place(b); });
    return std::move(findings_);
}

bool ReviewNotes::AnyRelated(const std::vector<int>& rows, const ByRow<bool>& marks) const {
    const std::vector<int> related = WithGroups(rows);
    return std::any_of(related.begin(), related.end(), [&](int row) { return marks(row); });
}

std::vector<int> ReviewNotes::WithGroups(const std::vector<int>& rows) const {
    std::vector<int> all;
    for (int other = 1; other <= kRows; ++other) {
        const bool bears = std::any_of(rows.begin(), rows.end(), [&](int row) {
            const double planned = day.plan(row).group;
            const double shown = day.cells(row).group;
            return other == row || (planned != 0 && day.plan(other).group == planned) ||
                   (shown != 0 && day.cells(other).group == shown);
        });
        if (bears) all.push_back(other);
    }
    return all;
}

std::string ReviewNotes::NameOf(int row) const {
    const std::string& shown = day.Cell(row, Column::Name);
    return shown.empty() ? record.NombreContaminante(TaskOf(row), ContaminantOf(row)) : shown;
}

std::string_view HeadingOf(Column column) {
    static constexpr std::array<std::string_view, 22> kHeadings = {
        "Nº", "Contaminante", "ED",  "EC",  "Unid.", "T.M.", "A+",     "C1",
        "C2", "C3",           "C4",  "C5",  "C6",    "MMP",  "Indice", "Indic.+",
        "MG", "GSD",          "EC+", "MG+", "GSD+",  "Prob."};
    return kHeadings.at(static_cast<std::size_t>(PlaceOf(column)));
}

}  // namespace velmora::report
