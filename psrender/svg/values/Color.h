#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>
#include <string_view>

namespace psrender::svg {

/// A colour with the opacity that stands in the colour value itself.
struct Rgba {
    scene::Color color;
    double alpha = 1;

    friend bool operator==(const Rgba&, const Rgba&) = default;
};

/// A named, hexadecimal, rgb() or hsl() colour, or "transparent".
std::optional<Rgba> parseColor(std::string_view text);

/// One of the 148 named colours, in any case.
std::optional<scene::Color> namedColor(std::string_view name);

}  // namespace psrender::svg
