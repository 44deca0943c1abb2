#pragma once

#include "native/Arrays.h"

#include "Drawing/IOutputContext.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace psgraphics::python {

using Numbers = ArrayOf<float>;
using Bytes = ArrayOf<std::uint8_t>;

/// Drawing of whole arrays in one call, without the interpreter's lock. Shapes that are wrong
/// raise `ValueError` before anything is drawn; whatever a single call raises ends the row where
/// it is.
void drawRectangles(Drawing::IOutputContext& context, const Numbers& rectangles,
                    const std::optional<Bytes>& colors);
void drawEllipses(Drawing::IOutputContext& context, const Numbers& ellipses,
                  const std::optional<Bytes>& colors);
void drawLines(Drawing::IOutputContext& context, const Numbers& lines);
void drawPolylines(Drawing::IOutputContext& context, const Numbers& vertices,
                   const ArrayOf<std::int64_t>& lengths, bool closed,
                   const std::optional<Bytes>& colors);
void placeFragment(Drawing::IOutputContext& context,
                   const Core::SmartPtr<Drawing::IOutputContext>& fragment, const Numbers& offsets,
                   const Drawing::Matrix& transform);

}  // namespace psgraphics::python
