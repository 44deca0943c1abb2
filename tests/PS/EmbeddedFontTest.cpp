// Real fonts through a real interpreter: a line of text in the embedded font against the same
// glyphs drawn as outlines, and the glyph data array read back as the font that it is.

#include "Core/FileStream.h"
#include "Drawing/Font.h"
#include "Drawing/Path.h"
#include "Fonts/FontManager.h"
#include "Fonts/GlyphSink.h"
#include "PS/fonts/TTFToType42.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Core::String;
using Fonts::FontManager;
using Fonts::FontProgram;

constexpr float kSize = 40;
constexpr float kLeft = 10;
constexpr float kBaseline = 45;

/// Pixels are looked at in groups of this many by as many.
constexpr int kFiner = 8;
/// Grid-fitting would move a font's outlines to whole pixels, and fill adjustment would paint every
/// pixel that they touch.
const std::string kExact = "-dGridFitTT=0 -c '0 0 .setfilladjust2'";

const std::string kFonts = "/usr/share/fonts/";

/// Adds a glyph to a path, flipped to the page and set at a place.
class PathSink : public Fonts::GlyphSink {
public:
    PathSink(Drawing::Path& path, float left) : path_(path), left_(left) {}
    void moveTo(float x, float y) override { path_.moveTo(pageX(x), pageY(y)); }
    void lineTo(float x, float y) override { path_.lineTo(pageX(x), pageY(y)); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        path_.curveTo(pageX(x1), pageY(y1), pageX(x2), pageY(y2), pageX(x3), pageY(y3));
    }
    void close() override { path_.close(); }

private:
    [[nodiscard]] float pageX(float x) const { return left_ + x * kSize / 1000; }
    [[nodiscard]] static float pageY(float y) { return kBaseline - y * kSize / 1000; }

    Drawing::Path& path_;
    float left_;
};

/// The first characters beyond the common alphabets that have an outline and a glyph number with
/// a code.
String showable(const FontProgram& program, std::size_t count) {
    constexpr std::uint32_t kGlyphsWithCodes = 2048;
    std::u16string text;
    for (char16_t c = 0x2000; c < 0xD800 && text.size() < count; c = static_cast<char16_t>(c + 1)) {
        const std::uint32_t glyph = program.mapGlyphs({std::u16string(1, c), 0}).at(0);
        Drawing::Path path;
        PathSink sink(path, 0);
        if (glyph < kGlyphsWithCodes)
            program.decomposeGlyph(glyph, sink);
        if (path.getCommandCount() > 0)
            text.push_back(c);
    }
    return {std::move(text)};
}

SmartPtr<Drawing::Path> outlines(const FontProgram& program, const String& text, bool kerned) {
    const auto path = makeObject<Drawing::Path>();
    const auto glyphs = program.mapGlyphs({text, 0});
    float x = kLeft;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        if (kerned && i > 0)
            x -= static_cast<float>(
                     program.getKerning(glyphs[i - 1], glyphs[i], false).value_or(0)) *
                 kSize / 1000;
        PathSink sink(*path, x);
        program.decomposeGlyph(glyphs[i], sink);
        x += program.getAdvance(glyphs[i]) * kSize / 1000;
    }
    return path;
}

void beginPage(OpenDocument& d) {
    d.startPage({420, 70});
    d.setTransform({});
    d.setStroke(nullptr);
    d.setFill(rgb(0, 0, 0));
}

/// The text as text, the text as outlines.
std::string twoPages(const SmartPtr<Drawing::Font>& font, const FontProgram& program,
                     const String& text, bool kerned) {
    return finished(
        [&](OpenDocument& d) {
            beginPage(d);
            d.setFont(font);
            d.drawText(text, 0, kLeft, kBaseline, 0, false);
            d.endPage();
            beginPage(d);
            d.drawPath(outlines(program, text, kerned));
            d.endPage();
        },
        kerned);
}

struct Difference {
    double ink = 0;
    double other = 0;
};

/// How dark a pixel of 144 dpi is, 0 to 1, from the `kFiner` x `kFiner` that it is made of.
double darkness(const Picture& picture, int x, int y) {
    int sum = 0;
    for (int row = 0; row < kFiner; ++row)
        for (int column = 0; column < kFiner; ++column)
            sum += 255 - picture.at(x * kFiner + column, y * kFiner + row)[0];
    return sum / (255.0 * kFiner * kFiner);
}

