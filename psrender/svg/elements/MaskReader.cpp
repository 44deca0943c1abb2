#include "psrender/svg/elements/MaskReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/PageItems.h"
#include "psrender/svg/elements/References.h"
#include "psrender/svg/paint/PaintServer.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"

#include <string_view>
#include <utility>

namespace psrender::svg {

using scene::Affine;
using scene::Color;
using scene::ItemList;
using scene::Paint;
using scene::Rect;
using scene::Shape;

namespace {

/// How much shows through white, 1, and black, 0; the weights are those of linear luminance.
double luminanceOf(const Color& color) {
    return (2125.0 * color.red + 7154.0 * color.green + 721.0 * color.blue) / (10000.0 * 255);
}

/// Gathers the area of a mask and how much shows through it, for as long as that is the same
/// everywhere.
class EvenArea {
public:
    explicit EvenArea(bool isAlpha) : isAlpha_(isAlpha) {}

    [[nodiscard]] bool add(const ItemList& list) {
        for (const scene::Item& item : list.items) {
            if (const auto* shape = std::get_if<Shape>(&item)) {
                if (!add(*shape))
                    return false;
                continue;
            }
            const auto* placement = std::get_if<scene::Placement>(&item);
            if (placement == nullptr || !add({scene::itemsOf(*placement)}))
                return false;
        }
        return true;
    }

    [[nodiscard]] double level() const { return level_; }
    [[nodiscard]] std::shared_ptr<const ItemList> takeArea() {
        return std::make_shared<const ItemList>(std::move(area_));
    }

private:
    /// What is as good as nothing does not change the area as long as there is none. Whatever is
    /// half clear must not lie over another.
    bool add(const Shape& shape) {
        for (const Paint* paint : {&shape.fill, &shape.stroke}) {
            if (!isPainted(*paint))
                continue;
            if (paint->color() == nullptr)
                return false;
            const double level = paint->opacity * (isAlpha_ ? 1 : luminanceOf(*paint->color()));
            if (level == 0 && area_.items.empty())
                continue;
            if (!area_.items.empty() && (level != 1 || level_ != 1))
                return false;
            level_ = level;
            area_.items.emplace_back(paint == &shape.fill ? shape.onlyFill() : shape.onlyStroke());
        }
        return true;
    }

