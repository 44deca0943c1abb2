#pragma once

#include "Drawing/ColorSpace.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace Images {

/// Brings colours from the space that a file's ICC profile describes into sRGB, or, for grey,
/// into grey in sRGB's steps.
class ColorProfile {
public:
    ColorProfile();
    ColorProfile(const ColorProfile&) = delete;
    ColorProfile& operator=(const ColorProfile&) = delete;
    ~ColorProfile();

    /// Takes over an ICC profile for colours of this space. False if it is damaged or for another
    /// space, or for CMYK, which stays as it is: the colours are then left alone.
    [[nodiscard]] bool load(std::span<const std::uint8_t> profile, Drawing::ColorSpaceType space);
    /// Whether `apply` does anything.
    [[nodiscard]] bool changesColors() const { return conversion_ != nullptr; }
    /// Converts 8-bit pixels in place; does nothing without a profile, or with one of sRGB.
    void apply(std::uint8_t* pixels, std::size_t count) const;

private:
    struct Conversion;
    std::unique_ptr<Conversion> conversion_;
};

}  // namespace Images
