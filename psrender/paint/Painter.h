#pragma once

#include "Drawing/IOutputContext.h"
#include "psrender/scene/DisplayList.h"

/// Turns planned pages into calls of the drawing interface. Nothing is decided here any more.
namespace psrender::paint {

/// Draws `page`, which must be planned, as one page of `context`.
void paintPage(Drawing::IOutputContext& context, const scene::Page& page);

}  // namespace psrender::paint
