#pragma once

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/record.h"
#include "store/evaluation_file.h"

namespace velmora::report {

/// What a cell of the evaluation held, and the number that it shows.
///
/// `text` is as in the file, byte for byte (UTF-8): ".61", "4.", ".", "0,61", "" for a blank cell.
/// `value` is the number that a reader of the cell sees, with a point or a comma as its decimal
/// mark; nothing for a blank cell or one that isn't a number as a whole. It is finite.
struct Figure {
    std::string text;
    std::optional<double> value;
};

/// One of the nineteen fields of the company, in the order of the company's screen.
struct CompanyField {
    int number = 0;     ///< of the field in the file, 1 to 19
    std::string label;  ///< what it is, as a screen reader says it on the company's screen
    std::string value;  ///< as in the file, "---" for one left empty
};

/// One line of the plan, numbers as in the file.
struct PlanLine {
    int day = 0;   ///< 1 to 3
    int task = 0;  ///< 1 to 3
    double hours = 0;
    int samples30 = 0;     ///< contaminants with samples of 30 minutes
    int samples15 = 0;     ///< and of 15 minutes
    int contaminants = 0;  ///< of the task, whatever the day
};

/// A contaminant of the plan with its limits, as in the file.
struct Agent {
    int task = 0;         ///< 1 to 3
    int contaminant = 0;  ///< 1 to 6, its place within the task
    std::string name;
    double vla_ed = 0;         ///< 0 for none
    double vla_ec = 0;         ///< 0 for none
    int sampling_minutes = 0;  ///< 15 or 30
    int group = 0;             ///< additive group, 0 for none
    std::string unit;          ///< "mg/m3" or "ppm"
};

/// One row of a validated day's sheet. The cells are as in the file; what begins with `plain_` and
/// `exact_probability` are computed here, from the samples and the plan alone.
struct SheetRow {
    int row = 0;          ///< of the sheet, 1 to 18: (task - 1) * 6 + contaminant
    int task = 0;         ///< 1 to 3
    int contaminant = 0;  ///< 1 to 6
    std::string name;     ///< as the sheet holds it
    std::string unit;
    Figure vla_ed, vla_ec, sampling_minutes, group;
    std::array<Figure, 6> samples;  ///< C1 to C6
    Figure mmp, index, combined_index, mg, gsd;
    Figure ec_plus, mg_plus, gsd_plus, probability;

