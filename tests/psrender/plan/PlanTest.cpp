#include "psrender/plan/Planner.h"
#include "psrender/plan/Polyline.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using psrender::Warnings;
using namespace psrender::scene;

Paint solid(std::uint8_t red, double opacity = 1) {
    return {Paint::Kind::solid, {red, 0, 0}, opacity};
}

std::shared_ptr<const Outline> polygon(std::initializer_list<std::vector<Point>> subpaths) {
    auto outline = std::make_shared<Outline>();
    for (const auto& points : subpaths) {
        outline->moveTo(points[0]);
        for (std::size_t i = 1; i < points.size(); ++i)
            outline->lineTo(points[i]);
        outline->close();
    }
    return outline;
}

std::vector<Point> square(double from, double to) {
    return {{from, from}, {to, from}, {to, to}, {from, to}};
}

/// A circle of four cubics.
std::shared_ptr<Outline> rings(std::initializer_list<double> radii) {
    auto outline = std::make_shared<Outline>();
    for (const double r : radii) {
        const double k = r * 0.5523;
        outline->moveTo({r, 0});
        outline->cubicTo({r, k}, {k, r}, {0, r});
        outline->cubicTo({-k, r}, {-r, k}, {-r, 0});
        outline->cubicTo({-r, -k}, {-k, -r}, {0, -r});
        outline->cubicTo({k, -r}, {r, -k}, {r, 0});
        outline->close();
    }
    return outline;
}

Shape shape(std::shared_ptr<const Outline> outline, Paint fill, Paint stroke = {}) {
    Shape result;
    result.outline = std::move(outline);
    result.fill = fill;
    result.stroke = stroke;
    return result;
}

std::vector<Shape> planned(std::vector<Item> items, Warnings* warnings = nullptr,
                           const psrender::plan::PlanOptions& options = {}) {
    Warnings own;
    std::vector<Shape> shapes;
    psrender::scene::Page page;
    page.width = page.height = 100;
    page.items = std::move(items);
    for (const Item& item :
         psrender::plan::Planner(options).plan(std::move(page), warnings ? *warnings : own).items)
        shapes.push_back(std::get<Shape>(item));
    return shapes;
}

/// How often `outline` winds around `p`, counted on chords.
int winding(const Outline& outline, Point p) {
    int count = 0;
    for (const auto& line : psrender::plan::flatten(outline, {}, 0.001))
        for (std::size_t i = 0; i < line.points.size(); ++i) {
            const Point a = line.points[i];
            const Point b = line.points[(i + 1) % line.points.size()];
            const double side = (b.x - a.x) * (p.y - a.y) - (p.x - a.x) * (b.y - a.y);
            if (a.y <= p.y && b.y > p.y && side > 0)
                ++count;
            if (a.y > p.y && b.y <= p.y && side < 0)
                --count;
        }
    return count;
}

TEST(Planner, PaintsWhatIsSeenInTheEndOnly) {
    const Item thin = shape(polygon({square(0, 50)}), solid(255, 0.5));
    EXPECT_EQ(1U, planned(std::vector<Item>(20, thin)).size());
    const Item small = shape(polygon({square(10, 20)}), solid(0));
    EXPECT_EQ(2U, planned({small, thin, thin, thin}).size()) << "and its piece over the small one";
    const std::vector<Item> group{small, BeginGroup{0.5, {}}, thin, thin, EndGroup{}};
    EXPECT_EQ(2U, planned(group).size());
}

TEST(Opacity, IsBlendedOverWhiteThroughAllGroups) {
    const auto outline = polygon({square(0, 1)});
    const auto shapes = planned(
        {shape(outline, solid(0, 0.5)), BeginGroup{0.5}, BeginGroup{0.5},
         shape(outline, solid(55), solid(0, 0)), EndGroup{}, shape(outline, solid(0)), EndGroup{},
         shape(outline, solid(9)), shape(outline, solid(9, 0)), shape(outline, {})},
        nullptr, {0, psrender::plan::OpacityWay::white});
    ASSERT_EQ(4U, shapes.size()) << "what cannot be seen is left out";
    EXPECT_EQ(128, shapes[0].fill.color.red);
    EXPECT_EQ(205, shapes[1].fill.color.red);
    EXPECT_EQ(Paint::Kind::none, shapes[1].stroke.kind);
    EXPECT_EQ(128, shapes[2].fill.color.red);
    EXPECT_EQ(9, shapes[3].fill.color.red);
    EXPECT_EQ(1, shapes[0].fill.opacity);
}

