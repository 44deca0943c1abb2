#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/text/TextLayout.h"

#include <memory>
#include <vector>

namespace psrender::svg {

/// Glyphs that are shown by one call.
struct LaidRun {
    std::shared_ptr<const scene::TextRun> run;
    scene::Affine transform;  ///< from the run's space to that of the text element
    std::size_t span = 0;
};

/// Gathers glyphs to runs: those that the font's own advances and kerning put where they are, and
/// what is left between them, to be drawn by outlines.
std::vector<LaidRun> gatherRuns(const TextContent& content, const std::vector<LaidGlyph>& glyphs);

}  // namespace psrender::svg
