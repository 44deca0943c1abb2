#pragma once

#include "psrender/plan/colour/Tint.h"
#include "psrender/scene/DisplayList.h"

#include <cstdint>
#include <vector>

namespace psrender::plan {

/// The colours along a gradient: at least one, positions ascending.
using ColorStops = std::vector<scene::ColorStop>;

/// The colour at a share of the way from `a` to `b`.
scene::ColorStop between(const scene::ColorStop& a, const scene::ColorStop& b, double share);

/// Which of two colours at the same position is meant: the one before or the one behind it.
enum class Side : std::uint8_t { before, behind };

/// The colour at a position, that of the first or last stop beyond them.
scene::ColorStop stopAt(const ColorStops& stops, double position, Side side = Side::behind);

/// What is seen where `above` lies on `below` all along. Where colour and opacity change side by
/// side, the look is bent and takes more stops.
ColorStops over(const ColorStops& above, const ColorStops& below);

[[nodiscard]] bool isOpaque(const ColorStops& stops);

/// What is seen of all of them from afar.
scene::ColorStop averageOf(const ColorStops& stops);

/// The stops as they look over white paper.
ColorStops overWhite(const ColorStops& stops);

}  // namespace psrender::plan
