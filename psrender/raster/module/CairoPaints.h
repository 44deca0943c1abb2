#pragma once

#include "psrender/raster/module/CairoHandles.h"

/// What areas are covered with, as the library wants it.
namespace psrender::raster {

/// A colour or gradient with the paint's opacity; null for nothing and for patterns.
Pattern patternOf(const scene::Paint& paint);

/// The pixels of an image, in the square of side 1 that it fills. Throws what decoding it throws.
Pattern patternOf(const Drawing::Image& image);

void addPath(cairo_t* context, const scene::Outline& outline);
void setStroke(cairo_t* context, const scene::StrokeStyle& style);

}  // namespace psrender::raster
