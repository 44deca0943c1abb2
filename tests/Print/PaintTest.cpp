#include "tests/Print/PrintedDocument.h"

#include "Drawing/ColorFieldBrush.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/SpotColor.h"
#include "Print/PrintException.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <tuple>

using Core::makeObject;
using Core::SmartPtr;
using Drawing::Brush;
using Drawing::Color;
using Drawing::ColorSpaceType;
using Drawing::GradientSpread;
using Drawing::LinearGradientBrush;
using Drawing::RadialGradientBrush;
using Drawing::RGBColor;
using Drawing::SolidColorBrush;
using Drawing::StopPoint;
using Drawing::XPointF;
using Drawing::Print::ColorConverter;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintException;
using Drawing::Print::PrintSettings;

namespace {

SmartPtr<Color> rgb(int red, int green, int blue) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return makeObject<RGBColor>(byte(red), byte(green), byte(blue));
}

SmartPtr<Color> gray(int level) {
    return makeObject<Drawing::GrayScaleColor>(static_cast<std::uint8_t>(level));
}

SmartPtr<Brush> brushOf(const SmartPtr<Color>& color, float opacity = 1) {
    return makeObject<SolidColorBrush>(color, opacity);
}

std::string filledWith(const SmartPtr<Brush>& brush, const PrintSettings& settings = {}) {
    return contentOf(
        [&](PrintDocument& document) {
            document.setFill(brush);
            document.drawRectangle(0, 0, 100, 100, 0, 0);
        },
        settings);
}

Picture pageOf(const SmartPtr<Brush>& brush, const PrintSettings& settings = {}) {
    return shown(
        [&](PrintDocument& document) {
            document.setFill(brush);
            document.drawRectangle(0, 0, 100, 100, 0, 0);
        },
        settings);
}

SmartPtr<Drawing::ColorSubstitute> cmyk(double c, double m, double y, double k) {
    return makeObject<Drawing::ColorSubstitute>(nullptr,
                                                makeObject<Drawing::CMYKColor>(c, m, y, k));
}

const Core::Vector<StopPoint>& redToBlue() {
    static const Core::Vector<StopPoint> stops{{0, rgb(255, 0, 0)}, {1, rgb(0, 0, 255)}};
    return stops;
}

testing::AssertionResult isNear(const Picture::Pixel& seen, const Picture::Pixel& wanted,
                                int tolerance = 3) {
    for (std::size_t i = 0; i < seen.size(); ++i)
        if (std::abs(int{seen[i]} - int{wanted[i]}) > tolerance)
            return testing::AssertionFailure()
                   << int{seen[0]} << ' ' << int{seen[1]} << ' ' << int{seen[2]};
    return testing::AssertionSuccess();
}

/// How many pixels of the plate named `plate` hold ink.
long inkOnPlate(const std::string& document, const std::string& plate) {
    const std::string folder = std::string(std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "/tmp") +
                               "/psgraphics-plates-" + std::to_string(::getpid());
    std::filesystem::create_directories(folder);
    outputOf("gs -q -dSAFER -sDEVICE=tiffsep -sCompression=none -r72 -dNOPAUSE -dBATCH -o " +
                 folder + "/p.tif -",
             document);
    // Uncompressed pixels are the end of the file.
    const std::string file = outputOf("cat '" + folder + "/p(" + plate + ").tif'", "");
    long inked = 0;
    for (const char level : file.substr(file.size() > 10000 ? file.size() - 10000 : 0))
        inked += static_cast<unsigned char>(level) < 250 ? 1 : 0;
    std::filesystem::remove_all(folder);
    return inked;
}

}  // namespace

TEST(PrintPaint, writesColoursOfAllKinds) {
    EXPECT_EQ(filledWith(brushOf(gray(128))), ".502 g\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(rgb(1, 254, 128))), ".0039 .9961 .502 rg\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(rgb(7, 7, 7))), ".0275 g\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(makeObject<Drawing::CMYKColor>(0.1, 0, 1, 0.25))),
              ".1 0 1 .25 k\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(rgb(0, 0, 255), 0.5F)), ".5 .5 1 rg\n0 0 100 100 re f\n")
        << "opacity as it looks on white paper";
    EXPECT_EQ(pageOf(brushOf(rgb(255, 255, 255))).at(5, 5), kWhite);
    for (const int level : {1, 100, 254}) {
        const auto byte = static_cast<std::uint8_t>(level);
        EXPECT_EQ(pageOf(brushOf(rgb(level, 0, level))).at(5, 5), (Picture::Pixel{byte, 0, byte}));
    }
    EXPECT_THROW(filledWith(brushOf(makeObject<Drawing::CMYKColor>(2, 0, 0, 0))), PrintException);
}