    std::optional<double> plain_index;           ///< hours x MMP / (8 x VLA-ED), unrounded
    std::optional<double> plain_combined_index;  ///< of the row, or of its group over the day
    /// Probability class of the guide's curves, in per cent. On the first row of a mixture, or on a
    /// row that is judged by itself; nothing on the other members of a mixture.
    std::optional<double> plain_probability;
    /// Per cent of the log-normal distribution of the row or mixture above its EC+. On the same
    /// rows as `plain_probability`.
    std::optional<double> exact_probability;
};

/// Three answers and two sentences. Of the sheet: as in the file. Of the plain computation: made
/// here, and `over_limit` is "SI" or "NO", the sentences without blanks around them.
struct Conclusion {
    std::string over_limit;      ///< has 3 x VLA-ED or VLA-EC been reached: "SI", "NO", or ""
    Figure highest_index;        ///< simple and additive
    Figure highest_probability;  ///< class, in per cent
    std::string index_sentence;
    std::string probability_sentence;
};

/// A day of the plan, or one beyond it that holds a sheet.
struct Day {
    int day = 0;                 ///< 1 to 3
    bool in_plan = false;        ///< its number is not above the plan's
    bool validated = false;      ///< the file holds its sheet; nothing below is filled otherwise
    bool comma = false;          ///< its cells were written with a decimal comma
    std::vector<SheetRow> rows;  ///< those in use, by row
    Conclusion sheet;
    Conclusion plain;
};

/// A row of the final table: those of the plan's contaminants, and others that hold a figure.
struct FinalRow {
    int row = 0;  ///< 1 to 18
    int task = 0;
    int contaminant = 0;
    std::string name;
    std::array<Figure, 3> index;        ///< I1, I2, I3
    Figure overall;                     ///< IG
    std::array<Figure, 3> probability;  ///< P1, P2, P3
    bool in_plan = false;               ///< a contaminant of the plan stands there
};

/// The first kind of picture: a contaminant's index on each day, and its IG.
struct IndexSeries {
    int row = 0;
    int task = 0;
    int contaminant = 0;
    std::string name;
    /// The sheet's Indic.+, or its Indice where that is blank; nothing without a validated day.
    std::array<std::optional<double>, 3> days;
    std::optional<double> overall;
};

/// The second kind of picture: a row's samples on log-normal probability paper.
struct ProbabilityPlot {
    struct Point {
        double value = 0;  ///< above 0
        double z = 0;      ///< standard normal quantile of (i - 3/8) / (n + 1/4)
    };
    int day = 0;
    int row = 0;
    int task = 0;
    int contaminant = 0;
    std::string name;
    std::string unit;
    std::vector<Point> points;  ///< two to six, values rising
    double mg = 0;   ///< geometric mean of the points, unrounded: the line's value at z = 0
    double gsd = 0;  ///< geometric deviation, 1 or more: the line's value at z = 1 is mg x gsd
    std::optional<double> vla_ed;   ///< nothing without one
    std::optional<double> ec_plus;  ///< VLA-EC, or 3 x VLA-ED; nothing without either
};

/// The third kind of picture: a row or mixture on the ladder of short exposures.
struct LadderPoint {
    int day = 0;
    int row = 0;  ///< of the row, or of the mixture's first member
    int task = 0;
    int contaminant = 0;
    std::string name;              ///< the names of all its members, with " + " between them
    double ratio = 0;              ///< EC+ / MG+, above 0
    double gsd_plus = 0;           ///< 1 or more
    double probability = 0;        ///< class by the guide's curves
    double exact_probability = 0;  ///< per cent, by the log-normal tail
};

/// What can be found by the second reading. Each has its sentence and its place in the guide.
enum class FindingKind {
    DayNotValidated,         ///< a day of the plan has no sheet
    DayWithoutMeasurements,  ///< a day was closed with nothing computed on its sheet
    SheetCutShort,           ///< the file ends within the day's sheet
    DayBeyondPlan,           ///< a sheet of a day that the plan no longer has
    PlanChanged,             ///< hours, rows or tasks of the plan are other than the sheet's
    AgentChanged,            ///< a contaminant's name, limits, unit, time or group likewise
    CellWiped,               ///< a cell of the plan's columns is blank on the sheet
    CommaLocale,             ///< the day was computed under a decimal comma
    DoesNotFollow,           ///< a figure that follows neither from the samples nor from its cells
    SampleMisread,           ///< a sample whose text is more than the number that the sheet reads
    MeansLost,               ///< MG and GSD at zero: the task wasn't validated again
    SampleEmptied,           ///< C3 of the first row, emptied by the search for a group
    FirstDaysTime,           ///< row 6 of the second task, with the first day's hours
    SumNotSpread,            ///< a group's sum did not reach all its members
    SumErased,               ///< a group's sum was blanked, being equal to its first row's index
    GroupSpansTasks,         ///< one group number in several tasks
    GroupWithoutShortLimit,  ///< a group number above 6: not judged in short exposure
    EcPlusElsewhere,         ///< a mixture's EC+ landed in another row's Prob., and is lost
    EcPlusAsProbability,     ///< the same, and it stayed there as a probability
    RowsBeyondContaminants,  ///< more rows on the day than contaminants in the task
    ContaminantsBeyondRows,  ///< fewer
    NoLimitForSamples,       ///< no VLA-EC at T.M. 15, or no VLA-ED at T.M. 30: always SI
    NoSamplingTime,          ///< T.M. neither 15 nor 30: not looked at
    ClassDiffers,            ///< the class isn't that of the exact log-normal tail
    RoundedIndex,            ///< an index is 0.1 or 1, or on its side of them, by rounding alone
    OverallZero,             ///< IG is 0 for want of the third day
    OverallMissing,          ///< IG was not computed
    StaleFinal               ///< a value of an earlier run stays in the final table
};

/// One row of "Lo que conviene revisar".
struct Finding {
    FindingKind kind{};
    int day = 0;            ///< 1 to 3, 0 for all
    int task = 0;           ///< 1 to 3, 0 for all
    int contaminant = 0;    ///< 1 to 6, 0 for all
    std::vector<int> rows;  ///< all rows of the sheet concerned, rising; the first is the place
    std::string name;       ///< of the contaminant as the sheet or the plan has it, "" for all
    std::string what;       ///< the column or thing: "Indice", "Indic.+", "Prob.", "horas"...
    std::string sheet;      ///< what the sheet says; "en blanco" for a blank cell
    std::string plain;      ///< what the plain computation says
    std::string why;        ///< one Spanish sentence
    std::string anchor;     ///< heading of docs/guia.md that tells more, as its HTML id
    /// Whether one of the day's answers or sentences hangs on this: it changes when this alone is
    /// mended on the sheet, or when this alone is left as it is in the plain computation.
    bool changes_verdict = false;
};

/// What the preliminary test of UNE-EN 689:2018 (5.5.2) says of a contaminant or a group.
struct PreliminaryTest {
    enum class Outcome {
        TooFew,            ///< fewer than three results, none above the limit
        Compliance,        ///< none above 0.1, 0.15, 0.2 of the limit with 3, 4, 5 results
        NoCompliance,      ///< one above the limit, with any number of results
        MoreMeasurements,  ///< neither; also with six or more results, where it isn't this test's
        NoLimit            ///< no VLA-ED to compare with
    };
    struct Result {
        int day = 0;
        double index = 0;  ///< exposure of the day over the limit, plain and unrounded
    };
    int task = 0;                     ///< of the contaminant; 0 for a group
    int contaminant = 0;              ///< 0 for a group
    int group = 0;                    ///< of a group with two rows or more; 0 for a contaminant
    std::string name;                 ///< of a group, its members' names with " + " between them
    std::vector<Result> results;      ///< one for each validated day with samples
    std::optional<double> threshold;  ///< 0.1, 0.15 or 0.2; nothing outside 3 to 5 results
    Outcome outcome{};
    std::string sentence;  ///< the outcome in Spanish
};

/// What the reading of the file passed over.
struct Remark {
    int line = 0;      ///< of the file, from 1; 0 when it isn't about one
    std::string text;  ///< in Spanish, one sentence
};

/// An evaluation as it is handed over: what is shown, already judged. Plain data; all texts are
/// UTF-8 and none is escaped. Texts of the file may hold anything, control characters included.
struct Report {
    std::vector<CompanyField> company;  ///< nineteen, in the order of the screen
    int days_planned = 0;               ///< as in the file, 0 to 3 after cutting
    int tasks_planned = 0;              ///< likewise
    std::vector<PlanLine> plan;         ///< day by day, within it task by task
    std::vector<Agent> agents;          ///< task by task
    std::vector<Day> days;              ///< by day: the plan's, and others that hold a sheet
    std::vector<FinalRow> final_table;  ///< by row
    std::vector<IndexSeries> index_series;
    std::vector<ProbabilityPlot> probability_plots;  ///< by day, within it by row
    std::vector<LadderPoint> ladder_points;          ///< by day, within it by row
    std::vector<Finding> findings;  ///< by day, within it by row; empty: nothing found
    std::vector<PreliminaryTest> preliminary_tests;  ///< contaminants by row, then groups
    std::vector<Remark> remarks;                     ///< by line; empty: the file was read whole
};

/// A file that holds no evaluation, or can't be read; `what()` says so in Spanish, without its
/// name.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The report of an evaluation file. Throws `Refused`; no other content of a file makes it throw.
Report ReadReport(const std::string& file_name);

/// The report of an evaluation in memory, without remarks.
Report MakeReport(const EvaluacionRecord& record);

}  // namespace velmora::report