TEST(EvenOdd, KeepsCurvesWhereTurningIsEnough) {
    Shape ring = shape(rings({30, 20, 10}), solid(1));
    ring.fillRule = FillRule::evenOdd;
    const auto shapes = planned({ring});
    ASSERT_EQ(1U, shapes.size());
    EXPECT_EQ(FillRule::nonZero, shapes[0].fillRule);
    EXPECT_EQ(ring.outline->points().size(), shapes[0].outline->points().size());
    for (const auto& [x, inside] : {std::pair{5.0, true}, {15.0, false}, {25.0, true}})
        EXPECT_EQ(inside, winding(*shapes[0].outline, {x, 0.1}) != 0) << x;
}

TEST(EvenOdd, CutsWhatCrosses) {
    std::vector<Point> star;
    for (int i = 0; i < 5; ++i)
        star.push_back(
            {50 + 40 * std::sin(i * 4 * M_PI / 5), 50 - 40 * std::cos(i * 4 * M_PI / 5)});
    const auto cases = {polygon({star}), polygon({square(10, 60), square(40, 90)}),
                        polygon({square(10, 90), square(10, 90), square(20, 40)})};
    for (const auto& outline : cases) {
        Shape crossing = shape(outline, solid(1), solid(2));
        crossing.transform = {2, 0, 0, 2, 5, 5};
        crossing.fillRule = FillRule::evenOdd;
        const auto shapes = planned({crossing});
        ASSERT_EQ(2U, shapes.size());
        EXPECT_EQ(Paint::Kind::none, shapes[0].stroke.kind);
        EXPECT_EQ(outline, shapes[1].outline) << "the stroke keeps the outline";
        EXPECT_EQ(Paint::Kind::none, shapes[1].fill.kind);
        for (double x = 0.3; x < 100; x += 3.7)
            for (double y = 0.9; y < 100; y += 3.3)
                ASSERT_EQ(winding(*outline, {x, y}) % 2 != 0,
                          winding(*shapes[0].outline, {x, y}) != 0)
                    << x << " " << y;
    }
}

TEST(EvenOdd, LosesNoSmallHoleInALargeOutline) {
    Shape lake = shape(polygon({square(0, 900), square(450, 450.2)}), solid(1));
    lake.fillRule = FillRule::evenOdd;
    const auto shapes = planned({lake});
    EXPECT_EQ(0, winding(*shapes.at(0).outline, {450.1, 450.1}));
    EXPECT_NE(0, winding(*shapes.at(0).outline, {449, 450.1}));
}

TEST(EvenOdd, IsDecidedInTimeWhateverTheOutline) {
    constexpr int kTeeth = 50'000;
    auto comb = std::make_shared<Outline>();
    auto nested = std::make_shared<Outline>();
    auto sideways = std::make_shared<Outline>();
    comb->moveTo({0, 0});
    sideways->moveTo({-1, 0});
    for (int i = 0; i < kTeeth; ++i) {
        const double at = i * 0.009;
        for (const double y : {0.0, 900.0})
            comb->lineTo({at, y}), comb->lineTo({at + 0.004, 900 - y});
        for (const double dy : {0.0, 0.004})
            sideways->lineTo({dy * 2e5, at + dy}), sideways->lineTo({800 - dy * 2e5, at + dy});
        nested->append(*polygon({square(at, 1000 - at)}));
    }
    for (const auto& outline : {comb, nested, sideways}) {
        Shape tangle = shape(outline, solid(1));
        tangle.fillRule = FillRule::evenOdd;
        EXPECT_EQ(1U, planned({tangle}).size());
    }
}

