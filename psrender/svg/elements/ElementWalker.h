#pragma once

#include "psrender/svg/elements/Surroundings.h"

#include <pugixml.hpp>

namespace psrender::svg {

/// Draws elements of any kind: what the reader of one kind knows of all the others.
class ElementWalker {
public:
    ElementWalker() = default;
    ElementWalker(const ElementWalker&) = delete;
    ElementWalker& operator=(const ElementWalker&) = delete;
    virtual ~ElementWalker() = default;

    /// `area` is where a reference wants an element with a viewport of its own; else null. Throws
    /// `InputError`.
    virtual void draw(pugi::xml_node element, const Surroundings& around,
                      const scene::Rect* area) = 0;
    virtual void drawChildren(pugi::xml_node element, const Surroundings& inside) = 0;
};

}  // namespace psrender::svg
