#include "Core/MemoryStream.h"
#include "Drawing/EncodedImage.h"
#include "Images/ImageError.h"
#include "Images/ImageStore.h"
#include "Images/LoadImage.h"
#include "Images/RowImage.h"
#include "Images/internal/ExifFacts.h"
#include "tests/Images/ImageFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <tuple>
#include <utility>

namespace Images::tests {

namespace {

using testing::HasSubstr;
using namespace std::string_literals;

constexpr int kGrey = 0, kRgb = 2, kPalette = 3, kGreyAlpha = 4, kRgba = 6;

Core::SmartPtr<Drawing::Image> decode(const std::string& file) {
    static ImageStore store(1'000'000);
    return store.fromBytes(file, "test").image;
}

Bytes pixelsOf(const std::string& file) {
    const Core::ByteArray pixels = decode(file)->getPixelBytes(0);
    return {pixels.begin(), pixels.end()};
}

Bytes alphaOf(const std::string& file) {
    const Core::ByteArray alpha = decode(file)->getAlphaBytes(0);
    return {alpha.begin(), alpha.end()};
}

std::string refusal(const std::string& file) {
    try {
        decode(file);
    } catch (const ImageError& error) {
        return error.what();
    }
    return "";
}

/// Every `step`th sample, from `first` on.
Bytes every(std::size_t step, std::size_t first, const Bytes& samples) {
    Bytes result;
    for (std::size_t i = first; i < samples.size(); i += step)
        result.push_back(samples[i]);
    return result;
}

TEST(Png, IsExactInEveryColourSpaceAndSize) {
    for (const Drawing::PixelSize size : {Drawing::PixelSize{1, 1}, {7, 5}, {33, 17}, {256, 3}})
        for (const bool isInterlaced : {false, true}) {
            const auto samples = [&](std::size_t count) {
                return noise(count * static_cast<std::size_t>(size.width * size.height));
            };
            const auto file = [&](int type, int depth, const Bytes& bytes) {
                return encode({size.width, size.height, bytes, type, depth, isInterlaced});
            };
            EXPECT_EQ(samples(1), pixelsOf(file(kGrey, 8, samples(1))));
            EXPECT_EQ(samples(3), pixelsOf(file(kRgb, 8, samples(3))));
            EXPECT_EQ(every(2, 0, samples(2)), pixelsOf(file(kGreyAlpha, 8, samples(2))));
            EXPECT_EQ(every(2, 1, samples(2)), alphaOf(file(kGreyAlpha, 8, samples(2))));
            EXPECT_EQ(every(4, 3, samples(4)), alphaOf(file(kRgba, 8, samples(4))));
            EXPECT_EQ(every(4, 1, samples(4)), every(3, 1, pixelsOf(file(kRgba, 8, samples(4)))));
            EXPECT_EQ(samples(6).size() / 2, pixelsOf(file(kRgb, 16, samples(6))).size());
        }
}

TEST(Png, UnfoldsSmallDepthsAndPalettes) {
    EXPECT_EQ((Bytes{0, 255, 255}), pixelsOf(encode({3, 1, {0x60}, kGrey, 1})));
    EXPECT_EQ((Bytes{0, 85, 170}), pixelsOf(encode({3, 1, {0x18}, kGrey, 2})));
    EXPECT_EQ((Bytes{255, 1, 128}),
              pixelsOf(encode({3, 1, {255, 255, 1, 2, 0x80, 0x10}, kGrey, 16})));
    const std::string palette = encode({2, 1, {0x40}, kPalette, 1});
    EXPECT_EQ((Bytes{255, 0, 0, 0, 0, 255}), pixelsOf(palette));
    EXPECT_EQ((Bytes{51, 255}), alphaOf(palette));
}

TEST(Png, SamplesOfAnotherGammaBecomeOrdinary) {
    const auto pixelsWith = [](double gamma) {
        PngFile file{3, 1, {0, 128, 255}, kGrey};
        file.gamma = gamma;
        return pixelsOf(encode(file));
    };
    EXPECT_EQ((Bytes{0, 128, 255}), pixelsWith(1 / 2.2));
    EXPECT_EQ((Bytes{0, 186, 255}), pixelsWith(1)) << "linear";
}

TEST(Exif, CutOffAnywhereTellsNothing) {
    const Bytes whole{'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, 0, 6};
    EXPECT_EQ(6, parseExif(whole).orientation);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(1, parseExif(Bytes(whole.data(), whole.data() + size)).orientation) << size;
}

TEST(Png, ColoursOfAProfileBecomeSrgb) {
    const auto pixelsWith = [](std::optional<double> gamma) {
        PngFile file{3, 1, {0, 0, 0, 128, 128, 128, 255, 255, 255}};
        file.profile = profileOf(gamma);
        return pixelsOf(encode(file));
    };
    EXPECT_EQ((Bytes{0, 0, 0, 128, 128, 128, 255, 255, 255}), pixelsWith(std::nullopt));
    const Bytes brighter = pixelsWith(1);
    EXPECT_EQ(0, brighter[0]);
    EXPECT_NEAR(188, brighter[3], 1) << "half the light is 188 in sRGB";
    EXPECT_EQ(255, brighter[8]);
}

TEST(Jpeg, KeepsColoursAndTurnsAdobesInkRound) {
    for (const int components : {1, 3, 4})
        for (const bool isProgressive : {false, true}) {
            Bytes samples;
            for (int i = 0; i < 16 * 16; ++i)
                for (int k = 0; k < components; ++k)
                    samples.push_back(static_cast<std::uint8_t>(40 + 50 * k));
            JpegFile file{16, 16, components, samples, isProgressive};
            const Bytes plain = pixelsOf(encode(file));
            file.hasAdobeMarker = true;
            const Bytes marked = pixelsOf(encode(file));
            ASSERT_EQ(samples.size(), plain.size());
            for (std::size_t i = 0; i < samples.size(); ++i) {
                EXPECT_NEAR(samples[i], plain[i], 2);
                EXPECT_NEAR(components == 4 ? 255 - samples[i] : samples[i], marked[i], 2);
            }
        }
}

/// The bytes that a back end may pass on; "" if it has to decode.
std::string passedOn(const std::string& file) {
    const auto image = decode(file);
    const auto output = Core::makeObject<Core::IO::MemoryStream>();
    const auto* encoded = dynamic_cast<const Drawing::EncodedImage*>(image.get());
    const bool isPassed = encoded->writeJpeg(0, *output);
    EXPECT_EQ(isPassed, output->length() > 0);
    return std::string(output->view());
}

TEST(Jpeg, GivesItsFileAwayUnlessColoursAreConverted) {
    const std::string file = encode(JpegFile{40, 40, 3, noise(4800)});
    const auto with = [&](const std::string& profile) {
        const std::size_t size = profile.size() + 16;
        std::string tagged = file;
        return tagged.insert(2, std::string("\xFF\xE2") + static_cast<char>(size >> 8) +
                                    static_cast<char>(size) + std::string("ICC_PROFILE\0\1\1", 14) +
                                    profile);
    };
    const std::string tagged = with(profileOf(std::nullopt));
    EXPECT_EQ(file, passedOn(file));
    EXPECT_EQ(tagged, passedOn(tagged)) << "sRGB by name";
    EXPECT_EQ("", passedOn(with(profileOf(1.2))));
    EXPECT_EQ("", passedOn(encode(PngFile{8, 8, noise(192)})));
}

TEST(ImageStore, FindsWhatIsNotClear) {
    const auto part = [](const Bytes& samples) {
        return rowsOf(decode(encode({4, 3, samples, kGreyAlpha})))->visiblePart();
    };
    Bytes samples(24);
    EXPECT_EQ(0, part(samples).width);
    samples[2 * (1 * 4 + 2) + 1] = 1;
    EXPECT_EQ((PixelRect{2, 1, 1, 1}), part(samples));
    samples[2 * (2 * 4 + 1) + 1] = 255;
    EXPECT_EQ((PixelRect{1, 1, 2, 2}), part(samples));
}

TEST(ImageStore, KeysEqualPixelsEqually) {
    const auto key = [](const PngFile& file) {
        return decode(encode(file))->getHashKey().toUtf8();
    };
    const Bytes samples = noise(12);
    const std::string plain = key({2, 2, samples});
    EXPECT_EQ(plain, key({2, 2, samples, kRgb, 8, true}));
    EXPECT_EQ(key({1, 2, {7, 9}, kGrey}), key({1, 2, {7, 255, 9, 255}, kGreyAlpha}))
        << "alpha that hides nothing is none";
    EXPECT_NE(key({1, 2, {7, 9}, kGrey}), key({1, 2, {7, 255, 9, 254}, kGreyAlpha}));
    EXPECT_NE(plain, key({4, 1, samples}));
    EXPECT_NE(plain, key({3, 4, samples, kGrey}));
    Bytes other = samples;
    other[11] ^= 1;
    EXPECT_NE(plain, key({2, 2, other}));
}

TEST(Gif, ShowsItsFirstPicture) {
    Bytes indices(32);
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = i / 4 % 4;
    indices[0] = 3;
    for (const bool isInterlaced : {false, true}) {
        const std::string file = encode(GifFile{6, 9, 1, 0, indices, isInterlaced, 2});
        const Bytes colors = pixelsOf(file);
        const Bytes alpha = alphaOf(file);
        const auto pixel = [&](std::size_t x, std::size_t y) {
            const std::size_t i = y * 6 + x;
            return Bytes{colors.at(3 * i), colors.at(3 * i + 1), colors.at(3 * i + 2), alpha.at(i)};
        };
        EXPECT_EQ((Bytes{255, 255, 255, 255}), pixel(1, 0));
        EXPECT_EQ((Bytes{255, 0, 0, 255}), pixel(2, 0));
        EXPECT_EQ((Bytes{0, 255, 0, 255}), pixel(4, 5));
        EXPECT_EQ(0, pixel(4, 6).back()) << "clear";
        EXPECT_EQ((Bytes{255, 255, 255, 255}), pixel(1, 7));
        EXPECT_EQ(0, pixel(0, 0).back() + pixel(5, 0).back() + pixel(3, 8).back()) << "beside it";
    }
    EXPECT_FALSE(decode(encode(GifFile{4, 8, 0, 0, indices}))->hasAlpha());
}

TEST(Webp, IsExactWithoutLoss) {
    Bytes samples = noise(4 * 33 * 17);
    for (std::size_t i = 3; i < samples.size(); i += 4)
        samples[i] |= 1;  // the colours of clear pixels are not kept
    const std::string file = encode(WebpFile{33, 17, samples});
    EXPECT_EQ(every(4, 3, samples), alphaOf(file));
    EXPECT_EQ(every(4, 1, samples), every(3, 1, pixelsOf(file)));
    EXPECT_EQ(every(4, 2, samples), every(3, 2, pixelsOf(file)));
}

TEST(ImageStore, TurnsPicturesUpright) {
    // Where the stored top left corner and the one to its right are shown.
    using Point = std::pair<float, float>;
    const auto shown = [](const Drawing::Matrix& upright, float x) {
        return Point{x * upright.getScaleX() + upright.getTranslateX(),
                     x * upright.getShearY() + upright.getTranslateY()};
    };
    const Point corners[8][2] = {{{0, 0}, {1, 0}}, {{1, 0}, {0, 0}}, {{1, 1}, {0, 1}},
                                 {{0, 1}, {1, 1}}, {{0, 0}, {0, 1}}, {{1, 0}, {1, 1}},
                                 {{1, 1}, {1, 0}}, {{0, 1}, {0, 0}}};
    ImageStore store(1000);
    for (int orientation = 1; orientation <= 8; ++orientation) {
        PngFile png{2, 1, noise(6)};
        JpegFile jpeg{2, 1, 3, noise(6)};
        png.orientation = jpeg.orientation = orientation;
        for (const std::string& file : {encode(png), encode(jpeg)}) {
            const UprightImage& image = store.fromBytes(file, "test");
            EXPECT_EQ(corners[orientation - 1][0], shown(image.upright, 0)) << orientation;
            EXPECT_EQ(corners[orientation - 1][1], shown(image.upright, 1)) << orientation;
            EXPECT_EQ(orientation < 5 ? 2 : 1, image.width);
        }
    }
}

TEST(LoadImage, GivesUprightPictures) {
    // The six pixels of two stored rows as they are shown.
    const std::string rows[8] = {"123456", "321654", "654321", "456123",
                                 "142536", "415263", "635241", "362514"};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        PngFile png{3, 2, {'1', '2', '3', '4', '5', '6'}, kGrey};
        png.orientation = orientation;
        png.dotsPerMetre = 1000;
        const LoadedImage loaded = loadImage(encode(png), u"scan");
        const Core::ByteArray pixels = loaded.image->getPixelBytes(0);
        EXPECT_EQ(rows[orientation - 1], std::string(pixels.begin(), pixels.end())) << orientation;
        EXPECT_EQ(orientation < 5 ? 3 : 2, loaded.image->getPixelSize().width) << orientation;
        EXPECT_NEAR(25.4, loaded.horizontalResolution, 1e-6);
    }
}

TEST(LoadImage, SaysWhichFileIsWrong) {
    const std::string path = testing::TempDir() + "/loaded-image.png";
    const auto loads = [&] { std::ignore = loadImage(path); };
    std::filesystem::remove(path);
    EXPECT_THAT(loads, testing::ThrowsMessage<ImageError>(testing::StartsWith(path + ": cannot ")));
    std::ofstream(path) << encode(PngFile{2, 1, noise(6)});
    const auto image = loadImage(path).image;
    EXPECT_EQ(6U, image->getPixelBytes(0).size());
    std::ofstream(path) << "no picture";
    EXPECT_THAT(
        loads, testing::ThrowsMessage<ImageError>(testing::HasSubstr("no PNG, JPEG, GIF or WebP")));
    EXPECT_THAT([&] { std::ignore = image->getPixelBytes(0); },
                testing::ThrowsMessage<ImageGone>(testing::StartsWith(path)));
    std::filesystem::remove(path);
}

TEST(ImageStore, KeepsNoPixels) {
    const auto allocated = [] {
        const auto info = ::mallinfo2();
        return info.uordblks + info.hblkhd;
    };
    ImageStore store(1'000'000);
    std::vector<Core::SmartPtr<Drawing::Image>> images;
    const std::size_t before = allocated();
    for (int i = 0; i < 10; ++i) {
        const PngFile file{500, 500, Bytes(750'000, static_cast<std::uint8_t>(i))};
        images.push_back(store.fromBytes(encode(file), "test").image);
        EXPECT_EQ(file.samples[0], images.back()->getPixelBytes(0)[0]);
    }
    EXPECT_LT(allocated(), before + 100'000);
}

TEST(ImageStore, RefusesWhatIsNoImageOrDamaged) {
    const std::string png = encode(PngFile{40, 40, noise(4800)});
    const std::string jpeg = encode(JpegFile{40, 40, 3, noise(4800)});
    std::string badCheck = png;
    badCheck[badCheck.size() - 14] ^= 1;
    std::string bomb = jpeg;
    bomb.replace(bomb.find("\xFF\xC0") + 5, 4, "\xEA\x60\xEA\x60");
    const std::string gif = encode(GifFile{4, 8, 0, 0, Bytes(32, 1)});
    const std::string webp = encode(WebpFile{40, 40, noise(6400)});
    std::string hugeGif = gif;
    hugeGif.replace(6, 4, "\xFF\xFF\xFF\xFF");
    const JpegFile scans{40, 40, 3, noise(4800), true};
    const std::pair<std::string, const char*> cases[] = {
        {png.substr(0, 20), "PNG image that is cut short"},
        {png.substr(0, png.size() / 2), "PNG image that is cut short"},
        {badCheck, "damaged PNG image (IDAT: CRC error)"},
        {bomb, "has 60000 x 60000 pixels, more than the limit of 1000000; make it smaller or"},
        {jpeg.substr(0, 30), "JPEG image that is cut short"},
        {jpeg.substr(0, jpeg.size() / 2), "JPEG image that is cut short"},
        {encode(scans).substr(0, 3000), "JPEG image that is cut short"},
        {jpeg.substr(0, jpeg.size() / 2) + "\xFF\xD9", "damaged JPEG image (Corrupt JPEG data"},
        {"GIF89a", "is a damaged GIF image"},
        {gif.substr(0, gif.size() - 4), "is a damaged GIF image"},
        {webp.substr(0, webp.size() / 2), "is a damaged WebP image"},
        {hugeGif, "has 65535 x 65535 pixels"},
        {"II*\0"s, "is a TIFF image; convert it to PNG or JPEG"},
        {"hello", "is no PNG, JPEG, GIF or WebP image"},
        {"", "is no PNG, JPEG, GIF or WebP image"}};
    for (const auto& [file, sentence] : cases)
        EXPECT_THAT(refusal(file), HasSubstr(sentence));
    EXPECT_EQ("", refusal(jpeg.substr(0, jpeg.size() - 2))) << "only the end mark is missing";
}

}  // namespace

}  // namespace Images::tests
