// Elements that are drawn where another one refers to them, and the viewports that nested
// drawings and symbols get.

#include "psrender/base/Warnings.h"
#include "psrender/svg/elements/SceneBuilder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace psrender::svg {

namespace {

/// References from which on a target is drawn once and placed.
constexpr std::size_t worthSharing = 3;

}  // namespace

using scene::Affine;
using scene::Rect;

void SceneBuilder::drawUse(pugi::xml_node use, const Surroundings& inside) {
    const pugi::xml_node target = findTarget(use);
    if (!target)
        return;
    if (std::find(targets_.begin(), targets_.end(), target) != targets_.end())
        tree_.fail(use, "<use> refers to something that it is part of; remove the circle");
    const LengthReader lengths(use, inside.measures, warnings_);
    Surroundings around = inside;
    around.isReferred = true;
    around.toPage = inside.toPage * Affine::translation(lengths.get("x", Axis::horizontal),
                                                        lengths.get("y", Axis::vertical));
    targets_.push_back(target);
    drawTarget(use, target, around);
    targets_.pop_back();
}

void SceneBuilder::drawTarget(pugi::xml_node use, pugi::xml_node target,
                              const Surroundings& inside) {
    const ElementKind kind = elementKind(target.name());
    std::optional<Rect> area;
    if (kind == ElementKind::svg || kind == ElementKind::symbol)
        area = targetArea(use, target, inside.measures);
    if (inside.isClip || tree_.timesUsed(target.attribute("id").value()) < worthSharing)
        draw(target, inside, area ? &*area : nullptr);
    else if (canBeDrawn(inside.toPage))
        place(use, symbolOfTarget(target, inside, area), inside.toPage);
}

/// The target as it is drawn at the origin.
const Symbol& SceneBuilder::symbolOfTarget(pugi::xml_node target, const Surroundings& inside,
                                           const std::optional<Rect>& area) {
    Appearance appearance{inside.style, inside.measures, area};
    appearance.style.transform = {};
    return symbolOf(target, appearance, [&] {
        Surroundings around = inside;
        around.toPage = {};
        draw(target, around, area ? &*area : nullptr);
    });
}

const Symbol& SceneBuilder::symbolOf(pugi::xml_node target, const Appearance& appearance,
                                     const std::function<void()>& draw) {
    if (const Symbol* known = symbols_.find(target, appearance)) {
        addEffort(known->effort, target);
        return *known;
    }
    const std::size_t effortBefore = referredEffort_;
    const PageItems::Size sizeBefore = items_.size();
    Symbol symbol;
    symbol.items = items_.record(draw);
    symbol.effort = referredEffort_ - effortBefore;
    symbol.size = items_.size() - sizeBefore;
    return symbols_.keep(target, appearance, std::move(symbol));
}

void SceneBuilder::place(pugi::xml_node element, const Symbol& symbol, const Affine& toPage) {
    if (!symbol.items->items.empty() && !items_.add({symbol.items, toPage}, symbol.size))
        failOfSize(element);
}

pugi::xml_node SceneBuilder::findTarget(pugi::xml_node use) {
    const std::string_view href = hrefOf(use);
    if (!href.empty() && href.front() != '#') {
        warnings_.add("references to other files are not followed (<use>)");
        return {};
    }
    const pugi::xml_node target = tree_.byId(href.empty() ? href : href.substr(1));
    if (!target)
        warnings_.add("references to what is not in the file are left out (<use>)");
    return target;
}

Rect SceneBuilder::nestedArea(pugi::xml_node svg, const Measures& measures) const {
    const LengthReader lengths(svg, measures, warnings_);
    return {lengths.get("x", Axis::horizontal), lengths.get("y", Axis::vertical),
            lengths.findSize("width", Axis::horizontal).value_or(measures.width),
            lengths.findSize("height", Axis::vertical).value_or(measures.height)};
}

/// The reference's own size goes before the size of a drawing that it refers to; a symbol
/// has none.
Rect SceneBuilder::targetArea(pugi::xml_node use, pugi::xml_node target,
                              const Measures& measures) const {
    const bool isSymbol = elementKind(target.name()) == ElementKind::symbol;
    const Rect own =
        isSymbol ? Rect{0, 0, measures.width, measures.height} : nestedArea(target, measures);
    const LengthReader lengths(use, measures, warnings_);
    return {own.x, own.y, lengths.findSize("width", Axis::horizontal).value_or(own.width),
            lengths.findSize("height", Axis::vertical).value_or(own.height)};
}

}  // namespace psrender::svg
