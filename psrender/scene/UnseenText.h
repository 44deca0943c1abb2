#pragma once

#include "psrender/base/Warnings.h"
#include "psrender/scene/DisplayList.h"

namespace psrender::scene {

/// Leaves out of a page the text that nobody could see, which interpreters stumble over: squeezed
/// to less than a hundredth of a point, or enlarged beyond all bounds. Also within symbols and
/// patterns, in those of their places where it comes out so. Counted in `warnings`.
void dropUnseenText(Page& page, Warnings& warnings);

}  // namespace psrender::scene
