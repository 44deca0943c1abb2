#include "psrender/svg/path/PathParser.h"

#include "psrender/svg/path/ArcToCubics.h"
#include "tests/psrender/svg/Drawings.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace psrender::svg {
namespace {

using scene::Affine;
using scene::Outline;
using scene::Point;

TEST(SvgPaths, BecomeLinesAndCubics) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"M1 2L3 4", "M1,2 L3,4"},
        {" M1,2 3,4 5 6", "M1,2 L3,4 L5,6"},
        {"m1 2 3 4 5 6", "M1,2 L4,6 L9,12"},
        {"M1 1H5V7h-1v-2", "M1,1 L5,1 L5,7 L4,7 L4,5"},
        {"M0 0h1 2 3", "M0,0 L1,0 L3,0 L6,0"},
        {"m5 5c1 1 2 2 3 3C4 4 5 5 6 6", "M5,5 C6,6 7,7 8,8 C4,4 5,5 6,6"},
        {"M0 0q3 3 6 0", "M0,0 C2,2 4,2 6,0"},
        {"M0 0.5.5-1e0-2.0.0", "M0,0.5 L0.5,-1 L-2,0"},
    };
    for (const auto& [data, outline] : rows)
        EXPECT_EQ(toText(parsePath(data).outline), outline) << data;
}

TEST(SvgPaths, SmoothCurvesMirrorOnlyTheirOwnKind) {
    const std::pair<const char*, const char*> rows[] = {
        {"M0 0C0 3 3 3 3 0S6-3 6 0", "M0,0 C0,3 3,3 3,0 C3,-3 6,-3 6,0"},
        {"M0 0C0 3 3 3 3 0s3-3 3 0s3 3 3 0", "M0,0 C0,3 3,3 3,0 C3,-3 6,-3 6,0 C6,3 9,3 9,0"},
        {"M1 1S2 2 3 3", "M1,1 C1,1 2,2 3,3"},
        {"M0 0Q3 3 6 0S9 9 12 0", "M0,0 C2,2 4,2 6,0 C6,0 9,9 12,0"},
        {"M0 0Q3 3 6 0T12 0t6 0", "M0,0 C2,2 4,2 6,0 C8,-2 10,-2 12,0 C14,2 16,2 18,0"},
        {"M0 0C9 9 3 3 3 0T6 0", "M0,0 C9,9 3,3 3,0 C3,0 4,0 6,0"},
    };
    for (const auto& [data, outline] : rows)
        EXPECT_EQ(toText(parsePath(data).outline), outline) << data;
}

TEST(SvgPaths, EverySubpathOpensWithAMoveThatDraws) {
    const std::pair<const char*, const char*> rows[] = {
        {"M1 1", ""},
        {"M1 1M2 2L3 3M4 4", "M2,2 L3,3"},
        {"M1 1h2v2z", "M1,1 L3,1 L3,3 Z"},
        {"M1 1h2zh4", "M1,1 L3,1 Z M1,1 L5,1"},
        {"M1 1h2zm5 5h1 m1 1 2 2", "M1,1 L3,1 Z M6,6 L7,6 M8,7 L10,9"},
        {"M4 4z", "M4,4 Z"},
    };
    for (const auto& [data, outline] : rows)
        EXPECT_EQ(toText(parsePath(data).outline), outline) << data;
}

TEST(SvgPaths, KeepWhatStandsBeforeAnError) {
    const std::pair<const char*, const char*> rows[] = {
        {"L1 1", ""},
        {"junk", ""},
        {"M1 1L2 2 junk L3 3", "M1,1 L2,2"},
        {"M1 1L2 2L3", "M1,1 L2,2"},
        {"M1 1L2 2,", "M1,1 L2,2"},
        {"M1 1L2 2C1 1 2 2 3", "M1,1 L2,2"},
        {"M1 1L2 2L1e400 3", "M1,1 L2,2"},
        {"M1 1L2 2A1 1 0 2 0 3 3", "M1,1 L2,2"},
        {"M1 1L2,,3", ""},
    };
    for (const auto& [data, outline] : rows) {
        const ParsedPath path = parsePath(data);
        EXPECT_FALSE(path.isWhole) << data;
        EXPECT_EQ(toText(path.outline), outline) << data;
    }
}

