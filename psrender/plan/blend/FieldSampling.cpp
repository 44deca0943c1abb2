#include "psrender/plan/blend/FieldSampling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace psrender::plan {

using scene::Color;
using scene::ColorField;
using scene::Paint;
using scene::Point;
using scene::Rect;

namespace {

constexpr double kTolerance = 2.5;  // levels of 255
constexpr double kClosest = 0.75;   // points between two samples
constexpr double kFarthest = 12;    // points, at first, as long as that makes
constexpr double kMostFirst = 32;   // steps to a side at most
constexpr std::size_t kMostSamples = 10'000;
/// What a sample of one layer takes, in comparisons of edges.
constexpr std::size_t kSampleCost = 40;
/// What a field costs in bytes and in the interpreter.
constexpr std::size_t kFieldCost = 20'000;

std::size_t firstCount(double length) {
    return 1 + static_cast<std::size_t>(std::clamp(std::ceil(length / kFarthest), 1.0, kMostFirst));
}

class Grid {
public:
    Grid(const Appearance& appearance, const Rect& box, std::size_t columns, std::size_t rows)
        : appearance_(appearance), box_(box), columns_(columns), rows_(rows) {
        samples_.reserve(columns * rows);
        for (std::size_t row = 0; row < rows; ++row)
            for (std::size_t column = 0; column < columns; ++column)
                samples_.push_back(appearance_.at(place(column, row)));
    }

    [[nodiscard]] std::size_t size() const { return samples_.size(); }
    /// Halves the steps along an axis in which they are wide. False if it was right before.
    bool refine(bool isAcross) {
        if ((isAcross ? stepX() : stepY()) < 2 * kClosest || 2 * size() > kMostSamples)
            return false;
        Grid finer(appearance_, box_, isAcross ? 2 * columns_ - 1 : columns_,
                   isAcross ? rows_ : 2 * rows_ - 1);
        if (finer.worstBetween(isAcross) <= kTolerance)
            return false;
        columns_ = finer.columns_;
        rows_ = finer.rows_;
        samples_ = std::move(finer.samples_);
        return true;
    }
    [[nodiscard]] Paint paint() const {
        std::vector<Color> colors;
        colors.reserve(size());
        std::ranges::transform(samples_, std::back_inserter(colors), colorOf);
        if (std::ranges::all_of(colors, [&](const Color& c) { return c == colors.front(); }))
            return {colors.front()};
        return {std::make_shared<const ColorField>(
            ColorField{box_, columns_, rows_, std::move(colors), {}})};
    }

private:
    [[nodiscard]] double stepX() const { return box_.width / static_cast<double>(columns_ - 1); }
    [[nodiscard]] double stepY() const { return box_.height / static_cast<double>(rows_ - 1); }
    [[nodiscard]] Point place(std::size_t column, std::size_t row) const {
        return {box_.x + stepX() * static_cast<double>(column),
                box_.y + stepY() * static_cast<double>(row)};
    }
    /// How far the samples in between are off those that they lie between, along an axis.
    [[nodiscard]] double worstBetween(bool isAcross) const {
        const std::size_t step = isAcross ? 1 : columns_;
        double worst = 0;
        for (std::size_t row = isAcross ? 0 : 1; row < rows_; row += isAcross ? 1 : 2)
            for (std::size_t column = isAcross ? 1 : 0; column < columns_;
                 column += isAcross ? 2 : 1) {
                const std::size_t i = row * columns_ + column;
                for (std::size_t part = 0; part < 3; ++part)
                    worst = std::max(
                        worst, std::abs(samples_[i][part] -
                                        (samples_[i - step][part] + samples_[i + step][part]) / 2));
            }
        return worst;
    }

    const Appearance& appearance_;
    Rect box_;
    std::size_t columns_;
    std::size_t rows_;
    std::vector<Sample> samples_;
};

}  // namespace

Paint fieldOf(const Appearance& appearance, const Rect& box, Budget& budget) {
    const auto spend = [&](std::size_t samples) {
        return budget.spend(samples * appearance.weight() * kSampleCost);
    };
    Grid grid(appearance, box, firstCount(box.width), firstCount(box.height));
    budget.spend(kFieldCost);
    bool goesOn = spend(grid.size());
    while (goesOn) {
        const bool across = spend(2 * grid.size()) && grid.refine(true);
        const bool down = spend(2 * grid.size()) && grid.refine(false);
        goesOn = across || down;
    }
    return grid.paint();
}

}  // namespace psrender::plan
