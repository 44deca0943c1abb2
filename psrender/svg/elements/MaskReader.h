#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/elements/ElementWalker.h"

#include <functional>
#include <memory>
#include <optional>
#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class PageItems;
class References;
class StyleResolver;
class XmlTree;

/// Reads `mask` elements. A mask whose content has one brightness all over, as most have, is an
/// area with an opacity; others become an effect of the group. Touches the groups of the page, the
/// references and, for what a mask is made of, the walker.
class MaskReader {
public:
    /// All must outlive the reader.
    MaskReader(const XmlTree& tree, StyleResolver& styles, PageItems& items, References& references,
               ElementWalker& walker, Warnings& warnings)
        : tree_(tree),
          styles_(styles),
          items_(items),
          references_(references),
          walker_(walker),
          warnings_(warnings) {}

    /// What `draw` draws, as it is seen through the mask of the style.
    void drawWithin(const Surroundings& inside, const std::function<void()>& draw);

private:
    std::shared_ptr<const scene::ItemList> read(pugi::xml_node mask, const ComputedStyle& style,
                                                const Surroundings& inside);
    void drawContent(pugi::xml_node mask, const Surroundings& within);
    void drawWithinArea(double level, std::shared_ptr<const scene::ItemList> area,
                        pugi::xml_node mask, const Surroundings& inside,
                        const std::function<void()>& draw);
    void drawThrough(scene::Mask mask, pugi::xml_node element, const Surroundings& inside,
                     const std::function<void()>& draw);
    [[nodiscard]] scene::Affine boxToPage(std::size_t begin, std::size_t shapesBefore,
                                          pugi::xml_node mask, const Surroundings& inside);
    [[nodiscard]] std::optional<scene::Rect> regionOf(pugi::xml_node mask,
                                                      const Surroundings& inside);

    const XmlTree& tree_;
    StyleResolver& styles_;
    PageItems& items_;
    References& references_;
    ElementWalker& walker_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
