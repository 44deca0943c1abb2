#include "Drawing/EncodedImage.h"
#include "tests/Print/images/PrintedPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using Core::makeObject;
using Drawing::ColorSpaceType;
using Drawing::Print::ColorConverter;
using Pixel = Picture::Pixel;

constexpr int kSide = 16;

/// Four squares: red, green, blue, and a light grey.
std::string jpegBy(const std::string& device) {
    return outputOf(
        "gs -q -dSAFER -dBATCH -dNOPAUSE -dJPEGQ=95 -r72 -dUseFastColor=true -sDEVICE=" + device +
            " -o - -",
        "<</PageSize[16 16]>>setpagedevice 1 0 0 setrgbcolor 0 8 8 8 rectfill "
        "0 1 0 setrgbcolor 8 8 8 8 rectfill 0 0 1 setrgbcolor 0 0 8 8 rectfill "
        ".8 setgray 8 0 8 8 rectfill showpage");
}

/// Its file, and quite other pixels, which show whether it was decoded.
class JpegImage : public Drawing::RasterImage, public Drawing::EncodedImage {
public:
    JpegImage(std::string file, ColorSpaceType space, int side = kSide)
        : RasterImage({side, side}, space,
                      Core::ByteArray(std::vector<std::uint8_t>(
                          static_cast<std::size_t>(side * side *
                                                   Drawing::ColorSpace(space).getComponentCount()),
                          100))),
          file_(std::move(file)) {}
    bool writeJpeg(int /*selector*/, Core::IO::Stream& output) const override {
        for (std::size_t at = 0; at < file_.size(); at += 7)
            output.write(std::string_view(file_).substr(at, 7));
        return true;
    }

private:
    std::string file_;
};

bool isNear(const Pixel& expected, const Pixel& seen) {
    return std::ranges::equal(expected, seen, [](int a, int b) { return std::abs(a - b) <= 8; });
}

Picture shown(const std::string& file, ColorSpaceType space, int side = kSide) {
    PrintedPictures prints;
    prints.show(prints.store().add(makeObject<JpegImage>(file, space, side), 0), side, side);
    return prints.rendered();
}

TEST(Jpeg, FilesPassThroughInTheirColours) {
    for (const auto& [device, space] :
         {std::pair{"jpeg", ColorSpaceType::rgb}, std::pair{"jpegcmyk", ColorSpaceType::cmyk}}) {
        const Picture page = shown(jpegBy(device), space);
        EXPECT_TRUE(isNear({255, 0, 0}, page.at(3, 3))) << device;
        EXPECT_TRUE(isNear({0, 255, 0}, page.at(12, 3))) << device;
        EXPECT_TRUE(isNear({0, 0, 255}, page.at(3, 12))) << device;
        EXPECT_TRUE(isNear({204, 204, 204}, page.at(12, 12))) << device;
    }
    EXPECT_TRUE(
        isNear({204, 204, 204}, shown(jpegBy("jpeggray"), ColorSpaceType::gray).at(12, 12)));
}

TEST(Jpeg, StaysJpegInPdfAndEndsWhereItEnds) {
    const std::string file = jpegBy("jpeg");
    for (const int times : {1, 2}) {
        PrintedPictures prints;
        const auto id = prints.store().add(
            makeObject<JpegImage>(file + std::string(5000, 'x'), ColorSpaceType::rgb), 0);
        for (int i = 0; i < times; ++i)
            prints.show(id, kSide, kSide);
        EXPECT_LT(prints.page().size(), file.size() * 13 / 10 + 600);
        EXPECT_TRUE(isNear({255, 0, 0}, prints.rendered().at(3, 3)));
        EXPECT_TRUE(outputOf("folder=$(mktemp -d) && cd $folder && "
                             "ps2pdf -dMaxInlineImageSize=0 - x.pdf && "
                             "pdfimages -all x.pdf x && cat x-000.jpg; rm -r $folder",
                             prints.page())
                        .starts_with(file));
    }
}

TEST(Jpeg, WhatAnInterpreterMayRefuseIsDecoded) {
    const std::string file = jpegBy("jpeg");
    const std::size_t frame = file.find("\xFF\xC0");
    ASSERT_NE(std::string::npos, frame);
    const auto with = [&](std::size_t at, char byte) {
        std::string changed = file;
        changed[at] = byte;
        return changed;
    };
    const auto isDecoded = [](const std::string& bytes, int side = kSide,
                              const Core::SmartPtr<ColorConverter>& converter = nullptr) {
        PrintedPictures prints(converter);
        prints.show(prints.store().add(makeObject<JpegImage>(bytes, ColorSpaceType::rgb, side), 0),
                    side, side);
        return prints.page().find("/DCTDecode") == std::string::npos;
    };
    EXPECT_FALSE(isDecoded(file));
    EXPECT_TRUE(isDecoded(with(frame + 1, '\xC2'))) << "progressive";
    EXPECT_TRUE(isDecoded(with(frame + 4, 12))) << "12 bits";
    EXPECT_TRUE(isDecoded(file.substr(0, file.size() - 3))) << "cut short";
    EXPECT_TRUE(isDecoded(file, kSide / 2)) << "another size";
    EXPECT_TRUE(isDecoded("")) << "nothing";
    EXPECT_TRUE(isDecoded(std::string(3000, 'x'))) << "something else";
    EXPECT_TRUE(isDecoded(jpegBy("jpeggray"))) << "another colour space";
    EXPECT_TRUE(isDecoded(file, kSide, ColorConverter::plain(ColorSpaceType::gray))) << "converted";
}

}  // namespace
