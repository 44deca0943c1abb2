#include "tests/Print/PrintedDocument.h"

#include "Drawing/Font.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/RasterImage.h"
#include "Print/PrintException.h"
#include "Print/PrintForm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using Core::makeObject;
using Drawing::IOutputContext;
using Drawing::PatternBrush;
using Drawing::Print::PrintDocument;
using Drawing::Print::PrintException;
using Drawing::Print::PrintForm;

namespace {

constexpr Picture::Pixel kRed{255, 0, 0};
constexpr Picture::Pixel kGreen{0, 255, 0};
constexpr Picture::Pixel kBlue{0, 0, 255};

void fill(IOutputContext& context, const Core::SmartPtr<Drawing::Brush>& brush, float x, float y,
          float width, float height) {
    context.setStroke(nullptr);
    context.setFill(brush);
    context.drawRectangle(x, y, width, height, 0, 0);
}

Core::SmartPtr<Drawing::Color> colorOf(std::uint8_t red, std::uint8_t blue) {
    const std::uint8_t green = 0;
    return makeObject<Drawing::RGBColor>(red, green, blue);
}

Core::SmartPtr<Drawing::Image> greenPixel() {
    Core::ByteArray pixels(3);
    pixels[1] = 255;
    return makeObject<Drawing::RasterImage>(Drawing::PixelSize{1, 1}, Drawing::ColorSpaceType::rgb,
                                            pixels);
}

/// A gradient, a picture, a pattern, a word and another form.
Core::SmartPtr<IOutputContext> richForm(IOutputContext& document) {
    const auto inner = document.createDocumentFragment(10, 10);
    fill(*inner, paintOf(0, 0, 255), 0, 0, 10, 10);
    const auto tile = document.createPatternOutputContext(4, 4);
    fill(*tile, paintOf(255, 0, 0), 0, 0, 2, 4);
    const auto form = document.createDocumentFragment(50, 50);
    const Core::Vector<Drawing::StopPoint> stops{{0, colorOf(255, 0)}, {1, colorOf(0, 255)}};
    fill(*form,
         makeObject<Drawing::LinearGradientBrush>(Drawing::XPointF{0, 0}, Drawing::XPointF{40, 0},
                                                  stops),
         0, 0, 40, 10);
    fill(*form, makeObject<PatternBrush>(tile, Drawing::Matrix()), 0, 10, 40, 10);
    form->drawImage(greenPixel(), 0, 20, 10, 10, 0);
    form->setTransform({1, 0, 0, 1, 20, 20});
    form->drawDocumentFragment(inner);
    form->setTransform({});
    form->setFill(paintOf(0, 0, 0));
    form->setFont(makeObject<Drawing::Font>(u"DejaVu Sans", 10.0F));
    form->drawText(u"office", 0, 0, 40, 0, false);
    return form;
}

}  // namespace

TEST(PrintForm, holdsAnythingAndIsPlacedAnywhere) {
    const std::string document = printed([](PrintDocument& target) {
        const auto form = richForm(target);
        for (int page = 0; page < 2; ++page) {
            target.startPage({100, 100});
            target.setTransform({1, 0, 0, 1, 5, 5});
            target.drawDocumentFragment(form);
            target.setTransform({2, 0, 0, 2, 10, 50});
            target.drawDocumentFragment(form);
            target.drawImage(greenPixel(), 30, 0, 5, 5, 0);
            target.endPage();
        }
    });
    const Interpretation result = interpret(document);
    ASSERT_EQ(result.pages.size(), 2U) << result.messages;
    for (const Picture& page : result.pages) {
        EXPECT_GT(page.at(6, 10)[0], 240) << "start of the gradient";
        EXPECT_EQ(page.at(6, 20), kRed) << "stripe of the pattern";
        EXPECT_EQ(page.at(8, 20), kWhite) << "its gap";
        EXPECT_EQ(page.at(10, 30), kGreen);
        EXPECT_EQ(page.at(30, 30), kBlue);
        EXPECT_EQ(page.at(12, 72), kRed);
        EXPECT_EQ(page.at(16, 72), kWhite) << "the tile enlarged";
        EXPECT_EQ(page.at(75, 55), kGreen) << "the same picture on the page";
    }
    EXPECT_EQ(document.find("/ReusableStreamDecode"), document.rfind("/ReusableStreamDecode"))
        << "one definition of the picture";
    const std::string words = wordsOf(document);
    EXPECT_NE(words.find("office", words.find("office") + 1), std::string::npos);
}

TEST(PrintForm, startsInAStateOfItsOwn) {
    const Picture page = shown([](PrintDocument& document) {
        const auto form = document.createDocumentFragment(20, 20);
        form->setFill(nullptr);
        form->drawLine(0, 10, 20, 10);
        document.setStroke(lineOf(30));
        document.setFill(paintOf(255, 0, 0));
        document.drawRectangle(80, 80, 1, 1, 0, 0);
        document.setTransform({1, 0, 0, 1, 20, 20});
        document.drawDocumentFragment(form);
    });
    EXPECT_EQ(page.at(30, 29), kBlack);
    EXPECT_EQ(page.at(30, 27), kWhite) << "its line is 1 wide";
}

