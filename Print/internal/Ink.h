#pragma once

#include "Core/SmartPtr.h"
#include "Drawing/Color.h"
#include "Print/ColorConverter.h"
#include "Print/internal/TextBuffer.h"

#include <string>

namespace Drawing::Print {

/// A solid colour as a page sets it: a device space and its components, or a spot ink.
struct Ink {
    ColorSpaceType space = ColorSpaceType::gray;
    Components components{};
    /// The name of a spot ink, whose substitute `space` and `components` then are at full strength;
    /// empty for a device colour.
    std::string spot;
    double tint = 1;

    [[nodiscard]] int componentCount() const { return ColorSpace(space).getComponentCount(); }
    friend bool operator==(const Ink&, const Ink&) = default;
};

/// `color` as it looks with `opacity` on white paper, brought to the space of `converter` unless
/// that is null. Raises `PrintException` for a kind of colour that documents do not know, for a
/// spot ink without a name, and for components that are no numbers from 0 to 1.
[[nodiscard]] Ink inkOf(const Color& color, double opacity, const ColorConverter* converter);

/// Makes a neutral RGB colour grey, which is the same light and on paper black ink alone.
void takeNeutralForGray(Ink& ink);
/// The colour operator and its operands: "1 0 0 rg".
void writeInk(const Ink& ink, TextBuffer& out);
/// A component: four decimals tell all 256 levels apart.
void writeComponent(double component, TextBuffer& out);
/// "/DeviceRGB", or the array of a Separation space (PLRM 4.8.4) with a tint transformation that
/// runs from paper to the substitute.
void writeSpace(const Ink& ink, TextBuffer& out);
/// "(text)" with everything escaped that a PostScript string gives a meaning to.
void writeLiteral(std::string_view text, TextBuffer& out);

}  // namespace Drawing::Print
