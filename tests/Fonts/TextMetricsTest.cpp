#include "Fonts/TextMetrics.h"

#include "tests/Fonts/FontFiles.h"

#include <gtest/gtest.h>

namespace {

using Fonts::measureText;

/// "AV" is two advances of 667 and a pair that is moved together by 70 (the AFM file of the font).
TEST(TextMetrics, WidthCountsKerningAndSpacing) {
    const auto font = FontFiles::describe(u"Helvetica");
    const float size = font->getFontSize();
    EXPECT_FLOAT_EQ((667 + 667 - 70) * size / 1000, measureText(font, u"AV").width);
    EXPECT_FLOAT_EQ((667 + 667) * size / 1000, measureText(font, u"AV", 0, false).width);
    EXPECT_FLOAT_EQ((667 + 667 - 70) * size / 1000 + 2 * 1.5F,
                    measureText(font, u"AV", 1.5F).width);
}

TEST(TextMetrics, HeightsAreTheFontsOwn) {
    const auto program = Fonts::FontManager::openFontFile(FontFiles::kDejaVuSans);
    const Fonts::TextMetrics metrics = measureText(*program, 20, u"");
    EXPECT_EQ(0, metrics.width);
    EXPECT_FLOAT_EQ(program->getMetrics().ascent / 50, metrics.ascent);
    EXPECT_LT(metrics.descent, 0);
    EXPECT_GT(metrics.capHeight, metrics.xHeight);
    EXPECT_GT(metrics.underlineThickness, 0);
}

/// A character of two units is one advance, and a mark stands on its base, not behind it.
TEST(TextMetrics, CharactersAreMeasuredNotUnits) {
    const auto program = Fonts::FontManager::openFontFile(FontFiles::kDejaVuSans);
    const auto widthOf = [&](const Core::String& text) {
        return measureText(*program, 10, text).width;
    };
    EXPECT_FLOAT_EQ(2 * widthOf(u"\U0001D538"), widthOf(u"\U0001D538\U0001D538"));
    EXPECT_GT(widthOf(u"\U0001D538"), 0);
}

}  // namespace
