#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/text/FontChooser.h"
#include "psrender/svg/text/Shaper.h"
#include "psrender/svg/text/TextContent.h"

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Breaks the paragraphs of a text into lines as wide as `region`, by giving the characters that
/// begin a line their places. What does not fit in is left out, and counted in `warnings`.
void flowInto(const scene::Rect& region, TextContent& content, const Measures& measures,
              FontChooser& fonts, Shaper& shaper, Warnings& warnings);

}  // namespace psrender::svg
