// What becomes of the output when a job is stopped, or has no streams, or no room.

#include "psrender/job/Message.h"
#include "tests/psrender/job/Program.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string kWarning =
    "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><foreignObject/></svg>";

TEST_F(Psrender, KeepsClosedStreamsApartFromFiles) {
    write("warns.svg", kWarning);
    ASSERT_EQ(0, run("warns.svg -o plain.ps"));
    EXPECT_EQ(0, run("warns.svg -o out.ps 2>&-; test $? = 0"));
    EXPECT_EQ(read("plain.ps"), read("out.ps"));
    EXPECT_EQ(0, run("red.svg -o - >&- 2>&-; test $? = 1"));
    EXPECT_EQ(1, run("red.svg -o - >&-"));
    EXPECT_THAT(said, HasSubstr("cannot write to standard output"));
    EXPECT_EQ(1, run("- -o out.ps <&-"));
    EXPECT_THAT(said, HasSubstr("standard input: is closed"));
    EXPECT_EQ(1, run("--help >/dev/full"));
}

TEST_F(Psrender, SaysWhatSignalsWouldHide) {
    write("out.ps", "before");
    EXPECT_EQ(1, run("red.svg -o out.ps", "ulimit -f 1;")) << "XFSZ";
    EXPECT_THAT(said, HasSubstr("cannot write to"));
    EXPECT_EQ("before", read("out.ps"));
    const std::string unread = "mkfifo pipe; exec 3<>pipe; exec 4>pipe; exec 3>&-; ";
    EXPECT_EQ(1, run("red.svg -o - >&4", unread)) << "PIPE";
    EXPECT_THAT(said, HasSubstr("cannot write to standard output"));
    write("warns.svg", kWarning);
    EXPECT_EQ(0, run("warns.svg -o out.ps 2>&4; test $? = 0", "rm pipe; " + unread));
    EXPECT_THAT(read("out.ps"), StartsWith("%!PS"));
}

/// Waits in its input while the output is open, until a signal comes.
TEST_F(Psrender, LeavesNothingBehindWhateverStopsIt) {
    write("out.ps", "before");
    write("stop", "mkfifo input; exec 9<>input; " PSRENDER_PROGRAM
                  " - -o out.ps <&9 9>&- & until ls -l /proc/$!/fd | grep -q 'psrender-test.*[#]'; "
                  "do :; done\n"
                  "kill -$1 $!; wait $!; code=$?; rm input; exit $code\n");
    for (const int signal : {1, 9, 15}) {
        const std::string command =
            "cd " + folder_.string() + " && sh stop " + std::to_string(signal) + " 2>/dev/null";
        EXPECT_EQ(128 + signal, WEXITSTATUS(std::system(command.c_str())));
        EXPECT_EQ("before", read("out.ps"));
        EXPECT_EQ(4U, files().size()) << "nothing is left behind by " << signal;
    }
}

