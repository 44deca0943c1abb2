#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/values/Length.h"

#include <optional>
#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class XmlTree;

/// The coordinates inside of an element that has a viewBox, or may have one.
struct Viewport {
    scene::Affine map;  ///< to the coordinates around the element
    double width = 0;   ///< what percentages inside go by
    double height = 0;
};

/// The viewport that `element` opens in `area`, the rectangle that it covers among its
/// surroundings. Nothing if it shows nothing, its viewBox or the area being empty.
std::optional<Viewport> openViewport(pugi::xml_node element, const scene::Rect& area,
                                     Warnings& warnings);

/// Where a drawing within the drawing asks to be shown.
scene::Rect nestedArea(pugi::xml_node svg, const Measures& measures, Warnings& warnings);

/// Whether the drawing tells no size of its own: neither a viewBox nor a side that is a length.
bool isSizedByContent(pugi::xml_node root);

/// Width and height of the drawing in pixels, at (0, 0). Throws `InputError` if there is no
/// making sense of the root element's size or viewBox.
scene::Rect drawingArea(const XmlTree& tree, double fontSize);

}  // namespace psrender::svg
