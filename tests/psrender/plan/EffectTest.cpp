#include "tests/psrender/Spots.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace psrender::tests {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string square = "<rect x='30' y='30' width='20' height='20' fill='red' ";

Picture shown(const std::string& body, const plan::PlanOptions& options = {}) {
    const Interpretation seen = interpret(script(body, options), 144);
    EXPECT_EQ("", seen.messages) << body;
    return seen.pages.at(0);
}

/// The colour at a place in points, each component within 6 of 255 levels.
void expectColor(const Picture& picture, int x, int y, const Picture::Pixel& color) {
    const Picture::Pixel seen = picture.at(2 * x, 2 * y);
    for (std::size_t i = 0; i < color.size(); ++i)
        EXPECT_NEAR(seen.at(i), color.at(i), 6) << "component " << i << " at " << x << " " << y;
}

TEST(Effects, MoveAndSpreadWhatTheyFilter) {
    const auto filtered = [](const std::string& operations, const std::string& more = "") {
        return "<filter id='f' x='-3' y='-3' width='7' height='7' " + more + ">" + operations +
               "</filter>" + square + "filter='url(#f)'/>";
    };
    expectSpots(filtered("<feOffset dx='30' dy='10'/>"),
                {{40, 35, false}, {62, 42, true}, {78, 58, true}});
    expectSpots(filtered("<feOffset dx='1' dy='.5'/>", "primitiveUnits='objectBoundingBox'"),
                {{32, 32, false}, {52, 42, true}, {68, 58, true}});
    expectSpots(filtered("<feMorphology operator='dilate' radius='5'/>"),
                {{27, 27, true}, {53, 53, true}, {22, 40, false}});
    expectSpots("<g transform='translate(20) scale(.5)'>" +
                    filtered("<feFlood flood-color='red' x='80%' y='10' width='20' height='20'/>") +
                    "</g>",
                {{40, 20, false}, {62, 7, true}, {68, 13, true}});
    expectSpots(square + "style='filter:drop-shadow(30px 0 0 red)'/>",
                {{40, 40, true}, {70, 40, true}, {56, 40, false}});
    const Picture soft = shown(filtered("<feGaussianBlur stdDeviation='4'/>"));
    expectColor(soft, 30, 40, {255, 122, 122});
    expectColor(soft, 18, 40, {255, 255, 255});
}

TEST(Effects, LeaveNothingOfWhatHasNoRegion) {
    const std::string blur = "<filter id='f'><feGaussianBlur stdDeviation='2'/></filter>";
    expectSpots(blur + "<path d='M10 50H90' stroke='red' stroke-width='9' filter='url(#f)'/>" +
                    "<path d='M10 20H90' stroke='red' stroke-width='9'/>",
                {{50, 50, false}, {50, 20, true}});
    expectSpots(
        "<filter id='f' filterUnits='userSpaceOnUse' x='20' y='20' width='30' height='30'>"
        "<feFlood flood-color='red'/></filter><g filter='url(#f)'/>",
        {{35, 35, true}, {55, 35, false}});
}

TEST(Effects, LeaveThePlaceBesideConesAsItIs) {
    const std::string drawing =
        "<rect width='100' height='50' fill='lime'/><radialGradient id='g' fx='-.5' fr='.1'>"
        "<stop stop-color='blue'/><stop offset='.5' stop-color='red'/></radialGradient>"
        "<rect x='10' y='10' width='80' height='80' fill='url(#g)'/>";
    const Picture seen = shown(drawing);
    expectColor(seen, 80, 50, {255, 0, 0});
    expectColor(seen, 13, 15, {0, 255, 0});
    expectColor(seen, 13, 85, {255, 255, 255});
    plan::PlanOptions vectors;
    vectors.rasterDotsPerInch = 0;
    expectColor(shown(drawing, vectors), 13, 15, {255, 0, 0});
}

TEST(Effects, OfMasksGoByBrightnessOrAlpha) {
    const auto masked = [](const std::string& attributes, const std::string& content) {
        return shown(
            "<linearGradient id='g'><stop stop-color='white'/><stop offset='1'/>"
            "</linearGradient><mask id='m' " +
            attributes + ">" + content +
            "</mask><g mask='url(#m)'><rect x='10' y='10' width='80' height='80' "
            "fill='blue'/><rect x='10' y='50' width='80' height='40' fill='lime'/></g>");
    };
    const Picture across = masked("maskContentUnits='objectBoundingBox'",
                                  "<rect width='1' height='1' fill='url(#g)'/>");
    expectColor(across, 12, 20, {6, 6, 255});
    expectColor(across, 50, 20, {128, 128, 255});
    expectColor(across, 50, 80, {128, 255, 128});
    expectColor(across, 88, 80, {249, 255, 249});
    const Picture clear = masked("mask-type='alpha' x='0' y='0' width='.5' height='1'",
                                 "<rect width='90' height='90' opacity='.5'/>"
                                 "<rect width='30' height='90'/>");
    expectColor(clear, 20, 20, {0, 0, 255});
    expectColor(clear, 40, 20, {128, 128, 255});
    expectColor(clear, 60, 20, {255, 255, 255});
}

TEST(Effects, BlendColoursWithWhatLiesBeneath) {
    const auto blended = [](const std::string& mode, const std::string& around = "<g>") {
        return shown("<rect width='50' height='100' fill='#ff8000'/>" + around +
                     "<rect x='20' y='20' width='60' height='60' fill='#8080ff' "
                     "style='mix-blend-mode:" +
                     mode + "'/></g>");
    };
    const Picture multiplied = blended("multiply");
    expectColor(multiplied, 35, 50, {128, 64, 0});
    expectColor(multiplied, 65, 50, {128, 128, 255});
    expectColor(multiplied, 10, 50, {255, 128, 0});
    expectColor(blended("difference"), 35, 50, {127, 0, 255});
    expectColor(blended("multiply", "<g style='isolation:isolate'>"), 35, 50, {128, 128, 255});
    expectColor(blended("multiply", "<g opacity='.5'>"), 35, 50, {192, 128, 128});
}

