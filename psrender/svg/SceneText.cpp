// Text elements: their glyphs as runs, and the lines along them as shapes.

#include "psrender/Warnings.h"
#include "psrender/svg/Characters.h"
#include "psrender/svg/SceneBuilder.h"
#include "psrender/svg/ShapeOutlines.h"
#include "psrender/svg/XmlWalk.h"
#include "psrender/svg/text/TextLayout.h"
#include "psrender/svg/text/TextRuns.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace psrender::svg {

using scene::Affine;
using scene::Paint;
using scene::Rect;
using scene::Shape;

namespace {

constexpr double kEm = 1000;

/// What the innermost element with such an attribute asks of the text that it begins.
std::optional<WantedLength> wantedLength(pugi::xml_node element, const TextChunk& chunk,
                                         const Measures& measures, Warnings& warnings) {
    for (; element; element = parentElement(element)) {
        const bool isText = std::string_view(element.name()) == "text";
        const auto length =
            LengthReader(element, measures, warnings).findSize("textLength", Axis::horizontal);
        if (length && (!isText || chunk.begin == 0))
            return WantedLength{
                *length,
                std::string_view(element.attribute("lengthAdjust").value()) == "spacingAndGlyphs"};
        if (isText)
            break;
    }
    return std::nullopt;
}

/// A line along glyphs that stand side by side.
struct DecoratedStretch {
    std::size_t span = 0;
    double begin = 0;
    double end = 0;
    double baseline = 0;
    const ChosenFont* font = nullptr;
};

std::vector<DecoratedStretch> decoratedStretches(const TextContent& content,
                                                 const std::vector<LaidGlyph>& glyphs) {
    std::vector<DecoratedStretch> stretches;
    for (const LaidGlyph& glyph : glyphs) {
        const TextSpan& span = content.spans[glyph.span];
        if (span.style.text.decorations == 0 || glyph.rotation != 0 || span.path)
            continue;
        const double end = glyph.origin.x + glyph.advance;
        const double touching = span.style.fontSize / 100;
        if (!stretches.empty() && stretches.back().span == glyph.span &&
            stretches.back().baseline == glyph.baseline &&
            std::abs(stretches.back().end - glyph.origin.x) < touching)
            stretches.back().end = end;
        else
            stretches.push_back({glyph.span, glyph.origin.x, end, glyph.baseline, glyph.font});
    }
    return stretches;
}

/// Where the middle of a line lies above the baseline, in 1/1000 em.
double heightOf(DecorationSet line, const Fonts::FontMetrics& metrics) {
    if (line == decoration::underline)
        return metrics.underlinePosition != 0 ? metrics.underlinePosition : -100;
    return line == decoration::overline ? metrics.ascent : metrics.xHeight * 0.55;
}

Rect boxOf(const DecoratedStretch& stretch, DecorationSet line, double size) {
    const Fonts::FontMetrics& metrics = stretch.font->program->getMetrics();
    const double unit = size / kEm;
    const double thickness = std::max(metrics.underlineThickness, 40.0F) * unit;
    return {stretch.begin, stretch.baseline - heightOf(line, metrics) * unit - thickness / 2,
            std::max(0.0, stretch.end - stretch.begin), thickness};
}

}  // namespace

void SceneBuilder::drawText(pugi::xml_node element, const Surroundings& inside) {
    if (!canBeDrawn(inside.toPage))
        return;
    const TextContent content = readTextContent(element, inside.style, inside.measures, styles_);
    TextLayout layout(content, shaper_);
    for (const TextChunk& chunk : splitIntoChunks(content, fonts_))
        layOut(chunk, content, inside, layout);
    drawDecorations(content, layout, decoration::underline | decoration::overline, inside);
    for (const LaidRun& run : gatherRuns(content, layout.glyphs()))
        drawRun(run, content.spans[run.span], element, inside);
    drawDecorations(content, layout, decoration::lineThrough, inside);
}

void SceneBuilder::layOut(const TextChunk& chunk, const TextContent& content,
                          const Surroundings& inside, TextLayout& layout) {
    const TextSpan& span = content.spans[content.characters[chunk.begin].span];
    if (!span.path) {
        layout.add(chunk, wantedLength(span.element, chunk, inside.measures, warnings_));
        return;
    }
    const std::string_view href = hrefOf(span.path);
    const pugi::xml_node target =
        href.starts_with('#') ? tree_.byId(href.substr(1)) : pugi::xml_node();
    const ElementKind kind = target ? elementKind(target.name()) : ElementKind::unknown;
    const SharedOutline outline =
        isShape(kind) ? shapes_.read(target, kind, inside.measures, true) : nullptr;
    if (!outline) {
        warnings_.add("text along a path that is not in the file is left out (<textPath>)");
        return;
    }
    const Affine map = styles_.resolve(target, inside.style).transform;
    const PathWalk path(outline->transformed(map));
    const auto offset =
        parseLength(span.path.attribute("startOffset").value(), span.style.fontSize);
    const double start = !offset           ? 0
                         : offset->isShare ? offset->value * path.length()
                                           : offset->value;
    layout.addAlong(chunk, path, start);
}

void SceneBuilder::drawRun(const LaidRun& run, const TextSpan& span, pugi::xml_node element,
                           const Surroundings& inside) {
    if (!span.style.isVisible || span.style.fontSize <= 0)
        return;
    Surroundings within{span.style, inside.toPage * run.transform, inside.measures, inside.depth,
                        inside.isReferred};
    const Shape painted = paintedShape(within);
    scene::Text text{run.run, within.toPage, painted.fill, painted.stroke, painted.strokeStyle};
    if (span.element != element) {
        text.fill.opacity *= span.style.opacity;
        text.stroke.opacity *= span.style.opacity;
    }
    if (text.fill.kind == Paint::Kind::none && text.stroke.kind == Paint::Kind::none)
        return;
    if (!items_.add(std::move(text)))
        failOfSize(element);
}

void SceneBuilder::drawDecorations(const TextContent& content, const TextLayout& layout,
                                   DecorationSet lines, const Surroundings& inside) {
    for (const DecoratedStretch& stretch : decoratedStretches(content, layout.glyphs())) {
        const TextSpan& span = content.spans[stretch.span];
        for (const DecorationSet line :
             {decoration::underline, decoration::overline, decoration::lineThrough}) {
            if ((span.style.text.decorations & lines & line) == 0 || !span.style.isVisible)
                continue;
            Shape shape = paintedShape(
                {span.style, inside.toPage, inside.measures, inside.depth, inside.isReferred});
            shape.outline = std::make_shared<const scene::Outline>(
                rectangleOutline(boxOf(stretch, line, span.style.fontSize), 0, 0));
            addShape(std::move(shape), span.element);
        }
    }
}

}  // namespace psrender::svg
