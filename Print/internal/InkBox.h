#pragma once

#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "Print/internal/Box.h"

namespace Drawing::Print {

/// The box around a path, curves by their own extremes; around its mitred corners, too, as far as
/// they stand out of `stroke`, if that is not null.
[[nodiscard]] Box pathBox(const Path& path, const Stroke* stroke);
/// `box` with half the width of a line around it, and what its caps take.
[[nodiscard]] Box strokedBox(const Box& box, const Stroke& stroke);

}  // namespace Drawing::Print
