#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "report/plots.h"
#include "report/svg.h"
#include "report/text.h"
#include "stats/statistics.h"

namespace velmora::report {

namespace {

constexpr double kHeight = 520;
constexpr double kLeft = 56;
constexpr double kRight = 640;
constexpr double kTop = 34;
constexpr double kBottom = 424;

/// The frame with its two axes: the ratio lies, the deviation stands.
struct Frame {
    LogAxis ratio;
    LogAxis deviation;

    Point At(double r, double gsd) const { return {ratio.At(r), deviation.At(gsd)}; }
};

Frame FrameOf(const Report& report) {
    std::vector<double> ratios = {0.5, 100};
    std::vector<double> deviations = {1, 5};
    for (const LadderPoint& point : report.ladder_points) {
        if (point.ratio > 0) ratios.push_back(point.ratio);
        if (point.gsd_plus >= 1) deviations.push_back(point.gsd_plus);
    }
    return {AxisFor(ratios, kLeft, kRight), AxisFor(deviations, kBottom, kTop, 5)};
}

double HeightOf(const LimitCurve& curve, double ratio) {
    return curve.a * std::pow(ratio, curve.b);
}

/// The ratio at which a curve reaches a deviation.
double RatioAt(const LimitCurve& curve, double gsd) { return std::pow(gsd / curve.a, 1 / curve.b); }

/// Where a curve enters and leaves the frame; both are at its right end for one that is outside.
std::pair<double, double> ReachOf(const LimitCurve& curve, const Frame& frame) {
    const double enters = std::max(frame.ratio.low, RatioAt(curve, frame.deviation.low));
    const double leaves = std::min(frame.ratio.high, RatioAt(curve, frame.deviation.high));
    return {std::min(enters, frame.ratio.high),
            std::clamp(leaves, frame.ratio.low, frame.ratio.high)};
}

/// The part of the frame above a curve, which is straight on these axes.
std::vector<Point> Above(const LimitCurve& curve, const Frame& frame) {
    const auto [enters, leaves] = ReachOf(curve, frame);
    const double low = frame.deviation.low;
    const double high = frame.deviation.high;
    return {frame.At(frame.ratio.low, high), frame.At(frame.ratio.low, low), frame.At(enters, low),
            frame.At(leaves, HeightOf(curve, leaves)), frame.At(leaves, high)};
}

/// The zones of the three sentences: what lies above the curve of 5 % is high, above that of 0.1 %
/// uncertain.
void DrawZones(Picture& picture, const Frame& frame) {
    picture.Curve(Above(kCurves[2], frame), "zona-media");
    picture.Curve(Above(kCurves[4], frame), "zona-alta");
}

void DrawAxes(Picture& picture, const Frame& frame) {
    for (const double value : frame.ratio.Ticks(14)) {
        const double x = frame.ratio.At(value);
        picture.Line({x, kTop}, {x, kBottom}, "rejilla");
        picture.Text({x, kBottom + 15}, Rounded(value), "cifra", Anchor::Middle);
    }
    std::vector<double> deviations = frame.deviation.Ticks(12);
    if (frame.deviation.high <= 5) deviations = {1, 1.5, 2, 3, 4, 5};
    for (const double value : deviations) {
        const double y = frame.deviation.At(value);
        picture.Line({kLeft, y}, {kRight, y}, "rejilla");
        picture.Text({kLeft - 6, y + 4}, Rounded(value), "cifra", Anchor::End);
    }
    picture.Text({(kLeft + kRight) / 2, kBottom + 33},
                 "EC+ / MG+: cuántas veces cabe la media en el límite (sin unidades, escala "
                 "logarítmica)",
                 "rotulo", Anchor::Middle);
    picture.Text({8, kTop - 20}, "GSD+ (sin unidades, escala logarítmica)", "rotulo");
}

/// A place on the upper and right edges of the frame as a length from the upper left corner, and
/// back.
double LengthOf(Point at) {
    return at.y <= kTop + 0.5 ? at.x - kLeft : kRight - kLeft + at.y - kTop;
}

void WriteAtLength(Picture& picture, double length, const std::string& text) {
    const double width = kRight - kLeft;
    if (length <= width) {
        picture.Text({kLeft + length, kTop - 5}, text, "fuerte", Anchor::Middle);
    } else {
        picture.Text({kRight + 6, kTop + length - width + 4}, text, "fuerte");
    }
}

/// The curves, and between their ends the classes that they part.
void DrawCurves(Picture& picture, const Frame& frame) {
    double before = 0;
    std::string name = "clase 50";
    for (auto curve = kCurves.rbegin(); curve != kCurves.rend(); ++curve) {
        const auto [enters, leaves] = ReachOf(*curve, frame);
        const Point end = frame.At(leaves, HeightOf(*curve, leaves));
        picture.Line(frame.At(enters, HeightOf(*curve, enters)), end, "curva");
        const double length = LengthOf(end);
        if (length - before > 9) WriteAtLength(picture, (before + length) / 2, name);
        before = length;
        name = (curve == kCurves.rbegin() ? "clase " : "") + Rounded(curve->rank);
    }
    WriteAtLength(picture, (before + kRight - kLeft + kBottom - kTop) / 2, name);
}

/// A rectangle that a label or a mark takes.
struct Area {
    double left, top, right, bottom;

