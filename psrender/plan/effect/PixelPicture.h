#pragma once

#include "psrender/raster/Rasterizer.h"
#include "psrender/scene/DisplayList.h"

#include <cstdint>
#include <optional>

namespace psrender::plan {

/// `above` laid over `below`, which is of the same size.
void layOver(const raster::Pixels& above, raster::Pixels& below);

/// Whether every pixel is the same opaque colour, or every one is clear.
[[nodiscard]] bool isEven(const raster::Pixels& pixels);

/// What a pixel looks like on white paper.
[[nodiscard]] scene::Color colorOnPaper(std::uint32_t pixel);

/// Whether something is seen at every pixel at which `other`, of the same size, shows something.
[[nodiscard]] bool covers(const raster::Pixels& pixels, const raster::Pixels& other);

/// A picture with the alpha of the pixels; nothing if all are clear.
[[nodiscard]] std::optional<scene::Picture> pictureOf(const raster::Pixels& pixels,
                                                      const raster::Area& area);

/// An opaque picture of the pixels on white paper.
[[nodiscard]] scene::Picture onPaper(const raster::Pixels& pixels, const raster::Area& area);

/// A picture that is opaque wherever `shape` shows something and clear elsewhere, with the colours
/// of `seen` on white paper.
[[nodiscard]] std::optional<scene::Picture> cutOut(const raster::Pixels& seen,
                                                   const raster::Pixels& shape,
                                                   const raster::Area& area);

}  // namespace psrender::plan
