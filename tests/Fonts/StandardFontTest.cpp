#include "Fonts/StandardFont.h"

#include "tests/Fonts/FontFiles.h"

#include <gtest/gtest.h>

namespace {

using FontFiles::kerningOf;
using FontFiles::namesOf;
using Fonts::StandardFont;

struct Totals {
    const char* name;
    std::uint32_t glyphs;
    long pairs;
    double widths;      ///< of all glyphs
    long closerValues;  ///< of all pairs
};

/// Counted and summed up in the AFM files themselves.
constexpr Totals kTotals[] = {
    {"Courier", 315, 0, 189000, 0},
    {"Courier-Bold", 315, 0, 189000, 0},
    {"Courier-Oblique", 315, 0, 189000, 0},
    {"Courier-BoldOblique", 315, 0, 189000, 0},
    {"Helvetica", 315, 2705, 170973, 122432},
    {"Helvetica-Bold", 315, 2481, 177774, 105632},
    {"Helvetica-Oblique", 315, 2705, 170973, 122432},
    {"Helvetica-BoldOblique", 315, 2481, 177774, 105632},
    {"Times-Roman", 315, 2073, 163189, 106260},
    {"Times-Bold", 315, 2242, 170802, 112253},
    {"Times-Italic", 315, 2321, 161203, 104671},
    {"Times-BoldItalic", 315, 2038, 165683, 100659},
    {"Symbol", 190, 0, 111726, 0},
    {"ZapfDingbats", 202, 0, 150697, 0},
};

TEST(StandardFont, AllGlyphsWidthsAndPairsAreThere) {
    for (const Totals& expected : kTotals) {
        const auto font = StandardFont::findByName(expected.name);
        ASSERT_TRUE(font) << expected.name;
        std::uint32_t glyphs = 0;
        double widths = 0;
        while (font->getGlyphName(glyphs) != ".notdef")
            widths += font->getAdvance(glyphs++);
        long pairs = 0;
        long closerValues = 0;
        for (std::uint32_t first = 0; first < glyphs; ++first)
            for (std::uint32_t second = 0; second < glyphs; ++second)
                if (const auto closer = font->getKerning(first, second, false)) {
                    ++pairs;
                    closerValues += *closer;
                }
        EXPECT_EQ(expected.glyphs, glyphs) << expected.name;
        EXPECT_EQ(expected.pairs, pairs) << expected.name;
        EXPECT_EQ(expected.widths, widths) << expected.name;
        EXPECT_EQ(expected.closerValues, closerValues) << expected.name;
    }
}

TEST(StandardFont, FiguresBelongToTheirGlyphs) {
    const auto helvetica = StandardFont::findByName("Helvetica");
    const auto times = StandardFont::findByName("Times-Italic");
    const auto widthOf = [](const auto& font, const char16_t* text) {
        return font->getAdvance(FontFiles::glyphsOf(font, text).at(0));
    };
    EXPECT_EQ(667, widthOf(helvetica, u"A"));
    EXPECT_EQ(1015, widthOf(helvetica, u"@"));
    EXPECT_EQ(444, widthOf(times, u"\u00e9"));
    EXPECT_EQ("70", kerningOf(helvetica, u"AV"));
    EXPECT_EQ("70", kerningOf(helvetica, u"\u00c1V")) << "an accented letter kerns like its base";
    EXPECT_EQ("120", kerningOf(helvetica, u"To"));
    EXPECT_EQ("-", kerningOf(helvetica, u"HH"));
    EXPECT_EQ("-30", kerningOf(helvetica, u"r:")) << "further apart";
    EXPECT_FALSE(helvetica->getKerning(FontFiles::glyphsOf(helvetica, u"A")[0],
                                       FontFiles::glyphsOf(helvetica, u"V")[0], true));
    EXPECT_EQ(718, helvetica->getMetrics().ascent);
    EXPECT_EQ(-15.5f, times->getMetrics().italicAngle);
    EXPECT_EQ(Fonts::FontKind::type1, times->getKind());
    EXPECT_FALSE(times->isEmbeddable());
    EXPECT_TRUE(times->getProgramData().empty());
}

TEST(StandardFont, CharactersLeadToGlyphsByTheirPostScriptNames) {
    const struct {
        const char* font;
        const char16_t* text;
        const char* names;
    } rows[] = {
        {"Helvetica", u"a \u00a0\u00ad\u2019'", "a space space hyphen quoteright quotesingle "},
        {"Helvetica", u"\u20ac\u03bc\u0394\u0110", "Euro mu Delta Dcroat "},
        {"Helvetica", u"\u4e00\U0001f600\xd83d", "- - - "},
        {"Symbol", u"\u03b1\u03bc\u03a9\u2126\u0394\u2206", "alpha mu Omega Omega Delta Delta "},
        {"Symbol", u"\uf8e5\uf8f5\u23ae\u00a9A",
         "radicalex integralex integralex copyrightserif - "},
        {"ZapfDingbats", u" \u2701\u2605\u27be", "space a1 a35 a191 "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.names, namesOf(StandardFont::findByName(row.font), row.text)) << row.font;
    const auto helvetica = StandardFont::findByName("Helvetica");
    EXPECT_EQ(".notdef", helvetica->getGlyphName(Fonts::FontProgram::kMissingGlyph).toUtf8());
    EXPECT_EQ(0, helvetica->getAdvance(315));
    EXPECT_FALSE(helvetica->getKerning(315, 0, false));
}

}  // namespace
