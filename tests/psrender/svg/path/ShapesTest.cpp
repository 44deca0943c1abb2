// Basic shapes and how they are painted.

#include "tests/psrender/svg/Drawings.h"

#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(SvgShapes, BecomeOutlines) {
    const std::pair<const char*, const char*> rows[] = {
        {"<rect x='1' y='2' width='3' height='4'/>", "M1,2 L4,2 L4,6 L1,6 Z"},
        {"<rect x='10%' width='5mm' height='1em'/>", "M10,0 L28.898,0 L28.898,16 L10,16 Z"},
        {"<circle cx='5' cy='5' r='5'/>",
         "M10,5 C10,7.761 7.761,10 5,10 C2.239,10 0,7.761 0,5 C0,2.239 2.239,0 5,0 "
         "C7.761,0 10,2.239 10,5 Z"},
        {"<ellipse rx='2' ry='1'/>",
         "M2,0 C2,0.552 1.105,1 0,1 C-1.105,1 -2,0.552 -2,0 C-2,-0.552 -1.105,-1 0,-1 "
         "C1.105,-1 2,-0.552 2,0 Z"},
        {"<polygon points='1,2 3,4 5,0'/>", "M1,2 L3,4 L5,0 Z"},
        {"<polyline points='1,2 3,4 5,0'/>", "M1,2 L3,4 L5,0"},
        {"<path d='M1 2 3 4 5 0'/>", "M1,2 L3,4 L5,0"},
    };
    for (const auto& [body, outline] : rows)
        EXPECT_THAT(drawn(body), ElementsAre("fill=#000000 " + std::string(outline))) << body;
}

TEST(SvgShapes, CornersOfRectanglesAreAtMostHalfASide) {
    const std::string oval =
        "fill=#000000 M2,0 L2,0 C3.105,0 4,0.895 4,2 L4,2 C4,3.105 3.105,4 2,4 L2,4 "
        "C0.895,4 0,3.105 0,2 L0,2 C0,0.895 0.895,0 2,0 Z";
    EXPECT_THAT(drawn("<rect width='4' height='4' rx='9'/>"), ElementsAre(oval));
    EXPECT_THAT(drawn("<rect width='4' height='4' rx='2' ry='9'/>"), ElementsAre(oval));
    EXPECT_THAT(drawn("<rect width='4' height='4' ry='2' rx='auto'/>"), ElementsAre(oval));
    EXPECT_THAT(drawn("<rect width='4' height='4' rx='0' ry='2'/>"),
                ElementsAre("fill=#000000 M0,0 L4,0 L4,4 L0,4 Z"));
}

TEST(SvgShapes, WithoutExtentShowNothing) {
    for (const char* body :
         {"<rect width='4'/>", "<rect width='0' height='4' stroke='red'/>", "<circle/>",
          "<circle r='-1'/>", "<ellipse rx='0' ry='3'/>", "<path/>", "<path d='none'/>",
          "<path d='M1 1'/>", "<polygon/>", "<line x2='4'/>", "<path d='M0 0h9z'/>",
          "<rect width='4' height='4' transform='scale(0)'/>",
          "<rect width='4' height='4' visibility='hidden'/>",
          "<rect width='4' height='4' display='none'/>", "<rect width='4' height='4' opacity='0'/>",
          "<rect width='4' height='4' fill='none'/>",
          "<rect width='4' height='4' fill='none' stroke='red' stroke-width='0'/>"})
        EXPECT_THAT(drawn(body), IsEmpty()) << body;
}

TEST(SvgShapes, LinesAreStrokedInAllWays) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "width=1"},
        {"stroke-width='2pt' stroke-linecap='round'", "width=2.667 round-cap"},
        {"stroke-width='10%' stroke-linejoin='bevel'", "width=10 bevel-join"},
        {"stroke-linejoin='arcs' stroke-linecap='square'", "width=1 square-cap"},
        {"stroke-width='-3'", "width=1"},
        {"stroke-miterlimit='1'", "width=1 limit=1"},
        {"stroke-miterlimit='.9'", "width=1"},
        {"stroke-dasharray='1,2 3px'", "width=1 dashes=1,2,3,1,2,3"},
        {"stroke-dasharray='5% 1em'", "width=1 dashes=5,16"},
        {"stroke-dasharray='1,-2'", "width=1"},
        {"stroke-dasharray='1,x'", "width=1"},
        {"stroke-dasharray='0 0'", "width=1"},
        {"stroke-dasharray='none' stroke-dashoffset='3'", "width=1"},
        {"stroke-dasharray='4 2' stroke-dashoffset='-1'", "width=1 dashes=4,2 offset=5"},
        {"stroke-dasharray='4 2' stroke-dashoffset='13'", "width=1 dashes=4,2 offset=1"},
    };
    for (const auto& [attributes, stroke] : rows)
        EXPECT_THAT(drawn("<line x2='9' y2='4' stroke='red' " + std::string(attributes) + "/>"),
                    ElementsAre("fill=none stroke=#ff0000 " + std::string(stroke) + " M0,0 L9,4"))
            << attributes;
}

