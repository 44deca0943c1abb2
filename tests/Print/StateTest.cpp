#include "tests/Print/PrintedDocument.h"
#include "tests/support/Raises.h"

#include "Core/Exception.h"
#include "Drawing/Font.h"
#include "Drawing/Image.h"
#include "Drawing/RasterImage.h"
#include "Print/PrintException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using Core::makeObject;
using Drawing::FillRule;
using Drawing::LineCap;
using Drawing::LineJoin;
using Drawing::Print::PrintDocument;

TEST(PrintState, writesOnlyWhatChanges) {
    EXPECT_EQ(contentOf([](PrintDocument& document) {
                  document.setFill(paintOf(255, 0, 0));
                  document.drawRectangle(1, 2, 3, 4, 0, 0);
                  document.setFill(paintOf(255, 0, 0));
                  document.drawRectangle(5, 6, 7.25F, 8, 0, 0);
                  document.setTransform({2, 0, 0, 2, 10, 0});
                  document.drawRectangle(1, 2, 3, 4, 0, 0);
                  document.drawEllipse(1, 2, 3, 4);
                  document.setTransform({});
                  document.setStroke(lineOf(0.5F));
                  document.drawRectangle(5, 6, 7, 8, 0, 0);
                  document.setFill(nullptr);
                  document.drawLine(1, 2, 3, 4);
              }),
              "1 0 0 rg\n1 2 3 4 re f\n5 6 7.25 8 re f\n"
              "q[2 0 0 2 10 0]cm\n1 2 3 4 re f\n1 2 3 4 el f\nQ\n"
              ".5 w\n0 g\n5 6 7 8 re q\n1 0 0 rg\nf Q s\n1 2 m\n3 4 l\ns\n");
}

TEST(PrintState, paintsNothingWithoutPaint) {
    EXPECT_EQ(contentOf([](PrintDocument& document) {
                  document.drawRectangle(1, 2, 3, 4, 0, 0);
                  document.drawLine(1, 2, 3, 4);
                  document.setFill(makeObject<Drawing::NoneBrush>());
                  document.drawEllipse(5, 5, 2, 2);
                  document.drawStencil(makeObject<Drawing::RasterImage>(
                                           Drawing::PixelSize{1, 1}, Drawing::ColorSpaceType::gray,
                                           Core::ByteArray(1), Core::ByteArray(1)),
                                       1, 1, 2, 2, 0);
                  document.setFill(paintOf(1, 2, 3, 0));
                  document.drawPath(polygon({{1, 1}, {2, 1}, {2, 2}}));
                  document.setStroke(makeObject<Drawing::Stroke>(nullptr, 2.0F));
                  document.drawLine(1, 2, 3, 4);
              }),
              "");
}

TEST(PrintState, clipsToAllPathsInTheSpaceOfTheirTime) {
    const Picture page = shown([](PrintDocument& document) {
        document.setTransform({1, 0, 0, 1, 20, 0});
        const auto ring = polygon({{0, 0}, {60, 0}, {60, 60}, {0, 60}});
        for (const Drawing::XPointF p : {Drawing::XPointF{20, 20}, {40, 20}, {40, 40}, {20, 40}})
            p.x == 20 && p.y == 20 ? ring->moveTo(p.x, p.y) : ring->lineTo(p.x, p.y);
        ring->close();
        ring->setFillRule(FillRule::evenOdd);
        document.setClip({ring, polygon({{0, 0}, {60, 0}, {60, 50}, {0, 50}})});
        document.setTransform({});
        document.setFill(paintOf(0, 0, 255));
        document.drawRectangle(0, 0, 100, 100, 0, 0);
        document.setClip({});
        document.setFill(paintOf(255, 0, 0));
        document.drawRectangle(0, 90, 100, 10, 0, 0);
    });
    constexpr Picture::Pixel kBlue{0, 0, 255};
    EXPECT_EQ(page.at(30, 10), kBlue);
    EXPECT_EQ(page.at(10, 10), kWhite) << "left of the clip";
    EXPECT_EQ(page.at(50, 30), kWhite) << "in the hole";
    EXPECT_EQ(page.at(30, 55), kWhite) << "below the second path";
    EXPECT_EQ(page.at(5, 95), (Picture::Pixel{255, 0, 0})) << "clip taken off";
}

