#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/values/Length.h"
#include "psrender/svg/xml/ElementKind.h"

#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class XmlTree;

/// Where a gradient or pattern is painted.
struct PaintPlace {
    std::optional<scene::Rect> box;  ///< around the painted element; nothing if that is empty
    Measures measures;
    std::size_t depth = 0;  ///< of the painted element
};

/// A gradient or pattern element with those from which it takes over what it does not tell itself.
class PaintServer {
public:
    PaintServer(const XmlTree& tree, pugi::xml_node element);

    /// The nearest value; empty if none of the elements has this attribute.
    [[nodiscard]] std::string_view attribute(const char* name) const;
    [[nodiscard]] bool has(const char* name) const { return !!holderOf(name); }
    /// In user space, or in the box if the server's units are those of the box.
    [[nodiscard]] double length(const char* name, Axis axis, const Length& usual,
                                const Measures& measures, Warnings& warnings) const;
    /// The nearest element with a child of this kind, or of any that is drawn for `unknown`.
    [[nodiscard]] pugi::xml_node withChild(ElementKind kind) const;

private:
    [[nodiscard]] pugi::xml_node holderOf(const char* name) const;

    std::vector<pugi::xml_node> chain_;
};

/// The map from the square of side 1 to `box`.
scene::Affine mapToBox(const scene::Rect& box);

}  // namespace psrender::svg
