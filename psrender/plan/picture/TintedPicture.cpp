#include "psrender/plan/picture/TintedPicture.h"

#include "psrender/image/DerivedImages.h"

namespace psrender::plan {

Core::SmartPtr<Drawing::Image> tinted(const Core::SmartPtr<Drawing::Image>& image,
                                      const Tint& tint) {
    return tint.alpha > 0 ? image::flattened(image, 1 - tint.alpha, tint.color) : image;
}

}  // namespace psrender::plan
