#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::report {

/// A place in a picture, in its units, from the left and from the top.
struct Point {
    double x = 0;
    double y = 0;
};

/// A range of positive values on a logarithmic scale, and the places of its two ends.
struct LogAxis {
    double low = 1;
    double high = 10;
    double from = 0;  ///< place of `low`
    double to = 1;    ///< place of `high`

    /// Where a positive value stands; what is outside the range stands at the nearer end.
    double At(double value) const;
    /// The values 1, 2 and 5 times a power of ten in the range; the powers alone where there would
    /// be more than `most`.
    std::vector<double> Ticks(std::size_t most) const;
};

/// An axis from `from` to `to` that holds all values, which are positive, as far as they lie
/// between 1E-12 and 1E+12: its ends are values 1, 2 or 5 times a power of ten, at least a factor
/// of `least` apart.
LogAxis AxisFor(std::span<const double> values, double from, double to, double least = 10);

/// Where a text stands by its point.
enum class Anchor { Start, Middle, End };

/// A picture as inline SVG. What a thing looks like is said by a class of the page's style; texts
/// are UTF-8 and are escaped here. Numbers are written with a tenth of a unit.
class Picture {
public:
    /// `name` is unique in the page and holds letters, digits and hyphens.
    Picture(std::string_view name, double width, double height, std::string_view title,
            std::string_view description);

    void Line(Point from, Point to, std::string_view kind);
    /// A curve through the points, as straight pieces.
    void Curve(std::span<const Point> points, std::string_view kind);
    void Box(Point corner, double width, double height, std::string_view kind);
    void Text(Point at, std::string_view text, std::string_view kind,
              Anchor anchor = Anchor::Start);
    /// A text over other things: with a white edge around its letters.
    void TextOver(Point at, std::string_view text, std::string_view kind,
                  Anchor anchor = Anchor::Start);
    /// The mark of a day (1 to 3), told apart by its form alone: a full disc, an open square, a
    /// full triangle.
    void DayMark(int day, Point at);
    /// What follows stands in a group with a name of its own, until `EndGroup`.
    void BeginGroup(std::string_view title);
    void EndGroup();

    /// The whole element. To be called once, at the end.
    std::string Markup();

private:
    void Path(const std::string& data, std::string_view kind);

    // An element without content: its beginning, up to the value of its class; its measures, each
    // with its beginning; its end.
    Picture& Begin(std::string_view opening, std::string_view kind);
    Picture& Put(std::string_view opening, double value);
    void End();

    std::string markup_;
};

}  // namespace velmora::report
