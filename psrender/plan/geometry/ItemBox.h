#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// A box on the page around all that `item` may paint; nothing if it paints nothing, as groups and
/// empty outlines do. Text reaches as far as its glyphs may.
std::optional<scene::Rect> boxOf(const scene::Item& item);

/// The same around a list of items, in the list's space.
std::optional<scene::Rect> boxOf(const scene::ItemList& list);

/// How far from its line a stroke reaches at most, in its own units.
double reachOf(const scene::StrokeStyle& style);

}  // namespace psrender::plan
