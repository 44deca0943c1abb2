#include "tests/psrender/Spots.h"
#include "tests/psrender/svg/Drawings.h"

#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// Whether `selector` means the rectangle of `body`.
bool selects(const std::string& selector, const std::string& body) {
    return fillOf("<style>" + selector + "{fill:red}</style>" + body) == "#ff0000";
}

const std::string rect = "<rect width='1' height='1'/>";

TEST(SvgSelectors, DescribeOneElement) {
    const std::string body =
        "<rect width='1' height='1' id='i' class=' a b-c ' lang='en-US' data='x y'/>";
    for (const char* selector : {"rect",         "*",
                                 ".a",           ".b-c",
                                 ".a.b-c",       "#i",
                                 "rect#i.a",     "[data]",
                                 "[data='x y']", "[data~=x]",
                                 "[lang|=en]",   "[data^=\"x\"]",
                                 "[data$='y']",  "[ data *= ' ' ]",
                                 "g, rect",      "svg rect",
                                 "svg > rect",   ":root > rect",
                                 "style + rect", "style ~ rect",
                                 "*[id=i]"})
        EXPECT_TRUE(selects(selector, body)) << selector;
    for (const char* selector :
         {"circle",    ".A",        ".b",          ".a.d",          "#a",
          "#i#j",      "[nothing]", "[data=x]",    "[data~='x y']", "[lang|=e]",
          "[data^=y]", "[data$=x]", "[data*=z]",   "[data*='']",    "g rect",
          "rect rect", "g > rect",  "rect + rect", "rect ~ rect",   "rect:first-child",
          "rect:root"})
        EXPECT_FALSE(selects(selector, body)) << selector;
}

TEST(SvgSelectors, FollowCombinators) {
    const std::string body =
        "<g class='o'><g class='p'><a/><path/><g class='m'><a/>" + rect + "</g></g></g>";
    for (const char* selector :
         {".o rect", ".o .m rect", ".o > .p > .m > rect", ".p path + g rect", "a ~ g a + rect",
          ".o path ~ .m > rect", "g g g rect", ".m > :first-child + rect", ".o a~g>a+rect"})
        EXPECT_TRUE(selects(selector, body)) << selector;
    for (const char* selector : {".m .m rect", ".o > rect", ".o > .m rect", "path + rect",
                                 "a + g rect", "g g g g rect", "rect ~ g rect", ".p ~ .m rect"})
        EXPECT_FALSE(selects(selector, body)) << selector;
}

/// A failed attempt further down must not hide a match further up.
TEST(SvgSelectors, TryAllAncestors) {
    const std::string body = "<a/><g class='x'><g class='y'><g class='y'>" + rect + "</g></g></g>";
    EXPECT_TRUE(selects(".x > .y rect", body));
    EXPECT_TRUE(selects("a + .x .y rect", body));
    EXPECT_TRUE(selects("a + g rect", body));
    EXPECT_TRUE(selects(".x > g g > rect", body));
    EXPECT_FALSE(selects(".y > .y > .y rect", body));
}

TEST(SvgSelectors, WrongOnesTakeTheirRuleAlongWithAWarning) {
    for (const char* selector :
         {"rect:nth-child(n n)", "rect, circle:not(", "rect:no-such", "rect,", "> rect", "rect >",
          "", "[", "[data", "rect..a", "rect[x!=y]", "rect[a!b]"})
        EXPECT_THAT(readBody("<style>" + std::string(selector) + "{fill:red}</style>").warnings,
                    ElementsAre(HasSubstr("selector is not understood")))
            << selector;
}

TEST(SvgSelectors, OfDynamicThingsNeverApplyAndAreNoWarning) {
    for (const char* selector : {"rect:hover", "rect:not(.a):focus", "rect::selection"}) {
        const Reading reading =
            readBody("<style>" + std::string(selector) + "{fill:red}</style>" + rect);
        EXPECT_THAT(reading.warnings, ElementsAre()) << selector;
        EXPECT_THAT(reading.items, ElementsAre(HasSubstr("fill=#000000"))) << selector;
    }
    EXPECT_TRUE(selects("rect:hover, rect:not(:hover)", rect));
}

