#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Drawing/Color.h"
#include "Drawing/Export.h"

#include <cstdint>
#include <utility>

namespace Drawing {

/// The kinds of paint; their numbers are part of the interface.
enum class BrushType : std::int32_t {
    solid = 0,
    none = 1,
    pattern = 2,
    linearGradient = 3,
    radialGradient = 4,
    colorField = 5,  ///< of `ColorFieldBrush`; documents of LanguageLevel 3 only
};

/// What an area or a line is painted with; immutable, so it may be shared freely.
class DRAWING_API Brush : public Core::Object {
public:
    ~Brush() override;
    [[nodiscard]] virtual BrushType getBrushType() const = 0;
    /// 0 (invisible) to 1 (opaque). No page is translucent: a `PrintDocument` shows a value in
    /// between as it looks on white paper; a `PSDocument` leaves out fills of 0 and paints all else
    /// opaque.
    [[nodiscard]] float getOpacity() const { return opacity_; }

protected:
    explicit Brush(float opacity) : opacity_(opacity) {}

private:
    float opacity_;
};

/// One colour everywhere.
class DRAWING_API SolidColorBrush : public Brush {
public:
    explicit SolidColorBrush(Core::SmartPtr<Color> color, float opacity = 1)
        : Brush(opacity), color_(std::move(color)) {}
    ~SolidColorBrush() override;

    [[nodiscard]] BrushType getBrushType() const override { return BrushType::solid; }
    [[nodiscard]] const Core::SmartPtr<Color>& getColor() const { return color_; }

private:
    Core::SmartPtr<Color> color_;
};

/// No paint of its own: what it covers is painted in the colour that is current.
class DRAWING_API NoneBrush : public Brush {
public:
    NoneBrush() : Brush(1) {}
    ~NoneBrush() override;

    [[nodiscard]] BrushType getBrushType() const override { return BrushType::none; }
};

}  // namespace Drawing
