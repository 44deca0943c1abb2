#include "psrender/svg/elements/References.h"

#include "psrender/svg/xml/XmlTree.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace psrender::svg {

namespace {

constexpr std::size_t kMostEffort = 10'000'000;
constexpr std::size_t kOrdinarySize = 32;  ///< bytes of an element's attributes

std::size_t effortFor(pugi::xml_node element) {
    std::size_t size = 0;
    for (const pugi::xml_attribute attribute : element.attributes())
        size += std::string_view(attribute.value()).size();
    return 1 + size / kOrdinarySize;
}

}  // namespace

bool References::isWithin(pugi::xml_node target) const {
    return std::ranges::find(targets_, target) != targets_.end();
}

const Symbol& References::symbolOf(pugi::xml_node target, const Appearance& appearance,
                                   const std::function<void()>& draw) {
    if (const Symbol* known = symbols_.find(target, appearance)) {
        spend(known->effort, target);
        return *known;
    }
    const std::size_t spentBefore = spent_;
    const PageItems::Size sizeBefore = items_.size();
    Symbol symbol;
    symbol.items = items_.record(draw);
    symbol.effort = spent_ - spentBefore;
    symbol.size = items_.size() - sizeBefore;
    return symbols_.keep(target, appearance, std::move(symbol));
}

void References::spendOn(pugi::xml_node element) {
    spend(effortFor(element), element);
}

void References::spend(std::size_t effort, pugi::xml_node element) {
    spent_ += effort;
    if (spent_ > kMostEffort)
        tree_.fail(element,
                   "references repeat more than the equivalent of 10 million elements; "
                   "draw less of the picture by <use>, markers and clip paths");
}

}  // namespace psrender::svg