TEST(SvgShapes, TakeOpacityFromPaintGroupAndColor) {
    const std::string square = " M0,0 L1,0 L1,1 L0,1 Z";
    const auto show = [](const std::string& attributes) {
        return drawn("<path d='M0 0H1V1H0Z' " + attributes + "/>");
    };
    EXPECT_THAT(show("fill='#f008' fill-opacity='50%' fill-rule='evenodd'"),
                ElementsAre("fill=#ff0000/0.267 evenodd" + square));
    EXPECT_THAT(show("opacity='.5' fill-opacity='.5'"), ElementsAre("fill=#000000/0.25" + square));
    EXPECT_THAT(show("opacity='.5' fill='none' stroke='red'"),
                ElementsAre("fill=none stroke=#ff0000/0.5 width=1" + square));
    EXPECT_THAT(show("opacity='.5' stroke='red' stroke-opacity='7'"),
                ElementsAre("begin 0.5", "fill=#000000 stroke=#ff0000 width=1" + square, "end"));
    EXPECT_THAT(show("fill='transparent' stroke='red' stroke-opacity='-1'"), IsEmpty());
}

TEST(SvgShapes, OpacityOfGroupsStaysAroundSeveralShapes) {
    const std::string line = "<path d='M0 0H1V1' id='p'/>";
    const std::string shape = "fill=#000000 M0,0 L1,0 L1,1";
    EXPECT_THAT(drawn("<g opacity='.5'>" + line + line + "</g>"),
                ElementsAre("begin 0.5", shape, shape, "end"));
    EXPECT_THAT(drawn("<g opacity='.5'><g opacity='.5'>" + line + "</g></g>"),
                ElementsAre("fill=#000000/0.25 M0,0 L1,0 L1,1"));
    EXPECT_THAT(drawn("<g opacity='.5'><g opacity='.5'/></g>"), IsEmpty());
    EXPECT_THAT(drawn("<g opacity='2'>" + line + "</g>"), ElementsAre(shape));
}

TEST(SvgPaints, ThatReferFallBack) {
    const std::string servers =
        "<defs><linearGradient id='a' href='#b'/><radialGradient id='b' color='lime'>"
        "<stop stop-color='currentColor' stop-opacity='.5'/>"
        "</radialGradient><linearGradient id='loop' href='#loop'/><pattern id='p'/></defs>";
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"url(#a)", "#00ff00/0.5", ""},
        {"url( '#b' ) blue", "#00ff00/0.5", ""},
        {"url(#loop)", "0 items", ""},
        {"url(#p)", "0 items", ""},
        {"url(#p) currentColor", "#000000", ""},
        {"url(#missing)", "0 items", "nothing in the file"},
        {"url(#missing) #abc", "#aabbcc", "nothing in the file"},
        {"url(other.svg#a) red", "#ff0000", "nothing in the file"},
        {"url(#a) nonsense", "#000000", "not understood"},
        {"red icc-color(x, 1)", "#ff0000", ""},
    };
    for (const auto& [paint, fill, warning] : rows) {
        const std::string body =
            servers + "<rect width='1' height='1' fill=\"" + std::string(paint) + "\"/>";
        EXPECT_EQ(fillOf(body), fill) << paint;
        const auto warnings = readBody(body).warnings;
        ASSERT_EQ(warnings.size(), std::string_view(warning).empty() ? 0U : 1U) << paint;
        EXPECT_THAT(warnings.empty() ? "" : warnings[0], HasSubstr(warning)) << paint;
    }
}

}  // namespace
}  // namespace psrender::svg
