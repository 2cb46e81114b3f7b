#include "report/plain.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "report/normal.h"
#include "runtime/error.h"
#include "stats/statistics.h"

namespace velmora::report {

namespace {

constexpr double kHoursOfWorkday = 8;

/// What a computation gives; nothing where it meets a run-time error.
template <class Computation>
auto Guarded(Computation computation) -> std::optional<decltype(computation())> {
    try {
        return computation();
    } catch (const ErrorEjecucion&) {
        return std::nullopt;
    }
}

std::optional<Estimate> EstimateOf(const Array<double, 1, 6>& samples) {
    Muestras series;
    for (int i = 1; i <= kSamples; ++i) series(i) = samples(i);
    const auto estimate = Guarded([&] { return EstimateOf(series); });
    return estimate ? *estimate : std::nullopt;
}

/// The sums of the members' samples, place by place, up to the first that one of them lacks.
Array<double, 1, 6> SumsOf(const ByRow<RowInput>& inputs, const std::vector<int>& rows) {
    Array<double, 1, 6> sums{};
    for (int i = 1; i <= kSamples; ++i) {
        double sum = 0;
        for (const int row : rows) {
            const double sample = inputs(row).samples(i);
            if (sample == 0) return sums;
            sum += sample;
        }
        sums(i) = sum;
    }
    return sums;
}

Unit UnitOfRow(const RowInput& input, const RowFigures& figures, int row) {
    Unit unit{.rows = {row},
              .ec_plus = {},
              .mg_plus = figures.mg,
              .gsd_plus = figures.gsd,
              .probability = {}};
    const double limit = input.ShortLimit();
    if (limit > 0 && std::isfinite(limit)) unit.ec_plus = limit;
    return unit;
}

/// Nothing where a member has no limit or no mean.
std::optional<double> LimitOfMixture(const ByRow<RowInput>& inputs,
                                     const ByRow<RowFigures>& figures,
                                     const std::vector<int>& rows) {
    double sum = 0;
    double weighted = 0;
    for (const int row : rows) {
        const double limit = inputs(row).ShortLimit();
        const auto mmp = figures(row).mmp;
        if (!mmp || limit <= 0) return std::nullopt;
        sum += *mmp;
        weighted += *mmp / limit;
    }
    const double limit = sum / weighted;
    if (weighted <= 0 || !std::isfinite(limit)) return std::nullopt;
    return limit;
}

Unit UnitOfMixture(const ByRow<RowInput>& inputs, const ByRow<RowFigures>& figures,
                   std::vector<int> rows) {
    Unit unit;
    unit.ec_plus = LimitOfMixture(inputs, figures, rows);
    if (const auto estimate = EstimateOf(SumsOf(inputs, rows))) {
        unit.mg_plus = estimate->mg.Value();
        unit.gsd_plus = estimate->gsd.Value();
    }
    unit.rows = std::move(rows);
    return unit;
}

/// The rows of a task, the first `contaminants` of them, that bear the group's number.
std::vector<int> MembersOf(const ByRow<RowInput>& inputs, int task, int contaminants,
                           double group) {
    std::vector<int> rows;
    for (int c = 1; c <= contaminants; ++c) {
        const int row = RowOf(task, c);
        if (inputs(row).in_use && inputs(row).group == group) rows.push_back(row);
    }
    return rows;
}

ByRow<std::optional<double>> CombinedIndices(const ByRow<RowInput>& inputs,
                                             const ByRow<RowFigures>& figures) {
    ByRow<std::optional<double>> combined;
    for (int row = 1; row <= kRows; ++row) {
        if (!figures(row).index) continue;
        if (inputs(row).group == 0) {
            combined(row) = figures(row).index;
            continue;
        }
        double sum = 0;
        for (int other = 1; other <= kRows; ++other) {
            if (inputs(other).group == inputs(row).group) sum += figures(other).index.value_or(0);
        }
        if (std::isfinite(sum)) combined(row) = sum;
    }
    return combined;
}

}  // namespace

std::optional<double> Unit::PercentAboveLimit() const {
    if (!ec_plus || !mg_plus || !gsd_plus || *mg_plus <= 0 || *gsd_plus < 1) return std::nullopt;
    return PercentAbove(*ec_plus, *mg_plus, *gsd_plus);
}

std::optional<double> ClassOfCurves(double limit, double mg, double gsd) {
    if (mg <= 0) return std::nullopt;
    return Guarded([&] { return ProbabilidadExceso(Doble(limit) / mg, gsd).Value(); });
}

double TwoDecimals(double value) {
    // Away from a half, where the digits decide, and below where a Double lacks hundredths.
    constexpr double kHair = 1e-6;
    const double hundredths = value * 100;
    const double whole = std::floor(hundredths);
    if (std::fabs(value) < 1e6 && std::fabs(hundredths - whole - 0.5) > kHair) {
        return std::nearbyint(hundredths) / 100;
    }
    return CompleteNumber(FormatoDosDecimales(value), DecimalSeparator()).value_or(0);
}

bool ReachesLimit(const RowInput& input) {
    const double daily = 3 * input.vla_ed;
    const double limit = input.minutes == 30 && daily > 0 ? daily : input.ShortLimit();
    if (limit <= 0) return false;
    return std::any_of(input.samples.begin(), input.samples.end(),
                       [limit](double sample) { return sample >= limit; });
}

RowFigures ComputeRow(const RowInput& input) {
    RowFigures figures;
    const auto estimate = input.in_use ? EstimateOf(input.samples) : std::nullopt;
    if (!estimate) return figures;
    figures.mg = estimate->mg.Value();
    figures.gsd = estimate->gsd.Value();
    const auto mmp = Guarded([&] { return estimate->Mean(); });
    if (!mmp) return figures;
    figures.mmp = mmp->Value();
    // The sheet, too, takes the index from the mean before it is cut.
    const auto index = Guarded([&] {
        return input.vla_ed == 0 ? Doble(0) : input.hours * *mmp / (input.vla_ed * kHoursOfWorkday);
    });
    if (index) figures.index = index->Value();
    return figures;
}

RowFigures TwoDecimals(const RowFigures& figures) {
    const auto cut = [](std::optional<double> value) {
        return value ? std::optional(TwoDecimals(*value)) : std::nullopt;
    };
    return {cut(figures.mmp), cut(figures.index), cut(figures.mg), cut(figures.gsd)};
}

std::vector<Unit> UnitsOfTask(const ByRow<RowInput>& inputs, const ByRow<RowFigures>& figures,
                              int task, int contaminants, double last_group) {
    std::vector<Unit> units;
    for (int c = 1; c <= contaminants; ++c) {
        const int row = RowOf(task, c);
        const double group = inputs(row).group;
        if (!inputs(row).in_use || group > last_group) continue;
        if (group == 0) {
            units.push_back(UnitOfRow(inputs(row), figures(row), row));
            continue;
        }
        auto members = MembersOf(inputs, task, contaminants, group);
        if (members.front() != row) continue;
        units.push_back(members.size() == 1 ? UnitOfRow(inputs(row), figures(row), row)
                                            : UnitOfMixture(inputs, figures, std::move(members)));
    }
    for (Unit& unit : units) {
        if (!unit.ec_plus || !unit.mg_plus || !unit.gsd_plus) continue;
        unit.probability = ClassOfCurves(*unit.ec_plus, *unit.mg_plus, *unit.gsd_plus);
    }
    return units;
}

DayFigures ComputeDay(const ByRow<RowInput>& inputs, const ByRow<RowFigures>& rows) {
    DayFigures day;
    day.rows = rows;
    day.combined_index = CombinedIndices(inputs, day.rows);
    for (int task = 1; task <= 3; ++task) {
        for (Unit& unit : UnitsOfTask(inputs, day.rows, task, kRowsPerTask,
                                      std::numeric_limits<double>::infinity())) {
            day.units.push_back(std::move(unit));
        }
    }
    return day;
}

}  // namespace velmora::report
