#include "psrender/plan/geometry/RangeStage.h"

#include "psrender/plan/Carried.h"
#include "psrender/plan/geometry/ItemBox.h"
#include "psrender/plan/geometry/Range.h"

#include <numeric>
#include <utility>

namespace psrender::plan {

namespace {

/// Makes a stroke solid whose dashes are too fine to be seen on the page.
template <class Painted>
void removeFineDashes(Painted& item, Warnings& warnings) {
    auto& dashes = item.strokeStyle.dashes;
    if (dashes.empty() ||
        std::accumulate(dashes.begin(), dashes.end(), 0.0) * item.transform.meanScale() >
            kFinestDashes)
        return;
    dashes.clear();
    if (isPainted(item.stroke))
        warnings.add("a line with dashes too fine to be seen is drawn solid");
}

}  // namespace

void RangeStage::on(scene::Shape shape) {
    removeFineDashes(shape, warnings_);
    for (scene::Shape& part : bringInRange(shape, warnings_))
        pass(std::move(part));
}

void RangeStage::on(scene::Text text) {
    removeFineDashes(text, warnings_);
    const auto box = boxOf(scene::Item(text));
    if (!box || !text.transform.isInvertible())
        return;
    if (kWithinReach.contains(*box))
        pass(std::move(text));
    else
        warnings_.add("text that reaches beyond a million points is left out");
}

}  // namespace psrender::plan
