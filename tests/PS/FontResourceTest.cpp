#include "Core/MemoryStream.h"
#include "Drawing/Font.h"
#include "PS/fonts/PSStdAdobeFontResource.h"
#include "PS/fonts/PSTTFFontResource.h"
#include "PS/fonts/PSType1FontResource.h"
#include "tests/support/FakeFont.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Core::String;
using Core::UnreacheableCodeException;
using Core::IO::MemoryStream;
using Drawing::PS::PSFontResource;
using Drawing::PS::PSStdAdobeFontResource;
using Drawing::PS::PSTTFFontResource;
using Drawing::PS::PSType1FontResource;
using Fonts::FontKind;
using testing::HasSubstr;

template <class Resource>
SmartPtr<Resource> make(const SmartPtr<FakeFont>& font, bool kerning) {
    return makeObject<Resource>(Drawing::Font("Fake", 10), font, u"Fake", kerning);
}

std::string shown(PSFontResource& resource, const String& text, float size = 10,
                  float spacing = 0) {
    const auto stream = makeObject<MemoryStream>();
    resource.writeText(stream, text, size, spacing);
    return std::string(stream->view());
}

/// The definition, with the resource's number as 1.
std::string defined(PSFontResource& resource) {
    const auto stream = makeObject<MemoryStream>();
    resource.writeResource(stream);
    std::string text(stream->view());
    const std::string name = resource.getResourceName().toUtf8();
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 2))
        text.replace(at, name.size(), "F1");
    return text;
}

TEST(FontResources, AreNumberedThroughTheProcess) {
    const auto font = makeObject<FakeFont>(FontKind::type1);
    const auto first = make<PSStdAdobeFontResource>(font, false);
    const auto second = make<PSTTFFontResource>(font, false);
    EXPECT_EQ(first->getNumber() + 1, second->getNumber());
    EXPECT_EQ(String("F" + std::to_string(first->getNumber())), first->getResourceName());
    EXPECT_EQ(String(u"Fake-PS"), first->getName());
    EXPECT_EQ(String("Fake-400-0+" + std::to_string(second->getNumber())), second->getName());
    EXPECT_EQ(3, first->getKind());
    EXPECT_EQ(2, make<PSType1FontResource>(font, false)->getKind());
    EXPECT_EQ(1, second->getKind());
}

TEST(OneByteCodes, AreGivenOutInOrderOfFirstUseUntilTheyRunOut) {
    const auto resource =
        make<PSStdAdobeFontResource>(makeObject<FakeFont>(FontKind::type1), false);
    const auto run = [](char16_t from, std::size_t count) {
        std::u16string text;
        for (std::size_t i = 0; i < count; ++i)
            text.push_back(static_cast<char16_t>(from + i));
        return String(std::move(text));
    };
    EXPECT_EQ(0, resource->addGlyphs(u""));
    EXPECT_EQ(1, resource->addGlyphs(u"BA"));
    EXPECT_EQ("0 (\\00\\01\\00)", shown(*resource, u"BAB"));
    EXPECT_EQ(0, resource->addGlyphs(u"AB"));
    EXPECT_EQ(2, resource->addGlyphs(run(0x400, 255))) << "one more than is left";
    EXPECT_EQ(2, resource->addGlyphs(run(0x400, 254) + run(0x400, 1))) << "repeats count twice";
    EXPECT_EQ(1, resource->addGlyphs(run(0x400, 254)));
    EXPECT_EQ("0 (\\377)", shown(*resource, run(0x4FD, 1)));
    EXPECT_EQ("0 (\\400)", shown(*resource, u"Z")) << "writing is not bounded";
}

TEST(StandardFont, IsReencodedWithTheGlyphsShown) {
    const auto plain = make<PSStdAdobeFontResource>(makeObject<FakeFont>(FontKind::type1), false);
    EXPECT_EQ("0.5 (\\00\\01)", shown(*plain, u"AV", 10, 0.5F));
    EXPECT_EQ("/F1 /Fake-PS\n[/g65\n/g86\n]\nmakeAdobeStdFont\n", defined(*plain));
    const auto kerned = make<PSStdAdobeFontResource>(makeObject<FakeFont>(FontKind::type1), true);
    EXPECT_EQ("0 (\\00\\01\\00)", shown(*kerned, u"AVA"));
    EXPECT_EQ("0 (\\00\\02)", shown(*kerned, u"A\u0301")) << "marks are not kerned";
    EXPECT_EQ(
        "/F1 /Fake-PS\n[/g65\n/g86\n/g769\n]\nmakeAdobeStdFont\n\n/Fake-PSKern\n[\n"
        "[ /g65 /g86 -70 ]\n] def\n\n",
        defined(*kerned));
}

