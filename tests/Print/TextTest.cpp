#include "tests/Print/PrintedDocument.h"

#include "Core/Log.h"
#include "Drawing/Font.h"
#include "Fonts/FontManager.h"
#include "Fonts/GlyphSink.h"
#include "Print/PrintException.h"
#include "tests/support/FakeFont.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using Core::makeObject;
using Drawing::Font;
using Drawing::XPointF;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintException;
using Drawing::Print::PrintSettings;
using testing::HasSubstr;

namespace {

/// Says that no document may carry it; its glyphs are squares on the baseline.
class RestrictedFont : public FakeFont {
public:
    RestrictedFont() : FakeFont(Fonts::FontKind::trueType, "Restricted") {}

    void decomposeGlyph(GlyphId /*glyph*/, Fonts::GlyphSink& sink) const override {
        sink.moveTo(100, 0);
        sink.lineTo(900, 0);
        sink.lineTo(900, 800);
        sink.lineTo(100, 800);
        sink.close();
    }
};

Draw textOf(const char16_t* family, const char16_t* text, float size = 12, float spacing = 0) {
    return [=](PrintDocument& document) {
        document.setFill(paintOf(0, 0, 0));
        document.setFont(makeObject<Font>(family, size));
        document.drawText(text, 0, 10, 50, spacing, false);
    };
}

}  // namespace

TEST(PrintText, showsRunsAsShortAsTheyCanBeSaid) {
    EXPECT_EQ(contentOf(textOf(u"Helvetica", u"a(b)\\")), "/F1_0 12 tf\n10 50 m(a\\(b\\)\\\\)t\n");
    EXPECT_EQ(contentOf(textOf(u"Helvetica", u"AVA")),
              "/F1_0 12 tf\n10 50 m[(A)-.84(V)-.96(A)]T\n");
    EXPECT_EQ(contentOf(textOf(u"Helvetica", u"abc", 12, 1.5F)),
              "/F1_0 12 tf\n10 50 m 1.5 0(abc)a\n");
    EXPECT_EQ(contentOf(textOf(u"Helvetica", u"AVA", 12, 1)),
              "/F1_0 12 tf\n10 50 m[(A)-.84(V)-.96(A)]1 A\n");
    PrintSettings plain;
    plain.kerning = false;
    EXPECT_EQ(contentOf(textOf(u"Helvetica", u"AVA"), plain), "/F1_0 12 tf\n10 50 m(AVA)t\n");
}

TEST(PrintText, isFoundAgainInEveryScript) {
    const std::string document = onePage([](PrintDocument& target) {
        target.setFill(paintOf(0, 0, 0));
        float y = 10;
        for (const char16_t* text : {u"Größe office", u"Ελληνικά", u"Кириллица"}) {
            target.setFont(makeObject<Font>(u"DejaVu Serif", 8.0F));
            target.drawText(text, 0, 5, y += 10, 0, false);
        }
        target.setFont(makeObject<Font>(u"Times-Roman", 8.0F));
        target.drawText(u"“Œuvre” Łódź", 0, 5, 60, 0.5F, false);
    });
    const std::string words = wordsOf(document);
    for (const char* word : {"Größe", "office", "Ελληνικά", "Кириллица", "Œuvre", "Łódź"})
        EXPECT_THAT(words, HasSubstr(word));
}

TEST(PrintText, showsGlyphsWhereTheHostPutsThem) {
    const auto font = makeObject<Font>(u"DejaVu Sans", 10.0F);
    const auto program = Fonts::FontManager::getFont(font);
    const auto glyphs = program->mapGlyphs({u"fix", 0});
    const auto ligature = program->mapGlyphs({u"\uFB01", 0});
    const std::string document = onePage([&](PrintDocument& target) {
        target.setFill(paintOf(0, 0, 0));
        target.setFont(font);
        const std::vector<Fonts::FontProgram::GlyphId> shaped{ligature[0], glyphs[2]};
        const std::vector<XPointF> places{{10, 20}, {16.299F, 20}};
        const std::vector<Core::String> texts{u"fi", u"x"};
        target.drawGlyphs(shaped, places, texts);
        const std::vector<XPointF> stairs{{10, 40}, {20, 45}, {30, 50}};
        target.drawGlyphs(glyphs, stairs, {});
        EXPECT_THROW(target.drawGlyphs(glyphs, places, {}), PrintException);
        EXPECT_THROW(target.drawGlyphs(glyphs, stairs, texts), PrintException);
        EXPECT_THROW(target.drawGlyphs(program, 0, glyphs, stairs, {}), PrintException);
        EXPECT_THROW(target.drawGlyphs(nullptr, 1, glyphs, stairs, {}), PrintException);
        const std::vector<XPointF> nowhere{{10, 40}, {20, std::nanf("")}, {30, 50}};
        EXPECT_THROW(target.drawGlyphs(glyphs, nowhere, {}), PrintException);
    });
    EXPECT_THAT(wordsOf(document), HasSubstr("fix"));
    EXPECT_THAT(document, HasSubstr("10 20 m("));
    EXPECT_THAT(document, HasSubstr("20 45 m("));
}

TEST(PrintText, isPaintedStrokedOrBoth) {
    const Draw draw = [](PrintDocument& document) {
        document.setFill(paintOf(255, 0, 0));
        document.setStroke(lineOf(4));
        document.setFont(makeObject<Font>(u"Helvetica-Bold", 80.0F));
        document.drawText(u"IL", 0, 10, 80, 4, false);
    };
    const Picture page = shown(draw);
    EXPECT_EQ(page.at(21, 50), (Picture::Pixel{255, 0, 0})) << "inside the stem";
    EXPECT_EQ(page.at(15, 50), kBlack) << "its outline";
    const Picture outline = shown([&](PrintDocument& document) {
        draw(document);
        document.setFill(paintOf(255, 255, 255));
        document.drawRectangle(0, 0, 100, 100, 0, 0);
        document.setFill(nullptr);
        document.drawText(u"IL", 0, 10, 80, 4, false);
    });
    EXPECT_EQ(outline.at(21, 50), kWhite);
    EXPECT_EQ(outline.at(15, 50), kBlack);
    EXPECT_EQ(outline.at(42, 50), page.at(42, 50)) << "spacing moves outlines as it moves text";
}

TEST(PrintText, drawsFontsThatMayNotBeEmbeddedByTheirOutlines) {
    std::vector<std::string> warnings;
    const auto before =
        Core::Log::setSink([&](const Core::String& text) { warnings.push_back(text.toUtf8()); });
    const auto program = makeObject<RestrictedFont>();
    const Picture page = shown([&](PrintDocument& document) {
        document.setFill(paintOf(0, 0, 255));
        const std::vector<Fonts::FontProgram::GlyphId> glyphs{1};
        const std::vector<XPointF> places{{20, 80}};
        document.drawGlyphs(program, 50, glyphs, places, {});
        document.drawGlyphs(program, 50, glyphs, places, {});
    });
    Core::Log::setSink(before);
    EXPECT_EQ(page.at(40, 60), (Picture::Pixel{0, 0, 255}));
    EXPECT_EQ(page.at(40, 85), kWhite) << "upright: nothing below the baseline";
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_THAT(warnings[0], HasSubstr("outlines"));
}