TEST(SvgSelectors, CountSiblings) {
    const std::string body = "<g xml:lang='de-AT'><a/><b/><a/>" + rect + "<a/><b/></g>";
    for (const char* yes :
         {"rect:nth-child(4)", "rect:nth-child(even)", "rect:nth-child(3n + 1)",
          "rect:nth-child(-n+4)", "rect:nth-last-child(3)", "rect:nth-of-type(1)",
          "rect:only-of-type", "rect:empty", "rect:lang(de)", "a:first-child ~ rect",
          "rect:not(:last-child, .no)", "b:nth-of-type(1) + a + rect"})
        EXPECT_TRUE(selects(yes, body)) << yes;
    for (const char* no : {"rect:nth-child(odd)", "rect:nth-child(3n)", "rect:nth-child(-n+3)",
                           "rect:nth-child(n+5)", "rect:only-child", "rect:last-child",
                           "g:empty rect", "rect:lang(d)", "rect:not(rect)", "rect:not(g > a)"})
        EXPECT_FALSE(selects(no, body)) << no;
}

TEST(SvgStyle, IsDecidedByImportanceThenSpecificityThenOrder) {
    const std::pair<const char*, const char*> rows[] = {
        {".a{fill:red} rect{fill:blue}", "#ff0000"},
        {"rect{fill:blue} rect{fill:red}", "#ff0000"},
        {"#i{fill:red} .a.b rect.a{fill:blue} rect{fill:lime}", "#ff0000"},
        {"rect[width]{fill:red} svg rect{fill:blue}", "#ff0000"},
        {"*{fill:red}", "#ff0000"},
        {"rect{fill:red!important} #i{fill:blue}", "#ff0000"},
        {"rect{fill:red ! IMPORTANT;fill:blue}", "#ff0000"},
        {"rect{FILL:Red}", "#ff0000"},
        {"rect{fill:no-such-colour}", "#000000"},
    };
    for (const auto& [sheet, fill] : rows)
        EXPECT_EQ(fillOf("<style>" + std::string(sheet) +
                         "</style><rect id='i' class='a' fill='gray' width='1' height='1'/>"),
                  fill)
            << sheet;
}

TEST(SvgStyle, AttributeOfThatNameIsStrongerThanSheets) {
    const auto fill = [](const std::string& sheet, const std::string& style) {
        return fillOf("<style>#i{" + sheet + "}</style><rect id='i' fill='lime' width='1' " +
                      "height='1' style=\"" + style + "\"/>");
    };
    EXPECT_EQ(fill("fill:red", "fill:blue"), "#0000ff");
    EXPECT_EQ(fill("fill:red!important", "fill:blue"), "#ff0000");
    EXPECT_EQ(fill("fill:red!important", " ; fill : blue !important;"), "#0000ff");
    EXPECT_EQ(fill("", "x:url(data:a;fill:red);fill:blue"), "#0000ff");
    EXPECT_EQ(fill("", "/* fill:red; */ fill:blue"), "#0000ff");
    EXPECT_EQ(fill("", "-x-fill:red;fill"), "#00ff00");
}

TEST(SvgStyle, SheetsAreReadInAllTheirForms) {
    const char* const red[] = {
        "<style><![CDATA[ rect > a, rect { fill: red } ]]></style>",
        "<style>&lt;!-- rect{fill:red} --&gt;</style>",
        "<style type='text/css' media='print, tv'>rect{fill:red}</style>",
        "<style>/* } */rect/**/{/* fill:blue */fill:red;/*</style>",
        "<style>@charset \"x{\"; @font-face{src:url(a)} rect{fill:red}</style>",
        "<style>@media tv{rect{fill:blue}} @media print{a{fill:lime} rect{fill:red}}</style>",
        "<style>@keyframes k{from{fill:lime}to{fill:blue}} rect{fill:red}</style>",
        R"(<style>a[b="}"]{} rect{x:"}";fill:red</style>)",
        "<defs><style>rect{fill:red}</style></defs>",
        "<style>rect{fill:blue}</style><style>rect{fill:red}</style>",
    };
    for (const char* style : red)
        EXPECT_EQ(fillOf(style + rect), "#ff0000") << style;
    for (const char* style : {"<style type='text/x'>rect{fill:red}</style>",
                              "<style media='tv'>rect{fill:red}</style>", "<style/>"})
        EXPECT_EQ(fillOf(style + rect), "#000000") << style;
    EXPECT_THAT(readBody("<style>@import url(a.css);</style>").warnings,
                ElementsAre(HasSubstr("@import")));
}