/// What nobody can see is left out, whatever its numbers, and all else is there.
TEST_F(Psrender, LeavesOutWhatNoInterpreterDraws) {
    const std::string text =
        "<text id='t' y='20' font-size='12' font-family='DejaVu Sans'>K</text>";
    const std::string tile = "<rect width='4' height='4'/></pattern><rect width='9' height='9' ";
    const std::string cases[] = {
        "<svg viewBox='0 0 4e7 4e7'>" + text + "</svg>",
        "<svg viewBox='0 0 1e-30 1e30' preserveAspectRatio='none'>" + text + "</svg>",
        "<g transform='scale(1 1e-5)'>" + text + "</g>",
        "<g transform='scale(1.5 1e38)'>" + text + "</g>",
        "<text font-size='1e38'><tspan font-size='300%'>a</tspan></text>",
        "<text baseline-shift='1e38'>a<tspan baseline-shift='3e38'>b</tspan></text>",
        "<text textLength='1e-38' lengthAdjust='spacingAndGlyphs'>ab</text>",
        text +
            "<use href='#t' x='9'/><use href='#t' x='20'/>"
            "<use href='#t' transform='scale(1e-6)'/>",
        "<pattern id='p' width='9' height='9' patternUnits='userSpaceOnUse' viewBox='0 0 4e7 "
        "4e7'>" +
            text + tile + "x='30' fill='url(#p)'/>",
        "<pattern id='p' width='.1' height='.1' y='1e38'>" + tile + "x='30' fill='url(#p)'/>"};
    for (const std::string& body : cases) {
        write("far.svg", std::string(kRed).insert(kRed.rfind("</svg>"), body));
        EXPECT_EQ(0, run("far.svg -o out.ps")) << body << said;
        EXPECT_THAT(said, HasSubstr("left out (<")) << body;
        const Interpretation seen = interpret(read("out.ps"));
        EXPECT_EQ("", seen.messages) << body;
        EXPECT_EQ((Picture::Pixel{255, 0, 0}), seen.pages.at(0).at(18, 1)) << body;
    }
}

std::string repeated(const char* text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST_F(Psrender, BoundsWhatADrawingTakes) {
    const std::string head = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>";
    const auto convert = [&](const std::string& body, const std::string& options = "") {
        write("large.svg", head + body + "</svg>");
        return run("large.svg -o out.ps " + options);
    };
    EXPECT_EQ(1, convert(repeated("<g/>", 1'000'000)));
    EXPECT_THAT(said, HasSubstr("more than 1000000 elements; split"));
    EXPECT_EQ(0, convert(repeated("<g/>", 1'000'000), "--max-shapes 500001")) << said;
    const std::string shapes = "<g id='a'>" + repeated("<circle r='1'/>", 4) + "</g>";
    EXPECT_EQ(1, convert(shapes + repeated("<use href='#a'/>", 3), "--max-shapes 15"));
    EXPECT_THAT(said, HasSubstr("more than 15 shapes or 600 points; split"));
    EXPECT_EQ(0, convert(shapes + repeated("<use href='#a'/>", 3), "--max-shapes 20"));
    std::string families;
    for (int i = 0; i < 1100; ++i)
        families += "None" + std::to_string(i) + ",";
    EXPECT_EQ(0, convert("<text y='9' font-family='" + families +
                         "'>a</text>"
                         "<text y='9' font-family='Other'>a</text>"));
    EXPECT_THAT(said, HasSubstr("behind the first 1000"));
    EXPECT_EQ(0, convert("<text y='9' font-family='DejaVu Sans' stroke='red'>a" +
                         repeated("\xCC\x81", 50'000) + "</text>"))
        << said;
    EXPECT_EQ("", interpret(read("out.ps")).messages);
}

TEST_F(Psrender, LeavesProtectedFilesAlone) {
    write("out.ps", "before");
    std::filesystem::permissions(folder_ / "out.ps", std::filesystem::perms(0444));
    EXPECT_EQ(1, run("red.svg -o out.ps"));
    EXPECT_THAT(said, HasSubstr("out.ps: is write-protected; "));
    EXPECT_EQ("before", read("out.ps"));
}

TEST_F(Psrender, ShowsNoControlCharacters) {
    EXPECT_EQ(
        "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\\x1B\\x7F\\xC2\\x9B\\xFF\\xE2\\x82\\x0A",
        psrender::printable("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\x1B\x7F\xC2\x9B\xFF\xE2\x82\n"));
    EXPECT_EQ(1, run("'a\x1B[31m\n.svg' -o out.ps"));
    EXPECT_THAT(said, StartsWith("psrender: a\\x1B[31m\\x0A.svg: cannot be read"));
    EXPECT_EQ(2, run("red.svg -o out.ps --paper '\x1B[2J'"));
    EXPECT_EQ(0, std::ranges::count(said, '\x1B'));
}

}  // namespace
