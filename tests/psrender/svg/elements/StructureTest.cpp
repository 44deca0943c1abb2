// Groups, references, nested drawings, choices, and the page itself.

#include "tests/psrender/svg/Drawings.h"

#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string open = "<svg xmlns='http://www.w3.org/2000/svg' ";

TEST(SvgPage, HasTheSizeOfTheDrawing) {
    const std::tuple<const char*, double, double> rows[] = {
        {"width='96' height='2in'", 72, 144},
        {"width='10em' height='1cm'", 120, 28.346},
        {"width='192000' height='9600'", 14400, 720},
        {"", 225, 112.5},
        {"viewBox='0 0 40 20'", 30, 15},
        {"viewBox='0 0 40 20' width='80'", 60, 30},
        {"viewBox='0 0 40 20' height='80' width='auto'", 120, 60},
        {"viewBox='0 0 40 20' height='50%' width='100%'", 30, 7.5},
        {"width='96'", 72, 112.5},
    };
    for (const auto& [attributes, width, height] : rows) {
        const scene::Page page = read(open + attributes + "/>").page;
        EXPECT_NEAR(page.width, width, 1e-3) << attributes;
        EXPECT_NEAR(page.height, height, 1e-3) << attributes;
    }
}

TEST(SvgPage, WithoutASizeIsTheBoxOfWhatIsDrawn) {
    const Reading reading =
        read(open + "width='100%'><path d='M50 40h10v20' stroke='red' stroke-width='4'/></svg>");
    EXPECT_NEAR(reading.page.width, 14 * 0.75, 1e-9);
    EXPECT_NEAR(reading.page.height, 24 * 0.75, 1e-9);
    EXPECT_THAT(reading.items, ElementsAre(HasSubstr("M2,2 L12,2 L12,22")));
}

TEST(SvgPage, ShowsItsViewBox) {
    EXPECT_THAT(read(open + "width='100' height='50' viewBox='10 10 10 10'>"
                            "<rect x='10' y='10' width='100%' height='50%'/></svg>")
                    .items,
                ElementsAre("fill=#000000 M25,0 L75,0 L75,25 L25,25 Z"));
}

TEST(SvgPage, NeedsASizeAboveZero) {
    for (const char* attributes :
         {"width='0'", "height='-1'", "width='nan'", "width='1e400'", "height='inf'", "width='0%'",
          "width='big'", "viewBox='0 0 0 1'", "viewBox='0 0 1 -1'", "viewBox='0 0 1e999 1'",
          "viewBox='0 0 1'"})
        EXPECT_THAT(refusal(open + attributes + "/>"),
                    testing::AllOf(testing::StartsWith("test.svg:1:2: "), HasSubstr("above 0")))
            << attributes;
}

/// A triangle, and how it comes out when nothing changes it.
const std::string triangle = "<path id='t' d='M0 0H1V1'/>";
const std::string plain = "fill=#000000 M0,0 L1,0 L1,1";

TEST(SvgUse, DrawsItsTargetInItsOwnPlaceAndStyle) {
    const std::pair<const char*, const char*> rows[] = {
        {"<use href='#t' x='5' y='10%'/>", "fill=#000000 M5,10 L6,10 L6,11"},
        {"<use xmlns:l='http://www.w3.org/1999/xlink' l:href='#t' fill='red'/>",
         "fill=#ff0000 M0,0 L1,0 L1,1"},
        {"<use href='#t' x='1' transform='scale(2)' opacity='.5'/>",
         "fill=#000000/0.5 M2,0 L4,0 L4,2"},
        {"<g id='g' transform='translate(9)'><use href='#t'/></g>",
         "fill=#000000 M9,0 L10,0 L10,1"},
    };
    for (const auto& [body, item] : rows)
        EXPECT_THAT(drawn("<defs>" + triangle + "</defs>" + body), ElementsAre(item)) << body;
}

TEST(SvgUse, SharesTheOutlineOfARepeatedTarget) {
    const Reading reading =
        readBody("<defs>" + triangle + "<rect id='r' width='1%' height='1'/>" +
                 "</defs><use href='#t'/><use href='#t' x='1'/><use href='#r'/>"
                 "<svg viewBox='0 0 500 500' overflow='visible'><use href='#r'/></svg>");
    ASSERT_EQ(reading.items.size(), 4U);
    const auto outline = [&](std::size_t i) {
        return std::get<scene::Shape>(reading.page.items[i]).outline;
    };
    EXPECT_EQ(outline(0), outline(1));
    EXPECT_EQ(outline(2)->controlBox()->width, 1);
    EXPECT_EQ(outline(3)->controlBox()->width, 5);
}

