#include "psrender/raster/module/FilterRunner.h"

#include <librsvg/rsvg.h>

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>

namespace psrender::raster {

namespace {

using scene::Affine;

struct ObjectDeleter {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
    void operator()(GInputStream* stream) const { g_object_unref(stream); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(gchar* text) const { g_free(text); }
};
using Handle = std::unique_ptr<RsvgHandle, ObjectDeleter>;
using Stream = std::unique_ptr<GInputStream, ObjectDeleter>;
using Error = std::unique_ptr<GError, ObjectDeleter>;
using Text = std::unique_ptr<gchar, ObjectDeleter>;

std::string numberText(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

std::string matrixText(const Affine& map) {
    std::string text = "matrix(";
    for (const double value : {map.a, map.b, map.c, map.d, map.e, map.f})
        text += numberText(value) + ' ';
    text.back() = ')';
    return text;
}

cairo_status_t append(void* png, const unsigned char* bytes, unsigned int size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters.
    static_cast<std::string*>(png)->append(reinterpret_cast<const char*>(bytes), size);
    return CAIRO_STATUS_SUCCESS;
}

std::string pngOf(cairo_surface_t* surface) {
    std::string png;
    requireSuccess(cairo_surface_write_to_png_stream(surface, append, &png));
    return png;
}

/// The group as a picture at its pixels' places, in a drawing of the target's size.
std::string documentOf(cairo_surface_t* source, const scene::Filter& filter, const Affine& toPixels,
                       int width, int height) {
    const std::string png = pngOf(source);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): characters as bytes.
    const Text base64(g_base64_encode(reinterpret_cast<const guchar*>(png.data()), png.size()));
    const std::string size =
        " width=\"" + numberText(width) + "\" height=\"" + numberText(height) + "\"";
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink")" +
           size + "><defs>" + filter.definitions + "</defs><g transform=\"" + matrixText(toPixels) +
           "\" " + filter.attributes + "><image transform=\"" + matrixText(toPixels.inverse()) +
           "\"" + size + R"( preserveAspectRatio="none" image-rendering="optimizeSpeed" )" +
           R"(xlink:href="data:image/png;base64,)" + base64.get() + "\"/></g></svg>";
}

void requireDone(gboolean isDone, GError* error) {
    const Error owned(error);
    if (isDone == FALSE)
        throw std::runtime_error(error != nullptr ? error->message : "a filter cannot be run");
}

/// The pixels of a group within a box, on a surface of their own.
Surface cut(cairo_pattern_t* source, const PixelBox& box) {
    Surface surface = makeSurface(box.width, box.height);
    const Context context(cairo_create(surface.get()));
    cairo_translate(context.get(), -box.x, -box.y);
    cairo_set_source(context.get(), source);
    cairo_paint(context.get());
    requireSuccess(cairo_status(context.get()));
    return surface;
}

Surface run(const std::string& document, const PixelBox& box) {
    const Stream stream(g_memory_input_stream_new_from_data(
        document.data(), static_cast<gssize>(document.size()), nullptr));
    GError* error = nullptr;
    const Handle handle(rsvg_handle_new_from_stream_sync(
        stream.get(), nullptr, RSVG_HANDLE_FLAG_UNLIMITED, nullptr, &error));
    requireDone(static_cast<gboolean>(handle != nullptr), error);
    Surface result = makeSurface(box.width, box.height);
    const Context context(cairo_create(result.get()));
    const RsvgRectangle viewport{0, 0, static_cast<double>(box.width),
                                 static_cast<double>(box.height)};
    error = nullptr;
    const gboolean isDone =
        rsvg_handle_render_document(handle.get(), context.get(), &viewport, &error);
    requireDone(isDone, error);
    return result;
}

}  // namespace

std::optional<PixelBox> pixelsOf(const scene::Filter& filter, const Affine& toPixels,
                                 cairo_surface_t* target) {
    const scene::Rect whole{0, 0, static_cast<double>(cairo_image_surface_get_width(target)),
                            static_cast<double>(cairo_image_surface_get_height(target))};
    const auto seen = filter.region.mapped(toPixels).common(whole);
    if (!seen || !toPixels.isInvertible())
        return std::nullopt;
    const int left = static_cast<int>(std::floor(seen->x));
    const int top = static_cast<int>(std::floor(seen->y));
    const PixelBox box{left, top, static_cast<int>(std::ceil(seen->right())) - left,
                       static_cast<int>(std::ceil(seen->bottom())) - top};
    return box.width > 0 && box.height > 0 ? std::optional(box) : std::nullopt;
}

Pattern applyFilter(Pattern source, const scene::Filter& filter, const Affine& toPixels,
                    const PixelBox& box) {
    const Surface drawn = cut(source.get(), box);
    const Affine toBox = Affine::translation(-box.x, -box.y) * toPixels;
    const Surface result = run(documentOf(drawn.get(), filter, toBox, box.width, box.height), box);
    Pattern pattern(cairo_pattern_create_for_surface(result.get()));
    const cairo_matrix_t place = matrixOf(Affine::translation(-box.x, -box.y));
    cairo_pattern_set_matrix(pattern.get(), &place);
    return pattern;
}

}  // namespace psrender::raster