    bool isAlpha_;
    double level_ = 0;
    ItemList area_;
};

bool fitsBox(pugi::xml_node mask, const char* units, std::string_view usual) {
    const pugi::xml_attribute attribute = mask.attribute(units);
    return (attribute ? std::string_view(attribute.value()) : usual) == "objectBoundingBox";
}

bool contentFitsBox(pugi::xml_node mask) {
    return fitsBox(mask, "maskContentUnits", "userSpaceOnUse");
}

bool regionFitsBox(pugi::xml_node mask) {
    return fitsBox(mask, "maskUnits", "objectBoundingBox");
}

}  // namespace

/// As with clip paths, what goes by the box of the masked gets its place when that is drawn. A mask
/// that is not there masks nothing, nor does one within itself.
void MaskReader::drawWithin(const Surroundings& inside, const std::function<void()>& draw) {
    const pugi::xml_node mask = tree_.byId(inside.style.mask);
    if (std::string_view(mask.name()) != "mask" || references_.isWithin(mask) ||
        inside.toPage.determinant() == 0) {
        draw();
        return;
    }
    const ComputedStyle style = styles_.resolveInPlace(mask);
    const auto content = read(mask, style, inside);
    EvenArea area(style.isAlphaMask);
    if (area.add(*content))
        drawWithinArea(area.level(), area.takeArea(), mask, inside, draw);
    else
        drawThrough({content, inside.toPage, style.isAlphaMask, {}, {}}, mask, inside, draw);
}

/// What is even is as good as a clip with an opacity.
void MaskReader::drawWithinArea(double level, std::shared_ptr<const ItemList> area,
                                pugi::xml_node mask, const Surroundings& inside,
                                const std::function<void()>& draw) {
    if (level == 0)
        return;
    const auto region = regionOf(mask, inside);
    const auto outer = items_.beginGroup(level, scene::Clip{std::move(area), inside.toPage});
    const auto inner = items_.beginGroup(
        1, region ? std::optional(scene::rectangleClip(*region, inside.toPage)) : std::nullopt);
    const std::size_t shapesBefore = items_.size().shapes;
    const auto scope = items_.boxScope(true);
    draw();
    if (contentFitsBox(mask) || (region && regionFitsBox(mask))) {
        const Affine toPage = boxToPage(inner, shapesBefore, mask, inside);
        if (contentFitsBox(mask))
            items_.moveClip(outer, toPage);
        if (region && regionFitsBox(mask))
            items_.moveClip(inner, toPage);
    }
    items_.endGroup(inner);
    items_.endGroup(outer);
}

void MaskReader::drawThrough(scene::Mask mask, pugi::xml_node element, const Surroundings& inside,
                             const std::function<void()>& draw) {
    mask.region = regionOf(element, inside);
    mask.regionTransform = inside.toPage;
    const auto group = items_.beginGroup(1);
    const std::size_t shapesBefore = items_.size().shapes;
    const auto scope = items_.boxScope(true);
    draw();
    const bool isRegionOfBox = mask.region && regionFitsBox(element);
    if (contentFitsBox(element) || isRegionOfBox) {
        const Affine toPage = boxToPage(group, shapesBefore, element, inside);
        if (contentFitsBox(element))
            mask.transform = toPage;
        if (isRegionOfBox)
            mask.regionTransform = toPage;
    }
    scene::Effects effects;
    effects.mask = std::move(mask);
    items_.setEffects(group, std::move(effects));
    items_.endGroup(group);
}

/// The map from the box of what was drawn since `begin`.
Affine MaskReader::boxToPage(std::size_t begin, std::size_t shapesBefore, pugi::xml_node mask,
                             const Surroundings& inside) {
    references_.spend(items_.size().shapes - shapesBefore, mask);
    const auto box = items_.boxSince(begin, inside.toPage.inverse());
    return inside.toPage * mapToBox(box.value_or(Rect()));
}

std::shared_ptr<const ItemList> MaskReader::read(pugi::xml_node mask, const ComputedStyle& style,
                                                 const Surroundings& inside) {
    Measures measures = inside.measures;
    if (contentFitsBox(mask))
        measures.width = measures.height = 1;
    measures.fontSize = style.fontSize;
    return references_
        .symbolOf(mask, {style, measures, std::nullopt},
                  [&] {
                      const Surroundings within{style, {}, measures, inside.depth + 1, true};
                      references_.drawWithin(mask, [&] { drawContent(mask, within); });
                  })
        .items;
}

/// A mask may be masked itself.
void MaskReader::drawContent(pugi::xml_node mask, const Surroundings& within) {
    const auto draw = [&] { walker_.drawChildren(mask, within); };
    if (!within.style.clipPath.empty())
        warnings_.add("clip paths of masks are left out (mask)");
    if (within.style.mask.empty())
        draw();
    else
        drawWithin(within, draw);
}

/// The rectangle that a mask keeps to, if it tells one. The usual one, somewhat larger than the
/// box of what is masked, is no limit in practice.
std::optional<Rect> MaskReader::regionOf(pugi::xml_node mask, const Surroundings& inside) {
    const bool goesByBox = regionFitsBox(mask);
    const Measures measures =
        goesByBox ? Measures{1, 1, inside.measures.fontSize} : inside.measures;
    const LengthReader lengths(mask, measures, warnings_);
    const auto width = lengths.findSize("width", Axis::horizontal);
    const auto height = lengths.findSize("height", Axis::vertical);
    if (!width || !height)
        return std::nullopt;
    const auto corner = [&](const char* name, Axis axis, double side) {
        return lengths.find(name, axis).value_or(-0.1 * side);
    };
    return Rect{corner("x", Axis::horizontal, measures.width),
                corner("y", Axis::vertical, measures.height), *width, *height};
}

}  // namespace psrender::svg
