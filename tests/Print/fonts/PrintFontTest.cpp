#include "Print/fonts/internal/PrintFont.h"

#include "Core/FixedFormat.h"
#include "Fonts/StandardFont.h"
#include "Fonts/TTFFont.h"
#include "Print/fonts/internal/CharString.h"
#include "tests/Fonts/FontFiles.h"
#include "tests/Print/fonts/FontPage.h"
#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Drawing::Print::FontSettings;
using Drawing::Print::GlyphCode;
using Drawing::Print::PrintFont;
using Fonts::FontManager;

constexpr const char* kDroid = "/usr/share/fonts/truetype/droid/DroidSansFallbackFull.ttf";
constexpr const char* kLohit = "/usr/share/fonts/truetype/lohit-devanagari/Lohit-Devanagari.ttf";
constexpr const char* kText =
    "office (waves) quickly over 50% of lazy dogs; Zebra & AVATAR: \"d\u00e9j\u00e0 vu\", "
    "Gro\u00dfmutter's #3";

FontPage::Program open(const std::string& file) {
    return FontManager::openFontFile(file);
}

FontPage::Program standard(const char* name) {
    return Fonts::StandardFont::findByName(name);
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

float numberOf(const std::string& text) {
    float number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Every form that a font can take in a document.
struct Form {
    const char* name;
    FontPage::Program program;
    FontSettings settings;
    std::string inPdf;  ///< kind, and whether it is embedded
};

std::vector<Form> forms() {
    return {
        {"DejaVuSans", open(FontFiles::kDejaVuSans), {}, "TrueType yes"},
        {"NimbusRoman-Regular", open(FontFiles::kNimbusRomanCff), {}, "Type 1C yes"},
        {"NimbusRoman-Regular", open(FontFiles::kNimbusRomanBare), {}, "Type 1C yes"},
        {"NimbusRoman-Regular", open(FontFiles::kNimbusRomanSegments), {}, "Type 1C yes"},
        {"Helvetica", standard("Helvetica"), {}, ""},
        {"Helvetica", standard("Helvetica"), {true, true}, "Type 1C yes"},
    };
}

TEST(PrintFont, EveryFormTellsItsWords) {
    for (const Form& form : forms()) {
        FontPage page(form.program, form.settings);
        page.show(20, 300, 9, Core::String(kText));
        EXPECT_EQ(wordsOf(kText), wordsOf(page.text())) << form.name << " " << form.inPdf;
        if (form.inPdf.empty())
            continue;
        const std::string fonts = outputOf(
            "pdf=$(mktemp) && ps2pdf - $pdf && pdffonts $pdf | tail -n +3 | tr -s ' ' && rm $pdf",
            page.document());
        EXPECT_NE(std::string::npos, fonts.find("+" + std::string(form.name) + " ")) << fonts;
        EXPECT_NE(std::string::npos, fonts.find(form.inPdf.substr(0, 5))) << fonts;
        EXPECT_NE(std::string::npos, fonts.find(" yes yes ")) << fonts;
    }
}

/// The interpreter finds the original by the name of the font.
TEST(PrintFont, EveryFormHasTheWeightOfTheOriginal) {
    for (const Form& form : forms()) {
        FontPage page(form.program, form.settings, 300, 40);
        page.show(20, 20, 9, u"office waves quickly over lazy dogs; Zebra & AVATAR: {x}");
        ASSERT_EQ(1U, page.font().partCount());
        std::string original = page.document();
        const std::size_t begin = original.find(page.definitions());
        original.replace(begin, page.definitions().size(),
                         "/F7_0/" + std::string(form.name) + " findfont def/F7_0 F7_0 " +
                             "dup length dict copy dup/FID undef dup/Encoding StandardEncoding put "
                             "definefont pop ");
        const double ink = inkOf(original);
        EXPECT_GT(ink, 0.01);
        EXPECT_NEAR(ink, page.ink(), ink / 100) << form.name;
    }
}

/// Large enough that how an interpreter treats small letters plays little part: it fills every
/// pixel that a path touches.
TEST(PrintFont, EveryFormDrawsTheOutlinesOfItsGlyphs) {
    class PathSink : public Fonts::GlyphSink {
    public:
        void moveTo(float x, float y) override { add({x, y}, "moveto"); }
        void lineTo(float x, float y) override { add({x, y}, "lineto"); }
        void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
            add({x1, y1, x2, y2, x3, y3}, "curveto");
        }
        void close() override { path += "closepath\n"; }
        std::string path;

    private:
        void add(std::initializer_list<float> numbers, const char* step) {
            for (const float number : numbers)
                path += Core::formatFixed<"{0} ">(number);
            path += std::string(step) + "\n";
        }
    };
    for (const Form& form : forms()) {
        FontPage page(form.program, form.settings, 300, 300);
        PathSink sink;
        for (const std::uint32_t glyph : FontFiles::glyphsOf(form.program, u"\u00e9"))
            form.program->decomposeGlyph(glyph, sink);
        if (sink.path.empty())
            continue;
        page.show(50, 20, 300, u"\u00e9");
        const double ink = inkOf(
            "<</PageSize[300 300]>>setpagedevice 50 20 translate "
            ".3 .3 scale\n" +
            sink.path + "fill showpage");
        EXPECT_NEAR(ink, page.ink(), ink * 0.03) << form.name;
    }
}

TEST(PrintFont, EveryFormAdvancesAsItSays) {
    for (const Form& form : forms()) {
        FontPage page(form.program, form.settings);
        std::string asked;
        std::vector<float> advances;
        // The last are wider in the installed design than in the standard font, or narrower.
        for (const char16_t character :
             std::u16string(u"AWil. \u00e9\u0163\u0123\u2202\u2264\u00b5")) {
            const auto glyph = FontFiles::glyphsOf(form.program, std::u16string(1, character))[0];
            const GlyphCode code = page.font().encode(glyph, character);
            advances.push_back(page.font().advance(glyph));
            asked += "/" + page.font().partName(code.part) + " 1000 selectfont <";
            asked += "0123456789abcdef"[code.code >> 4];
            asked += "0123456789abcdef"[code.code & 15];
            asked += "> stringwidth pop =\n";
        }
        const auto answers =
            wordsOf(outputOf("gs -q -dSAFER -dBATCH -dNODISPLAY -", page.definitions() + asked));
        ASSERT_EQ(advances.size(), answers.size());
        for (std::size_t i = 0; i < advances.size(); ++i)
            EXPECT_NEAR(advances[i], numberOf(answers[i]), 0.6) << form.name << " " << i;
    }
}

TEST(PrintFont, WordsOfEveryScriptAreFound) {
    const struct {
        const char* file;
        const char* text;
        const char* found;  ///< null: the same
    } rows[] = {
        {FontFiles::kDejaVuSans, "office fluff affine final", nullptr},
        {FontFiles::kDejaVuSans, "Ελληνικά Съешь ďábelské Հայերեն ქართული", nullptr},
        {FontFiles::kDejaVuSans, "שלום עולם", "\u202bשלום עולם\u202c"},
        {FontFiles::kDejaVuSans, "السلام عليكم إله", "\u202bالس\ufefbم عليكم إله\u202c"},
        {kLohit, "नमस्ते दुनिया हिन्दी क्षत्रिय", nullptr},
        {kDroid, "漢字仮名交じり文 圖書館", nullptr},
    };
    for (const auto& row : rows) {
        FontPage page(open(row.file));
        page.shape(20, 300, 20, row.text);
        EXPECT_EQ(wordsOf(row.found ? row.found : row.text), wordsOf(page.text()));
    }
}

std::string lineOf(int first, int count) {
    Core::String text;
    std::u16string units;
    for (int i = 0; i < count; ++i)
        units += static_cast<char16_t>(0x4E00 + first + i);
    return Core::String(units).toUtf8();
}

TEST(PrintFont, ShowsHundredsOfGlyphsInSeveralParts) {
    FontPage page(open(kDroid));
    std::string text;
    for (int line = 0; line < 18; ++line) {
        text += lineOf(line * 40, 40) + "\n";
        page.show(20, 380 - 20 * line, 12, Core::String(lineOf(line * 40, 40)));
    }
    EXPECT_EQ(3U, page.font().partCount());
    EXPECT_EQ(wordsOf(text), wordsOf(page.text()));
    std::istringstream lines(page.definitions());
    for (std::string line; std::getline(lines, line);) {
        EXPECT_FALSE(line.starts_with('%'));
        EXPECT_LT(line.size(), 255U);
    }
}

/// Rows of 25 glyphs.
void glyphInTable(FontPage& page, std::uint32_t number, const GlyphCode& code) {
    const std::uint32_t row = number / 25;
    const std::uint32_t column = number % 25;
    page.glyph(20 + column * 22, 20 + row * 20, 20, code);
}

TEST(PrintFont, OfAStandardFontShowsAllItsGlyphs) {
    const auto times = Fonts::StandardFont::findByName("Times-Roman");
    FontPage page(times);
    for (std::uint32_t glyph = 0; glyph < times->getGlyphCount(); ++glyph) {
        const GlyphCode code = page.font().encode(glyph, U'\uE000' + glyph);
        glyphInTable(page, glyph, code);
    }
    EXPECT_EQ(2U, page.font().partCount());
    EXPECT_EQ("Times-Roman", page.font().neededFont());
    EXPECT_LT(page.definitions().size(), 7000U);
    FontPage embedded(times, {true, true});
    EXPECT_EQ("", embedded.font().neededFont());
    for (std::uint32_t glyph = 0; glyph < times->getGlyphCount(); ++glyph)
        glyphInTable(embedded, glyph, embedded.font().encode(glyph, U'\uE000' + glyph));
    const double ink = page.ink();
    EXPECT_GT(ink, 0.04);
    EXPECT_NEAR(ink, embedded.ink(), ink / 100) << "one design, one weight";
}

TEST(PrintFont, HintsAreLeftOutOnRequestAndAMissingGlyphShowsTheFirst) {
    FontPage hinted(open(FontFiles::kDejaVuSans));
    FontPage plain(open(FontFiles::kDejaVuSans), {false, false});
    for (FontPage* page : {&hinted, &plain})
        page->show(20, 300, 40, u"Hello \u4E00");
    EXPECT_LT(plain.definitions().size(), hinted.definitions().size() / 2);
    FontPage first(open(FontFiles::kDejaVuSans));
    first.glyph(20, 300, 40, first.font().encode(0, U'x'));
    FontPage missing(open(FontFiles::kDejaVuSans));
    missing.glyph(20, 300, 40, missing.font().encode(Fonts::FontProgram::kMissingGlyph, U'\u4E00'));
    EXPECT_GT(first.ink(), 0.0);
    EXPECT_EQ(first.ink(), missing.ink());
    EXPECT_EQ("\u4E00", wordsOf(missing.text()).at(0)) << "its text is found nevertheless";
    EXPECT_EQ("", FontPage(open(FontFiles::kDejaVuSans)).definitions()) << "no glyph in use";
}

/// A Type 1 program of an accented letter (seac), its parts, and another letter that stands for
/// "A". The accent is a box of 100 by 100 units, the letters are boxes of 200 by 200.
std::string composedFont() {
    using Drawing::Print::CharString::Bytes;
    const auto glyph = [](const char* name, std::initializer_list<int> numbersAndCommands) {
        Bytes clear;
        for (const int value : numbersAndCommands)  // commands are told apart by 10000
            if (value >= 10000)
                clear.push_back(static_cast<std::uint8_t>(value - 10000));
            else
                Drawing::Print::CharString::appendNumber(value, clear);
        const Bytes cipher = Drawing::Print::CharString::encrypted(clear);
        return "/" + std::string(name) + " " + std::to_string(cipher.size()) + " RD " +
               std::string(cipher.begin(), cipher.end()) + " ND\n";
    };
    constexpr int sidebearing = 10013;
    constexpr int move = 10021;
    constexpr int across = 10006;
    constexpr int up = 10007;
    constexpr int close = 10009;
    constexpr int end = 10014;
    constexpr int escape = 10012;
    constexpr int accented = 10006;
    const auto box = [&](const char* name, int x, int y, int side) {
        return glyph(name, {0, 500, sidebearing, x, y, move, side, across, side, up, -side, across,
                            close, end});
    };
    const std::string secret =
        "0000dup /Private 8 dict dup begin /RD {string currentfile exch readstring pop} "
        "executeonly def /ND {noaccess def} executeonly def /NP {noaccess put} executeonly def "
        "/BlueValues [0 0] def /MinFeature {16 16} def /password 5839 def /lenIV 0 def\n"
        "/StdHW [ quit ] def\n"
        "2 index /CharStrings 5 dict dup begin\n" +
        glyph(".notdef", {0, 500, sidebearing, end}) + box("A", 100, 0, 200) +
        box("acute", 0, 0, 100) + box("Alpha", 300, 300, 200) +
        glyph("Aacute", {0, 500, sidebearing, 0, 150, 400, 'A', 0xC2, escape, accented}) +
        "end end readonly put noaccess put dup/FontName get exch definefont pop "
        "mark currentfile closefile\n";
    std::uint16_t key = 55665;
    std::string cipher;
    for (const char clear : secret) {
        cipher += static_cast<char>(static_cast<std::uint8_t>(clear) ^ key >> 8);
        key = static_cast<std::uint16_t>((static_cast<std::uint8_t>(cipher.back()) + key) * 52845U +
                                         22719U);
    }
    return "%!PS-AdobeFont-1.0: Composed 1.0\n11 dict begin /FontInfo 1 dict dup begin end "
           "readonly def /FontName /Composed def /PaintType 0 def /FontType 1 def /FontMatrix "
           "[0.001 0 0 0.001 0 0] readonly def /Encoding StandardEncoding def /FontBBox {0 0 600 "
           "600} readonly def currentdict end\ncurrentfile eexec\n" +
           cipher + "\n" + std::string(512, '0') + "\ncleartomark\n";
}

TEST(PrintFont, AComposedGlyphKeepsItsPartsWhateverElseTakesTheirNames) {
    const auto program = FontManager::openFontData(Core::ByteArray(composedFont()), "composed.pfa");
    const auto inkAt = [&](char16_t character, char32_t text) {
        FontPage page(program, {}, 100, 100);
        const auto glyphs = FontFiles::glyphsOf(program, u"\u0391");
        page.glyph(200, 0, 100, page.font().encode(glyphs[0], text));
        page.show(0, 0, 100, std::u16string(1, character));
        EXPECT_EQ(std::string::npos, page.definitions().find("quit"))
            << "only plain values are taken from a font";
        return page.ink();
    };
    EXPECT_NEAR(0.04, inkAt(u'A', U'B'), 0.002);
    EXPECT_NEAR(0.05, inkAt(u'\u00c1', U'B'), 0.002) << "letter and accent";
    EXPECT_NEAR(0.05, inkAt(u'\u00c1', U'A'), 0.002) << "the other letter has taken the name A";
}

FontPage::Program withLicence(const char* file, std::uint32_t bits) {
    Core::ByteArray bytes = FontFiles::read(file);
    FontFiles::setNumber(bytes, FontFiles::tableOf(bytes, "OS/2") + 8, 2, bits);
    return FontManager::openFontData(bytes, "changed");
}

TEST(PrintFont, ObeysTheLicence) {
    constexpr std::uint32_t restricted = 0x0002;
    constexpr std::uint32_t noSubsetting = 0x0100;
    EXPECT_EQ(nullptr, PrintFont::make(withLicence(FontFiles::kDejaVuSans, restricted), 0, {}));
    EXPECT_EQ(nullptr, PrintFont::make(withLicence(FontFiles::kNimbusRomanCff, restricted), 0, {}));
    EXPECT_EQ(nullptr,
              PrintFont::make(withLicence(FontFiles::kNimbusRomanCff, noSubsetting), 0, {}));
    FontPage whole(withLicence(FontFiles::kLiberationSans, noSubsetting));
    whole.show(20, 300, 9, u"caf\u00e9");
    EXPECT_GT(whole.definitions().size(), FontFiles::read(FontFiles::kLiberationSans).size() / 2)
        << "all glyphs";
    EXPECT_EQ("caf\u00e9", wordsOf(whole.text()).at(0));
}

}  // namespace
