#pragma once

#include "psrender/raster/Rasterizer.h"
#include "psrender/scene/Geometry.h"

#include <cairo.h>

#include <memory>

namespace psrender::raster {

struct CairoDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using Context = std::unique_ptr<cairo_t, CairoDeleter>;
using Surface = std::unique_ptr<cairo_surface_t, CairoDeleter>;
using Pattern = std::unique_ptr<cairo_pattern_t, CairoDeleter>;

/// A clear surface with 32 bits a pixel. Throws `std::bad_alloc`.
Surface makeSurface(int width, int height);

/// Throws `std::bad_alloc` or `std::runtime_error` if the status is one of an error.
void requireSuccess(cairo_status_t status);

inline cairo_matrix_t matrixOf(const scene::Affine& map) {
    return {map.a, map.b, map.c, map.d, map.e, map.f};
}

}  // namespace psrender::raster
