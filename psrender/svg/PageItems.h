#pragma once

#include "psrender/scene/DisplayList.h"

#include <memory>
#include <utility>
#include <vector>

namespace psrender::svg {

/// Collects the items of a page and keeps its groups no more than necessary: an empty group
/// vanishes, and one that holds a single paint becomes part of that paint.
class PageItems {
public:
    using Mark = std::size_t;

    /// False if the page would become too large: more than 2 million shapes or 50 million
    /// points, those of a shared outline counted each time.
    [[nodiscard]] bool add(scene::Shape shape);

    Mark beginGroup(double opacity);
    void endGroup(Mark begin);

    std::vector<scene::Item> takeItems() { return std::exchange(items_, {}); }

    /// What `draw` adds, as a list of its own. It counts towards the limits like the rest.
    template <class Draw>
    std::shared_ptr<const scene::ItemList> record(Draw draw) {
        std::vector<scene::Item> around = takeItems();
        draw();
        auto list = std::make_shared<scene::ItemList>();
        list->items = std::exchange(items_, std::move(around));
        return list;
    }

private:
    std::vector<scene::Item> items_;
    std::size_t shapes_ = 0;
    std::size_t points_ = 0;
};

}  // namespace psrender::svg
