#pragma once

#include "Core/Object.h"
#include "Drawing/Export.h"

#include <cstdint>

namespace Drawing {

/// The kinds of colour; their numbers are part of the interface. A back end may know fewer.
enum class ColorType : std::int32_t {
    undefined = 0,
    cmyk = 1,
    rgb = 2,
    gray = 3,
    lab = 4,
    indexed = 5,
    calibrated = 6,
    spot = 7,
};

/// A colour of some kind; immutable, so it may be shared freely.
class DRAWING_API Color : public Core::Object {
public:
    ~Color() override;
    [[nodiscard]] virtual ColorType getColorType() const = 0;
};

/// Device RGB, 0 to 255 a component. A `PSDocument` writes 255 as 255/256, which is not quite
/// white.
class DRAWING_API RGBColor : public Color {
public:
    RGBColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
        : red_(red), green_(green), blue_(blue) {}
    ~RGBColor() override;

    [[nodiscard]] ColorType getColorType() const override { return ColorType::rgb; }
    [[nodiscard]] std::uint8_t getR() const { return red_; }
    [[nodiscard]] std::uint8_t getG() const { return green_; }
    [[nodiscard]] std::uint8_t getB() const { return blue_; }

private:
    std::uint8_t red_;
    std::uint8_t green_;
    std::uint8_t blue_;
};

/// Device grey, 0 (black) to 255 (white). In a `PSDocument`, solid paint of any level above 0 is
/// white; an RGB colour of three equal components shows the grey.
class DRAWING_API GrayScaleColor : public Color {
public:
    explicit GrayScaleColor(std::uint8_t gray) : gray_(gray) {}
    ~GrayScaleColor() override;

    [[nodiscard]] ColorType getColorType() const override { return ColorType::gray; }
    [[nodiscard]] std::uint8_t getG() const { return gray_; }

private:
    std::uint8_t gray_;
};

/// Device CMYK, 0 (no ink) to 1 a component. In a gradient, a `PSDocument` writes 1/256 of it.
class DRAWING_API CMYKColor : public Color {
public:
    CMYKColor(double cyan, double magenta, double yellow, double black)
        : cyan_(cyan), magenta_(magenta), yellow_(yellow), black_(black) {}
    ~CMYKColor() override;

    [[nodiscard]] ColorType getColorType() const override { return ColorType::cmyk; }
    [[nodiscard]] double getC() const { return cyan_; }
    [[nodiscard]] double getM() const { return magenta_; }
    [[nodiscard]] double getY() const { return yellow_; }
    [[nodiscard]] double getK() const { return black_; }

private:
    double cyan_;
    double magenta_;
    double yellow_;
    double black_;
};

}  // namespace Drawing
