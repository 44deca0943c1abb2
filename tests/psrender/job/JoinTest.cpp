#include "psrender/job/join/ResourceNames.h"
#include "tests/psrender/job/Program.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>

#include <string_view>

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

std::string drawing(const std::string& body) {
    return "<svg xmlns='http://www.w3.org/2000/svg' width='90pt' height='40pt' "
           "viewBox='0 0 90 40'>" +
           body + "</svg>";
}

std::string text(const char* family, const char* words) {
    return std::string("<text y='20' font-size='12' font-family='") + family + "'>" + words +
           "</text>";
}

const std::string kGradient =
    "<linearGradient id='g'><stop stop-color='red'/><stop offset='1' stop-color='blue'/>"
    "</linearGradient><rect y='30' width='90' height='10' fill='url(#g)'/>";

std::string image(const std::string& pixels) {
    return "<image width='90' height='9' preserveAspectRatio='none' href='data:image/png;base64,"
           "iVBORw0KGgoAAAANSUhEUgAAAAIAAAABCAIAAAB7QOjdAAAADUlEQVR42m" +
           pixels + "AAAABJRU5ErkJggg=='/>";
}

const std::string kRedAndBlue = image("P4zwAE/wEHAAH/PX2MSQ");
const std::string kLimeAndBlack = image("Ng+M8ABAAFAgEANCKrxQ");

std::size_t countOf(std::string_view what, std::string_view where) {
    std::size_t count = 0;
    for (std::size_t at = where.find(what); at != std::string_view::npos;
         at = where.find(what, at + 1))
        ++count;
    return count;
}

class PsrenderJoin : public Psrender {
protected:
    /// Parts in which the same names stand for different things, and the same things have
    /// different names.
    void makeParts() {
        write("1.svg", drawing(text("DejaVu Sans", "Alpha") + kRedAndBlue));
        write("2.svg", drawing(text("DejaVu Serif", "Beta") + text("DejaVu Sans", "Alpha")));
        write("3.svg", drawing(kGradient));
        write("4.svg", drawing(text("DejaVu Serif", "Gamma") + kLimeAndBlack + kRedAndBlue));
        for (const char* arguments : {"1.svg 1.svg -o a.ps", "2.svg 1.svg 1.svg -o b.ps",
                                      "3.svg 3.svg -o c.ps", "4.svg 1.svg 4.svg -o d.ps"})
            ASSERT_EQ(0, run(arguments)) << said;
    }
};

TEST_F(PsrenderJoin, ShowsThePagesOfAllParts) {
    makeParts();
    ASSERT_EQ(0, run("--join a.ps b.ps c.ps d.ps -o all.ps")) << said;
    const std::string all = read("all.ps");
    const Interpretation joined = interpret(all);
    EXPECT_EQ("", joined.messages);
    ASSERT_EQ(10U, joined.pages.size());
    std::string words;
    std::size_t page = 0;
    for (const char* part : {"a.ps", "b.ps", "c.ps", "d.ps"}) {
        for (const Picture& own : interpret(read(part)).pages)
            EXPECT_EQ(own.bytes, joined.pages.at(page++).bytes) << part << " " << page;
        words += outputOf("ps2pdf - - | pdftotext - -", read(part));
    }
    EXPECT_EQ(words, outputOf("ps2pdf - - | pdftotext - -", all));
    EXPECT_THAT(all, HasSubstr("%%Pages: 10\n"));
    EXPECT_THAT(all, HasSubstr("%%Page: 10 10\n"));
    EXPECT_EQ(10U, countOf("\n%%Page: ", all));
    EXPECT_EQ(3U, countOf("%%BeginResource: font", all)) << "the serif has other glyphs in d";
    EXPECT_EQ(2U, countOf("%%BeginResource: form", all)) << "what is I1 in a is I2 in d";
}

