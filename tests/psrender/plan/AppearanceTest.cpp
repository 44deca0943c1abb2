#include "psrender/image/Backdrop.h"
#include "psrender/plan/blend/FieldSampling.h"

#include <gmock/gmock.h>

#include <algorithm>
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

Appearance look(PageGradient gradient) {
    return Appearance(gradientLayer(std::move(gradient)));
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

TEST(Appearance, IsThePileThatItIsMadeOf) {
    const Appearance across = look(linear({0, 0}, {100, 0}, kFading));
    const Appearance down = look(linear({0, 0}, {0, 100}, kFading));
    const Appearance ground = look(linear({0, 0}, {100, 0}, kOpaque));
    const Appearance green(Tint{{0, 255, 0}, 0.4});
    const Appearance group = over(green, over(down, across)).faded(0.5);
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
    EXPECT_NE(nullptr, over(green, Appearance(kWhite)).tint());
    EXPECT_TRUE(over(across, Appearance(kWhite)).isOpaque());
    EXPECT_FALSE(over(across, green).isOpaque());
    EXPECT_TRUE(across == over(Appearance(Tint{{1, 2, 3}, 0}), across));
}

TEST(Appearance, StaysSmall) {
    Appearance pile{kWhite};
    for (int i = 0; i < 1000; ++i) {
        const double x = i;
        pile = over(look(linear({x, 0}, {100, x}, kFading)).faded(0.1), pile);
        if (i % 100 == 0)
            pile = over(pile.faded(0.9), pile);
    }
    EXPECT_LE(pile.weight(), 130U);
    EXPECT_TRUE(pile.isOpaque());
    EXPECT_NEAR(1, pile.at({50, 50})[3], 1e-9);
}

/// A field's colour at a place, run together from the four samples around it.
Sample seenAt(const scene::ColorField& field, Point p) {
    const auto spot = [](double at, double begin, double length, std::size_t count) {
        const double steps =
            std::clamp((at - begin) / length, 0.0, 1.0) * static_cast<double>(count - 1);
        const double first = std::min(std::floor(steps), static_cast<double>(count) - 2);
        return std::pair{static_cast<std::size_t>(first), steps - first};
    };
    const auto [column, x] = spot(p.x, field.box.x, field.box.width, field.columns);
    const auto [row, y] = spot(p.y, field.box.y, field.box.height, field.rows);
    const std::size_t first = row * field.columns + column;
    const auto at = [&](std::size_t dx, std::size_t dy) {
        return field.colors[first + dy * field.columns + dx];
    };
    return sampleOf(scene::Color::mixed(scene::Color::mixed(at(0, 0), at(1, 0), x),
                                        scene::Color::mixed(at(0, 1), at(1, 1), x), y),
                    1);
}

TEST(Fields, ComeCloseToWhatNoGradientShows) {
    const Appearance ground = look(linear({0, 0}, {100, 0}, kOpaque));
    const scene::Rect page{-20, -20, 140, 140};
    for (const Appearance& light :
         {look(linear({0, 0}, {0, 100}, kFading)), look(radial({5, 20}, 0, {5, 20}, 40)),
          look(radial({3, 4}, 2, {5, 6}, 30)),
          over(look(linear({0, 0}, {60, 60}, kFading)).faded(0.5),
               look(linear({0, 0}, {0, 100}, kFading)))}) {
        const Appearance seen = over(light, ground);
        Budget budget;
        const scene::Paint paint = fieldOf(seen, page, budget);
        ASSERT_NE(nullptr, paint.field());
        EXPECT_LE(paint.field()->colors.size(), 10'000U);
        for (const Point p : places())
            expectNear(seen.at(p), seenAt(*paint.field(), p), 8);
    }
}

TEST(Fields, AreNoFinerThanNeeded) {
    const scene::Rect page{0, 0, 100, 100};
    Budget budget;
    EXPECT_NE(nullptr, fieldOf(Appearance(Tint{{1, 2, 3}, 1}), page, budget).color());
    const Appearance faint = over(look(linear({0, 0}, {0, 100}, {{0, {9, 9, 9}, .02}, {1, {}, 0}})),
                                  look(linear({0, 0}, {100, 0}, kOpaque)));
    EXPECT_LE(fieldOf(faint, page, budget).field()->colors.size(), 400U) << "nearly straight";
    const Appearance rings = over(look(radial({5, 20}, 0, {5, 20}, 4)), faint);
    Budget spent(1);
    EXPECT_LE(fieldOf(rings, page, spent).field()->colors.size(), 100U);
}

TEST(Appearance, KnowsPicturesAndPatternsBeneathATint) {
    auto tile = std::make_shared<scene::Pattern>();
    tile->content = std::make_shared<const scene::ItemList>();
    const LayerPtr pattern = patternLayer({std::shared_ptr<const scene::Pattern>(std::move(tile))});
    const Appearance whole(pattern);
    ASSERT_TRUE(whole.tinted());
    EXPECT_EQ(0, whole.tinted()->tint.alpha);
    const auto beneath = over(Appearance(Tint{{9, 9, 9}, 0.25}), whole).tinted();
    ASSERT_TRUE(beneath);
    EXPECT_EQ((Tint{{9, 9, 9}, 0.25}), beneath->tint);
    const auto faded = over(whole.faded(0.75), Appearance(Tint{{8, 8, 8}, 1})).tinted();
    ASSERT_TRUE(faded) << "a share of it over one colour is the same";
    EXPECT_EQ((Tint{{8, 8, 8}, 0.25}), faded->tint);
    EXPECT_EQ(pattern.get(), faded->original);
    EXPECT_FALSE(over(look(linear({0, 0}, {9, 9}, kFading)), whole).tinted());
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
