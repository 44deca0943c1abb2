#include "tests/psrender/job/Program.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using Pixel = Picture::Pixel;

constexpr Pixel kRedPixel{255, 0, 0};
constexpr Pixel kWhitePixel{255, 255, 255};
constexpr Pixel kLimePixel{0, 255, 0};
constexpr Pixel kBluePixel{0, 0, 255};

/// Turns drawings into pages and looks at them.
class PsrenderOptions : public Psrender {
protected:
    Picture page(const std::string& arguments, const std::string& before = "") {
        EXPECT_EQ(0, run(arguments + " -o out.ps", before)) << said;
        const Interpretation seen = interpret(read("out.ps"));
        EXPECT_EQ("", seen.messages);
        return seen.pages.at(0);
    }
};

TEST_F(PsrenderOptions, ShowOneElementInItsPlace) {
    write("a.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='200pt' height='100pt' "
          "viewBox='0 0 100 50'><style>.in #b{stroke:blue}</style>"
          "<rect width='100' height='50'/><g class='in' fill='red' transform='scale(2)'>"
          "<svg x='3' y='2' width='40' height='20' viewBox='0 0 20 10'>"
          "<rect id='b' x='2' y='1' width='5' height='3' stroke-width='1'/></svg></g>"
          "<defs><path id='hidden'/></defs></svg>");
    const Picture shown = page("a.svg --export-id b");
    EXPECT_EQ(48, shown.width) << "six units, twice two times two points each";
    EXPECT_EQ(32, shown.height);
    EXPECT_EQ(kRedPixel, shown.at(24, 16)) << "inherited";
    EXPECT_EQ(kBluePixel, shown.at(2, 16)) << "by a rule that asks for an ancestor";
    EXPECT_EQ(1, run("a.svg -i none -o out.ps"));
    EXPECT_THAT(said, HasSubstr("no element has the id \"none\""));
    EXPECT_EQ(1, run("a.svg -i hidden -o out.ps"));
    EXPECT_THAT(said, HasSubstr("<path id=\"hidden\">: nothing is to be seen"));
}

TEST_F(PsrenderOptions, AddAStyleSheetBelowTheDrawingsOwn) {
    write("a.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='30pt' height='10pt' viewBox='0 0 30 10'>"
          "<style>.own{fill:lime}</style><rect width='10' height='10' fill='red'/>"
          "<rect class='own' id='o' x='10' width='10' height='10'/>"
          "<rect x='20' width='10' height='10' style='fill:red'/></svg>");
    write("added.css", "rect, #o{fill:blue} [style]{fill:blue !important}");
    const Picture shown = page("a.svg -s added.css");
    EXPECT_EQ(kBluePixel, shown.at(5, 5)) << "stronger than an attribute";
    EXPECT_EQ(kLimePixel, shown.at(15, 5)) << "weaker than a rule of the author";
    EXPECT_EQ(kBluePixel, shown.at(25, 5)) << "but for what is important";
    EXPECT_EQ(1, run("a.svg -s none.css -o out.ps"));
}

TEST_F(PsrenderOptions, ChooseTheLanguage) {
    const std::string area = "width='10' height='10'";
    write("a.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='10pt' height='10pt' viewBox='0 0 10 10'>"
          "<switch><rect systemLanguage='de-AT, de' fill='red' " +
              area + "/><g systemLanguage='en'><rect systemLanguage='fr' fill='black' " + area +
              "/><rect fill='blue' " + area + "/></g><rect fill='lime' " + area +
              "/></switch></svg>");
    EXPECT_EQ(kBluePixel, page("a.svg").at(5, 5));
    EXPECT_EQ(kRedPixel, page("a.svg --language es,DE").at(5, 5));
    EXPECT_EQ(kLimePixel, page("a.svg -l es").at(5, 5));
}

