#include "report/svg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "report/text.h"

namespace velmora {

namespace {

/// A length or a place: a tenth of a unit, without a tail of zeros.
std::string Units(double value) {
    std::array<char, 32> buffer{};
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed, 1);
    std::string text(buffer.begin(), end.ptr);
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text == "-0" ? "0" : text;
}

std::string Attribute(std::string_view name, std::string_view value) {
    return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

std::string Attribute(std::string_view name, double value) { return Attribute(name, Units(value)); }

std::string Pair(Point point) { return Units(point.x) + ',' + Units(point.y); }

std::string PathOf(std::span<const Point> points) {
    std::string path;
    for (const Point& point : points) path += (path.empty() ? 'M' : 'L') + Pair(point);
    return path;
}

constexpr std::array<double, 3> kSteps = {1, 2, 5};

/// The 1, 2 or 5 times a power of ten that is next to a value: the greatest that isn't above it, or
/// the least that isn't below it.
double StepBelow(double value) {
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    if (5 * power <= value) return 5 * power;
    return 2 * power <= value ? 2 * power : power;
}

double StepAbove(double value) {
    const double power = std::pow(10.0, std::floor(std::log10(value)));
    for (const double step : kSteps) {
        if (step * power >= value) return step * power;
    }
    return 10 * power;
}

}  // namespace

double LogAxis::At(double value) const {
    const double place = std::log(std::clamp(value, low, high) / low) / std::log(high / low);
    return from + place * (to - from);
}

std::vector<double> LogAxis::Ticks(std::size_t most) const {
    // A hair of room, since powers of ten below one are no whole Doubles.
    constexpr double kHair = 1e-9;
    std::vector<double> ticks;
    std::vector<double> powers;
    const int last = static_cast<int>(std::ceil(std::log10(high)));
    for (int exponent = static_cast<int>(std::floor(std::log10(low))); exponent <= last;
         ++exponent) {
        for (const double step : kSteps) {
            const double value = step * std::pow(10.0, exponent);
            if (value < low * (1 - kHair) || value > high * (1 + kHair)) continue;
            ticks.push_back(value);
            if (step == 1) powers.push_back(value);
        }
    }
    return ticks.size() > most ? powers : ticks;
}

LogAxis AxisFor(std::span<const double> values, double from, double to, double least) {
    const auto [smallest, largest] = std::ranges::minmax(values);
    double low = StepBelow(smallest);
    double high = StepAbove(largest);
    while (high / low < least) {
        low = StepBelow(low * 0.99);
        if (high / low < least) high = StepAbove(high * 1.01);
    }
    return {low, high, from, to};
}

Picture::Picture(std::string_view name, double width, double height, std::string_view title,
                 std::string_view description) {
    const std::string id(name);
    markup_ = "<svg role=\"img\"" +
              Attribute("viewBox", "0 0 " + Units(width) + ' ' + Units(height)) +
              Attribute("width", width) + Attribute("height", height) +
              Attribute("aria-labelledby", id + "-t " + id + "-d") + ">\n<title" +
              Attribute("id", id + "-t") + '>' + Escaped(title) + "</title>\n<desc" +
              Attribute("id", id + "-d") + '>' + Escaped(description) + "</desc>\n";
}

void Picture::Line(Point from, Point to, std::string_view kind) {
    markup_ += "<line" + Attribute("class", kind) + Attribute("x1", from.x) +
               Attribute("y1", from.y) + Attribute("x2", to.x) + Attribute("y2", to.y) + "/>\n";
}

void Picture::Curve(std::span<const Point> points, std::string_view kind) {
    markup_ += "<path" + Attribute("class", kind) + Attribute("d", PathOf(points)) + "/>\n";
}

void Picture::Box(Point corner, double width, double height, std::string_view kind) {
    markup_ += "<rect" + Attribute("class", kind) + Attribute("x", corner.x) +
               Attribute("y", corner.y) + Attribute("width", width) + Attribute("height", height) +
               "/>\n";
}

void Picture::Text(Point at, std::string_view text, std::string_view kind, Anchor anchor) {
    markup_ += "<text" + Attribute("class", kind) + Attribute("x", at.x) + Attribute("y", at.y);
    if (anchor == Anchor::Middle) markup_ += Attribute("text-anchor", "middle");
    if (anchor == Anchor::End) markup_ += Attribute("text-anchor", "end");
    markup_ += '>' + Escaped(text) + "</text>\n";
}

void Picture::DayMark(int day, Point at) {
    constexpr double kHalf = 3.6;
    if (day == 1) {
        markup_ += "<circle" + Attribute("class", "dia1") + Attribute("cx", at.x) +
                   Attribute("cy", at.y) + Attribute("r", kHalf) + "/>\n";
    } else if (day == 2) {
        Box({at.x - kHalf + 0.4, at.y - kHalf + 0.4}, 2 * kHalf - 0.8, 2 * kHalf - 0.8, "dia2");
    } else {
        const std::array<Point, 3> corners = {Point{at.x, at.y - kHalf - 0.8},
                                              Point{at.x + kHalf + 0.6, at.y + kHalf - 0.6},
                                              Point{at.x - kHalf - 0.6, at.y + kHalf - 0.6}};
        markup_ +=
            "<path" + Attribute("class", "dia3") + Attribute("d", PathOf(corners) + 'Z') + "/>\n";
    }
}

void Picture::Diamond(Point at) {
    constexpr double kHalf = 5;
    const std::array<Point, 4> corners = {Point{at.x, at.y - kHalf}, Point{at.x + kHalf, at.y},
                                          Point{at.x, at.y + kHalf}, Point{at.x - kHalf, at.y}};
    markup_ += "<path" + Attribute("class", "ig") + Attribute("d", PathOf(corners) + 'Z') + "/>\n";
}

void Picture::BeginGroup(std::string_view title) {
    markup_ += "<g>\n<title>" + Escaped(title) + "</title>\n";
}

void Picture::EndGroup() { markup_ += "</g>\n"; }

std::string Picture::Markup() { return markup_ += "</svg>\n"; }

}  // namespace velmora
