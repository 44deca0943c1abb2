#include "Core/MemoryStream.h"
#include "PS/fonts/TTFToType42.h"
#include "PS/internal/Type42Strings.h"
#include "tests/support/Documents.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

#include <map>
#include <numeric>

namespace {

using Core::ByteArray;
using Core::makeObject;
using Core::IO::MemoryStream;
using Drawing::PS::TTFToType42;
using Bytes = std::vector<std::uint8_t>;

void put16(Bytes& out, std::uint32_t value) {
    out.push_back(static_cast<std::uint8_t>(value >> 8));
    out.push_back(static_cast<std::uint8_t>(value));
}

void put32(Bytes& out, std::uint32_t value) {
    put16(out, value >> 16);
    put16(out, value);
}

std::uint32_t get32(const Bytes& in, std::size_t at) {
    return std::uint32_t{in.at(at)} << 24 | std::uint32_t{in.at(at + 1)} << 16 |
           std::uint32_t{in.at(at + 2)} << 8 | in.at(at + 3);
}

/// A TrueType file of the tables given, one behind the other.
ByteArray fontFile(const std::map<std::string, Bytes>& tables) {
    Bytes file;
    put32(file, 0x00010000);
    put16(file, static_cast<std::uint32_t>(tables.size()));
    file.resize(12);
    auto offset = static_cast<std::uint32_t>(12 + 16 * tables.size());
    for (const auto& [tag, bytes] : tables) {
        file.insert(file.end(), tag.begin(), tag.end());
        put32(file, 0);
        put32(file, offset);
        put32(file, static_cast<std::uint32_t>(bytes.size()));
        offset += static_cast<std::uint32_t>(bytes.size());
    }
    for (const auto& [tag, bytes] : tables)
        file.insert(file.end(), bytes.begin(), bytes.end());
    return ByteArray(file);
}

Bytes head(int locaFormat) {
    Bytes bytes(54);
    const auto set = [&](std::size_t at, int value) {
        bytes[at] = static_cast<std::uint8_t>(value >> 8);
        bytes[at + 1] = static_cast<std::uint8_t>(value);
    };
    set(36, -100);
    set(38, -200);
    set(40, 1000);
    set(42, 900);
    set(50, locaFormat);
    return bytes;
}

/// Glyphs of the given lengths, filled with their numbers; `order` is their order in the file.
std::map<std::string, Bytes> tablesOf(const std::vector<std::uint32_t>& lengths,
                                      std::vector<std::size_t> order, int locaFormat) {
    Bytes glyf;
    std::vector<std::uint32_t> offsets(lengths.size() + 1);
    for (const std::size_t glyph : order) {
        offsets[glyph] = static_cast<std::uint32_t>(glyf.size());
        glyf.insert(glyf.end(), lengths[glyph], static_cast<std::uint8_t>(glyph + 1));
    }
    offsets.back() = static_cast<std::uint32_t>(glyf.size());
    Bytes loca;
    for (const std::uint32_t offset : offsets)
        if (locaFormat)
            put32(loca, offset);
        else
            put16(loca, offset / 2);
    Bytes maxp{0, 1, 0, 0};
    put16(maxp, static_cast<std::uint32_t>(lengths.size()));
    return {{"glyf", glyf},        {"loca", loca},
            {"maxp", maxp},        {"head", head(locaFormat)},
            {"hmtx", Bytes(4, 7)}, {"hhea", Bytes(36, 9)}};
}

std::string arrayText(const TTFToType42& font, const char* name = "F1") {
    const auto stream = makeObject<MemoryStream>();
    font.writeGlyphData(*stream, name);
    return std::string(stream->view());
}

/// The strings of an array without the extra byte that ends each.
std::vector<Bytes> stringsOf(const std::string& array) {
    std::vector<Bytes> strings;
    for (std::size_t at = 0; (at = array.find('<', at)) != std::string::npos; ++at) {
        std::string digits = array.substr(at + 1, array.find('>', at) - at - 1);
        std::erase(digits, '\n');
        Bytes bytes;
        for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
            bytes.push_back(static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, 16)));
        if (bytes.size() % 4 == 1)
            bytes.pop_back();
        strings.push_back(bytes);
    }
    return strings;
}

