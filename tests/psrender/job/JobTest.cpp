#include "psrender/job/CommandLine.h"
#include "psrender/job/InputFile.h"
#include "tests/Images/ImageFiles.h"
#include "tests/psrender/job/Program.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;
using Images::tests::Bytes;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(Psrender, MakesAPageADrawing) {
    ASSERT_EQ(0, run("red.svg red.svg -o out.ps")) << said;
    EXPECT_EQ("", said);
    const Interpretation seen = interpret(read("out.ps"));
    EXPECT_EQ("", seen.messages);
    ASSERT_EQ(2U, seen.pages.size());
    EXPECT_EQ(40, seen.pages[1].width);
    EXPECT_EQ((Picture::Pixel{255, 0, 0}), seen.pages[1].at(5, 5));
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), seen.pages[1].at(30, 5));
}

TEST_F(Psrender, FitsDrawingsToPaper) {
    const auto pixels = [&](const std::string& options) {
        EXPECT_EQ(0, run("red.svg -o out.ps --paper 200x100pt " + options)) << said;
        return interpret(read("out.ps")).pages.at(0);
    };
    const Picture natural = pixels("");
    EXPECT_EQ(200, natural.width);
    EXPECT_EQ((Picture::Pixel{255, 0, 0}), natural.at(85, 45)) << "20 points, in the middle";
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), natural.at(75, 45));
    EXPECT_EQ((Picture::Pixel{255, 0, 0}), pixels("--fit --margin 0pt").at(5, 95));
    write("wide.svg", std::string(kRed).insert(kRed.rfind("<rect"),
                                               "<rect x='-90' width='999' "
                                               "height='9'/>"));
    ASSERT_EQ(0, run("wide.svg -o out.ps --paper 40x40pt --fit --margin 10pt")) << said;
    const Picture shrunk = interpret(read("out.ps")).pages.at(0);
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), shrunk.at(5, 17)) << "cut at its edges";
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), shrunk.at(35, 17));
    EXPECT_EQ((Picture::Pixel{0, 0, 0}), shrunk.at(25, 17));
    ASSERT_EQ(0, run("red.svg -o out.ps --margin 0.5in"));
    EXPECT_EQ(112, interpret(read("out.ps")).pages.at(0).width) << "40 points and an inch";
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), pixels("--fit --margin 10pt").at(5, 50));
    ASSERT_EQ(0, run("red.svg -o out.ps --paper a4 --landscape --fit"));
    EXPECT_THAT(read("out.ps"), HasSubstr("\n841.8898 595.2756 ps"));
}

TEST_F(Psrender, WorksInAPipeAndPassesPrintingOptions) {
    ASSERT_EQ(
        0, run("- -o - --duplex short --copies 2 --tray 3 --media-color 'a(b' <red.svg >out.ps"));
    EXPECT_THAT(
        read("out.ps"),
        AllOf(HasSubstr("/Duplex true"), HasSubstr("/Tumble true"), HasSubstr("/MediaPosition 3"),
              HasSubstr("/MediaColor(a\\(b)"), HasSubstr("/NumCopies 2"), Not(HasSubstr("/Jog"))));
    EXPECT_EQ("", interpret(read("out.ps")).messages);
}

TEST_F(Psrender, MakesTheKindOfFileThatTheSuffixSays) {
    ASSERT_EQ(0, run("red.svg >out.ps")) << said;
    EXPECT_EQ(40, interpret(read("out.ps")).pages.at(0).width) << "on standard output";
    ASSERT_EQ(0, run("red.svg -o out.eps --title T")) << said;
    EXPECT_THAT(read("out.eps"), AllOf(StartsWith("%!PS-Adobe-3.0 EPSF"), HasSubstr("%%Title: T")));
    ASSERT_EQ(0, run("red.svg red.svg -o out.pdf")) << said;
    EXPECT_THAT(read("out.pdf"), StartsWith("%PDF-"));
    EXPECT_EQ(1, run("red.svg -o out.pdf", "PATH=/nowhere"));
    EXPECT_THAT(said, HasSubstr("no PDF: Ghostscript (gs) was not found"));
    EXPECT_THAT(read("out.pdf"), StartsWith("%PDF-")) << "the old one stays";
}

