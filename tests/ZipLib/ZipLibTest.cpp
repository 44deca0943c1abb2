#include "ZipLib/ByteArrayZipper.h"
#include "ZipLib/GzipReader.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Core::FormatException;
using ZipLib::ByteArrayZipper;
using ZipLib::GzipReader;

std::string gzip(const std::string& content) {
    return outputOf("gzip -9", content);
}

/// What an interpreter makes of a zlib stream.
std::string inflated(std::string_view stream) {
    return outputOf(
        "gs -q -dSAFER -dBATCH -dNODISPLAY -c '"
        "/in (%stdin) (r) file /FlateDecode filter def /out (%stdout) (w) file def "
        "/some 4096 string def { in some readstring exch out exch writestring "
        "not { exit } if } loop out flushfile quit'",
        stream);
}

std::string unpacked(const std::string& bytes, std::size_t most = 1 << 20) {
    return GzipReader::unpack(bytes, most);
}

TEST(ByteArrayZipper, WritesStreamsThatOthersRead) {
    std::string ramp(50000, '\0');
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<char>(i * i >> 7);
    for (const std::string& content : {std::string(), std::string("a"), ramp}) {
        const Core::ByteArray stream = ByteArrayZipper::compress(Core::ByteArray(content));
        EXPECT_EQ(content, inflated(stream.view()));
    }
    EXPECT_LT(ByteArrayZipper::compress(Core::ByteArray(1 << 20)).size(), 2000U);
}

TEST(GzipReader, UnpacksAllMembersWhateverTheirSizes) {
    std::string large(200000, 'x');
    large += "the end";
    const std::string empty = gzip("");
    EXPECT_EQ("", unpacked(empty));
    EXPECT_EQ(large, unpacked(gzip(large))) << "far smaller than what it holds";
    EXPECT_EQ("one" + large + "two",
              unpacked(gzip("one") + empty + gzip(large) + gzip("two") + "padding"));
    std::string many;
    std::string content;
    for (const std::string piece = gzip("piece"); many.size() < 3000000; content += "piece")
        many += piece;
    EXPECT_EQ(content, unpacked(many)) << "in no time, though they are a hundred thousand";
}

TEST(GzipReader, RefusesWhatIsDamagedOrTooLarge) {
    const std::string packed = gzip("four");
    EXPECT_TRUE(GzipReader::isGzip(packed));
    for (const char* other : {"", "\x1f", "\x1f\x8a", "<svg/>"})
        EXPECT_FALSE(GzipReader::isGzip(other));
    EXPECT_EQ("four", unpacked(packed, 4));
    EXPECT_RAISES(FormatException, "GzipReader:2", unpacked(packed, 3));
    EXPECT_RAISES(FormatException, "GzipReader:2",
                  unpacked(gzip(std::string(200000, 'x')), 199999));
    EXPECT_EQ(200000U, unpacked(gzip(std::string(200000, 'x')), 200000).size());
    for (std::size_t length = 2; length < packed.size(); ++length)
        EXPECT_RAISES(FormatException, "GzipReader:1", unpacked(packed.substr(0, length)));
    std::string damaged = packed;
    damaged[packed.size() - 8] ^= 1;
    EXPECT_RAISES(FormatException, "GzipReader:1", unpacked(damaged)) << "a wrong check sum";
}

}  // namespace
