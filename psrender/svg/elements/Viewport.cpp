#include "psrender/svg/elements/Viewport.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/ViewBox.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"

namespace psrender::svg {

using scene::Affine;
using scene::Rect;

namespace {

constexpr double kDefaultWidth = 300;
constexpr double kDefaultHeight = 150;

/// The root's viewBox. One that is wrong would leave the scale of the whole drawing to chance.
std::optional<Rect> readRootViewBox(const XmlTree& tree) {
    const std::string_view text = trimmed(tree.root().attribute("viewBox").value());
    if (text.empty())
        return std::nullopt;
    const auto box = parseViewBox(text);
    if (!box || box->width == 0 || box->height == 0)
        tree.fail(tree.root(),
                  "the viewBox of <svg> is not four numbers with a width and height above 0; "
                  "correct it");
    return box;
}

/// One side of the root; shares are of `whole`.
std::optional<double> readSide(const XmlTree& tree, const char* name, double whole,
                               double fontSize) {
    const std::string_view text = trimmed(tree.root().attribute(name).value());
    if (text.empty() || text == "auto")
        return std::nullopt;
    const auto length = parseLength(text, fontSize);
    const double side = !length ? 0 : length->isShare ? length->value * whole : length->value;
    if (side <= 0)
        tree.fail(tree.root(),
                  std::string("the ") + name + " of <svg> is not a length above 0; correct it");
    return side;
}

}  // namespace

std::optional<Viewport> openViewport(pugi::xml_node element, const Rect& area, Warnings& warnings) {
    if (area.width <= 0 || area.height <= 0)
        return std::nullopt;
    const Viewport plain{Affine::translation(area.x, area.y), area.width, area.height};
    const pugi::xml_attribute viewBox = element.attribute("viewBox");
    if (!viewBox)
        return plain;
    const auto box = parseViewBox(viewBox.value());
    if (!box) {
        warnings.add("viewBoxes that are not four fitting numbers are ignored");
        return plain;
    }
    if (box->width == 0 || box->height == 0)
        return std::nullopt;
    return Viewport{fitViewBox(*box, area, element.attribute("preserveAspectRatio").value()),
                    box->width, box->height};
}

Rect nestedArea(pugi::xml_node svg, const Measures& measures, Warnings& warnings) {
    const LengthReader lengths(svg, measures, warnings);
    return {lengths.get("x", Axis::horizontal), lengths.get("y", Axis::vertical),
            lengths.findSize("width", Axis::horizontal).value_or(measures.width),
            lengths.findSize("height", Axis::vertical).value_or(measures.height)};
}

bool isSizedByContent(pugi::xml_node root) {
    const auto isOpen = [root](const char* name) {
        const std::string_view text = trimmed(root.attribute(name).value());
        return text.empty() || text == "auto" || text.ends_with('%');
    };
    return trimmed(root.attribute("viewBox").value()).empty() && isOpen("width") &&
           isOpen("height");
}

/// A side that is not given follows from the other by the viewBox's proportions.
Rect drawingArea(const XmlTree& tree, double fontSize) {
    const auto box = readRootViewBox(tree);
    const double naturalWidth = box ? box->width : kDefaultWidth;
    const double naturalHeight = box ? box->height : kDefaultHeight;
    const auto width = readSide(tree, "width", naturalWidth, fontSize);
    const auto height = readSide(tree, "height", naturalHeight, fontSize);
    const double scaleX = box && height ? *height / naturalHeight : 1;
    const double scaleY = box && width ? *width / naturalWidth : 1;
    return {0, 0, width.value_or(naturalWidth * scaleX), height.value_or(naturalHeight * scaleY)};
}

}  // namespace psrender::svg
