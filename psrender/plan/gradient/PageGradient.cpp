#include "psrender/plan/gradient/PageGradient.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace psrender::plan {

using scene::Gradient;
using scene::Point;

namespace {

/// The place between 0 and 1 that shows the same colour.
double withinPeriod(double t, scene::Spread spread) {
    switch (spread) {
        case scene::Spread::repeat:
            return t - std::floor(t);
        case scene::Spread::reflect: {
            const double pair = t - 2 * std::floor(t / 2);
            return pair > 1 ? 2 - pair : pair;
        }
        default:
            return t;
    }
}

}  // namespace

Sample sampleOf(const scene::Color& color, double alpha) {
    return {color.red * alpha, color.green * alpha, color.blue * alpha, alpha};
}

scene::Color colorOf(const Sample& sample) {
    return scene::Color::rounded(sample[0], sample[1], sample[2]);
}

PageGradient::PageGradient(Gradient gradient)
    : gradient_(std::move(gradient)), fromPage_(gradient_.transform.inverse()) {}

double PageGradient::along(Point onPage) const {
    const Point p = fromPage_.apply(onPage) - gradient_.start;
    if (gradient_.kind == Gradient::Kind::radial)
        return alongRadius(p);
    const Point axis = gradient_.end - gradient_.start;
    return dot(p, axis) / dot(axis, axis);
}

/// The circle through a point, which is given from the start on: |p - t shift| = r0 + t growth.
/// The start lies within the end, so there is one with a radius of at least 0.
double PageGradient::alongRadius(Point p) const {
    const Point shift = gradient_.end - gradient_.start;
    const double growth = gradient_.endRadius - gradient_.startRadius;
    const double a = growth * growth - dot(shift, shift);
    const double b = dot(p, shift) + gradient_.startRadius * growth;
    const double c = dot(p, p) - gradient_.startRadius * gradient_.startRadius;
    const double root = std::sqrt(std::max(0.0, b * b + a * c));
    return a > 0 ? (root - b) / a : 1;
}

Sample PageGradient::at(Point onPage) const {
    const double t = withinPeriod(along(onPage), gradient_.spread);
    const auto stop = stopAt(stops(), std::isfinite(t) ? t : 1);
    return sampleOf(stop.color, stop.opacity);
}

bool PageGradient::isAlongside(const PageGradient& other) const {
    const auto geometry = [](const Gradient& g) {
        return std::tuple(g.kind, g.spread, g.startRadius, g.endRadius, g.start.x, g.start.y,
                          g.end.x, g.end.y);
    };
    return geometry(gradient_) == geometry(other.gradient_) &&
           gradient_.transform == other.gradient_.transform;
}

std::shared_ptr<const PageGradient> PageGradient::with(ColorStops stops) const {
    auto result = std::make_shared<PageGradient>(*this);
    result->gradient_.stops = std::make_shared<const ColorStops>(std::move(stops));
    return result;
}

}  // namespace psrender::plan
