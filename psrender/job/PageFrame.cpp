#include "psrender/job/PageFrame.h"

#include <algorithm>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace psrender {

namespace {

constexpr double kRounding = 0.1;  // points: nobody misses less

PaperSize pageSize(const scene::Page& drawing, const PageFrame& frame) {
    if (!frame.paper)
        return {drawing.width + 2 * frame.margin, drawing.height + 2 * frame.margin};
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

double scaleOf(const scene::Page& drawing, const PaperSize& size, const PageFrame& frame) {
    if (!frame.fit)
        return 1;
    const double width = size.width - 2 * frame.margin;
    const double height = size.height - 2 * frame.margin;
    if (width <= 0 || height <= 0)
        throw std::runtime_error("the margin leaves no room on the paper; make it smaller");
    return std::min(width / drawing.width, height / drawing.height);
}

/// Around the drawing there may be paper now; nothing of it may show there.
void cutOff(scene::Page& page) {
    const scene::Rect drawing{0, 0, page.width, page.height};
    page.items.insert(page.items.begin(), scene::BeginGroup{1, rectangleClip(drawing, {})});
    page.items.emplace_back(scene::EndGroup());
}

}  // namespace

void frame(scene::Page& page, const PageFrame& frame, Warnings& warnings) {
    const PaperSize size = pageSize(page, frame);
    requirePossible(size);
    const double scale = scaleOf(page, size, frame);
    if (page.width * scale > size.width + kRounding ||
        page.height * scale > size.height + kRounding)
        warnings.add("the drawing is larger than the paper and is cut off; --fit makes it smaller");
    const scene::Affine map{scale,
                            0,
                            0,
                            scale,
                            (size.width - page.width * scale) / 2,
                            (size.height - page.height * scale) / 2};
    if (page.width * scale < size.width - kRounding ||
        page.height * scale < size.height - kRounding)
        cutOff(page);
    page.width = size.width;
    page.height = size.height;
    if (map != scene::Affine())
        scene::transform(page, map);
}

}  // namespace psrender
