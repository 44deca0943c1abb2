#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/elements/ElementWalker.h"

#include <functional>
#include <pugixml.hpp>

namespace psrender::svg {

class PageItems;
class References;
class StyleResolver;
class XmlTree;

/// Reads `clipPath` elements, the areas that others are shown in. Touches the groups of the page,
/// the references, as areas are drawn once and placed, and, for what an area is made of, the
/// walker.
class ClipReader {
public:
    /// All must outlive the reader.
    ClipReader(const XmlTree& tree, StyleResolver& styles, PageItems& items, References& references,
               ElementWalker& walker)
        : tree_(tree), styles_(styles), items_(items), references_(references), walker_(walker) {}

    /// What `draw` draws, as a group within the clip path of the style.
    void drawWithin(const Surroundings& inside, const std::function<void()>& draw);

private:
    [[nodiscard]] pugi::xml_node find(const ComputedStyle& style) const;
    scene::Clip read(pugi::xml_node clipPath, const Surroundings& inside);
    void drawArea(pugi::xml_node clipPath, const Surroundings& inside);

    const XmlTree& tree_;
    StyleResolver& styles_;
    PageItems& items_;
    References& references_;
    ElementWalker& walker_;
};

}  // namespace psrender::svg
