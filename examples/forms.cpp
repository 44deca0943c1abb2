// Forms, patterns and inks: a leaf that is recorded once and placed many times, tiles that fill
// areas, gradients, and a spot ink that has a plate of its own in print.

#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/SpotColor.h"
#include "examples/Example.h"

#include <cmath>
#include <numbers>

using namespace example;

namespace {

constexpr Drawing::SizeF kPage{420, 300};
constexpr int kLeaves = 12;

/// A turn about the origin, then a move.
Drawing::Matrix placed(double angle, float x, float y) {
    const auto c = static_cast<float>(std::cos(angle));
    const auto s = static_cast<float>(std::sin(angle));
    return {c, s, -s, c, x, y};
}

SmartPtr<Drawing::Brush> ink(const Core::String& name, const SmartPtr<Drawing::CMYKColor>& shown) {
    return makeObject<Drawing::SolidColorBrush>(
        makeObject<Drawing::SpotColor>(name, makeObject<Drawing::ColorSubstitute>(nullptr, shown)));
}

/// A leaf that points upwards from its stem at the origin.
SmartPtr<IOutputContext> recordLeaf(IOutputContext& document) {
    auto leaf = document.createDocumentFragment(40, 90);
    const auto outline = makeObject<Drawing::Path>();
    outline->moveTo(0, -20);
    outline->curveTo(-22, -40, -16, -70, 0, -90);
    outline->curveTo(16, -70, 22, -40, 0, -20);
    outline->close();
    leaf->setFill(paint(0x43A047));
    leaf->setStroke(pen(0x1B5E20, 1));
    leaf->drawPath(outline);
    leaf->setStroke(pen(0xC8E6C9, 0.8F));
    leaf->drawLine(0, -22, 0, -80);
    for (const float y : {-36.0F, -48.0F, -60.0F}) {
        leaf->drawLine(0, y, -8, y - 10);
        leaf->drawLine(0, y, 8, y - 10);
    }
    return leaf;
}

void drawRosette(IOutputContext& page, float x, float y) {
    const auto leaf = recordLeaf(page);
    for (int i = 0; i < kLeaves; ++i) {
        page.setTransform(placed(2 * std::numbers::pi * i / kLeaves, x, y));
        page.drawDocumentFragment(leaf);
    }
    page.setTransform({});
    page.setStroke(nullptr);
    page.setFill(makeObject<Drawing::RadialGradientBrush>(
        Drawing::XPointF{x, y}, 0.0F, 19.0F,
        Core::Vector<Drawing::StopPoint>{{0, rgb(0xFFF59D)}, {1, rgb(0xEF6C00)}}));
    page.drawEllipse(x, y, 18, 18);
}

/// Two dots a tile, so that they stand in diagonals.
SmartPtr<Drawing::Brush> dots(IOutputContext& document, std::uint32_t colour) {
    auto tile = document.createPatternOutputContext(10, 10);
    tile->setStroke(nullptr);
    tile->setFill(paint(colour));
    tile->drawEllipse(2.5F, 2.5F, 1.5F, 1.5F);
    tile->drawEllipse(7.5F, 7.5F, 1.5F, 1.5F);
    return makeObject<Drawing::PatternBrush>(tile, Drawing::Matrix());
}

/// Bricks, turned by the brush's own matrix.
SmartPtr<Drawing::Brush> bricks(IOutputContext& document) {
    auto tile = document.createPatternOutputContext(20, 16);
    tile->setStroke(nullptr);
    tile->setFill(paint(0xBCAAA4));
    tile->drawRectangle(0, 0, 20, 16, 0, 0);
    tile->setFill(paint(0xA1452B));
    tile->drawRectangle(0.5F, 0.5F, 19, 7, 0, 0);
    tile->drawRectangle(0, 8.5F, 9.5F, 7, 0, 0);
    tile->drawRectangle(10.5F, 8.5F, 9.5F, 7, 0, 0);
    return makeObject<Drawing::PatternBrush>(tile, placed(-0.35, 0, 0));
}

void drawSwatch(IOutputContext& page, float y, const SmartPtr<Drawing::Brush>& brush,
                const Core::String& name) {
    page.setFill(brush);
    page.setStroke(pen(0x455A64, 1));
    page.drawRectangle(236, y, 80, 44, 6, 6);
    page.setFill(paint(0x263238));
    page.setStroke(nullptr);
    page.setFont(makeObject<Drawing::Font>(u"Helvetica", 10.0F));
    page.drawText(name, 0, 328, y + 26, 0, false);
}

void drawForms(IOutputContext& document) {
    document.startPage(kPage);
    document.setTransform({});
    drawRosette(document, 118, 150);
    drawSwatch(document, 24, dots(document, 0x1565C0), u"a tile of dots");
    drawSwatch(document, 76, bricks(document), u"turned bricks");
    drawSwatch(document, 128, ink(u"Reef Orange", makeObject<Drawing::CMYKColor>(0, 0.6, 0.9, 0)),
               u"a spot ink");
    drawSwatch(document, 180,
               makeObject<Drawing::LinearGradientBrush>(
                   Drawing::XPointF{236, 0}, Drawing::XPointF{316, 0},
                   Core::Vector<Drawing::StopPoint>{{0, rgb(0xFFF59D)}, {1, rgb(0xEF6C00)}}),
               u"a gradient");
    const auto cmyk = makeObject<Drawing::CMYKColor>(0.8, 0.1, 0.3, 0.1);
    drawSwatch(document, 232, makeObject<Drawing::SolidColorBrush>(cmyk), u"CMYK");
    document.endPage();
}

}  // namespace

int main(int argc, char** argv) {
    return makeBoth(argc, argv, "forms", drawForms);
}
