#include "Drawing/TintedImage.h"
#include "tests/Print/images/PrintedPictures.h"
#include "tests/support/Raises.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>
#include <sstream>

namespace {

using Core::ByteArray;
using Core::makeObject;
using Drawing::ColorSpaceType;
using Drawing::TintedImage;
using Drawing::Print::ColorConverter;
using Bytes = PrintedPictures::Bytes;
using Pixel = Picture::Pixel;

constexpr Pixel kPaper{255, 255, 0};
constexpr Pixel kInk{0, 0, 255};
constexpr Pixel kBlack{0, 0, 0};
constexpr Pixel kWhite{255, 255, 255};

/// Bytes with rows that suit each of the row filters, and noise.
Bytes variedPixels(int width, int height, int components) {
    std::mt19937 random(5);
    Bytes bytes;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int i = 0; i < components; ++i)
                bytes.push_back(static_cast<std::uint8_t>(
                    std::array{7 * x + 40 * i, 7 * x + 40 * i + 3, 9 * x * i, 200,
                               static_cast<int>(random()), x * y}
                        .at(static_cast<std::size_t>(y % 6))));
    return bytes;
}

TEST(Pictures, EveryPixelArrivesOnceAndShared) {
    PrintedPictures prints;
    const Bytes rgb = variedPixels(37, 31, 3);
    const Bytes grey = variedPixels(39, 13, 1);
    const auto color =
        prints.store().add(PrintedPictures::image(37, 31, ColorSpaceType::rgb, rgb), 0);
    const auto shared =
        prints.store().add(PrintedPictures::image(39, 13, ColorSpaceType::gray, grey), 0);
    prints.show(shared, 39, 13);
    prints.show(color, 37, 31);
    prints.show(shared, 39, 13);
    EXPECT_FALSE(prints.store().isShared(color));
    EXPECT_TRUE(prints.store().isShared(shared));
    const Picture page = prints.rendered();
    for (int y = 0; y < 31; ++y)
        for (int x = 0; x < 37; ++x) {
            const auto at = 3 * (37 * static_cast<std::size_t>(y) + static_cast<std::size_t>(x));
            ASSERT_EQ((Pixel{rgb[at], rgb[at + 1], rgb[at + 2]}), page.at(x, 13 + y))
                << x << " " << y;
        }
    for (int y = 0; y < 13; ++y)
        for (int x = 0; x < 39; ++x) {
            const std::uint8_t value =
                grey[39 * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)];
            ASSERT_EQ((Pixel{value, value, value}), page.at(x, y)) << x << " " << y;
            ASSERT_EQ((Pixel{value, value, value}), page.at(x, 44 + y)) << x << " " << y;
        }
    EXPECT_EQ(kPaper, page.at(38, 20));
}

/// More than is compressed at a time, of kinds that are compressed in different ways.
TEST(Pictures, LargeOnesOfNoiseAndLettersArriveWhole) {
    constexpr int kSide = 700;
    std::mt19937 random(3);
    Bytes pixels;
    for (int i = 0; i < kSide * kSide * 3; ++i)
        pixels.push_back(static_cast<std::uint8_t>(i / (kSide * 3) % 400 < 200 ? random()
                                                   : i % 5000 < 40 ? static_cast<unsigned>(i * 37)
                                                                   : 255U));
    PrintedPictures prints;
    prints.show(
        prints.store().add(PrintedPictures::image(kSide, kSide, ColorSpaceType::rgb, pixels), 0),
        kSide, kSide);
    EXPECT_EQ(pixels, prints.rendered().bytes);
    EXPECT_LT(prints.page().size(), pixels.size() * 3 / 4);
    std::istringstream lines(prints.page());
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.size() <= 255 && (line[0] != '%' || line == "%!PS")) << line;
}

TEST(Pictures, AlphaMasksAndMixesWithWhite) {
    const Bytes alpha{0, 255, 128, 0, 255, 0, 255, 0, 255, 255};
    const Bytes pixels(10, 100);
    const auto image = PrintedPictures::image(10, 1, ColorSpaceType::gray, pixels, alpha);
    const auto opaque = PrintedPictures::image(10, 1, ColorSpaceType::gray, pixels, Bytes(10, 255));
    const auto bits = PrintedPictures::image(10, 1, ColorSpaceType::oneBit, Bytes(10, 0), alpha);
    PrintedPictures prints;
    const auto first = prints.store().add(image, 0);
    const auto mixedBits = prints.store().add(bits, 0);
    prints.show(first, 10, 1);
    prints.show(prints.store().add(opaque, 0), 10, 1);
    prints.show(mixedBits, 10, 1);
    prints.show(prints.store().addStencil(image, 0), 10, 1);
    PrintedPictures again;
    const auto twice = again.store().add(image, 0);
    again.show(twice, 10, 1);
    again.show(twice, 10, 1);
    const Picture page = prints.rendered();
    const Picture shared = again.rendered();
    for (int x = 0; x < 10; ++x) {
        const int shown = alpha[static_cast<std::size_t>(x)];
        const auto shade = static_cast<std::uint8_t>(shown == 128 ? 177 : 100);
        const auto bitShade = static_cast<std::uint8_t>(shown == 128 ? 127 : 0);
        const Pixel expected = shown == 0 ? kPaper : Pixel{shade, shade, shade};
        EXPECT_EQ(expected, page.at(x, 0)) << x;
        EXPECT_EQ(expected, shared.at(x, 0)) << x;
        EXPECT_EQ(expected, shared.at(x, 1)) << x;
        EXPECT_EQ((Pixel{100, 100, 100}), page.at(x, 1)) << x;
        EXPECT_EQ(shown == 0 ? kPaper : Pixel({bitShade, bitShade, bitShade}), page.at(x, 2)) << x;
        EXPECT_EQ(shown < 128 ? kPaper : kInk, page.at(x, 3)) << x;
    }
}

