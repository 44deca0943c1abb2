#pragma once

#include "Images/ImageStore.h"
#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"

namespace psrender {

/// A page that an image covers, in its own size: by the resolution that it tells, else at 96
/// pixels an inch.
scene::Page pageOf(const Images::UprightImage& image, Warnings& warnings);

}  // namespace psrender
