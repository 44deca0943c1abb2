#pragma once

#include "Images/RowImage.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Takes off a picture the whole rows and columns of pixels that lie outside of `box`, which is on
/// the page. One that would be empty stays as it is.
void cropTo(scene::Picture& picture, const scene::Rect& box);

/// The part of the square of side 1 that some pixels of an image cover, as a map of the whole.
scene::Affine shareOf(const Images::PixelRect& part, const Drawing::PixelSize& size);

}  // namespace psrender::plan
