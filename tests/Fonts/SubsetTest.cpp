#include "tests/Fonts/FontFiles.h"
#include "tests/Fonts/FreeTypeFile.h"

#include <gtest/gtest.h>

#include <numeric>
#include <set>
#include <vector>

namespace {

using FontFiles::kDejaVuSans;
using FontFiles::kLiberationSans;
using FontFiles::number;
using FontFiles::tableOf;

std::vector<std::int32_t> upTo(std::int32_t last) {
    std::vector<std::int32_t> glyphs(static_cast<std::size_t>(last) + 1);
    std::iota(glyphs.begin(), glyphs.end(), 0);
    return glyphs;
}

bool hasLongLoca(const Core::ByteArray& file) {
    return number(file, tableOf(file, "head") + 50, 2) == 1;
}

/// The offsets of all glyphs in 'glyf', and the end.
std::vector<std::uint32_t> offsetsOf(const Core::ByteArray& file) {
    const std::size_t glyphCount = number(file, tableOf(file, "maxp") + 4, 2);
    std::vector<std::uint32_t> offsets;
    for (std::size_t i = 0; i <= glyphCount; ++i)
        offsets.push_back(hasLongLoca(file) ? number(file, tableOf(file, "loca") + 4 * i, 4)
                                            : number(file, tableOf(file, "loca") + 2 * i, 2) * 2);
    return offsets;
}

std::uint32_t paddedSize(const std::vector<std::uint32_t>& offsets) {
    std::uint32_t size = 0;
    for (std::size_t i = 0; i + 1 < offsets.size(); ++i)
        size += (offsets[i + 1] - offsets[i] + 3) / 4 * 4;
    return size;
}

TEST(Subset, KeepsTheGlyphsAskedForTheirPartsAndTheirNumbers) {
    for (const char* file : {kDejaVuSans, kLiberationSans}) {
        const auto font = FontFiles::openTrueType(file);
        const auto glyphs = FontFiles::glyphsOf(font, u"A\u00e9\u00e7g");
        const Core::ByteArray subset =
            font->subset(std::vector<std::int32_t>(glyphs.begin(), glyphs.end()), 0);
        EXPECT_LT(subset.size(), font->getProgramData().size() / 2);
        const FreeTypeFile whole(FontFiles::read(file));
        const FreeTypeFile reduced(subset);
        EXPECT_EQ(whole.outlineSum(0), reduced.outlineSum(0)) << "glyph 0 keeps its outline";
        for (const std::uint32_t glyph : glyphs) {
            EXPECT_GT(reduced.outlineSum(glyph).first, 0);
            EXPECT_EQ(whole.outlineSum(glyph), reduced.outlineSum(glyph));
            EXPECT_EQ(whole.advanceOf(glyph), reduced.advanceOf(glyph));
        }
        const auto unused = FontFiles::glyphsOf(font, u"Q")[0];
        EXPECT_EQ(0, reduced.outlineSum(unused).first);
    }
}

TEST(Subset, HoldsWhatDrawingTakesAndNothingElse) {
    const Core::ByteArray subset = FontFiles::openTrueType(kDejaVuSans)->subset({36}, 0);
    for (const char* tag :
         {"cmap", "cvt ", "fpgm", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "prep"})
        EXPECT_NE(0U, tableOf(subset, tag)) << tag;
    for (const char* tag : {"GSUB", "GPOS", "GDEF", "kern", "name", "post", "OS/2"})
        EXPECT_EQ(0U, tableOf(subset, tag)) << tag;
    const Core::ByteArray plain =
        FontFiles::openTrueType(kDejaVuSans)->subset({36}, Fonts::TTFFont::kDropHints);
    EXPECT_EQ(0U, tableOf(plain, "fpgm"));
}

TEST(Subset, TheSameGlyphsGiveTheSameBytes) {
    const auto font = FontFiles::openTrueType(kDejaVuSans);
    const Core::ByteArray once = font->subset({36, 40, 1000}, 0);
    EXPECT_EQ(once, font->subset({36, 40, 1000}, 0));
    EXPECT_EQ(once, font->subset({1000, -1, 40, 36, 36, -7, 65535, 2147483647}, 0))
        << "order, repetition and numbers that the font does not have play no part";
    const auto again = Fonts::FontManager::openFontData(FontFiles::read(kDejaVuSans), "again");
    EXPECT_EQ(once, again.dynamicCast<Fonts::TTFFont>()->subset({36, 40, 1000}, 0));
}

/// Without a record readers would take the font for one without any glyph.
TEST(Subset, OfGlyphsWithoutCharactersKeepsItsCharacterTable) {
    const auto font = FontFiles::openTrueType(kDejaVuSans);
    ASSERT_EQ("dlLtcaron", font->getGlyphName(5921).toUtf8()) << "another version of the font";
    for (const auto& glyphs : {std::vector<std::int32_t>{5921, 5922}, {}}) {
        const Core::ByteArray subset = font->subset(glyphs, 0);
        EXPECT_GT(number(subset, tableOf(subset, "cmap") + 2, 2), 0U);
    }
}

/// Glyphs 0 to 1350 of DejaVu Sans take 130 400 bytes, just few enough for short entries; each
/// filled up to a multiple of four they take 131 220, more than short entries can tell.
TEST(Subset, HasLongLocationsWhereItsPaddedGlyphsNeedThem) {
    const auto font = FontFiles::openTrueType(kDejaVuSans);
    const FreeTypeFile whole(FontFiles::read(kDejaVuSans));
    const struct {
        std::int32_t last;
        bool isLong;
    } rows[] = {{100, false}, {1340, false}, {1350, true}, {6252, true}};
    for (const auto& row : rows) {
        const Core::ByteArray subset = font->subset(upTo(row.last), 0);
        const auto offsets = offsetsOf(subset);
        EXPECT_EQ(row.isLong, hasLongLoca(subset)) << row.last;
        EXPECT_EQ(row.isLong, paddedSize(offsets) > 131070) << row.last;
        const FreeTypeFile reduced(subset);
        for (std::uint32_t glyph = 0; glyph <= static_cast<std::uint32_t>(row.last); glyph += 7)
            ASSERT_EQ(whole.outlineSum(glyph), reduced.outlineSum(glyph)) << glyph;
    }
}

TEST(CompactSubset, NumbersItsGlyphsAnewAndKeepsTheirParts) {
    const auto font = FontFiles::openTrueType(kDejaVuSans);
    const auto glyphs = FontFiles::glyphsOf(font, u"\u00e9A\u0416\U0001D538");
    const Fonts::CompactSubset subset = font->compactSubset(glyphs, 0);
    EXPECT_LT(subset.file.size(), font->subset({36}, 0).size());
    const FreeTypeFile whole(FontFiles::read(kDejaVuSans));
    const FreeTypeFile reduced(subset.file);
    EXPECT_LT(reduced.glyphCount(), 10U);
    EXPECT_EQ(whole.outlineSum(0), reduced.outlineSum(0));
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        EXPECT_EQ(whole.outlineSum(glyphs[i]), reduced.outlineSum(subset.numbers[i]));
        EXPECT_EQ(whole.advanceOf(glyphs[i]), reduced.advanceOf(subset.numbers[i]));
    }
    EXPECT_NE(0U, tableOf(subset.file, "fpgm"));
    EXPECT_EQ(0U, tableOf(font->compactSubset(glyphs, Fonts::TTFFont::kDropHints).file, "fpgm"));
}

