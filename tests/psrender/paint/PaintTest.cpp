#include "psrender/scene/OutlineBox.h"
#include "psrender/svg/SvgReader.h"
#include "tests/psrender/Spots.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace {

using psrender::Warnings;
using Levels = std::array<double, 3>;

constexpr int kScale = 3;
constexpr double kTolerance = 24;  // levels: what steep gradients change from pixel to pixel
constexpr Levels kWhite{255, 255, 255};
constexpr Levels kRed{255, 0, 0};
constexpr Levels kBlue{0, 0, 255};

/// What the interpreter shows of a page of 100 by 100 points.
Picture shown(const std::string& body) {
    Warnings warnings;
    const std::string drawing =
        "<svg xmlns='http://www.w3.org/2000/svg' width='100pt' height='100pt' "
        "viewBox='0 0 100 100'><defs><linearGradient id='rb'><stop stop-color='red'/>"
        "<stop offset='1' stop-color='blue'/></linearGradient></defs>" +
        body + "</svg>";
    const Interpretation seen = interpret(
        psrender::tests::printed(psrender::svg::readSvg(drawing, "test", warnings)), 72 * kScale);
    EXPECT_EQ("", seen.messages) << body;
    return seen.pages.empty() ? Picture{} : seen.pages[0];
}

Levels mix(const Levels& a, const Levels& b, double share) {
    return {std::lerp(a[0], b[0], share), std::lerp(a[1], b[1], share),
            std::lerp(a[2], b[2], share)};
}

struct Spot {
    double x, y;
    Levels levels;
};

void expectSpots(const std::string& body, const std::vector<Spot>& spots) {
    const Picture page = shown(body);
    ASSERT_FALSE(page.bytes.empty()) << body;
    for (const auto& [x, y, levels] : spots) {
        const auto pixel = page.at(static_cast<int>(x * kScale), static_cast<int>(y * kScale));
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(levels[i], pixel[i], kTolerance)
                << body.substr(0, 200) << " at " << x << " " << y;
    }
}

TEST(Gradients, RunAlongLinesAndCircles) {
    const Levels purple = mix(kRed, kBlue, 0.5);
    const std::string whole = "<rect width='100' height='100' fill='url(#g)'/>";
    const auto linear = [&](const std::string& attributes) {
        return "<linearGradient id='g' href='#rb' " + attributes + "/>" + whole;
    };
    const auto radial = [&](const std::string& attributes) {
        return "<radialGradient id='g' href='#rb' " + attributes + "/>" + whole;
    };
    const std::pair<std::string, std::vector<Spot>> rows[] = {
        {linear(""), {{1, 90, kRed}, {25, 10, mix(kRed, kBlue, 0.25)}, {99, 50, kBlue}}},
        {linear("x2='0' y1='.4' y2='.6'"), {{9, 9, kRed}, {9, 50, purple}, {9, 91, kBlue}}},
        {linear("x1='.2' x2='.4' spreadMethod='repeat'"),
         {{11, 9, purple}, {21, 9, kRed}, {90, 9, purple}, {99, 9, kBlue}}},
        {linear("x1='.2' x2='.4' spreadMethod='reflect'"), {{1, 9, kBlue}, {80, 9, kBlue}}},
        {linear("gradientUnits='userSpaceOnUse' x2='50' gradientTransform='rotate(90)'"),
         {{9, 25, purple}, {9, 75, kBlue}}},
        {radial(""), {{51, 50, kRed}, {50, 75, purple}, {2, 2, kBlue}}},
        {radial("fx='.1' spreadMethod='pad'"), {{10, 50, kRed}, {55, 50, purple}}},
        {radial("r='.2' spreadMethod='repeat'"), {{60, 50, purple}, {50, 20, purple}}},
        {radial("fr='.25'"), {{50, 60, kRed}, {50, 87.5, purple}}},
        {"<linearGradient id='g'><stop stop-color='red'/><stop offset='1' stop-color='blue' "
         "stop-opacity='0'/></linearGradient>" +
             whole,
         {{50, 50, mix(kWhite, purple, 0.5)}, {99, 50, kWhite}}},
    };
    for (const auto& [body, spots] : rows)
        expectSpots(body, spots);
}

TEST(Gradients, KeepTheirColorsHoweverManyThereAre) {
    constexpr int kCount = 60;
    std::string body;
    std::vector<Spot> spots;
    for (int i = 0; i < kCount; ++i) {
        const Levels from{i * 4.0, 255 - i * 4.0, 40};
        const Levels to{20, i * 3.0, 250 - i * 2.0};
        const auto css = [](const Levels& c) {
            const auto level = [](double value) { return std::to_string(static_cast<int>(value)); };
            return "rgb(" + level(c[0]) + "," + level(c[1]) + "," + level(c[2]) + ")";
        };
        const std::string id = "g" + std::to_string(i);
        const int x = i % 10 * 10;
        const int y = i / 10 * 10;
        body += "<linearGradient id='" + id + "'><stop stop-color='" + css(from) +
                "'/><stop offset='1' stop-color='" + css(to) + "'/></linearGradient><rect x='" +
                std::to_string(x) + "' y='" + std::to_string(y) +
                "' width='9' height='9' fill='url(#" + id + ")'/>";
        for (const double share : {0.1, 0.5, 0.9})
            spots.push_back({x + share * 9, y + 5.0, mix(from, to, share)});
    }
    expectSpots(body, spots);
}

