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

/// Reads lengths from attributes; what is no length counts as missing, with a warning.
class LengthReader {
public:
    LengthReader(pugi::xml_node element, const Measures& measures, Warnings& warnings)
        : element_(element), measures_(measures), warnings_(warnings) {}

    [[nodiscard]] std::optional<double> find(const char* name, Axis axis) const;
    /// The same for lengths that cannot be below 0.
    [[nodiscard]] std::optional<double> findSize(const char* name, Axis axis) const;
    [[nodiscard]] double get(const char* name, Axis axis) const {
        return find(name, axis).value_or(0);
    }

private:
    pugi::xml_node element_;
    const Measures& measures_;
    Warnings& warnings_;
};

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
