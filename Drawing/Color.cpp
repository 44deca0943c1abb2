#include "Drawing/Color.h"

namespace Drawing {

Color::~Color() = default;
RGBColor::~RGBColor() = default;
GrayScaleColor::~GrayScaleColor() = default;
CMYKColor::~CMYKColor() = default;

}  // namespace Drawing
