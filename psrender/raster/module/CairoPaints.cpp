#include "psrender/raster/module/CairoPaints.h"

#include "Core/ByteArray.h"
#include "Drawing/ColorSpace.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace psrender::raster {

namespace {

using scene::Point;

double share(std::uint8_t level) {
    return level / 255.0;
}

cairo_extend_t extendOf(scene::Spread spread) {
    switch (spread) {
        case scene::Spread::repeat:
            return CAIRO_EXTEND_REPEAT;
        case scene::Spread::reflect:
            return CAIRO_EXTEND_REFLECT;
        case scene::Spread::pad:
            break;
    }
    return CAIRO_EXTEND_PAD;
}

Pattern patternOf(const scene::Gradient& gradient, double opacity) {
    const Point from = gradient.start;
    const Point to = gradient.end;
    Pattern pattern(gradient.kind == scene::Gradient::Kind::linear
                        ? cairo_pattern_create_linear(from.x, from.y, to.x, to.y)
                        : cairo_pattern_create_radial(from.x, from.y, gradient.startRadius, to.x,
                                                      to.y, gradient.endRadius));
    for (const scene::ColorStop& stop : *gradient.stops)
        cairo_pattern_add_color_stop_rgba(pattern.get(), stop.position, share(stop.color.red),
                                          share(stop.color.green), share(stop.color.blue),
                                          stop.opacity * opacity);
    cairo_pattern_set_extend(pattern.get(), extendOf(gradient.spread));
    if (gradient.transform.isInvertible()) {
        const cairo_matrix_t toGradient = matrixOf(gradient.transform.inverse());
        cairo_pattern_set_matrix(pattern.get(), &toGradient);
    }
    return pattern;
}

using Rgb = std::array<std::uint32_t, 3>;

Rgb colorOf(const std::uint8_t* pixel, Drawing::ColorSpaceType space) {
    if (space == Drawing::ColorSpaceType::rgb)
        return {pixel[0], pixel[1], pixel[2]};
    if (space != Drawing::ColorSpaceType::cmyk)
        return {pixel[0], pixel[0], pixel[0]};
    const auto mixed = [&](int ink) { return (255U - pixel[ink]) * (255U - pixel[3]) / 255U; };
    return {mixed(0), mixed(1), mixed(2)};
}

std::uint32_t premultiplied(const Rgb& color, std::uint32_t alpha) {
    std::uint32_t packed = alpha;
    for (const std::uint32_t component : color)
        packed = packed << 8U | (component * alpha + 127U) / 255U;
    return packed;
}

}  // namespace

Pattern patternOf(const scene::Paint& paint) {
    if (const scene::Color* color = paint.color())
        return Pattern(cairo_pattern_create_rgba(share(color->red), share(color->green),
                                                 share(color->blue), paint.opacity));
    if (const scene::Gradient* gradient = paint.gradient())
        return patternOf(*gradient, paint.opacity);
    return nullptr;
}

Pattern patternOf(const Drawing::Image& image) {
    const Drawing::PixelSize size = image.getPixelSize();
    const auto space = image.getColorSpace()->getType();
    const auto components = static_cast<std::size_t>(image.getColorSpace()->getComponentCount());
    const Core::ByteArray pixels = image.getPixelBytes(0);
    const Core::ByteArray alpha = image.hasAlpha() ? image.getAlphaBytes(0) : Core::ByteArray(0);
    const Surface surface = makeSurface(size.width, size.height);
    std::uint8_t* const data = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    const auto width = static_cast<std::size_t>(size.width);
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): rows are aligned for it.
        auto* const row = reinterpret_cast<std::uint32_t*>(data + y * stride);
        for (std::size_t x = 0; x < width; ++x) {
            const std::size_t i = y * width + x;
            row[x] = premultiplied(colorOf(pixels.data() + i * components, space),
                                   alpha.size() > 0 ? alpha.data()[i] : 255U);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    Pattern pattern(cairo_pattern_create_for_surface(surface.get()));
    const cairo_matrix_t toPixels = matrixOf(scene::Affine::scaling(size.width, size.height));
    cairo_pattern_set_matrix(pattern.get(), &toPixels);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    return pattern;
}

void addPath(cairo_t* context, const scene::Outline& outline) {
    cairo_new_path(context);
    const Point* next = outline.points().data();
    for (const scene::Outline::Verb verb : outline.verbs())
        switch (verb) {
            case scene::Outline::Verb::move:
                cairo_move_to(context, next->x, next->y);
                ++next;
                break;
            case scene::Outline::Verb::line:
                cairo_line_to(context, next->x, next->y);
                ++next;
                break;
            case scene::Outline::Verb::cubic:
                cairo_curve_to(context, next[0].x, next[0].y, next[1].x, next[1].y, next[2].x,
                               next[2].y);
                next += 3;
                break;
            case scene::Outline::Verb::close:
                cairo_close_path(context);
                break;
        }
}

void setStroke(cairo_t* context, const scene::StrokeStyle& style) {
    cairo_set_line_width(context, style.width);
    cairo_set_line_cap(context, style.cap == scene::Cap::round    ? CAIRO_LINE_CAP_ROUND
                                : style.cap == scene::Cap::square ? CAIRO_LINE_CAP_SQUARE
                                                                  : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(context, style.join == scene::Join::round   ? CAIRO_LINE_JOIN_ROUND
                                 : style.join == scene::Join::bevel ? CAIRO_LINE_JOIN_BEVEL
                                                                    : CAIRO_LINE_JOIN_MITER);
    cairo_set_miter_limit(context, style.miterLimit);
    cairo_set_dash(context, style.dashes.data(), static_cast<int>(style.dashes.size()),
                   style.dashOffset);
}

}  // namespace psrender::raster
