#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/elements/SymbolStore.h"

#include <pugixml.hpp>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class XmlTree;

/// The page that the readers of all elements draw on. What is painted with nothing is left out,
/// and a picture that becomes too large is refused at the element that is too much.
class Canvas {
public:
    /// Tree and warnings must outlive the canvas.
    Canvas(const XmlTree& tree, const ReadingLimits& limits, Warnings& warnings)
        : tree_(tree), warnings_(warnings), items_(limits) {}

    /// These add what `element` shows. They throw `InputError` when the page is full.
    void add(scene::Shape shape, pugi::xml_node element);
    /// The same for one that paints nothing.
    void addUnpainted(scene::Shape shape, pugi::xml_node element);
    void add(scene::Text text, pugi::xml_node element);
    void add(scene::Picture picture, pugi::xml_node element);
    void place(const Symbol& symbol, const scene::Affine& toPage, pugi::xml_node element);

    /// Whether what is mapped like this can be seen: a map that flattens everything shows nothing,
    /// nor does one that is not finite, which is counted in the warnings.
    [[nodiscard]] bool canShow(const scene::Affine& toPage);

    /// For groups, and for what is drawn aside.
    [[nodiscard]] PageItems& items() { return items_; }

private:
    void require(bool isAdded, pugi::xml_node element) const;

    const XmlTree& tree_;
    Warnings& warnings_;
    PageItems items_;
};

}  // namespace psrender::svg
