#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/values/Length.h"

#include <pugixml.hpp>
#include <string>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class XmlTree;

/// Where a filter is applied.
struct FilterPlace {
    scene::Rect box;  ///< around the filtered, in its user space
    Measures measures;
    double scale = 1;  ///< points on the page a unit
};

/// Writes `filter` elements so that they mean the same without the element that they are applied
/// to: every length is a number in its user space.
class FilterMarkup {
public:
    /// All must outlive the markup.
    FilterMarkup(const XmlTree& tree, const FilterPlace& place, Warnings& warnings)
        : tree_(tree), place_(place), warnings_(warnings) {}

    /// Adds a filter and everything that it refers to; its region, which may be empty.
    scene::Rect add(pugi::xml_node filter);
    /// Whether what a filter does depends on the size of a pixel.
    [[nodiscard]] bool goesByPixels() const { return goesByPixels_; }

    /// The markup of all that was added.
    [[nodiscard]] std::string text() const;

private:
    [[nodiscard]] scene::Rect regionOf(pugi::xml_node filter) const;
    void resolve(pugi::xml_node primitive, bool isOfTheBox) const;
    void scaleNumbers(pugi::xml_node primitive) const;
    void divide(pugi::xml_node primitive) const;
    void addTargets(pugi::xml_node element);
    void addTarget(const char* id);

    const XmlTree& tree_;
    const FilterPlace& place_;
    Warnings& warnings_;
    pugi::xml_document document_;
    bool goesByPixels_ = false;
};

}  // namespace psrender::svg
