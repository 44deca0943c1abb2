#include "psrender/svg/elements/TextLines.h"

#include "psrender/base/Warnings.h"

#include <algorithm>
#include <cmath>

namespace psrender::svg {

using scene::Outline;
using scene::Point;
using scene::Rect;

namespace {

constexpr double kEm = 1000;

/// Cells that stand side by side, with the same lines along them.
struct Stretch {
    const LaidCell* first = nullptr;
    double length = 0;
};

bool goesOn(const Stretch& stretch, const LaidCell& cell, const TextContent& content) {
    const LaidCell& first = *stretch.first;
    const double touching = first.size / 100;
    const Point end = first.map.apply({stretch.length, 0});
    const auto linesOf = [&](const LaidCell& of) {
        return content.spans[of.span].style.text.decorations;
    };
    return linesOf(first) == linesOf(cell) && std::abs(first.map.a - cell.map.a) < 1e-9 &&
           std::abs(first.map.b - cell.map.b) < 1e-9 && std::abs(end.x - cell.map.e) < touching &&
           std::abs(end.y - cell.map.f) < touching;
}

std::vector<Stretch> stretchesOf(const TextContent& content, const std::vector<LaidCell>& cells) {
    std::vector<Stretch> stretches;
    for (const LaidCell& cell : cells) {
        const TextSpan& span = content.spans[cell.span];
        if (!span.style.text.decorations || !span.style.isVisible)
            continue;
        if (stretches.empty() || !goesOn(stretches.back(), cell, content))
            stretches.push_back({&cell, 0});
        stretches.back().length += cell.advance;
    }
    return stretches;
}

/// Where the middle of a line lies above the baseline, in 1/1000 em.
double heightOf(DecorationSet line, const Fonts::FontMetrics& metrics) {
    if (line == decoration::kUnderline)
        return metrics.underlinePosition != 0 ? metrics.underlinePosition : -100;
    constexpr double kUsualXHeight = 500;
    const double xHeight = metrics.xHeight > 0 ? metrics.xHeight : kUsualXHeight;
    return line == decoration::kOverline ? metrics.ascent : xHeight * 0.55;
}

void addBar(Outline& outline, const Rect& bar) {
    outline.moveTo({bar.x, bar.y});
    outline.lineTo({bar.right(), bar.y});
    outline.lineTo({bar.right(), bar.bottom()});
    outline.lineTo({bar.x, bar.bottom()});
    outline.close();
}

/// A line of pieces of `on`, with gaps of `off` between them.
void addPieces(Outline& outline, const Rect& bar, double on, double off) {
    constexpr double kMostPieces = 2000;
    const int count = static_cast<int>(std::min(std::ceil(bar.width / (on + off)), kMostPieces));
    for (int i = 0; i < count; ++i) {
        const double x = bar.x + i * (on + off);
        addBar(outline, {x, bar.y, std::min(on, bar.right() - x), bar.height});
    }
}

Outline outlineOf(const Rect& bar, DecorationShape shape) {
    Outline outline;
    const double thickness = bar.height;
    if (shape == DecorationShape::dotted)
        addPieces(outline, bar, thickness, thickness);
    else if (shape == DecorationShape::dashed)
        addPieces(outline, bar, 3 * thickness, 2 * thickness);
    else
        addBar(outline, bar);
    if (shape == DecorationShape::twofold)
        addBar(outline, {bar.x, bar.y + 2 * thickness, bar.width, thickness});
    return outline;
}

/// The same of a line down the page, above its middle.
double heightFromMiddle(DecorationSet line) {
    constexpr double kBeside = 550;
    return line == decoration::kUnderline ? -kBeside : line == decoration::kOverline ? kBeside : 0;
}

/// As thick and as far from the baseline as the element has it that asks for the line.
Rect barOf(const Stretch& stretch, DecorationSet line, const Decoration& decoration,
           bool isVertical) {
    const LaidCell& cell = *stretch.first;
    const Fonts::FontMetrics& metrics = cell.font->program->getMetrics();
    const double unit = decoration.style.fontSize / kEm;
    const double thickness = std::max(metrics.underlineThickness, 40.0F) * unit;
    const double middle =
        isVertical ? cell.centre - heightFromMiddle(line) * unit : -heightOf(line, metrics) * unit;
    return {0, middle - thickness / 2, std::max(0.0, stretch.length), thickness};
}

Rect cellBox(const LaidCell& cell) {
    if (cell.isUpright)
        return {0, cell.centre - cell.size / 2, std::max(0.0, cell.advance), cell.size};
    const Fonts::FontMetrics& metrics = cell.font->program->getMetrics();
    const double unit = cell.size / kEm;
    return Rect::between({0, -metrics.ascent * unit}, {cell.advance, -metrics.descent * unit});
}

}  // namespace

std::vector<DecorationLine> decorationLines(const TextContent& content,
                                            const std::vector<LaidCell>& cells,
                                            Warnings& warnings) {
    std::vector<DecorationLine> lines;
    for (const Stretch& stretch : stretchesOf(content, cells)) {
        const TextSpan& span = content.spans[stretch.first->span];
        for (const Decoration& decoration : *span.style.text.decorations)
            for (const DecorationSet line :
                 {decoration::kUnderline, decoration::kOverline, decoration::kLineThrough}) {
                if ((decoration.lines & line) == 0)
                    continue;
                if (decoration.shape == DecorationShape::wavy)
                    warnings.add("wavy lines along text are drawn straight (text-decoration)");
                const Outline outline = outlineOf(
                    barOf(stretch, line, decoration, content.isVertical), decoration.shape);
                lines.push_back({&decoration, outline.transformed(stretch.first->map), span.element,
                                 line == decoration::kLineThrough});
            }
    }
    return lines;
}

std::optional<Rect> boxOf(const std::vector<LaidCell>& cells) {
    std::optional<Rect> box;
    for (const LaidCell& cell : cells)
        box = scene::around(box, cellBox(cell).mapped(cell.map));
    return box;
}

}  // namespace psrender::svg
