#include "Print/internal/GradientPaint.h"

#include "Print/PrintException.h"
#include "Print/internal/ByteString.h"
#include "Print/internal/GradientStops.h"

#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace Drawing::Print {

namespace {

/// More periods than that are finer than any eye or printer.
constexpr double kMostPeriods = 4000;
/// A part of a matrix that is smaller, beside its largest one, moves nothing that can be seen.
constexpr double kNothing = 1e-9;
/// What a string of PostScript holds (PLRM appendix B).
constexpr std::size_t kMostStringBytes = 65535;

/// Where a gradient runs: from one circle to another; lines have no radius.
struct Course {
    Spot from;
    Spot to;
    double fromRadius = 0;
    double toRadius = 0;
    bool isRadial = false;

    [[nodiscard]] bool isDegenerate() const {
        return from.x == to.x && from.y == to.y && fromRadius == toRadius;
    }
    /// Circles that do not lie in each other span a cone, most of which no corner may lie in.
    [[nodiscard]] bool isCone() const { return distance() > toRadius - fromRadius; }
    [[nodiscard]] double distance() const { return std::hypot(to.x - from.x, to.y - from.y); }
    [[nodiscard]] Spot centreAt(double t) const {
        return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
    }
    [[nodiscard]] double radiusAt(double t) const {
        return std::max(0.0, fromRadius + t * (toRadius - fromRadius));
    }
};

Course courseOf(const GradientBrush& brush) {
    const std::array<float, 4>& g = brush.getGeometry();
    if (brush.getBrushType() == BrushType::linearGradient)
        return {{g[0], g[1]}, {g[2], g[3]}};
    const XPointF first = static_cast<const RadialGradientBrush&>(brush).getFirstCentre();
    if (g[2] < 0 || g[3] < 0)
        throw PrintException("a gradient has the negative radius " +
                             std::to_string(std::min(g[2], g[3])));
    return {{first.x, first.y}, {g[0], g[1]}, g[2], g[3], true};
}

/// The largest place along the gradient whose circle passes through `p`, or whose line does.
std::optional<double> placeOf(Spot p, const Course& course) {
    const Spot d{course.to.x - course.from.x, course.to.y - course.from.y};
    const Spot v{p.x - course.from.x, p.y - course.from.y};
    if (!course.isRadial)
        return (v.x * d.x + v.y * d.y) / (d.x * d.x + d.y * d.y);
    const double dr = course.toRadius - course.fromRadius;
    const double a = d.x * d.x + d.y * d.y - dr * dr;
    const double b = v.x * d.x + v.y * d.y + course.fromRadius * dr;
    const double c = v.x * v.x + v.y * v.y - course.fromRadius * course.fromRadius;
    if (std::abs(a) < 1e-12)
        return b == 0 ? std::nullopt : std::optional(c / (2 * b));
    const double root = b * b - a * c;
    if (root < 0)
        return std::nullopt;
    return std::max((b + std::sqrt(root)) / a, (b - std::sqrt(root)) / a);
}

/// Where the circles of a cone have left `seen` behind them.
double coneReach(const Course& course, const Box& seen) {
    double farthest = 0;
    for (const double x : {seen.left, seen.right})
        for (const double y : {seen.top, seen.bottom})
            farthest = std::max(farthest, std::hypot(x - course.from.x, y - course.from.y));
    const double speed = course.distance() - (course.toRadius - course.fromRadius);
    return (farthest + course.fromRadius) / speed;
}

struct Reach {
    double from = 0;
    double to = 1;
};

/// From where to where the stops must be repeated to fill `seen`.
Reach reachOf(const Course& course, const Box& seen) {
    Reach reach;
    for (const double x : {seen.left, seen.right})
        for (const double y : {seen.top, seen.bottom})
            if (const auto place = placeOf({x, y}, course); place && std::isfinite(*place)) {
                reach.from = std::min(reach.from, *place);
                reach.to = std::max(reach.to, *place);
            }
    if (course.isRadial && course.isCone())
        reach.to = std::max(reach.to, coneReach(course, seen));
    if (course.isRadial)
        reach.from = course.toRadius > course.fromRadius
                         ? -course.fromRadius / (course.toRadius - course.fromRadius)
                         : 0;
    reach.from = std::max(reach.from, -kMostPeriods);
    reach.to = std::min(reach.to, kMostPeriods);
    if (!course.isRadial) {
        reach.from = std::floor(reach.from);
        reach.to = std::ceil(reach.to);
    }
    return reach;
}

void writeCoords(const Course& course, const Reach& reach, TextBuffer& out) {
    out << '[';
    for (const double t : {reach.from, reach.to}) {
        const Spot centre = course.centreAt(t);
        out.number(centre.x);
        out.number(centre.y);
        if (course.isRadial)
            out.number(course.radiusAt(t));
    }
    out << ']';
}

void writeExtend(const std::array<bool, 2>& extend, TextBuffer& out) {
    for (const bool on : extend)
        out << (on ? " true" : " false");
}

void writePadded(const Course& course, const GradientStops& stops,
                 const std::array<bool, 2>& extend, TextBuffer& out) {
    writeCoords(course, {}, out);
    if (stops.isRGB() && extend[0] && extend[1]) {
        stops.write(false, out);
        out << (course.isRadial ? "ra" : "la");
        return;
    }
    stops.write(true, out);
    out << "gF " << (course.isRadial ? '3' : '2');
    writeSpace(stops.last(), out);
    writeExtend(extend, out);
    out << " gS";
}

/// The stops again and again: a function over as many periods as can be seen.
void writeRepeated(Course course, GradientStops stops, bool reflects, const Box& seen,
                   TextBuffer& out) {
    if (course.isRadial && course.fromRadius > course.toRadius) {
        std::swap(course.from, course.to);
        std::swap(course.fromRadius, course.toRadius);
        stops.reverse();
    }
    const Reach reach = reachOf(course, seen);
    writeCoords(course, reach, out);
    stops.write(true, out);
    out << "gF";
    out.number(std::floor(reach.from));
    out.number(std::ceil(reach.to));
    out << (reflects ? " true" : " false") << " gR " << (course.isRadial ? '3' : '2');
    writeSpace(stops.last(), out);
    writeExtend({true, true}, out);
    out << " gS dup/Domain[";
    out.number(reach.from);
    out.number(reach.to);
    out << "]put";
}

/// The samples in the space of the document, with the field's opacity.
std::vector<std::uint8_t> samplesOf(const ColorFieldBrush& brush, const ColorConverter* converter) {
    const auto given = brush.getColors().span();
    std::vector<std::uint8_t> samples(given.begin(), given.end());
    if (brush.getOpacity() < 1)
        for (std::uint8_t& sample : samples)
            sample = static_cast<std::uint8_t>(
                std::lround(255 - (255 - sample) * static_cast<double>(brush.getOpacity())));
    if (!converter || converter->getTarget() == ColorSpaceType::rgb)
        return samples;
    const auto count =
        static_cast<std::size_t>(ColorSpace(converter->getTarget()).getComponentCount());
    std::vector<std::uint8_t> converted(samples.size() / 3 * count);
    converter->convertPixels(ColorSpaceType::rgb, samples, converted);
    return converted;
}

}  // namespace

