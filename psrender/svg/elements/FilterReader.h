#pragma once

#include "psrender/svg/elements/Surroundings.h"
#include "psrender/svg/values/FilterList.h"

#include <functional>
#include <optional>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class FilterMarkup;
class PageItems;
class XmlTree;

/// Reads the property `filter`: makes a group that is filtered. Touches the groups of the page.
class FilterReader {
public:
    /// All must outlive the reader.
    FilterReader(const XmlTree& tree, PageItems& items, Warnings& warnings)
        : tree_(tree), items_(items), warnings_(warnings) {}

    /// What `draw` draws, as the filter of the style leaves it.
    void drawWithin(const Surroundings& inside, const std::function<void()>& draw);

private:
    [[nodiscard]] std::optional<scene::Filter> read(const Surroundings& inside,
                                                    const std::optional<scene::Rect>& box);

    std::optional<scene::Rect> addElement(const FilterOperation& operation, FilterMarkup& markup);

    const XmlTree& tree_;
    PageItems& items_;
    Warnings& warnings_;
};

}  // namespace psrender::svg
