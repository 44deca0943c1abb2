#include "Core/StringFormatStream.h"

#include "tests/support/Raises.h"

#include <cmath>
#include <cstdint>

namespace {

using Core::StringFormatStream;

std::string filled(const StringFormatStream& stream) {
    return stream.str().toUtf8();
}

TEST(StringFormatStream, FillsPlacesAndLeavesOtherBracesAlone) {
    EXPECT_EQ("1 -2 1", filled(StringFormatStream(u"{0} {1} {0}") << 1 << -2));
    EXPECT_EQ("/F12\n{ 0.5 {",
              filled(StringFormatStream(u"/{0}\n{ {1} {") << Core::String(u"F12") << 0.5F));
    EXPECT_EQ(
        "16 8 1 [16 0 0 8 0 0]{Img} image",
        filled(StringFormatStream(u"{0} {1} 1 [{0} 0 0 {1} 0 0]{{2}} image") << 16 << 8 << u"Img"));
    EXPECT_EQ("{x} {0", filled(StringFormatStream(u"{x} {0")));
    EXPECT_EQ("{1}", filled(StringFormatStream(u"{0}") << u"{1}")) << "arguments are no templates";
}

TEST(StringFormatStream, PrintsDigitsOfAGivenBase) {
    const auto hex = [](auto value) { return filled(StringFormatStream(u"{0:X02}") << value); };
    const auto octal = [](auto value) { return filled(StringFormatStream(u"{0:O03}") << value); };
    EXPECT_EQ("00", hex(0));
    EXPECT_EQ("0F", hex(std::uint8_t{15}));
    EXPECT_EQ("FFF", hex(4095));
    EXPECT_EQ("FFFFFFFF", hex(-1));
    EXPECT_EQ("FFFFFFFFFFFFFFFF", hex(~std::uint64_t{0}));
    EXPECT_EQ("101", octal(65));
    EXPECT_EQ("000", octal(0));
    EXPECT_EQ("37777777777", octal(std::int64_t{-1}));
}

TEST(StringFormatStream, RefusesWhatItCannotFill) {
    const std::string here = "StringFormatStream:1";
    EXPECT_RAISES(Core::FormatException, here, filled(StringFormatStream(u"{1}") << 1));
    EXPECT_RAISES(Core::FormatException, here, filled(StringFormatStream(u"{0:X02}") << 1.5));
    EXPECT_RAISES(Core::NumberRangeException, "NumberText:1",
                  StringFormatStream(u"{0}") << HUGE_VALF);
}

}  // namespace
