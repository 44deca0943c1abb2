#include "psrender/image/Backdrop.h"
#include "psrender/plan/LookFit.h"
#include "psrender/plan/Patchwork.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

namespace psrender::plan {

namespace {

using scene::ColorStop;
using scene::Gradient;
using scene::Point;
using scene::Spread;

constexpr Tint kWhite{{255, 255, 255}, 1};
const ColorStops kFading{{0, {255, 0, 0}, 1}, {1, {0, 0, 255}, 0}};
const ColorStops kOpaque{{0, {0, 255, 0}, 1}, {1, {255, 255, 0}, 1}};

PageGradient linear(Point from, Point to, ColorStops stops, Spread spread = Spread::pad) {
    Gradient gradient;
    gradient.start = from;
    gradient.end = to;
    gradient.spread = spread;
    gradient.stops = std::make_shared<const ColorStops>(std::move(stops));
    return PageGradient(gradient);
}

PageGradient radial(Point focus, double innermost, Point centre, double radius,
                    ColorStops stops = kFading) {
    Gradient gradient = linear(focus, centre, std::move(stops)).gradient();
    gradient.kind = Gradient::Kind::radial;
    gradient.startRadius = innermost;
    gradient.endRadius = radius;
    gradient.transform = {2, 0, 1, 1, 10, -5};
    return PageGradient(gradient);
}

Sample mixed(const Sample& above, const Sample& below) {
    Sample result = above;
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] += (1 - above[3]) * below[i];
    return result;
}

void expectNear(const Sample& wanted, const Sample& found, double levels) {
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(wanted[i], found[i], levels);
    EXPECT_NEAR(wanted[3], found[3], levels / 255);
}

std::vector<Point> places() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> spread(-20, 120);
    std::vector<Point> result;
    for (int i = 0; i < 50; ++i)
        result.push_back({spread(random), spread(random)});
    return result;
}

TEST(ColorStops, LieOnTopOfEachOtherAllAlong) {
    const ColorStops sharp{
        {.2, {9, 9, 9}, 1}, {.5, {9, 9, 9}, .5}, {.5, {250, 0, 0}, .5}, {.9, {0, 250, 0}, .2}};
    for (const auto& [above, below] :
         {std::pair{kFading, kOpaque}, {sharp, kOpaque}, {sharp, kFading}, {kFading, sharp}}) {
        const ColorStops both = over(above, below);
        for (double t = 0; t <= 1; t += 0.01) {
            const auto at = [t](const ColorStops& stops) {
                const ColorStop stop = stopAt(stops, t);
                return sampleOf(stop.color, stop.opacity);
            };
            expectNear(mixed(at(above), at(below)), at(both), 2.5);
        }
    }
    EXPECT_EQ(2U, over(kOpaque, {{0, {1, 2, 3}, 1}}).size()) << "one stop adds no others";
    EXPECT_EQ(2U, over({{0, {255, 0, 0}, .5}}, kOpaque).size()) << "straight as before";
}

TEST(PageGradient, GoesAlongItsLineOrCircles) {
    EXPECT_DOUBLE_EQ(0.3, linear({10, 10}, {10, 110}, kFading).along({77, 40}));
    const PageGradient gradient = radial({3, 4}, 2, {5, 6}, 12);
    const auto& [kind, start, end, inner, outer, spread, stops, map] = gradient.gradient();
    for (const double t : {0.0, 0.25, 1.0, 2.5})
        for (const double angle : {0.0, 1.0, 2.5, 4.0}) {
            const double radius = std::lerp(inner, outer, t);
            const Point p{std::lerp(start.x, end.x, t) + radius * std::cos(angle),
                          std::lerp(start.y, end.y, t) + radius * std::sin(angle)};
            EXPECT_NEAR(t, gradient.along(map.apply(p)), 1e-9);
        }
    const auto redAt = [](Spread way, double x) {
        return linear({0, 0}, {100, 0}, {{0, {200, 0, 0}, 1}, {1, {0, 0, 0}, 1}}, way)
            .at({x, 0})[0];
    };
    EXPECT_NEAR(0, redAt(Spread::pad, 125), 1);
    EXPECT_NEAR(150, redAt(Spread::repeat, 125), 1);
    EXPECT_NEAR(50, redAt(Spread::reflect, 125), 1);
    EXPECT_NEAR(50, redAt(Spread::repeat, -25), 1);
}

