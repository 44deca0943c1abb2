#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/scene/Outline.h"

#include <optional>

namespace psrender::plan {

/// An outline whose non-zero interior is the even-odd interior of `outline`; nothing if that is
/// so for `outline` itself. Curves are kept where turning subpaths round is enough; subpaths that
/// cross become polygons within a hundredth of a point on the page, to which `toPage` leads. An
/// outline with too many crossings to be cut stays as it is and is counted in `warnings`.
std::optional<scene::Outline> nonZeroOutline(const scene::Outline& outline,
                                             const scene::Affine& toPage, Warnings& warnings);

}  // namespace psrender::plan
