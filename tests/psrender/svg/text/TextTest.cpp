// Text: what it says, where it stands, and in which font. Standard fonts make the figures the same
// on every machine.

#include "tests/psrender/svg/Drawings.h"

#include <gmock/gmock.h>

#include <locale>
#include <sstream>

namespace psrender::svg {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> text(const std::string& attributes, const std::string& content) {
    return drawn("<text font-family='Courier' font-size='10' " + attributes + ">" + content +
                 "</text>");
}

TEST(SvgText, IsLaidOutByItsFont) {
    const struct {
        std::string attributes, content;
        std::vector<std::string> expected;
    } rows[] = {
        {"x='5' y='20'", " a \n b ", {"text \"a b\" in Courier 10 at 5,20"}},
        {"xml:space='preserve'", " a\tb ", {"text \" a b \" in Courier 10 at 0,0"}},
        {"style='white-space:pre'", "a  b", {"text \"a  b\" in Courier 10 at 0,0"}},
        {"", " ", {}},
        {"x='50' text-anchor='middle'", "ab", {"text \"ab\" in Courier 10 at 44,0"}},
        {"x='50' text-anchor='end'",
         "a<tspan font-weight='bold'>b</tspan>",
         {"text \"a\" in Courier 10 at 38,0", "text \"b\" in Courier-Bold 10 at 44,0"}},
        {"x='50' text-anchor='end' direction='rtl'", "ab", {"text \"ab\" in Courier 10 at 50,0"}},
        {"x='0 20' dy='0 3'",
         "ab<tspan dx='5' font-style='italic'>c</tspan>d",
         {"text \"a\" in Courier 10 at 0,0", "text \"b\" in Courier 10 at 20,3",
          "text \"c\" in Courier-Oblique 10 at 31,3", "text \"d\" in Courier 10 at 37,3"}},
        {"letter-spacing='2' text-anchor='end'", "ab", {"text \"ab\" in Courier 10 at -14,0"}},
        {"word-spacing='4'",
         "a b",
         {"text \"a \" in Courier 10 at 0,0", "text \"b\" in Courier 10 at 16,0"}},
        {"textLength='16'",
         "abc",
         {"text \"a\" in Courier 10 at 0,0", "text \"b\" in Courier 10 at 5,0",
          "text \"c\" in Courier 10 at 10,0"}},
        {"textLength='36' lengthAdjust='spacingAndGlyphs'",
         "abc",
         {"text \"abc\" in Courier 10 at 0,0"}},
        {"style='font: italic bold 20px/1.2 Times, serif'",
         "a",
         {"text \"a\" in Times-BoldItalic 20 at 0,0"}},
        {"baseline-shift='super'",
         "a<tspan baseline-shift='-1' font-size='5'>b</tspan>",
         {"text \"a\" in Courier 10 at 0,-4", "text \"b\" in Courier 5 at 6,-3"}},
        {"dominant-baseline='middle'", "a", {"text \"a\" in Courier 10 at 0,2.13"}},
        {"rotate='90 0'",
         "abc",
         {"text \"a\" in Courier 10 at 0,0", "text \"bc\" in Courier 10 at 6,0"}},
        {"font-family='No Such Sans, Times'", "a", {"text \"a\" in Times-Roman 10 at 0,0"}},
    };
    for (const auto& [attributes, content, expected] : rows)
        EXPECT_THAT(text(attributes, content), ElementsAreArray(expected))
            << attributes << " " << content;
}

TEST(SvgText, TakesAnotherFontForWhatItsOwnLacks) {
    const auto runs = text("",
                           "a\xCE\xA9"
                           "b");
    ASSERT_EQ(3U, runs.size());
    EXPECT_EQ("text \"a\" in Courier 10 at 0,0", runs[0]);
    EXPECT_THAT(runs[1], testing::AllOf(HasSubstr("\xCE\xA9"), testing::Not(HasSubstr("Courier"))));
    EXPECT_THAT(runs[2], HasSubstr("\"b\" in Courier"));
    EXPECT_THAT(text("", "a&#xD83D;&#x1F600;").front(), HasSubstr("\"a\" in Courier"));
}

TEST(SvgText, RunsFromRightToLeftAndJoinsWhereItsScriptDoes) {
    const std::string deja = "font-family='DejaVu Sans' font-size='10'";
    const auto hebrew = text(deja, "a \xD7\x90\xD7\x91 b");
    ASSERT_EQ(3U, hebrew.size());
    EXPECT_THAT(hebrew[0], testing::StartsWith("text \"a \""));
    EXPECT_THAT(hebrew[1], testing::StartsWith("shapes \"\xD7\x91\xD7\x90\""));
    EXPECT_THAT(text(deja, "\xD9\x85\xD9\x86").at(0), testing::StartsWith("shapes "));
    EXPECT_THAT(text(deja, "ab").at(0), testing::StartsWith("text \"ab\" in DejaVuSans"));
}

TEST(SvgText, HasLinesAlongIt) {
    EXPECT_THAT(text("text-decoration='underline' fill='red'", "ab"),
                ElementsAre("fill=#ff0000 M0,0.75 L12,0.75 L12,1.25 L0,1.25 Z",
                            "text \"ab\" in Courier 10 at 0,0"));
    EXPECT_THAT(text("text-decoration='line-through'", "a").at(1), HasSubstr("fill=#000000 M0,"));
}

TEST(SvgText, TellsOfFamiliesThatAreNotThere) {
    const auto warningsOf = [](const std::string& families) {
        return readBody("<text font-family='" + families + "'>a</text>").warnings;
    };
    for (const char* families :
         {"Courier", "No Such Font, Courier", "serif", "serif, No Such Font"})
        EXPECT_THAT(warningsOf(families), IsEmpty()) << families;
    for (const char* families : {"No Such Font", "No Such Font, serif"})
        EXPECT_THAT(warningsOf(families),
                    ElementsAre(AllOf(HasSubstr("No Such Font is not installed"),
                                      HasSubstr(" stands in for it"))))
            << families;
}

TEST(SvgText, FollowsAPath) {
    const std::string path = "<path id='p' d='M0 50V0' fill='none'/>";
    const auto along = drawn(path +
                             "<text font-family='Courier' font-size='10'><textPath href='#p' "
                             "startOffset='20%'>ab</textPath></text>");
    EXPECT_THAT(along, ElementsAre("shapes \"ab\" in Courier 10 at 0,40"));
    EXPECT_THAT(drawn(path + "<text font-size='10'><textPath href='#p' startOffset='60'>ab"
                             "</textPath></text>"),
                IsEmpty());
    const auto curved = drawn(
        "<path id='p' d='M0 0C0 50 50 50 50 0' fill='none'/><text font-family='Courier' "
        "font-size='10'><textPath href='#p' startOffset='50%'>a</textPath></text>");
    ASSERT_EQ(1U, curved.size());
    const std::string before = "shapes \"a\" in Courier 10 at ";
    ASSERT_THAT(curved[0], testing::StartsWith(before));
    std::istringstream place(curved[0].substr(before.size()));
    place.imbue(std::locale::classic());
    double x = 0;
    double y = 0;
    char comma = ' ';
    place >> x >> comma >> y;
    ASSERT_EQ(',', comma);
    EXPECT_NEAR(x, 25, 0.1)
        << "the glyph touches the curve behind its lowest point with its middle";
    EXPECT_NEAR(y, 37.8, 0.1);
    EXPECT_THAT(readBody("<text><textPath href='#q'>a</textPath></text>").warnings,
                ElementsAre(HasSubstr("<textPath>")));
}

}  // namespace
}  // namespace psrender::svg