TEST(Look, IsThePileThatItIsMadeOf) {
    const Look across(linear({0, 0}, {100, 0}, kFading));
    const Look down(linear({0, 0}, {0, 100}, kFading));
    const Look ground(linear({0, 0}, {100, 0}, kOpaque));
    const Look green(Tint{{0, 255, 0}, 0.4});
    const Look group = over(green, over(down, across)).faded(0.5);
    for (const Point p : places()) {
        expectNear(mixed(green.at(p), ground.at(p)), over(green, ground).at(p), 2);
        expectNear(mixed(across.at(p), ground.at(p)), over(across, ground).at(p), 3);
        Sample half = mixed(green.at(p), mixed(down.at(p), across.at(p)));
        for (double& part : half)
            part /= 2;
        expectNear(half, group.at(p), 2);
        expectNear(mixed(half, ground.at(p)), over(group, ground).at(p), 3);
    }
    EXPECT_NE(nullptr, over(green, over(across, ground)).gradient()) << "all run the same way";
    EXPECT_EQ(nullptr, over(down, across).gradient());
    EXPECT_EQ(1U, over(ground, down).weight()) << "nothing shows through";
    EXPECT_NE(nullptr, over(green, Look(kWhite)).tint());
    EXPECT_TRUE(over(across, Look(kWhite)).isOpaque());
    EXPECT_FALSE(over(across, green).isOpaque());
    EXPECT_EQ(across, over(Look(Tint{{1, 2, 3}, 0}), across));
}

TEST(Look, StaysSmall) {
    Look pile{kWhite};
    for (int i = 0; i < 1000; ++i) {
        const double x = i;
        pile = over(Look(linear({x, 0}, {100, x}, kFading)).faded(0.1), pile);
        if (i % 100 == 0)
            pile = over(pile.faded(0.9), pile);
    }
    EXPECT_LE(pile.weight(), 130U);
    EXPECT_TRUE(pile.isOpaque());
    EXPECT_NEAR(1, pile.at({50, 50})[3], 1e-9);
}

/// What is seen at a place where patches lie on top of each other.
Sample seenAt(const std::vector<Patch>& patches, Point p) {
    Sample seen{};
    for (const Patch& patch : patches) {
        const bool isThere = std::ranges::any_of(patch.area, [&](const ClipperLib::Path& polygon) {
            return ClipperLib::PointInPolygon(
                       {std::llround(p.x * kGridUnits), std::llround(p.y * kGridUnits)}, polygon) !=
                   0;
        });
        if (isThere)
            seen = patch.paint.gradient ? PageGradient(*patch.paint.gradient).at(p)
                                        : sampleOf(patch.paint.color, 1);
    }
    return seen;
}

TEST(Patchwork, ComesCloseToWhatNoGradientShows) {
    const Look ground(linear({0, 0}, {100, 0}, kOpaque));
    const Polygons page = toPolygons(scene::Rect{-20, -20, 140, 140});
    for (const Look& light :
         {Look(linear({0, 0}, {0, 100}, kFading)), Look(radial({5, 20}, 0, {5, 20}, 40)),
          Look(radial({3, 4}, 2, {5, 6}, 30)),
          over(Look(linear({0, 0}, {60, 60}, kFading)).faded(0.5),
               Look(linear({0, 0}, {0, 100}, kFading)))}) {
        const Look look = over(light, ground);
        BlendBudget budget;
        const auto patches = patchesOf(look, page, budget);
        EXPECT_LT(patches.size(), 600U);
        for (const Point p : places())
            expectNear(look.at(p), seenAt(patches, p), 14);
    }
}

TEST(Patchwork, TakesOnePatchWhereOneGradientIsEnough) {
    const Polygons page = toPolygons(scene::Rect{0, 0, 100, 100});
    BlendBudget budget;
    const Look faint = over(Look(linear({0, 0}, {0, 100}, {{0, {9, 9, 9}, .02}, {1, {}, 0}})),
                            Look(linear({0, 0}, {100, 0}, kOpaque)));
    EXPECT_EQ(1U, patchesOf(faint, page, budget).size());
    const Look crossing =
        over(Look(linear({0, 0}, {0, 100}, kFading)), Look(linear({0, 0}, {100, 0}, kOpaque)));
    budget.gradients = 5;
    EXPECT_LE(patchesOf(crossing, page, budget).size(), 6U) << "no more than there may be";
    budget = {};
    budget.fits = 1;
    const auto last = patchesOf(crossing, page, budget);
    ASSERT_EQ(1U, last.size());
    EXPECT_EQ(scene::Paint::Kind::solid, last[0].paint.kind);
}

TEST(Backdrop, MixesTheSpotsAround) {
    const image::Backdrop spots{2, 2, {{0, 0, 0}, {200, 0, 0}, {0, 100, 0}, {200, 100, 0}}};
    const auto red = [&](double x, double y) { return spots.at(x, y).red; };
    EXPECT_EQ(0, red(0, 0.3));
    EXPECT_EQ(100, red(0.5, 0));
    EXPECT_EQ(200, red(1, 0.9));
    EXPECT_EQ((scene::Color{50, 75, 0}), spots.at(0.375, 0.625));
}

}  // namespace

}  // namespace psrender::plan
