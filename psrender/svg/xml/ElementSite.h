#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/svg/xml/XmlTree.h"

namespace psrender::svg {

/// While it lives, warnings are about this element.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): it is final, its base is private.
class ElementSite final : private Warnings::Site {
public:
    ElementSite(const XmlTree& tree, pugi::xml_node element, Warnings& warnings)
        : Site(warnings), tree_(tree), element_(element) {}

private:
    [[nodiscard]] Place place() const override { return tree_.placeOf(element_); }

    const XmlTree& tree_;
    pugi::xml_node element_;
};

}  // namespace psrender::svg
