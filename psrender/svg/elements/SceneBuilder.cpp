#include "psrender/svg/elements/SceneBuilder.h"

#include "psrender/base/InputError.h"
#include "psrender/base/Warnings.h"
#include "psrender/svg/elements/Viewport.h"
#include "psrender/svg/xml/Conditions.h"
#include "psrender/svg/xml/ElementSite.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <optional>

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

constexpr double kPointsPerPixel = 0.75;
/// In points; what page description languages take at most.
constexpr double kLargestSide = 14400;
constexpr std::size_t kDeepestNesting = 1000;
constexpr std::size_t kDeepestDrawing = 4;

/// The transform of an element, about its origin.
Affine transformOf(const ComputedStyle& style, const Measures& measures) {
    const double x = style.originX.resolve(measures, Axis::horizontal);
    const double y = style.originY.resolve(measures, Axis::vertical);
    return Affine::translation(x, y) * style.transform * Affine::translation(-x, -y);
}

void warnOfElement(ElementKind kind, Warnings& warnings) {
    if (kind == ElementKind::foreignObject)
        warnings.add("content that is not SVG is left out (<foreignObject>)");
    else
        warnings.add("elements that SVG does not know are left out");
}

/// Makes the page the area of `box`.
void moveTo(const Rect& box, scene::Page& page) {
    if (box.width <= 0 || box.height <= 0)
        return;
    scene::transform(page, Affine::translation(-box.x, -box.y));
    page.width = box.width;
    page.height = box.height;
}

/// Leaves a page as it is that would become too thin to be one.
void scaleDown(scene::Page& page, Warnings& warnings) {
    const double scale = kLargestSide / std::max(page.width, page.height);
    if (std::min(page.width, page.height) * scale < 1)
        return;
    scene::transform(page, Affine::scaling(scale, scale));
    page.width = std::min(page.width * scale, kLargestSide);
    page.height = std::min(page.height * scale, kLargestSide);
    warnings.add("drawings of more than 14400 points are scaled down to that (<svg>)");
}

/// A clip path takes the area of shapes and nothing of their looks.
void makeSilhouette(ComputedStyle& style) {
    style.fill = {};
    style.fill.plain.kind = PlainPaint::Kind::color;
    style.stroke = {};
    style.fillOpacity = style.opacity = 1;
    style.fillRule = style.clipRule;
    style.markerStart = style.markerMid = style.markerEnd = {};
    style.mask = {};
    style.filter = {};
    style.blendMode = scene::BlendMode::normal;
    style.isIsolated = false;
    style.hasFixedStrokeWidth = false;
}

}  // namespace

SceneBuilder::SceneBuilder(const XmlTree& tree, const ImageAccess& images, Warnings& warnings,
                           const ReadingLimits& limits, const ReadingWishes& wishes,
                           std::size_t depth)
    : tree_(tree),
      shown_(wishes.element),
      access_(images),
      limits_(limits),
      depth_(depth),
      warnings_(warnings),
      styles_(tree, warnings, wishes.styleSheet),
      paints_(tree, styles_, warnings,
              [this](pugi::xml_node pattern, const PaintPlace& place) {
                  return patterns_.read(pattern, place);
              }),
      shapePaints_(paints_),
      outlines_(warnings),
      links_(images, warnings),
      canvas_(tree, limits, warnings),
      references_(tree, canvas_.items()),
      uses_(tree, canvas_, references_, *this, warnings),
      clips_(tree, styles_, canvas_.items(), references_, *this),
      masks_(tree, styles_, canvas_.items(), references_, *this, warnings),
      filters_(tree, canvas_.items(), warnings),
      markers_(tree, styles_, canvas_, references_, *this, warnings),
      patterns_(tree, styles_, references_, *this, warnings),
      images_(tree, canvas_, links_, warnings,
              [this](const std::string& text) { return readWithin(text); }),
      texts_(tree, styles_, outlines_, shapePaints_, links_, canvas_, warnings),
      shapes_(outlines_, shapePaints_, markers_, canvas_, warnings) {}

scene::Page SceneBuilder::build() {
    const pugi::xml_node root = tree_.root();
    const ComputedStyle initial;
    const Rect area = drawingArea(tree_, styles_.resolve(root, initial).fontSize);
    const Affine toPage = Affine::scaling(kPointsPerPixel, kPointsPerPixel);
    const Surroundings around{initial, toPage, {area.width, area.height}};
    const pugi::xml_node shown = shown_.empty() ? root : tree_.byId(shown_);
    if (shown == root)
        draw(root, around, &area);
    else
        drawAlone(shown, around, &area);
    const bool isByContent = shown != root || isSizedByContent(root);
    const auto content = isByContent ? canvas_.items().inkBox() : std::optional<Rect>();
    if (shown != root && !content)
        tree_.fail(shown, "nothing is to be seen of it; choose another element for --export-id");
    scene::Page page;
    page.items = canvas_.items().takeItems();
    page.width = area.width * kPointsPerPixel;
    page.height = area.height * kPointsPerPixel;
    if (content)
        moveTo(*content, page);
    if (std::max(page.width, page.height) > kLargestSide)
        scaleDown(page, warnings_);
    return page;
}

