#include "measure.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <utility>

namespace velmora::bench {

namespace {

std::string Fixed(double value, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string Figure(double value, const std::string& unit) {
    const int decimals = value < 10 ? 2 : value < 100 ? 1 : 0;
    return Fixed(value, decimals) + " " + unit;
}

}  // namespace

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

double Time(const Side& side) {
    side.prepare();
    const auto start = std::chrono::steady_clock::now();
    side.act();
    const std::chrono::duration<double, std::micro> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
}

double ProcessorTime() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

Row CompareValues(std::string name, std::string yardstick, std::string unit,
                  const std::function<double()>& ours, const std::function<double()>& bare,
                  int repetitions, std::optional<double> budget) {
    std::vector<double> of_ours;
    std::vector<double> of_bare;
    for (int i = 0; i <= repetitions; ++i) {
        const bool ours_first = i % 2 == 0;
        const double first = ours_first ? ours() : bare();
        const double second = ours_first ? bare() : ours();
        if (i == 0) continue;  // both warm
        of_ours.push_back(ours_first ? first : second);
        of_bare.push_back(ours_first ? second : first);
    }
    return {std::move(name),
            std::move(yardstick),
            Median(std::move(of_ours)),
            Median(std::move(of_bare)),
            std::move(unit),
            budget};
}

Row Compare(std::string name, std::string yardstick, const Side& ours, const Side& bare,
            int repetitions, std::optional<double> budget) {
    return CompareValues(
        std::move(name), std::move(yardstick), "µs", [&] { return Time(ours); },
        [&] { return Time(bare); }, repetitions, budget);
}

void Print(const std::vector<Row>& rows, std::ostream& out) {
    out << "| What | Velmora | Against | | Ratio | Budget |\n"
        << "|---|---:|---|---:|---:|---:|\n";
    for (const Row& row : rows) {
        out << "| " << row.name << " | " << Figure(row.ours, row.unit) << " | " << row.yardstick
            << " | " << Figure(row.bare, row.unit) << " | " << Fixed(row.Ratio(), 2) << " | ";
        if (row.budget) {
            out << (row.of_value ? Figure(*row.budget, row.unit) : Fixed(*row.budget, 2))
                << (row.Over() ? " **over**" : "");
        }
        out << " |\n";
    }
}

}  // namespace velmora::bench
