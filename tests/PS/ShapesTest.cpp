#include "Drawing/Path.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

#include <cmath>

namespace {

using Core::makeObject;
using Drawing::LineCap;
using Drawing::Path;
using Kind = Drawing::PathCommandKind;

const std::string kHead = "q\n[1 0 0 1 0 0] cm\n";
const std::string kRed = " 0.99609375 0 0 setrgbcolor\n";
const std::string kRedStroke = " 2 w\n0 J\n10 M\n" + kRed + "s\n";
const std::string kRedFill = "q\n" + kRed + "f\nQ\n";

/// What `draw` writes with a red stroke 2 wide and, if wanted, a red fill.
std::string red(bool filled, const std::function<void(OpenDocument&)>& draw) {
    return drawn([&](OpenDocument& d) {
        d.setStroke(line(rgb(255, 0, 0), 2));
        d.setFill(filled ? rgb(255, 0, 0) : nullptr);
        draw(d);
    });
}

TEST(Shapes, LineIsStrokedOnlyAndADotNeedsRoundCaps) {
    EXPECT_EQ(kHead + "1 2 m\n3.5 4 l\n" + kRedStroke + "Q\n",
              red(true, [](OpenDocument& d) { d.drawLine(1, 2, 3.5F, 4); }));
    for (const LineCap cap : {LineCap::butt, LineCap::square, LineCap::round}) {
        const std::string dot = drawn([&](OpenDocument& d) {
            const auto stroke = line(rgb(0, 0, 0), 1);
            stroke->setDashCap(cap);
            d.setStroke(stroke);
            d.drawLine(5, 5, 5, 5);
        });
        EXPECT_EQ(cap == LineCap::round, dot.starts_with(kHead + "5 5 m\n5 5 l\n")) << dot;
        EXPECT_EQ(cap != LineCap::round, dot.empty());
    }
    EXPECT_EQ("", drawn([](OpenDocument& d) {
                  d.setStroke(nullptr);
                  d.drawLine(0, 0, 9, 9);
              }));
}

TEST(Shapes, RectangleIsFilledThenStroked) {
    const std::string outline = "1 2 m\n11 2 l\n11 22 l\n1 22 l\ncp\n";
    EXPECT_EQ(kHead + outline + kRedFill + kRedStroke + "Q\n",
              red(true, [](OpenDocument& d) { d.drawRectangle(1, 2, 10, 20, 0, 0); }));
    EXPECT_EQ(kHead + outline + "Q\n", drawn([](OpenDocument& d) {
                  d.setFill(nullptr);
                  d.setStroke(nullptr);
                  d.drawRectangle(1, 2, 10, 20, 0, 0);
              }));
}

TEST(Shapes, DashedRectangleIsFourSides) {
    const std::string stroke = "q\n 2 w\n[6 2 ] 2 d\n0 J\n10 M\n" + kRed + "s\nQ\n";
    EXPECT_EQ(kHead + "1 2 m\n11 2 l\n11 22 l\n1 22 l\ncp\nq\n" +  //
                  "1 2 m\n11 2 l\n" + stroke + "1 2 m\n1 22 l\n" + stroke + "1 22 m\n11 22 l\n" +
                  stroke + "11 2 m\n11 22 l\n" + stroke + kRedFill + "Q\nQ\n",
              red(true, [](OpenDocument& d) {
                  d.graphicsState->stroke->setDashArray({3, 1});
                  d.graphicsState->stroke->setDashOffset(2);
                  d.drawRectangle(1, 2, 10, 20, 0, 0);
              }));
}

TEST(Shapes, EllipseIsFourCurvesAndAClose) {
    EXPECT_EQ(kHead +
                  "8 5 m\n8 6.1045694 6.656854 7 5 7 c\n3.3431458 7 2 6.1045694 2 5 c\n"
                  "2 3.8954306 3.3431458 3 5 3 c\n6.656854 3 8 3.8954306 8 5 c\ncp\n" +
                  kRedFill + kRedStroke + "Q\n",
              red(true, [](OpenDocument& d) { d.drawEllipse(5, 5, 3, 2); }));
}

TEST(Shapes, PathOpensWithItsFirstPointAndSpellsLaterMoves) {
    const auto path = makeObject<Path>();
    path->lineTo(1, 2);
    path->curveTo(1, 2, 3, 4, 5, 6);
    path->close();
    path->moveTo(7, 8);
    path->add({static_cast<Kind>(9), 1, 1});
    path->close();
    const auto moved = makeObject<Path>();
    moved->moveTo(1, 1);
    EXPECT_EQ("1 2 m\n1 2 l\n1 2 3 4 5 6 c\ncp\n7 8 moveto\ncp\n1 1 m\n", drawn([&](auto& d) {
                  d.graphicsState->fillRule = 0;
                  d.writePath(path, true);
                  EXPECT_EQ(1, d.graphicsState->fillRule);
                  d.writePath(moved, false);
                  d.graphicsState->fillRule = 0;
                  d.writePath(makeObject<Path>(), false);
                  EXPECT_EQ(1, d.graphicsState->fillRule);
                  EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118",
                                d.writePath(nullptr, false));
              }));
    EXPECT_THAT(red(true, [&](OpenDocument& d) { d.drawPath(path); }),
                testing::EndsWith("cp\n" + kRedFill + kRedStroke + "Q\n"));
}

