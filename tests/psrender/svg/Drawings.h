#pragma once

#include "psrender/scene/DisplayList.h"

#include <string>
#include <string_view>
#include <vector>

/// What SVG text becomes, as text of one line an item, so that cases can be compared at a glance.
namespace psrender::svg {

/// "M0,0 L10,0 C... Z", with coordinates rounded to three decimals.
std::string toText(const scene::Outline& outline);

struct Reading {
    scene::Page page;
    std::vector<std::string> items;     ///< "fill=#rrggbb stroke=... width=... M0,0 ..."
    std::vector<std::string> warnings;  ///< as the user sees them
};

/// Reads a whole document. Items are in pixels of the page.
Reading read(std::string_view document);

/// Reads elements that stand in a drawing of 100 by 100 pixels.
Reading readBody(std::string_view body);

/// The items of `readBody`.
std::vector<std::string> drawn(std::string_view body);

/// The fill of the only shape of a body, such as "#ff0000" or "#ff0000/0.5", or "none".
std::string fillOf(std::string_view body);

/// The sentence with which a document is refused; empty if it is read.
std::string refusal(std::string_view document);

}  // namespace psrender::svg
