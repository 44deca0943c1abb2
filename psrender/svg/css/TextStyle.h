#pragma once

#include "Drawing/Font.h"
#include "psrender/svg/values/Length.h"

#include <cstdint>
#include <string_view>

namespace psrender::svg {

enum class TextAnchor : std::uint8_t { start, middle, end };

/// The line of a font that stands at the text's position.
enum class Baseline : std::uint8_t { alphabetic, middle, central, hanging, top, bottom };

/// Lines along a text, as bits of a set.
using DecorationSet = std::uint8_t;
namespace decoration {
constexpr DecorationSet kUnderline = 1;
constexpr DecorationSet kOverline = 2;
constexpr DecorationSet kLineThrough = 4;
}  // namespace decoration

/// How text looks that says nothing else; lengths in user units.
struct TextStyle {
    std::string_view families = "Times";  ///< as a style sheet lists them
    int weight = Drawing::Font::kRegular;
    Drawing::FontSlant slant = Drawing::FontSlant::upright;
    double letterSpacing = 0;
    double wordSpacing = 0;
    TextAnchor anchor = TextAnchor::start;
    Baseline baseline = Baseline::alphabetic;
    DecorationSet decorations = 0;  ///< those of all elements around, too
    bool isRightToLeft = false;
    bool keepsSpace = false;
    bool isKerned = true;

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

}  // namespace psrender::svg
