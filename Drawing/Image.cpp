#include "Drawing/Image.h"

namespace Drawing {

Image::~Image() = default;

}  // namespace Drawing