TEST_F(Psrender, SizesAndColorsPages) {
    ASSERT_EQ(0, run("red.svg -o out.ps --width 80px --dpi 72 --background blue "
                     "--margin 10pt,0pt,5pt,20pt --colors gray"))
        << said;
    const std::string text = read("out.ps");
    const Picture page = interpret(text).pages.at(0);
    EXPECT_EQ(100, page.width) << "80 and 20 on the left";
    EXPECT_EQ(55, page.height) << "40 and 15";
    const Picture::Pixel red = page.at(25, 15);
    EXPECT_NEAR(red[0], red[1], 1) << "grey";
    EXPECT_NE(red, page.at(10, 15)) << "the margin has the background";
    EXPECT_NE((Picture::Pixel{255, 255, 255}), page.at(99, 54));
    ASSERT_EQ(0, run("red.svg -o out.ps --paper b5-landscape"));
    EXPECT_THAT(read("out.ps"), HasSubstr("%%HiResBoundingBox: 0 0 708.6614 498.8976"));
    EXPECT_EQ(1, run("red.svg -o out.ps --icc red.svg"));
    EXPECT_THAT(said, HasSubstr("is no colour profile"));
}

TEST_F(Psrender, MakesAFileADrawing) {
    write("a.svg", kRed);
    EXPECT_EQ(3, run("a.svg bad.svg red.svg --output-dir out --jobs 2"));
    EXPECT_THAT(said, HasSubstr("1 of 3 drawings failed: bad.svg\n"));
    EXPECT_EQ(40, interpret(read("out/a.ps")).pages.at(0).width);
    write("out/a.ps", "kept");
    EXPECT_EQ(0, run("a.svg red.svg --output-dir out --skip-existing")) << said;
    EXPECT_EQ("kept", read("out/a.ps"));
    EXPECT_FALSE(fs::exists(folder_ / "out/bad.ps"));
    EXPECT_EQ(1, run("red.svg ./red.svg --output-dir out"));
    EXPECT_THAT(said, HasSubstr("same output"));
}

TEST_F(Psrender, TakesDefaultsAndTellsOfSimplifications) {
    write("conf", "paper = A5\n");
    ASSERT_EQ(0, run("red.svg -o out.ps", "PSRENDER_CONFIG=conf")) << said;
    EXPECT_THAT(read("out.ps"), HasSubstr("%%BoundingBox: 0 0 420 596"));
    ASSERT_EQ(0, run("red.svg -o out.ps --paper 50x50pt", "PSRENDER_CONFIG=conf")) << said;
    EXPECT_THAT(read("out.ps"), HasSubstr("%%BoundingBox: 0 0 50 50"));
    write("conf", "papre = A5\n");
    EXPECT_EQ(2, run("red.svg -o out.ps", "PSRENDER_CONFIG=conf"));
    EXPECT_EQ(0, run("red.svg -o out.ps --strict")) << said;
    EXPECT_EQ(4, run("red.svg -o out.ps --strict --paper 10x10pt"));
}

TEST_F(Psrender, RendersPreviews) {
    fs::create_directory(folder_ / "a%d b");
    ASSERT_EQ(0, run("red.svg red.svg -o out.ps --preview 'a%d b/p'")) << said;
    EXPECT_TRUE(fs::exists(folder_ / "a%d b/p-2.png"));
    EXPECT_EQ(1, run("red.svg -o out.ps --preview none/p"));
    EXPECT_THAT(said, HasSubstr("no preview: "));
    EXPECT_EQ(1, run("red.svg -o out.ps --preview p", "PATH=/nowhere"));
    EXPECT_THAT(said, HasSubstr("Ghostscript (gs) was not found"));
}

TEST_F(Psrender, RefusesAWrongCommandLine) {
    for (const char* arguments :
         {"", "red.svg -o out.png", "red.svg red.svg -o out.eps", "-o out.ps",
          "red.svg -o out.ps --paper B99", "red.svg -o out.ps --fit",
          "red.svg -o out.ps --margin 3", "red.svg -o out.ps --copies 0", "- - -o out.ps",
          "red.svg -o out.ps --opacity 50%", "red.svg -o - --preview p",
          "red.svg -o out.ps --no-such-option"}) {
        EXPECT_EQ(2, run(arguments)) << arguments;
        EXPECT_NE("", said) << arguments;
    }
    EXPECT_EQ(0, run("--help >help"));
    EXPECT_THAT(read("help"), AllOf(HasSubstr("Examples:"), HasSubstr("--keep-going")));
    EXPECT_EQ(0, run("--version >version"));
    EXPECT_THAT(read("version"), StartsWith("psrender 0."));
}

TEST_F(Psrender, NamesWhatIsWrongWithAnInput) {
    write("empty.svg", "");
    write("huge.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='2e9' height='9'/>");
    const std::pair<const char*, const char*> cases[] = {
        {"missing.svg", "missing.svg: cannot be read (No such file or directory)"},
        {".", ".: this is a folder"},
        {"empty.svg", "empty.svg: is empty"},
        {"/dev/zero", "/dev/zero: is larger than 256 MiB"},
        {"huge.svg", "huge.svg: the page would be 1.5e+09 by 6.75 points"},
        {"bad.svg", "bad.svg:1:"}};
    write("out.ps", "before");
    for (const auto& [input, sentence] : cases) {
        EXPECT_EQ(1, run(std::string("red.svg ") + input + " -o out.ps"));
        EXPECT_THAT(said, StartsWith(std::string("psrender: ") + sentence));
        EXPECT_EQ(1, std::ranges::count(said, '\n')) << said;
        EXPECT_EQ("before", read("out.ps"));
    }
    EXPECT_EQ(0, run("huge.svg -o out.ps --paper A4 --fit")) << said;
}

