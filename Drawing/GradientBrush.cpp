#include "Drawing/GradientBrush.h"

#include <utility>

namespace Drawing {

GradientBrush::GradientBrush(const std::array<float, 4>& geometry, Core::Vector<StopPoint> stops,
                             const Matrix& matrix, float opacity)
    : Brush(opacity), geometry_(geometry), stops_(std::move(stops)), matrix_(matrix) {}

GradientBrush::~GradientBrush() = default;

LinearGradientBrush::LinearGradientBrush(XPointF start, XPointF end, Core::Vector<StopPoint> stops,
                                         const Matrix& matrix, float opacity)
    : GradientBrush({start.x, start.y, end.x, end.y}, std::move(stops), matrix, opacity) {}

LinearGradientBrush::~LinearGradientBrush() = default;

RadialGradientBrush::RadialGradientBrush(XPointF centre, float firstRadius, float secondRadius,
                                         Core::Vector<StopPoint> stops, const Matrix& matrix,
                                         float opacity)
    : RadialGradientBrush(centre, firstRadius, centre, secondRadius, std::move(stops), matrix,
                          opacity) {}

RadialGradientBrush::RadialGradientBrush(XPointF firstCentre, float firstRadius, XPointF centre,
                                         float secondRadius, Core::Vector<StopPoint> stops,
                                         const Matrix& matrix, float opacity)
    : GradientBrush({centre.x, centre.y, firstRadius, secondRadius}, std::move(stops), matrix,
                    opacity),
      firstCentre_(firstCentre) {}

RadialGradientBrush::~RadialGradientBrush() = default;

}  // namespace Drawing
