#include "Fonts/OpenTypeFont.h"

#include "Fonts/FontException.h"
#include "tests/Fonts/FontFiles.h"
#include "tests/Fonts/FreeTypeFile.h"

#include <gtest/gtest.h>
#include <woff2/encode.h>

#include <cmath>

namespace {

using FontFiles::kDejaVuSans;
using FontFiles::kerningOf;
using FontFiles::kLiberationSans;
using FontFiles::kNimbusRomanCff;
using FontFiles::namesOf;
using Fonts::FontException;
using Fonts::FontKind;
using Fonts::FontManager;

TEST(OpenTypeFont, SaysWhatTheFileSays) {
    const auto font = FontManager::openFontFile(kLiberationSans);
    const Fonts::FontMetrics& metrics = font->getMetrics();
    EXPECT_EQ("LiberationSans", metrics.postScriptName.toUtf8());
    EXPECT_EQ("Liberation Sans", metrics.familyName.toUtf8());
    EXPECT_EQ("Liberation Sans", metrics.fullName.toUtf8());
    EXPECT_NEAR(905.3, metrics.ascent, 0.1);
    EXPECT_NEAR(-211.9, metrics.descent, 0.1);
    EXPECT_NEAR(528.3, metrics.xHeight, 0.1);
    EXPECT_EQ(FontKind::trueType, font->getKind());
    EXPECT_EQ(FontKind::openTypeCff, FontManager::openFontFile(kNimbusRomanCff)->getKind());
    EXPECT_TRUE(font->isEmbeddable());
    EXPECT_EQ(FontFiles::read(kLiberationSans), font->getProgramData());
    EXPECT_EQ(kLiberationSans, font->getFile()->name.toUtf8());
    EXPECT_EQ(font->getProgramData().size(), font->getFile()->bytes.size());
}

TEST(OpenTypeFont, MapsCharactersOfAllPlanes) {
    const auto font = FontManager::openFontFile(kDejaVuSans);
    EXPECT_EQ("A eacute uni0416 u1D538 - - ",
              namesOf(font, u"A\u00e9\u0416\U0001d538\u4e00\xd83d"));
    EXPECT_TRUE(font->covers(U'\U0001d538'));
    EXPECT_FALSE(font->covers(U'\u4e00'));
    EXPECT_EQ(".notdef", font->getGlyphName(Fonts::FontProgram::kMissingGlyph).toUtf8());
    EXPECT_EQ(0, font->getAdvance(Fonts::FontProgram::kMissingGlyph));
}

/// FreeType reads names and advances by code of its own.
TEST(OpenTypeFont, NamesAndAdvancesAreThoseOfAnotherReader) {
    for (const char* file : {kDejaVuSans, kLiberationSans, kNimbusRomanCff}) {
        const auto font = FontManager::openFontFile(file);
        const FreeTypeFile reference(FontFiles::read(file));
        int different = 0;
        for (std::uint32_t glyph = 0; glyph < reference.glyphCount(); ++glyph)
            if (font->getGlyphName(glyph).toUtf8() != reference.nameOf(glyph) ||
                std::abs(font->getAdvance(glyph) - reference.advanceOf(glyph)) > 0.01)
                ++different;
        EXPECT_EQ(0, different) << file;
    }
}

/// FreeType knows the 'kern' table only, which says the same as 'GPOS' in these two fonts.
TEST(OpenTypeFont, KerningIsThatOfTheKernTable) {
    for (const char* file : {kDejaVuSans, kLiberationSans}) {
        const auto font = FontManager::openFontFile(file);
        const FreeTypeFile reference(FontFiles::read(file));
        std::u16string letters;
        for (char16_t letter = 0x21; letter < 0x250; ++letter)
            letters += letter;
        const auto glyphs = FontFiles::glyphsOf(font, letters);
        int kerned = 0;
        int different = 0;
        for (const std::uint32_t first : glyphs)
            for (const std::uint32_t second : glyphs) {
                const int expected = reference.closerOf(first, second);
                kerned += expected != 0 ? 1 : 0;
                different += font->getKerning(first, second, false).value_or(0) != expected ? 1 : 0;
            }
        EXPECT_GE(kerned, 99) << file;
        EXPECT_EQ(0, different) << file;
    }
}

TEST(OpenTypeFont, KernsByGposAloneAndLeavesMarksInPlace) {
    const auto font = FontManager::openFontFile(kNimbusRomanCff);
    EXPECT_EQ(0, FreeTypeFile(FontFiles::read(kNimbusRomanCff)).closerOf(34, 55));
    EXPECT_EQ("128", kerningOf(font, u"AV"));
    EXPECT_EQ("-", kerningOf(font, u"HH"));
    const auto glyphs = FontFiles::glyphsOf(font, u"AV");
    EXPECT_FALSE(font->getKerning(glyphs[0], glyphs[1], true));
    EXPECT_EQ(128, font->getKerning(glyphs[0], glyphs[1], false)) << "remembered";
    EXPECT_FALSE(font->getKerning(glyphs[0], 0xFFFFFFFF, false));
}

TEST(OpenTypeFont, OutlinesAreInThousandthsOfAnEmWithCubicCurves) {
    const auto font = FontManager::openFontFile(kLiberationSans);
    const auto outlineOf = [&](const char16_t* text) {
        return FontFiles::outlineOf(*font, FontFiles::glyphsOf(font, text).at(0));
    };
    EXPECT_EQ("M 89 -212 L 89 725 L 170 725 L 170 -212 L 89 -212 Z ", outlineOf(u"|"));
    EXPECT_NE(std::string::npos, outlineOf(u"o").find("C "));
    EXPECT_EQ("", outlineOf(u" "));
    EXPECT_EQ("", FontFiles::outlineOf(*font, Fonts::FontProgram::kMissingGlyph));
}

TEST(OpenTypeFont, LicenceBitsDecideOnEmbedding) {
    const struct {
        std::uint32_t bits;
        bool embeddable;
    } rows[] = {{0x0000, true}, {0x0002, false}, {0x0004, true},  {0x0008, true},
                {0x0006, true}, {0x0100, true},  {0x0200, false}, {0x0204, false}};
    Core::ByteArray file = FontFiles::read(kLiberationSans);
    for (const auto& row : rows) {
        FontFiles::setNumber(file, FontFiles::tableOf(file, "OS/2") + 8, 2, row.bits);
        EXPECT_EQ(row.embeddable, FontManager::openFontData(file, "changed")->isEmbeddable())
            << row.bits;
    }
}

/// Two fonts in one file; tables are found from the start of the file.
Core::ByteArray collectionOf(const std::string& first, const std::string& second) {
    Core::ByteArray collection(std::string_view("ttcf\0\1\0\0\0\0\0\2........", 20));
    for (std::size_t face = 0; face < 2; ++face) {
        Core::ByteArray file = FontFiles::read(face == 0 ? first : second);
        const std::size_t start = collection.size();
        for (std::size_t i = 0; i < FontFiles::number(file, 4, 2); ++i) {
            const std::size_t field = 12 + 16 * i + 8;
            FontFiles::setNumber(
                file, field, 4,
                FontFiles::number(file, field, 4) + static_cast<std::uint32_t>(start));
        }
        FontFiles::setNumber(collection, 12 + 4 * face, 4, static_cast<std::uint32_t>(start));
        collection.append(file.data(), file.size());
    }
    return collection;
}

TEST(OpenTypeFont, AFaceOfACollectionIsAFontOfItsOwn) {
    const Core::ByteArray collection = collectionOf(kDejaVuSans, kLiberationSans);
    const auto second = FontManager::openFontData(collection, "collection", 1);
    EXPECT_EQ("LiberationSans", second->getMetrics().postScriptName.toUtf8());
    EXPECT_EQ(1U, second->getFile()->faceIndex);
    const auto alone = FontManager::openFontData(second->getProgramData(), "alone");
    EXPECT_EQ("LiberationSans", alone->getMetrics().postScriptName.toUtf8());
    EXPECT_EQ("74", kerningOf(alone, u"AV"));
    const auto glyph = FontFiles::glyphsOf(second, u"g")[0];
    EXPECT_EQ(FontFiles::outlineOf(*second, glyph), FontFiles::outlineOf(*alone, glyph));
    EXPECT_THROW(FontManager::openFontData(collection, "collection", 2), FontException);
}

/// The tables as they are, under another directory: they may be packed, but need not.
Core::ByteArray packed(const Core::ByteArray& font) {
    constexpr std::size_t kHead = 44;
    constexpr std::size_t kEntry = 20;
    const std::size_t tables = FontFiles::number(font, 4, 2);
    Core::ByteArray result(kHead + tables * kEntry);
    const auto put = [&](std::size_t at, std::size_t value) {
        FontFiles::setNumber(result, at, 4, static_cast<std::uint32_t>(value));
    };
    std::size_t end = result.size();
    std::vector<std::uint8_t> data;
    for (std::size_t i = 0; i < tables; ++i) {
        const std::size_t from = 12 + i * 16;
        const std::size_t to = kHead + i * kEntry;
        const std::size_t length = FontFiles::number(font, from + 12, 4);
        put(to, FontFiles::number(font, from, 4));
        put(to + 4, end);
        put(to + 8, length);
        put(to + 12, length);
        put(to + 16, FontFiles::number(font, from + 4, 4));
        const std::uint8_t* first = font.data() + FontFiles::number(font, from + 8, 4);
        data.insert(data.end(), first, first + length);
        data.resize((data.size() + 3) / 4 * 4);
        end = result.size() + data.size();
    }
    put(0, 0x774F4646);
    put(4, FontFiles::number(font, 0, 4));
    put(8, end);
    put(12, tables << 16);
    put(16, (12 + tables * 16) + data.size());
    std::vector<std::uint8_t> all(result.data(), result.data() + result.size());
    all.insert(all.end(), data.begin(), data.end());
    return Core::ByteArray(std::move(all));
}

Core::ByteArray packedTighter(const Core::ByteArray& font) {
    std::vector<std::uint8_t> packed(woff2::MaxWOFF2CompressedSize(font.data(), font.size()));
    std::size_t length = packed.size();
    EXPECT_TRUE(woff2::ConvertTTFToWOFF2(font.data(), font.size(), packed.data(), &length));
    packed.resize(length);
    return Core::ByteArray(std::move(packed));
}

TEST(OpenTypeFont, IsUnpackedFromWebFonts) {
    for (const char* file : {kLiberationSans, kNimbusRomanCff}) {
        const auto font = FontManager::openFontFile(file);
        const Core::ByteArray bytes = FontFiles::read(file);
        for (const Core::ByteArray& web : {packed(bytes), packedTighter(bytes)}) {
            const auto unpacked = FontManager::openFontData(web, "web font");
            EXPECT_EQ(font->getKind(), unpacked->getKind());
            const auto count = font.dynamicCast<Fonts::OpenTypeFont>()->getGlyphCount();
            for (const std::uint32_t glyph : {36U, 40U, count - 1})
                EXPECT_EQ(FontFiles::outlineOf(*font, glyph),
                          FontFiles::outlineOf(*unpacked, glyph))
                    << file;
            EXPECT_THROW(FontManager::openFontData({web.data(), web.size() / 2}, "half"),
                         FontException);
        }
    }
}

TEST(OpenTypeFont, AFileThatIsNoWholeFontIsRefusedByName) {
    const Core::ByteArray whole = FontFiles::read(kLiberationSans);
    Core::ByteArray noOutlines = whole;
    FontFiles::setNumber(noOutlines, FontFiles::entryOf(whole, "glyf"), 4, 0x58585858);
    const struct {
        Core::ByteArray data;
        const char* reason = "";
    } rows[] = {
        {Core::ByteArray(), "is no TrueType, OpenType or Type 1 font"},
        {Core::ByteArray("wOFF, a compressed font"), "is packed from more than 64 MB"},
        {Core::ByteArray(std::string("wOFF") + std::string(40, '\0')), "is a damaged web font"},
        {Core::ByteArray(std::string("wOF2") + std::string(40, '\0')), "is a damaged web font"},
        {Core::ByteArray(whole.data(), 5), "it has no table head"},
        {Core::ByteArray(whole.data(), 100), "reaches beyond the end of the file"},
        {Core::ByteArray(whole.data(), whole.size() / 2), "reaches beyond the end of the file"},
        {noOutlines, "it has no outlines"},
    };
    for (const auto& row : rows) {
        try {
            FontManager::openFontData(row.data, "broken.ttf");
            ADD_FAILURE() << "opened, but " << row.reason;
        } catch (const FontException& error) {
            EXPECT_TRUE(error.getMessage().starts_with("broken.ttf: ")) << error.what();
            EXPECT_NE(std::string::npos, error.getMessage().find(row.reason)) << error.what();
        }
    }
}

}  // namespace
