#pragma once

#include "psrender/svg/css/ComputedStyle.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <vector>

namespace psrender::svg {

class StyleResolver;

/// A piece of text with one style.
struct TextSpan {
    pugi::xml_node element;
    ComputedStyle style;
    double baselineShift = 0;  ///< user units upwards, that of all elements around included
    pugi::xml_node path;       ///< the `textPath` that it runs along, or none
};

/// A character and what the elements around it say of its place, in user units.
struct TextCharacter {
    char32_t code = 0;
    std::size_t span = 0;
    std::optional<double> x;
    std::optional<double> y;
    double dx = 0;
    double dy = 0;
    double rotation = 0;  ///< degrees, clockwise

    [[nodiscard]] bool isMoved() const { return x || y || dx != 0 || dy != 0 || rotation != 0; }
};

/// A text element in reading order, with its white space as it is shown.
struct TextContent {
    std::vector<TextSpan> spans;
    std::vector<TextCharacter> characters;
};

/// Reads the element `text`, whose style is `style`.
TextContent readTextContent(pugi::xml_node text, const ComputedStyle& style,
                            const Measures& measures, StyleResolver& styles);

}  // namespace psrender::svg
