#include "Fonts/Type1Font.h"

#include "Fonts/FontException.h"
#include "tests/Fonts/FontFiles.h"
#include "tests/Fonts/FreeTypeFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using FontFiles::kNimbusRomanBare;
using FontFiles::kNimbusRomanSegments;
using Fonts::FontException;
using Fonts::FontManager;

/// Clear, encrypted, clear.
std::vector<std::string> partsOf(const Core::ByteArray& segments) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at + 6 < segments.size();) {
        EXPECT_EQ(parts.size() == 1 ? 0x8002U : 0x8001U, FontFiles::number(segments, at, 2));
        std::size_t length = 0;
        for (std::size_t i = 6; i > 2; --i)
            length = length << 8 | segments[at + i - 1];
        parts.emplace_back(segments.view().substr(at + 6, length));
        at += 6 + length;
    }
    return parts;
}

std::string hexadecimal(const std::string& bytes) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[i]);
        text += {digits[byte >> 4], digits[byte & 15]};
        if (i % 32 == 31)
            text += '\n';
    }
    return text;
}

std::string withOtherLineEnds(const std::string& text) {
    std::string lines;
    for (const char letter : text)
        lines += letter == '\n' ? std::string("\r\n") : std::string{letter};
    return lines;
}

Core::ByteArray fileWithoutSegments(const std::vector<std::string>& parts,
                                    const std::string& encrypted) {
    return Core::ByteArray(std::string_view(withOtherLineEnds(parts[0]) + encrypted + "\r\n" +
                                            withOtherLineEnds(parts[2])));
}

TEST(Type1Font, ReadsNamesCharactersAndFigures) {
    const auto font = FontManager::openFontFile(kNimbusRomanBare);
    EXPECT_EQ(Fonts::FontKind::type1, font->getKind());
    EXPECT_TRUE(font->isEmbeddable());
    EXPECT_EQ("NimbusRoman-Regular", font->getMetrics().postScriptName.toUtf8());
    EXPECT_EQ("Nimbus Roman", font->getMetrics().familyName.toUtf8());
    EXPECT_EQ(662, font->getMetrics().capHeight);
    EXPECT_EQ("A eacute Euro afii10024 - ", FontFiles::namesOf(font, u"A\u00e9\u20ac\u0416\u4e00"));
    EXPECT_EQ(722, font->getAdvance(FontFiles::glyphsOf(font, u"A")[0]));
    EXPECT_EQ("", FontFiles::outlineOf(*font, FontFiles::glyphsOf(font, u" ")[0]));
    EXPECT_EQ(0U, FontFiles::outlineOf(*font, FontFiles::glyphsOf(font, u"o")[0]).find("M "));
    EXPECT_FALSE(font->getFile());
}

TEST(Type1Font, KernsByTheFileOfFiguresBesideIt) {
    const auto font = FontManager::openFontFile(kNimbusRomanBare);
    EXPECT_EQ("128", FontFiles::kerningOf(font, u"AV"));
    EXPECT_EQ("-", FontFiles::kerningOf(font, u"HH"));
    const auto glyphs = FontFiles::glyphsOf(font, u"AV");
    EXPECT_FALSE(font->getKerning(glyphs[0], glyphs[1], true));
    EXPECT_FALSE(font->getKerning(glyphs[0], Fonts::FontProgram::kMissingGlyph, false));
    EXPECT_EQ("-", FontFiles::kerningOf(FontManager::openFontFile(kNimbusRomanSegments), u"AV"))
        << "no such file";
}

TEST(Type1Font, EveryFormOfTheProgramComesOutInSegments) {
    const Core::ByteArray fromSegments =
        FontManager::openFontFile(kNimbusRomanSegments)->getProgramData();
    const auto segmented = partsOf(fromSegments);
    const auto bare = partsOf(FontManager::openFontFile(kNimbusRomanBare)->getProgramData());
    ASSERT_EQ(3U, segmented.size());
    ASSERT_EQ(3U, bare.size());
    EXPECT_TRUE(segmented[0].ends_with("currentfile eexec\n"));
    EXPECT_EQ(segmented[0], bare[0]);
    EXPECT_EQ(132087U, segmented[1].size());
    EXPECT_EQ(segmented[1].size(), bare[1].size()) << "the same program, encrypted anew";
    EXPECT_EQ(segmented[2], bare[2]);
    EXPECT_EQ(std::string::npos, (bare[0] + bare[2]).find('\r'));

    for (const std::string& encrypted : {segmented[1], hexadecimal(segmented[1])})
        EXPECT_EQ(fromSegments,
                  FontManager::openFontData(fileWithoutSegments(segmented, encrypted), "bare")
                      ->getProgramData());
    const FreeTypeFile reference(FontFiles::read(kNimbusRomanBare));
    const FreeTypeFile converted(FontManager::openFontFile(kNimbusRomanBare)->getProgramData());
    for (std::uint32_t glyph = 0; glyph < reference.glyphCount(); glyph += 5)
        EXPECT_EQ(reference.outlineSum(glyph), converted.outlineSum(glyph)) << glyph;
}

TEST(Type1Font, AProgramThatIsCutOffIsRefused) {
    for (const char* file : {kNimbusRomanSegments, kNimbusRomanBare})
        for (const std::size_t length : {20U, 600U, 916U, 2000U, 132000U})
            EXPECT_THROW(
                FontManager::openFontData({FontFiles::read(file).data(), length}, "cut.pfb"),
                FontException)
                << file << " " << length;
    EXPECT_THROW(FontManager::openFontData(Core::ByteArray("%!PS-AdobeFont-1.0: X\n"), "x"),
                 FontException);
    const Core::ByteArray whole = FontFiles::read(kNimbusRomanSegments);
    EXPECT_THROW(FontManager::openFontData({whole.data(), whole.size() - 20}, "cut.pfb"),
                 FontException)
        << "in its trailer";
    Core::ByteArray damaged = whole;
    damaged[6 + whole[2] + 256U * whole[3] + 1] = 7;
    EXPECT_THROW(FontManager::openFontData(damaged, "damaged.pfb"), FontException)
        << "a segment of no known kind";
}

}  // namespace
