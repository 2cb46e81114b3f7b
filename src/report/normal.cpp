#include "report/normal.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace velmora::report {

namespace {

constexpr std::size_t kMostPositions = 6;

double PlottingPosition(std::size_t i, std::size_t n) {
    return NormalQuantile((static_cast<double>(i) - 3.0 / 8) / (static_cast<double>(n) + 1.0 / 4));
}

}  // namespace

double NormalTail(double z) { return std::erfc(z / std::numbers::sqrt2) / 2; }

double NormalQuantile(double share) {
    double low = -40;
    double high = 40;
    for (;;) {
        const double middle = (low + high) / 2;
        if (middle <= low || middle >= high) return middle;
        (NormalTail(-middle) < share ? low : high) = middle;
    }
}

const std::vector<double>& PlottingPositions(std::size_t count) {
    static const std::array known = [] {
        std::array<std::vector<double>, kMostPositions + 1> all;
        for (std::size_t n = 1; n < all.size(); ++n) {
            for (std::size_t i = 1; i <= n; ++i) all.at(n).push_back(PlottingPosition(i, n));
        }
        return all;
    }();
    return known.at(count);
}

double PercentAbove(double limit, double mg, double gsd) {
    const double spread = std::log(gsd);
    if (spread == 0) return limit > mg ? 0 : 100;
    return 100 * NormalTail(std::log(limit / mg) / spread);
}

double ClassOfPercent(double percent) {
    for (const double limit : {0.001, 0.01, 0.1, 1.0, 5.0}) {
        if (percent <= limit) return limit;
    }
    return 50;
}

}  // namespace velmora::report
