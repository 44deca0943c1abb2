#pragma once

#include "psrender/scene/Geometry.h"

#include <cstdint>
#include <memory>
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
    Affine transform;       ///< from the content's space to the page
    bool isAlpha = false;   ///< goes by how opaque the content is, not by how bright
    bool isLinear = false;  ///< brightness is taken of linear light
};

/// A chain of image operations, as an SVG document that holds it and everything that it refers
/// to. It is applied to the pixels of `region`.
struct Filter {
    std::string document;  ///< has an element "filter" whose id is "filter"
    Rect region;           ///< in the filter's space
    Affine transform;      ///< from the filter's space to the page
};

/// What is done to a group besides opacity and clips, in this order: filter, mask, blending.
struct Effects {
    std::shared_ptr<const Filter> filter;
    std::shared_ptr<const Mask> mask;
    BlendMode blendMode = BlendMode::normal;
    bool isIsolated = false;  ///< blend modes within do not reach what lies beneath the group
};

}  // namespace psrender::scene
