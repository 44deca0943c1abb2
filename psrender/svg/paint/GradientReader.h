#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/paint/PaintServer.h"

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>
#include <vector>

namespace psrender::svg {

class StyleResolver;

/// Makes paints of `linearGradient` and `radialGradient` elements.
class GradientReader {
public:
    /// All three must outlive the reader.
    GradientReader(const XmlTree& tree, StyleResolver& styles, Warnings& warnings)
        : tree_(tree), styles_(styles), warnings_(warnings) {}

    /// A gradient, the solid paint that it comes down to, or no paint. Nothing if there is no
    /// way to paint with it in this place.
    std::optional<scene::Paint> read(pugi::xml_node element, const PaintPlace& place);

private:
    using Stops = std::vector<scene::ColorStop>;

    std::shared_ptr<const Stops> stopsOf(pugi::xml_node holder);
    [[nodiscard]] Stops readStops(pugi::xml_node holder);
    [[nodiscard]] scene::ColorStop readStop(pugi::xml_node element);
    void readLine(const PaintServer& server, const Measures& measures, scene::Gradient& gradient);
    void readCircles(const PaintServer& server, const Measures& measures,
                     scene::Gradient& gradient);

    const XmlTree& tree_;
    StyleResolver& styles_;
    Warnings& warnings_;
    std::unordered_map<const void*, std::shared_ptr<const Stops>> stops_;  ///< by their parent
};

}  // namespace psrender::svg
