#include "tests/psrender/Spots.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct Tinted {
    int x, y;
    std::array<int, 3> color;
};

/// Renders `body` and looks at the colours of single spots.
void expectColors(const std::string& body, std::initializer_list<Tinted> spots, int tolerance = 2) {
    const Interpretation seen = interpret(psrender::tests::script(body));
    EXPECT_EQ("", seen.messages) << body;
    ASSERT_EQ(1U, seen.pages.size()) << body;
    for (const Tinted& spot : spots)
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(spot.color[i], seen.pages[0].at(spot.x, spot.y)[i], tolerance)
                << body << " at " << spot.x << " " << spot.y;
}

/// White from the left, red from 40 to 80, blue in the middle of both.
const std::string kGround =
    "<rect x='40' width='40' height='100' fill='#f00'/><path d='M60 0v100' stroke='#00f' "
    "stroke-width='10'/>";

TEST(Blending, ShowsWhatLiesBeneath) {
    const std::string green = "<circle cx='50' cy='50' r='45' fill='#0f0' ";
    const std::initializer_list<Tinted> spots = {{10, 50, {128, 255, 128}}, {45, 50, {128, 128, 0}},
                                                 {60, 50, {0, 128, 128}},   {75, 50, {128, 128, 0}},
                                                 {90, 50, {128, 255, 128}}, {60, 97, {0, 0, 255}}};
    expectColors(kGround + green + "opacity='.5'/>", spots);
    expectColors(kGround + green + "fill-opacity='.5'/>", spots);
    expectColors(kGround + "<path d='M5 50h90' stroke='#0f0' stroke-width='70' opacity='.5'/>",
                 spots);
    expectColors(
        kGround + "<rect width='100' height='100' fill='#fff'/>" + green + "opacity='.5'/>",
        {{10, 50, {128, 255, 128}}, {60, 50, {128, 255, 128}}});
}

TEST(Blending, GoesThroughSeveralLayers) {
    const std::string layers =
        "<rect width='60' height='100' fill='#f00' opacity='.5'/>"
        "<rect y='20' width='100' height='60' fill='#0f0' opacity='.5'/>"
        "<rect x='30' width='70' height='50' fill='#00f' opacity='.5'/>";
    expectColors(layers, {{10, 10, {255, 128, 128}},
                          {10, 60, {128, 192, 64}},
                          {50, 40, {64, 96, 160}},
                          {80, 40, {64, 128, 191}},
                          {80, 10, {128, 128, 255}},
                          {80, 70, {128, 255, 128}}});
}

TEST(Blending, TakesAGroupForOnePicture) {
    const std::string pair =
        "<rect x='10' y='20' width='60' height='40' fill='#0f0'/>"
        "<circle cx='70' cy='40' r='20' fill='#000' stroke='#fff' stroke-width='4'/>";
    expectColors(kGround + "<g opacity='.5'>" + pair + "</g>", {{20, 40, {128, 255, 128}},
                                                                {45, 40, {128, 128, 0}},
                                                                {60, 40, {0, 0, 128}},
                                                                {85, 40, {128, 128, 128}},
                                                                {50, 40, {255, 128, 128}}});
    const std::string nested =
        "<g opacity='.5'><rect width='100' height='100' fill='#0f0'/>"
        "<rect width='100' height='50' fill='#000' opacity='.5'/></g>";
    expectColors(kGround + nested,
                 {{10, 10, {128, 192, 128}}, {45, 10, {128, 64, 0}}, {45, 90, {128, 128, 0}}});
    expectColors("<g opacity='.5'><circle cx='50' cy='50' r='20' fill='#f00' opacity='.5'/></g>",
                 {{50, 50, {255, 191, 191}}, {90, 50, {255, 255, 255}}});
}

