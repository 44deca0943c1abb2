#include "Drawing/ColorSpace.h"

namespace Drawing {

ColorSpace::~ColorSpace() = default;

int ColorSpace::getComponentCount() const {
    switch (type_) {
        case ColorSpaceType::cmyk:
            return 4;
        case ColorSpaceType::rgb:
            return 3;
        default:
            return 1;
    }
}

}  // namespace Drawing
