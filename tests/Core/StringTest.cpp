#include "Core/String.h"

#include "Core/Encoder.h"
#include "Core/Format.h"
#include "Core/Unicode.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using Core::Encoder;
using Core::String;
namespace Unicode = Core::Unicode;

TEST(String, ComparesAndSearchesByCodeUnit) {
    EXPECT_LT(String(u"F10").compare(u"F9"), 0);
    EXPECT_GT(String(u"\uFFFD").compare(u"\xD83D\xDE00"), 0) << "units, not characters";
    EXPECT_TRUE(String(u"TIMES-roman").equalsNoCase(u"Times-Roman"));
    EXPECT_FALSE(String(u"Times").equalsNoCase(u"Times-Roman"));
    EXPECT_EQ(3U, String(u"a_b_c").rFind(u'_'));
    EXPECT_EQ(String(u"c"), String(u"a_b_c").subString(4));
    EXPECT_EQ(String(), String(u"a").subString(7));
    EXPECT_EQ(String(u"Deep#20Blue#202"), String(u"Deep Blue 2").replace(u" ", u"#20"));
}

TEST(String, ConvertsToUtf8AndBack) {
    const std::string mixed = "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD";
    EXPECT_EQ(mixed, String(mixed).toUtf8());
    EXPECT_EQ(6U, String(mixed).length());
    const String edges = u"\x7F\x80\x7FF\x800\uD7FF\uE000\uFFFF\xD800\xDC00\xDBFF\xDFFF";
    EXPECT_EQ(
        "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
        "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
        edges.toUtf8());
    EXPECT_EQ(edges, String(edges.toUtf8()));
    EXPECT_EQ("\xC2\x80", Encoder::convertStringToMultibyte(u"\x80").view());
    EXPECT_EQ(mixed, Encoder::convertStringToMultibyte(String(mixed)).view());
    EXPECT_EQ("a\xEF\xBF\xBD", String(u"a\xD800").toUtf8()) << "a lone surrogate";
    for (const char* malformed :
         {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        EXPECT_EQ(u'\uFFFD', String(malformed)[0]) << malformed;
    EXPECT_EQ(String(u"\uFFFDA"), String("\xE2"
                                         "A"))
        << "what follows is kept";
}

TEST(Unicode, KeepsEveryCharacterInBothForms) {
    for (char32_t character = 0; character <= Unicode::kLast; ++character) {
        if (Unicode::isSurrogate(character))
            continue;
        const std::u16string units = Unicode::toUtf16(character);
        std::size_t at = 0;
        ASSERT_EQ(character, Unicode::next(units, at));
        ASSERT_EQ(units.size(), at);
        std::string bytes;
        Unicode::appendUtf8(bytes, character);
        ASSERT_EQ(units, Encoder::utf16FromUtf8(bytes)) << std::hex << unsigned{character};
    }
}

TEST(Unicode, TakesHalfAPairForItself) {
    const std::u16string units{0xD83D, 0xD83D, 0xDE00, 0xDE00, 0xD83D};
    std::vector<char32_t> characters;
    for (std::size_t at = 0; at < units.size();)
        characters.push_back(Unicode::next(units, at));
    EXPECT_THAT(characters, testing::ElementsAre(0xD83D, 0x1F600, 0xDE00, 0xD83D));
}

TEST(Format, ParsesWholeIntegersOnly) {
    EXPECT_EQ(-12, Core::Format::parseInt(u"-12"));
    for (const char* wrong : {"", "x", "1 ", " 1", "1.5", "+1", "2147483648"})
        EXPECT_RAISES(Core::FormatException, "Format:1", Core::Format::parseInt(wrong)) << wrong;
}

}  // namespace