/// Ink of the second picture, and where the first differs from it, in pixels of 144 dpi.
Difference compare(const Picture& text, const Picture& outlines) {
    Difference difference;
    for (int y = 0; y < outlines.height / kFiner; ++y)
        for (int x = 0; x < outlines.width / kFiner; ++x) {
            const double expected = darkness(outlines, x, y);
            difference.ink += expected;
            difference.other += std::abs(darkness(text, x, y) - expected);
        }
    return difference;
}

TEST(EmbeddedFonts, ShowTheirOwnShapes) {
    const std::pair<const char*, const char*> cases[] = {
        {"truetype/dejavu/DejaVuSans.ttf", "AVATAR Wo\xC3\xA9\xCE\xA9"},
        {"truetype/dejavu/DejaVuSerif.ttf", "Type, fjord"},
        {"truetype/dejavu/DejaVuSansMono.ttf", "{code} 0O"},
        {"truetype/liberation/LiberationSans-Regular.ttf", "AVATAR Wo"},
        {"truetype/liberation/LiberationSerif-Italic.ttf", "quick brown"},
        {"truetype/liberation/LiberationMono-Bold.ttf", "(\\) ~!"},
        {"truetype/droid/DroidSansFallbackFull.ttf", nullptr},
        {"truetype/libreoffice/opens___.ttf", nullptr},
        {"X11/Type1/NimbusRoman-Regular.pfb", "AVATAR Wo\xC3\xA9"},
        {"type1/urw-base35/NimbusSans-Bold.t1", "To Yes, We"}};
    for (const auto& [file, sample] : cases) {
        const auto program = FontManager::openFontFile(kFonts + file);
        const String family(file);
        FontManager::registerFont(family, 400, Drawing::FontSlant::upright, program);
        const auto font = makeObject<Drawing::Font>(family, kSize);
        const String text = sample ? String(sample) : showable(*program, 9);
        for (const bool kerned : {false, true}) {
            if (kerned && !sample)
                continue;
            const Interpretation seen =
                interpret(twoPages(font, *program, text, kerned), 144 * kFiner, kExact);
            ASSERT_EQ("", seen.messages) << file;
            const Difference difference = compare(seen.pages.at(0), seen.pages.at(1));
            EXPECT_GT(difference.ink, 1000) << file;
            EXPECT_LT(difference.other, 0.01 * difference.ink) << file << " kerned " << kerned;
        }
    }
}

/// The bytes of the strings of a glyph data array, without the extra byte of each.
Core::ByteArray fileOf(const std::string& array) {
    std::vector<std::uint8_t> file;
    for (std::size_t at = 0; (at = array.find('<', at)) != std::string::npos; ++at) {
        std::string digits = array.substr(at + 1, array.find('>', at) - at - 1);
        std::erase(digits, '\n');
        for (std::size_t i = 0; i + 3 < digits.size(); i += 2)
            file.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
        if (digits.size() / 2 % 4 == 0)
            file.push_back(static_cast<std::uint8_t>(
                std::stoi(digits.substr(digits.size() - 2), nullptr, 16)));
    }
    return Core::ByteArray(std::move(file));
}

std::vector<Drawing::PathCommand> shapeOf(const FontProgram& program, std::uint32_t glyph) {
    Drawing::Path path;
    PathSink sink(path, 0);
    program.decomposeGlyph(glyph, sink);
    std::vector<Drawing::PathCommand> commands;
    for (std::uint64_t i = 0; i < path.getCommandCount(); ++i)
        commands.push_back(path.getCommandAt(i));
    return commands;
}

TEST(EmbeddedFonts, GlyphDataReadsBackAsTheSameOutlines) {
    for (const char* file :
         {"truetype/dejavu/DejaVuSans.ttf", "truetype/liberation/LiberationSerif-Italic.ttf",
          "truetype/droid/DroidSansFallbackFull.ttf"}) {
        const auto program = FontManager::openFontFile(kFonts + file);
        std::set<std::int32_t> used;
        for (std::int32_t glyph = 1; glyph < 1400; glyph += file[9] == 'd' ? 1 : 7)
            used.insert(glyph);
        const auto array = makeObject<Core::IO::MemoryStream>();
        Drawing::PS::TTFToType42(program, used).writeGlyphData(*array, u"F1");
        const auto again =
            FontManager::openFontData(fileOf(std::string(array->view())), "the array");
        for (const std::int32_t glyph : used)
            ASSERT_EQ(shapeOf(*program, static_cast<std::uint32_t>(glyph)),
                      shapeOf(*again, static_cast<std::uint32_t>(glyph)))
                << file << " glyph " << glyph;
    }
}

}  // namespace