TEST(PrintState, writesAClipThatComesBackOnce) {
    const std::string document = onePage([](PrintDocument& page) {
        const auto disc = makeObject<Drawing::Path>();
        disc->moveTo(50, 0);
        for (int i = 1; i < 12; ++i)
            disc->lineTo(50 + 50 * std::sin(static_cast<float>(i) / 2),
                         50 - 50 * std::cos(static_cast<float>(i) / 2));
        page.setStroke(nullptr);
        page.setFill(paintOf(255, 0, 0));
        for (int i = 0; i < 4; ++i) {
            page.setClip({disc});
            page.drawRectangle(0, static_cast<float>(25 * i), 100, 20, 0, 0);
            page.setClip({});
            page.drawRectangle(0, static_cast<float>(25 * i + 22), 3, 1, 0, 0);
        }
    });
    const std::string point = "50 0 m\n";
    const std::size_t first = document.find(point);
    const std::size_t second = document.find(point, first + 1);
    ASSERT_NE(std::string::npos, second);
    EXPECT_EQ(std::string::npos, document.find(point, second + 1));
    const Picture page = shownPage(document);
    for (const int top : {0, 25, 75}) {
        EXPECT_EQ(page.at(50, top + 10), (Picture::Pixel{255, 0, 0})) << top;
        EXPECT_EQ(page.at(1, top + 2), kWhite) << top;
        EXPECT_EQ(page.at(1, top + 22), (Picture::Pixel{255, 0, 0})) << "without the clip";
    }
}

TEST(PrintState, clipsToTextAndForgetsTheClipOnTheNextPage) {
    const Interpretation result = interpret(printed([](PrintDocument& document) {
        document.startPage({100, 100});
        document.setStroke(nullptr);
        document.setFill(paintOf(0, 0, 0));
        document.setFont(makeObject<Drawing::Font>(u"Helvetica-Bold", 100.0F));
        document.setTransform({1, 0, 0, 1, 10, 0});
        document.clipToText(u"I", 20, 90, 0);
        document.setTransform({});
        document.drawRectangle(0, 0, 100, 100, 0, 0);
        document.endPage();
        document.startPage({100, 100});
        document.drawRectangle(0, 0, 100, 100, 0, 0);
        document.endPage();
    }));
    ASSERT_EQ(result.pages.size(), 2U) << result.messages;
    EXPECT_EQ(result.pages[0].at(44, 50), kBlack) << "in the stem";
    EXPECT_EQ(result.pages[0].at(20, 50), kWhite);
    EXPECT_EQ(result.pages[1].at(20, 50), kBlack);
}

TEST(PrintState, drawsLinesAsAskedFor) {
    const auto zigzag = makeObject<Drawing::Path>();
    zigzag->moveTo(20, 80);
    zigzag->lineTo(50, 20);
    zigzag->lineTo(80, 80);
    const auto stroke = lineOf(12);
    const auto joined = [&](LineJoin join) {
        stroke->setLineJoin(join);
        return shown([&](PrintDocument& document) {
            document.setStroke(stroke);
            document.drawPath(zigzag);
        });
    };
    EXPECT_EQ(joined(LineJoin::miter).at(50, 9), kBlack);
    EXPECT_EQ(joined(LineJoin::round).at(50, 9), kWhite);
    EXPECT_EQ(joined(LineJoin::round).at(50, 15), kBlack);
    EXPECT_EQ(joined(LineJoin::bevel).at(50, 15), kWhite);

    stroke->setLineJoin(LineJoin::miter);
    stroke->setDashCap(LineCap::square);
    stroke->setMiterLimit(0.5F);
    stroke->setDashArray({5, 3, 1});
    stroke->setDashOffset(-2);
    const std::string content = contentOf([&](PrintDocument& document) {
        document.setStroke(stroke);
        document.drawLine(0, 0, 9, 0);
        stroke->setDashArray({0, 0});
        document.drawLine(0, 0, 9, 0);
    });
    EXPECT_EQ(content, "12 w\n2 J\n1 M\n[5 3 1]16 d\n0 0 m\n9 0 l\ns\n[]0 d\n0 0 m\n9 0 l\ns\n")
        << "an odd list of dashes repeats after twice its length";
}

