#pragma once

#include "Core/Object.h"
#include "Drawing/Export.h"

#include <cstdint>

namespace Drawing {

/// The colour spaces of images; their numbers are part of the interface.
enum class ColorSpaceType : std::int32_t { cmyk = 1, rgb = 2, gray = 3, oneBit = 5 };

/// What the components of an image's pixels mean.
class DRAWING_API ColorSpace : public Core::Object {
public:
    explicit ColorSpace(ColorSpaceType type) : type_(type) {}
    ~ColorSpace() override;

    [[nodiscard]] ColorSpaceType getType() const { return type_; }
    /// Components a pixel: 4 for CMYK, 3 for RGB, else 1.
    [[nodiscard]] int getComponentCount() const;

private:
    ColorSpaceType type_;
};

}  // namespace Drawing
