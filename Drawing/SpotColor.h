#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Color.h"

#include <utility>

namespace Drawing {

/// What a device without a spot ink shows in its place: an RGB colour, a CMYK colour, both or
/// neither. The components of an alternative that is not there are 0.
class DRAWING_API ColorSubstitute : public Core::Object {
public:
    /// Either argument may be null.
    explicit ColorSubstitute(Core::SmartPtr<RGBColor> rgb, Core::SmartPtr<CMYKColor> cmyk = nullptr)
        : rgb_(std::move(rgb)), cmyk_(std::move(cmyk)) {}
    ~ColorSubstitute() override;

    [[nodiscard]] bool hasRGBSubstitute() const { return !rgb_.isNull(); }
    [[nodiscard]] bool hasCMYKSubstitute() const { return !cmyk_.isNull(); }
    [[nodiscard]] std::uint8_t getR() const;
    [[nodiscard]] std::uint8_t getG() const;
    [[nodiscard]] std::uint8_t getB() const;
    [[nodiscard]] double getC() const;
    [[nodiscard]] double getM() const;
    [[nodiscard]] double getY() const;
    [[nodiscard]] double getK() const;

private:
    Core::SmartPtr<RGBColor> rgb_;
    Core::SmartPtr<CMYKColor> cmyk_;
};

/// A named ink at some strength (PLRM 4.8.4, Separation spaces).
class DRAWING_API SpotColor : public Color {
public:
    /// `tint` from 0 (no ink) to 1; back ends that know full strength only take no notice of it.
    SpotColor(Core::String name, Core::SmartPtr<ColorSubstitute> substitute, double tint = 1)
        : name_(std::move(name)), substitute_(std::move(substitute)), tint_(tint) {}
    ~SpotColor() override;

    [[nodiscard]] ColorType getColorType() const override { return ColorType::spot; }
    [[nodiscard]] const Core::String& getColorName() const { return name_; }
    [[nodiscard]] const Core::SmartPtr<ColorSubstitute>& getColorSubstitute() const {
        return substitute_;
    }
    [[nodiscard]] double getTint() const { return tint_; }

private:
    Core::String name_;
    Core::SmartPtr<ColorSubstitute> substitute_;
    double tint_;
};

}  // namespace Drawing
