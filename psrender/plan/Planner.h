#pragma once

#include "psrender/Warnings.h"
#include "psrender/scene/DisplayList.h"

/// Rewrites a page so that the back end can say all of it.
namespace psrender::plan {

/// The page as it can be painted: shapes only, no groups; every paint none or opaque; fills by the
/// non-zero rule; joins mitred or bevelled; nothing that cannot be seen, and no number that
/// PostScript cannot read. Looks the same, but for what `warnings` counts.
scene::Page plan(const scene::Page& page, Warnings& warnings);

}  // namespace psrender::plan