TEST(Gradients, FollowTheShapeThatTheyPaint) {
    const std::string stroke = "stroke='url(#rb)' stroke-width='10' ";
    const Levels near = mix(kRed, kBlue, 0.1);
    const Levels far = mix(kRed, kBlue, 0.9);
    expectSpots(
        "<path fill='none' stroke-linejoin='round' " + stroke + "d='M10 10V90H90'/>",
        {{11, 50, kRed}, {7.5, 91.5, kRed}, {18, 90, near}, {82, 90, far}, {50, 50, kWhite}});
    expectSpots(
        "<g transform='translate(-4000000)'><path fill-rule='evenodd' fill='url(#rb)' "
        "d='M4000000 0h100v100h-100zM4000030 30h40v40h-40z'/></g>",
        {{10, 50, near}, {50, 50, kWhite}, {90, 50, far}});
    expectSpots(
        "<g opacity='.5'><rect width='100' height='50' fill='url(#rb)'/>"
        "<rect y='50' width='100' height='50' fill='url(#rb)' fill-opacity='.5'/></g>",
        {{10, 20, mix(kWhite, near, 0.5)}, {90, 70, mix(kWhite, far, 0.25)}});
    expectSpots(
        "<g transform='rotate(90 50 50)'><rect width='100' height='40' fill='url(#rb)'/>"
        "</g><path stroke='url(#rb)' d='M0 80h20'/>",
        {{80, 10, near}, {80, 90, far}, {10, 80, kWhite}});
}

TEST(Patterns, RepeatTheirContent) {
    const std::string half = "<rect width='5' height='10' fill='red'/>";
    const std::string user = "<pattern id='p' patternUnits='userSpaceOnUse' width='10' height='10'";
    const std::string whole = "<rect width='100' height='100' fill='url(#p)'/>";
    const std::pair<std::string, std::vector<Spot>> rows[] = {
        {user + ">" + half + "</pattern>" + whole, {{2, 2, kRed}, {97, 2, kWhite}, {92, 97, kRed}}},
        {user + " x='5' patternTransform='rotate(90)'>" + half + "</pattern>" + whole,
         {{2, 2, kWhite}, {2, 7, kRed}, {92, 97, kRed}}},
        {"<pattern id='p' width='.2' height='.5' viewBox='0 0 10 10' preserveAspectRatio='none'>" +
             half + "</pattern>" + whole,
         {{5, 45, kRed}, {15, 45, kWhite}, {85, 95, kRed}}},
        {"<pattern id='p' width='.2' height='.5' patternContentUnits='objectBoundingBox'>"
         "<rect width='.1' height='.25' fill='blue'/></pattern>" +
             whole,
         {{5, 20, kBlue}, {5, 30, kWhite}, {45, 70, kBlue}, {55, 70, kWhite}}},
        {user + " overflow='visible'><path fill='red' d='M5 3H15V7H5z'/></pattern>" + whole,
         {{12, 5, kRed}, {17, 5, kRed}, {17, 9, kWhite}}},
        {user + ">" + half + "</pattern><g opacity='.5'>" + whole + "</g>",
         {{2, 2, mix(kWhite, kRed, 0.5)}, {7, 2, kWhite}}},
        {user + ">" + half +
             "</pattern><symbol id='s'><path fill='url(#p)' d='M0 0H30V9L0 9z'/>"
             "</symbol><use href='#s'/><use href='#s' x='50'/><use href='#s' y='50'/>",
         {{2, 2, kRed}, {7, 2, kWhite}, {62, 2, kRed}, {12, 52, kRed}}},
        {user + "><rect width='5' height='10' fill='url(#rb)'/></pattern>"
                "<rect width='200' height='100' fill='url(#p)'/>",
         {{50.4, 5, mix(kRed, kBlue, 0.1)}, {54.5, 5, mix(kRed, kBlue, 0.9)}, {57, 5, kWhite}}},
        {user + "><rect width='9' height='9' fill='url(#p)'/></pattern>" + whole, {{5, 5, kWhite}}},
    };
    for (const auto& [body, spots] : rows)
        expectSpots(body, spots);
}

TEST(Paints, CostNoMoreThanThePageIsWorth) {
    const std::string tiny = "<radialGradient id='g' r='1e-5' href='#rb' spreadMethod='reflect'/>";
    const std::string nested =
        "<pattern id='a' width='.01' height='.01'><rect width='1' height='1' fill='url(#b)'/>"
        "</pattern><pattern id='b' width='1e-5' height='1e-5'><rect width='1' height='1' "
        "fill='url(#rb)'/></pattern>";
    expectSpots(tiny + "<rect width='100' height='100' fill='url(#g)'/>",
                {{70, 30, mix(kRed, kBlue, 0.5)}});
    shown(tiny +
          "<rect width='100' height='1e-20' fill='url(#rb)'/><rect width='1e-20' height='9' "
          "transform='scale(1e20 1)' fill='url(#g)'/>");
    shown(nested + "<rect width='1e9' height='1e9' fill='url(#a)'/>");
}

TEST(OutlineBoxes, EndWhereCurvesTurn) {
    psrender::scene::Outline outline;
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