TEST(SvgPaths, ArcFlagsNeedNoSeparators) {
    const Outline spaced = parsePath("M0 0 a 25 25 -30 0 1 50 -25 25 25 0 1 1 5 0").outline;
    const Outline dense = parsePath("M0 0a25 25 -30 0150-25 25 25 0 115.0 0").outline;
    EXPECT_EQ(toText(spaced), toText(dense));
    EXPECT_EQ(spaced.verbs().size(), 7U);
}

TEST(SvgPaths, OddPointListsLoseTheirLastNumber) {
    EXPECT_EQ(toText(parsePoints("1,2 3 4-5,6", true).outline), "M1,2 L3,4 L-5,6 Z");
    EXPECT_EQ(toText(parsePoints("1,2 3,4 5", false).outline), "M1,2 L3,4");
    EXPECT_FALSE(parsePoints("1,2 3,4 5", false).isWhole);
    EXPECT_TRUE(parsePoints(" 1,2 3,4 ", false).isWhole);
}

Outline arcFrom(Point start, const Arc& arc) {
    Outline outline;
    outline.moveTo(start);
    appendArc(outline, start, arc);
    return outline;
}

TEST(SvgArcs, EndWhereTheyMustOnAllFourSides) {
    // A circle of radius 5 through (0,0) and (5,5) has its centre at (5,0) or at (0,5).
    EXPECT_EQ(toText(arcFrom({0, 0}, {5, 5, 0, false, false, {5, 5}})),
              "M0,0 C0,2.761 2.239,5 5,5");
    EXPECT_EQ(toText(arcFrom({0, 0}, {5, 5, 0, false, true, {5, 5}})), "M0,0 C2.761,0 5,2.239 5,5");
    EXPECT_EQ(toText(arcFrom({0, 0}, {5, 5, 0, true, true, {5, 5}})),
              "M0,0 C0,-2.761 2.239,-5 5,-5 C7.761,-5 10,-2.761 10,0 C10,2.761 7.761,5 5,5");
    EXPECT_EQ(toText(arcFrom({0, 0}, {5, 5, 0, true, false, {5, 5}})),
              "M0,0 C-2.761,0 -5,2.239 -5,5 C-5,7.761 -2.761,10 0,10 C2.761,10 5,7.761 5,5");
}

TEST(SvgArcs, DegenerateOnesAreLinesOrNothing) {
    EXPECT_EQ(toText(arcFrom({1, 1}, {0, 5, 0, false, true, {2, 3}})), "M1,1 L2,3");
    EXPECT_EQ(toText(arcFrom({1, 1}, {5, 5, 0, true, true, {1, 1}})), "M1,1");
    // Radii too small, and negative: half a circle over the chord.
    EXPECT_EQ(toText(arcFrom({0, 0}, {-1, 1, 0, false, true, {10, 0}})),
              "M0,0 C0,-2.761 2.239,-5 5,-5 C7.761,-5 10,-2.761 10,0");
}

TEST(SvgArcs, StayOnTheirEllipse) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> any(-100, 100);
    for (int i = 0; i < 200; ++i) {
        const Arc arc{any(random), any(random), any(random),
                      i % 2 == 0,  i % 3 == 0,  {any(random), any(random)}};
        const Outline outline = arcFrom({0, 0}, arc);
        // Where the ellipse is the unit circle, all cubics of an arc have the same chord.
        const Affine toFrame =
            Affine::scaling(1 / std::abs(arc.radiusX), 1 / std::abs(arc.radiusY)) *
            Affine::rotation(-arc.degrees);
        std::vector<Point> joints{toFrame.apply({0, 0})};
        for (std::size_t k = 3; k < outline.points().size(); k += 3)
            joints.push_back(toFrame.apply(outline.points()[k]));
        ASSERT_EQ(outline.points().back(), arc.end);
        for (std::size_t k = 2; k < joints.size(); ++k) {
            const double first = std::hypot(joints[1].x - joints[0].x, joints[1].y - joints[0].y);
            const double other =
                std::hypot(joints[k].x - joints[k - 1].x, joints[k].y - joints[k - 1].y);
            EXPECT_NEAR(first, other, 1e-6 * first);
        }
    }
}

}  // namespace
}  // namespace psrender::svg