TEST(SvgStyle, IsInheritedWhereItShould) {
    const std::pair<const char*, const char*> rows[] = {
        {"<g fill='red'><g>%</g></g>", "#ff0000"},
        {"<g fill='red' opacity='.5'>%</g>", "#ff0000/0.5"},
        {"<g opacity='.5'><g opacity='inherit'>%</g></g>", "#000000/0.25"},
        {"<g fill='red'><style>rect{fill:initial}</style>%</g>", "#000000"},
        {"<g fill='red'><style>rect{fill:inherit}</style>%</g>", "#ff0000"},
        {"<g color='red'><g fill='currentColor'><g color='blue'>%</g></g></g>", "#0000ff"},
        {"<g color='red'><g color='currentColor' fill='currentColor'>%</g></g>", "#ff0000"},
        {"<g visibility='hidden'><style>rect{visibility:visible}</style>%</g>", "#000000"},
        {"<g display='none'><style>rect{display:inline}</style>%</g>", "0 items"},
    };
    for (const auto& [body, fill] : rows) {
        std::string whole = body;
        EXPECT_EQ(fillOf(whole.replace(whole.find('%'), 1, rect)), fill) << body;
    }
}

TEST(SvgStyle, FontSizeScalesItsUnits) {
    EXPECT_THAT(drawn("<g font-size='10'><g font-size='2em'><rect width='1em' height='1ex' "
                      "font-size='50%'/></g></g>"),
                ElementsAre("fill=#000000 M0,0 L10,0 L10,5 L0,5 Z"));
    EXPECT_THAT(drawn("<line x2='1' stroke='red' style='stroke-width:1em;font-size:large'/>"),
                ElementsAre("fill=none stroke=#ff0000 width=18 M0,0 L1,0"));
}

TEST(SvgStyle, TransformPropertyWorksLikeTheAttribute) {
    EXPECT_THAT(drawn("<g transform='translate(5)'><path d='M0 0H1V1' transform='scale(9)' "
                      "style='transform:scale(2)'/></g>"),
                ElementsAre("fill=#000000 M5,0 L7,0 L7,2"));
    const Reading wrong = readBody("<path d='M0 0H1V1' transform='scale(nan)'/>");
    EXPECT_THAT(wrong.items, ElementsAre("fill=#000000 M0,0 L1,0 L1,1"));
    EXPECT_THAT(wrong.warnings, ElementsAre(HasSubstr("not understood")));
}

TEST(SvgStyle, CountsWhatItLeavesOut) {
    const Reading reading =
        readBody("<g clip-path='url(#no)' filter='none'>" + rect +
                 "</g><g style='filter:url(#f)'>" + rect + "<line filter='melt(2)'/></g>");
    EXPECT_THAT(reading.warnings, ElementsAre(HasSubstr("filters that SVG does not know"),
                                              HasSubstr("filters that are not there")));
}

TEST(SvgStyle, KeepsTheWidthOfLinesInPixels) {
    const std::string line = "<path fill='none' stroke='red' stroke-width='4' d='M0 0H1' ";
    const std::string kept = "vector-effect='non-scaling-stroke'/>";
    EXPECT_THAT(drawn("<g transform='scale(8 2)'>" + line + kept + "</g>"),
                ElementsAre("fill=none stroke=#ff0000 width=4 M0,0 L8,0"));
    const Reading referred = readBody("<g id='g'>" + line + kept + "</g><use href='#g'/>");
    EXPECT_THAT(referred.warnings, ElementsAre(HasSubstr("lines of referenced shapes")));
}

TEST(SvgStyle, TakesPaintsFromItsContext) {
    const std::string symbol =
        "<symbol id='s' overflow='visible'><path d='M0 0H1V1' fill='context-stroke' "
        "stroke='context-fill'/></symbol>";
    EXPECT_THAT(drawn(symbol + "<use href='#s' fill='red' stroke='currentColor' color='blue'/>"),
                Contains(HasSubstr("fill=#0000ff stroke=#ff0000")));
    tests::expectSpots(
        "<marker id='m' markerWidth='20' markerHeight='20'><rect width='20' height='20' "
        "fill='context-stroke'/></marker><path d='M10 10H50' stroke='red' marker-end='url(#m)'/>",
        {{60, 20, true}, {75, 20, false}});
    EXPECT_THAT(drawn("<path d='M0 0H1V1' fill='context-fill' stroke='red'/>"),
                ElementsAre(HasSubstr("fill=none")));
}

}  // namespace
}  // namespace psrender::svg
