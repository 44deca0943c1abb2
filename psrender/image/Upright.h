#pragma once

#include "Images/ImageStore.h"
#include "psrender/scene/Geometry.h"

namespace psrender::image {

/// From the stored to the shown picture, both the square of side 1.
inline scene::Affine uprightOf(const Images::UprightImage& image) {
    const Drawing::Matrix& map = image.upright;
    return {map.getScaleX(), map.getShearY(),     map.getShearX(),
            map.getScaleY(), map.getTranslateX(), map.getTranslateY()};
}

}  // namespace psrender::image
