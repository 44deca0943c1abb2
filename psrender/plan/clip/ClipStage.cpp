#include "psrender/plan/clip/ClipStage.h"

#include "psrender/plan/geometry/ItemBox.h"

#include <algorithm>
#include <utility>

namespace psrender::plan {

using scene::Rect;

namespace {

/// The clips that do something to what lies in `box`.
Clips needed(const Clips& clips, const Rect& box) {
    Clips result;
    std::ranges::copy_if(clips, std::back_inserter(result), [&](const auto& clip) {
        return !clip->isRectangle || !clip->box.contains(box);
    });
    return result;
}

/// Whether all of `part` are among `whole`, in the same order.
bool isPartOf(const Clips& part, const Clips& whole) {
    auto at = whole.begin();
    return std::ranges::all_of(part, [&](const auto& clip) {
        at = std::find(at, whole.end(), clip);
        return at != whole.end();
    });
}

}  // namespace

void ClipStage::on(scene::BeginGroup group) {
    stack_.push_back({group.clip.has_value(), group.opacity != 1});
    if (group.clip)
        clips_.push_back(shapes_.plannedFor(*group.clip));
    if (!stack_.back().isFaint)
        return;
    groups_.change({});
    group.clip.reset();
    pass(std::move(group));
}

void ClipStage::on(scene::EndGroup end) {
    if (stack_.empty())
        return;
    const Group group = stack_.back();
    stack_.pop_back();
    if (group.isClipped)
        clips_.pop_back();
    if (!group.isFaint)
        return;
    groups_.change({});
    pass(end);
}

/// Clips that are open and do nothing to the item may stay.
void ClipStage::show(scene::Item item) {
    if (clips_.empty() && groups_.open().empty()) {
        pass(std::move(item));
        return;
    }
    const auto box = boxOf(item);
    const auto isHiding = [&](const auto& clip) { return !clip || !clip->box.meets(*box); };
    if (!box || std::ranges::any_of(clips_, isHiding))
        return;
    const Clips wanted = needed(clips_, *box);
    if (!isPartOf(wanted, groups_.open()) || !isPartOf(groups_.open(), clips_))
        groups_.change(wanted);
    pass(std::move(item));
}

void ClipStage::finish() {
    groups_.change({});
    Stage::finish();
}

}  // namespace psrender::plan
