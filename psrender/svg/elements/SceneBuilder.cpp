#include "psrender/svg/elements/SceneBuilder.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/xml/Conditions.h"
#include "psrender/svg/xml/XmlWalk.h"

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

constexpr double pointsPerPixel = 0.75;
constexpr std::size_t deepestNesting = 1000;
constexpr std::size_t mostReferredEffort = 10'000'000;

void warnOfElement(ElementKind kind, Warnings& warnings) {
    if (kind == ElementKind::foreignObject)
        warnings.add("content that is not SVG is left out (<foreignObject>)");
    else
        warnings.add("elements that SVG does not know are left out");
}

/// A clip path takes the area of shapes and nothing of their looks.
void makeSilhouette(ComputedStyle& style) {
    style.fill = {};
    style.fill.plain.kind = PlainPaint::Kind::color;
    style.stroke = {};
    style.fillOpacity = style.opacity = 1;
    style.fillRule = style.clipRule;
    style.markerStart = style.markerMid = style.markerEnd = {};
    style.leftOut = 0;
}

/// What reading an element's attributes costs, in elements of ordinary size.
std::size_t effortFor(pugi::xml_node element) {
    std::size_t size = 0;
    for (const pugi::xml_attribute attribute : element.attributes())
        size += std::string_view(attribute.value()).size();
    return 1 + size / 32;
}

}  // namespace

scene::Page SceneBuilder::build() {
    const pugi::xml_node root = tree_.root();
    const ComputedStyle initial;
    const Rect area = drawingArea(tree_, styles_.resolve(root, initial).fontSize);
    const Affine toPage = Affine::scaling(pointsPerPixel, pointsPerPixel);
    draw(root, {initial, toPage, {area.width, area.height}}, &area);
    scene::Page page;
    page.items = items_.takeItems();
    page.width = area.width * pointsPerPixel;
    page.height = area.height * pointsPerPixel;
    return page;
}

void SceneBuilder::draw(pugi::xml_node element, const Surroundings& around, const Rect* area) {
    const ElementKind kind = elementKind(element.name());
    if ((!isShown(kind) && area == nullptr) || !conditionsHold(element))
        return;
    checkEffort(element, around);
    ComputedStyle style = styles_.resolve(element, around.style);
    if (around.isClip)
        makeSilhouette(style);
    if (!style.isDisplayed || style.opacity <= 0)
        return;
    warnOfLeftOut(style, kind);
    Surroundings inside{style,
                        around.toPage * style.transform,
                        around.measures,
                        around.depth + 1,
                        around.isReferred,
                        around.isClip};
    inside.measures.fontSize = style.fontSize;
    if (!style.clipPath.empty())
        drawWithinClip(inside, [&] { drawContent(kind, element, inside, area); });
    else if (style.opacity == 1)
        drawContent(kind, element, inside, area);
    else
        items_.group(style.opacity, {}, [&] { drawContent(kind, element, inside, area); });
}

void SceneBuilder::drawContent(ElementKind kind, pugi::xml_node element, const Surroundings& inside,
                               const Rect* area) {
    if (isShape(kind))
        drawShape(kind, element, inside);
    else if (kind == ElementKind::image)
        drawImage(element, inside);
    else if (kind == ElementKind::text)
        drawText(element, inside);
    else if (kind == ElementKind::group)
        drawChildren(element, inside);
    else if (kind == ElementKind::use)
        drawUse(element, inside);
    else if (kind == ElementKind::choice)
        drawChoice(element, inside);
    else if (kind == ElementKind::svg || kind == ElementKind::symbol)
        drawViewport(element, area != nullptr ? *area : nestedArea(element, inside.measures),
                     inside);
    else
        warnOfElement(kind, warnings_);
}

void SceneBuilder::drawChildren(pugi::xml_node element, const Surroundings& inside) {
    for (auto child = firstChildElement(element); child; child = nextElement(child))
        draw(child, inside);
}

/// Draws the first child that is fit to be shown. Foreign content is never it, so that a plain
/// drawing that stands beside it as its replacement gets its turn.
void SceneBuilder::drawChoice(pugi::xml_node element, const Surroundings& inside) {
    bool hasForeign = false;
    for (auto child = firstChildElement(element); child; child = nextElement(child)) {
        const ElementKind kind = elementKind(child.name());
        if (!isShown(kind) || !conditionsHold(child))
            continue;
        if (kind != ElementKind::foreignObject) {
            draw(child, inside);
            return;
        }
        hasForeign = true;
    }
    if (hasForeign)
        warnOfElement(ElementKind::foreignObject, warnings_);
}

void SceneBuilder::drawViewport(pugi::xml_node element, const Rect& area,
                                const Surroundings& inside) {
    const auto viewport = openViewport(element, area, warnings_);
    if (!viewport)
        return;
    Surroundings within = inside;
    within.toPage = inside.toPage * viewport->map;
    within.measures.width = viewport->width;
    within.measures.height = viewport->height;
    const bool isPage = element == tree_.root() && !inside.isReferred;
    if (isPage || inside.style.overflows)
        drawChildren(element, within);
    else
        items_.group(1, scene::rectangleClip(area, inside.toPage),
                     [&] { drawChildren(element, within); });
}

/// References can make a small file ask for endless work.
void SceneBuilder::checkEffort(pugi::xml_node element, const Surroundings& around) {
    if (around.depth > deepestNesting)
        tree_.fail(element,
                   "elements and references are nested more than 1000 deep; "
                   "remove groups that hold one group only");
    if (around.isReferred)
        addEffort(effortFor(element), element);
}

void SceneBuilder::addEffort(std::size_t effort, pugi::xml_node element) {
    referredEffort_ += effort;
    if (referredEffort_ > mostReferredEffort)
        tree_.fail(element,
                   "references repeat more than the equivalent of 10 million elements; "
                   "draw less of the picture by <use>, markers and clip paths");
}

}  // namespace psrender::svg
