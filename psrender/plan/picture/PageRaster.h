#pragma once

#include "psrender/image/Backdrop.h"
#include "psrender/plan/colour/Tint.h"
#include "psrender/plan/gradient/PageGradient.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// The colours of a picture on the page, from afar and over white.
class PageRaster {
public:
    /// `picture.transform` must have an inverse.
    explicit PageRaster(const scene::Picture& picture);

    [[nodiscard]] Sample at(scene::Point onPage) const;
    [[nodiscard]] Tint average() const;

private:
    image::Backdrop colors_;
    scene::Affine fromPage_;
};

}  // namespace psrender::plan
