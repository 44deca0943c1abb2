#include "psrender/scene/DisplayList.h"
#include "psrender/scene/OutlineBox.h"

#include <gtest/gtest.h>

#include <cmath>

namespace psrender::scene {

namespace {

TEST(Rects, KnowWhatTheyShare) {
    const Rect left{0, 0, 10, 10};
    const Rect right{10, 5, 10, 10};
    EXPECT_TRUE(left.meets(right)) << "they touch";
    EXPECT_EQ((Rect{10, 5, 0, 5}), left.common(right));
    EXPECT_EQ((Rect{0, 0, 20, 15}), left.around(right));
    EXPECT_EQ(std::nullopt, left.common({11, 0, 5, 5}));
    EXPECT_TRUE(left.contains({0, 2, 10, 8}));
    EXPECT_FALSE(left.contains(left.grown(0.1)));
    const Rect broken{std::nan(""), 0, 1, 1};
    EXPECT_FALSE(broken.contains(broken));
    EXPECT_FALSE(left.meets(broken));
    const Rect turned = left.mapped(Affine::rotation(45));
    EXPECT_NEAR(10 * std::sqrt(2), turned.height, 1e-9);
    EXPECT_NEAR(-10 / std::sqrt(2), turned.x, 1e-9);
}

TEST(Maps, TellWhetherTheyLeadBack) {
    EXPECT_TRUE((Affine{0, 2, -3, 0, 7, 8}.isInvertible()));
    EXPECT_DOUBLE_EQ(3, (Affine{0, 2, -3, 0, 7, 8}.largestScale()));
    EXPECT_FALSE((Affine{1, 2, 2, 4, 0, 0}.isInvertible())) << "flat";
    EXPECT_FALSE((Affine{1e200, 0, 0, 1e200, 0, 0}.isInvertible())) << "beyond all bounds";
    EXPECT_FALSE((Affine{1, 0, 0, 1, std::nan(""), 0}.isInvertible()));
}

/// What is painted lies in its own space, which moves with the outline.
TEST(Paints, MoveWithTheirOutline) {
    Gradient gradient;
    gradient.transform = Affine::scaling(2, 2);
    const Paint paint{std::make_shared<const Gradient>(gradient), 0.5};
    const Paint moved = scene::moved(paint, Affine::translation(3, 4));
    ASSERT_NE(nullptr, moved.gradient());
    EXPECT_EQ((Affine{2, 0, 0, 2, 3, 4}), moved.gradient()->transform);
    EXPECT_EQ(0.5, moved.opacity);
    EXPECT_EQ(nullptr, moved.pattern());
    EXPECT_FALSE(isPainted(scene::moved({}, Affine::translation(3, 4))));
}

TEST(Symbols, AreItemsWhereTheyArePlaced) {
    auto symbol = std::make_shared<ItemList>();
    symbol->items.emplace_back(BeginGroup{1, rectangleClip({0, 0, 1, 1}, {})});
    symbol->items.emplace_back(Picture{});
    symbol->items.emplace_back(EndGroup{});
    const auto items = itemsOf({symbol, Affine::translation(5, 6)});
    ASSERT_EQ(3U, items.size());
    EXPECT_EQ(5, std::get<BeginGroup>(items[0]).clip->transform.e);
    EXPECT_EQ(6, transformOf(items[1])->f);
    EXPECT_EQ(nullptr, transformOf(items[2]));
    EXPECT_EQ(nullptr, paintOf(items[1]));
}

TEST(OutlineBoxes, EndWhereCurvesTurn) {
    Outline outline;
    outline.moveTo({0, 0});
    outline.cubicTo({0, 40}, {30, 40}, {30, 0});
    outline.lineTo({10, -5});
    const auto box = tightBox(outline);
    ASSERT_TRUE(box);
    EXPECT_NEAR(-5, box->y, 1e-9);
    EXPECT_NEAR(35, box->height, 1e-9);
    EXPECT_NEAR(30, box->width, 1e-9);
}

}  // namespace

}  // namespace psrender::scene
