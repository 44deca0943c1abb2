#include "psrender/svg/paint/PaintResolver.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/XmlTree.h"

namespace psrender::svg {

namespace {

scene::Paint toPaint(const PlainPaint& paint, double opacity, const Rgba& currentColor) {
    if (paint.kind == PlainPaint::Kind::none)
        return {};
    const Rgba& color = paint.kind == PlainPaint::Kind::color ? paint.color : currentColor;
    const double total = color.alpha * opacity;
    if (total <= 0)
        return {};
    return {color.color, total};
}

}  // namespace

scene::Paint PaintResolver::resolve(const PaintValue& value, double opacity,
                                    const Rgba& currentColor, const PaintPlace& place) {
    if (value.hasReference)
        if (auto paint = follow(value.reference, place)) {
            paint->opacity *= opacity;
            return paint->opacity > 0 ? *paint : scene::Paint();
        }
    return toPaint(value.plain, opacity, currentColor);
}

std::optional<scene::Paint> PaintResolver::follow(std::string_view id, const PaintPlace& place) {
    const pugi::xml_node server = tree_.byId(id);
    const ElementKind kind = server ? elementKind(server.name()) : ElementKind::unknown;
    if (kind == ElementKind::gradient)
        return gradients_.read(server, place);
    if (kind == ElementKind::pattern)
        return patterns_(server, place);
    warnings_.add("paints that refer to nothing in the file are left out (url)");
    return std::nullopt;
}

}  // namespace psrender::svg
