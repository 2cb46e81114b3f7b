#pragma once

#include <cstddef>
#include <vector>

namespace velmora::report {

/// The share of the standard normal distribution above z, 0 to 1: erfc(z / sqrt 2) / 2.
double NormalTail(double z);

/// The z below which a share of 0 to 1, both excluded, of the standard normal distribution lies;
/// found by halving an interval of -40 to 40 until it can't be halved.
double NormalQuantile(double share);

/// The quantiles of (i - 3/8) / (n + 1/4) for i = 1 to n, with n = `count` from 0 to 6. They are
/// computed once in a run.
const std::vector<double>& PlottingPositions(std::size_t count);

/// Per cent of a log-normal distribution above `limit`: its geometric mean `mg` and the limit above
/// 0, its geometric deviation `gsd` 1 or more. With a deviation of 1 all of it lies at `mg`, and a
/// limit there counts as reached.
double PercentAbove(double limit, double mg, double gsd);

/// The class of an exact percentage: the least of 0.001, 0.01, 0.1, 1 and 5 that isn't below it, 50
/// when all are.
double ClassOfPercent(double percent);

}  // namespace velmora::report
