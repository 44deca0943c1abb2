#pragma once

#include "Fonts/Export.h"

namespace Fonts {

/// Takes the outline of a glyph piece by piece, in 1/1000 em, y upwards from the baseline.
/// Interiors are those of the non-zero rule.
class FONTS_API GlyphSink {
public:
    GlyphSink() = default;
    GlyphSink(const GlyphSink&) = delete;
    GlyphSink& operator=(const GlyphSink&) = delete;
    virtual ~GlyphSink();

    virtual void moveTo(float x, float y) = 0;
    virtual void lineTo(float x, float y) = 0;
    /// A cubic Bezier curve with the control points (x1, y1) and (x2, y2), ending at (x3, y3).
    virtual void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) = 0;
    virtual void close() = 0;
};

}  // namespace Fonts