TEST_F(PsrenderJoin, NeedsWholeDocumentsOfItsOwn) {
    makeParts();
    const std::string part = read("a.ps");
    ASSERT_EQ(0, run("red.svg -o red.eps"));
    write("cut.ps", part.substr(0, part.size() / 2));
    write("short.ps", std::string(part).replace(part.find("%%Pages: 2"), 10, "%%Pages: 3"));
    write("other.ps", "%!PS-Adobe-3.0\n%%EndComments\nshowpage\n%%Trailer\nend\n%%EOF\n");
    write("empty.ps", "");
    ASSERT_EQ(0, run("--join a.ps c.ps -o joined.ps"));
    write("old.ps", "as it was");
    for (const auto& [name, reason] : std::initializer_list<std::pair<const char*, const char*>>{
             {"cut.ps", "has no end"},
             {"short.ps", "has 2 pages and not 3"},
             {"other.ps", "is no PostScript document of this psrender"},
             {"red.eps", "is no PostScript document of this psrender"},
             {"red.svg", "is no PostScript document of this psrender"},
             {"empty.ps", "is empty"},
             {"joined.ps", "is joined already"},
             {"none.ps", "No such file"}}) {
        EXPECT_EQ(1, run(std::string("--join a.ps ") + name + " -o old.ps")) << name;
        EXPECT_THAT(said, HasSubstr(name));
        EXPECT_THAT(said, HasSubstr(reason));
        EXPECT_EQ("as it was", read("old.ps"));
    }
}

TEST_F(PsrenderJoin, TakesPartsAsTheyAre) {
    ASSERT_EQ(0, run("red.svg -o a.ps --title One --duplex long"));
    ASSERT_EQ(0, run("red.svg -o b.ps --title Two"));
    EXPECT_EQ(2, run("--join a.ps b.ps -o all.ps --colors gray"));
    EXPECT_THAT(said, HasSubstr("give --colors where the parts are made"));
    EXPECT_EQ(2, run("--join a.ps - -o all.ps"));
    EXPECT_EQ(2, run("--join a.ps b.ps -o all.pdf"));
    EXPECT_EQ(4, run("--join a.ps b.ps -o all.ps --strict", "PSRENDER_OPTIONS='--paper A4'"));
    EXPECT_THAT(said, ContainsRegex("warning: b.ps: its title.*first part"));
    const std::string all = read("all.ps");
    EXPECT_THAT(all, HasSubstr("%%Title: One\n"));
    EXPECT_THAT(all, HasSubstr("/Duplex true"));
    EXPECT_THAT(all, Not(HasSubstr("Two")));
    EXPECT_EQ(0, run("--join a.ps a.ps > all.ps"));
    EXPECT_EQ("", said);
    EXPECT_EQ(2U, interpret(read("all.ps")).pages.size());
}

/// Shows which words are taken for names, in brackets; '/' stands before literal ones.
class Brackets final : public psrender::join::NameSink {
public:
    void text(std::string_view piece) override { shown += piece; }
    void name(std::string_view word, bool isLiteral) override {
        shown += (isLiteral ? "[/" : "[") + std::string(word) + "]";
    }
    std::string shown;
};

TEST(ResourceNames, StandInScriptAndNotInData) {
    Brackets sink;
    psrender::join::ResourceNames names;
    for (const char* line :
         {"/F1_0 8 tf X12 execform/I3f I3d I3m I3 f F X I1x F1 X1y 1X2\n",
          "(X1 (I1) \\) X2) X3<~X4 <F1_0\n", "X5~> X6 % X7\n", "<1F 2> X8<</A X9>>\n",
          "/I1d currentfile/ASCII85Decode filter X10\n", "X11 (\n", "~>X13\n"})
        names.scan(line, sink);
    EXPECT_EQ(
        "/[/F1_0] 8 tf [X12] execform/[/I3f] [I3d] [I3m] [I3] f F X I1x F1 X1y 1X2\n"
        "(X1 (I1) \\) X2) [X3]<~X4 <F1_0\nX5~> [X6] % X7\n<1F 2> [X8]<</A [X9]>>\n"
        "/[/I1d] currentfile/ASCII85Decode filter [X10]\nX11 (\n~>[X13]\n",
        sink.shown);
}

}  // namespace
