#include "psrender/plan/blend/Translucency.h"

#include "psrender/plan/gradient/ColorStops.h"
#include "psrender/plan/gradient/Cone.h"

#include <algorithm>
#include <unordered_set>

namespace psrender::plan {

using scene::ItemList;
using scene::Paint;

namespace {

/// Looks into every symbol and tile once.
class Search {
public:
    bool find(const ItemList& list) {
        return std::ranges::any_of(
            list.items, [this](const scene::Item& item) { return std::visit(*this, item); });
    }

    template <class Painted>
    bool operator()(const Painted& item) {
        return isThere(item.fill) || isThere(item.stroke);
    }
    bool operator()(const scene::BeginGroup& group) { return group.opacity < 1 || group.effects; }
    bool operator()(const scene::EndGroup& /*end*/) { return false; }
    bool operator()(const scene::Picture& picture) { return isTranslucent(picture); }
    bool operator()(const scene::Placement& placement) { return isIn(*placement.symbol); }

private:
    bool isThere(const Paint& paint) {
        return (isPainted(paint) && paint.opacity < 1) ||
               (paint.gradient() != nullptr &&
                (isCone(*paint.gradient()) || !isOpaque(*paint.gradient()->stops))) ||
               (paint.pattern() != nullptr && isIn(*paint.pattern()->content));
    }
    bool isIn(const ItemList& list) { return seen_.insert(&list).second && find(list); }

    std::unordered_set<const ItemList*> seen_;
};

}  // namespace

bool isTranslucent(const scene::Picture& picture) {
    return picture.opacity < 1 || (picture.image->hasAlpha() && !picture.isCutOut);
}

bool hasTranslucency(const ItemList& list) {
    return Search().find(list);
}

}  // namespace psrender::plan
