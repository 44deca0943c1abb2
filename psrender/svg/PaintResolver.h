#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/ComputedStyle.h"
#include "psrender/svg/Paint.h"

#include <pugixml.hpp>
#include <string_view>
#include <unordered_map>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class StyleResolver;
class XmlTree;

/// Turns paint values into paints of the page. Gradients and patterns are approximated, each
/// with a warning.
class PaintResolver {
public:
    /// All three must outlive the resolver.
    PaintResolver(const XmlTree& tree, StyleResolver& styles, Warnings& warnings)
        : tree_(tree), styles_(styles), warnings_(warnings) {}

    scene::Paint resolve(const PaintValue& value, double opacity, const Rgba& currentColor);

private:
    PlainPaint replacementFor(const PaintValue& value);
    const PlainPaint& firstStopOf(std::string_view gradientId, pugi::xml_node gradient);
    PlainPaint readFirstStop(pugi::xml_node gradient);
    [[nodiscard]] pugi::xml_node findFirstStop(pugi::xml_node gradient) const;

    const XmlTree& tree_;
    StyleResolver& styles_;
    Warnings& warnings_;
    std::unordered_map<std::string_view, PlainPaint> firstStops_;  ///< by the gradient's id
};

}  // namespace psrender::svg
