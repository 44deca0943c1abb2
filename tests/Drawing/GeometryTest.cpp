#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/SizeF.h"
#include "Drawing/Util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

using Drawing::Matrix;
using Drawing::MatrixOrder;
using Drawing::PathCommand;
using Kind = Drawing::PathCommandKind;

std::vector<PathCommand> commandsOf(const Core::SmartPtr<Drawing::Path>& path) {
    std::vector<PathCommand> commands;
    for (std::uint64_t i = 0; i < path->getCommandCount(); ++i)
        commands.push_back(path->getCommandAt(i));
    return commands;
}

TEST(Matrix, AppendsToTheResultAndPrependsToTheInput) {
    Matrix moved(1, 0, 0, 1, 10, 20);
    const Matrix flip(1, 0, 0, -1, 0, 842);
    moved.multiply(flip, MatrixOrder::append);
    EXPECT_EQ(Matrix(1, 0, 0, -1, 10, 822), moved);
    Matrix scaled(2, 0, 0, 3, 0, 0);
    scaled.multiply(Matrix(0, 1, -1, 0, 5, 7), MatrixOrder::prepend);
    EXPECT_EQ(Matrix(0, 3, -2, 0, 10, 21), scaled);
    scaled.translate(1, 1);
    EXPECT_EQ(Matrix(0, 3, -2, 0, 11, 22), scaled) << "an offset in the outer space";
}

TEST(PathCommand, RectangleIsAMoveThreeLinesAndAClose) {
    const std::vector<PathCommand> expected{{Kind::moveTo, 1, 2},
                                            {Kind::lineTo, 11, 2},
                                            {Kind::lineTo, 11, 22},
                                            {Kind::lineTo, 1, 22},
                                            {Kind::close}};
    EXPECT_EQ(expected, commandsOf(PathCommand::rectangle(1, 2, 10, 20, 0, 0)));
    EXPECT_EQ(expected, commandsOf(PathCommand::rectangle(1, 2, 10, 20, 5, 0)));
}

TEST(PathCommand, RoundedRectangleStaysInsideAndCutsItsRadii) {
    for (const float sign : {1.0F, -1.0F}) {
        const auto commands = commandsOf(PathCommand::rectangle(0, 0, 10 * sign, 20, 99, 4));
        ASSERT_EQ(10U, commands.size());
        EXPECT_EQ(5 * sign, commands[0].x);
        EXPECT_EQ((PathCommand{Kind::lineTo, 10 * sign, 16}), commands[3]);
        for (const PathCommand& c : commands) {
            EXPECT_TRUE(c.x * sign >= 0 && c.x * sign <= 10 && c.y >= 0 && c.y <= 20);
            EXPECT_TRUE(c.x1 * sign >= 0 && c.x1 * sign <= 10 && c.y1 >= 0 && c.y1 <= 20);
        }
    }
}

TEST(Util, ATurnIsFourCurvesThatTouchTheBox) {
    std::vector<Drawing::XPointF> p;
    Drawing::Util::bezierArc(-3, -2, 3, 2, 0, 360, p);
    ASSERT_EQ(16U, p.size());
    EXPECT_EQ((Drawing::XPointF{3, 0}), p[0]);
    EXPECT_EQ((Drawing::XPointF{0, 2}), p[3]);
    EXPECT_EQ((Drawing::XPointF{-3, 0}), p[7]);
    EXPECT_EQ((Drawing::XPointF{0, -2}), p[11]);
    EXPECT_EQ(p[0], p[15]);
}

TEST(Util, ArcsFollowTheCircle) {
    for (const double extent : {360.0, -90.0, 37.0, 200.0}) {
        std::vector<Drawing::XPointF> p;
        Drawing::Util::bezierArc(-1, -1, 1, 1, 20, extent, p);
        for (std::size_t k = 0; k < p.size(); k += 4) {
            const auto middle = [&](auto axis) {
                return (p[k].*axis + 3 * p[k + 1].*axis + 3 * p[k + 2].*axis + p[k + 3].*axis) / 8;
            };
            EXPECT_NEAR(1, std::hypot(p[k + 3].x, p[k + 3].y), 1e-6);
            EXPECT_NEAR(1, std::hypot(middle(&Drawing::XPointF::x), middle(&Drawing::XPointF::y)),
                        3e-4);
        }
        const double end = (20 + extent) * std::acos(-1) / 180;
        EXPECT_NEAR(std::cos(end), p.back().x, 1e-6);
        EXPECT_NEAR(std::sin(end), p.back().y, 1e-6);
    }
}

}  // namespace