Bytes joined(const std::vector<Bytes>& strings) {
    Bytes all;
    for (const Bytes& bytes : strings)
        all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

std::string stringOf(std::size_t length) {
    const auto stream = makeObject<MemoryStream>();
    Drawing::PS::writeType42String(*stream, Bytes(length, 0xAB));
    return std::string(stream->view());
}

TEST(Type42Strings, AreFilledSplitAndEndWithAnExtraByte) {
    EXPECT_EQ("<ABABABAB00>\n", stringOf(4));
    EXPECT_EQ("<AB00000000>\n", stringOf(1));
    EXPECT_EQ("<" + stringOf(32).substr(1, 64) + "\nAB00000000>\n", stringOf(33));
    EXPECT_EQ(69U, stringOf(32).size()) << "no line end behind the last line";
    const std::string full = stringOf(65504);
    EXPECT_THAT(full, testing::EndsWith("AB>\n<00>\n"));
    EXPECT_EQ(2, std::ranges::count(stringOf(100000), '<'));
}

TEST(Type42, FileIsRebuiltWithItsSums) {
    const TTFToType42 font(fontFile(tablesOf({10, 0, 70, 6}, {0, 1, 2, 3}, 1)));
    ASSERT_TRUE(font.isValid());
    EXPECT_EQ(4, font.getGlyphCount());
    EXPECT_EQ(-100, font.getBoundingBox().xMin);
    EXPECT_EQ(900, font.getBoundingBox().yMax);
    EXPECT_EQ(0U, font.getCmapRecordCount());
    const std::string text = arrayText(font);
    EXPECT_THAT(text, testing::StartsWith("/F1_sfnts[\n<000100000009008000030010"));
    EXPECT_THAT(arrayText(font, ""), testing::StartsWith("/sfnts [\n<"));
    const Bytes file = joined(stringsOf(text));
    EXPECT_EQ(0x00090080U, get32(file, 4));
    EXPECT_EQ(0x00030010U, get32(file, 8));
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < file.size(); i += 4)
        sum += get32(file, i);
    EXPECT_EQ(0xB1B0AFBAU, sum) << "the adjustment makes the whole file's sum";
    std::uint32_t end = 12 + 9 * 16;
    std::string tags;
    for (std::size_t entry = 12; entry < 12 + 9 * 16; entry += 16) {
        tags.append(file.begin() + static_cast<std::ptrdiff_t>(entry),
                    file.begin() + static_cast<std::ptrdiff_t>(entry) + 4);
        EXPECT_EQ(end, get32(file, entry + 8));
        end += (get32(file, entry + 12) + 3) / 4 * 4;
    }
    EXPECT_EQ("cvt fpgmglyfheadhheahmtxlocamaxpprep", tags);
    EXPECT_EQ(file.size(), end);
}

TEST(Type42, GlyphsAreMeasuredByTheNextInTheFileAndAligned) {
    for (const int format : {0, 1}) {
        const TTFToType42 font(fontFile(tablesOf({10, 0, 70, 6}, {3, 0, 1, 2}, format)));
        const std::vector<Bytes> strings = stringsOf(arrayText(font));
        ASSERT_EQ(9U, strings.size()) << "directory, three glyphs, head, hhea, hmtx, loca, maxp";
        EXPECT_EQ(12U, strings[1].size());
        EXPECT_EQ(1, strings[1][9]);
        EXPECT_EQ(0, strings[1][10]);
        EXPECT_EQ(72U, strings[2].size());
        EXPECT_EQ(3, strings[2][0]);
        EXPECT_EQ(8U, strings[3].size());
        const Bytes& loca = strings[7];
        std::vector<std::uint32_t> offsets;
        for (std::size_t i = 0; i < 5; ++i)
            offsets.push_back(format ? get32(loca, i * 4)
                                     : (std::uint32_t{loca[i * 2]} << 8 | loca[i * 2 + 1]) * 2);
        EXPECT_EQ((std::vector<std::uint32_t>{0, 12, 12, 84, 92}), offsets);
    }
}

TEST(Type42, DamagedFilesNeverRaiseNorReadBeyondTheirEnd) {
    const ByteArray whole = fontFile(tablesOf({10, 0, 70, 6}, {0, 1, 2, 3}, 1));
    for (std::size_t size = 0; size < whole.size(); ++size)
        arrayText(TTFToType42(ByteArray(whole.data(), size)));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        ByteArray damaged = whole;
        damaged[at] ^= 0xFF;
        const TTFToType42 font(damaged);
        EXPECT_LT(arrayText(font).size(), 600000U) << at << ": 65,535 glyphs at most";
    }
    EXPECT_FALSE(TTFToType42(ByteArray()).isValid());
}

TEST(Type42, DictionariesNameEveryGlyphOfEveryBlock) {
    auto tables = tablesOf(
        std::vector<std::uint32_t>(600, 4),
        [] {
            std::vector<std::size_t> order(600);
            std::iota(order.begin(), order.end(), 0);
            return order;
        }(),
        1);
    Bytes cmap{0, 0, 0, 1, 0, 3, 0, 1, 0, 0, 0, 12, 0, 4, 0, 4};
    tables["cmap"] = cmap;
    const auto text = [](const std::map<std::string, Bytes>& of) {
        const auto stream = makeObject<MemoryStream>();
        TTFToType42(fontFile(of)).write(stream, u"F1");
        return std::string(stream->view());
    };
    const std::string named = text(tables);
    EXPECT_THAT(named, testing::HasSubstr("/FontName /F1_02 def\n/FontType 42 def\n"
                                          "/FontMatrix [1 0 0 1 0 0] def\n"
                                          "/FontBBox [-100 -200 1000 900] def\n"));
    EXPECT_THAT(named, testing::HasSubstr(
                           "/.notdef 0 def\n/c01 1 def /c02 2 def /c03 3 def /c04 4 def /c05 5 def "
                           "/c06 6 def /c07 7 def \n/c08 8 def "));
    EXPECT_THAT(named, testing::HasSubstr("/c57 599 def \nend readonly def\n"));
    EXPECT_THAT(named, testing::EndsWith("/F1_00 findfont\n/F1_01 findfont\n/F1_02 findfont\n"
                                         "] def\nFontName currentdict end definefont pop\n"));
    tables.erase("cmap");
    EXPECT_THAT(text(tables), testing::HasSubstr("/.notdef 0 def\nend readonly def\n"));
    EXPECT_THAT(text(tablesOf(std::vector<std::uint32_t>(512, 0), {}, 1)),
                testing::HasSubstr("/F1_02 findfont\n"))
        << "an empty block at the end";
}

}  // namespace
