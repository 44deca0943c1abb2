#include "Drawing/Stroke.h"

namespace Drawing {

Stroke::Stroke()
    : Stroke(Core::makeObject<SolidColorBrush>(
          Core::makeObject<RGBColor>(std::uint8_t{0}, std::uint8_t{0}, std::uint8_t{0}))) {}

Stroke::Stroke(Core::SmartPtr<Brush> brush, float thickness)
    : brush_(std::move(brush)), thickness_(thickness) {}

Stroke::~Stroke() = default;

}  // namespace Drawing