TEST(PrintPaint, putsSpotInksOnPlatesOfTheirOwn) {
    const auto ink = [](const char* name, double tint) {
        return brushOf(makeObject<Drawing::SpotColor>(name, cmyk(1, 0.6, 0, 0.1), tint));
    };
    EXPECT_EQ(
        filledWith(ink("Deep (Blue) 2", 0.8)),
        ".8 [/Separation (Deep \\(Blue\\) 2)cvn/DeviceCMYK{dup 1 mul exch dup .6 mul exch dup "
        "0 mul exch .1 mul}]sp\n0 0 100 100 re f\n");
    const std::string document = onePage([&](PrintDocument& page) {
        page.setFill(ink("Deep Blue 2", 0.8));
        page.drawRectangle(0, 0, 50, 40, 0, 0);
        page.setFill(ink("Gold", 1));
        page.drawRectangle(60, 60, 10, 10, 0, 0);
    });
    EXPECT_EQ(inkOnPlate(document, "Deep Blue 2"), 2000);
    EXPECT_EQ(inkOnPlate(document, "Gold"), 100);
    EXPECT_EQ(inkOnPlate(document, "Cyan"), 0);
    EXPECT_THROW(filledWith(ink("", 1)), PrintException);
    EXPECT_THROW(filledWith(ink("Gold", 1.5)), PrintException);
}

TEST(PrintPaint, bringsAllColoursToOneSpace) {
    PrintSettings levels;
    levels.colors = ColorConverter::plain(ColorSpaceType::gray);
    EXPECT_EQ(filledWith(brushOf(rgb(255, 0, 0)), levels), ".3 g\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(makeObject<Drawing::CMYKColor>(0, 0, 0, 0.25)), levels),
              ".75 g\n0 0 100 100 re f\n");
    PrintSettings inks;
    inks.colors = ColorConverter::plain(ColorSpaceType::cmyk);
    EXPECT_EQ(filledWith(brushOf(rgb(255, 51, 0)), inks), "0 .8 1 0 k\n0 0 100 100 re f\n");
    EXPECT_EQ(filledWith(brushOf(gray(0)), inks), "0 0 0 1 k\n0 0 100 100 re f\n");
    PrintSettings light;
    light.colors = ColorConverter::plain(ColorSpaceType::rgb);
    EXPECT_EQ(filledWith(brushOf(makeObject<Drawing::CMYKColor>(0, 0.5, 1, 0.2)), light),
              ".8 .3 0 rg\n0 0 100 100 re f\n");
    const Picture page = pageOf(
        makeObject<LinearGradientBrush>(XPointF{0, 0}, XPointF{100, 0}, redToBlue()), levels);
    EXPECT_TRUE(isNear(page.at(0, 0), {76, 76, 76}));
    EXPECT_TRUE(isNear(page.at(99, 0), {28, 28, 28}));
}

TEST(PrintPaint, paintsEachGradientWithItsOwnStops) {
    const Picture page = shown([](PrintDocument& document) {
        const Core::Vector<StopPoint> steps{{0.2F, rgb(255, 0, 0)},
                                            {0.5F, rgb(255, 255, 0)},
                                            {0.5F, rgb(0, 255, 255)},
                                            {0.4F, rgb(0, 0, 255)}};
        document.setFill(makeObject<LinearGradientBrush>(XPointF{0, 0}, XPointF{100, 0}, steps));
        document.drawRectangle(0, 0, 100, 30, 0, 0);
        document.setFill(
            makeObject<LinearGradientBrush>(XPointF{0, 0}, XPointF{100, 0}, redToBlue()));
        document.drawRectangle(0, 30, 100, 30, 0, 0);
        document.setFill(
            makeObject<RadialGradientBrush>(XPointF{50, 80}, 0.0F, 10.0F, redToBlue()));
        document.drawRectangle(0, 60, 100, 40, 0, 0);
    });
    EXPECT_TRUE(isNear(page.at(10, 10), {255, 0, 0})) << "before the first stop";
    EXPECT_TRUE(isNear(page.at(48, 10), {255, 240, 0}, 10));
    EXPECT_TRUE(isNear(page.at(51, 10), {0, 0, 255})) << "a stop that goes back stands still";
    EXPECT_TRUE(isNear(page.at(50, 40), {127, 0, 128}));
    EXPECT_TRUE(isNear(page.at(50, 80), {255, 0, 0}, 20));
    EXPECT_TRUE(isNear(page.at(90, 80), {0, 0, 255})) << "goes on behind its end";
}

