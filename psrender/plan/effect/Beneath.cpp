#include "psrender/plan/effect/Beneath.h"

#include "psrender/plan/geometry/ItemBox.h"

#include <cstddef>

namespace psrender::plan {

using scene::Item;

void Beneath::add(const Item& item) {
    entries_.push_back({item, boxOf(item)});
}

/// Groups without anything in them are left out, and those still open are closed.
std::vector<Item> Beneath::within(const scene::Rect& box) const {
    std::vector<Item> items;
    std::size_t open = 0;
    for (const Entry& entry : entries_) {
        if (std::holds_alternative<scene::BeginGroup>(entry.item)) {
            items.push_back(entry.item);
            ++open;
        } else if (std::holds_alternative<scene::EndGroup>(entry.item)) {
            --open;
            if (std::holds_alternative<scene::BeginGroup>(items.back()))
                items.pop_back();
            else
                items.push_back(entry.item);
        } else if (entry.box && entry.box->meets(box)) {
            items.push_back(entry.item);
        }
    }
    while (open > 0 && std::holds_alternative<scene::BeginGroup>(items.back())) {
        items.pop_back();
        --open;
    }
    items.insert(items.end(), open, scene::EndGroup{});
    return items;
}

}  // namespace psrender::plan
