#include "report/svg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "report/text.h"

namespace velmora::report {

namespace {

/// A length or a place, with `behind` after it: a tenth of a unit, without a tail of zeros. Whole
/// numbers are written much faster than Doubles, and a page has thousands of them.
void AppendUnits(std::string& text, double value, char behind) {
    const auto tenths = std::llround(value * 10);
    std::array<char, 24> digits{'-'};
    char* const first = digits.data() + (tenths < 0 ? 1 : 0);
    char* end = std::to_chars(first, digits.data() + 20, std::abs(tenths) / 10).ptr;
    if (tenths % 10 != 0) {
        *end++ = '.';
        *end++ = static_cast<char>('0' + std::abs(tenths) % 10);
    }
    *end++ = behind;
    text.append(digits.data(), end);
}

std::string PathOf(std::span<const Point> points) {
    std::string path = "M";
    for (const Point& point : points) {
        AppendUnits(path, point.x, ',');
        AppendUnits(path, point.y, 'L');
    }
    path.pop_back();
    return path;
}

constexpr std::array<double, 3> kSteps = {1, 2, 5};

/// No axis goes beyond these, so that each value of a Double has a place.
constexpr double kSmallest = 1e-12;
constexpr double kLargest = 1e12;

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
    double low = StepBelow(std::clamp(smallest, kSmallest, kLargest));
    double high = StepAbove(std::clamp(largest, kSmallest, kLargest));
    while (high / low < least) {
        low = StepBelow(low * 0.99);
        if (high / low < least) high = StepAbove(high * 1.01);
    }
    return {low, high, from, to};
}

Picture::Picture(std::string_view name, double width, double height, std::string_view title,
                 std::string_view description) {
    constexpr std::size_t kUsualSize = 1U << 15U;
    markup_.reserve(kUsualSize);
    const std::string id(name);
    markup_ += R"(<svg role="img" viewBox="0 0 )";
    AppendUnits(markup_, width, ' ');
    AppendUnits(markup_, height, '"');
    Put(" width=\"", width).Put(" height=\"", height);
    markup_ += " aria-labelledby=\"" + id + "-t " + id + "-d\">\n<title id=\"" + id + "-t\">" +
               Escaped(title) + "</title>\n<desc id=\"" + id + "-d\">" + Escaped(description) +
               "</desc>\n";
}

Picture& Picture::Put(std::string_view opening, double value) {
    markup_ += opening;
    AppendUnits(markup_, value, '"');
    return *this;
}

Picture& Picture::Begin(std::string_view opening, std::string_view kind) {
    markup_.append(opening).append(kind).append("\"");
    return *this;
}

void Picture::End() { markup_ += "/>\n"; }

void Picture::Line(Point from, Point to, std::string_view kind) {
    Begin("<line class=\"", kind).Put(" x1=\"", from.x).Put(" y1=\"", from.y);
    Put(" x2=\"", to.x).Put(" y2=\"", to.y).End();
}

void Picture::Path(const std::string& data, std::string_view kind) {
    Begin("<path class=\"", kind);
    markup_.append(" d=\"").append(data).append("\"");
    End();
}

void Picture::Curve(std::span<const Point> points, std::string_view kind) {
    Path(PathOf(points), kind);
}

void Picture::Box(Point corner, double width, double height, std::string_view kind) {
    Begin("<rect class=\"", kind).Put(" x=\"", corner.x).Put(" y=\"", corner.y);
    Put(" width=\"", width).Put(" height=\"", height).End();
}

void Picture::Text(Point at, std::string_view text, std::string_view kind, Anchor anchor) {
    Begin("<text class=\"", kind).Put(" x=\"", at.x).Put(" y=\"", at.y);
    if (anchor == Anchor::Middle) markup_ += " text-anchor=\"middle\"";
    if (anchor == Anchor::End) markup_ += " text-anchor=\"end\"";
    markup_ += '>';
    AppendEscaped(markup_, text);
    markup_ += "</text>\n";
}

void Picture::TextOver(Point at, std::string_view text, std::string_view kind, Anchor anchor) {
    Text(at, text, std::string(kind) + " halo", anchor);
    Text(at, text, kind, anchor);
}

void Picture::DayMark(int day, Point at) {
    constexpr double kHalf = 3.6;
    if (day == 1) {
        Begin("<circle class=\"", "dia1").Put(" cx=\"", at.x).Put(" cy=\"", at.y);
        Put(" r=\"", kHalf).End();
    } else if (day == 2) {
        Box({at.x - kHalf + 0.4, at.y - kHalf + 0.4}, 2 * kHalf - 0.8, 2 * kHalf - 0.8, "dia2");
    } else {
        const std::array<Point, 3> corners = {Point{at.x, at.y - kHalf - 0.8},
                                              Point{at.x + kHalf + 0.6, at.y + kHalf - 0.6},
                                              Point{at.x - kHalf - 0.6, at.y + kHalf - 0.6}};
        Path(PathOf(corners) + 'Z', "dia3");
    }
}

void Picture::BeginGroup(std::string_view title) {
    markup_ += "<g>\n<title>" + Escaped(title) + "</title>\n";
}

void Picture::EndGroup() { markup_ += "</g>\n"; }

std::string Picture::Markup() { return std::move(markup_ += "</svg>\n"); }

}  // namespace velmora::report
