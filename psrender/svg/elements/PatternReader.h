#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/elements/ElementWalker.h"
#include "psrender/svg/elements/SymbolStore.h"
#include "psrender/svg/paint/PaintServer.h"

#include <optional>
#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class References;
class StyleResolver;
class XmlTree;

/// Makes paints of `pattern` elements, symbols that repeat as tiles within what is painted with
/// them. Touches the references and, for what a tile holds, the walker; nothing on the page.
class PatternReader {
public:
    /// All must outlive the reader.
    PatternReader(const XmlTree& tree, StyleResolver& styles, References& references,
                  ElementWalker& walker, Warnings& warnings)
        : tree_(tree),
          styles_(styles),
          references_(references),
          walker_(walker),
          warnings_(warnings) {}

    /// The paint, or none for a tile that shows nothing. Nothing if there is no way to paint with
    /// it in this place.
    std::optional<scene::Paint> read(pugi::xml_node pattern, const PaintPlace& place);

private:
    const Symbol& symbolOf(pugi::xml_node holder, const Measures& measures, std::size_t depth);

    const XmlTree& tree_;
    StyleResolver& styles_;
    References& references_;
    ElementWalker& walker_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
