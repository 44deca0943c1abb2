// A chart: two curves over a grid, the area beneath one of them, axes with labels, a legend.

#include "Drawing/GradientBrush.h"
#include "Fonts/TextMetrics.h"
#include "examples/Example.h"

#include <array>
#include <cstddef>
#include <span>

using namespace example;

namespace {

constexpr Drawing::SizeF kPage{480, 300};
constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array kWater{3.1F,  2.7F,  3.4F,  5.2F,  7.9F, 11.8F,
                            15.6F, 17.1F, 15.0F, 11.2F, 7.3F, 4.4F};
constexpr std::array kAir{-1.2F, 0.6F,  4.1F,  8.4F, 13.2F, 16.9F,
                          19.1F, 18.6F, 14.3F, 9.2F, 4.0F,  0.3F};
constexpr std::uint32_t kInk = 0x37474F;
constexpr std::uint32_t kGrid = 0xB0BEC5;
constexpr std::uint32_t kBlue = 0x1565C0;
constexpr std::uint32_t kRed = 0xC62828;

/// Where the values lie on the page.
struct Plot {
    float left = 54;
    float top = 46;
    float right = 462;
    float bottom = 254;
    float lowest = -5;
    float highest = 20;

    [[nodiscard]] float x(std::size_t month) const {
        return left + (right - left) * static_cast<float>(month) / (kMonths.size() - 1);
    }
    [[nodiscard]] float y(float value) const {
        return bottom - (bottom - top) * (value - lowest) / (highest - lowest);
    }
};

/// Through all values, level at each of them.
SmartPtr<Drawing::Path> curve(const Plot& plot, std::span<const float> values) {
    auto path = makeObject<Drawing::Path>();
    path->moveTo(plot.x(0), plot.y(values[0]));
    for (std::size_t i = 1; i < values.size(); ++i) {
        const float middle = (plot.x(i - 1) + plot.x(i)) / 2;
        path->curveTo(middle, plot.y(values[i - 1]), middle, plot.y(values[i]), plot.x(i),
                      plot.y(values[i]));
    }
    return path;
}

void label(IOutputContext& page, const Core::String& text, float x, float y, float share) {
    const auto font = makeObject<Drawing::Font>(u"DejaVu Sans", 9.0F);
    page.setFont(font);
    page.setStroke(nullptr);
    page.setFill(paint(kInk));
    page.drawText(text, 0, x - share * Fonts::measureText(font, text).width, y, 0, false);
}

void drawGrid(IOutputContext& page, const Plot& plot) {
    for (int degrees = -5; degrees <= 20; degrees += 5) {
        const float y = plot.y(static_cast<float>(degrees));
        const auto line = pen(degrees == 0 ? kInk : kGrid, 0.6F);
        if (degrees != 0)
            line->setDashArray({2, 3});
        page.setStroke(line);
        page.drawLine(plot.left, y, plot.right, y);
        label(page, std::to_string(degrees), plot.left - 6, y + 3, 1);
    }
    for (std::size_t i = 0; i < kMonths.size(); ++i)
        label(page, kMonths[i], plot.x(i), plot.bottom + 16, 0.5F);
}

/// The axis title runs upwards: a quarter turn about the place where it stands.
void drawTitles(IOutputContext& page, const Plot& plot) {
    page.setFont(makeObject<Drawing::Font>(u"DejaVu Sans", 13.0F, Drawing::Font::kBold));
    page.setStroke(nullptr);
    page.setFill(paint(kInk));
    page.drawText(u"The lake through the year", 0, plot.left, 24, 0, false);
    page.setTransform({0, -1, 1, 0, 16, (plot.top + plot.bottom) / 2});
    label(page, u"°C, monthly mean", 0, 0, 0.5F);
    page.setTransform({});
}

void drawCurves(IOutputContext& page, const Plot& plot) {
    const auto area = curve(plot, kWater);
    area->lineTo(plot.right, plot.y(plot.lowest));
    area->lineTo(plot.left, plot.y(plot.lowest));
    area->close();
    page.setStroke(nullptr);
    page.setFill(makeObject<Drawing::LinearGradientBrush>(
        Drawing::XPointF{0, plot.top}, Drawing::XPointF{0, plot.bottom},
        Core::Vector<Drawing::StopPoint>{{0, rgb(0x64B5F6)}, {1, rgb(0xF5FAFE)}}));
    page.drawPath(area);

    page.setFill(nullptr);
    page.setStroke(pen(kBlue, 2));
    page.drawPath(curve(plot, kWater));
    const auto dashed = pen(kRed, 2);
    dashed->setDashArray({6, 3});
    dashed->setLineJoin(Drawing::LineJoin::round);
    page.setStroke(dashed);
    page.drawPath(curve(plot, kAir));
    page.setFill(paint(0xFEFEFE));
    page.setStroke(pen(kBlue, 1.5F));
    for (std::size_t i = 0; i < kWater.size(); ++i)
        page.drawEllipse(plot.x(i), plot.y(kWater[i]), 2.6F, 2.6F);
}

void drawLegend(IOutputContext& page, float x, float y) {
    const auto entry = [&](const Core::String& text, std::uint32_t colour, float at) {
        page.setFill(paint(colour));
        page.setStroke(nullptr);
        page.drawRectangle(x, at - 7, 14, 8, 2, 2);
        label(page, text, x + 20, at, 0);
    };
    page.setFill(paint(0xFEFEFE));
    page.setStroke(pen(kGrid, 0.6F));
    page.drawRectangle(x - 8, y - 14, 74, 36, 4, 4);
    entry(u"Water", kBlue, y);
    entry(u"Air", kRed, y + 14);
}

void drawChart(IOutputContext& document) {
    const Plot plot;
    document.startPage(kPage);
    document.setTransform({});
    drawTitles(document, plot);
    drawCurves(document, plot);
    drawGrid(document, plot);
    drawLegend(document, plot.left + 16, plot.top + 22);
    document.endPage();
}

}  // namespace

int main(int argc, char** argv) {
    return makeBoth(argc, argv, "chart", drawChart);
}