/// Half of all glyphs take more room than short locations can tell; with long ones, glyphs could
/// begin anywhere.
TEST(CompactSubset, CanBeCutWhereTablesAndGlyphsBegin) {
    const auto font = FontFiles::openTrueType(kDejaVuSans);
    std::vector<std::uint32_t> glyphs(3000);
    std::iota(glyphs.begin(), glyphs.end(), 0U);
    for (const int flags : {0, Fonts::TTFFont::kDropHints}) {
        const Fonts::CompactSubset subset = font->compactSubset(glyphs, flags);
        ASSERT_TRUE(hasLongLoca(subset.file));
        const std::set<std::size_t> breaks(subset.breaks.begin(), subset.breaks.end());
        for (const std::uint32_t offset : offsetsOf(subset.file))
            EXPECT_TRUE(breaks.contains(tableOf(subset.file, "glyf") + offset) ||
                        offset == offsetsOf(subset.file).back());
        EXPECT_TRUE(breaks.contains(tableOf(subset.file, "hmtx")));
        EXPECT_EQ(subset.file.size(), *breaks.rbegin());
        for (const std::size_t offset : breaks)
            EXPECT_EQ(0U, offset % 2);
        const FreeTypeFile whole(FontFiles::read(kDejaVuSans));
        const FreeTypeFile reduced(subset.file);
        for (std::uint32_t glyph = 0; glyph < 3000; glyph += 7)
            ASSERT_EQ(whole.outlineSum(glyph), reduced.outlineSum(subset.numbers[glyph])) << glyph;
    }
}

TEST(Subset, OfAFontThatForbidsSubsetsHasAllGlyphs) {
    Core::ByteArray file = FontFiles::read(kLiberationSans);
    FontFiles::setNumber(file, tableOf(file, "OS/2") + 8, 2, 0x0100);
    const auto font =
        Fonts::FontManager::openFontData(file, "changed").dynamicCast<Fonts::TTFFont>();
    EXPECT_EQ(font->subset(upTo(static_cast<std::int32_t>(font->getGlyphCount()) - 1), 0),
              font->subset({36}, 0));
}

}  // namespace
