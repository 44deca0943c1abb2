#pragma once

#include "Drawing/Export.h"

#include <cstdint>

namespace Drawing {

/// A side of an `Image` that can give out its pixels a few rows at a time: a back end that finds
/// it by `dynamic_cast` never holds the whole picture. Rows are asked for from the top down.
class DRAWING_API RowSource {
public:
    virtual ~RowSource();

    /// Writes `count` rows from `first` on, which lie within the image: `pixels` as
    /// `Image::getPixelBytes` and `alpha` as `Image::getAlphaBytes` have them. `alpha` may be
    /// null for an image without. May raise whatever `getPixelBytes` may.
    virtual void readPixelRows(int selector, std::int32_t first, std::int32_t count,
                               std::uint8_t* pixels, std::uint8_t* alpha) const = 0;

protected:
    RowSource() = default;
    RowSource(const RowSource&) = default;
    RowSource& operator=(const RowSource&) = default;
};

}  // namespace Drawing