/// A and B have glyphs of their own; the acute shares B's and stands closer to A as a mark; what
/// else there is has none.
class MarkedFont : public FakeFont {
public:
    MarkedFont() : FakeFont(FontKind::type1) {}
    [[nodiscard]] std::vector<GlyphId> mapGlyphs(const Fonts::FontScript& run) const override {
        std::vector<GlyphId> glyphs;
        for (const char16_t unit : run.text.view())
            glyphs.push_back(unit == u'A'                        ? 1
                             : unit == u'B' || unit == u'\u0301' ? 2
                                                                 : kMissingGlyph);
        return glyphs;
    }
    [[nodiscard]] std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                bool secondIsMark) const override {
        ++questions;
        if (first == 1 && second == 2)
            return secondIsMark ? 70 : 50;
        return second == 1 ? std::optional(20) : std::nullopt;
    }
    mutable int questions = 0;
};

TEST(StandardFont, TheLatestAnswerForAPairCountsAndMissingGlyphsComeFirst) {
    const auto font = makeObject<MarkedFont>();
    const auto table = [&](std::initializer_list<const char16_t*> texts) {
        const auto resource = make<PSStdAdobeFontResource>(font, true);
        for (const char16_t* text : texts)
            shown(*resource, text);
        const std::string definition = defined(*resource);
        return definition.substr(definition.find("Kern\n[\n") + 7);
    };
    EXPECT_EQ("[ /g1 /g2 -50 ]\n] def\n\n", table({u"AB", u"A\u0301", u"AB"}));
    EXPECT_EQ("[ /g1 /g2 -70 ]\n] def\n\n", table({u"AB", u"AB", u"A\u0301"}));
    EXPECT_EQ("[ /g4294967295 /g1 -20 ]\n[ /g2 /g1 -20 ]\n] def\n\n", table({u"BACA"}));
    font->questions = 0;
    table({u"AB", u"AB", u"AB"});
    EXPECT_EQ(1, font->questions) << "the same question is asked once";
}

TEST(Type1Font, CarriesItsKerningInline) {
    const auto font = makeObject<FakeFont>(FontKind::type1);
    EXPECT_EQ("(\\00\\01)", shown(*make<PSType1FontResource>(font, false), u"AV", 10, 2));
    const auto kerned = make<PSType1FontResource>(font, true);
    EXPECT_EQ("[(\\00)-0.7(\\01)(\\00)]", shown(*kerned, u"AVA"));
    EXPECT_EQ("[(\\00)1.3(\\01)2(\\00)]", shown(*kerned, u"AVA", 10, 2));
    EXPECT_EQ("[(\\00)(\\02)]", shown(*kerned, u"A\u0301")) << "marks are asked for as marks";
    EXPECT_EQ("[]", shown(*kerned, u""));
}

std::string segment(char type, const std::string& data) {
    std::string text{'\x80', type};
    for (int shift = 0; shift < 32; shift += 8)
        text.push_back(static_cast<char>(data.size() >> shift));
    return text + data;
}

/// The definition of a font with this program after "AB" was shown.
std::string type1(const std::string& program) {
    const auto font = makeObject<FakeFont>(FontKind::type1);
    font->program = Core::ByteArray(program);
    const auto resource = make<PSType1FontResource>(font, false);
    shown(*resource, u"AB");
    return defined(*resource);
}

const std::string kEncoding =
    "/Encoding 256 array\n0 1 255 {1 index exch /.notdef put} for\n"
    "dup 0 /g65 put \ndup 1 /g66 put \nreadonly def\n";

