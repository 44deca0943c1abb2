#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/SizeF.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::paint {

/// Geometry of a page in the terms of the drawing model.
Drawing::Matrix matrixOf(const scene::Affine& map);
Drawing::XPointF pointOf(scene::Point p);
Core::SmartPtr<Drawing::Path> pathOf(const scene::Outline& outline,
                                     scene::FillRule rule = scene::FillRule::nonZero);

}  // namespace psrender::paint
