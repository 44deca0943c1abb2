#pragma once

#include "psrender/scene/DisplayList.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// Pictures of what PostScript cannot say in vectors.
namespace psrender::raster {

/// A part of a page, in points, and how many pixels it is looked at with.
struct Area {
    scene::Rect box;
    std::size_t width = 0;
    std::size_t height = 0;
};

/// Pixels row by row from the top left one: alpha in the highest byte, then red, green and blue,
/// which are multiplied by alpha already.
struct Pixels {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint32_t> argb;
};

/// Makes pixels of items. It stands in a module of its own, as few pages need it.
class Rasterizer {
public:
    Rasterizer() = default;
    Rasterizer(const Rasterizer&) = delete;
    Rasterizer& operator=(const Rasterizer&) = delete;
    virtual ~Rasterizer() = default;

    /// What `items` show within the area, on clear ground, masks, filters and blend modes of
    /// groups included. Transforms of items lead to the page. Throws `std::bad_alloc`, and
    /// `std::runtime_error` for what the library behind it refuses.
    [[nodiscard]] virtual Pixels paint(const std::vector<scene::Item>& items, const Area& area) = 0;
};

/// Text is painted as the shape that this makes of it.
using TextOutlines = std::optional<scene::Shape> (*)(const scene::Text& text);

/// The name of the function by which a module makes a rasterizer, which the caller owns.
inline constexpr const char* kFactoryName = "makePsrenderRasterizer";
using Factory = Rasterizer* (*)(TextOutlines outlines);

}  // namespace psrender::raster