TEST(SvgUse, GivesSymbolsAndDrawingsTheirSize) {
    const std::string targets =
        "<defs><symbol id='s' viewBox='0 0 10 10' overflow='visible'><path d='M0 "
        "0H10V10'/></symbol>"
        "<svg id='v' x='1' width='20' height='20' viewBox='0 0 10 10' overflow='visible'>"
        "<path d='M0 0H10V10'/></svg>"
        "<symbol id='e' viewBox='0 0 0 9'><path d='M0 0H10V10'/></symbol></defs>";
    const std::pair<const char*, const char*> rows[] = {
        {"<use href='#s'/>", "fill=#000000 M0,0 L100,0 L100,100"},
        {"<use href='#s' x='3' width='20' height='40'/>", "fill=#000000 M3,10 L23,10 L23,30"},
        {"<use href='#v'/>", "fill=#000000 M1,0 L21,0 L21,20"},
        {"<use href='#v' width='40' height='40'/>", "fill=#000000 M1,0 L41,0 L41,40"},
    };
    for (const auto& [body, item] : rows)
        EXPECT_THAT(drawn(targets + body), ElementsAre(item)) << body;
    EXPECT_THAT(drawn(targets + "<use href='#e'/><use href='#s' width='0'/>"), IsEmpty());
}

TEST(SvgUse, WithoutATargetIsCounted) {
    EXPECT_THAT(readBody("<use href='#no'/><use href='a.svg#b'/><use/>").warnings,
                ElementsAre(HasSubstr("other files"), testing::EndsWith("(<use>) (2 times)")));
}

TEST(SvgNesting, OpensAViewportOfItsOwn) {
    EXPECT_THAT(drawn("<svg x='10' y='5' width='20' height='20' viewBox='0 0 4 2' "
                      "preserveAspectRatio='xMidYMax' overflow='auto'><rect width='50%' "
                      "height='100%'/></svg>"),
                ElementsAre("fill=#000000 M10,15 L20,15 L20,25 L10,25 Z"));
    EXPECT_THAT(
        drawn("<svg x='10%' width='50%' overflow='visible'><rect width='100%' height='1%'/></svg>"),
        ElementsAre("fill=#000000 M10,0 L60,0 L60,1 L10,1 Z"));
}

TEST(SvgSwitch, DrawsTheFirstChildThatFits) {
    const std::pair<const char*, const char*> rows[] = {
        {"<g requiredExtensions='http://x'/>", ""},
        {"<g systemLanguage='de, fr'/>", ""},
        {"<g systemLanguage=''/>", ""},
        {"<title/><x:y/><foreignObject/>", ""},
        {"<g requiredFeatures='http://www.w3.org/TR/SVG11/feature#Extensibility'/>", ""},
        {"<path d='M0 0H9V9' systemLanguage='de,EN-us'/>", "fill=#000000 M0,0 L9,0 L9,9"},
        {"<path d='M0 0H9V9' requiredFeatures='a#Shape'/>", "fill=#000000 M0,0 L9,0 L9,9"},
    };
    for (const auto& [before, item] : rows)
        EXPECT_THAT(drawn("<switch>" + std::string(before) + triangle + "</switch>"),
                    ElementsAre(*item == '\0' ? plain : item))
            << before;
    EXPECT_THAT(readBody("<switch><foreignObject/></switch>").warnings,
                ElementsAre(HasSubstr("foreignObject")));
}

TEST(SvgElements, AreDrawnInGroupsAndLinksOnly) {
    EXPECT_THAT(drawn("<g>" + triangle + "</g><a>" + triangle + "</a>"), ElementsAre(plain, plain));
    for (const char* name : {"defs", "symbol", "clipPath", "mask", "marker", "pattern", "title",
                             "metadata", "linearGradient", "text", "foreignObject", "glow"}) {
        const std::string tag = name;
        EXPECT_THAT(drawn("<" + tag + ">" + triangle + "</" + tag + ">"), IsEmpty()) << tag;
    }
}

TEST(SvgElements, LeftOutAreCountedUnlessSilent) {
    EXPECT_THAT(
        readBody("<glow/><image href='a.png'/><foreignObject/><glow/><g display='none'><glow/></g>"
                 "<animate/><set/><script/><title/><desc/><metadata><glow/></metadata>"
                 "<view/><defs><glow/></defs><x:y xmlns:x='http://x'><glow/></x:y>")
            .warnings,
        ElementsAre("content that is not SVG is left out (<foreignObject>)",
                    "elements that SVG does not know are left out (2 times)",
                    "images are left out (<image>)"));
}

TEST(SvgElements, WithWrongAttributesAreDrawnWithoutThem) {
    const Reading reading = readBody(
        "<rect x='nan' y='1e400' width='2' height='2' rx='-1'/>"
        "<path d='M0 0H1V1 oops'/><polyline points='0,0 1,0 1,1 2'/>");
    EXPECT_THAT(reading.items, ElementsAre("fill=#000000 M0,0 L2,0 L2,2 L0,2 Z", plain, plain));
    EXPECT_THAT(reading.warnings,
                ElementsAre("attributes that are no lengths are ignored (2 times)",
                            "negative sizes are ignored",
                            "paths with an error in their data are drawn up to it",
                            "point lists with an error are drawn up to it"));
}