TEST(EvenOdd, LeavesSimpleAndHopelessOutlinesAlone) {
    Shape simple = shape(polygon({square(0, 50)}), solid(1), solid(2));
    simple.fillRule = FillRule::evenOdd;
    EXPECT_EQ(simple.outline, planned({simple}).at(0).outline);
    auto tangle = std::make_shared<Outline>();
    tangle->moveTo({0, 0});
    for (int i = 0; i < 100'000; ++i)
        tangle->lineTo({std::fmod(i * 61.8034, 100), std::fmod(i * 38.1966, 97)});
    Shape hopeless = shape(tangle, solid(1));
    hopeless.fillRule = FillRule::evenOdd;
    Warnings warnings;
    EXPECT_EQ(tangle, planned({hopeless}, &warnings).at(0).outline);
    EXPECT_THAT(warnings.sentences(), testing::ElementsAre(testing::HasSubstr("crossings")));
}

std::size_t discs(const Outline& outline, StrokeStyle style, double scale = 1) {
    Shape line = shape(std::make_shared<Outline>(outline), {}, solid(1));
    style.join = Join::round;
    line.strokeStyle = style;
    line.transform = Affine::scaling(scale, scale);
    const auto shapes = planned({line});
    EXPECT_EQ(Join::bevel, shapes.at(0).strokeStyle.join);
    if (shapes.size() == 1)
        return 0;
    EXPECT_EQ(Cap::round, shapes[1].strokeStyle.cap);
    EXPECT_TRUE(shapes[1].strokeStyle.dashes.empty());
    return shapes[1].outline->points().size() / 2;
}

TEST(Joins, RoundOnesAreBevelsWithDiscsWhereTheyShow) {
    Outline open;
    open.moveTo({0, 0});
    open.lineTo({20, 0});
    open.lineTo({20, 20});
    open.lineTo({20, 40});
    open.lineTo({0, 40});
    Outline closed = open;
    closed.close();
    StrokeStyle wide;
    wide.width = 5;
    EXPECT_EQ(2U, discs(open, wide)) << "not on the straight vertex, not at the ends";
    EXPECT_EQ(4U, discs(closed, wide));
    EXPECT_EQ(0U, discs(*rings({10}), wide)) << "a circle is smooth";
    EXPECT_EQ(0U, discs(open, wide, 0.01)) << "too small to be seen";
    StrokeStyle dashed = wide;
    dashed.dashes = {30, 40};
    EXPECT_EQ(1U, discs(open, dashed)) << "the second corner lies in a gap";
    dashed.dashOffset = 45;
    EXPECT_EQ(0U, discs(open, dashed)) << "65 and 105 of a period of 70: both in a gap";
}

TEST(Joins, SquareDotsAreFilled) {
    Outline dot;
    dot.moveTo({5, 5});
    dot.lineTo({5, 5});
    Shape line = shape(std::make_shared<Outline>(dot), {}, solid(1));
    line.strokeStyle.cap = Cap::square;
    line.strokeStyle.width = 4;
    const auto shapes = planned({line});
    ASSERT_EQ(2U, shapes.size());
    EXPECT_EQ(Paint::Kind::solid, shapes[1].fill.kind);
    EXPECT_EQ((Rect{3, 3, 4, 4}), *shapes[1].outline->controlBox());
}

TEST(Range, KeepsPrecisionAndDropsTheUnreachable) {
    Shape map =
        shape(polygon({{{3.5e6, 5.8e6}, {3.5e6 + 1, 5.8e6}, {3.5e6, 5.8e6 + 1}}}), solid(1));
    map.transform = Affine::scaling(100, 100) * Affine::translation(-3.5e6, -5.8e6);
    const Shape near = planned({map}).at(0);
    EXPECT_LT(std::abs(near.outline->points()[0].x), 1);
    EXPECT_NEAR(100, near.transform.apply(near.outline->points()[1]).x, 1e-6);
    Warnings warnings;
    Shape far = shape(polygon({square(0, 1)}), solid(1));
    far.transform = Affine::translation(2e6, 0);
    Shape infinite = shape(polygon({square(0, HUGE_VAL)}), solid(1));
    Shape flat = shape(polygon({square(0, 1)}), solid(1));
    flat.transform = Affine::scaling(1, 0);
    EXPECT_TRUE(planned({far, infinite, flat}, &warnings).empty());
    EXPECT_THAT(warnings.sentences(), testing::ElementsAre(testing::HasSubstr("beyond all bounds")))
        << "the far one is cut to nothing, the flat one shows nothing";
}

}  // namespace
