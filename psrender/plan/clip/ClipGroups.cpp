#include "psrender/plan/clip/ClipGroups.h"

#include <algorithm>

namespace psrender::plan {

void ClipGroups::change(const Clips& wanted) {
    const auto common = std::ranges::mismatch(open_, wanted).in1 - open_.begin();
    for (auto i = std::ssize(open_); i > common; --i)
        next_.take(scene::EndGroup());
    for (auto i = common; i < std::ssize(wanted); ++i)
        next_.take(scene::BeginGroup{1, wanted[static_cast<std::size_t>(i)]->clip});
    open_ = wanted;
}

}  // namespace psrender::plan
