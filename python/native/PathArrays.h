#pragma once

#include "native/Arrays.h"

#include "Drawing/Path.h"

#include <cstdint>
#include <optional>

namespace psgraphics::python {

/// A path of an (n, 2) array of vertices and as many codes: 0 end, 1 move, 2 line, 3 each of two
/// points of a quadratic curve, 4 each of three points of a cubic one, 79 close. Without codes it
/// is one line through all vertices, or a polygon if `closed`. Raises `ValueError` for codes that
/// do not fit.
Core::SmartPtr<Drawing::Path> pathFrom(const ArrayOf<float>& vertices,
                                       const std::optional<ArrayOf<std::uint8_t>>& codes,
                                       bool closed);

/// Appends a line through `count` points.
void addLine(Drawing::Path& path, const float* points, std::size_t count, bool closed);

}  // namespace psgraphics::python
