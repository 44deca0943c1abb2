#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Forward.h"
#include "Drawing/Matrix.h"
#include "Drawing/SizeF.h"

namespace Drawing {

/// Paints with a tile that repeats in both directions without a gap.
class DRAWING_API PatternBrush : public Brush {
public:
    /// `context` holds the tile, drawn into a context that `createPatternOutputContext` of the
    /// painting document made. `matrix` leads from the tile's space to the user space in which
    /// the brush is used; `origin` moves the tiling there.
    PatternBrush(Core::SmartPtr<IOutputContext> context, const Matrix& matrix, XPointF origin = {},
                 float opacity = 1);
    ~PatternBrush() override;

    [[nodiscard]] BrushType getBrushType() const override { return BrushType::pattern; }
    [[nodiscard]] const Core::SmartPtr<IOutputContext>& getPatternRenderContext() const {
        return context_;
    }
    [[nodiscard]] const Matrix& getMatrix() const { return matrix_; }
    [[nodiscard]] XPointF getOrigin() const { return origin_; }

private:
    Core::SmartPtr<IOutputContext> context_;
    Matrix matrix_;
    XPointF origin_;
};

}  // namespace Drawing
