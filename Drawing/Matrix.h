#pragma once

#include "Drawing/Export.h"

namespace Drawing {

/// Which of two maps is applied first when they are multiplied.
enum class MatrixOrder {
    append = 0,   ///< the map that is there first, the new one after it
    prepend = 1,  ///< the new one first
};

/// An affine map of row vectors: x' = x ScaleX + y ShearX + TranslateX and
/// y' = x ShearY + y ScaleY + TranslateY. The six values in the constructor's order are a
/// PostScript matrix (PLRM 4.3.3). A new matrix is the identity.
class DRAWING_API Matrix {
public:
    Matrix() = default;
    Matrix(float scaleX, float shearY, float shearX, float scaleY, float translateX,
           float translateY)
        : scaleX_(scaleX),
          shearY_(shearY),
          shearX_(shearX),
          scaleY_(scaleY),
          translateX_(translateX),
          translateY_(translateY) {}

    [[nodiscard]] float getScaleX() const { return scaleX_; }
    [[nodiscard]] float getShearY() const { return shearY_; }
    [[nodiscard]] float getShearX() const { return shearX_; }
    [[nodiscard]] float getScaleY() const { return scaleY_; }
    [[nodiscard]] float getTranslateX() const { return translateX_; }
    [[nodiscard]] float getTranslateY() const { return translateY_; }

    /// Combines this map with `other`; with `append`, `other` is applied to this map's result.
    void multiply(const Matrix& other, MatrixOrder order = MatrixOrder::append);
    /// Appends a move by (x, y), given in the space that this map leads to.
    void translate(float x, float y);

    friend bool operator==(const Matrix&, const Matrix&) = default;

private:
    float scaleX_ = 1;
    float shearY_ = 0;
    float shearX_ = 0;
    float scaleY_ = 1;
    float translateX_ = 0;
    float translateY_ = 0;
};

}  // namespace Drawing
