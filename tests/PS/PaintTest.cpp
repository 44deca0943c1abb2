#include "Drawing/GradientBrush.h"
#include "Drawing/SpotColor.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Core::UnreacheableCodeException;
using Drawing::CMYKColor;
using Drawing::Color;
using Drawing::ColorSubstitute;
using Drawing::GrayScaleColor;
using Drawing::RGBColor;
using Drawing::SolidColorBrush;
using Drawing::SpotColor;

SmartPtr<RGBColor> rgbColor(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return makeObject<RGBColor>(r, g, b);
}

std::string painted(const SmartPtr<Drawing::Brush>& brush) {
    return drawn([&](OpenDocument& d) { d.writeBrush(brush); });
}

std::string painted(const SmartPtr<Color>& color) {
    return painted(SmartPtr<Drawing::Brush>(makeObject<SolidColorBrush>(color)));
}

class OddColor : public Color {
public:
    explicit OddColor(int type) : type_(type) {}
    [[nodiscard]] Drawing::ColorType getColorType() const override {
        return static_cast<Drawing::ColorType>(type_);
    }

private:
    int type_;
};

class OddBrush : public Drawing::Brush {
public:
    OddBrush() : Brush(1) {}
    [[nodiscard]] Drawing::BrushType getBrushType() const override {
        return static_cast<Drawing::BrushType>(5);
    }
};

TEST(Colors, EachKindHasItsOperator) {
    EXPECT_EQ(" 0.99609375 0 0.5 setrgbcolor\n", painted(rgbColor(255, 0, 128)));
    EXPECT_EQ("128 setgray\n", painted(makeObject<GrayScaleColor>(std::uint8_t{128})));
    EXPECT_EQ("0.1 0 1 0.25 setcmykcolor\n", painted(makeObject<CMYKColor>(0.1, 0.0, 1.0, 0.25)));
    for (const int silent : {0, 4, 5, 6})
        EXPECT_EQ("", painted(makeObject<OddColor>(silent)));
    EXPECT_EQ("", painted(SmartPtr<Drawing::Brush>(makeObject<Drawing::NoneBrush>())));
}

TEST(Colors, UnknownKindsAndNullsRaise) {
    EXPECT_RAISES(UnreacheableCodeException, "PSDocument:1192", painted(makeObject<OddColor>(8)));
    EXPECT_RAISES(UnreacheableCodeException, "PSDocument:1192", painted(makeObject<OddColor>(-1)));
    EXPECT_RAISES(UnreacheableCodeException, "PSDocument:1274", painted(makeObject<OddBrush>()));
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118", painted(SmartPtr<Color>()));
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118", painted(SmartPtr<Drawing::Brush>()));
}

TEST(Colors, SpotColorsCarryTheirSubstitute) {
    const auto cmyk = makeObject<CMYKColor>(0.5, 0.25, 0.0, 1.0);
    const auto spot = [](const char* name, const SmartPtr<ColorSubstitute>& substitute) {
        return painted(makeObject<SpotColor>(name, substitute));
    };
    EXPECT_EQ(
        "[/Separation \n/Deep#20Blue#202\n/DeviceRGB\n{ 0 0}\n] setcolorspace\n"
        "0.99609375 setcolor\n",
        spot("Deep Blue 2", makeObject<ColorSubstitute>(rgbColor(255, 0, 0), cmyk)));
    EXPECT_EQ("[/Separation \n/Ink\n/DeviceCMYK\n{ 0.25 0 1}\n] setcolorspace\n0.5 setcolor\n",
              spot("Ink", makeObject<ColorSubstitute>(nullptr, cmyk)));
    EXPECT_EQ("", spot("None", makeObject<ColorSubstitute>(nullptr)));
    EXPECT_RAISES(Core::NullPointerException, "SmartPtr:118", spot("Null", nullptr));
}

TEST(Colors, ArraysScaleEveryComponent) {
    const auto array = [](const SmartPtr<Color>& color) {
        return OpenDocument::formatColorArray(color).toUtf8();
    };
    EXPECT_EQ("[0.00390625 0 0.001953125 1]", array(makeObject<CMYKColor>(1.0, 0.0, 0.5, 256.0)));
    EXPECT_EQ("[0.99609375 0 0.5]", array(rgbColor(255, 0, 128)));
    EXPECT_EQ("[0.25]", array(makeObject<GrayScaleColor>(std::uint8_t{64})));
    EXPECT_EQ("", array(makeObject<SpotColor>(u"x", nullptr)));
}

TEST(Colors, BlendTowardsWhite) {
    using Drawing::PS::PSDocument;
    EXPECT_EQ(255, PSDocument::getBlendedColor(0, 0));
    EXPECT_EQ(7, PSDocument::getBlendedColor(7, 255));
    EXPECT_EQ(126, PSDocument::getBlendedColor(0, 128)) << "cut off, not rounded";
}

TEST(Colors, AnInterpreterShowsThem) {
    const Interpretation seen = interpret(finished([](OpenDocument& d) {
        d.startPage({40, 10});
        d.setTransform({});
        d.setStroke(nullptr);
        const SmartPtr<Color> colors[] = {
            rgbColor(255, 0, 128), makeObject<CMYKColor>(0.0, 1.0, 1.0, 0.0),
            makeObject<GrayScaleColor>(std::uint8_t{128}),
            makeObject<SpotColor>(u"Deep Blue", makeObject<ColorSubstitute>(rgbColor(0, 0, 128)))};
        float x = 0;
        for (const auto& color : colors) {
            d.setFill(makeObject<SolidColorBrush>(color));
            d.drawRectangle(x, 0, 10, 10, 0, 0);
            x += 10;
        }
        d.endPage();
    }));
    ASSERT_EQ("", seen.messages);
    const Picture& page = seen.pages.at(0);
    EXPECT_EQ((Picture::Pixel{254, 0, 127}), page.at(5, 5));
    EXPECT_GT(page.at(15, 5)[0], 200);
    EXPECT_LT(page.at(15, 5)[1], 60);
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), page.at(25, 5)) << "grey other than 0 is white";
    EXPECT_EQ((Picture::Pixel{0, 0, 127}), page.at(35, 5));
}

}  // namespace
