#include "psrender/scene/DisplayList.h"

namespace psrender::scene {

namespace {

class Mapper {
public:
    explicit Mapper(const Affine& map) : map_(map) {}

    template <class Placed>
    void operator()(Placed& item) const {
        item.transform = map_ * item.transform;
    }
    void operator()(BeginGroup& group) const {
        if (group.clip)
            group.clip->transform = map_ * group.clip->transform;
    }
    void operator()(EndGroup& /*end*/) const {}

private:
    const Affine& map_;
};

}  // namespace

void transform(ItemList& list, const Affine& map) {
    for (Item& item : list.items)
        std::visit(Mapper(map), item);
}

}  // namespace psrender::scene
