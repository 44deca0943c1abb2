#pragma once

#include "psrender/scene/DisplayList.h"
#include "psrender/svg/paint/GradientReader.h"
#include "psrender/svg/values/Paint.h"

#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

class StyleResolver;
class XmlTree;

/// Turns paint values into paints of the page.
class PaintResolver {
public:
    /// Makes the paint of a `pattern` element; nothing if it cannot be painted with.
    using ReadPattern =
        std::function<std::optional<scene::Paint>(pugi::xml_node, const PaintPlace&)>;

    /// All three must outlive the resolver.
    PaintResolver(const XmlTree& tree, StyleResolver& styles, Warnings& warnings,
                  ReadPattern patterns)
        : tree_(tree),
          warnings_(warnings),
          gradients_(tree, styles, warnings),
          patterns_(std::move(patterns)) {}

    /// `place` is looked at only if `value` has a reference.
    scene::Paint resolve(const PaintValue& value, double opacity, const Rgba& currentColor,
                         const PaintPlace& place);

private:
    /// Nothing if there is nothing to paint with, so that the fallback goes.
    std::optional<scene::Paint> follow(std::string_view id, const PaintPlace& place);

    const XmlTree& tree_;
    Warnings& warnings_;
    GradientReader gradients_;
    ReadPattern patterns_;
};

}  // namespace psrender::svg