TEST(PrintPaint, repeatsAndReflectsGradients) {
    const auto linear = [](GradientSpread spread) {
        auto brush = makeObject<LinearGradientBrush>(XPointF{40, 0}, XPointF{60, 0}, redToBlue());
        brush->setSpread(spread);
        return pageOf(brush);
    };
    const Picture repeated = linear(GradientSpread::repeat);
    for (const int x : {1, 21, 41, 81})
        EXPECT_TRUE(isNear(repeated.at(x, 50), {236, 0, 19}, 8)) << x;
    const Picture reflected = linear(GradientSpread::reflect);
    for (const int x : {1, 38, 41, 78, 81})
        EXPECT_TRUE(isNear(reflected.at(x, 50), {236, 0, 19}, 12)) << x;
    auto rings = makeObject<RadialGradientBrush>(XPointF{50, 50}, 5.0F, 15.0F, redToBlue());
    rings->setSpread(GradientSpread::repeat);
    const Picture page = pageOf(rings);
    for (const int x : {56, 66, 76, 96})
        EXPECT_TRUE(isNear(page.at(x, 50), {220, 0, 35}, 25)) << x;
    EXPECT_TRUE(isNear(page.at(50, 50), {127, 0, 128}, 20)) << "half a period before the first";
}

TEST(PrintPaint, knowsTwoCirclesExtentAndOtherSpaces) {
    auto cone =
        makeObject<RadialGradientBrush>(XPointF{20, 50}, 5.0F, XPointF{70, 50}, 10.0F, redToBlue());
    cone->setExtend(false, false);
    const Picture page = pageOf(cone);
    EXPECT_EQ(page.at(5, 50), kWhite);
    EXPECT_EQ(page.at(95, 50), kWhite);
    EXPECT_EQ(page.at(50, 90), kWhite);
    EXPECT_TRUE(isNear(page.at(16, 50), {255, 0, 0}, 12));
    const auto ink = [](double tint) {
        return makeObject<Drawing::SpotColor>(u"Gold", cmyk(0, 0.2, 1, 0), tint);
    };
    const Core::Vector<StopPoint> inks{{0, ink(0)}, {1, ink(1)}};
    const std::string document = onePage([&](PrintDocument& target) {
        target.setFill(makeObject<LinearGradientBrush>(XPointF{20, 0}, XPointF{80, 0}, inks));
        target.drawRectangle(0, 0, 100, 10, 0, 0);
    });
    EXPECT_NEAR(static_cast<double>(inkOnPlate(document, "Gold")), 800, 25);
    EXPECT_EQ(inkOnPlate(document, "Cyan"), 0);
    const Core::Vector<StopPoint> mixed{{0, gray(255)},
                                        {1, makeObject<Drawing::CMYKColor>(0, 1, 1, 0)}};
    const Picture blend =
        pageOf(makeObject<LinearGradientBrush>(XPointF{0, 0}, XPointF{100, 0}, mixed));
    EXPECT_TRUE(isNear(blend.at(50, 50), {255, 127, 127}, 4));
    EXPECT_THROW(filledWith(makeObject<LinearGradientBrush>(XPointF{}, XPointF{1, 0},
                                                            Core::Vector<StopPoint>{})),
                 PrintException);
}

TEST(PrintPaint, blendsTheColoursOfAField) {
    Core::ByteArray colors(12);
    for (const std::size_t i : {0U, 4U, 8U, 9U, 10U, 11U})
        colors[i] = 255;
    const auto field =
        makeObject<Drawing::ColorFieldBrush>(XPointF{20, 20}, Drawing::SizeF{60, 60}, 2, 2, colors);
    const Picture page = pageOf(field);
    EXPECT_EQ(page.at(5, 5), kWhite);
    EXPECT_TRUE(isNear(page.at(21, 21), {250, 4, 4}, 8));
    EXPECT_TRUE(isNear(page.at(78, 21), {4, 250, 4}, 8));
    EXPECT_TRUE(isNear(page.at(50, 50), {127, 127, 127}, 8));
    EXPECT_THROW(std::ignore = makeObject<Drawing::ColorFieldBrush>(XPointF{}, Drawing::SizeF{1, 1},
                                                                    2, 3, colors),
                 Core::Exception);
}
