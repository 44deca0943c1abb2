#pragma once

#include "Images/RowImage.h"
#include "psrender/image/Backdrop.h"
#include "psrender/scene/DisplayList.h"

/// Images made of other images. Each decodes its original when it is asked, and has a key made of
/// the original's and of what was done to it.
namespace psrender::image {

/// The part of `image` within `part`, which must lie in it and not be empty.
Core::SmartPtr<Drawing::Image> cropped(const Core::SmartPtr<Drawing::Image>& image,
                                       const Images::PixelRect& part);

/// `image` with fewer pixels, each the average of those that it covers. `size` must be from 1 to
/// the size that the image has.
Core::SmartPtr<Drawing::Image> reduced(const Core::SmartPtr<Drawing::Image>& image,
                                       Drawing::PixelSize size);

/// `image` with pixels that run into each other where they are enlarged.
Core::SmartPtr<Drawing::Image> smoothed(const Core::SmartPtr<Drawing::Image>& image);

/// `image` without alpha, as it looks over a ground of this colour when it is shown with this
/// opacity, 0 to 1. The image itself if nothing changes; RGB if it is grey and the ground is not.
Core::SmartPtr<Drawing::Image> flattened(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity, const scene::Color& ground);
/// The same over a ground of several colours, with as many pixels as the ground has spots if the
/// image has fewer.
Core::SmartPtr<Drawing::Image> flattened(const Core::SmartPtr<Drawing::Image>& image,
                                         double opacity, Backdrop ground);

}  // namespace psrender::image
