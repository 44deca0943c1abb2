#include "tests/psrender/Spots.h"
#include "tests/psrender/svg/text/BoxesFont.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using psrender::tests::expectSpots;
using psrender::tests::script;
using psrender::tests::Spot;

TEST(Rendering, FillsByTheEvenOddRule) {
    const std::string fill = "<path fill='red' fill-rule='evenodd' ";
    expectSpots(fill + "d='M50 5L80 95L5 40H95L20 95z'/>",
                {{50, 50, false}, {50, 20, true}, {20, 45, true}, {50, 85, false}});
    expectSpots(fill + "d='M10 10h80v80h-80zM20 20h60v60h-60zM40 40h20v20h-20z'/>",
                {{15, 50, true}, {30, 30, false}, {50, 50, true}});
    expectSpots(fill +
                    "d='M50 10a40 40 0 1 0 .1 0zM50 30a20 20 0 1 0 .1 0z' "
                    "transform='rotate(30 50 50) scale(-1 1) translate(-100 0)'/>",
                {{50, 50, false}, {50, 20, true}, {20, 50, true}, {5, 5, false}});
    expectSpots(fill + "stroke='red' stroke-width='4' d='M10 10h60v60h-60zM40 40h50v50h-50z'/>",
                {{20, 20, true}, {55, 55, false}, {55, 70, true}, {40, 55, true}, {80, 80, true}});
}

TEST(Rendering, RoundsJoinsButNotEnds) {
    const std::string line = "<path fill='none' stroke='red' stroke-width='20' d='M10 30h60v60' ";
    expectSpots(line + "stroke-linejoin='round'/>",
                {{76, 24, true}, {79, 21, false}, {70, 50, true}, {8, 30, false}});
    expectSpots(line + "stroke-linejoin='bevel'/>", {{76, 24, false}, {72, 26, true}});
    expectSpots(line + "stroke-linejoin='miter'/>", {{79, 21, true}, {82, 30, false}});
    expectSpots(line + "stroke-linejoin='miter' stroke-miterlimit='1.2'/>", {{79, 21, false}});
    expectSpots(
        "<path fill='none' stroke='red' stroke-width='10' stroke-linejoin='round' "
        "transform='scale(2 1)' d='M10 30h20v60'/>",
        {{66, 27, true}, {69.5, 25.5, false}});
}

TEST(Rendering, KeepsDashLengthsAndTheJoinsWithinDashes) {
    const std::string square =
        "<path fill='none' stroke='red' stroke-width='10' d='M20 20h60v60h-60z' "
        "stroke-linejoin='round' stroke-dasharray='30 20' ";
    expectSpots(square + "/>", {{35, 20, true},
                                {49, 20, true},
                                {51, 20, false},
                                {69, 20, false},
                                {71, 20, true},
                                {83, 17, true},
                                {84.6, 15.4, false}});
    expectSpots(square + "stroke-dashoffset='15'/>",
                {{34, 20, true}, {36, 20, false}, {54, 20, false}, {56, 20, true}});
    const std::string whole =
        "<path fill='none' stroke='red' stroke-width='20' d='M20 20h60v60h-60z' "
        "stroke-linejoin='round' stroke-dasharray='50 20' ";
    expectSpots(whole + "/>", {{14, 14, true}, {11, 11, false}});
    expectSpots(whole + "stroke-dashoffset='60'/>", {{28, 18, false}, {14, 14, false}});
}

TEST(Rendering, ShowsDashesTooFineToSeeAsWhatIsSeenOfThem) {
    const std::string line = "<path stroke='red' stroke-width='20' d='M10 50H90' ";
    expectSpots(line + "stroke-dasharray='.001 .004'/>", {{50, 50, false}});
    expectSpots(line + "stroke-dasharray='.004 .001'/>", {{50, 50, true}});
}

TEST(Rendering, GoesByTheBoxOfWhatIsNotSeenAsWell) {
    expectSpots(
        "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='.5' height='1'/>"
        "</clipPath><g clip-path='url(#c)'><rect width='40' height='40' fill='red'/>"
        "<rect x='60' y='60' width='30' height='30' visibility='hidden'/></g>",
        {{30, 30, true}});
    expectSpots(
        "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='.5' height='1'/>"
        "</clipPath><g clip-path='url(#c)'><rect width='40' height='40' fill='red'/>"
        "<rect x='60' y='60' width='30' height='30' display='none'/></g>",
        {{10, 30, true}, {30, 30, false}});
}

TEST(Rendering, DrawsDotsByTheirCaps) {
    const auto dot = [](const std::string& cap, const std::string& data) {
        return "<path stroke='red' stroke-width='20' stroke-linecap='" + cap + "' d='" + data +
               "'/>";
    };
    for (const char* data : {"M50 50h0", "M50 50z", "M50 50c0 0 0 0 0 0"}) {
        expectSpots(dot("square", data), {{42, 42, true}, {58, 58, true}, {62, 50, false}});
        expectSpots(dot("round", data), {{50, 42, true}, {42, 42, false}});
        expectSpots(dot("butt", data), {{45, 45, false}});
    }
    expectSpots(dot("round", "M50 50"), {{45, 45, false}});
}

TEST(Rendering, ReachesAcrossTheEndsOfTheWorld) {
    expectSpots("<rect fill='red' x='-1e7' y='50' width='2e7' height='1e7'/>",
                {{50, 40, false}, {50, 60, true}, {99, 99, true}});
    expectSpots("<path stroke='red' stroke-width='10' d='M-1e7 -1e7L1e7 1e7'/>",
                {{50, 50, true}, {20, 20, true}, {20, 60, false}});
    expectSpots("<path fill='none' stroke='red' stroke-width='10' d='M30 30H1e7V60H30z'/>",
                {{30, 45, true}, {80, 30, true}, {80, 60, true}, {80, 45, false}});
}

