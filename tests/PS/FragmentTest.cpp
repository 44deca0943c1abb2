#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/RasterImage.h"
#include "PS/PSDocumentFragment.h"
#include "PS/PSPatternBrush.h"
#include "tests/support/Documents.h"
#include "tests/support/Interpreter.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

namespace {

using Core::makeObject;
using Core::SmartPtr;
using Core::UnreacheableCodeException;
using Drawing::IOutputContext;
using Drawing::PatternBrush;
using Drawing::PS::PSDocumentFragment;

std::uint64_t numberOf(const SmartPtr<IOutputContext>& context) {
    const std::string name = context.dynamicCast<PSDocumentFragment>()->getName().toUtf8();
    return std::stoul(name.substr(name.find('_') + 1));
}

/// A red square of 10 points.
void drawSquare(IOutputContext& context) {
    context.setStroke(nullptr);
    context.setFill(rgb(255, 0, 0));
    context.drawRectangle(0, 0, 10, 10, 0, 0);
}

TEST(Fragments, AreDefinedOnceAndPlacedManyTimes) {
    const std::string document = finished(
        [](OpenDocument& d) {
            d.startPage({100, 50});
            const auto fragment = d.createDocumentFragment(10, 10);
            drawSquare(*fragment);
            d.createDocumentFragment(1, 1);
            for (const float x : {0.0F, 40.0F, 80.0F}) {
                d.setTransform({1, 0, 0, 1, x, 20});
                d.drawDocumentFragment(fragment);
            }
            EXPECT_TRUE(fragment->isFragmentOf(SmartPtr<IOutputContext>(&d)));
            d.endPage();
        },
        true);
    expectApproved("fragment.ps", document);
    const Interpretation seen = interpret(document);
    ASSERT_EQ("", seen.messages);
    for (const int x : {5, 45, 85})
        EXPECT_EQ((Picture::Pixel{254, 0, 0}), seen.pages.at(0).at(x, 25)) << x;
    EXPECT_EQ((Picture::Pixel{255, 255, 255}), seen.pages.at(0).at(25, 25));
}

TEST(Fragments, DoNotNestAndKnowTheirDocument) {
    const auto document = makeContext();
    const auto stranger = makeContext();
    const auto fragment = document->createDocumentFragment(3, 4);
    EXPECT_EQ(9, static_cast<int>(fragment->getType()));
    EXPECT_FALSE(fragment->isFragmentOf(document)) << "not before it is placed";
    document->drawDocumentFragment(fragment);
    EXPECT_TRUE(fragment->isFragmentOf(document));
    EXPECT_FALSE(fragment->isFragmentOf(stranger));
    EXPECT_FALSE(document->isFragmentOf(document));
    const std::string placed = document->script();
    document->drawDocumentFragment(stranger);
    document->drawDocumentFragment(nullptr);
    EXPECT_EQ(placed, document->script()) << "what is no fragment is ignored";
    EXPECT_RAISES(UnreacheableCodeException, "PSDocument:1",
                  fragment->createDocumentFragment(1, 1));
    EXPECT_RAISES(UnreacheableCodeException, "PSDocument:2",
                  fragment->drawDocumentFragment(fragment));
}

TEST(Fragments, KeepTheSpaceOfTheirPlace) {
    const auto fragment = makeContext()->createDocumentFragment(3, 4);
    fragment->setTransform({1, 0, 0, 1, 5, 6});
    fragment->drawLine(0, 0, 1, 1);
    const auto bytes = fragment.dynamicCast<PSDocumentFragment>()->getRecordedBytes();
    EXPECT_THAT(std::string(bytes.view()), testing::StartsWith("q\n[1 0 0 1 5 6] cm\n"));
}

TEST(Fragments, MayTakeOverADocumentAndThenShareItsScript) {
    const auto document = makeObject<OpenDocument>(nullptr, false);
    document->startPage({10, 10});
    const auto fragment = makeObject<PSDocumentFragment>(3.0F, 4.0F);
    static_cast<Drawing::PS::PSDocument&>(*fragment) = *document;
    fragment->drawLine(0, 0, 1, 1);
    EXPECT_EQ(document->script(), fragment->getRecordedBytes().view());
    document->endPage();
    EXPECT_THAT(std::string(fragment->getRecordedBytes().view()),
                testing::EndsWith("Q\n%%PageTrailer\nshp\n"));
}

TEST(Fragments, PatternsTakeAFragmentNumberToo) {
    const auto document = makeContext();
    const auto first = document->createDocumentFragment(1, 1);
    const auto pattern = document->createPatternOutputContext(1, 1);
    EXPECT_EQ(numberOf(first) + 2, numberOf(document->createDocumentFragment(1, 1)));
    EXPECT_EQ(numberOf(pattern) + 1, numberOf(document->createPatternOutputContext(1, 1)));
}

TEST(Fragments, BringTheirResources) {
    const std::string document = finished([](OpenDocument& d) {
        d.startPage({10, 10});
        const auto fragment = d.createDocumentFragment(10, 10);
        fragment->drawImage(
            makeObject<Drawing::RasterImage>(Drawing::PixelSize{1, 1},
                                             Drawing::ColorSpaceType::gray, Core::ByteArray(1)),
            0, 0, 1, 1, 0);
        fragment->setFill(makeObject<Drawing::LinearGradientBrush>(
            Drawing::XPointF{0, 0}, Drawing::XPointF{10, 0},
            Core::Vector<Drawing::StopPoint>{
                {0, makeObject<Drawing::RGBColor>(std::uint8_t{9}, std::uint8_t{9},
                                                  std::uint8_t{9})}}));
        fragment->drawRectangle(0, 0, 9, 9, 0, 0);
        d.drawDocumentFragment(fragment);
    });
    const auto image = document.find("/CreateDataArray");
    const auto shading = document.find("/Function0");
    const auto procedure = document.find("\n/docf_");
    EXPECT_LT(image, shading);
    EXPECT_LT(shading, procedure);
    EXPECT_NE(std::string::npos, procedure);
    EXPECT_EQ("", interpret(document).messages);
}

TEST(Patterns, TileIsDefinedOnceAndUsedWithTheBrushesMatrix) {
    const std::string document = finished([](OpenDocument& d) {
        d.startPage({100, 50});
        d.setTransform({});
        d.setStroke(nullptr);
        const auto tile = d.createPatternOutputContext(20, 25);
        d.createPatternOutputContext(1, 1);
        drawSquare(*tile);
        d.setFill(makeObject<PatternBrush>(tile, Drawing::Matrix()));
        d.drawRectangle(0, 0, 60, 50, 0, 0);
        d.setFill(makeObject<PatternBrush>(tile, Drawing::Matrix(), Drawing::XPointF{65, 5}));
        d.drawRectangle(60, 0, 40, 50, 0, 0);
        d.endPage();
    });
    expectApproved("pattern.ps", document);
    const Interpretation seen = interpret(document);
    ASSERT_EQ("", seen.messages);
    const Picture& page = seen.pages.at(0);
    const Picture::Pixel red{254, 0, 0};
    const Picture::Pixel white{255, 255, 255};
    EXPECT_EQ(red, page.at(5, 5));
    EXPECT_EQ(white, page.at(15, 5));
    EXPECT_EQ(red, page.at(45, 30));
    EXPECT_EQ(white, page.at(45, 20));
    EXPECT_EQ(red, page.at(70, 10));
    EXPECT_EQ(white, page.at(62, 10));
}

}  // namespace