TEST(Blending, StaysWithinTheClip) {
    expectColors("<clipPath id='c'><circle cx='50' cy='50' r='30'/></clipPath>" + kGround +
                     "<g clip-path='url(#c)' opacity='.5'><rect width='100' height='100'/></g>",
                 {{30, 50, {128, 128, 128}},
                  {45, 50, {128, 0, 0}},
                  {60, 50, {0, 0, 128}},
                  {60, 90, {0, 0, 255}},
                  {10, 50, {255, 255, 255}}});
}

TEST(Blending, LetsTextShowThrough) {
    const std::string text = "<text x='0' y='90' font-size='120' font-family='Helvetica'>I</text>";
    expectColors(text + "<rect width='100' height='100' fill='#f00' opacity='.5'/>",
                 {{17, 50, {128, 0, 0}}, {60, 50, {255, 128, 128}}});
    EXPECT_NE(std::string::npos,
              psrender::tests::script(text + "<rect width='100' height='100' opacity='.5'/>")
                  .find("/Helvetica"))
        << "and stays text";
    expectColors("<rect width='100' height='40' fill='#f00'/><g opacity='.5'>" + text + "</g>",
                 {{17, 20, {128, 0, 0}}, {17, 70, {128, 128, 128}}, {60, 20, {255, 0, 0}}});
}

/// From red on the left to blue on the right, white from the top down, and yellow around the middle
/// of the page; the latter two fade out.
const std::string kGradients =
    "<linearGradient id='a'><stop stop-color='#f00'/><stop offset='1' stop-color='#00f'/>"
    "</linearGradient><linearGradient id='w' x2='0' y2='1'><stop stop-color='#fff'/><stop "
    "offset='1' stop-color='#fff' stop-opacity='0'/></linearGradient><radialGradient id='y'>"
    "<stop stop-color='#ff0'/><stop offset='1' stop-color='#ff0' stop-opacity='0'/>"
    "</radialGradient>";
const std::string kPage = "<rect width='100' height='100' ";

TEST(Blending, CarriesGradientsOver) {
    expectColors(kGradients + kGround + kPage + "fill='url(#w)'/>",
                 {{20, 50, {255, 255, 255}},
                  {45, 20, {255, 204, 204}},
                  {45, 80, {255, 51, 51}},
                  {60, 50, {128, 128, 255}}},
                 4);
    expectColors(kGradients + kPage + "fill='url(#a)'/>" + kPage + "fill='#0f0' opacity='.5'/>",
                 {{25, 50, {96, 128, 32}}, {75, 50, {32, 128, 96}}}, 4);
    expectColors(kGradients + "<g opacity='.5'>" + kPage + "fill='url(#a)'/></g>",
                 {{25, 50, {223, 128, 159}}, {75, 50, {159, 128, 223}}}, 4);
    expectColors(kGradients + kGround +
                     "<path d='M0 49h100v2' fill='none' stroke='url(#a)' stroke-width='20' "
                     "stroke-opacity='.5'/>",
                 {{20, 50, {230, 128, 153}}, {45, 50, {198, 0, 57}}, {60, 50, {51, 0, 204}}}, 5);
}

TEST(Blending, PatchesGradientsThatCross) {
    const std::string ground = kGradients + kPage + "fill='url(#a)'/>";
    expectColors(ground + kPage + "fill='url(#w)'/>",
                 {{20, 50, {230, 128, 153}},
                  {50, 20, {230, 204, 230}},
                  {80, 90, {71, 25, 209}},
                  {20, 90, {209, 25, 71}}},
                 12);
    expectColors(ground + "<circle cx='50' cy='50' r='50' fill='url(#y)' />",
                 {{50, 50, {253, 251, 3}},
                  {25, 50, {223, 128, 32}},
                  {50, 80, {179, 102, 77}},
                  {95, 95, {13, 0, 242}}},
                 12);
    expectColors(
        ground + "<g opacity='.5'>" + kPage + "fill='#0f0'/>" + kPage + "fill='url(#w)'/></g>",
        {{20, 50, {166, 128, 89}}, {80, 20, {128, 128, 204}}}, 12);
}

}  // namespace
