#include <algorithm>
#include <optional>
#include <vector>

#include "report/plots.h"
#include "report/svg.h"
#include "report/text.h"

namespace velmora::report {

namespace {

// Places, in units of the picture.
constexpr double kNames = 8;
constexpr double kZero = 222;  ///< where an index of 0 stands, ahead of the axis
constexpr double kFrom = 244;
constexpr double kTo = 704;
constexpr double kTop = 40;
constexpr double kRow = 26;
constexpr double kHeading = 24;

/// The days' marks stand under one another, so that equal indices are all seen.
double PlaceOfDay(double middle, int day) { return middle + (day - 2) * 7; }

LogAxis AxisOf(const Report& report) {
    std::vector<double> values = {0.05, 2};
    for (const IndexSeries& series : report.index_series) {
        for (const auto& index : series.days) {
            if (index.value_or(0) > 0) values.push_back(*index * 0.9);
        }
        if (series.overall.value_or(0) > 0) values.push_back(*series.overall);
    }
    return AxisFor(values, kFrom, kTo);
}

bool HasZero(const Report& report) {
    return std::ranges::any_of(report.index_series, [](const IndexSeries& series) {
        return std::ranges::find(series.days, std::optional(0.0)) != series.days.end();
    });
}

double HeightOfRows(const Report& report) {
    double height = 0;
    int task = 0;
    for (const IndexSeries& series : report.index_series) {
        if (series.task != task) height += kHeading;
        task = series.task;
        height += kRow;
    }
    return height;
}

void DrawAxis(Picture& picture, const Report& report, const LogAxis& axis, double bottom) {
    constexpr std::size_t kMostTicks = 12;
    for (const double value : axis.Ticks(kMostTicks)) {
        const double x = axis.At(value);
        picture.Line({x, kTop}, {x, bottom}, "rejilla");
        picture.Text({x, kTop - 8}, Rounded(value), "cifra", Anchor::Middle);
        picture.Text({x, bottom + 14}, Rounded(value), "cifra", Anchor::Middle);
    }
    for (const double value : {0.1, 1.0}) {
        const double x = axis.At(value);
        picture.Line({x, kTop}, {x, bottom}, "umbral");
        picture.Text({x, kTop - 22}, value < 1 ? "VLA/10" : "VLA", "fuerte", Anchor::Middle);
    }
    if (HasZero(report)) {
        picture.Line({kZero, kTop}, {kZero, bottom}, "rejilla");
        picture.Text({kZero, kTop - 8}, "0", "cifra", Anchor::Middle);
    }
    picture.Box({kFrom, kTop}, kTo - kFrom, bottom - kTop, "marco");
    picture.Text({(kFrom + kTo) / 2, bottom + 30},
                 "Índice de exposición (sin unidades, escala logarítmica)", "rotulo",
                 Anchor::Middle);
}

void DrawSeries(Picture& picture, const IndexSeries& series, const LogAxis& axis, double top) {
    const double middle = top + kRow / 2;
    picture.Line({kNames, top + kRow}, {kTo, top + kRow}, "hilo");
    constexpr std::size_t kNameLetters = 34;
    const std::string name = Whole(series.contaminant) + "  " + Shown(series.name);
    picture.Text({kNames, middle + 4}, Fitting(name, kNameLetters), "rotulo");
    if (series.overall.value_or(0) > 0) {
        const double x = axis.At(*series.overall);
        picture.Line({x, top + 2}, {x, top + kRow - 2}, "ig");
    }
    for (int day = 1; day <= 3; ++day) {
        const auto& index = series.days.at(static_cast<std::size_t>(day - 1));
        if (!index) continue;
        const double x = *index > 0 ? axis.At(*index) : kZero;
        picture.DayMark(day, {x, PlaceOfDay(middle, day)});
    }
}

void DrawLegend(Picture& picture, double y) {
    double x = kNames + 4;
    for (int day = 1; day <= 3; ++day) {
        picture.DayMark(day, {x, y - 4});
        picture.Text({x + 10, y}, "jornada " + Whole(day), "rotulo");
        x += 82;
    }
    picture.Line({x, y - 14}, {x, y + 4}, "ig");
    picture.Text({x + 10, y}, "IG, media geométrica de los tres días", "rotulo");
}

std::string DescriptionOf(const Report& report) {
    std::string text =
        "Cada fila es un contaminante de una tarea; cada marca, su índice en una "
        "jornada. ";
    std::ptrdiff_t above = 0;
    for (const IndexSeries& series : report.index_series) {
        above +=
            std::ranges::count_if(series.days, [](const auto& i) { return i.value_or(0) > 1; });
    }
    text += above == 0 ? "Ningún índice pasa de 1." : Whole(above) + " pasan de 1.";
    return text + " Las cifras están en las tablas de cada jornada y en la tabla final.";
}

}  // namespace

std::string IndexPicture(const Report& report) {
    if (report.index_series.empty()) return "";
    const double bottom = kTop + HeightOfRows(report);
    const double legend = bottom + 50;
    Picture picture("indices", kPictureWidth, legend + 14,
                    "Índice de cada contaminante en cada jornada", DescriptionOf(report));
    const LogAxis axis = AxisOf(report);
    DrawAxis(picture, report, axis, bottom);
    double top = kTop;
    int task = 0;
    for (const IndexSeries& series : report.index_series) {
        if (series.task != task) {
            picture.Text({kNames, top + 16}, "Tarea " + Whole(series.task), "fuerte");
            picture.Line({kNames, top + kHeading}, {kTo, top + kHeading}, "hilo");
            top += kHeading;
            task = series.task;
        }
        DrawSeries(picture, series, axis, top);
        top += kRow;
    }
    DrawLegend(picture, legend);
    return picture.Markup();
}

}  // namespace velmora::report
