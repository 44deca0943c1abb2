#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Export.h"
#include "Drawing/Forward.h"

#include <cstdint>
#include <utility>

namespace Drawing {

/// The shape at the ends of lines and dashes (PLRM 4.5.1); `triangle` has no PostScript form.
enum class LineCap : std::int32_t { butt = 0, round = 1, square = 2, triangle = 3 };

/// The shape where lines meet (PLRM 4.5.1). A `PSDocument` always mitres, up to the miter limit.
enum class LineJoin : std::int32_t { miter = 0, round = 1, bevel = 2 };

/// How a line is drawn. Lengths are in user space. A new stroke is solid, black, 1 wide, with
/// butt ends, mitred joins and the miter limit 10.
class DRAWING_API Stroke : public Core::Object {
public:
    Stroke();
    explicit Stroke(Core::SmartPtr<Brush> brush, float thickness = 1);
    ~Stroke() override;

    /// What the line is painted with; never null in a `PSDocument`, which takes no notice of its
    /// opacity.
    [[nodiscard]] const Core::SmartPtr<Brush>& getBrush() const { return brush_; }
    [[nodiscard]] float getThickness() const { return thickness_; }
    [[nodiscard]] LineCap getDashCap() const { return dashCap_; }
    [[nodiscard]] LineJoin getLineJoin() const { return lineJoin_; }
    [[nodiscard]] float getMiterLimit() const { return miterLimit_; }
    /// Dashes and gaps in turn; empty for a solid line. A `PSDocument` draws both at twice their
    /// length, with the offset as it is, and the dashed border of a rectangle as four straight
    /// sides without a fill.
    [[nodiscard]] const Core::Vector<float>& getDashArray() const { return dashArray_; }
    [[nodiscard]] float getDashOffset() const { return dashOffset_; }

    void setBrush(Core::SmartPtr<Brush> brush) { brush_ = std::move(brush); }
    void setThickness(float thickness) { thickness_ = thickness; }
    void setDashCap(LineCap cap) { dashCap_ = cap; }
    void setLineJoin(LineJoin join) { lineJoin_ = join; }
    void setMiterLimit(float limit) { miterLimit_ = limit; }
    void setDashArray(Core::Vector<float> dashes) { dashArray_ = std::move(dashes); }
    void setDashOffset(float offset) { dashOffset_ = offset; }

private:
    Core::SmartPtr<Brush> brush_;
    float thickness_ = 1;
    LineCap dashCap_ = LineCap::butt;
    LineJoin lineJoin_ = LineJoin::miter;
    float miterLimit_ = 10;
    Core::Vector<float> dashArray_;
    float dashOffset_ = 0;
};

}  // namespace Drawing
