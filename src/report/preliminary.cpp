#include "report/preliminary.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>

namespace velmora::report {

namespace {

using Outcome = PreliminaryTest::Outcome;

constexpr std::size_t kFewestResults = 3;
constexpr std::array<double, 3> kThresholds = {0.1, 0.15, 0.2};  // of 3, 4 and 5 results
constexpr double kLastDigits = 1e-9;

bool NoneAbove(const PreliminaryTest& test, double limit) {
    return std::all_of(test.results.begin(), test.results.end(),
                       [limit](const auto& result) { return result.index <= limit + kLastDigits; });
}

Outcome OutcomeOf(const PreliminaryTest& test) {
    if (!NoneAbove(test, 1)) return Outcome::NoCompliance;
    if (test.results.size() < kFewestResults) return Outcome::TooFew;
    if (test.threshold && NoneAbove(test, *test.threshold)) return Outcome::Compliance;
    return Outcome::MoreMeasurements;
}

std::string_view SentenceOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::TooFew:
            return "Faltan resultados: el ensayo preliminar pide al menos tres.";
        case Outcome::Compliance:
            return "Conformidad: ningún resultado pasa de la fracción del límite que pide el "
                   "ensayo.";
        case Outcome::NoCompliance:
            return "No conformidad: hay un resultado por encima del límite.";
        case Outcome::MoreMeasurements:
            return "Sin decisión: hacen falta más mediciones, al menos seis en total, y el ensayo "
                   "estadístico.";
        case Outcome::NoLimit:
            return "Sin VLA-ED no hay con qué comparar.";
    }
    return "";
}

std::vector<PreliminaryTest::Result> ResultsOf(const std::vector<DayCase>& days, int row) {
    std::vector<PreliminaryTest::Result> results;
    for (const DayCase& day : days) {
        if (const auto index = day.exact.rows(row).index) results.push_back({day.day, *index});
    }
    return results;
}

PreliminaryTest OfContaminant(const EvaluacionRecord& record, const std::vector<DayCase>& days,
                              int task, int c) {
    PreliminaryTest test;
    test.task = task;
    test.contaminant = c;
    test.name = record.NombreContaminante(task, c);
    if (record.VlaEd(task, c) == 0) {
        test.outcome = Outcome::NoLimit;
        test.sentence = SentenceOf(test.outcome);
        return test;
    }
    test.results = ResultsOf(days, RowOf(task, c));
    Judge(test);
    return test;
}

/// The rows of the plan's contaminants that bear the group's number.
std::vector<int> RowsOfGroup(const EvaluacionRecord& record, int group) {
    std::vector<int> rows;
    for (int row = 1; row <= kRows; ++row) {
        const int task = TaskOf(row);
        const int c = ContaminantOf(row);
        const bool member = record.Aditivo(task, c) == group;
        if (member && c <= ContaminantsOf(record, task)) rows.push_back(row);
    }
    return rows;
}

PreliminaryTest OfGroup(const EvaluacionRecord& record, const std::vector<DayCase>& days, int group,
                        const std::vector<int>& rows) {
    PreliminaryTest test;
    test.group = group;
    for (const int row : rows) {
        test.name.append(test.name.empty() ? "" : " + ");
        test.name.append(record.NombreContaminante(TaskOf(row), ContaminantOf(row)));
    }
    for (const DayCase& day : days) {
        for (const int row : rows) {
            const auto sum = day.exact.combined_index(row);
            if (!sum) continue;
            test.results.push_back({day.day, *sum});
            break;
        }
    }
    Judge(test);
    return test;
}

}  // namespace

void Judge(PreliminaryTest& test) {
    const std::size_t n = test.results.size();
    if (n >= kFewestResults && n < kFewestResults + kThresholds.size()) {
        test.threshold = kThresholds.at(n - kFewestResults);
    }
    test.outcome = OutcomeOf(test);
    test.sentence = SentenceOf(test.outcome);
}

std::vector<PreliminaryTest> PreliminaryTests(const EvaluacionRecord& record,
                                              const std::vector<DayCase>& days) {
    std::vector<PreliminaryTest> tests;
    std::set<int> groups;
    for (int task = 1; task <= 3; ++task) {
        for (int c = 1; c <= ContaminantsOf(record, task); ++c) {
            tests.push_back(OfContaminant(record, days, task, c));
            if (record.Aditivo(task, c) != 0) groups.insert(record.Aditivo(task, c).Value());
        }
    }
    for (const int group : groups) {
        const auto rows = RowsOfGroup(record, group);
        if (rows.size() > 1) tests.push_back(OfGroup(record, days, group, rows));
    }
    return tests;
}

}  // namespace velmora::report
