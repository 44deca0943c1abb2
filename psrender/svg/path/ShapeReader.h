#pragma once

#include "psrender/scene/Outline.h"
#include "psrender/svg/values/Length.h"
#include "psrender/svg/xml/ElementKind.h"

#include <memory>
#include <pugixml.hpp>
#include <unordered_map>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

using SharedOutline = std::shared_ptr<const scene::Outline>;

/// Reads the outlines of the basic shapes and of paths.
class ShapeReader {
public:
    explicit ShapeReader(Warnings& warnings) : warnings_(warnings) {}

    /// Null if the element draws nothing. Elements that are drawn through references
    /// (`isReferred`) are likely to come again, and then share their outline.
    SharedOutline read(pugi::xml_node element, ElementKind kind, const Measures& measures,
                       bool isReferred);

private:
    struct Known {
        Measures measures;
        SharedOutline outline;
    };

    scene::Outline readOutline(pugi::xml_node element, ElementKind kind, const Measures& measures);
    scene::Outline readPath(pugi::xml_node element);
    scene::Outline readPoints(pugi::xml_node element, bool isClosed);

    Warnings& warnings_;
    std::unordered_map<const void*, Known> known_;  ///< by element
};

}  // namespace psrender::svg
