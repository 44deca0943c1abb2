#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>

namespace psrender::plan {

/// A box in the run's own space with room enough for its glyphs; nothing without glyphs.
std::optional<scene::Rect> runBox(const scene::TextRun& run);

/// A box on the page around a run, with room enough for its glyphs; nothing without glyphs.
std::optional<scene::Rect> textBox(const scene::Text& text);

}  // namespace psrender::plan