std::size_t countIn(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(Rendering, HoldsASymbolOnceHoweverOftenItIsPlaced) {
    const std::string uses =
        "<use href='#s' x='10' y='10'/><use href='#s' transform='translate(50 50) rotate(90)'/>"
        "<use href='#s' transform='translate(10 70) scale(.8)'/>";
    const auto symbol = [&](const std::string& attributes) {
        return "<defs><g id='s' fill='red' " + attributes +
               "><path d='M0 0h10v5h-10z'/><path d='M12 0h4v5h-4z'/></g></defs>" + uses;
    };
    const std::initializer_list<Spot> spots = {{12, 12, true}, {21, 12, false},   {24, 12, true},
                                               {47, 55, true}, {47, 61, false},   {55, 55, false},
                                               {14, 72, true}, {18.8, 72, false}, {21, 72, true}};
    expectSpots(symbol(""), spots);
    EXPECT_EQ(3U, countIn(script(symbol("")), " execform"));
    const std::string translucent = symbol("opacity='.9'");
    expectSpots(translucent, spots);
    EXPECT_EQ(0U, countIn(script(translucent), " execform"));
}

TEST(Rendering, ShowsTextFilledStrokedAndAlongCurves) {
    expectSpots(
        "<path id='p' d='M10 90h80'/>"
        "<text x='10' y='60' font-family='Helvetica' font-size='20' fill='none' stroke='red' "
        "stroke-width='2'>l</text>"
        "<text x='40' y='60' font-family='DejaVu Sans' font-size='20' fill='red'>l</text>"
        "<text x='70' y='60' font-family='DejaVu Sans' font-size='20' "
        "fill='red'>\xEF\xAC\x81\xD9\x84</text>"
        "<text font-family='DejaVu Sans' font-size='20' fill='red'><textPath href='#p' "
        "startOffset='50%'>l</textPath></text>"
        "<text x='10' y='90' font-family='Times' font-size='20' fill='red' "
        "opacity='0'>hidden</text>",
        {{12.2, 50, true},
         {42.9, 50, true},
         {42.9, 70, false},
         {72.6, 53, true},
         {52.8, 80, true}});
}

TEST(Rendering, ShowsFontsThatADrawingBringsAlong) {
    const auto boxes = [](const std::string& attributes, const char* letter) {
        return "<style>@font-face{font-family:Boxes;font-weight:100 900;src:url(" +
               std::string(kBoxesFont) +
               ")}</style><text x='10' y='60' font-family='Boxes' font-size='50' fill='red' " +
               attributes + ">" + letter + "</text>";
    };
    expectSpots(boxes("", "A"), {{30, 20, true}, {40, 20, false}});
    expectSpots(boxes("font-weight='900'", "A"), {{30, 20, true}, {50, 20, true}, {58, 20, false}});
    expectSpots(boxes("", "B"), {{20, 20, true}, {50, 20, true}});
    expectSpots(boxes("fill-opacity='0'", "B"), {{20, 20, false}});
    expectSpots(boxes("", "C"), {{15, 15, true}, {55, 55, true}, {65, 40, false}});
    expectSpots(boxes("writing-mode='tb'", "A"), {{10, 70, true}, {10, 55, false}});
    EXPECT_THAT(
        outputOf("ps2pdf - - | pdftotext - -", script(boxes("font-weight='700'", "A") +
                                                      boxes("transform='translate(0,30)'", "B") +
                                                      boxes("transform='translate(40,30)'", "C"))),
        testing::AllOf(testing::HasSubstr("A"), testing::HasSubstr("B"), testing::HasSubstr("C")));
}

/// Words that are found in the page again, as a reader would search for them.
TEST(Rendering, KeepsTextThatCanBeFound) {
    const auto textOf = [](const std::string& body) {
        return outputOf("ps2pdf - - | pdftotext - -", script(body));
    };
    const std::string serif = "<text y='30' font-family='DejaVu Serif' font-size='9' ";
    EXPECT_THAT(textOf("<text y='30' font-family='Helvetica' font-size='9'>AVATAR</text>"),
                testing::HasSubstr("AVATAR"));
    EXPECT_THAT(textOf(serif + ">office fluff</text>"), testing::HasSubstr("office fluff"))
        << "ligatures";
    EXPECT_THAT(textOf(serif + "x='3 12 17.5 23'>Wave</text>"), testing::HasSubstr("Wave"));
    EXPECT_THAT(textOf(serif + ">\xCE\xBB\xCE\xAD\xCE\xBE\xCE\xB7</text>"),
                testing::HasSubstr("\xCE\xBB\xCE\xAD\xCE\xBE\xCE\xB7"));
    EXPECT_THAT(textOf("<path id='p' d='M5 50q40 -4 80 0'/><text font-family='DejaVu Sans' "
                       "font-size='9'><textPath href='#p'>Curved</textPath></text>"),
                testing::HasSubstr("Curved"));
    EXPECT_THAT(textOf("<clipPath id='c'><circle cx='30' cy='30' r='25'/></clipPath><g "
                       "clip-path='url(#c)'>" +
                       serif + ">Clipped</text></g>"),
                testing::HasSubstr("Clipped"));
    EXPECT_THAT(textOf(serif + "fill='#333'>Beneath</text><rect width='99' height='99' "
                               "fill='yellow' opacity='.4'/>"),
                testing::HasSubstr("Beneath"));
    EXPECT_THAT(textOf("<defs><g id='s'>" + serif +
                       ">Placed</text></g></defs><use href='#s'/><use href='#s' y='20'/><use "
                       "href='#s' y='40'/>"),
                testing::HasSubstr("Placed"));
}

}  // namespace
