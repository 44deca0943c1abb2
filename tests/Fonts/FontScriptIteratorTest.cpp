#include "Fonts/FontScriptIterator.h"
#include "Fonts/UnicodeRanges.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// "Latn:text|Grek:text|", characters beyond ASCII as they are.
std::string runsOf(const Core::String& text) {
    std::string runs;
    Fonts::FontScriptIterator iterator(text, 0);
    for (Fonts::FontScript run; iterator.next(run);) {
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            runs += static_cast<char>(run.script >> shift & 0xFF);
        runs += ":" + run.text.toUtf8() + "|";
    }
    return runs;
}

TEST(FontScriptIterator, SplitsATextWhereItsScriptChanges) {
    const struct {
        const char16_t* text;
        const char* runs;
    } rows[] = {
        {u"", ""},
        {u"Hello, world 1!", "Latn:Hello, world 1!|"},
        {u"12 + 3", "Zyyy:12 + 3|"},
        {u"(\u03b1\u03b2) abc", "Grek:(\u03b1\u03b2) |Latn:abc|"},
        {u"\u0301\u0416e\u0301\u0416", "Cyrl:\u0301\u0416|Latn:e\u0301|Cyrl:\u0416|"},
        {u"a\U00010400\U00010401b", "Latn:a|Dsrt:\U00010400\U00010401|Latn:b|"},
        {u"a\U0001d400\u3002\u4e00", "Latn:a\U0001d400\u3002|Hani:\u4e00|"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.runs, runsOf(row.text)) << row.runs;
}

TEST(FontScriptIterator, KeepsEveryUnitOfBrokenText) {
    const std::u16string text{u'a', 0xDC00, u'b', 0xD83D};
    std::u16string joined;
    Fonts::FontScriptIterator iterator(text, 0);
    for (Fonts::FontScript run; iterator.next(run);)
        joined += run.text.view();
    EXPECT_EQ(text, joined);
    Fonts::FontScript untouched{u"before", 7};
    EXPECT_FALSE(iterator.next(untouched));
    EXPECT_EQ(7U, untouched.script);
}

TEST(UnicodeRanges, MarksOfAllThreeCategoriesAndNothingElse) {
    for (const int mark : {0x0300, 0x036F, 0x0903, 0x20DD, 0x302A, 0xFE0F})
        EXPECT_TRUE(Fonts::UnicodeRanges::isMark(static_cast<char16_t>(mark))) << mark;
    for (const int other : {0x0000, 0x0041, 0x00A8, 0x02FF, 0x0E3F, 0x200D, 0xD834, 0xDD65})
        EXPECT_FALSE(Fonts::UnicodeRanges::isMark(static_cast<char16_t>(other))) << other;
}

}  // namespace
