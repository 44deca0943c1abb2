#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Forward.h"
#include "Drawing/Matrix.h"
#include "Drawing/SizeF.h"

#include <array>

namespace Drawing {

/// A colour at a place along a gradient: 0 its start, 1 its end.
struct StopPoint {
    float position = 0;
    Core::SmartPtr<Color> color;
};

/// Colours that run into each other along a line or between two circles. The stops are kept in
/// the order given; their positions should ascend.
class DRAWING_API GradientBrush : public Brush {
public:
    ~GradientBrush() override;

    [[nodiscard]] const Core::Vector<StopPoint>& getStops() const { return stops_; }
    /// From the gradient's own space to the user space in which it is used.
    [[nodiscard]] const Matrix& getMatrix() const { return matrix_; }
    /// The four numbers of the constructor, in its order.
    [[nodiscard]] const std::array<float, 4>& getGeometry() const { return geometry_; }

protected:
    GradientBrush(const std::array<float, 4>& geometry, Core::Vector<StopPoint> stops,
                  const Matrix& matrix, float opacity);

private:
    std::array<float, 4> geometry_;
    Core::Vector<StopPoint> stops_;
    Matrix matrix_;
};

/// A gradient along the line from `start` to `end`.
class DRAWING_API LinearGradientBrush : public GradientBrush {
public:
    LinearGradientBrush(XPointF start, XPointF end, Core::Vector<StopPoint> stops,
                        const Matrix& matrix = {}, float opacity = 1);
    ~LinearGradientBrush() override;
    [[nodiscard]] BrushType getBrushType() const override { return BrushType::linearGradient; }
};

/// A gradient between two circles around `centre`, from `firstRadius` to `secondRadius`.
class DRAWING_API RadialGradientBrush : public GradientBrush {
public:
    RadialGradientBrush(XPointF centre, float firstRadius, float secondRadius,
                        Core::Vector<StopPoint> stops, const Matrix& matrix = {},
                        float opacity = 1);
    ~RadialGradientBrush() override;
    [[nodiscard]] BrushType getBrushType() const override { return BrushType::radialGradient; }
};

}  // namespace Drawing
