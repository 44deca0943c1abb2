#pragma once

#include "psrender/scene/DisplayList.h"

#include <optional>
#include <vector>

namespace psrender::plan {

/// What a page shows so far, to be looked at again where something is blended with it.
class Beneath {
public:
    void add(const scene::Item& item);

    /// What may be seen within `box`, with its groups.
    [[nodiscard]] std::vector<scene::Item> within(const scene::Rect& box) const;

private:
    struct Entry {
        scene::Item item;
        std::optional<scene::Rect> box;
    };
    std::vector<Entry> entries_;
};

}  // namespace psrender::plan