TEST(Pictures, OneBitPicturesAreBlackAndWhiteOrStencils) {
    Bytes bits;
    for (int i = 0; i < 11 * 3; ++i)
        bits.push_back(static_cast<std::uint8_t>(i % 3 == 0 ? 0 : i));
    const auto image = PrintedPictures::image(11, 3, ColorSpaceType::oneBit, bits);
    PrintedPictures prints;
    prints.show(prints.store().add(image, 0), 11, 3);
    prints.show(prints.store().addStencil(image, 0), 11, 3);
    prints.show(prints.store().add(
                    makeObject<TintedImage>(image, std::vector<TintedImage::Range>{{1, 0.2}}), 0),
                11, 3);
    const Picture page = prints.rendered();
    PrintedPictures inks(ColorConverter::plain(ColorSpaceType::cmyk));
    inks.show(inks.store().add(image, 0), 11, 3);
    const Picture separated = inks.rendered();
    EXPECT_NE(std::string::npos, inks.page().find("[/Indexed/DeviceCMYK 1<000000FF00000000>]"));
    for (int i = 0; i < 11 * 3; ++i) {
        const bool isBlack = i % 3 == 0;
        EXPECT_EQ(isBlack ? kBlack : kWhite, page.at(i % 11, i / 11)) << i;
        EXPECT_EQ(isBlack ? kInk : kPaper, page.at(i % 11, 3 + i / 11)) << i;
        EXPECT_EQ(isBlack ? kWhite : Pixel({51, 51, 51}), page.at(i % 11, 6 + i / 11)) << i;
        EXPECT_EQ(isBlack ? kBlack : kWhite, separated.at(i % 11, i / 11)) << i;
    }
}

/// Within the interpreter's rounding.
bool isNear(const Pixel& expected, const Pixel& seen) {
    return std::ranges::equal(expected, seen, [](int a, int b) { return std::abs(a - b) <= 1; });
}

TEST(Pictures, TintsShareTheDataUnlessColoursAreConverted) {
    const auto image = PrintedPictures::image(2, 1, ColorSpaceType::rgb, {0, 100, 255, 255, 0, 51});
    const auto half =
        makeObject<TintedImage>(image, std::vector<TintedImage::Range>{{0, 1}, {1, 0}, {0.2, 0.4}});
    const auto twice =
        makeObject<TintedImage>(half, std::vector<TintedImage::Range>{{1, 0}, {0, 1}, {0, 0.5}});
    EXPECT_EQ(image, twice->getOriginal());
    for (const bool isConverted : {false, true}) {
        PrintedPictures prints(isConverted ? ColorConverter::plain(ColorSpaceType::cmyk) : nullptr);
        for (const auto& shown : std::vector<Core::SmartPtr<Drawing::Image>>{image, half, twice})
            prints.show(prints.store().add(shown, 0), 2, 1);
        EXPECT_EQ(!isConverted, prints.store().isShared(0));
        const Picture page = prints.rendered();
        EXPECT_EQ((Pixel{0, 100, 255}), page.at(0, 0));
        EXPECT_TRUE(isNear({0, 155, 102}, page.at(0, 1)));
        EXPECT_TRUE(isNear({255, 155, 51}, page.at(0, 2)));
        EXPECT_TRUE(isNear({255, 255, 61}, page.at(1, 1)));
    }
    EXPECT_RAISES(Core::FormatException, "TintedImage:1", TintedImage(image, {{0, 1}}));
    EXPECT_RAISES(Core::FormatException, "TintedImage:2",
                  TintedImage(image, {{0, 1}, {0, 1}, {0, 1.5}}));
}

TEST(Pictures, ConvertedPicturesKeepWhiteAndMasks) {
    PrintedPictures grey(ColorConverter::plain(ColorSpaceType::gray));
    grey.show(grey.store().add(
                  PrintedPictures::image(4, 1, ColorSpaceType::cmyk,
                                         {0, 0, 0, 0, 0, 0, 0, 255, 255, 0, 0, 0, 0, 0, 0, 128},
                                         {255, 255, 255, 0}),
                  0),
              4, 1);
    const Picture page = grey.rendered();
    EXPECT_EQ(kWhite, page.at(0, 0));
    EXPECT_EQ(kBlack, page.at(1, 0));
    EXPECT_EQ((Pixel{179, 179, 179}), page.at(2, 0));
    EXPECT_EQ(kPaper, page.at(3, 0));
    EXPECT_EQ(std::string::npos, grey.page().find("CMYK"));
}

