#include "psrender/plan/Planner.h"
#include "psrender/plan/geometry/Polyline.h"
#include "psrender/plan/geometry/Silhouette.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using psrender::Warnings;
using namespace psrender::scene;

Paint solid(std::uint8_t red, double opacity = 1) {
    return {Color{red, 0, 0}, opacity};
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
        if (const auto* planned = std::get_if<Shape>(&item))
            shapes.push_back(*planned);
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
    EXPECT_EQ(128, shapes[0].fill.color()->red);
    EXPECT_EQ(205, shapes[1].fill.color()->red);
    EXPECT_FALSE(isPainted(shapes[1].stroke));
    EXPECT_EQ(128, shapes[2].fill.color()->red);
    EXPECT_EQ(9, shapes[3].fill.color()->red);
    EXPECT_EQ(1, shapes[0].fill.opacity);
}

/// What the fill of `outline` covers by a rule, against the winding number, on a grid of places.
void expectArea(const std::shared_ptr<const Outline>& outline, FillRule rule) {
    Shape crossing = shape(outline, solid(1));
    crossing.transform = {2, 0, 0, 2, 5, 5};
    crossing.fillRule = rule;
    psrender::plan::Budget budget;
    const auto area = psrender::plan::fillArea(crossing, budget);
    ASSERT_TRUE(area);
    for (double x = 0.3; x < 100; x += 3.7)
        for (double y = 0.9; y < 100; y += 3.3) {
            const int turns = winding(*outline, {x, y});
            ASSERT_EQ(rule == FillRule::evenOdd ? turns % 2 != 0 : turns != 0,
                      area->contains(crossing.transform.apply({x, y})))
                << x << " " << y;
        }
}

TEST(Areas, AreThoseOfTheFillRule) {
    std::vector<Point> star;
    for (int i = 0; i < 5; ++i)
        star.push_back(
            {50 + 40 * std::sin(i * 4 * M_PI / 5), 50 - 40 * std::cos(i * 4 * M_PI / 5)});
    for (const auto& outline : {polygon({star}), polygon({square(10, 60), square(40, 90)}),
                                polygon({square(10, 90), square(10, 90), square(20, 40)})})
        for (const FillRule rule : {FillRule::evenOdd, FillRule::nonZero})
            expectArea(outline, rule);
}

/// Outlines that a sweep, or its clean-up, would take minutes for.
TEST(Areas, SpendNoMoreThanThereIs) {
    constexpr int kTeeth = 50'000;
    auto comb = std::make_shared<Outline>();
    auto nested = std::make_shared<Outline>();
    auto tangle = std::make_shared<Outline>();
    comb->moveTo({0, 0});
    tangle->moveTo({0, 0});
    for (int i = 0; i < kTeeth; ++i) {
        const double at = i * 0.009;
        for (const double y : {0.0, 900.0})
            comb->lineTo({at, y}), comb->lineTo({at + 0.004, 900 - y});
        tangle->lineTo({std::fmod(i * 61.8034, 100), std::fmod(i * 38.1966, 97)});
        nested->append(*polygon({square(at, 1000 - at)}));
    }
    for (const auto& outline : {comb, nested, tangle}) {
        psrender::plan::Budget budget(1'000'000);
        EXPECT_FALSE(psrender::plan::fillArea(shape(outline, solid(1)), budget));
    }
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
