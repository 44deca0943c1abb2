#include "psrender/job/PageFrame.h"

#include <algorithm>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace psrender {

namespace {

constexpr double kRounding = 0.1;  // points: nobody misses less

struct Scale {
    double x = 1;
    double y = 1;
};

/// Whether the drawing has a place of its own, instead of the middle.
bool isPlaced(const PageFrame& frame) {
    return frame.pageWidth || frame.pageHeight || frame.left || frame.top;
}

PaperSize pageSize(const PaperSize& drawing, const PageFrame& frame) {
    const Margins& around = frame.margins;
    if (isPlaced(frame) && !frame.paper)
        return {frame.pageWidth.value_or(drawing.width), frame.pageHeight.value_or(drawing.height)};
    if (!frame.paper)
        return {drawing.width + around.left + around.right,
                drawing.height + around.top + around.bottom};
    PaperSize size = *frame.paper;
    if (frame.landscape)
        std::swap(size.width, size.height);
    return size;
}

void requirePossible(const PaperSize& size) {
    const auto possible = [](double side) { return side >= kSmallestPage && side <= kLargestPage; };
    if (possible(size.width) && possible(size.height))
        return;
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << "the page would be " << size.width << " by " << size.height
         << " points, but pages are from " << kSmallestPage << " to " << kLargestPage
         << " points wide and high; choose a size with --paper A4 --fit";
    throw std::runtime_error(text.str());
}

/// What brings a drawing to the size that was asked for.
Scale askedScale(const scene::Page& drawing, const PageFrame& frame) {
    Scale scale{frame.scaleX, frame.scaleY};
    if (frame.width)
        scale.x = *frame.width / drawing.width;
    if (frame.height)
        scale.y = *frame.height / drawing.height;
    if (!frame.width && frame.height)
        scale.x = scale.y;
    if (frame.width && !frame.height)
        scale.y = scale.x;
    if (frame.width && frame.height && frame.keepProportions)
        scale.x = scale.y = std::min(scale.x, scale.y);
    return scale;
}

/// What brings a drawing from the size that was asked for to its paper.
double fittingScale(const PaperSize& drawing, const PaperSize& room, const PageFrame& frame) {
    if (!frame.fit)
        return 1;
    if (room.width <= 0 || room.height <= 0)
        throw std::runtime_error("the margin leaves no room on the paper; make it smaller");
    return std::min(room.width / drawing.width, room.height / drawing.height);
}

/// Where on the page the drawing has its top left corner.
scene::Point cornerOf(const PaperSize& drawing, const PaperSize& room, const PageFrame& frame) {
    if (isPlaced(frame))
        return {frame.left.value_or(0), frame.top.value_or(0)};
    return {frame.margins.left + (room.width - drawing.width) / 2,
            frame.margins.top + (room.height - drawing.height) / 2};
}

/// Under everything else, edge to edge.
void paintBackground(scene::Page& page, const scene::Color& color) {
    scene::Shape sheet;
    sheet.outline = std::make_shared<const scene::Outline>(
        scene::Outline::rectangle({0, 0, page.width, page.height}));
    sheet.fill.source = color;
    page.items.insert(page.items.begin(), std::move(sheet));
}

/// Around the drawing there may be paper now; nothing of it may show there.
void cutOff(scene::Page& page) {
    const scene::Rect drawing{0, 0, page.width, page.height};
    page.items.insert(page.items.begin(), scene::BeginGroup{1, rectangleClip(drawing, {})});
    page.items.emplace_back(scene::EndGroup());
}

}  // namespace

void frame(scene::Page& page, const PageFrame& frame, Warnings& warnings) {
    const Scale asked = askedScale(page, frame);
    PaperSize drawing{page.width * asked.x, page.height * asked.y};
    const PaperSize size = pageSize(drawing, frame);
    requirePossible(size);
    const Margins& around = frame.margins;
    const PaperSize room{size.width - around.left - around.right,
                         size.height - around.top - around.bottom};
    const double fitting = fittingScale(drawing, room, frame);
    drawing = {drawing.width * fitting, drawing.height * fitting};
    const scene::Point corner = cornerOf(drawing, room, frame);
    if (std::min(corner.x, corner.y) < -kRounding ||
        corner.x + drawing.width > size.width + kRounding ||
        corner.y + drawing.height > size.height + kRounding)
        warnings.add("the drawing is larger than the paper and is cut off; --fit makes it smaller");
    const scene::Affine map{asked.x * fitting, 0, 0, asked.y * fitting, corner.x, corner.y};
    if (drawing.width < size.width - kRounding || drawing.height < size.height - kRounding ||
        isPlaced(frame))
        cutOff(page);
    page.width = size.width;
    page.height = size.height;
    if (map != scene::Affine())
        scene::transform(page, map);
    if (frame.background)
        paintBackground(page, *frame.background);
}

}  // namespace psrender
