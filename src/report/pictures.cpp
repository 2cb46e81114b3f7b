#include "report/pictures.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "report/normal.h"

namespace velmora::report {

namespace {

/// The samples that count, those ahead of the first that isn't there, rising, at their plotting
/// positions.
std::vector<ProbabilityPlot::Point> PointsOf(const RowInput& input) {
    std::vector<ProbabilityPlot::Point> points;
    for (const double sample : input.samples) {
        if (sample == 0) break;
        points.push_back({sample, 0});
    }
    std::sort(points.begin(), points.end(),
              [](const auto& a, const auto& b) { return a.value < b.value; });
    const std::vector<double>& positions = PlottingPositions(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) points[i].z = positions[i];
    return points;
}

ProbabilityPlot PlotOf(const DayCase& day, int row) {
    const RowInput& input = day.plan(row);
    ProbabilityPlot plot;
    plot.day = day.day;
    plot.row = row;
    plot.task = TaskOf(row);
    plot.contaminant = ContaminantOf(row);
    plot.name = day.Cell(row, Column::Name);
    plot.unit = day.Cell(row, Column::Unit);
    plot.points = PointsOf(input);
    plot.mg = *day.exact.rows(row).mg;
    plot.gsd = *day.exact.rows(row).gsd;
    if (input.vla_ed > 0) plot.vla_ed = input.vla_ed;
    const double limit = input.ShortLimit();
    if (limit > 0 && std::isfinite(limit)) plot.ec_plus = limit;
    return plot;
}

std::string NamesOf(const DayCase& day, const std::vector<int>& rows) {
    std::string names;
    for (const int row : rows) {
        names.append(names.empty() ? "" : " + ").append(day.Cell(row, Column::Name));
    }
    return names;
}

}  // namespace

std::vector<IndexSeries> IndexSeriesOf(const std::vector<FinalRow>& table,
                                       const std::vector<DayCase>& days) {
    std::vector<IndexSeries> all;
    for (const FinalRow& row : table) {
        if (!row.in_plan) continue;
        IndexSeries series{row.row, row.task, row.contaminant, row.name, {}, row.overall.value};
        for (const DayCase& day : days) {
            const Figure& combined = day.Shown(row.row, Column::CombinedIndex);
            series.days.at(static_cast<std::size_t>(day.day - 1)) =
                combined.value ? combined.value : day.Shown(row.row, Column::Index).value;
        }
        all.push_back(std::move(series));
    }
    return all;
}

std::vector<ProbabilityPlot> ProbabilityPlotsOf(const std::vector<DayCase>& days) {
    std::vector<ProbabilityPlot> plots;
    for (const DayCase& day : days) {
        for (int row = 1; row <= kRows; ++row) {
            if (day.exact.rows(row).mg) plots.push_back(PlotOf(day, row));
        }
    }
    return plots;
}

std::vector<LadderPoint> LadderPointsOf(const std::vector<DayCase>& days) {
    std::vector<LadderPoint> points;
    for (const DayCase& day : days) {
        for (const Unit& unit : day.exact.units) {
            const auto percent = unit.PercentAboveLimit();
            if (!percent || !unit.probability) continue;
            const int row = unit.rows.front();
            points.push_back({day.day, row, TaskOf(row), ContaminantOf(row),
                              NamesOf(day, unit.rows), *unit.ec_plus / *unit.mg_plus,
                              *unit.gsd_plus, *unit.probability, *percent});
        }
    }
    return points;
}

}  // namespace velmora::report
