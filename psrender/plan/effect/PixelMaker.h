#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/raster/Rasterizer.h"
#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace psrender::plan {

/// Makes pictures of what one page cannot show in vectors, with so many dots per inch, fewer if
/// there are too many of them for one page.
class PixelMaker {
public:
    /// `page` is the box outside of which nothing is seen. The warnings must outlive the maker.
    PixelMaker(double dotsPerInch, std::optional<scene::Rect> page, Warnings& warnings)
        : dotsPerInch_(dotsPerInch), page_(page), warnings_(warnings) {}

    /// Whether there is something to make pixels with; says in the warnings if it is missing.
    [[nodiscard]] bool isThere();

    [[nodiscard]] double dotsPerInch() const { return dotsPerInch_; }
    /// The area that shows `box`, on the page's grid of pixels; nothing if none of it is on the
    /// page.
    [[nodiscard]] std::optional<raster::Area> areaOf(const scene::Rect& box, double dotsPerInch);
    /// Counts in the warnings that something has fewer pixels than it should have.
    void tellOfFewer();
    [[nodiscard]] raster::Pixels paint(const std::vector<scene::Item>& items,
                                       const raster::Area& area) const;

private:
    double dotsPerInch_;
    std::optional<scene::Rect> page_;
    Warnings& warnings_;
    raster::Rasterizer* rasterizer_ = nullptr;
    bool isAsked_ = false;
    double pixelsLeft_ = 24e6;
};

}  // namespace psrender::plan
