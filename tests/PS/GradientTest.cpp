#include "Drawing/GradientBrush.h"
#include "Drawing/SpotColor.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Drawing::LinearGradientBrush;
using Drawing::RadialGradientBrush;
using Drawing::StopPoint;
using testing::HasSubstr;

SmartPtr<Drawing::Color> color(int r, int g, int b) {
    return makeObject<Drawing::RGBColor>(static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
                                         static_cast<std::uint8_t>(b));
}

Core::Vector<StopPoint> redToBlue() {
    return {{0.25F, color(255, 0, 0)}, {0.75F, color(0, 0, 255)}};
}

void fillPage(OpenDocument& d, const SmartPtr<Drawing::Brush>& brush) {
    d.startPage({100, 50});
    d.setTransform({});
    d.setStroke(nullptr);
    d.setFill(brush);
    d.drawRectangle(0, 0, 100, 50, 0, 0);
    d.endPage();
}

TEST(Gradients, EveryUseIsSelectedUnderANameOfItsOwn) {
    const auto linear =
        makeObject<LinearGradientBrush>(Drawing::XPointF{1, 2}, Drawing::XPointF{3, 4.5F},
                                        redToBlue(), Drawing::Matrix(1, 0, 0, -1, 0, 50));
    const auto context = makeContext();
    context->writeBrush(linear);
    context->writeBrush(linear);
    context->writeBrush(
        makeObject<RadialGradientBrush>(Drawing::XPointF{5, 6}, 7.0F, 8.0F, redToBlue()));
    const std::string rest = "\t\nmakepattern /shader exch def\nshader setpattern\n";
    EXPECT_EQ("shader_1 [1 0 0 -1 0 50] " + rest + "shader_2 [1 0 0 -1 0 50] " + rest +
                  "shader_3 [1 0 0 1 0 0] " + rest,
              normalised(context->script()));
    ASSERT_EQ(3U, context->gradients.size());
    EXPECT_EQ(Core::String("[1 2 3 4.5]"), context->gradients.front()->getCoords());
    EXPECT_EQ(Core::String("[5 6 7 5 6 8]"), context->gradients.back()->getCoords());
    EXPECT_EQ(3U, context->gradients.back()->getShadingType());
    EXPECT_NE(context->gradients.front()->getName(), context->gradients.back()->getName());
    const auto& first = context->gradients.front();
    EXPECT_FALSE(context->hasGradientFill(makeObject<Drawing::PS::PSGradient>(*first)))
        << "an equal one is another one";
    first->setName(u"");
    EXPECT_TRUE(context->hasGradientFill(first)) << "the object counts, not its name";
}

TEST(Gradients, AreDefinedByFunctionsAndAShading) {
    const std::string document = finished([](OpenDocument& d) {
        fillPage(d, makeObject<LinearGradientBrush>(Drawing::XPointF{0, 0},
                                                    Drawing::XPointF{100, 0}, redToBlue()));
    });
    expectApproved("linear-gradient.ps", document);
    const Interpretation seen = interpret(document);
    ASSERT_EQ("", seen.messages);
    const Picture& page = seen.pages.at(0);
    EXPECT_EQ((Picture::Pixel{254, 0, 0}), page.at(5, 25));
    EXPECT_NEAR(127, page.at(50, 25)[0], 5);
    EXPECT_NEAR(127, page.at(50, 25)[2], 5);
    EXPECT_EQ((Picture::Pixel{0, 0, 254}), page.at(95, 25));
}

TEST(Gradients, OneStopIsTwoFunctionsAndNoneIsNoDefinition) {
    const auto radial = [](Core::Vector<StopPoint> stops) {
        return finished([&](OpenDocument& d) {
            d.startPage({10, 10});
            d.writeBrush(makeObject<RadialGradientBrush>(Drawing::XPointF{5, 5}, 0.0F, 5.0F,
                                                         std::move(stops)));
        });
    };
    const std::string one = radial({{0.5F, color(255, 0, 0)}});
    EXPECT_THAT(one, HasSubstr("/Function1 7 dict def Function1 begin\n"));
    EXPECT_THAT(one, HasSubstr("/Functions [Function0 Function1 ]\n/Domain [0 1]\n/Bounds [0.5 ]\n"
                               "/Encode [0 1 0 1 ]\n"));
    EXPECT_EQ(std::string::npos, radial({}).find("Function0"));
}

TEST(Gradients, ColourSpaceIsThatOfTheFirstStop) {
    const auto space = [](const SmartPtr<Drawing::Color>& first) {
        return finished([&](OpenDocument& d) {
            d.startPage({10, 10});
            d.writeBrush(makeObject<LinearGradientBrush>(
                Drawing::XPointF{}, Drawing::XPointF{1, 0},
                Core::Vector<StopPoint>{{0.0F, first}, {1.0F, color(0, 0, 0)}}));
        });
    };
    EXPECT_THAT(space(makeObject<Drawing::CMYKColor>(0.0, 0.0, 0.0, 1.0)),
                HasSubstr("/ColorSpace DeviceCMYK\n"));
    EXPECT_THAT(space(makeObject<Drawing::GrayScaleColor>(std::uint8_t{9})),
                HasSubstr("/ColorSpace /DeviceGray\n"));
    EXPECT_THROW(space(makeObject<Drawing::SpotColor>(u"Ink", nullptr)),
                 Core::UnreacheableCodeException);
}

}  // namespace
