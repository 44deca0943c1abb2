#include "psrender/raster/module/Luminance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace psrender::raster {

namespace {

constexpr double kRed = 0.2125;
constexpr double kGreen = 0.7154;
constexpr double kBlue = 0.0721;

/// How much shows through a pixel, 0 to 255. Its colours are multiplied by its alpha already.
double opacityOf(std::uint32_t pixel) {
    const auto component = [pixel](unsigned shift) { return pixel >> shift & 255U; };
    return kRed * component(16) + kGreen * component(8) + kBlue * component(0);
}

}  // namespace

void turnIntoLuminance(cairo_pattern_t* group) {
    cairo_surface_t* surface = nullptr;
    requireSuccess(cairo_pattern_get_surface(group, &surface));
    cairo_surface_flush(surface);
    std::uint8_t* const data = cairo_image_surface_get_data(surface);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
    const int width = cairo_image_surface_get_width(surface);
    for (int y = 0; y < cairo_image_surface_get_height(surface); ++y) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): rows are aligned for it.
        auto* const row =
            reinterpret_cast<std::uint32_t*>(data + static_cast<std::size_t>(y) * stride);
        std::for_each(row, row + width, [](std::uint32_t& pixel) {
            pixel = static_cast<std::uint32_t>(std::lround(opacityOf(pixel))) << 24U;
        });
    }
    cairo_surface_mark_dirty(surface);
}

}  // namespace psrender::raster