void SceneBuilder::draw(pugi::xml_node element, const Surroundings& around, const Rect* area) {
    const ElementKind kind = elementKind(element.name());
    if ((!isShown(kind) && area == nullptr) || !conditionsHold(element))
        return;
    const ElementSite site(tree_, element, warnings_);
    checkEffort(element, around);
    ComputedStyle style = styles_.resolve(element, around.style);
    if (around.isClip)
        makeSilhouette(style);
    if (!style.isDisplayed || style.opacity <= 0)
        return;
    const Surroundings inside = enter(style, around);
    drawBlended(inside, [&] { drawContent(kind, element, inside, area); });
}

/// What is drawn is filtered, masked, clipped, faded and then blended.
void SceneBuilder::drawBlended(const Surroundings& inside, const std::function<void()>& draw) {
    const ComputedStyle& style = inside.style;
    const auto drawFiltered = [&] {
        if (style.filter.empty() || inside.isClip)
            draw();
        else
            filters_.drawWithin(inside, draw);
    };
    const auto drawMasked = [&] {
        if (style.mask.empty())
            drawFiltered();
        else
            masks_.drawWithin(inside, drawFiltered);
    };
    const auto drawFaded = [&] {
        if (!style.clipPath.empty())
            clips_.drawWithin(inside, drawMasked);
        else if (style.opacity == 1)
            drawMasked();
        else
            canvas_.items().group(style.opacity, {}, drawMasked);
    };
    if (style.blendMode == scene::BlendMode::normal && !style.isIsolated) {
        drawFaded();
        return;
    }
    PageItems& items = canvas_.items();
    const auto group = items.beginGroup(1);
    items.setEffects(group, {{}, {}, style.blendMode, style.isIsolated});
    drawFaded();
    items.endGroup(group);
}

Surroundings SceneBuilder::enter(const ComputedStyle& style, const Surroundings& around) {
    Surroundings inside{style,
                        around.toPage * transformOf(style, around.measures),
                        around.measures,
                        around.depth + 1,
                        around.isReferred,
                        around.isClip};
    inside.measures.fontSize = style.fontSize;
    return inside;
}

void SceneBuilder::drawContent(ElementKind kind, pugi::xml_node element, const Surroundings& inside,
                               const Rect* area) {
    if (isShape(kind))
        shapes_.draw(kind, element, inside);
    else if (kind == ElementKind::image)
        images_.draw(element, inside);
    else if (kind == ElementKind::text)
        texts_.draw(element, inside);
    else if (kind == ElementKind::group)
        drawChildren(element, inside);
    else if (kind == ElementKind::use)
        uses_.draw(element, inside);
    else if (kind == ElementKind::choice)
        drawChoice(element, inside);
    else if (kind == ElementKind::svg || kind == ElementKind::symbol)
        drawViewport(element,
                     area != nullptr ? *area : nestedArea(element, inside.measures, warnings_),
                     inside);
    else
        warnOfElement(kind, warnings_);
}

void SceneBuilder::drawChildren(pugi::xml_node element, const Surroundings& inside) {
    for (auto child = firstChildElement(element); child; child = nextElement(child))
        draw(child, inside, nullptr);
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
            draw(child, inside, nullptr);
            return;
        }
        hasForeign = true;
    }
    if (hasForeign)
        warnOfElement(ElementKind::foreignObject, warnings_);
}

std::optional<Surroundings> SceneBuilder::openWithin(pugi::xml_node element, const Rect& area,
                                                     const Surroundings& inside) {
    const auto viewport = openViewport(element, area, warnings_);
    if (!viewport)
        return std::nullopt;
    Surroundings within = inside;
    within.toPage = inside.toPage * viewport->map;
    within.measures.width = viewport->width;
    within.measures.height = viewport->height;
    return within;
}

void SceneBuilder::drawViewport(pugi::xml_node element, const Rect& area,
                                const Surroundings& inside) {
    const auto within = openWithin(element, area, inside);
    if (!within)
        return;
    const bool isPage = element == tree_.root() && !inside.isReferred;
    if (isPage || inside.style.overflows)
        drawChildren(element, *within);
    else
        canvas_.items().group(1, scene::rectangleClip(area, inside.toPage),
                              [&] { drawChildren(element, *within); });
}

/// A drawing within this one, which links to no files.
scene::Page SceneBuilder::readWithin(const std::string& text) {
    const std::string name = "an embedded drawing";
    if (depth_ >= kDeepestDrawing)
        throw InputError({name}, "is within too many others; place its elements instead");
    const XmlTree tree(text, name, limits_);
    return SceneBuilder(tree, {access_.store, {}}, warnings_, limits_, {}, depth_ + 1).build();
}

void SceneBuilder::checkEffort(pugi::xml_node element, const Surroundings& around) {
    if (around.depth > kDeepestNesting)
        tree_.fail(element,
                   "elements and references are nested more than 1000 deep; "
                   "remove groups that hold one group only");
    if (around.isReferred)
        references_.spendOn(element);
}

}  // namespace psrender::svg
