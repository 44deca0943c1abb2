#pragma once

#include "psrender/scene/DisplayList.h"

namespace psrender::plan {

/// Whether a list has groups with effects, gradients that are cones, or pictures through which
/// something shows: what may need pixels. What it places is looked at as well.
[[nodiscard]] bool mayNeedPixels(const scene::ItemList& list);

/// Whether any of these items is a group with effects or painted with a cone, or places such.
[[nodiscard]] bool hasEffects(const std::vector<scene::Item>& items);

/// How much there is to be painted in pixels.
struct EffectLoad {
    std::size_t pictures = 0;  ///< groups with effects, and pictures with alpha
    double filteredArea = 0;   ///< square points, what overlaps counted each time
};
[[nodiscard]] EffectLoad loadOf(const std::vector<scene::Item>& items);

/// Whether a filter among them depends on the size of a pixel.
[[nodiscard]] bool goesByPixels(const std::vector<scene::Item>& items);

/// A box around all that the items may paint, filters included.
[[nodiscard]] std::optional<scene::Rect> boxWithEffects(const std::vector<scene::Item>& items);

}  // namespace psrender::plan