void writeMatrix(const Matrix& m, TextBuffer& out) {
    if (m == Matrix()) {
        out << " im ";
        return;
    }
    out << '[';
    // What is left of a rotation by a right angle, say, is nothing.
    const double least = largestScale(m) * kNothing;
    for (const float value : {m.getScaleX(), m.getShearY(), m.getShearX(), m.getScaleY()})
        out.number(std::abs(value) < least ? 0 : value);
    out.number(m.getTranslateX());
    out.number(m.getTranslateY());
    out << ']';
}

void writeGradient(const GradientBrush& brush, const ColorConverter* converter, const Box& visible,
                   TextBuffer& out) {
    const Course course = courseOf(brush);
    const GradientStops stops(brush, converter);
    const auto back = inverse(brush.getMatrix());
    if (course.isDegenerate() || !back) {
        writeInk(stops.last(), out);
        out << '\n';
        return;
    }
    if (brush.getSpread() == GradientSpread::pad)
        writePadded(course, stops, brush.getExtend(), out);
    else
        writeRepeated(course, stops, brush.getSpread() == GradientSpread::reflect,
                      visible.mapped(*back), out);
    writeMatrix(brush.getMatrix(), out);
    out << "P\n";
}

void writeColorField(const ColorFieldBrush& brush, const ColorConverter* converter,
                     TextBuffer& out) {
    const std::vector<std::uint8_t> samples = samplesOf(brush, converter);
    if (samples.size() > kMostStringBytes)
        throw PrintException("a colour field of " + std::to_string(samples.size()) +
                             " bytes is too fine; 65535 are the most");
    Ink space;
    space.space = converter ? converter->getTarget() : ColorSpaceType::rgb;
    out << '[';
    out.number(brush.getSize().width);
    out << " 0 0";
    out.number(brush.getSize().height);
    out.number(brush.getCorner().x);
    out.number(brush.getCorner().y);
    out << ']';
    writeSpace(space, out);
    out << '[';
    for (int i = 0; i < space.componentCount(); ++i)
        out << (i == 0 ? "0 1" : " 0 1");
    out << "][";
    out.number(brush.getColumns());
    out.number(brush.getRows());
    out << ']';
    writeByteString(samples, out);
    out << "cf";
    writeMatrix(brush.getMatrix(), out);
    out << "P\n";
}

}  // namespace Drawing::Print
