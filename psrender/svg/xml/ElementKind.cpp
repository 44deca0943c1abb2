#include "psrender/svg/xml/ElementKind.h"

#include <algorithm>
#include <array>

namespace psrender::svg {

namespace {

struct Entry {
    std::string_view name;
    ElementKind kind;
};

using enum ElementKind;

/// Sorted by name, for the search.
constexpr std::array kEntries{
    Entry{"a", group},
    Entry{"animate", silent},
    Entry{"animateColor", silent},
    Entry{"animateMotion", silent},
    Entry{"animateTransform", silent},
    Entry{"circle", circle},
    Entry{"clipPath", definition},
    Entry{"color-profile", definition},
    Entry{"cursor", silent},
    Entry{"defs", definition},
    Entry{"desc", silent},
    Entry{"ellipse", ellipse},
    Entry{"filter", definition},
    Entry{"flowRoot", text},
    Entry{"font", definition},
    Entry{"font-face", definition},
    Entry{"foreignObject", foreignObject},
    Entry{"g", group},
    Entry{"image", image},
    Entry{"line", line},
    Entry{"linearGradient", gradient},
    Entry{"marker", marker},
    Entry{"mask", definition},
    Entry{"metadata", silent},
    Entry{"mpath", silent},
    Entry{"path", path},
    Entry{"pattern", pattern},
    Entry{"polygon", polygon},
    Entry{"polyline", polyline},
    Entry{"radialGradient", gradient},
    Entry{"rect", rect},
    Entry{"script", silent},
    Entry{"set", silent},
    Entry{"stop", stop},
    Entry{"style", style},
    Entry{"svg", svg},
    Entry{"switch", choice},
    Entry{"symbol", symbol},
    Entry{"text", text},
    Entry{"title", silent},
    Entry{"use", use},
    Entry{"view", silent},
};

constexpr bool isBefore(const Entry& entry, std::string_view name) {
    return entry.name < name;
}

}  // namespace

ElementKind elementKind(std::string_view name) {
    if (name.find(':') != std::string_view::npos)
        return foreign;
    const auto* found = std::lower_bound(kEntries.begin(), kEntries.end(), name, isBefore);
    return found != kEntries.end() && found->name == name ? found->kind : unknown;
}

bool isShown(ElementKind kind) {
    if (kind == symbol)
        return false;
    return kind <= polygon || kind >= text;
}

}  // namespace psrender::svg
