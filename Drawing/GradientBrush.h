#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Brush.h"
#include "Drawing/Forward.h"
#include "Drawing/Matrix.h"
#include "Drawing/SizeF.h"

#include <array>
#include <cstdint>

namespace Drawing {

/// A colour at a place along a gradient: 0 its start, 1 its end.
struct StopPoint {
    float position = 0;
    Core::SmartPtr<Color> color;
};

/// What a gradient shows beyond its ends: the colour of the end, its stops again, or its stops
/// back and forth.
enum class GradientSpread : std::int32_t { pad = 0, repeat = 1, reflect = 2 };

/// Colours that run into each other along a line or between two circles. The stops are kept in
/// the order given; their positions should ascend. A `PSDocument` paints nothing beyond the ends,
/// and all of its gradients show the colours of the one that was used last.
class DRAWING_API GradientBrush : public Brush {
public:
    ~GradientBrush() override;

    [[nodiscard]] const Core::Vector<StopPoint>& getStops() const { return stops_; }
    /// From the gradient's own space to the user space in which it is used.
    [[nodiscard]] const Matrix& getMatrix() const { return matrix_; }
    /// The four numbers of the constructor, in its order.
    [[nodiscard]] const std::array<float, 4>& getGeometry() const { return geometry_; }

    /// Set before the brush is first used; back ends that only know `pad` take no notice.
    void setSpread(GradientSpread spread) { spread_ = spread; }
    [[nodiscard]] GradientSpread getSpread() const { return spread_; }
    /// Whether the colours of a padded gradient go on before its start and behind its end; else
    /// nothing is painted there (the /Extend of PLRM 4.9.3). Both at first.
    void setExtend(bool beforeStart, bool behindEnd) { extend_ = {beforeStart, behindEnd}; }
    [[nodiscard]] const std::array<bool, 2>& getExtend() const { return extend_; }

protected:
    GradientBrush(const std::array<float, 4>& geometry, Core::Vector<StopPoint> stops,
                  const Matrix& matrix, float opacity);

private:
    std::array<float, 4> geometry_;
    Core::Vector<StopPoint> stops_;
    Matrix matrix_;
    GradientSpread spread_ = GradientSpread::pad;
    std::array<bool, 2> extend_{true, true};
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
    /// From the circle around `firstCentre` to the one around `centre`, wherever they lie. Back
    /// ends that only know circles around one point take `centre` for both.
    RadialGradientBrush(XPointF firstCentre, float firstRadius, XPointF centre, float secondRadius,
                        Core::Vector<StopPoint> stops, const Matrix& matrix = {},
                        float opacity = 1);
    ~RadialGradientBrush() override;
    [[nodiscard]] BrushType getBrushType() const override { return BrushType::radialGradient; }
    [[nodiscard]] XPointF getFirstCentre() const { return firstCentre_; }

private:
    XPointF firstCentre_;
};

}  // namespace Drawing
