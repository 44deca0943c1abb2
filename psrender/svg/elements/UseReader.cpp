#include "psrender/svg/elements/UseReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/elements/Viewport.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <string_view>

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

/// References from which on a target is drawn once and placed.
constexpr std::size_t kWorthSharing = 3;

}  // namespace

void UseReader::draw(pugi::xml_node use, const Surroundings& inside) {
    const pugi::xml_node target = findTarget(use);
    if (!target)
        return;
    if (isWithin(use, target)) {
        warnings_.add("references to what they are part of are left out (<use>)");
        return;
    }
    const LengthReader lengths(use, inside.measures, warnings_);
    ComputedStyle style = inside.style;
    style.makeContext();
    const Affine toPage = inside.toPage * Affine::translation(lengths.get("x", Axis::horizontal),
                                                              lengths.get("y", Axis::vertical));
    const Surroundings around{style, toPage, inside.measures, inside.depth, true, inside.isClip};
    open_.push_back(use);
    references_.drawWithin(target, [&] { drawTarget(use, target, around); });
    open_.pop_back();
}

pugi::xml_node UseReader::findTarget(pugi::xml_node use) {
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

/// Whether drawing the target would never end: it is being drawn through another reference, or it
/// stands around this one or around the one that all began with.
bool UseReader::isWithin(pugi::xml_node use, pugi::xml_node target) const {
    if (references_.isWithin(target))
        return true;
    for (pugi::xml_node around : {use, open_.empty() ? use : open_.front()})
        for (; around; around = parentElement(around))
            if (around == target)
                return true;
    return false;
}

void UseReader::drawTarget(pugi::xml_node use, pugi::xml_node target, const Surroundings& inside) {
    const ElementKind kind = elementKind(target.name());
    std::optional<Rect> area;
    if (kind == ElementKind::svg || kind == ElementKind::symbol)
        area = areaOf(use, target, inside.measures);
    if (inside.isClip || tree_.timesUsed(target.attribute("id").value()) < kWorthSharing)
        walker_.draw(target, inside, area ? &*area : nullptr);
    else if (canvas_.canShow(inside.toPage))
        canvas_.place(symbolOf(target, inside, area), inside.toPage, use);
}

/// The target as it is drawn at the origin.
const Symbol& UseReader::symbolOf(pugi::xml_node target, const Surroundings& inside,
                                  const std::optional<Rect>& area) {
    Appearance appearance{inside.style, inside.measures, area};
    appearance.style.transform = {};
    return references_.symbolOf(target, appearance, [&] {
        Surroundings around = inside;
        around.toPage = {};
        walker_.draw(target, around, area ? &*area : nullptr);
    });
}

/// The reference's own size goes before the size of a drawing that it refers to; a symbol
/// has none.
Rect UseReader::areaOf(pugi::xml_node use, pugi::xml_node target, const Measures& measures) {
    const bool isSymbol = elementKind(target.name()) == ElementKind::symbol;
    const Rect own = isSymbol ? Rect{0, 0, measures.width, measures.height}
                              : nestedArea(target, measures, warnings_);
    const LengthReader lengths(use, measures, warnings_);
    return {own.x, own.y, lengths.findSize("width", Axis::horizontal).value_or(own.width),
            lengths.findSize("height", Axis::vertical).value_or(own.height)};
}

}  // namespace psrender::svg
