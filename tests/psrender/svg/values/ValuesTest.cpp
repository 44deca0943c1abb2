// Numbers, lengths, colours, transforms and viewBoxes as attribute text.

#include "psrender/svg/values/Color.h"
#include "psrender/svg/values/Length.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/values/TransformParser.h"
#include "psrender/svg/values/ViewBox.h"

#include <cstdint>
#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using scene::Affine;
using scene::Point;
using scene::Rect;
using testing::ElementsAre;

std::vector<double> numbersOf(std::string_view text) {
    std::vector<double> result;
    NumberScanner scanner(text);
    while (const auto number = scanner.number()) {
        result.push_back(*number);
        scanner.skipCommaSpace();
    }
    return result;
}

TEST(SvgNumbers, AreReadAsBrowsersDo) {
    EXPECT_THAT(numbersOf("1.5.5-2+3,4 5.e1 1E-2"), ElementsAre(1.5, .5, -2, 3, 4, 50, .01));
    EXPECT_THAT(numbersOf("7em"), ElementsAre(7));
    EXPECT_THAT(numbersOf("1,,2"), ElementsAre(1));
    EXPECT_THAT(numbersOf("1e-400 1e-39 3e38"), ElementsAre(0, 0, 3e38));
    for (const char* none : {"", "-", ".", "+-1", "--1", "nan", "inf", "-inf", "1e400", "1e39"})
        EXPECT_THAT(numbersOf(none), ElementsAre()) << none;
}

TEST(SvgLengths, HaveUnits) {
    const Measures measures{300, 400, 10};
    const std::pair<const char*, double> rows[] = {
        {"12", 12},     {" 1in ", 96},  {"72pt", 96},    {"6pc", 96}, {"2.54cm", 96},
        {"25.4MM", 96}, {"101.6Q", 96}, {"-1.5em", -15}, {"2ex", 10}, {"10%", 30}};
    for (const auto& [text, pixels] : rows) {
        const auto length = parseLength(text, measures.fontSize);
        ASSERT_TRUE(length) << text;
        EXPECT_NEAR(length->resolve(measures, Axis::horizontal), pixels, 1e-9) << text;
    }
    EXPECT_NEAR(parseLength("10%", 16)->resolve(measures, Axis::vertical), 40, 1e-9);
    EXPECT_NEAR(parseLength("10%", 16)->resolve(measures, Axis::other), 35.355339, 1e-6);
    for (const char* wrong : {"", "px", "1 px", "1furlong", "1px2", "1e400", "10%%"})
        EXPECT_FALSE(parseLength(wrong, 16)) << wrong;
}

std::uint32_t packed(const scene::Color& color) {
    return color.red * 0x10000U + color.green * 0x100U + color.blue;
}

TEST(SvgColors, HaveManyNotations) {
    const std::tuple<const char*, std::uint32_t, double> rows[] = {
        {"red", 0xff0000, 1},
        {"aliceblue", 0xf0f8ff, 1},
        {"YellowGreen", 0x9acd32, 1},
        {"lightgoldenrodyellow", 0xfafad2, 1},
        {"transparent", 0, 0},
        {"#F80", 0xff8800, 1},
        {"#f808", 0xff8800, 0x88 / 255.0},
        {"#12345678", 0x123456, 0x78 / 255.0},
        {" rgb( 300, -4 ,128 ) ", 0xff0080, 1},
        {"rgb(100%, 50%, 0%)", 0xff8000, 1},
        {"rgb(10 20 30 / 50%)", 0x0a141e, 0.5},
        {"RGBA(1,2,3,.25)", 0x010203, 0.25},
        {"hsl(120, 100%, 25%)", 0x008000, 1},
        {"hsl(-120deg 100% 50%)", 0x0000ff, 1},
        {"hsla(30, 100%, 50%, 2)", 0xff8000, 1},
    };
    for (const auto& [text, color, alpha] : rows) {
        const auto parsed = parseColor(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(packed(parsed->color), color) << text;
        EXPECT_DOUBLE_EQ(parsed->alpha, alpha) << text;
    }
}

TEST(SvgColors, WrongOnesAreNone) {
    for (const char* wrong :
         {"", "#", "#12", "#12345", "#1234567", "#123456789", "#ggg", "rgb(1,2)", "rgb(1,2,3,4,5)",
          "rgb(1,2,3", "rgb 1,2,3)", "cmyk(1,2,3)", "redd", "rgb(1px,2,3)", "rgb(1,2,3) 4)",
          "lightgoldenrodyellowish"})
        EXPECT_FALSE(parseColor(wrong)) << wrong;
}

TEST(SvgTransforms, ApplyTheRightmostFunctionFirst) {
    const std::tuple<const char*, Point> rows[] = {
        {"", {10, 20}},
        {"none", {10, 20}},
        {"matrix(1,2,3,4,5,6)", {75, 106}},
        {"translate(3)", {13, 20}},
        {"translate(3px -4)scale(2)", {23, 36}},
        {"scale(2,3) , translate(1,1)", {22, 63}},
        {"scale( 2 )", {20, 40}},
        {"rotate(90)", {-20, 10}},
        {"rotate(90deg, 10, 10)", {0, 10}},
        {" skewX(45) ", {30, 20}},
        {"skewY(45)", {10, 30}},
    };
    for (const auto& [text, expected] : rows) {
        const auto map = parseTransform(text);
        ASSERT_TRUE(map) << text;
        EXPECT_NEAR(map->apply({10, 20}).x, expected.x, 1e-9) << text;
        EXPECT_NEAR(map->apply({10, 20}).y, expected.y, 1e-9) << text;
    }
    for (const char* wrong : {"scale", "scale()", "scale(1,2,3)", "rotate(1,2)",
                              "matrix(1,2,3,4,5)", "translate(1", "spin(4)", "translate(1) junk",
                              "scale(1e400)", "translate(1em)", "matrix(1,2,3,4,5,6,7)"})
        EXPECT_FALSE(parseTransform(wrong)) << wrong;
}

TEST(SvgViewBoxes, AreFourNumbers) {
    EXPECT_EQ(parseViewBox(" -1,2 3.5 , 4 "), (Rect{-1, 2, 3.5, 4}));
    EXPECT_EQ(parseViewBox("0 0 0 0"), (Rect{0, 0, 0, 0}));
    for (const char* wrong : {"", "1 2 3", "1 2 3 4 5", "0 0 -1 4", "0 0 1 nan", "0 0 1e400 1"})
        EXPECT_FALSE(parseViewBox(wrong)) << wrong;
}

TEST(SvgViewBoxes, AreFittedByTheirAspectRatio) {
    const Rect box{10, 10, 10, 10};
    const Rect viewport{100, 200, 40, 20};
    const std::tuple<const char*, Point, double, double> rows[] = {
        {"", {110, 200}, 2, 2},
        {"xMinYMin", {100, 200}, 2, 2},
        {"xMaxYMid meet", {120, 200}, 2, 2},
        {"xMidYMin slice", {100, 200}, 4, 4},
        {"xMidYMid slice", {100, 190}, 4, 4},
        {"xMidYMax slice", {100, 180}, 4, 4},
        {"none", {100, 200}, 4, 2},
        {"xMiddle", {110, 200}, 2, 2},
    };
    for (const auto& [text, corner, scaleX, scaleY] : rows) {
        const Affine map = fitViewBox(box, viewport, text);
        EXPECT_EQ(map.apply({10, 10}), corner) << text;
        EXPECT_EQ(map.a, scaleX) << text;
        EXPECT_EQ(map.d, scaleY) << text;
    }
}

}  // namespace
}  // namespace psrender::svg
