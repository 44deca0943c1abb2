#pragma once

#include "Core/ByteArray.h"
#include "Drawing/Brush.h"
#include "Drawing/Matrix.h"
#include "Drawing/SizeF.h"

#include <cstdint>

namespace Drawing {

/// Colours that change in both directions of a rectangle, given at the crossings of a grid and run
/// into each other between them (a sampled function of two variables, PLRM 4.9.3 and 3.10.1).
/// Outside of the rectangle nothing is painted. For hosts that blend gradients with each other.
class DRAWING_API ColorFieldBrush : public Brush {
public:
    /// `columns` by `rows` RGB colours, three bytes each, rows from the top, the outermost ones on
    /// the rectangle's edges. Both must be at least 2 and fit the number of bytes, or
    /// `FormatException` is raised. `matrix` leads from the rectangle's space to the user space in
    /// which the brush is used.
    ColorFieldBrush(XPointF corner, SizeF size, std::int32_t columns, std::int32_t rows,
                    Core::ByteArray colors, const Matrix& matrix = {}, float opacity = 1);
    ~ColorFieldBrush() override;

    [[nodiscard]] BrushType getBrushType() const override { return BrushType::colorField; }
    [[nodiscard]] XPointF getCorner() const { return corner_; }
    [[nodiscard]] SizeF getSize() const { return size_; }
    [[nodiscard]] std::int32_t getColumns() const { return columns_; }
    [[nodiscard]] std::int32_t getRows() const { return rows_; }
    [[nodiscard]] const Core::ByteArray& getColors() const { return colors_; }
    [[nodiscard]] const Matrix& getMatrix() const { return matrix_; }

private:
    XPointF corner_;
    SizeF size_;
    std::int32_t columns_;
    std::int32_t rows_;
    Core::ByteArray colors_;
    Matrix matrix_;
};

}  // namespace Drawing
