#include "Drawing/Brush.h"

namespace Drawing {

Brush::~Brush() = default;
SolidColorBrush::~SolidColorBrush() = default;
NoneBrush::~NoneBrush() = default;

}  // namespace Drawing
