#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/record.h"
#include "report/day_case.h"
#include "report/findings.h"
#include "report/verdict.h"

namespace velmora::report {

/// A day's second reading on its way: what is known of the day and what has been found.
class ReviewNotes {
public:
    ReviewNotes(const EvaluacionRecord& its_record, const DayCase& its_day);

    /// Notes a finding that bears on a part of the verdict, through its rows, the rows that share
    /// a group with them, and `also`.
    void Add(FindingKind kind, const std::vector<int>& rows, Told told, Part part, int task = 0,
             const std::vector<int>& also = {});

    /// The same for one that bears on a class of probability other than the plain one.
    void AddClass(int row, Told told, double exact_class);

    /// Notes that a cell of the row doesn't follow. A row makes one finding, with its first cell;
    /// none where the row, or one of its groups, has other inputs than it was computed from.
    void Fault(int row, Column column, std::string plain);
    bool IsFaulty(int row) const { return faults_(row).has_value(); }

    /// All findings, those of faulty rows included, by row.
    std::vector<Finding> Finish();

    const EvaluacionRecord& record;
    const DayCase& day;
    ByRow<bool> samples_changed{};  ///< the row's MMP doesn't come from its samples
    ByRow<bool> means_lost{};       ///< the row's MG and GSD were set to zero
    ByRow<bool> inputs_changed{};   ///< a limit, time or group of the row isn't the plan's
    ByRow<bool> group_changed{};    ///< its group isn't

    /// Whether one of these rows, or of those that share a group with them, is marked.
    bool AnyRelated(const std::vector<int>& rows, const ByRow<bool>& marks) const;

private:
    std::vector<int> WithGroups(const std::vector<int>& rows) const;
    std::string NameOf(int row) const;

    DayVerdict sheet_;
    DayVerdict plain_;
    ByRow<std::optional<Told>> faults_;
    std::vector<Finding> findings_;
};

/// Heading of a column, as the sheet has it.
std::string_view HeadingOf(Column column);

// The steps of the reading, in their order.

/// Rows and contaminants, the columns that come from the plan, the samples' texts.
void CompareWithPlan(ReviewNotes& notes);
/// MMP, Indice, MG and GSD of each row.
void CompareRows(ReviewNotes& notes);
/// Indic.+ of each row and group.
void CompareSums(ReviewNotes& notes);
/// EC+, MG+, GSD+ and Prob. of each row and mixture.
void CompareShortExposure(ReviewNotes& notes);
/// The three answers and two sentences.
void CompareConclusion(ReviewNotes& notes);

}  // namespace velmora::report