TEST_F(Psrender, UnpacksDrawings) {
    EXPECT_EQ(0, run("red.svg -o plain.ps"));
    EXPECT_EQ(0, run("red.svgz -o out.ps", "gzip -c red.svg >red.svgz;")) << said;
    EXPECT_EQ(read("plain.ps"), read("out.ps"));
    EXPECT_EQ(0, run("- -o - <red.svgz | cmp - plain.ps")) << "from standard input";
    EXPECT_EQ(0, run("two -o out.ps",
                     "head -c 50 red.svg | gzip >two; tail -c +51 red.svg | gzip >>two;"));
    EXPECT_EQ(read("plain.ps"), read("out.ps")) << "of two members";

    std::string members;
    EXPECT_EQ(0, run("--version >version", "printf ' ' | gzip >one;"));
    for (int i = 0; i < 50'000; ++i)
        members += read("one");
    write("many", read("two") + members);
    EXPECT_EQ(0, run("many -o out.ps")) << said;
    EXPECT_EQ(read("plain.ps"), read("out.ps")) << "of 50,002 members";

    EXPECT_EQ(1, run("cut -o out.ps", "head -c 60 red.svgz >cut;"));
    EXPECT_THAT(said, StartsWith("psrender: cut: the gzip data is damaged or cut off"));
    EXPECT_EQ(1, run("bomb -o out.ps", "head -c 300000000 /dev/zero | gzip >bomb;"));
    EXPECT_THAT(said, StartsWith("psrender: bomb: the gzip data unpacks to more than"));
    EXPECT_EQ(read("plain.ps"), read("out.ps")) << "nothing is lost";
}

TEST_F(Psrender, KeepsGoingIfAsked) {
    EXPECT_EQ(3, run("red.svg bad.svg red.svg -o out.ps --keep-going"));
    EXPECT_THAT(said, HasSubstr("(page skipped)"));
    EXPECT_EQ(2U, interpret(read("out.ps")).pages.size());
    fs::remove(folder_ / "out.ps");
    EXPECT_EQ(1, run("bad.svg missing.svg -o out.ps --keep-going"));
    EXPECT_FALSE(fs::exists(folder_ / "out.ps"));
}

TEST_F(Psrender, LosesNothingWhenTheDiskIsFull) {
    write("out.ps", "before");
    EXPECT_EQ(1, run("red.svg -o out.ps", "trap '' XFSZ; ulimit -f 1;"));
    EXPECT_THAT(said, HasSubstr("cannot write to"));
    EXPECT_EQ("before", read("out.ps"));
    EXPECT_EQ(3U, files().size()) << "no temporary file stays";
    EXPECT_EQ(1, run("red.svg -o /dev/full"));
    EXPECT_EQ(1, run("red.svg -o - >/dev/full"));
    EXPECT_EQ(1, run("red.svg -o none/out.ps"));
    EXPECT_THAT(said, AllOf(HasSubstr("none/out.ps"), HasSubstr("No such file")));
    EXPECT_EQ(0, run("red.svg -o /dev/null"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(Psrender, KeepsLinksAndPermissions) {
    write("target.ps", "before");
    fs::permissions(folder_ / "target.ps", fs::perms(0640));
    fs::create_symlink("target.ps", folder_ / "out.ps");
    ASSERT_EQ(0, run("red.svg -o out.ps")) << said;
    EXPECT_TRUE(fs::is_symlink(folder_ / "out.ps"));
    EXPECT_THAT(read("target.ps"), StartsWith("%!PS"));
    EXPECT_EQ(fs::perms(0640), fs::status(folder_ / "target.ps").permissions());
    ASSERT_EQ(0, run("red.svg -o new.ps", "umask 027;"));
    EXPECT_EQ(fs::perms(0640), fs::status(folder_ / "new.ps").permissions());
}

TEST_F(Psrender, WritesPipesAndNamesOfAnyBytes) {
    EXPECT_EQ(0, run("red.svg -o pipe; wait", "mkfifo pipe; cat pipe >copy &")) << said;
    EXPECT_THAT(read("copy"), StartsWith("%!PS"));
    EXPECT_TRUE(fs::is_fifo(folder_ / "pipe"));
    fs::create_directory(folder_ / "d\xE9j\xE0");
    EXPECT_EQ(0, run("red.svg -o 'd\xE9j\xE0/vu.ps'")) << said;
    EXPECT_THAT(read("d\xE9j\xE0/vu.ps"), StartsWith("%!PS"));
}

TEST_F(Psrender, WarnsOfSlips) {
    EXPECT_EQ(1, run("red.svg -o ./red.svg --format ps"));
    EXPECT_THAT(said, HasSubstr("red.svg: would be replaced by the output"));
    EXPECT_EQ(kRed, read("red.svg"));
    EXPECT_EQ(0, run("red.svg -o out.ps --paper 30x30pt"));
    EXPECT_THAT(said, HasSubstr("larger than the paper"));
    EXPECT_EQ(0, run("red.svg -o out.ps --paper 30x30pt --fit --margin 1mm"));
    EXPECT_EQ("", said);
    EXPECT_EQ(1, run("red.svg -o out.ps --paper 30x30pt --fit --margin 15pt"));
    EXPECT_THAT(said, HasSubstr("no room"));
}

TEST_F(Psrender, BlendsWithWhitePaperIfAsked) {
    write("pale.svg", std::string(kRed).insert(kRed.rfind("</svg>"),
                                               "<rect x='9' width='9' height='9' opacity='.5'/>"));
    const auto seen = [&](const std::string& way) {
        EXPECT_EQ(0, run("pale.svg -o out.ps --opacity " + way)) << said;
        return interpret(read("out.ps")).pages.at(0).at(13, 4);
    };
    EXPECT_EQ(128, seen("white")[1]) << "grey, as over white";
    EXPECT_EQ(0, seen("blend")[1]) << "dark red, as over the square";
}

TEST_F(Psrender, PrintsPicturesAsPages) {
    Images::tests::PngFile scan{50, 25, Images::tests::noise(3 * 50 * 25)};
    scan.dotsPerMetre = 72 / 0.0254 / 2;
    write("scan.png", encode(scan));
    const Bytes pixels = scan.samples;
    ASSERT_EQ(0, run("scan.png - scan.png -o out.ps <scan.png")) << said;
    EXPECT_EQ("", said) << "nothing is wrong with them";
    const Interpretation seen = interpret(read("out.ps"), 36);
    EXPECT_EQ("", seen.messages);
    ASSERT_EQ(3U, seen.pages.size());
    for (const Picture& page : seen.pages)
        EXPECT_EQ(pixels, page.bytes) << "two points a pixel, by the resolution that it tells";
    const std::string document = read("out.ps");
    EXPECT_EQ(document.find("/ReusableStreamDecode"), document.rfind("/ReusableStreamDecode"))
        << "once for all";
    ASSERT_EQ(0, run("scan.png -o out.ps --paper 60x45pt --margin 5pt"));
    const Picture fitted = interpret(read("out.ps")).pages.at(0);
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), fitted.at(30, 8));
    EXPECT_EQ((Picture::Pixel{pixels[0], pixels[1], pixels[2]}), fitted.at(5, 10));
    ASSERT_EQ(0, run("scan.png -o out.ps --max-dpi 18"));
    EXPECT_THAT(read("out.ps"), HasSubstr("/Width 25/Height 13"));
    EXPECT_EQ(1, run("scan.png -o none.ps --max-pixels 1249"));
    EXPECT_THAT(said, StartsWith("psrender: scan.png: has 50 x 25 pixels, more than the limit"));
    write("scan.png", encode(scan).substr(0, 2000));
    EXPECT_EQ(3, run("scan.png red.svg -o out.ps --keep-going"));
    EXPECT_THAT(said, HasSubstr("scan.png: is a PNG image that is cut short; fetch"));
    EXPECT_EQ(1, run("scan.png -o none.ps"));
    EXPECT_FALSE(fs::exists(folder_ / "none.ps"));
}

TEST_F(Psrender, WarnsOnceAKind) {
    write("text.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
          "<foreignObject id='f'/>\n<foreignObject/><image href='data:;base64,TWF!'/></svg>");
    EXPECT_EQ(0, run("text.svg -o out.ps"));
    EXPECT_THAT(
        said,
        AllOf(StartsWith("psrender: warning: text.svg:1:63: <foreignObject id=\"f\">: "),
              HasSubstr("(2 times)\n"), HasSubstr("an embedded image has a damaged data address")));
    EXPECT_EQ(0, run("text.svg -o out.ps --quiet"));
    EXPECT_EQ("", said);
    EXPECT_EQ(0, run("red.svg -o out.ps --verbose"));
    EXPECT_THAT(said, HasSubstr("40.0 x 20.0 pt, 1 shapes"));
}

}  // namespace
