#include "Drawing/PatternBrush.h"

#include "Drawing/IOutputContext.h"

#include <utility>

namespace Drawing {

PatternBrush::PatternBrush(Core::SmartPtr<IOutputContext> context, const Matrix& matrix,
                           XPointF origin, float opacity)
    : Brush(opacity), context_(std::move(context)), matrix_(matrix), origin_(origin) {}

PatternBrush::~PatternBrush() = default;

}  // namespace Drawing