/// An image that gives whatever it is told, and says how often it was asked.
class OddImage : public Drawing::Image {
public:
    OddImage(Drawing::PixelSize size, std::size_t pixels, std::size_t alpha,
             const Core::String& key = u"(%\n) def")
        : Image(key), size_(size), pixels_(pixels), alpha_(alpha) {}
    [[nodiscard]] Drawing::PixelSize getPixelSize() const override { return size_; }
    [[nodiscard]] Core::SmartPtr<Drawing::ColorSpace> getColorSpace() const override {
        return makeObject<Drawing::ColorSpace>(ColorSpaceType::gray);
    }
    [[nodiscard]] bool hasAlpha() const override { return alpha_ > 0; }
    [[nodiscard]] ByteArray getPixelBytes(int selector) const override {
        ++asked;
        return ByteArray(Bytes(pixels_, static_cast<std::uint8_t>(selector)));
    }
    [[nodiscard]] ByteArray getAlphaBytes(int /*selector*/) const override {
        return ByteArray(Bytes(alpha_, 255));
    }
    [[nodiscard]] bool isInterpolated() const override { return smooth; }

    bool smooth = false;
    mutable int asked = 0;

private:
    Drawing::PixelSize size_;
    std::size_t pixels_;
    std::size_t alpha_;
};

TEST(Pictures, ReadOnceForEachKeyAndVersion) {
    PrintedPictures prints;
    const auto image = makeObject<OddImage>(Drawing::PixelSize{3, 2}, 6U, 0U);
    const auto first = prints.store().add(image, 40);
    const auto other = prints.store().add(image, 80);
    EXPECT_EQ(first,
              prints.store().add(makeObject<OddImage>(Drawing::PixelSize{3, 2}, 6U, 0U), 40));
    image->smooth = true;
    const auto smooth = prints.store().add(image, 40);
    EXPECT_EQ(2, image->asked);
    EXPECT_NE(first, smooth);
    for (const auto id : {first, other, smooth})
        prints.show(id, 30, 20);
    const Picture page = prints.rendered();
    EXPECT_EQ((Pixel{40, 40, 40}), page.at(5, 5));
    EXPECT_EQ((Pixel{80, 80, 80}), page.at(5, 25));
    EXPECT_EQ((Pixel{40, 40, 40}), page.at(5, 45));
    EXPECT_NE(std::string::npos, prints.page().find("/Interpolate true"));
}

TEST(Pictures, BadOnesAreRefusedAndLeaveNothingBehind) {
    PrintedPictures prints;
    const auto add = [&](Drawing::PixelSize size, std::size_t pixels, std::size_t alpha) {
        prints.store().add(makeObject<OddImage>(size, pixels, alpha), 7);
    };
    EXPECT_RAISES(Core::FormatException, "Picture:1", add({0, 5}, 0, 0));
    EXPECT_RAISES(Core::FormatException, "Picture:1", add({-3, -5}, 15, 0));
    EXPECT_RAISES(Core::FormatException, "Picture:2", add({3, 5}, 14, 0));
    EXPECT_RAISES(Core::FormatException, "Picture:2", add({3, 5}, 15, 14));
    EXPECT_RAISES(
        Core::FormatException, "Picture:3",
        prints.store().addStencil(makeObject<OddImage>(Drawing::PixelSize{3, 5}, 15U, 0U), 7));
    add({3, 5}, 15U, 0U);
    prints.show(0, 3, 5);
    EXPECT_EQ((Pixel{7, 7, 7}), prints.rendered().at(2, 4));
}

TEST(Pictures, SharedOnesKnowWhereTheyAreShown) {
    PrintedPictures prints;
    auto& store = prints.store();
    const auto add = [&](std::uint8_t value) {
        return store.add(PrintedPictures::image(1, 1, ColorSpaceType::gray, {value}), 0);
    };
    const auto once = add(1);
    const auto onOne = add(2);
    const auto onTwo = add(3);
    const auto nested = add(4);
    store.noteUse(once, 3);
    store.noteUse(onOne, 4);
    store.noteUse(onOne, 4);
    store.noteUse(onTwo, 0);
    store.noteUse(onTwo, 1);
    store.noteUse(nested, 2);
    store.noteNestedUse(nested);
    EXPECT_EQ((std::vector{false, true, true, true}),
              (std::vector{store.isShared(once), store.isShared(onOne), store.isShared(onTwo),
                           store.isShared(nested)}));
    EXPECT_EQ(4U, store.onlyPage(onOne));
    EXPECT_EQ(std::nullopt, store.onlyPage(onTwo));
    EXPECT_EQ(std::nullopt, store.onlyPage(nested));
}

}  // namespace
