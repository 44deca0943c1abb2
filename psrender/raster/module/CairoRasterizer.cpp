#include "psrender/raster/module/CairoPainter.h"

#include <cstring>

namespace psrender::raster {

namespace {

using scene::Affine;

class CairoRasterizer : public Rasterizer {
public:
    explicit CairoRasterizer(TextOutlines outlines) : outlines_(outlines) {}

    Pixels paint(const std::vector<scene::Item>& items, const Area& area) override {
        const Surface surface =
            makeSurface(static_cast<int>(area.width), static_cast<int>(area.height));
        const Context context(cairo_create(surface.get()));
        const Affine toPixels =
            Affine::scaling(static_cast<double>(area.width) / area.box.width,
                            static_cast<double>(area.height) / area.box.height) *
            Affine::translation(-area.box.x, -area.box.y);
        CairoPainter(context.get(), toPixels, outlines_).paint(items);
        requireSuccess(cairo_status(context.get()));
        return copyOf(surface.get(), area);
    }

private:
    static Pixels copyOf(cairo_surface_t* surface, const Area& area) {
        cairo_surface_flush(surface);
        Pixels pixels{area.width, area.height,
                      std::vector<std::uint32_t>(area.width * area.height)};
        const std::uint8_t* row = cairo_image_surface_get_data(surface);
        for (std::size_t y = 0; y < area.height; ++y) {
            std::memcpy(pixels.argb.data() + y * area.width, row,
                        area.width * sizeof(std::uint32_t));
            row += cairo_image_surface_get_stride(surface);
        }
        return pixels;
    }

    TextOutlines outlines_;
};

}  // namespace

}  // namespace psrender::raster

/// The one symbol of the module; see `psrender::raster::kFactoryName`.
extern "C" [[gnu::visibility("default")]] psrender::raster::Rasterizer* makePsrenderRasterizer(
    psrender::raster::TextOutlines outlines) {
    return new psrender::raster::CairoRasterizer(outlines);
}
