#pragma once

#include "psrender/scene/Geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace psrender::scene {

struct ItemList;

/// How the colours of a group meet those beneath; the formulas are those of PDF 1.7, 11.3.5.
enum class BlendMode : std::uint8_t {
    normal,
    multiply,
    screen,
    overlay,
    darken,
    lighten,
    colorDodge,
    colorBurn,
    hardLight,
    softLight,
    difference,
    exclusion,
    hue,
    saturation,
    color,
    luminosity
};

/// Shows through where its content is bright, or opaque.
struct Mask {
    std::shared_ptr<const ItemList> content;
    Affine transform;      ///< from the content's space to the page
    bool isAlpha = false;  ///< goes by how opaque the content is, not by how bright
    /// The rectangle outside of which nothing shows through, and its space.
    std::optional<Rect> region;
    Affine regionTransform;
};

/// Image operations on a group, in the words of Filter Effects Module Level 1.
struct Filter {
    std::string attributes;     ///< markup of the property "filter" and of those that it goes by
    std::string definitions;    ///< markup of the elements that it refers to
    Rect region;                ///< in the filter's space; nothing beyond it is changed or seen
    Affine transform;           ///< from the filter's space to the page
    bool goesByPixels = false;  ///< what it does depends on the size of a pixel
};

/// What is done to a group besides clips and opacity: it is filtered, then masked, and then
/// blended.
struct Effects {
    std::optional<Filter> filter;
    std::optional<Mask> mask;
    BlendMode blendMode = BlendMode::normal;
    bool isIsolated = false;  ///< blend modes within do not reach what lies beneath the group
};

}  // namespace psrender::scene
