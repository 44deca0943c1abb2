#pragma once

#include "Drawing/Font.h"
#include "psrender/svg/values/Length.h"
#include "psrender/svg/values/Paint.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace psrender::svg {

enum class TextAnchor : std::uint8_t { start, middle, end };

/// The line of a font that stands at the text's position.
enum class Baseline : std::uint8_t {
    alphabetic,
    middle,
    central,
    mathematical,
    hanging,
    top,
    bottom
};

/// Which small letters are shown as small capitals; `all` makes large ones small, too.
enum class Capitals : std::uint8_t { normal, small, all };

/// How the letters of vertical text stand: as their script asks, all upright, or all lying.
enum class Orientation : std::uint8_t { mixed, upright, sideways };

/// What the direction of an element does to the order of its letters.
enum class BidiMode : std::uint8_t { normal, embed, isolate, replace };

/// Lines along a text, as bits of a set.
using DecorationSet = std::uint8_t;
namespace decoration {
constexpr DecorationSet kUnderline = 1;
constexpr DecorationSet kOverline = 2;
constexpr DecorationSet kLineThrough = 4;
}  // namespace decoration

enum class DecorationShape : std::uint8_t { solid, twofold, dotted, dashed, wavy };

struct Decoration;
/// Lines of an element and all around it, the outermost first; null for none.
using DecorationList = std::shared_ptr<const std::vector<Decoration>>;

/// How text looks that says nothing else; lengths in user units.
struct TextStyle {
    std::string_view families = "Times";  ///< as a style sheet lists them
    int weight = Drawing::Font::kRegular;
    int stretch = 100;  ///< per cent of the usual width
    Drawing::FontSlant slant = Drawing::FontSlant::upright;
    std::string_view features;    ///< of the font, as a style sheet lists them
    std::string_view variations;  ///< places on the axes of a variable font, listed the same way
    double lineHeight = 1.25;     ///< of text that flows, in ems
    Length letterSpacing;
    Length wordSpacing;
    TextAnchor anchor = TextAnchor::start;
    Baseline baseline = Baseline::alphabetic;
    Capitals capitals = Capitals::normal;
    Orientation orientation = Orientation::mixed;
    DecorationList decorations;
    bool isRightToLeft = false;
    bool isVertical = false;
    bool keepsSpace = false;
    bool isKerned = true;
    bool hasLigatures = true;

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// What an element says of the place of its own text among that around it.
struct OwnTextStyle {
    double baselineShift = 0;           ///< user units, upwards
    std::optional<Baseline> alignment;  ///< in place of the inherited baseline
    BidiMode bidi = BidiMode::normal;
    DecorationSet lines = 0;
    DecorationShape lineShape = DecorationShape::solid;
    std::optional<PlainPaint> lineColor;

    friend bool operator==(const OwnTextStyle&, const OwnTextStyle&) = default;
};

}  // namespace psrender::svg
