#include "report/normal.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace velmora::report {

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
