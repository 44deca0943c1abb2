#include "Drawing/Font.h"
#include "Drawing/RasterImage.h"
#include "Drawing/SpotColor.h"
#include "tests/support/Raises.h"

namespace {

using Core::ByteArray;
using Drawing::ColorSpaceType;
using Drawing::Font;
using Drawing::RasterImage;

TEST(Font, KeyTellsDescriptionsApartButNotSizes) {
    EXPECT_EQ(Font("Serif", 9).getHashKey(), Font("Serif", 12).getHashKey());
    const Font odd("A(b)/\xC3\xA9", 9);
    EXPECT_EQ(Core::String::npos, odd.getHashKey().find(u"("));
    EXPECT_EQ(Core::String::npos, odd.getHashKey().find(u"/"));
    EXPECT_NE(odd.getHashKey(), Font("A_b__\xC3\xA9", 9).getHashKey());
    EXPECT_NE(Font("Serif", 9).getHashKey(), Font("Serif", 9, Font::kBold).getHashKey());
    EXPECT_NE(Font("Serif", 9).getHashKey(),
              Font("Serif", 9, Font::kRegular, Drawing::FontSlant::italic).getHashKey());
}

TEST(RasterImage, KeyIsAHashOfEverythingThatIsSeen) {
    const auto key = [](Drawing::PixelSize size, ColorSpaceType space, ByteArray pixels,
                        ByteArray alpha = {}) {
        return RasterImage(size, space, std::move(pixels), std::move(alpha)).getHashKey().toUtf8();
    };
    const ByteArray six(6);
    const std::string base = key({2, 1}, ColorSpaceType::rgb, six);
    EXPECT_EQ(32U, base.size());
    EXPECT_EQ(base, key({2, 1}, ColorSpaceType::rgb, six));
    EXPECT_NE(base, key({1, 2}, ColorSpaceType::rgb, six));
    EXPECT_NE(base, key({6, 1}, ColorSpaceType::gray, six));
    const std::string clear = key({2, 1}, ColorSpaceType::rgb, six, ByteArray(2));
    EXPECT_NE(base, clear);
    EXPECT_NE(clear, key({2, 1}, ColorSpaceType::rgb, six, ByteArray("\0\1", 2)));
    EXPECT_NE(base, key({2, 1}, ColorSpaceType::rgb, ByteArray("\0\0\0\0\0\1", 6)));
    EXPECT_RAISES(Core::FormatException, "RasterImage:1", key({2, 2}, ColorSpaceType::rgb, six));
    EXPECT_RAISES(Core::FormatException, "RasterImage:1",
                  key({2, 1}, ColorSpaceType::rgb, six, ByteArray(1)));
}

}  // namespace