TEST_F(PsrenderOptions, PlaceTheDrawingOnThePage) {
    const Picture placed =
        page("red.svg --page-width 100pt --page-height 50pt --left 10pt --top 20pt");
    EXPECT_EQ(100, placed.width);
    EXPECT_EQ(50, placed.height);
    EXPECT_EQ(kRedPixel, placed.at(12, 22));
    EXPECT_EQ(kWhitePixel, placed.at(8, 22));
    EXPECT_EQ(kWhitePixel, placed.at(12, 18));
    EXPECT_EQ(80, page("red.svg -x 2 -y 3").width);
    EXPECT_EQ(60, page("red.svg -x 2 -y 3").height);
    EXPECT_EQ(36, page("red.svg -h 48 -w 96 -d 192 -p 96").height);
    EXPECT_EQ(0, run("red.svg -h >help"));
    EXPECT_THAT(read("help"), HasSubstr("--page-width"));
    EXPECT_EQ(4, run("red.svg -o out.ps --left 5pt --strict")) << said;
}

TEST_F(PsrenderOptions, ChoosePagesAndTakeTheEnvironmentsDefaults) {
    ASSERT_EQ(0, run("red.svg red.svg none.svg red.svg -o out.ps --pages -2,4-")) << said;
    EXPECT_THAT(read("out.ps"), HasSubstr("%%Pages: 3"));
    for (const char* bad : {"5-", "0", "3-2", "a", "1,,2", "-"})
        EXPECT_EQ(2, run(std::string("red.svg red.svg -o out.ps --pages ") + bad)) << bad;
    const std::string defaults = "PSRENDER_OPTIONS=\"--width 50pt --title 'My title'\"";
    EXPECT_EQ(50, page("red.svg", defaults).width);
    EXPECT_THAT(read("out.ps"), HasSubstr("%%Title: My title"));
    EXPECT_EQ(60, page("red.svg -w 60pt", defaults).width) << "the command line comes first";
}

TEST_F(PsrenderOptions, TellWhatPagesHave) {
    write("a.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='30pt' height='20.5pt' "
          "font-family='Helvetica'><defs><g id='g'><text y='9'>a</text></g></defs>"
          "<use href='#g'/>\n<rect id='x\"y' width='-1' height='5'/></svg>");
    ASSERT_EQ(0, run("--json a.svg red.svg >facts")) << said;
    EXPECT_EQ("", said);
    EXPECT_EQ(
        "[{\"input\": \"a.svg\", \"number\": 1, \"width\": 30, \"height\": 20.5, \"fonts\": "
        "[{\"name\": "
        "\"Helvetica\", \"way\": \"printer\", \"for\": []}], \"pictures\": [], \"simplified\": "
        "[{\"sentence\": \"negative sizes are ignored\", \"count\": 1, \"element\": \"<rect "
        "id=\\\"x\\\"y\\\">\", \"line\": 2, \"column\": 2}]},\n"
        " {\"input\": \"red.svg\", \"number\": 2, \"width\": 40, \"height\": 20, \"fonts\": [], "
        "\"pictures\": [], \"simplified\": []}]\n",
        read("facts"));
    ASSERT_EQ(4, run("--info a.svg -o out.ps --embed-fonts all --strict >facts")) << said;
    EXPECT_THAT(read("facts"), HasSubstr("  font Helvetica: embedded\n  simplified: a.svg:2:2: "));
    EXPECT_THAT(read("out.ps"), HasSubstr("%%Pages: 1"));
    write("odd.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='30' height='20' "
          "font-family='No Such Family, DejaVu Sans Mono'><text y='9'>a</text><text y='19' "
          "font-family='No Such Family'>b</text></svg>");
    ASSERT_EQ(0, run("--info odd.svg >facts")) << said;
    EXPECT_THAT(read("facts"), ContainsRegex("\n  font DejaVuSansMono: embedded\n"));
    EXPECT_THAT(read("facts"), ContainsRegex("\n  font [^ ]+: [a-z]+, for No Such Family\n"));
    EXPECT_EQ(2, run("--info a.svg -o -"));
    EXPECT_EQ(2, run("--info a.svg --preview p"));
    EXPECT_EQ(2, run("--info a.svg --output-dir d"));
}

}  // namespace
