#include "psrender/scene/DisplayList.h"

#include <memory>
#include <utility>

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
        if (group.effects)
            group.effects = std::make_shared<const Effects>(moved(*group.effects));
    }
    void operator()(EndGroup& /*end*/) const {}

private:
    [[nodiscard]] Effects moved(Effects effects) const {
        if (effects.filter)
            effects.filter->transform = map_ * effects.filter->transform;
        if (effects.mask) {
            effects.mask->transform = map_ * effects.mask->transform;
            effects.mask->regionTransform = map_ * effects.mask->regionTransform;
        }
        return effects;
    }

    const Affine& map_;
};

/// The server of a paint, moved.
class ServerMapper {
public:
    explicit ServerMapper(const Affine& map) : map_(map) {}

    Paint::Source operator()(const std::monostate& none) const { return none; }
    Paint::Source operator()(const Color& color) const { return color; }
    template <class Server>
    Paint::Source operator()(const std::shared_ptr<const Server>& server) const {
        auto result = std::make_shared<Server>(*server);
        result->transform = map_ * server->transform;
        return std::shared_ptr<const Server>(std::move(result));
    }

private:
    const Affine& map_;
};

}  // namespace

Shape Shape::onlyFill() const {
    Shape result = *this;
    result.stroke = {};
    return result;
}

Shape Shape::onlyStroke() const {
    Shape result = *this;
    result.fill = {};
    return result;
}

Clip rectangleClip(const Rect& rect, const Affine& toPage) {
    Shape shape;
    shape.outline = std::make_shared<const Outline>(Outline::rectangle(rect));
    shape.fill.source = Color();
    return {std::make_shared<const ItemList>(ItemList{{std::move(shape)}}), toPage};
}

const Paint* paintOf(const Item& item) {
    return std::visit(
        [](const auto& it) -> const Paint* {
            if constexpr (requires { paintOf(it).source; })
                return &paintOf(it);
            else
                return nullptr;
        },
        item);
}

const Affine* transformOf(const Item& item) {
    return std::visit(
        [](const auto& it) -> const Affine* {
            if constexpr (requires { it.transform; })
                return &it.transform;
            else
                return nullptr;
        },
        item);
}

std::vector<Item> itemsOf(const Placement& placement) {
    ItemList list = *placement.symbol;
    transform(list, placement.transform);
    return std::move(list.items);
}

Paint moved(const Paint& paint, const Affine& map) {
    return {std::visit(ServerMapper(map), paint.source), paint.opacity};
}

void transform(ItemList& list, const Affine& map) {
    for (Item& item : list.items)
        std::visit(Mapper(map), item);
}

}  // namespace psrender::scene
