#include "Drawing/EncodedImage.h"

namespace Drawing {

EncodedImage::~EncodedImage() = default;

}  // namespace Drawing
