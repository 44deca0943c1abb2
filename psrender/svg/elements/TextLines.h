#pragma once

#include "psrender/scene/Outline.h"
#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/text/TextLayout.h"

#include <optional>
#include <pugixml.hpp>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// A line along some cells of a text.
struct DecorationLine {
    const Decoration* decoration = nullptr;
    scene::Outline outline;   ///< in the space of the text element
    pugi::xml_node element;   ///< of the text along which it runs
    bool isOverText = false;  ///< else it lies under it
};

/// The lines along a text. Where cells stand beside each other in a row, their lines are one.
/// What is simplified is counted in `warnings`.
std::vector<DecorationLine> decorationLines(const TextContent& content,
                                            const std::vector<LaidCell>& cells, Warnings& warnings);

/// The box around all cells; nothing for a text without any.
std::optional<scene::Rect> boxOf(const std::vector<LaidCell>& cells);

}  // namespace psrender::svg
