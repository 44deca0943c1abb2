#pragma once

#include <cstdint>
#include <string_view>

namespace psrender::svg {

/// What a reader does with an element.
enum class ElementKind : std::uint8_t {
    svg,
    group,
    use,
    symbol,
    choice,  ///< `switch`
    path,
    rect,
    circle,
    ellipse,
    line,
    polyline,
    polygon,
    gradient,
    pattern,
    stop,
    style,
    marker,
    definition,  ///< shown only where something refers to it
    silent,      ///< changes nothing on a still picture
    foreign,     ///< of another vocabulary than SVG
    text,
    image,
    foreignObject,
    unknown,
};

/// The kind of an element by its name in the tree, where names of other vocabularies hold
/// a colon.
ElementKind elementKind(std::string_view name);

/// Whether an element of this kind shows something where it stands, if only it could be drawn.
bool isShown(ElementKind kind);

inline bool isShape(ElementKind kind) {
    return kind >= ElementKind::path && kind <= ElementKind::polygon;
}

}  // namespace psrender::svg