TEST(PrintState, fillsByTheRuleOfThePath) {
    const auto twice = polygon({{10, 10}, {90, 10}, {90, 90}, {10, 90}});
    twice->moveTo(30, 30);
    twice->lineTo(70, 30);
    twice->lineTo(70, 70);
    twice->lineTo(30, 70);
    const auto middle = [&](FillRule rule) {
        twice->setFillRule(rule);
        return shown([&](PrintDocument& document) {
                   document.setFill(paintOf(0, 0, 0));
                   document.drawPath(twice);
               })
            .at(50, 50);
    };
    EXPECT_EQ(middle(FillRule::nonZero), kBlack);
    EXPECT_EQ(middle(FillRule::evenOdd), kWhite);
}

TEST(PrintState, writesNumbersAsFineAsThePageShowsThem) {
    EXPECT_EQ(contentOf([](PrintDocument& document) {
                  document.setFill(paintOf(0, 0, 0));
                  document.drawRectangle(0.12345F, -0.0001F, 1e6F, 99.9996F, 0, 0);
                  document.setTransform({1000, 0, 0, 1000, 0, 0});
                  document.drawRectangle(0.0123456F, 0, 0.5F, 1, 0, 0);
                  document.setTransform({0.01F, 0, 0, 0.01F, 0, 0});
                  document.drawRectangle(123.456F, 0, 50.25F, 1, 0, 0);
              }),
              ".123 0 1000000 100 re f\nq[1000 0 0 1000 0 0]cm\n.012346 0 .5 1 re f\nQ\n"
              "q[0.01 0 0 0.01 0 0]cm\n123.5 0 50.3 1 re f\nQ\n");
}

TEST(PrintState, drawsNothingOfACallThatFails) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const std::string content = contentOf([&](PrintDocument& document) {
        document.setFill(paintOf(255, 0, 0));
        document.drawRectangle(1, 1, 1, 1, 0, 0);
        document.setTransform({2, 0, 0, 2, 0, 0});
        document.setFill(paintOf(0, 255, 0));
        const auto bad = polygon({{1, 1}, {2, kInfinity}});
        EXPECT_THROW(document.drawPath(bad), Core::NumberRangeException);
        document.setTransform({});
        document.setFill(paintOf(255, 0, 0));
        document.drawRectangle(2, 2, 1, 1, 0, 0);
    });
    EXPECT_EQ(content, "1 0 0 rg\n1 1 1 1 re f\nfs\n1 0 0 rg\n2 2 1 1 re f\n");

    onePage([&](PrintDocument& document) {
        using Drawing::Print::PrintException;
        const auto stroke = lineOf(1);
        document.setStroke(stroke);
        stroke->setDashArray({1, -1});
        EXPECT_THROW(document.drawLine(0, 0, 1, 1), PrintException);
        document.setStroke(lineOf(-1));
        EXPECT_THROW(document.drawLine(0, 0, 1, 1), PrintException);
        EXPECT_THROW(document.drawPath(nullptr), PrintException);
        EXPECT_THROW(document.drawText(u"x", 0, 0, 0, 0, false), PrintException);
        EXPECT_THROW(document.setClip({nullptr}), PrintException);
        EXPECT_THROW(document.drawImage(nullptr, 0, 0, 1, 1, 0), PrintException);
        EXPECT_THROW(document.createPatternOutputContext(0, 1), PrintException);
        EXPECT_THROW(document.startPage({1, 1}), PrintException);
    });
}
