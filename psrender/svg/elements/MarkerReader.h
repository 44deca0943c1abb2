#pragma once

#include "psrender/scene/Outline.h"
#include "psrender/svg/elements/ElementWalker.h"
#include "psrender/svg/elements/SymbolStore.h"
#include "psrender/svg/path/MarkerVertices.h"
#include "psrender/svg/xml/ElementKind.h"

#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class Canvas;
class References;
class StyleResolver;
class XmlTree;

/// Reads `marker` elements, symbols that stand on the vertices of a path. Touches the canvas, the
/// references and, for what a marker holds, the walker.
class MarkerReader {
public:
    /// All must outlive the reader.
    MarkerReader(const XmlTree& tree, StyleResolver& styles, Canvas& canvas, References& references,
                 ElementWalker& walker, Warnings& warnings)
        : tree_(tree),
          styles_(styles),
          canvas_(canvas),
          references_(references),
          walker_(walker),
          warnings_(warnings) {}

    [[nodiscard]] static bool hasMarkers(ElementKind kind, const ComputedStyle& style);
    /// The markers on the vertices of `outline`, which `element` has.
    void draw(pugi::xml_node element, const scene::Outline& outline, const Surroundings& inside);

private:
    void drawMarker(pugi::xml_node marker, const MarkerVertex& vertex, bool isStart,
                    const Surroundings& inside);
    const Symbol& symbolOf(pugi::xml_node marker, const Surroundings& inside);

    const XmlTree& tree_;
    StyleResolver& styles_;
    Canvas& canvas_;
    References& references_;
    ElementWalker& walker_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
