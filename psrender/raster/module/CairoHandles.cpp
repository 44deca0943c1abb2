#include "psrender/raster/module/CairoHandles.h"

#include <new>
#include <stdexcept>

namespace psrender::raster {

void requireSuccess(cairo_status_t status) {
    if (status == CAIRO_STATUS_NO_MEMORY)
        throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(cairo_status_to_string(status));
}

Surface makeSurface(int width, int height) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    requireSuccess(cairo_surface_status(surface.get()));
    return surface;
}

}  // namespace psrender::raster
