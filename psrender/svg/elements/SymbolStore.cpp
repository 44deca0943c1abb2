#include "psrender/svg/elements/SymbolStore.h"

#include <algorithm>
#include <utility>

namespace psrender::svg {

namespace {

/// An element in ever new colours would make the search long for nothing.
constexpr std::size_t kMostAppearances = 8;

}  // namespace

const Symbol* SymbolStore::find(pugi::xml_node element, const Appearance& appearance) const {
    const auto entry = known_.find(element.internal_object());
    if (entry == known_.end())
        return nullptr;
    const auto found = std::ranges::find(entry->second, appearance, &Known::appearance);
    return found == entry->second.end() ? nullptr : &found->symbol;
}

const Symbol& SymbolStore::keep(pugi::xml_node element, const Appearance& appearance,
                                Symbol symbol) {
    std::deque<Known>& appearances = known_[element.internal_object()];
    if (appearances.size() == kMostAppearances)
        appearances.pop_back();
    return appearances.emplace_front(Known{appearance, std::move(symbol)}).symbol;
}

}  // namespace psrender::svg
