#include "Drawing/Image.h"

namespace Drawing {

Image::~Image() = default;

bool Image::isInterpolated() const {
    return false;
}

}  // namespace Drawing
