#include "Drawing/Matrix.h"

namespace Drawing {

namespace {

/// a x + b y + c in double precision, rounded once.
float combine(float a, float x, float b, float y, float c = 0) {
    return static_cast<float>(double{a} * x + double{b} * y + c);
}

/// The map that applies `first`, then `second`.
Matrix inSequence(const Matrix& first, const Matrix& second) {
    const auto xOf = [&](float x, float y, float offset) {
        return combine(x, second.getScaleX(), y, second.getShearX(), offset);
    };
    const auto yOf = [&](float x, float y, float offset) {
        return combine(x, second.getShearY(), y, second.getScaleY(), offset);
    };
    return {xOf(first.getScaleX(), first.getShearY(), 0),
            yOf(first.getScaleX(), first.getShearY(), 0),
            xOf(first.getShearX(), first.getScaleY(), 0),
            yOf(first.getShearX(), first.getScaleY(), 0),
            xOf(first.getTranslateX(), first.getTranslateY(), second.getTranslateX()),
            yOf(first.getTranslateX(), first.getTranslateY(), second.getTranslateY())};
}

}  // namespace

void Matrix::multiply(const Matrix& other, MatrixOrder order) {
    *this = order == MatrixOrder::append ? inSequence(*this, other) : inSequence(other, *this);
}

void Matrix::translate(float x, float y) {
    translateX_ += x;
    translateY_ += y;
}

}  // namespace Drawing
