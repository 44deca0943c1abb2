// Where the letters of a text stand, and the lines along them. Boxes make the figures plain: "A"
// is half an em wide, and 0.9 em at weight 900.

#include "tests/psrender/svg/Drawings.h"
#include "tests/psrender/svg/text/BoxesFont.h"

#include <gmock/gmock.h>

namespace psrender::svg {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::string boxes(const std::string& attributes, const std::string& content) {
    return "<style>@font-face{font-family:Boxes;font-weight:100 900;src:url(" +
           std::string(kBoxesFont) + ")}</style><text font-family='Boxes' font-size='10' " +
           attributes + ">" + content + "</text>";
}

/// Courier is not in the file, but its figures are the same everywhere.
std::string courier(const std::string& attributes, const std::string& content) {
    return "<text font-family='Courier' font-size='10' " + attributes + ">" + content + "</text>";
}

TEST(SvgTextLines, ArePaintedAsTheElementThatAsksForThem) {
    EXPECT_THAT(
        drawn("<g text-decoration='underline' fill='red'>" +
              courier("fill='blue'", "a<tspan fill='lime' font-size='20'>b</tspan>") + "</g>"),
        ElementsAre("fill=#ff0000 M0,1.2 L18,1.2 L18,2 L0,2 Z", HasSubstr("\"a\""),
                    HasSubstr("\"b\"")))
        << "as of a text of 16 pixels";
    EXPECT_THAT(drawn(courier("text-decoration='underline'",
                              "a<tspan style='text-decoration:line-through red'>b</tspan>")),
                ElementsAre("fill=#000000 M0,0.75 L6,0.75 L6,1.25 L0,1.25 Z",
                            "fill=#000000 M6,0.75 L12,0.75 L12,1.25 L6,1.25 Z", HasSubstr("\"a\""),
                            HasSubstr("\"b\""), StartsWith("fill=#ff0000 M6,")));
    EXPECT_EQ(2, std::ranges::count(
                     drawn(courier("style='text-decoration:underline double'", "a")).front(), 'Z'));
    EXPECT_THAT(drawn(courier("rotate='90' text-decoration='underline'", "ab")),
                ElementsAre(HasSubstr("M-0.75,0 L-0.75,6"), HasSubstr("M5.25,0 L5.25,6"),
                            HasSubstr("\"a\""), HasSubstr("\"b\"")));
    EXPECT_THAT(readBody(courier("style='text-decoration:underline wavy'", "a")).warnings,
                ElementsAre(HasSubstr("wavy")));
}

TEST(SvgTextLayout, MovesLettersThatAreShapedTogether) {
    const std::string sans = "<text font-family='DejaVu Sans' font-size='100' ";
    const auto kerned = drawn(sans + "dx='0 10'>AV</text>");
    ASSERT_EQ(2U, kerned.size());
    EXPECT_THAT(kerned[1], HasSubstr(" at 72.")) << "6.8 nearer than the advances say, moved by 10";
    EXPECT_THAT(drawn(courier("letter-spacing='10%' word-spacing='20'", "a b")),
                ElementsAre(HasSubstr("\"a \" in Courier 10 at 0,0"),
                            HasSubstr("\"b\" in Courier 10 at 52,0")));
    EXPECT_THAT(drawn(courier("x='50' text-anchor='middle' letter-spacing='4'", "ab")),
                ElementsAre(HasSubstr("at 42,0")));
    EXPECT_THAT(drawn(courier("textLength='60'", "a<tspan textLength='20'>bc</tspan>d")),
                ElementsAre(HasSubstr("\"a\" in Courier 10 at 0,0"), HasSubstr("at 20,0"),
                            HasSubstr("at 34,0"), HasSubstr("at 54,0")))
        << "the inner letters stay as far apart as they want to be";
}

TEST(SvgTextLayout, RunsDownThePage) {
    EXPECT_THAT(drawn(courier("writing-mode='tb' x='50' y='10'", "ab")),
                ElementsAre("text \"ab\" in Courier 10 at 47.87,10"))
        << "lying, with the middle of its small letters on the line";
    const auto upright =
        drawn(boxes("writing-mode='vertical-rl' x='50' y='10' "
                    "style='text-orientation:upright' text-anchor='end'",
                    "AA"));
    ASSERT_EQ(1U, upright.size());
    EXPECT_THAT(upright[0], AllOf(StartsWith("shapes \"AA\""), HasSubstr("at 47.5,")));
    EXPECT_THAT(drawn("<text font-family='DejaVu Sans' font-size='10' writing-mode='tb' "
                      "glyph-orientation-vertical='0' text-decoration='underline'>ab</text>"),
                ElementsAre(StartsWith("fill=#000000 M-5.2"), HasSubstr("\"ab\"")));
}

TEST(SvgTextLayout, GoesAlongPaths) {
    const std::string path = "<path id='p' d='M0 50H100' fill='none'/>";
    const auto along = [&](const std::string& attributes, const std::string& content) {
        return drawn(path + courier(attributes, "<textPath href='#p' " + content + "</textPath>"));
    };
    EXPECT_THAT(along("x='5' y='70'", "startOffset='10'>ab"),
                ElementsAre("shapes \"ab\" in Courier 10 at 15,50"));
    EXPECT_THAT(
        along("dx='0 4' dy='0 -3'", ">ab<tspan x='60'>c</tspan>"),
        ElementsAre("shapes \"ab\" in Courier 10 at 0,50", "shapes \"c\" in Courier 10 at 60,50"));
    EXPECT_THAT(along("", "side='right'>a"), ElementsAre(HasSubstr("at 100,50")));
    EXPECT_THAT(
        readBody(path + courier("", "<textPath href='#p' method='stretch'>a</textPath>")).warnings,
        ElementsAre(HasSubstr("<textPath method>")));
}

TEST(SvgTextLayout, FollowsTheOrderThatElementsAskFor) {
    const std::string replaced = "direction='rtl' unicode-bidi='bidi-override'";
    EXPECT_THAT(drawn(courier("x='50' " + replaced, "ab")),
                ElementsAre("text \"ba\" in Courier 10 at 38,0"));
    EXPECT_THAT(drawn(courier("", "a<tspan " + replaced + ">bc</tspan>d")),
                ElementsAre(HasSubstr("\"a\""), "text \"cb\" in Courier 10 at 6,0",
                            HasSubstr("\"d\" in Courier 10 at 18,0")));
}

TEST(SvgTextLayout, ReadsTheTextOfOtherElements) {
    EXPECT_THAT(drawn("<defs><text id='t'>a<tspan>b</tspan></text></defs>" +
                      courier("", "<tref href='#t' dx='3'/>c")),
                ElementsAre(HasSubstr("\"a\" in Courier 10 at 3,0"), HasSubstr("\"b\""),
                            "text \"c\" in Courier 10 at 15,0"));
}

TEST(SvgTextLayout, StandsOnTheLineThatIsAskedFor) {
    const struct {
        std::string attributes;
        const char* place;
    } rows[] = {
        {"dominant-baseline='mathematical'", "0,3.145"},
        {"dominant-baseline='text-top'", "0,0"},
        {"alignment-baseline='before-edge'", "0,6.29"},
        {"dominant-baseline='hanging' alignment-baseline='baseline'", "0,0"},
    };
    for (const auto& [attributes, place] : rows)
        EXPECT_THAT(drawn(courier(attributes, "a")), ElementsAre(testing::EndsWith(place)))
            << attributes;
}

TEST(SvgFlow, BreaksLinesInItsRegion) {
    const std::string root =
        "<flowRoot font-family='Courier' font-size='10' style='line-height:120%'>"
        "<flowRegion><rect x='10' y='20' width='31' height='50'/></flowRegion>";
    EXPECT_THAT(
        drawn(root + "<flowPara>abc de <flowSpan>fg</flowSpan></flowPara><flowPara/>"
                     "<flowPara text-anchor='middle'>h</flowPara></flowRoot>"),
        ElementsAre(HasSubstr("\"abc \""), AllOf(HasSubstr("\"de \""), HasSubstr(" at 10,")),
                    HasSubstr("\"fg\" in Courier 10 at 28,"), HasSubstr("\"h\"")));
    const Reading full = readBody(root +
                                  "<flowPara>abcdefgh a b c d e f g h i j k l m n o p "
                                  "</flowPara></flowRoot>");
    EXPECT_THAT(full.items.front(), HasSubstr("\"abcde\"")) << "a word too long for any line";
    EXPECT_THAT(full.warnings, ElementsAre(HasSubstr("does not fit")));
}

TEST(SvgFontFaces, AreTheDrawingsOwn) {
    EXPECT_THAT(drawn(boxes("", "A")), ElementsAre("text \"A\" in Boxes 10 at 0,0"));
    EXPECT_THAT(
        drawn(boxes("", "AA<tspan font-weight='900'>A</tspan>A")),
        ElementsAre("text \"AA\" in Boxes 10 at 0,0", "text \"A\" in Boxes-wght90000 10 at 10,0",
                    "text \"A\" in Boxes 10 at 19,0"));
    EXPECT_THAT(drawn(boxes("font-weight='900' "
                            "style=\"font-variation-settings:'wght' 650\"",
                            "AA")),
                ElementsAre(HasSubstr("Boxes-wght65000")));
    const auto faced = [](const std::string& block) {
        return readBody("<style>@font-face{font-family:My;" + block +
                        "}</style><text font-family='My, Courier' font-size='10'>ab</text>");
    };
    EXPECT_THAT(faced("src:url(http://x/y.ttf),local('Times')").items,
                ElementsAre(HasSubstr("\"ab\" in Times-Roman")));
    EXPECT_THAT(faced("src:local(Times);unicode-range:U+62,U+4??").items,
                ElementsAre(HasSubstr("\"a\" in Courier"), HasSubstr("\"b\" in Times-Roman")));
    for (const char* source :
         {"url(http://x/y.ttf)", "url(../y.ttf)", "url(data:font/ttf;base64,AAAA)"})
        EXPECT_THAT(faced("src:" + std::string(source)).warnings,
                    ElementsAre(HasSubstr("left out (@font-face)")))
            << source;
}

TEST(SvgFontFaces, ShowTheirColors) {
    const Reading layers = readBody(boxes("fill='lime'", "B"));
    ASSERT_EQ(2U, layers.items.size());
    EXPECT_THAT(layers.items,
                ElementsAre("shapes \"B\" in Boxes 10 at 0,0", "shapes \"\" in Boxes 10 at 0,0"));
    const auto colorOf = [&](std::size_t item) {
        return *std::get<scene::Text>(layers.page.items[item]).fill.color();
    };
    EXPECT_EQ((scene::Color{255, 0, 0}), colorOf(0));
    EXPECT_EQ((scene::Color{0, 255, 0}), colorOf(1));
    EXPECT_THAT(readBody(boxes("", "C")).warnings, ElementsAre(HasSubstr("pictures of letters")));
}

TEST(SvgSmallCapitals, ComeFromTheFontOrAreSetSmaller) {
    const auto sizeAndGlyphOf = [](const std::string& body) {
        const Reading reading = readBody(body);
        const scene::TextRun& run = *std::get<scene::Text>(reading.page.items.back()).run;
        return std::pair(run.size, run.glyphs.back().id);
    };
    constexpr std::uint32_t kSmallCapital = 5;
    EXPECT_EQ(std::pair(10.0, kSmallCapital),
              sizeAndGlyphOf(boxes("font-variant='small-caps'", "Aa")));
    EXPECT_EQ(std::pair(10.0, kSmallCapital),
              sizeAndGlyphOf(boxes("style=\"font-feature-settings:'smcp'\"", "Aa")));
    EXPECT_THAT(
        drawn(courier("style='font:small-caps 20px Courier'", "A&#xE9;")),
        ElementsAre("text \"A\" in Courier 20 at 0,0", "shapes \"\xC3\xA9\" in Courier 14 at 12,0"))
        << "what it stands for stays as it is";
}

}  // namespace
}  // namespace psrender::svg