    bool Meets(const Area& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

/// A place for a label beside its mark.
struct Place {
    Area area;
    Point text;
    Point near;  ///< where a line to the mark begins
};

constexpr double kLetterWidth = 5.6;
constexpr double kLetterHeight = 10;

bool Inside(const Area& area) {
    return area.left > kLeft && area.right < kRight && area.top > kTop && area.bottom < kBottom;
}

/// The place of so many letters at a distance from a point.
Place PlaceBeside(Point at, Point direction, double distance, std::size_t letters) {
    const double width = kLetterWidth * static_cast<double>(letters);
    const Point near{at.x + direction.x * distance, at.y + direction.y * distance};
    const double left = near.x - width * (1 - direction.x) / 2;
    const double top = near.y - kLetterHeight * (1 - direction.y) / 2;
    return {{left - 1, top, left + width + 1, top + kLetterHeight},
            {left, top + kLetterHeight - 2},
            near};
}

/// The nearest free place around a point, in eight directions at growing distances; the first of
/// all where none is free.
Place FreePlace(Point at, std::size_t letters, const std::vector<Area>& taken) {
    constexpr std::array<Point, 8> kDirections = {
        {{1, 0}, {-1, 0}, {0.7, -0.8}, {-0.7, -0.8}, {0.7, 0.8}, {-0.7, 0.8}, {0, -1}, {0, 1}}};
    constexpr std::array kDistances = {8.0, 16.0, 26.0, 38.0, 52.0, 68.0, 86.0};
    for (const double distance : kDistances) {
        for (const Point& direction : kDirections) {
            const Place place = PlaceBeside(at, direction, distance, letters);
            const auto meets = [&](const Area& area) { return area.Meets(place.area); };
            if (Inside(place.area) && std::ranges::none_of(taken, meets)) return place;
        }
    }
    return PlaceBeside(at, kDirections.front(), kDistances.front(), letters);
}

std::string LabelOf(const LadderPoint& point) {
    return Whole(point.task) + "·" + Whole(point.contaminant);
}

std::string TooltipOf(const LadderPoint& point) {
    return "Jornada " + Whole(point.day) + ", tarea " + Whole(point.task) + ", " +
           Shown(point.name) + ": EC+/MG+ = " + Rounded(point.ratio) +
           ", GSD+ = " + Rounded(point.gsd_plus) + ", clase " + Rounded(point.probability) +
           "; cola log-normal exacta, " + Rounded(point.exact_probability, 2) + " %";
}

void DrawPoints(Picture& picture, const Report& report, const Frame& frame) {
    constexpr double kMark = 4.5;
    std::vector<Area> taken;
    for (const LadderPoint& point : report.ladder_points) {
        const Point at = frame.At(point.ratio, point.gsd_plus);
        taken.push_back({at.x - kMark, at.y - kMark, at.x + kMark, at.y + kMark});
    }
    for (const LadderPoint& point : report.ladder_points) {
        const Point at = frame.At(point.ratio, point.gsd_plus);
        constexpr std::size_t kLetters = 3;
        const Place place = FreePlace(at, kLetters, taken);
        taken.push_back(place.area);
        picture.BeginGroup(TooltipOf(point));
        if (std::hypot(place.near.x - at.x, place.near.y - at.y) > 12) {
            picture.Line(at, place.near, "guia");
        }
        picture.DayMark(point.day, at);
        picture.TextOver(place.text, LabelOf(point), "menor");
        picture.EndGroup();
    }
}

void DrawLegend(Picture& picture) {
    const double y = kHeight - 40;
    double x = kLeft;
    for (int day = 1; day <= 3; ++day) {
        picture.DayMark(day, {x, y - 4});
        picture.Text({x + 10, y}, "jornada " + Whole(day), "rotulo");
        x += 82;
    }
    picture.Text({x + 6, y}, "2·3: tarea 2, contaminante 3 (de una mezcla, el primero)", "rotulo");
    const double below = y + 19;
    picture.Box({kLeft - 5, below - 10}, 26, 12, "zona-media contorno");
    picture.Text({kLeft + 28, below}, "incertidumbre (clases 1 y 5)", "rotulo");
    picture.Box({kLeft + 209, below - 10}, 26, 12, "zona-alta contorno");
    picture.Text({kLeft + 242, below}, "alta probabilidad (clase 50)", "rotulo");
    picture.Text({kLeft + 420, below}, "en blanco: baja probabilidad", "rotulo");
}

}  // namespace

std::string LadderPicture(const Report& report) {
    if (report.ladder_points.empty()) return "";
    Picture picture("escalera", kPictureWidth, kHeight,
                    "Exposición corta: las clases de probabilidad y dónde cae cada contaminante",
                    "Cuanto más a la derecha y más abajo está un punto, menos probable es que una "
                    "exposición corta supere su límite. Cinco curvas separan las seis clases. Las "
                    "cifras están en la tabla de cada jornada.");
    const Frame frame = FrameOf(report);
    DrawZones(picture, frame);
    DrawAxes(picture, frame);
    picture.Box({kLeft, kTop}, kRight - kLeft, kBottom - kTop, "marco");
    DrawCurves(picture, frame);
    DrawPoints(picture, report, frame);
    DrawLegend(picture);
    return picture.Markup();
}

}  // namespace velmora::report
