#include "psrender/svg/paint/PaintServer.h"

#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

namespace psrender::svg {

namespace {

/// Longer chains are circles or worse.
constexpr std::size_t kLongestChain = 32;

bool isOfKind(pugi::xml_node element, ElementKind kind) {
    const ElementKind own = elementKind(element.name());
    return kind == ElementKind::unknown ? isShown(own) : own == kind;
}

}  // namespace

PaintServer::PaintServer(const XmlTree& tree, pugi::xml_node element) {
    const ElementKind kind = elementKind(element.name());
    while (element && chain_.size() < kLongestChain && isOfKind(element, kind)) {
        chain_.push_back(element);
        const std::string_view href = hrefOf(element);
        element = href.starts_with('#') ? tree.byId(href.substr(1)) : pugi::xml_node();
    }
}

pugi::xml_node PaintServer::holderOf(const char* name) const {
    for (const pugi::xml_node element : chain_)
        if (element.attribute(name))
            return element;
    return {};
}

std::string_view PaintServer::attribute(const char* name) const {
    return holderOf(name).attribute(name).value();
}

double PaintServer::length(const char* name, Axis axis, const Length& usual,
                           const Measures& measures, Warnings& warnings) const {
    const LengthReader lengths(holderOf(name), measures, warnings);
    return lengths.find(name, axis).value_or(usual.resolve(measures, axis));
}

pugi::xml_node PaintServer::withChild(ElementKind kind) const {
    for (const pugi::xml_node element : chain_)
        for (auto child = firstChildElement(element); child; child = nextElement(child))
            if (isOfKind(child, kind))
                return element;
    return {};
}

scene::Affine mapToBox(const scene::Rect& box) {
    return {box.width, 0, 0, box.height, box.x, box.y};
}

}  // namespace psrender::svg
