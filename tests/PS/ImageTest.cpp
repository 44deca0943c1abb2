#include "Drawing/RasterImage.h"
#include "PS/internal/Base85Writer.h"
#include "PS/internal/HexWriter.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

#include <numeric>
#include <random>
#include <tuple>

namespace {

using Core::ByteArray;
using Core::makeObject;
using Core::SmartPtr;
using Core::UnreacheableCodeException;
using Core::IO::MemoryStream;
using Drawing::ColorSpaceType;
using Drawing::RasterImage;
using Drawing::PS::ImageEncodeType;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// An image under a key of the test's choice; its pixels tell which selector asked for them.
class NamedImage : public Drawing::Image {
public:
    NamedImage(const char* key, ColorSpaceType type) : Image(key), type_(type) {}
    [[nodiscard]] Drawing::PixelSize getPixelSize() const override { return {1, 2}; }
    [[nodiscard]] SmartPtr<Drawing::ColorSpace> getColorSpace() const override {
        return makeObject<Drawing::ColorSpace>(type_);
    }
    [[nodiscard]] bool hasAlpha() const override { return false; }
    [[nodiscard]] ByteArray getPixelBytes(int selector) const override {
        return ByteArray(std::vector<std::uint8_t>{static_cast<std::uint8_t>(selector), 0xAB});
    }
    [[nodiscard]] ByteArray getAlphaBytes(int /*selector*/) const override { return {}; }

private:
    ColorSpaceType type_;
};

std::string hex(const ByteArray& bytes) {
    const auto stream = makeObject<MemoryStream>();
    Drawing::PS::writeHex(*stream, bytes.span());
    return std::string(stream->view());
}

std::string base85(const ByteArray& bytes) {
    const auto stream = makeObject<MemoryStream>();
    Drawing::PS::Base85Writer writer(*stream);
    writer.write(bytes.span().first(bytes.size() / 3));
    writer.write(bytes.span().subspan(bytes.size() / 3));
    writer.finish();
    return std::string(stream->view());
}

TEST(Encoders, HexBreaksBehindTheFirst41Bytes) {
    EXPECT_EQ("00FF", hex(ByteArray("\0\xFF", 2)));
    EXPECT_EQ(std::string(82, '0') + "\n", hex(ByteArray(41)));
    EXPECT_EQ(std::string(82, '0') + "\n" + std::string(80, '0') + "\n00", hex(ByteArray(82)));
}

TEST(Encoders, Base85KnowsZeroGroupsAndItsColumns) {
    EXPECT_EQ("~>\r", base85(ByteArray()));
    EXPECT_EQ("z~>\r", base85(ByteArray(4)));
    EXPECT_EQ("!!~>\r", base85(ByteArray(1))) << "a part of a group is never z";
    EXPECT_EQ("rr~>\r", base85(ByteArray("\xFF")));
    EXPECT_EQ("9jqo^~>\r", base85(ByteArray("Man ")));
    EXPECT_EQ(std::string(121, 'z') + "\rz~>\r", base85(ByteArray(4 * 122)));
    EXPECT_EQ(std::string(118, 'z') + "~>\r", base85(ByteArray(4 * 118)));
    EXPECT_EQ(std::string(119, 'z') + "\r~>\r", base85(ByteArray(4 * 119)));
}

TEST(Encoders, AnInterpreterDecodesWhatTheyWrite) {
    std::string program =
        "/report { /f exch def 0 0 { f read { add exch 1 add exch } { exit } ifelse } loop exch\n"
        "=string cvs print ( ) print =string cvs print (\\n) print } def\n";
    std::string expected;
    std::mt19937 random(7);
    for (std::size_t length = 0; length <= 600; ++length) {
        std::vector<std::uint8_t> bytes(length);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random() % 3 ? random() : 0);
        const auto sum = std::accumulate(bytes.begin(), bytes.end(), std::size_t{0});
        const ByteArray data(std::move(bytes));
        program += "currentfile /ASCII85Decode filter report\n" + base85(data) +
                   "\ncurrentfile /ASCIIHexDecode filter report\n" + hex(data) + ">\n";
        for (int filter = 0; filter < 2; ++filter)
            expected += std::to_string(length) + " " + std::to_string(sum) + "\n";
    }
    EXPECT_EQ(expected, outputOf("gs -q -dSAFER -dBATCH -dNODISPLAY -", program));
}

