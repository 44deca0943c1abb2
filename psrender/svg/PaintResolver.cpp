#include "psrender/svg/PaintResolver.h"

#include "psrender/Warnings.h"
#include "psrender/svg/ElementKind.h"
#include "psrender/svg/StyleResolver.h"
#include "psrender/svg/XmlTree.h"
#include "psrender/svg/XmlWalk.h"

namespace psrender::svg {

namespace {

/// Gradients may take their stops from another one, and that from a third.
constexpr int longestChain = 32;

scene::Paint toPaint(const PlainPaint& paint, double opacity, const Rgba& currentColor) {
    if (paint.kind == PlainPaint::Kind::none)
        return {};
    const Rgba& color = paint.kind == PlainPaint::Kind::color ? paint.color : currentColor;
    const double total = color.alpha * opacity;
    if (total <= 0)
        return {};
    return {scene::Paint::Kind::solid, color.color, total};
}

}  // namespace

scene::Paint PaintResolver::resolve(const PaintValue& value, double opacity,
                                    const Rgba& currentColor) {
    const PlainPaint plain = value.hasReference ? replacementFor(value) : value.plain;
    return toPaint(plain, opacity, currentColor);
}

PlainPaint PaintResolver::replacementFor(const PaintValue& value) {
    const pugi::xml_node server = tree_.byId(value.reference);
    const ElementKind kind = server ? elementKind(server.name()) : ElementKind::unknown;
    const bool isGradient = kind == ElementKind::gradient;
    if (!isGradient && kind != ElementKind::pattern) {
        warnings_.add("paints that refer to nothing in the file are left out (url)");
        return value.plain;
    }
    if (value.hasFallback) {
        warnings_.add(isGradient ? "gradient paint is drawn in its fallback colour"
                                 : "pattern paint is drawn in its fallback colour");
        return value.plain;
    }
    warnings_.add(isGradient ? "gradient paint is drawn in the colour of its first stop"
                             : "pattern paint is left out (<pattern>)");
    return isGradient ? firstStopOf(value.reference, server) : value.plain;
}

const PlainPaint& PaintResolver::firstStopOf(std::string_view gradientId, pugi::xml_node gradient) {
    const auto known = firstStops_.find(gradientId);
    if (known != firstStops_.end())
        return known->second;
    return firstStops_.emplace(gradientId, readFirstStop(gradient)).first->second;
}

PlainPaint PaintResolver::readFirstStop(pugi::xml_node gradient) {
    const pugi::xml_node stop = findFirstStop(gradient);
    if (!stop)
        return {};
    const ComputedStyle style = styles_.resolveInPlace(stop);
    PlainPaint paint = style.stopColor;
    if (paint.kind == PlainPaint::Kind::currentColor)
        paint = {PlainPaint::Kind::color, style.color};
    paint.color.alpha *= style.stopOpacity;
    return paint;
}

pugi::xml_node PaintResolver::findFirstStop(pugi::xml_node gradient) const {
    for (int i = 0; i < longestChain && gradient; ++i) {
        for (auto child = firstChildElement(gradient); child; child = nextElement(child))
            if (elementKind(child.name()) == ElementKind::stop)
                return child;
        const std::string_view href = hrefOf(gradient);
        gradient = href.starts_with('#') ? tree_.byId(href.substr(1)) : pugi::xml_node();
    }
    return {};
}

}  // namespace psrender::svg
