#include "tests/psrender/Spots.h"

#include <gtest/gtest.h>

namespace {

using psrender::tests::expectSpots;

/// A page in red, seen through the clip path that is made of `area`.
std::string seenThrough(const std::string& area, const std::string& attributes = "") {
    return "<clipPath id='c' " + attributes + ">" + area +
           "</clipPath><rect fill='red' width='100' height='100' clip-path='url(#c)'/>";
}

TEST(Clips, ShowWhatTheirAreaCovers) {
    expectSpots(seenThrough("<rect x='20' y='20' width='30' height='30' fill='none' opacity='0'/>"),
                {{21, 21, true}, {49, 49, true}, {19, 30, false}, {51, 30, false}});
    expectSpots(seenThrough("<circle cx='30' cy='50' r='20'/><circle cx='50' cy='50' r='20'/>"),
                {{12, 50, true}, {40, 50, true}, {68, 50, true}, {40, 69, false}});
    expectSpots(seenThrough("<path clip-rule='evenodd' d='M10 10h80v80h-80zM30 30h40v40h-40z'/>"),
                {{20, 50, true}, {50, 50, false}, {80, 80, true}});
    expectSpots(seenThrough("<g><rect width='9' height='9'/></g>"), {{5, 5, false}});
    expectSpots(seenThrough("<use href='#r' x='40'/><path d='M0 0h9' stroke='red'/>") +
                    "<defs><rect id='r' width='20' height='20' fill='none'/></defs>",
                {{45, 5, true}, {30, 5, false}, {5, 0.2, false}});
    expectSpots(
        seenThrough("<circle cx='.5' cy='.5' r='.5'/>", "clipPathUnits='objectBoundingBox'"),
        {{50, 2, true}, {14, 86, false}, {16, 84, true}});
    expectSpots("<rect fill='red' width='9' height='9' clip-path='url(#no)'/>", {{5, 5, true}});
}

TEST(Clips, ShowWhatAllOfThemCoverWithinEachOther) {
    const std::string left = "<clipPath id='l'><rect width='50' height='100'/></clipPath>";
    const std::string top = "<clipPath id='t'><rect width='100' height='50'/></clipPath>";
    const std::string ofChild = seenThrough(
        "<rect x='20' width='60' height='90' "
        "clip-path='url(#l)'/><rect y='95' x='90' width='9' "
        "height='4'/>",
        "clip-path='url(#t)'");
    expectSpots(left + top + ofChild,
                {{30, 30, true}, {60, 30, false}, {30, 60, false}, {95, 97, false}});
    expectSpots(
        "<clipPath id='a'><rect width='50' height='50' clip-path='url(#a)'/></clipPath>"
        "<rect fill='red' width='90' height='90' clip-path='url(#a)'/>",
        {{30, 30, true}, {60, 30, false}});
    expectSpots(
        "<svg x='20' width='20' height='20'><circle fill='red' cx='20' cy='10' r='15'/></svg>",
        {{38, 10, true}, {42, 10, false}, {38, 22, false}});
}

TEST(Clips, CutStrokesAcrossTheirBorder) {
    const auto cut = [](const std::string& line) {
        return "<clipPath id='c'><path d='M0 50L50 0L100 50L50 100z'/></clipPath>"
               "<g clip-path='url(#c)' fill='none' stroke='red' stroke-width='20'>" +
               line + "</g>";
    };
    expectSpots(cut("<path d='M0 50h100' stroke-dasharray='30 20' stroke-dashoffset='10'/>"),
                {{5, 48, true},
                 {5, 42, false},
                 {19, 50, true},
                 {21, 50, false},
                 {39, 50, false},
                 {41, 50, true},
                 {69, 50, true},
                 {71, 50, false}});
    const std::string corner = "<path d='M20 50h30v60' stroke-linejoin='";
    expectSpots(cut(corner + "miter'/>"), {{59, 41, true}, {61, 50, false}, {39, 61, false}});
    expectSpots(cut(corner + "round'/>"), {{56, 44, true}, {59, 41, false}, {45, 55, true}});
    expectSpots(cut(corner + "bevel'/>"), {{53, 43, true}, {56, 44, false}});
    const std::string end = "<path d='M50 120V50' stroke-linecap='";
    expectSpots(cut(end + "butt'/>"), {{50, 52, true}, {50, 48, false}});
    expectSpots(cut(end + "square'/>"), {{58, 42, true}, {50, 38, false}});
    expectSpots(cut(end + "round'/>"), {{50, 41, true}, {58, 42, false}});
    expectSpots(cut("<path d='M-20 20h140v60h-140z'/><path d='M90 50h0' stroke-linecap='round'/>"),
                {{50, 12, true}, {50, 32, false}, {50, 88, true}, {8, 50, false}, {92, 50, true}});
}

}  // namespace