TEST(SvgMasks, OfOneBrightnessAreAnAreaWithAnOpacity) {
    const auto masked = [](const std::string& attributes, const std::string& content) {
        return readBody("<mask id='m' " + attributes + ">" + content + "</mask><g mask='url(#m)'>" +
                        triangle + "<path d='M5 5h1v1'/></g>");
    };
    const std::pair<const char*, const char*> rows[] = {
        {"<rect width='9' height='9' fill='white'/>", "begin 1"},
        {"<rect width='9' height='9' fill='#f00' fill-opacity='.5'/>", "begin 0.106"},
        {"<rect width='9' height='9'/><path d='M0 0h9v9' fill='white'/>", "begin 1"},
    };
    for (const auto& [content, group] : rows)
        EXPECT_THAT(masked("", content).items.front(), group) << content;
    EXPECT_THAT(masked("mask-type='alpha'", rows[1].first).items.front(), "begin 0.5");
    EXPECT_THAT(masked("", "<rect width='9' height='9'/>").items, IsEmpty());
    const Reading uneven = masked("",
                                  "<rect width='9' height='9' fill='white'/>"
                                  "<rect width='2' height='2' fill='black'/>");
    EXPECT_EQ(uneven.items.size(), 4U);
    EXPECT_THAT(uneven.warnings, IsEmpty());
}

TEST(SvgTransforms, TurnAboutTheirOrigin) {
    const auto turned = [](const std::string& origin) {
        return drawn("<path d='M10 0h1' stroke='red' transform='rotate(180)' transform-origin='" +
                     origin + "'/>")
            .front();
    };
    for (const char* origin : {"10px 5", "10% 5%", "10 5 3px"})
        EXPECT_THAT(turned(origin), HasSubstr("M10,10 L9,10")) << origin;
    EXPECT_THAT(turned("bottom right"), HasSubstr("M190,200 L189,200"));
    EXPECT_THAT(turned("center"), HasSubstr("M90,100 L89,100"));
    EXPECT_THAT(turned("no"), HasSubstr("M-10,0 L-11,0"));
}

TEST(SvgPaintOrder, LaysStrokesAndMarkersBeneath) {
    const auto ordered = [](const std::string& order) {
        return drawn("<path d='M0 0H1V1' stroke='red' paint-order='" + order + "'/>");
    };
    EXPECT_THAT(ordered("stroke"), ElementsAre(HasSubstr("fill=none stroke=#ff0000"), plain));
    EXPECT_THAT(ordered("normal"), ElementsAre(HasSubstr("fill=#000000 stroke=#ff0000")));
    EXPECT_THAT(ordered("fill fill"), ElementsAre(HasSubstr("fill=#000000 stroke=#ff0000")));
    EXPECT_EQ(drawn("<text stroke='red' paint-order='stroke' y='9'>a</text>").size(), 2U);
}

TEST(SvgSymbols, AreDrawnOnceForEachAppearance) {
    const Reading reading = readBody(
        "<path id='t' d='M0 0h1v1'/><use href='#t' x='3'/>"
        "<g fill='red'><use href='#t'/><use href='#t' y='2'/></g>");
    ASSERT_EQ(4U, reading.items.size());
    const auto list = [&](std::size_t i) {
        return std::get<scene::Placement>(reading.page.items[i]).symbol;
    };
    EXPECT_EQ("symbol at 3,0 along 1,0", reading.items[1]);
    EXPECT_NE(list(1), list(2));
    EXPECT_EQ(list(2), list(3));
}

TEST(SvgMarkers, StandOnVerticesAndTurnWithThePath) {
    const std::string markers =
        "<marker id='m' refX='1' orient='auto-start-reverse'><path d='M0 0h1v1'/></marker>"
        "<marker id='f' orient='90' markerUnits='userSpaceOnUse'><path d='M0 0h1v1'/></marker>";
    const struct {
        std::string body;
        std::vector<std::string> expected;
    } cases[] = {
        {"<path d='M10 10L20 10' stroke-width='2' marker-start='url(#m)' marker-end='url(#m)'/>",
         {"symbol at 12,10 along -2,0", "symbol at 18,10 along 2,0"}},
        {"<polygon points='0,0 10,0 10,10' fill='none' marker-mid='url(#f)'/>",
         {"symbol at 10,0 along 0,1", "symbol at 10,10 along 0,1"}},
        {"<path d='M0 0a10 10 0 1 1 20 0a10 10 0 1 1 -20 0' fill='none' marker-mid='url(#m)'/>",
         {"symbol at 20,-1 along 0,1"}},
        {"<path d='M0 0C0 0 10 0 10 10z' fill='none' marker-start='url(#f)'/>",
         {"symbol at 0,0 along 0,1"}},
        {"<rect width='1' height='1' fill='none' marker='url(#m)'/>"
         "<line x2='5' style='marker:url(#none)'/>",
         {}},
    };
    for (const auto& [body, expected] : cases)
        EXPECT_THAT(drawn(markers + body), testing::ElementsAreArray(expected)) << body;
}

}  // namespace
}  // namespace psrender::svg
