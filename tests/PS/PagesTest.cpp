#include "Core/Log.h"
#include "tests/support/Documents.h"
#include "tests/support/Raises.h"

#include <gmock/gmock.h>

namespace {

const char* const kDefaults =
    "<</Duplex false \n/MediaPosition 1\n/MediaColor null\n/NumCopies 1\n/Jog 1\n"
    "/Tumble false/ImagingBBox null\n>> setpagedevice\n";

std::string script(const std::function<void(OpenDocument&)>& draw) {
    const auto document = Core::makeObject<OpenDocument>(nullptr, false);
    draw(*document);
    return document->script();
}

TEST(Pages, WriteTheirSizeOnlyWhenItChanges) {
    EXPECT_EQ(
        "%%Page:1 1\n<</PageSize [595.3 842]\n/ImagingBBox null\n>> setpagedevice\n"
        "%%PageTrailer\nshp\n"
        "%%Page:2 2\n%%PageTrailer\nshp\n"
        "%%Page:3 3\n<</PageSize [595.25 842]\n/ImagingBBox null\n>> setpagedevice\n"
        "%%PageTrailer\nshp\n",
        script([](OpenDocument& d) {
            for (const float width : {595.3F, 595.3F, 595.25F}) {
                d.startPage({width, 842});
                d.endPage();
            }
        }));
}

TEST(Pages, KeepPaintAndTransformButResetClipAndFillRule) {
    script([](OpenDocument& d) {
        d.startPage({10, 20});
        const auto fill = rgb(1, 2, 3);
        d.setFill(fill);
        d.setStroke(nullptr);
        d.setTransform({2, 0, 0, 2, 0, 0});
        d.setClip({});
        d.graphicsState->fillRule = 0;
        d.startPage({30, 40});
        EXPECT_EQ(fill, d.graphicsState->fill);
        EXPECT_FALSE(d.graphicsState->hasStroke());
        EXPECT_EQ(Drawing::Matrix(2, 0, 0, -2, 0, 20), d.graphicsState->transform);
        EXPECT_EQ(1, d.graphicsState->fillRule);
        ASSERT_EQ(1U, d.graphicsState->clipPaths.size());
        EXPECT_EQ(40, d.graphicsState->clipPaths[0]->getCommandAt(2).y);
    });
}

TEST(PrintingOptions, AreWrittenWhereTheyAreSet) {
    EXPECT_EQ(std::string(kDefaults) +
                  "<</Duplex true \n/MediaPosition 3\n/MediaColor null\n/NumCopies 2\n/Jog 0\n"
                  "/Tumble false/ImagingBBox null\n>> setpagedevice\n",
              script([](OpenDocument& d) {
                  d.setPrintingOptions({});
                  d.setPrintingOptions({3, 0, 2, true, u""});
              }));
    EXPECT_THAT(script([](OpenDocument& d) {
                    d.setPrintingOptions({1, 1, 1, false, u"(blue)"});
                }),
                testing::HasSubstr("/MediaColor (blue)\n"));
}

TEST(PrintingOptions, WarnOfASizeChangeInsideADuplexJob) {
    std::vector<std::string> warnings;
    auto before =
        Core::Log::setSink([&](const Core::String& text) { warnings.push_back(text.toUtf8()); });
    script([&](OpenDocument& d) {
        d.setPrintingOptions({1, 1, 1, true, u""});
        d.startPage({10, 10});
        d.startPage({10, 10});
        EXPECT_EQ(0U, warnings.size()) << "the first page, and one of the same size";
        d.startPage({20, 10});
        EXPECT_EQ(1U, warnings.size());
        d.setPrintingOptions({1, 1, 1, true, u""});
        d.startPage({10, 10});
        EXPECT_EQ(1U, warnings.size()) << "the options were set again";
        d.setPrintingOptions({});
        d.startPage({10, 10});
        d.startPage({20, 10});
        EXPECT_EQ(1U, warnings.size()) << "not duplex";
    });
    Core::Log::setSink(std::move(before));
    EXPECT_THAT(warnings.at(0), testing::HasSubstr("duplex"));
}

TEST(State, SettersStoreAndDemandAPage) {
    const auto document = Core::makeObject<OpenDocument>(nullptr, false);
    const std::string null = "SmartPtr:118";
    using Error = Core::NullPointerException;
    EXPECT_RAISES(Error, null, document->setStroke(nullptr));
    EXPECT_RAISES(Error, null, document->setFill(nullptr));
    EXPECT_RAISES(Error, null, document->setFont(nullptr));
    EXPECT_RAISES(Error, null, document->setClip({}));
    EXPECT_RAISES(Error, null, document->setTransform({}));
    EXPECT_RAISES(Error, null, document->drawLine(0, 0, 1, 1));
    EXPECT_EQ("", document->script());
    EXPECT_RAISES(Error, null, document->drawEllipse(0, 0, 1, 1));
    EXPECT_EQ("q\n", document->script()) << "what was written stays";
}

TEST(State, TransformHoldsTheFlipOfItsPage) {
    const std::string text = script([](OpenDocument& d) {
        d.startPage({100, 842});
        d.setClip({Drawing::PathCommand::rectangle(0, 0, 1, 1, 0, 0)});
        d.drawLine(0, 0, 1, 1);
        d.setTransform({});
        d.drawLine(0, 0, 1, 1);
        d.drawLine(0, 0, 1, 1);
        d.startPage({100, 500});
        d.drawLine(0, 0, 1, 1);
        d.setTransform({0.5F, 0, 0, 2, 10, 20});
        d.drawLine(0, 0, 1, 1);
    });
    std::string matrices;
    for (std::size_t at = text.find("q\n["); at != std::string::npos;
         at = text.find("q\n[", at + 1))
        matrices += text.substr(at + 2, text.find('\n', at + 2) - at - 1);
    EXPECT_EQ(
        "[1 0 0 1 0 0] cm\n[1 0 0 -1 0 842] cm\n[1 0 0 -1 0 842] cm\n[1 0 0 -1 0 842] cm\n"
        "[0.5 0 0 -2 10 480] cm\n",
        matrices);
}

}  // namespace