TEST(PrintForm, isPlacedAtManyPointsAtOnce) {
    const auto draw = [](bool atOnce) {
        return onePage([=](PrintDocument& document) {
            std::vector<Drawing::XPointF> places;
            for (int i = 0; i < 23; ++i)
                places.push_back({static_cast<float>(i * 17 % 45), static_cast<float>(2 * i)});
            const auto form = document.createDocumentFragment(5, 5);
            fill(*form, paintOf(0, 0, 255), 1, 1, 3, 2);
            document.setTransform({0, 2, -2, 0, 100, 0});
            if (atOnce)
                document.drawDocumentFragments(form, places);
            else
                for (const Drawing::XPointF& point : places) {
                    document.setTransform({0, 2, -2, 0, 100 - 2 * point.y, 2 * point.x});
                    document.drawDocumentFragment(form);
                }
            document.drawDocumentFragments(form, {});
        });
    };
    const std::string atOnce = draw(true);
    const std::string singly = draw(false);
    EXPECT_EQ(shownPage(singly).bytes, shownPage(atOnce).bytes);
    EXPECT_EQ(shownPage(atOnce).at(97, 3), kBlue);
    EXPECT_LT(atOnce.size() + 400, singly.size());
}

TEST(PrintForm, isDefinedWhereItIsNeeded) {
    const std::string document = printed([](PrintDocument& target) {
        const auto often = target.createDocumentFragment(1, 1);
        fill(*often, paintOf(0, 0, 255), 0, 0, 1, 1);
        const auto once = target.createDocumentFragment(1, 1);
        fill(*once, paintOf(255, 0, 0), 0, 0, 1, 1);
        for (int page = 0; page < 2; ++page) {
            target.startPage({10, 10});
            target.drawDocumentFragment(often);
            if (page == 1)
                target.drawDocumentFragment(once);
            target.endPage();
        }
        EXPECT_TRUE(often->isFragmentOf(Core::SmartPtr<IOutputContext>(&target)));
    });
    const std::size_t setupEnd = document.find("%%EndSetup");
    EXPECT_LT(document.find("/X1<<"), setupEnd);
    EXPECT_GT(document.find("/X2<<"), document.find("%%Page: 2 2"));
}

TEST(PrintForm, mayBeLargerThanAnOperandStack) {
    const std::string document = onePage([](PrintDocument& target) {
        const auto form = target.createDocumentFragment(100, 100);
        form->setStroke(nullptr);
        form->setFill(paintOf(0, 0, 255));
        const auto path = makeObject<Drawing::Path>();
        for (int i = 0; i < 150000; ++i) {
            const int row = i / 1500;
            const auto x = static_cast<float>(i % 100);
            const auto y = static_cast<float>(row);
            i % 3 == 0 ? path->moveTo(x, y) : path->lineTo(x, y);
        }
        form->drawPath(path);
        form->drawRectangle(90, 90, 10, 10, 0, 0);
        target.drawDocumentFragment(form);
    });
    EXPECT_EQ(shownPage(document).at(95, 95), kBlue);
}

TEST(PrintForm, tilesRepeatWithinTheirBounds) {
    const Picture page = shown([](PrintDocument& document) {
        const auto tile = document.createPatternOutputContext(20, 20);
        fill(*tile, paintOf(255, 0, 0), 5, 5, 20, 5);
        const auto wide = document.createPatternOutputContext(20, 20);
        static_cast<PrintForm&>(*wide).setBounds(0, 0, 30, 20);
        fill(*wide, paintOf(0, 0, 255), 15, 5, 10, 5);
        fill(document, makeObject<PatternBrush>(tile, Drawing::Matrix(1, 0, 0, 1, 10, 0)), 0, 0,
             100, 50);
        fill(document, makeObject<PatternBrush>(wide, Drawing::Matrix()), 0, 50, 100, 50);
    });
    EXPECT_EQ(page.at(16, 7), kRed);
    EXPECT_EQ(page.at(12, 7), kWhite) << "cut at the tile's edge";
    EXPECT_EQ(page.at(36, 7), kRed);
    EXPECT_EQ(page.at(17, 67), kBlue);
    EXPECT_EQ(page.at(23, 67), kBlue) << "beyond the step, within the bounds";
    EXPECT_EQ(page.at(10, 67), kWhite);
}

TEST(PrintForm, isRefusedWhereItDoesNotBelong) {
    onePage([](PrintDocument& document) {
        const auto form = document.createDocumentFragment(1, 1);
        document.drawDocumentFragment(form);
        EXPECT_THROW(form->drawRectangle(0, 0, 1, 1, 0, 0), PrintException) << "after placing";
        EXPECT_THROW(form->startPage({1, 1}), PrintException);
        EXPECT_THROW(form->endDocument(), PrintException);
        onePage([&](PrintDocument& other) {
            EXPECT_THROW(other.drawDocumentFragment(form), PrintException);
            EXPECT_THROW(other.drawDocumentFragment(nullptr), PrintException);
            other.setFill(makeObject<PatternBrush>(nullptr, Drawing::Matrix()));
            EXPECT_THROW(other.drawRectangle(0, 0, 1, 1, 0, 0), PrintException);
        });
        const auto tile = document.createPatternOutputContext(9, 9);
        const auto self = document.createDocumentFragment(9, 9);
        EXPECT_THROW(self->drawDocumentFragment(self), PrintException);
        tile->setFill(makeObject<PatternBrush>(tile, Drawing::Matrix()));
        EXPECT_THROW(tile->drawRectangle(0, 0, 1, 1, 0, 0), PrintException) << "with itself";
        tile->setFill(nullptr);
        tile->drawRectangle(0, 0, 1, 1, 0, 0);
    });
}
