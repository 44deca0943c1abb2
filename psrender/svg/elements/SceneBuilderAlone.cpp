#include "psrender/svg/elements/SceneBuilder.h"
#include "psrender/svg/elements/Viewport.h"
#include "psrender/svg/xml/XmlWalk.h"

namespace psrender::svg {

using scene::Rect;

/// Goes down to the element that is shown by what its ancestors hand on; their clips, masks and
/// opacities are of their own picture.
void SceneBuilder::drawAlone(pugi::xml_node shown, const Surroundings& around, const Rect* area) {
    if (!shown)
        tree_.fail(tree_.root(), "no element has the id \"" + shown_ +
                                     "\"; choose one for --export-id that is in the drawing");
    std::vector<pugi::xml_node> ancestors;
    for (auto each = parentElement(shown); each; each = parentElement(each))
        ancestors.push_back(each);
    descend(ancestors, shown, around, area);
}

void SceneBuilder::descend(std::vector<pugi::xml_node>& ancestors, pugi::xml_node shown,
                           const Surroundings& around, const Rect* area) {
    if (ancestors.empty())
        return draw(shown, around, nullptr);
    const pugi::xml_node next = ancestors.back();
    ancestors.pop_back();
    const ComputedStyle style = styles_.resolve(next, around.style);
    const Surroundings inside = enter(style, around);
    if (elementKind(next.name()) != ElementKind::svg)
        return descend(ancestors, shown, inside, nullptr);
    const auto within = openWithin(
        next, area != nullptr ? *area : nestedArea(next, inside.measures, warnings_), inside);
    if (within)
        descend(ancestors, shown, *within, nullptr);
}

}  // namespace psrender::svg
