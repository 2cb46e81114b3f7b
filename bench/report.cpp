#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "core/record.h"
#include "report/command_line.h"
#include "report/html.h"
#include "report/report.h"
#include "report/session.h"
#include "resident_memory.h"
#include "rows.h"
#include "store/evaluation_file.h"

namespace velmora::bench {

namespace {

constexpr double kMegabyte = 1024 * 1024;

/// Reports of so many files, each the example, one after another. Returns the resident memory then.
double MemoryAfter(const Places& places, std::size_t files) {
    report::Order order;
    order.summary = true;
    order.report = places.scratch + "/report.html";
    order.replace = true;
    order.evaluations = {places.examples};
    for (std::size_t i = 0; i < files; ++i) {
        std::ostringstream said;
        if (report::Run(order, {said, said, false}) != 0) throw std::runtime_error(said.str());
    }
    return static_cast<double>(ResidentMemory()) / kMegabyte;
}

}  // namespace

Rows MeasureReport(const Places& places) {
    constexpr int kRepetitions = 101;
    constexpr double kBudget = 20;
    constexpr double kMemoryBudget = 1.05;
    EvaluacionRecord record;
    const std::string written = places.scratch + "/made.html";
    Rows rows = {Compare("a report of three days", "reading the same evaluation", {[&] {
                             std::ofstream page(written, std::ios::binary);
                             report::WriteHtml(report::ReadReport(places.examples), page);
                         }},
                         {[&] { ReadEvaluation(places.examples, record); }}, kRepetitions,
                         kBudget)};
    if (std::filesystem::file_size(written) == 0) throw std::logic_error("no report");
    const double at_first = MemoryAfter(places, 20);
    rows.push_back({"resident memory after 1,000 reports", "after 20 of them",
                    MemoryAfter(places, 980), at_first, "MB", kMemoryBudget});
    return rows;
}

}  // namespace velmora::bench