TEST(Stroke, WritesCapsAndKeepsTheTextBeforeAnUnknownOne) {
    const auto caps = [](int cap) {
        return red(false, [&](OpenDocument& d) {
            d.graphicsState->stroke->setDashCap(static_cast<LineCap>(cap));
            const std::string place = cap > 3 ? "PSDocument:968" : "";
            EXPECT_RAISES(Core::UnreacheableCodeException, place, d.writeStroke());
        });
    };
    EXPECT_EQ(" 2 w\n1 J\n10 M\n" + kRed + "s\n", caps(1));
    EXPECT_EQ(" 2 w\n2 J\n10 M\n" + kRed + "s\n", caps(2));
    EXPECT_EQ(" 2 w\n10 M\n" + kRed + "s\n", caps(3));
    EXPECT_EQ(" 2 w\n", caps(4));
}

TEST(Stroke, IgnoresOpacityButNeedsABrush) {
    EXPECT_EQ(" 1 w\n0 J\n10 M\n 0 0 0 setrgbcolor\ns\n", drawn([](OpenDocument& d) {
                  d.setStroke(line(rgb(0, 0, 0, 0), 1));
                  d.writeStroke();
              }));
    EXPECT_EQ(" 1 w\n0 J\n10 M\n", drawn([](OpenDocument& d) {
                  d.setStroke(line(nullptr, 1));
                  EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118", d.writeStroke());
              }));
}

TEST(Fill, FollowsTheRuleAndSkipsTheInvisible) {
    const auto filled = [](int rule, float opacity) {
        return drawn([&](OpenDocument& d) {
            d.setFill(rgb(255, 0, 0, opacity));
            d.graphicsState->fillRule = rule;
            d.writeFill();
        });
    };
    EXPECT_EQ(kRed + "f*\n", filled(0, 1));
    EXPECT_EQ(kRed + "f\n", filled(1, 0.1F));
    EXPECT_EQ(kRed, filled(2, 1));
    EXPECT_EQ("", filled(1, 0));
    EXPECT_EQ(kHead + "0 0 m\n1 0 l\n1 1 l\n0 1 l\ncp\nq\nQ\nQ\n", drawn([](OpenDocument& d) {
                  d.setStroke(nullptr);
                  d.setFill(rgb(255, 0, 0, 0));
                  d.drawRectangle(0, 0, 1, 1, 0, 0);
              }));
}

TEST(Shapes, NumbersBeyondPostScriptLeaveWholeLinesOnly) {
    const auto path = makeObject<Path>();
    path->moveTo(1, 1);
    path->lineTo(HUGE_VALF, 1);
    EXPECT_EQ(kHead + "1 1 m\n", red(false, [&](OpenDocument& d) {
                  EXPECT_RAISES(Core::NumberRangeException, "NumberText:1", d.drawPath(path));
              }));
    EXPECT_EQ(" 2 w\n", red(false, [&](OpenDocument& d) {
                  d.graphicsState->stroke->setDashArray({1, NAN});
                  EXPECT_RAISES(Core::NumberRangeException, "NumberText:1", d.writeStroke());
              }));
}

TEST(Shapes, ComeOutWhereTheyWereDrawn) {
    const auto ring = makeObject<Path>();
    for (const auto& [from, to] : {std::pair{60.0F, 90.0F}, std::pair{80.0F, 70.0F}}) {
        ring->moveTo(from, 10);
        ring->lineTo(to, 10);
        ring->lineTo(to, from < to ? 40.0F : 30.0F);
        ring->lineTo(from, from < to ? 40.0F : 30.0F);
        ring->close();
    }
    const Interpretation seen = interpret(finished([&](OpenDocument& d) {
        d.startPage({100, 50});
        d.setTransform({});
        d.setStroke(nullptr);
        d.setFill(rgb(255, 0, 0));
        d.drawRectangle(0, 0, 10, 10, 0, 0);
        d.setFill(rgb(0, 128, 0));
        d.drawEllipse(35, 25, 10, 20);
        d.setFill(rgb(0, 0, 255));
        d.drawPath(ring);
        d.setStroke(line(rgb(0, 0, 0), 4));
        d.drawLine(0, 48, 100, 48);
        d.endPage();
    }));
    ASSERT_EQ("", seen.messages);
    const Picture& page = seen.pages.at(0);
    using Pixel = Picture::Pixel;
    EXPECT_EQ((Pixel{254, 0, 0}), page.at(5, 5)) << "top left: the page is flipped";
    EXPECT_EQ((Pixel{255, 255, 255}), page.at(15, 5));
    EXPECT_EQ((Pixel{0, 127, 0}), page.at(35, 25));
    EXPECT_EQ((Pixel{255, 255, 255}), page.at(26, 7)) << "outside of the ellipse";
    EXPECT_EQ((Pixel{0, 0, 254}), page.at(65, 20));
    EXPECT_EQ((Pixel{255, 255, 255}), page.at(75, 20)) << "the hole turns the other way";
    EXPECT_EQ((Pixel{0, 0, 0}), page.at(50, 48));
}

}  // namespace
