#pragma once

#include "psrender/svg/css/ComputedStyle.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <vector>

namespace psrender::svg {

class StyleResolver;
class XmlTree;

/// A piece of text with one style.
struct TextSpan {
    pugi::xml_node element;
    ComputedStyle style;
    double baselineShift = 0;  ///< user units upwards, that of all elements around included
    Baseline baseline = Baseline::alphabetic;
    pugi::xml_node path;  ///< the `textPath` that it runs along, or none
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
};

/// A character that says how those behind it are ordered, and is not shown.
struct BidiControl {
    std::size_t before = 0;  ///< the character that it stands before
    char32_t code = 0;
};

/// A text element in reading order, with its white space as it is shown.
struct TextContent {
    std::vector<TextSpan> spans;
    std::vector<TextCharacter> characters;
    std::vector<BidiControl> controls;
    std::vector<std::size_t> paragraphs;  ///< where those of flowing text begin
    bool isRightToLeft = false;           ///< as a whole
    bool isVertical = false;              ///< lines run down the page
};

/// Reads the element `text`, whose style is `style`. `tree` holds what it refers to.
TextContent readTextContent(pugi::xml_node text, const ComputedStyle& style,
                            const Measures& measures, StyleResolver& styles, const XmlTree& tree);

}  // namespace psrender::svg
