#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

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

/// Copies of the example in a folder of their own.
std::vector<std::string> Copies(const Places& places, int count) {
    const std::filesystem::path folder = places.scratch + "/many";
    std::filesystem::create_directories(folder);
    std::vector<std::string> names;
    for (int i = 1; i <= count; ++i) {
        names.push_back(folder / (std::to_string(i) + ".doc"));
        std::filesystem::copy_file(places.examples, names.back(),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    return names;
}

/// A report beside each of these files, in one run. Returns the resident memory then.
double MemoryAfter(const std::vector<std::string>& evaluations) {
    report::Order order;
    order.replace = true;
    order.evaluations = evaluations;
    std::ostringstream said;
    if (report::Run(order, {said, said, false}) != 0) throw std::runtime_error(said.str());
    return static_cast<double>(ResidentMemory()) / kMegabyte;
}

double ProcessorTimeOf(const std::function<void()>& act) {
    const double start = ProcessorTime();
    act();
    return ProcessorTime() - start;
}

Row MeasureManyFiles(const Places& places) {
    constexpr double kMemoryBudget = 1.10;
    const std::vector<std::string> all = Copies(places, 1000);
    const double at_first = MemoryAfter({all.begin(), all.begin() + 20});
    const double at_last = MemoryAfter(all);
    std::filesystem::remove_all(places.scratch + "/many");
    return {"resident memory after 1,000 reports in a row",
            "after 20 of them",
            at_last,
            at_first,
            "MB",
            kMemoryBudget};
}

}  // namespace

Rows MeasureReport(const Places& places) {
    constexpr int kRepetitions = 101;
    constexpr double kBudget = 20;
    EvaluacionRecord record;
    // A new file in memory each time, as the evaluation is read from memory: no disk is measured.
    const std::string written = "/dev/shm/velmora_bench.html";
    const auto report = [&] {
        std::filesystem::remove(written);
        return ProcessorTimeOf([&] {
            std::ofstream page(written, std::ios::binary);
            report::WriteHtml(report::ReadReport(places.examples), page);
        });
    };
    const auto reading = [&] {
        return ProcessorTimeOf([&] { ReadEvaluation(places.examples, record); });
    };
    Rows rows = {CompareValues("a report of three days, processor time",
                               "reading the same evaluation", "µs", report, reading, kRepetitions,
                               kBudget)};
    if (std::filesystem::file_size(written) == 0) throw std::logic_error("no report");
    std::filesystem::remove(written);
    rows.push_back(MeasureManyFiles(places));
    return rows;
}

}  // namespace velmora::bench
