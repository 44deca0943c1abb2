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
    }
    void operator()(EndGroup& /*end*/) const {}

private:
    const Affine& map_;
};

template <class Server>
std::shared_ptr<const Server> moved(const std::shared_ptr<const Server>& server,
                                    const Affine& map) {
    if (!server)
        return nullptr;
    auto result = std::make_shared<Server>(*server);
    result->transform = map * server->transform;
    return result;
}

}  // namespace

Clip rectangleClip(const Rect& rect, const Affine& toPage) {
    auto border = std::make_shared<Outline>();
    border->moveTo({rect.x, rect.y});
    border->lineTo({rect.x + rect.width, rect.y});
    border->lineTo({rect.x + rect.width, rect.y + rect.height});
    border->lineTo({rect.x, rect.y + rect.height});
    border->close();
    Shape shape;
    shape.outline = std::move(border);
    shape.fill.kind = Paint::Kind::solid;
    auto area = std::make_shared<ItemList>();
    area->items.emplace_back(std::move(shape));
    return {std::move(area), toPage};
}

Paint moved(const Paint& paint, const Affine& map) {
    Paint result = paint;
    result.gradient = moved(paint.gradient, map);
    result.pattern = moved(paint.pattern, map);
    return result;
}

void transform(ItemList& list, const Affine& map) {
    for (Item& item : list.items)
        std::visit(Mapper(map), item);
}

}  // namespace psrender::scene
