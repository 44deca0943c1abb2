#include "Drawing/Font.h"
#include "Fonts/FontManager.h"
#include "tests/support/Documents.h"
#include "tests/support/FakeFont.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Core::String;
using Drawing::Font;
using Drawing::FontSlant;
using Fonts::FontKind;
using testing::EndsWith;
using testing::HasSubstr;

const std::string kRed = " 0.99609375 0 0 setrgbcolor\n";
const std::string kRedStroke = " 1 w\n0 J\n10 M\n" + kRed + "s\n";

/// A font of the kind, under a family of its own: type 1 without a program is a standard font.
SmartPtr<Font> fontOf(FontKind kind, bool standard = false) {
    static int families = 0;
    const String family("Text" + std::to_string(++families));
    Fonts::FontManager::registerFont(
        family, Font::kRegular, FontSlant::upright,
        makeObject<FakeFont>(kind, standard ? "helvetica" : "Fake-PS"));
    return makeObject<Font>(family, 10.5F);
}

struct Look {
    bool fill = false;
    bool stroke = false;
    bool kerning = false;
    float opacity = 1;
};

/// What a run of "A" at (1, 2) writes behind its operand.
std::string shownWith(const SmartPtr<Font>& font, const Look& look) {
    const auto context = makeObject<OpenDocument>(makeObject<Core::IO::MemoryStream>().get(),
                                                  Drawing::SizeF{10, 10}, look.kerning);
    context->setFont(font);
    context->setFill(look.fill ? rgb(255, 0, 0, look.opacity) : nullptr);
    context->setStroke(look.stroke ? line(rgb(255, 0, 0), 1) : nullptr);
    context->drawText(u"A", 5, 1, 2, 0, true);
    const std::string text = normalised(context->script());
    EXPECT_THAT(text, testing::StartsWith("q\n[1 0 0 1 0 0] cm\n10.5 /F1 Tf\n"));
    const auto operand = text.find(" Tf\n") + 4;
    return text.substr(text.find(')', operand) + (text[operand] == '[' ? 2 : 1));
}

TEST(Text, OfAnEmbeddedFontInEveryPaint) {
    for (const FontKind kind : {FontKind::trueType, FontKind::type1}) {
        const auto font = fontOf(kind);
        const auto shown = [&](const Look& look) { return shownWith(font, look); };
        EXPECT_EQ(" 1 2 Tj\nQ\n", shown({}));
        EXPECT_EQ("1 2 m\nq\nTjfill\n" + kRed + "f\nQ\npop\nQ\n", shown({.fill = true}));
        EXPECT_EQ("1 2 m\nq\nTjfill\nQ\npop\nQ\n", shown({.fill = true, .opacity = 0}));
        EXPECT_EQ("1 2 m\nq\nTjfill\n" + kRed + "f\nQ\nq\nTjstroke\n" + kRedStroke + "Q\nQ\n",
                  shown({.fill = true, .stroke = true}));
        EXPECT_EQ("1 2 m\nq\nTjstroke\n" + kRedStroke + "Q\nQ\n", shown({.stroke = true}));
        EXPECT_EQ(
            "1 2 m\nq\nTjfillKern\n" + kRed + "f\nQ\nq\nTjstrokeKern\n" + kRedStroke + "Q\nQ\n",
            shown({.fill = true, .stroke = true, .kerning = true}));
    }
}

TEST(Text, OfAStandardFontIsNeverStroked) {
    const auto font = fontOf(FontKind::type1, true);
    const auto shown = [&](const Look& look) { return shownWith(font, look); };
    const std::string kern = "{ helveticaKern kernfunc } exch kshow\npop\n";
    EXPECT_EQ(" 1 2 Tj\nQ\n", shown({}));
    EXPECT_EQ("1 2 m\nq\n" + kRed + "Tjfill\n" + kRed + "f\nQ\npop\nQ\n", shown({.fill = true}));
    EXPECT_EQ("1 2 m\nq\nTjfill\nQ\npop\nQ\n", shown({.fill = true, .opacity = 0}));
    EXPECT_EQ("1 2 m\nq\n" + kRed + "Tjfill\n" + kRed + "f\nQ\nQ\n",
              shown({.fill = true, .stroke = true}));
    EXPECT_EQ("1 2 m\nQ\n", shown({.stroke = true}));
    EXPECT_EQ("1 2 m\nq\n" + kRed + kern + "Q\nQ\n", shown({.fill = true, .kerning = true}));
    EXPECT_EQ("1 2 m\nq\n" + kern + "Q\nQ\n", shown({.fill = true, .kerning = true, .opacity = 0}));
}

/// The numbers of the resources that runs of the texts select.
std::vector<int> selected(OpenDocument& d, const std::vector<String>& texts) {
    std::vector<int> numbers;
    for (const String& text : texts) {
        const auto before = d.script().size();
        d.drawText(text, 0, 0, 0, 0, false);
        const std::string line = d.script().substr(before);
        numbers.push_back(std::stoi(line.substr(line.find("/F") + 2)));
    }
    return numbers;
}

String characters(char16_t from, std::size_t count) {
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i)
        text.push_back(static_cast<char16_t>(from + i));
    return {std::move(text)};
}

TEST(Fonts, ARunGoesWholeToTheFirstResourceThatTakesIt) {
    const auto context = makeContext();
    context->setFont(fontOf(FontKind::type1, true));
    const auto numbers =
        selected(*context, {characters(0x400, 200), characters(0x500, 100), characters(0x400, 200),
                            characters(0x500, 100), characters(0x600, 56), characters(0x700, 160)});
    EXPECT_EQ(numbers[0] + 1, numbers[1]);
    EXPECT_EQ(numbers[0], numbers[2]);
    EXPECT_EQ(numbers[1], numbers[3]);
    EXPECT_EQ(numbers[0], numbers[4]);
    EXPECT_EQ(numbers[1] + 1, numbers[5]) << "the second has 156 codes left";
    context->setFont(fontOf(FontKind::trueType));
    const auto same = selected(*context, {characters(0x400, 300), characters(0x600, 300)});
    EXPECT_EQ(same[0], same[1]);
}

TEST(Fonts, WithCffOutlinesLeaveThePreviousOneSelected) {
    const auto context = makeContext();
    const auto cff = fontOf(FontKind::openTypeCff);
    context->setFont(cff);
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118",
                  context->drawText(u"A", 0, 0, 0, 0, false));
    EXPECT_THAT(context->script(), EndsWith("cm\n"));
    context->setFont(fontOf(FontKind::trueType));
    const auto first = selected(*context, {u"A"});
    context->setFont(cff);
    EXPECT_EQ(first, selected(*context, {u"A"}));
    context->setFont(nullptr);
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118",
                  context->drawText(u"A", 0, 0, 0, 0, false));
}

TEST(Text, InAStandardFontIsKernedAndCanBeReadBack) {
    const std::string document = finished(
        [](OpenDocument& d) {
            d.startPage({200, 50});
            d.setTransform({});
            d.setStroke(nullptr);
            d.setFill(rgb(0, 0, 0));
            d.setFont(makeObject<Font>(u"Helvetica", 20.0F));
            d.drawText(u"AVATAR (To)", 0, 10, 30, 0, false);
            d.endPage();
        },
        true);
    expectApproved("standard-text.ps", document);
    EXPECT_EQ("", interpret(document).messages);
    EXPECT_THAT(outputOf("ps2pdf - - | pdftotext - -", document), HasSubstr("AVATAR (To)"));
}

}  // namespace
