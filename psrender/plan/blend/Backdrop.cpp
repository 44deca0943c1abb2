#include "psrender/plan/blend/Backdrop.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using image::Backdrop;
using scene::Affine;
using scene::Point;

namespace {

constexpr double kMostSpots = 128;  // to a side

std::size_t spotsFor(double points) {
    return static_cast<std::size_t>(std::clamp(std::ceil(points), 1.0, kMostSpots));
}

double placeOf(std::size_t index, std::size_t spots) {
    return (static_cast<double>(index) + 0.5) / static_cast<double>(spots);
}

}  // namespace

Backdrop backdropOf(const BlendLayer& layer, const Affine& picture, std::size_t count,
                    Budget& budget) {
    Backdrop result{
        spotsFor(std::hypot(picture.a, picture.b)), spotsFor(std::hypot(picture.c, picture.d)), {}};
    for (std::size_t y = 0; y < result.height; ++y)
        for (std::size_t x = 0; x < result.width; ++x) {
            if (budget.isSpent())
                return {1, 1, {scene::kWhite}};
            const Point p = picture.apply({placeOf(x, result.width), placeOf(y, result.height)});
            result.colors.push_back(colorOf(layer.appearanceAt(p, count, budget).at(p)));
        }
    const scene::Color first = result.colors.front();
    if (std::ranges::all_of(result.colors, [&](const auto& color) { return color == first; }))
        return {1, 1, {first}};
    return result;
}

}  // namespace psrender::plan
