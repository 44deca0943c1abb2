#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Drawing/ColorSpace.h"
#include "Print/Export.h"

#include <array>
#include <cstdint>
#include <span>

namespace Drawing::Print {

/// Up to four components from 0 to 1: ink for CMYK, light for RGB and grey.
using Components = std::array<double, 4>;

/// Brings every colour of a document to one device colour space: solid colours, the stops of
/// gradients, the substitutes of spot colours and the pixels of pictures. Immutable, so it may be
/// shared; a subclass can put a colour-managed conversion in the place of the plain one.
class PRINT_API ColorConverter : public Core::Object {
public:
    /// The device formulas (PLRM 7.2): grey by luminance (0.3 R + 0.59 G + 0.11 B), CMYK with full
    /// black generation and undercolour removal. `target` is grey, RGB or CMYK; anything else
    /// raises `FormatException`.
    static Core::SmartPtr<ColorConverter> plain(ColorSpaceType target);

    ~ColorConverter() override;

    [[nodiscard]] ColorSpaceType getTarget() const { return target_; }
    /// `color`, which is of the space `from` (grey, RGB or CMYK), in the target space.
    [[nodiscard]] virtual Components convert(ColorSpaceType from,
                                             const Components& color) const = 0;
    /// Whole pixels of 8-bit components side by side: `from` components a pixel in `pixels`, those
    /// of the target in `converted`, which must hold just as many pixels.
    virtual void convertPixels(ColorSpaceType from, std::span<const std::uint8_t> pixels,
                               std::span<std::uint8_t> converted) const;

protected:
    explicit ColorConverter(ColorSpaceType target);

private:
    ColorSpaceType target_;
};

}  // namespace Drawing::Print
