#include "Print/fonts/internal/GlyphTable.h"

#include "Print/fonts/internal/ClusterTexts.h"
#include "Print/fonts/internal/GlyphNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

namespace {

using Drawing::Print::GlyphCode;
using Drawing::Print::GlyphTable;

std::vector<std::string> namesOf(const GlyphTable& table, std::size_t part = 0) {
    std::vector<std::string> names;
    for (const auto& glyph : Drawing::Print::nameGlyphs(table.parts()[part]))
        names.push_back(glyph.name);
    return names;
}

TEST(GlyphTable, AGlyphHasACodeForEachOfItsTextsAndKeepsIt) {
    GlyphTable table;
    EXPECT_EQ((GlyphCode{0, 'A'}), table.encode(36, U'A'));
    const GlyphCode alpha = table.encode(36, U'\u0391');
    const GlyphCode both = table.encode(36, U"AA");
    const GlyphCode silent = table.encode(36, U"");
    EXPECT_EQ(4U, (std::set<int>{'A', alpha.code, both.code, silent.code}).size());
    EXPECT_EQ((GlyphCode{0, 'A'}), table.encode(36, U"A"));
    EXPECT_EQ(alpha, table.encode(36, U'\u0391'));
    EXPECT_EQ(both, table.encode(36, U"AA"));
    EXPECT_EQ(silent, table.encode(36, U""));
    EXPECT_NE((GlyphCode{0, 'A'}), table.encode(37, U'A')) << "another glyph of the same text";
}

TEST(GlyphTable, FillsPartsOf255CodesEachOfThemOnce) {
    GlyphTable table;
    std::set<std::pair<int, int>> codes;
    for (std::uint32_t glyph = 0; glyph < 600; ++glyph) {
        const GlyphCode code = table.encode(glyph, char32_t{0x4E00} + glyph % 500);
        EXPECT_NE(0, code.code);
        codes.emplace(code.part, code.code);
    }
    EXPECT_EQ(600U, codes.size());
    EXPECT_EQ(3U, table.parts().size());
    EXPECT_EQ(255, std::ranges::count_if(table.parts()[1], [](auto* glyph) { return glyph; }));
}

TEST(GlyphNames, TellTheTextAndAreEachTheirOwn) {
    GlyphTable table;
    table.encode(1, U'A');
    table.encode(2, U'\'');
    table.encode(3, U'\u0416');
    table.encode(4, U"ffi");
    table.encode(5, U'\U0001D49C');
    table.encode(6, U'\u0416');
    table.encode(7, U"\u0644\u0627");
    table.encode(8, U"");
    table.encode(9, U"\U0001D49C!");
    const auto names = namesOf(table);
    EXPECT_EQ((std::set<std::string>{"A", "uni0027", "uni0416", "uni006600660069", "u1D49C",
                                     "uni0416.164", "uniFEFB", ".1", ".166"}),
              (std::set<std::string>(names.begin(), names.end())));
    const std::u32string text{0x1D49C, 0xD800, 0x110000};
    EXPECT_EQ(u"\U0001D49C\uFFFD\uFFFD", Drawing::Print::toUtf16(text));
}

TEST(ClusterTexts, GoToGlyphsThatAdvance) {
    using Texts = std::vector<std::u32string_view>;
    using Advances = std::vector<float>;
    const auto share = [](std::u32string_view text, const Advances& advances) {
        return Drawing::Print::shareOut(text, advances);
    };
    EXPECT_EQ((Texts{U"ffi"}), share(U"ffi", {9}));
    EXPECT_EQ((Texts{U"ab", U""}), share(U"ab", {5, 0}));
    EXPECT_EQ((Texts{U"a", U"", U"bc"}), share(U"abc", {5, 0, 4}));
    EXPECT_EQ((Texts{U"a", U"", U""}), share(U"a", {5, 4, 3}));
    EXPECT_EQ((Texts{U"ab", U""}), share(U"ab", {0, 0}));
    EXPECT_EQ(Texts{}, share(U"ab", {}));
}

}  // namespace
