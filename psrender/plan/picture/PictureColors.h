#pragma once

#include "psrender/image/Backdrop.h"
#include "psrender/plan/colour/Tint.h"
#include "psrender/plan/gradient/PageGradient.h"
#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// The colours of a picture on the page, from afar and over white. The picture is read when they
/// are first asked for.
class PictureColors {
public:
    /// `picture.transform` must have an inverse.
    explicit PictureColors(const scene::Picture& picture)
        : picture_(picture), fromPage_(picture.transform.inverse()) {}

    [[nodiscard]] const scene::Picture& picture() const { return picture_; }
    [[nodiscard]] Sample at(scene::Point onPage) const;
    [[nodiscard]] Tint average() const;

private:
    [[nodiscard]] const image::Backdrop& colors() const;

    scene::Picture picture_;
    scene::Affine fromPage_;
    mutable std::optional<image::Backdrop> colors_;
};

}  // namespace psrender::plan
