#include "psrender/plan/blend/SampleGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace psrender::plan {

using scene::Point;
using scene::Rect;

namespace {

/// With fewer places within it an area could go wrong between them.
constexpr std::ptrdiff_t kLeast = SampleGrid::kCount / 4;

}  // namespace

SampleGrid::SampleGrid(const Look& look, const Rect& box, const Polygons* area) : box_(box) {
    if (area != nullptr)
        findInside(*area);
    if (std::ranges::count(counts_, true) < kLeast)
        counts_.fill(true);
    for (std::size_t i = 0; i < kCount; ++i)
        samples_[i] = look.at(place(i));
}

Point SampleGrid::place(std::size_t index) const {
    const auto at = [](std::size_t step) { return (static_cast<double>(step) + 0.5) / kSide; };
    return {box_.x + box_.width * at(index % kSide), box_.y + box_.height * at(index / kSide)};
}

void SampleGrid::findInside(const Polygons& area) {
    for (std::size_t row = 0; row < kSide; ++row)
        findInside(area, row);
}

/// Where a row of places crosses the borders it goes in or out.
void SampleGrid::findInside(const Polygons& area, std::size_t row) {
    const double y = place(row * kSide).y * kGridUnits;
    std::vector<double> crossings;
    for (const ClipperLib::Path& polygon : area)
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const auto& from = polygon[i];
            const auto& to = polygon[(i + 1) % polygon.size()];
            const auto low = static_cast<double>(from.Y);
            const auto high = static_cast<double>(to.Y);
            if ((low <= y) != (high <= y))
                crossings.push_back(static_cast<double>(from.X) +
                                    (y - low) / (high - low) * static_cast<double>(to.X - from.X));
        }
    for (std::size_t i = row * kSide; i < (row + 1) * kSide; ++i) {
        const double x = place(i).x * kGridUnits;
        counts_[i] =
            std::ranges::count_if(crossings, [x](double crossing) { return crossing < x; }) % 2 ==
            1;
    }
}

/// The main axis of all changes between neighbours.
Point SampleGrid::direction() const {
    double xx = 0;
    double xy = 0;
    double yy = 0;
    for (std::size_t i = 0; i + kSide < kCount; ++i) {
        if (i % kSide + 1 == kSide || !counts_[i] || !counts_[i + 1] || !counts_[i + kSide])
            continue;
        for (std::size_t part = 0; part < 3; ++part) {
            const double x = (samples_[i + 1][part] - samples_[i][part]) / box_.width;
            const double y = (samples_[i + kSide][part] - samples_[i][part]) / box_.height;
            xx += x * x;
            xy += x * y;
            yy += y * y;
        }
    }
    const double angle = std::atan2(2 * xy, xx - yy) / 2;
    return {std::cos(angle), std::sin(angle)};
}

}  // namespace psrender::plan