TEST(Type1Font, HeaderIsRewrittenWithNameAndEncoding) {
    const std::string head = "%%BeginFont:F1\n11 dict begin\n";
    const std::string info =
        "/FontInfo 9 dict dup begin\n%kept\n/FontName inside\nend readonly def\n";
    EXPECT_EQ(head + info + "/FontName /F1 def\n" + kEncoding +
                  "/PaintType 0 def\n"
                  "currentfile eexec\n",
              type1(segment(1, "%!PS-AdobeFont\n11 dict begin\n" + info +
                                   "% gone\n"
                                   "/FontName /Old def\n/Encoding StandardEncoding def\n"
                                   "/PaintType 0 def\ncurrentfile eexec\nrest\n")));
    for (const std::string line : {"\r", "\r\n"}) {
        const std::string program = "11 dict begin" + line + "/FontName /Old def" + line +
                                    "/Encoding 256 array" + line + "0 1 255 {1 index} for" + line +
                                    "dup 65 /A put" + line + "readonly def" + line + "/X 1 def";
        EXPECT_EQ(head + "/FontName /F1 def\n" + kEncoding + "/X 1 def\n",
                  type1(segment(1, program)));
    }
    EXPECT_EQ("one line", type1(segment(1, "one line"))) << "no separator, no rewriting";
    EXPECT_THAT(type1(segment(1, "/Encoding x\n/FontName y\n")), HasSubstr("F1\n/Encoding x\n"))
        << "the name comes first";
}

TEST(Type1Font, EncryptedPartTrailerAndEnd) {
    EXPECT_EQ("00FF\n", type1(segment(2, std::string("\0\xFF", 2))));
    const std::string line(64, '4');
    EXPECT_EQ(line + "\n\n", type1(segment(2, std::string(32, 'D'))));
    EXPECT_EQ(line + "\n44\n%%EndFont\n", type1(segment(2, std::string(33, 'D')) + "\x80\x03"));
    EXPECT_EQ("%0\ncleartomark\n", type1(segment(1, "%0\rcleartomark\r")));
    EXPECT_EQ("", type1(""));
    for (const std::string malformed : {"x", "\x80", "\x80\x04", "\x80\x01", "\x80\x02\x01\x01"})
        EXPECT_RAISES(UnreacheableCodeException, "PSDocument:4", type1(malformed)) << malformed;
    EXPECT_EQ("44\n", type1(segment(2, "DD").substr(0, 7))) << "a length beyond the data is cut";
}

TEST(TrueTypeFont, WritesTwoByteCodes) {
    const auto font = makeObject<FakeFont>(FontKind::trueType);
    const auto plain = [&](const String& text) {
        return shown(*make<PSTTFFontResource>(font, false), text);
    };
    EXPECT_EQ("(\\000A\\001,)", plain(u"A\u012C")) << "65 and 300";
    EXPECT_EQ("(\\000\\(\\000\\)\\000\\\\)", plain(u"()\\"));
    EXPECT_EQ("(\\000\\012\\000~\\000\\177)", plain(u"\n~\x7F"));
    EXPECT_EQ("(\\007\\377\\008\\000)", plain(u"\u07FF\u0800")) << "block 8 has no octal form";
    EXPECT_EQ("(\\000\\000\\000\\37777777777)", plain(u"\uFFFF"));
    const auto kerned = make<PSTTFFontResource>(font, true);
    EXPECT_EQ("[(\\000A)-0.7(\\000V)]", shown(*kerned, u"AV"));
    EXPECT_EQ("[(\\000A)0.5(\\000B)]", shown(*kerned, u"AB", 10, 0.5F));
    EXPECT_EQ("[(\\000)(\\000)(\\000\\37777777777)]", shown(*kerned, u"\uFFFF"));
    EXPECT_EQ("[(\\000)(\\000)(\\000\\37777777777)(\\000)(\\000)0.5(\\000\\37777777777)]",
              shown(*kerned, u"\uFFFF\uFFFF", 10, 0.5F));
    EXPECT_EQ("[(\\000A)(\\003\\001)]", shown(*kerned, u"A\u0301")) << "marks are not kerned";
    EXPECT_EQ(0, kerned->addGlyphs(u"anything"));
}

TEST(TrueTypeFont, ThatMayNotBeEmbeddedWritesItsBeginCommentOnly) {
    const auto font = makeObject<FakeFont>(FontKind::trueType);
    const auto resource = make<PSTTFFontResource>(font, false);
    EXPECT_EQ("%%BeginResource: font " + resource->getName().toUtf8() + "\n", defined(*resource));
}

}  // namespace
