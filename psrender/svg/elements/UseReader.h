#pragma once

#include "psrender/svg/elements/ElementWalker.h"
#include "psrender/svg/elements/SymbolStore.h"

#include <optional>
#include <pugixml.hpp>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class Canvas;
class References;
class XmlTree;

/// Reads `use` elements: what they refer to is drawn in their place, and what is referred to often
/// is drawn once and placed. Touches the canvas, the references and, for targets, the walker.
class UseReader {
public:
    /// All must outlive the reader.
    UseReader(const XmlTree& tree, Canvas& canvas, References& references, ElementWalker& walker,
              Warnings& warnings)
        : tree_(tree),
          canvas_(canvas),
          references_(references),
          walker_(walker),
          warnings_(warnings) {}

    /// One that is part of what it refers to is left out.
    void draw(pugi::xml_node use, const Surroundings& inside);

private:
    [[nodiscard]] bool isWithin(pugi::xml_node use, pugi::xml_node target) const;
    [[nodiscard]] pugi::xml_node findTarget(pugi::xml_node use);
    void drawTarget(pugi::xml_node use, pugi::xml_node target, const Surroundings& inside);
    const Symbol& symbolOf(pugi::xml_node target, const Surroundings& inside,
                           const std::optional<scene::Rect>& area);
    [[nodiscard]] scene::Rect areaOf(pugi::xml_node use, pugi::xml_node target,
                                     const Measures& measures);

    const XmlTree& tree_;
    Canvas& canvas_;
    References& references_;
    ElementWalker& walker_;
    Warnings& warnings_;
    std::vector<pugi::xml_node> open_;  ///< references that are being drawn
};

}  // namespace psrender::svg