TEST(Images, PlacementIsCutToIntegersAndSharesResources) {
    const auto image = makeObject<NamedImage>("a b(1)", ColorSpaceType::gray);
    const auto context = makeContext();
    context->drawImage(image, 40.9F, -2.7F, 99, 99, 7);
    EXPECT_EQ("q\n[1 0 0 1 0 0] cm\n40 -2 translate\n1 2 scale\nImg_a_b(1)_7 execform\nQ\n",
              context->script());
    context->drawImage(image, 0, 0, 1, 1, 7);
    context->drawImage(image, 0, 0, 1, 1, 8);
    context->outputStream = makeObject<MemoryStream>();
    context->writeImageResourcesLevel2(ImageEncodeType::hexadecimal);
    const std::string resources(context->outputStream.dynamicCast<MemoryStream>()->view());
    EXPECT_THAT(resources, HasSubstr("CreateDataArray\n07AB>\ndef\n/Img_a_b(1)_7 <<"));
    EXPECT_THAT(resources, HasSubstr("CreateDataArray\n08AB>\ndef\n/Img_a_b(1)_8 <<"));
    EXPECT_EQ(resources.find("/ImageData_"), resources.find("/ImageData_a_b(1)_7\n\n"));
    EXPECT_THAT(drawn([](OpenDocument& d) {
                    d.drawImage(makeObject<NamedImage>("K", ColorSpaceType::oneBit), 0, 0, 1, 1, 0);
                }),
                HasSubstr("1 2 1 [1 0 0 2 0 0]{Img_K_0} image\n"));
}

TEST(Images, AlphaIsCompositedOverFullIntensity) {
    const auto image = makeObject<RasterImage>(Drawing::PixelSize{3, 1}, ColorSpaceType::gray,
                                               ByteArray(std::vector<std::uint8_t>{10, 10, 10}),
                                               ByteArray(std::vector<std::uint8_t>{0, 255, 128}));
    EXPECT_EQ((std::vector<std::uint8_t>{255, 10, 132}), [&] {
        const ByteArray bytes = OpenDocument::getTransparentBytes(image, 0);
        return std::vector<std::uint8_t>(bytes.begin(), bytes.end());
    }());
}

std::string resources(ImageEncodeType encoding, ColorSpaceType type, bool level3) {
    const auto context = makeContext();
    context->drawImage(makeObject<NamedImage>("K", type), 0, 0, 1, 1, 0);
    const auto output = makeObject<MemoryStream>();
    context->outputStream = output;
    if (level3)
        context->writeImageResourcesLevel3(encoding);
    else
        context->writeImageResourcesLevel2(encoding);
    return std::string(output->view());
}

TEST(Images, Level2ResourcesInEveryEncoding) {
    const auto data = [](int encoding) {
        const std::string text =
            resources(static_cast<ImageEncodeType>(encoding), ColorSpaceType::rgb, false);
        const auto begin = text.find("/ImageData_K_0\n\n") + 16;
        return text.substr(begin, text.find("def\n/Img_K_0 <<\n") - begin);
    };
    EXPECT_EQ("currentfile\n/ASCIIHexDecode filter CreateDataArray\n00AB>\n", data(0));
    EXPECT_EQ("currentfile\n/ASCII85Decode filter CreateDataArray\n!36~>\r", data(1));
    EXPECT_EQ("", data(2));
    EXPECT_EQ("", data(3));
    EXPECT_THAT(data(4), StartsWith("currentfile/ASCIIHexDecode/FlateDecode filter\nfilter "
                                    "CreateDataArray\n789C"));
    EXPECT_THAT(data(5), StartsWith("currentfile\n/ASCII85Decode filter\n/FlateDecode filter "
                                    "CreateDataArray\nG"));
    EXPECT_THROW(data(6), UnreacheableCodeException);
    EXPECT_THAT(resources(ImageEncodeType::hexadecimal, ColorSpaceType::oneBit, false),
                testing::AllOf(HasSubstr("/ImageData_K_0\n\n/Img_K_0\n<00AB> def\ncurrentfile\n"),
                               HasSubstr("i 0 put\n<<\n/ImageType 1\n"),
                               HasSubstr("/BitsPerComponent 8\n/Interpolate false\n")));
}

TEST(Images, Level3ResourcesAndWhatTheyReject) {
    using enum ImageEncodeType;
    EXPECT_THAT(resources(hexadecimal, ColorSpaceType::gray, true),
                StartsWith("%%BeginResource\n/ImageData_K_0\n\n<</Filter /ASCIIHexDecode>>\n"
                           "/ReusableStreamDecode filter\n00AB>\ndef\n/Img_K_0 <<\n"));
    EXPECT_THAT(resources(base85, ColorSpaceType::cmyk, true),
                HasSubstr("currentfile\n<</Filter /ASCII85Decode>>\n/ReusableStreamDecode filter\n"
                          "!36~>\rdef\n"));
    for (const auto flate : {none, flateHexadecimal})
        EXPECT_THAT(resources(flate, ColorSpaceType::rgb, true),
                    HasSubstr("currentfile\n<</Filter [/ASCIIHexDecode /FlateDecode]>>\n"));
    EXPECT_THROW(resources(unused, ColorSpaceType::rgb, true), UnreacheableCodeException);
    EXPECT_THROW(resources(flateBase85, ColorSpaceType::rgb, true), UnreacheableCodeException);
    EXPECT_THROW(resources(base85, ColorSpaceType::oneBit, true), UnreacheableCodeException);
}

