#pragma once

#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/values/Length.h"

#include <deque>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>

namespace psrender::svg {

/// What decides how an element looks that is drawn through a reference, beside its place.
struct Appearance {
    ComputedStyle style;  ///< of what is around it
    Measures measures;
    std::optional<scene::Rect> area;  ///< for an element with a viewport of its own

    friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// An element as it was drawn once.
struct Symbol {
    std::shared_ptr<const scene::ItemList> items;
    PageItems::Size size;    ///< of its items
    std::size_t effort = 0;  ///< that drawing it took
};

/// Keeps what references draw, so that the same element in the same appearance is drawn once.
class SymbolStore {
public:
    /// Null if it was not drawn like this lately.
    [[nodiscard]] const Symbol* find(pugi::xml_node element, const Appearance& appearance) const;
    const Symbol& keep(pugi::xml_node element, const Appearance& appearance, Symbol symbol);

private:
    struct Known {
        Appearance appearance;
        Symbol symbol;
    };

    std::unordered_map<const void*, std::deque<Known>> known_;  ///< by element, the latest first
};

}  // namespace psrender::svg