/// Everything but the picture stays in vectors and is not painted over where the picture is clear.
TEST(Effects, ArePicturesOfTheirGroupAlone) {
    const std::string body =
        "<rect width='100' height='100' fill='#eee'/><path d='M0 0L100 100' stroke='blue'/>"
        "<text x='5' y='60' font-size='20' filter='url(#f)'>Soft</text>"
        "<text x='5' y='90' font-size='20'>Hard</text>"
        "<filter id='f'><feGaussianBlur stdDeviation='.5'/></filter>";
    const std::string made = script(body);
    EXPECT_THAT(made, HasSubstr("/ImageType 3"));
    const std::string words = outputOf("ps2pdf - - | pdftotext - -", made);
    EXPECT_THAT(words, HasSubstr("Soft"));
    EXPECT_THAT(words, HasSubstr("Hard"));
    const std::string vectors = script(body, {.rasterDotsPerInch = 0});
    EXPECT_THAT(vectors, Not(HasSubstr("/ImageType")));
}

/// The bar of the letter would be at least half as dark if it were painted under its blur.
TEST(Effects, HideTheTextThatIsFoundBeneathThem) {
    for (const std::string ground : {"", "<rect width='100' height='100' fill='#ddeeff'/>"}) {
        const std::string body =
            ground +
            "<filter id='f' filterUnits='userSpaceOnUse' width='100' height='100'>"
            "<feGaussianBlur stdDeviation='12'/></filter><text x='30' y='70' "
            "font-family='DejaVu Sans' font-size='60' filter='url(#f)'>l</text>";
        EXPECT_GT(shown(body).at(38, 50).at(1), 190) << ground;
        EXPECT_THAT(outputOf("ps2pdf - - | pdftotext - -", script(body)), HasSubstr("l"));
    }
}

TEST(Effects, AreBlendedWithTranslucentThingsOnTop) {
    const Picture seen = shown(
        "<rect width='100' height='50' fill='#00ff00'/><filter id='f'><feOffset dx='0'/></filter>"
        "<rect x='20' y='20' width='60' height='60' fill='blue' opacity='.5' filter='url(#f)'/>"
        "<rect x='40' y='0' width='20' height='100' fill='black' opacity='.5'/>");
    expectColor(seen, 30, 40, {0, 128, 128});
    expectColor(seen, 50, 40, {0, 64, 64});
    expectColor(seen, 50, 70, {64, 64, 128});
    expectColor(seen, 50, 10, {0, 128, 0});
    expectColor(seen, 50, 90, {128, 128, 128});
}

/// Too many to be cut into pieces; text above and beneath is still found.
TEST(Effects, StandInForTranslucentShapesWithoutNumber) {
    std::string discs;
    for (int i = 0; i < 1500; ++i)
        discs += "<circle cx='" + std::to_string(i * 37 % 97) + "' cy='" +
                 std::to_string(i * 53 % 89) + "' r='" + std::to_string(10 + i % 20) + "' fill='#" +
                 std::to_string(100 + i % 900) + "' opacity='.1'/>";
    const std::string body = "<text y='20' opacity='.9'>Beneath</text>" + discs +
                             "<rect x='70' y='70' width='30' height='30' fill='lime'/>"
                             "<text y='90'>Above</text>";
    const std::string made = script(body);
    EXPECT_LT(made.size(), 400'000U);
    const std::string words = outputOf("ps2pdf - - | pdftotext - -", made);
    EXPECT_THAT(words, HasSubstr("Beneath"));
    EXPECT_THAT(words, HasSubstr("Above"));
    const Picture seen = shown(body);
    expectColor(seen, 85, 85, {0, 255, 0});
    const Picture::Pixel mixed = seen.at(100, 100);
    EXPECT_LT(mixed.at(0), 200);
}

/// Each would be blended with all those beneath it.
TEST(Effects, OfManyLargeThingsAreOnePicture) {
    std::string discs = "<filter id='f'><feGaussianBlur stdDeviation='1'/></filter>";
    for (int i = 0; i < 150; ++i)
        discs += "<circle cx='50' cy='50' r='" + std::to_string(60 - i / 3) +
                 "' fill='blue' opacity='.5' filter='url(#f)'/>";
    const std::string made = script(discs + "<rect width='20' height='20' fill='lime'/>");
    EXPECT_EQ(std::string::npos, made.find("/ImageType 3"));
    const Picture seen = shown(discs + "<rect width='20' height='20' fill='lime'/>");
    expectColor(seen, 50, 50, {0, 0, 255});
    expectColor(seen, 10, 10, {0, 255, 0});
}

TEST(Effects, StandInForWhatIsBlendedWithPatterns) {
    const Picture seen = shown(
        "<pattern id='p' width='10' height='10' patternUnits='userSpaceOnUse'>"
        "<rect width='5' height='10' fill='black'/></pattern>"
        "<linearGradient id='g'><stop stop-color='red'/><stop offset='1' stop-color='lime'/>"
        "</linearGradient><rect width='100' height='100' fill='url(#p)'/>"
        "<rect width='100' height='100' fill='url(#g)' opacity='.5'/>");
    expectColor(seen, 2, 50, {124, 3, 0});
    expectColor(seen, 7, 50, {246, 137, 128});
    expectColor(seen, 92, 50, {10, 118, 0});
}

}  // namespace
}  // namespace psrender::tests