/// An image whose host does not keep its word.
class BrokenImage : public NamedImage {
public:
    BrokenImage() : NamedImage("K", ColorSpaceType::gray) {}
    [[nodiscard]] Drawing::PixelSize getPixelSize() const override {
        return hasSize ? NamedImage::getPixelSize()
                       : throw Core::FormatException("test", 1, "none");
    }
    [[nodiscard]] SmartPtr<Drawing::ColorSpace> getColorSpace() const override {
        return hasColorSpace ? NamedImage::getColorSpace() : nullptr;
    }
    [[nodiscard]] bool hasAlpha() const override { return alphaValues >= 0; }
    [[nodiscard]] ByteArray getAlphaBytes(int /*selector*/) const override {
        return ByteArray(static_cast<std::size_t>(alphaValues));
    }
    bool hasSize = true;
    bool hasColorSpace = true;
    int alphaValues = -1;
};

TEST(Images, WhatStandsBeforeAMissingAnswerIsWritten) {
    const auto image = makeObject<BrokenImage>();
    const auto context = makeContext();
    context->drawImage(image, 0, 0, 1, 1, 0);
    const auto written = [&](bool level3) {
        const auto output = makeObject<MemoryStream>();
        context->outputStream = output;
        try {
            if (level3)
                context->writeImageResourcesLevel3(ImageEncodeType::hexadecimal);
            else
                context->writeImageResourcesLevel2(ImageEncodeType::hexadecimal);
            ADD_FAILURE() << "raised nothing";
        } catch (const Core::Exception&) {
        }
        return std::string(output->view());
    };
    image->hasColorSpace = false;
    EXPECT_THAT(written(false), EndsWith("/ImageData_K_0\n\n"));
    EXPECT_THAT(written(true), EndsWith("ImageData_K_0 0 setfileposition\n\n"));
    image->hasSize = false;
    EXPECT_THAT(written(true), EndsWith("def\n/Img_K_0 <<\n/FormType 1\n"));
    image->alphaValues = 1;
    image->hasColorSpace = true;
    EXPECT_EQ("%%BeginResource\n/ImageData_K_0\n\n", written(true)) << "two pixels, one alpha";
    EXPECT_RAISES(Core::FormatException, "PSDocument:5",
                  std::ignore = OpenDocument::getTransparentBytes(image, 0));
}

TEST(Images, ComeOutUprightInTheirColours) {
    // 3 x 2 pixels: red, green, blue above; black, grey, white below.
    const std::vector<std::uint8_t> pixels{255, 0, 0, 0,   255, 0,   0,   0,   255,
                                           0,   0, 0, 128, 128, 128, 255, 255, 255};
    const auto image =
        makeObject<RasterImage>(Drawing::PixelSize{3, 2}, ColorSpaceType::rgb, ByteArray(pixels));
    const auto cmyk = makeObject<RasterImage>(Drawing::PixelSize{1, 1}, ColorSpaceType::cmyk,
                                              ByteArray(std::vector<std::uint8_t>{0, 255, 255, 0}));
    const std::string document = finished([&](OpenDocument& d) {
        d.startPage({40, 20});
        d.setTransform({10, 0, 0, 10, 0, 0});
        d.drawImage(image, 0, 0, 0, 0, 0);
        d.drawImage(cmyk, 3, 0, 0, 0, 0);
        d.endPage();
    });
    const Interpretation seen = interpret(document);
    ASSERT_EQ("", seen.messages);
    for (std::size_t i = 0; i < 6; ++i) {
        const auto x = static_cast<int>(i % 3) * 10 + 5;
        const auto y = static_cast<int>(i / 3) * 10 + 5;
        EXPECT_EQ((Picture::Pixel{pixels[3 * i], pixels[3 * i + 1], pixels[3 * i + 2]}),
                  seen.pages.at(0).at(x, y));
    }
    EXPECT_GT(seen.pages.at(0).at(35, 5)[0], 200);
    EXPECT_LT(seen.pages.at(0).at(35, 5)[2], 60);
}

}  // namespace
