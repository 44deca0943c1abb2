#include "psrender/plan/effect/PixelMaker.h"

#include "psrender/plan/TextOutlines.h"
#include "psrender/raster/Module.h"

#include <algorithm>
#include <cmath>

namespace psrender::plan {

using scene::Rect;

namespace {

constexpr double kPointsAnInch = 72;
/// What a picture may have even if others have used up everything.
constexpr double kFewestPixels = 100'000;
/// Blurs reach in from beyond the page.
constexpr double kMarginOfPage = 0.1;

Rect onGrid(const Rect& box, double pixel) {
    const double left = std::floor(box.x / pixel) * pixel;
    const double top = std::floor(box.y / pixel) * pixel;
    return {left, top, std::max(1.0, std::ceil((box.right() - left) / pixel)) * pixel,
            std::max(1.0, std::ceil((box.bottom() - top) / pixel)) * pixel};
}

}  // namespace

bool PixelMaker::isThere() {
    if (dotsPerInch_ <= 0)
        return false;
    if (!isAsked_) {
        isAsked_ = true;
        rasterizer_ = raster::loadRasterizer(outlinesOf);
        if (rasterizer_ == nullptr)
            warnings_.add(
                "the module psrender-raster.so is not installed or lacks libraries, so "
                "effects are left out");
    }
    return rasterizer_ != nullptr;
}

std::optional<raster::Area> PixelMaker::areaOf(const Rect& box, double dotsPerInch) {
    std::optional<Rect> seen = box;
    if (page_)
        seen = page_->grown(kMarginOfPage * std::max(page_->width, page_->height)).common(box);
    if (!seen)
        return std::nullopt;
    double pixel = kPointsAnInch / dotsPerInch;
    const double most = std::max(pixelsLeft_ / 3, kFewestPixels);
    const double wanted = seen->area() / (pixel * pixel);
    if (wanted > most) {
        pixel *= std::sqrt(wanted / most);
        tellOfFewer();
    }
    const Rect grid = onGrid(*seen, pixel);
    const raster::Area area{grid, static_cast<std::size_t>(std::lround(grid.width / pixel)),
                            static_cast<std::size_t>(std::lround(grid.height / pixel))};
    pixelsLeft_ -= static_cast<double>(area.width * area.height);
    return area;
}

void PixelMaker::tellOfFewer() {
    warnings_.add("large areas that need pixels have fewer of them than asked for");
}

raster::Pixels PixelMaker::paint(const std::vector<scene::Item>& items,
                                 const raster::Area& area) const {
    return rasterizer_->paint(items, area);
}

}  // namespace psrender::plan
