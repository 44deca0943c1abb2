#include "psrender/plan/blend/LookFit.h"

#include "psrender/plan/blend/HatFit.h"
#include "psrender/plan/blend/SampleGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

namespace psrender::plan {

using scene::Color;
using scene::Gradient;
using scene::Point;
using scene::Rect;

namespace {

/// Levels by which a gradient has to change to be one.
constexpr int kVisible = 2;
constexpr double kShortest = 1e-6;

std::uint8_t level(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

Color colorOf(const HatFit::Color& color) {
    return {level(color[0]), level(color[1]), level(color[2])};
}

/// A gradient whose colours are open.
class Course {
public:
    explicit Course(Gradient gradient) : gradient_(std::move(gradient)) {
        gradient_.stops = std::make_shared<const ColorStops>(1);
        gradient_.spread = scene::Spread::pad;
        page_.emplace(gradient_);
    }
    /// Along a unit vector, one point a unit.
    static Course linear(Point direction) {
        Gradient gradient;
        gradient.end = direction;
        return Course(std::move(gradient));
    }
    [[nodiscard]] double along(Point p) const { return page_->along(p); }
    /// The stretch from `from` to `to` with the colours of `fit`.
    [[nodiscard]] Gradient with(const HatFit& fit, double from, double to) const {
        const auto at = [&](double t) {
            return Point{std::lerp(gradient_.start.x, gradient_.end.x, t),
                         std::lerp(gradient_.start.y, gradient_.end.y, t)};
        };
        const auto radius = [&](double t) {
            return std::max(0.0, std::lerp(gradient_.startRadius, gradient_.endRadius, t));
        };
        Gradient result = gradient_;
        result.start = at(from);
        result.end = at(to);
        result.startRadius = radius(from);
        result.endRadius = radius(to);
        result.stops = std::make_shared<const ColorStops>(stopsOf(fit));
        return result;
    }

private:
    static ColorStops stopsOf(const HatFit& fit) {
        ColorStops stops;
        for (std::size_t i = 0; i < HatFit::kKnots; ++i)
            stops.push_back(
                {static_cast<double>(i) / (HatFit::kKnots - 1), colorOf(fit.knot(i)), 1});
        return stops;
    }

    Gradient gradient_;
    std::optional<PageGradient> page_;
};

/// One course through the samples of a grid.
class Trial {
public:
    Trial(const SampleGrid& grid, const Course& course) : grid_(grid), course_(course) {
        for (std::size_t i = 0; i < SampleGrid::kCount; ++i) {
            along_[i] = course.along(grid.place(i));
            if (grid.counts(i)) {
                from_ = std::min(from_, along_[i]);
                to_ = std::max(to_, along_[i]);
            }
        }
        to_ = std::max(to_, from_ + kShortest);
        for (std::size_t i = 0; i < SampleGrid::kCount; ++i)
            if (grid.counts(i))
                fit_.add(position(i), grid[i]);
        fit_.solve();
        findErrors();
    }

    [[nodiscard]] LookFit result() const {
        LookFit result;
        result.error = worst();
        result.isWorstAcross = change(1) > change(SampleGrid::kSide);
        result.paint.kind = scene::Paint::Kind::solid;
        result.paint.color = colorOf(fit_.at(0.5));
        auto gradient = course_.with(fit_, from_, to_);
        if (isSolid(*gradient.stops))
            return result;
        result.paint.kind = scene::Paint::Kind::gradient;
        result.paint.gradient = std::make_shared<const Gradient>(std::move(gradient));
        return result;
    }

private:
    static bool isSolid(const ColorStops& stops) {
        const auto isNear = [](std::uint8_t a, std::uint8_t b) {
            return std::abs(a - b) < kVisible;
        };
        const Color& first = stops.front().color;
        return std::ranges::all_of(stops, [&](const scene::ColorStop& stop) {
            return isNear(stop.color.red, first.red) && isNear(stop.color.green, first.green) &&
                   isNear(stop.color.blue, first.blue);
        });
    }
    [[nodiscard]] double position(std::size_t i) const {
        return (along_[i] - from_) / (to_ - from_);
    }
    void findErrors() {
        for (std::size_t i = 0; i < SampleGrid::kCount; ++i) {
            const HatFit::Color fitted = fit_.at(position(i));
            for (std::size_t part = 0; part < 3; ++part)
                errors_[i][part] = grid_[i][part] - fitted[part];
        }
    }
    [[nodiscard]] double worst() const {
        double worst = 0;
        for (std::size_t i = 0; i < SampleGrid::kCount; ++i)
            for (std::size_t part = 0; grid_.counts(i) && part < 3; ++part)
                worst = std::max(worst, std::abs(errors_[i][part]));
        return worst;
    }
    /// How much the error changes to the neighbours at a distance of `step`.
    [[nodiscard]] double change(std::size_t step) const {
        double sum = 0;
        for (std::size_t i = 0; i + step < SampleGrid::kCount; ++i)
            if (grid_.counts(i) && grid_.counts(i + step) &&
                (step > 1 || (i + 1) % SampleGrid::kSide != 0))
                for (std::size_t part = 0; part < 3; ++part)
                    sum += std::pow(errors_[i + step][part] - errors_[i][part], 2);
        return sum;
    }

    const SampleGrid& grid_;
    const Course& course_;
    std::array<double, SampleGrid::kCount> along_{};
    std::array<HatFit::Color, SampleGrid::kCount> errors_{};
    double from_ = std::numeric_limits<double>::max();
    double to_ = std::numeric_limits<double>::lowest();
    HatFit fit_;
};

}  // namespace

LookFit fitTo(const Look& look, const Rect& box, const Polygons* area) {
    const SampleGrid grid(look, box, area);
    LookFit best = Trial(grid, Course::linear(grid.direction())).result();
    for (const PageGradient* part : look.gradients()) {
        if (part->gradient().kind != Gradient::Kind::radial)
            continue;
        LookFit fit = Trial(grid, Course(part->gradient())).result();
        if (fit.error < best.error)
            best = std::move(fit);
    }
    return best;
}

}  // namespace psrender::plan
