#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "report/plots.h"
#include "report/svg.h"
#include "report/text.h"

namespace velmora::report {

namespace {

constexpr double kHeading = 26;
constexpr double kLegend = 62;
constexpr double kPanelHeight = 168;
constexpr std::size_t kLeastColumns = 3;
constexpr double kReach = 1.7;  ///< normal quantiles shown, on either side of the median

/// The quantiles of the standard normal distribution at 10, 50 and 90 %.
constexpr std::array<std::pair<double, const char*>, 3> kShares = {
    {{-1.2815515655446004, "10"}, {0, "50"}, {1.2815515655446004, "90"}}};

/// One small picture: its frame, and its axes.
struct Panel {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    LogAxis axis{};

    double X(double z) const { return left + (z + kReach) / (2 * kReach) * (right - left); }
};

/// The concentrations of the axis: the samples, the line, and the levels that aren't far away.
LogAxis AxisOf(const ProbabilityPlot& plot, double from, double to) {
    std::vector<double> values;
    for (const auto& point : plot.points) values.push_back(point.value);
    values.push_back(plot.mg);
    const auto [low, high] = std::ranges::minmax(values);
    constexpr double kFar = 30;
    for (const auto& level : {plot.vla_ed, plot.ec_plus}) {
        if (level) values.push_back(std::clamp(*level, low / kFar, high * kFar));
    }
    // A little room, so that nothing stands on the frame.
    const auto [least, greatest] = std::ranges::minmax(values);
    values.push_back(least * 0.9);
    values.push_back(greatest * 1.1);
    return AxisFor(values, from, to, 5);
}

void DrawAxes(Picture& picture, const Panel& panel) {
    for (const double value : panel.axis.Ticks(6)) {
        const double y = panel.axis.At(value);
        picture.Line({panel.left, y}, {panel.right, y}, "rejilla");
        picture.Text({panel.left - 3, y + 3}, Rounded(value), "menor", Anchor::End);
    }
    for (const auto& [z, share] : kShares) {
        picture.Line({panel.X(z), panel.top}, {panel.X(z), panel.bottom}, "rejilla");
        picture.Text({panel.X(z), panel.bottom + 10}, share, "menor", Anchor::Middle);
    }
    picture.Box({panel.left, panel.top}, panel.right - panel.left, panel.bottom - panel.top,
                "marco");
}

/// A level with its name; one that is off the axis stands at its end, with an arrow.
void DrawLevel(Picture& picture, const Panel& panel, std::optional<double> level,
               const std::string& name, const std::string& kind, bool above) {
    if (!level || *level <= 0) return;
    const double y = panel.axis.At(*level);
    const bool over = *level > panel.axis.high * 1.0001;
    const bool under = *level < panel.axis.low * 0.9999;
    const std::string text = over ? name + " ↑" : under ? name + " ↓" : name;
    if (!over && !under) picture.Line({panel.left, y}, {panel.right, y}, kind);
    const bool up = (above || under) && y - 10 > panel.top;
    const Point at{above ? panel.right - 2 : panel.left + 2, up ? y - 3 : y + 9};
    picture.TextOver(at, text, "menor", above ? Anchor::End : Anchor::Start);
}

/// The line of MG and GSD, as far as it is inside of the frame.
void DrawLine(Picture& picture, const Panel& panel, const ProbabilityPlot& plot) {
    if (plot.mg <= 0 || plot.gsd < 1) return;
    const double slope = std::log(plot.gsd);
    double reach_low = -kReach;
    double reach_high = kReach;
    if (slope > 0) {
        reach_low = std::max(reach_low, std::log(panel.axis.low / plot.mg) / slope);
        reach_high = std::min(reach_high, std::log(panel.axis.high / plot.mg) / slope);
    }
    if (reach_low >= reach_high) return;
    const auto at = [&](double z) {
        return Point{panel.X(z), panel.axis.At(plot.mg * std::exp(z * slope))};
    };
    picture.Line(at(reach_low), at(reach_high), "ajuste");
}

void DrawPanel(Picture& picture, const ProbabilityPlot& plot, double left, double top,
               double width) {
    Panel panel{left + 30, top + 28, left + width - 4, top + kPanelHeight - 22, {}};
    panel.axis = AxisOf(plot, panel.bottom, panel.top);
    const std::string name = Whole(plot.contaminant) + "  " + Shown(plot.name);
    const auto letters = static_cast<std::size_t>((width - 6) / 5.2);
    picture.Text({left + 4, top + 10}, Fitting(name, letters), "fuerte pequeno");
    picture.Text({left + 4, top + 22}, Fitting(UnitShown(plot.unit), letters), "menor");
    DrawAxes(picture, panel);
    const bool ed_above = plot.vla_ed.value_or(0) >= plot.ec_plus.value_or(0);
    DrawLevel(picture, panel, plot.vla_ed, "VLA-ED", "nivel-ed", ed_above);
    DrawLevel(picture, panel, plot.ec_plus, "EC+", "nivel-ec", true);
    DrawLine(picture, panel, plot);
    for (const auto& point : plot.points) {
        picture.DayMark(1, {panel.X(point.z), panel.axis.At(point.value)});
    }
}

void DrawLegend(Picture& picture, double y) {
    double x = 8;
    picture.DayMark(1, {x + 4, y - 4});
    picture.Text({x + 14, y}, "muestra, en (i − 3/8) / (n + 1/4)", "rotulo");
    x += 214;
    const std::array<std::pair<const char*, const char*>, 3> lines = {
        {{"ajuste", "recta de MG y GSD"},
         {"nivel-ed", "VLA-ED"},
         {"nivel-ec", "EC+: VLA-EC o 3 × VLA-ED"}}};
    const std::array<double, 3> widths = {154, 90, 0};
    for (std::size_t i = 0; i < lines.size(); ++i) {
        picture.Line({x, y - 4}, {x + 26, y - 4}, lines.at(i).first);
        picture.Text({x + 32, y}, lines.at(i).second, "rotulo");
        x += widths.at(i);
    }
    picture.Text({8, y + 18},
                 "Eje horizontal: probabilidad acumulada en %, escala normal. Eje vertical: "
                 "concentración, en la unidad de cada gráfico, escala logarítmica.",
                 "rotulo");
}

using Plots = std::vector<const ProbabilityPlot*>;

/// The day's plots, a list for each task.
std::vector<Plots> RowsOf(const Report& report, int day) {
    std::vector<Plots> rows;
    int task = 0;
    for (const ProbabilityPlot& plot : report.probability_plots) {
        if (plot.day != day) continue;
        if (plot.task != task) rows.emplace_back();
        task = plot.task;
        rows.back().push_back(&plot);
    }
    return rows;
}

/// The longest row fills the picture, unless it is a short one.
double WidthOfPanels(const std::vector<Plots>& rows) {
    std::size_t columns = kLeastColumns;
    for (const Plots& row : rows) columns = std::max(columns, row.size());
    return kPictureWidth / static_cast<double>(columns);
}

}  // namespace

std::string ProbabilityPicture(const Report& report, int day) {
    const std::vector<Plots> rows = RowsOf(report, day);
    if (rows.empty()) return "";
    const double height = static_cast<double>(rows.size()) * (kHeading + kPanelHeight) + kLegend;
    const std::string number = Whole(day);
    Picture picture("muestras-" + number, kPictureWidth, height,
                    "Muestras de la jornada " + number + " en papel de probabilidad log-normal",
                    "Un gráfico por contaminante, una fila por tarea. Si las muestras siguen la "
                    "recta, su distribución se parece a una log-normal.");
    const double width = WidthOfPanels(rows);
    double top = 0;
    for (const Plots& row : rows) {
        picture.Text({4, top + 16}, "Tarea " + Whole(row.front()->task), "fuerte");
        top += kHeading;
        double left = 0;
        for (const ProbabilityPlot* plot : row) {
            DrawPanel(picture, *plot, left, top, width);
            left += width;
        }
        top += kPanelHeight;
    }
    DrawLegend(picture, top + 24);
    return picture.Markup();
}

}  // namespace velmora::report
