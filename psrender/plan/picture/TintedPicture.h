#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Image.h"
#include "psrender/plan/colour/Tint.h"

namespace psrender::plan {

/// An opaque image as it looks beneath an even tint.
Core::SmartPtr<Drawing::Image> tinted(const Core::SmartPtr<Drawing::Image>& image,
                                      const Tint& tint);

}  // namespace psrender::plan
