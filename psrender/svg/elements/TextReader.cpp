#include "psrender/svg/elements/TextReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/paint/ShapePaints.h"
#include "psrender/svg/path/ShapeOutlines.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace psrender::svg {

using scene::Affine;
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
    if (line == decoration::kUnderline)
        return metrics.underlinePosition != 0 ? metrics.underlinePosition : -100;
    constexpr double kUsualXHeight = 500;
    const double xHeight = metrics.xHeight > 0 ? metrics.xHeight : kUsualXHeight;
    return line == decoration::kOverline ? metrics.ascent : xHeight * 0.55;
}

Rect boxOf(const DecoratedStretch& stretch, DecorationSet line, double size) {
    const Fonts::FontMetrics& metrics = stretch.font->program->getMetrics();
    const double unit = size / kEm;
    const double thickness = std::max(metrics.underlineThickness, 40.0F) * unit;
    return {stretch.begin, stretch.baseline - heightOf(line, metrics) * unit - thickness / 2,
            std::max(0.0, stretch.end - stretch.begin), thickness};
}

/// The box around the cells of all glyphs; nothing for a text without any.
std::optional<Rect> boxOf(const TextContent& content, const std::vector<LaidGlyph>& glyphs) {
    std::optional<Rect> box;
    for (const LaidGlyph& glyph : glyphs) {
        const Fonts::FontMetrics& metrics = glyph.font->program->getMetrics();
        const double unit = content.spans[glyph.span].style.fontSize / kEm;
        const double top = glyph.origin.y - metrics.ascent * unit;
        const double bottom = glyph.origin.y - metrics.descent * unit;
        const Rect cell{glyph.origin.x, top, glyph.advance, bottom - top};
        if (!box) {
            box = cell;
            continue;
        }
        const double right = std::max(box->x + box->width, cell.x + cell.width);
        const double end = std::max(box->y + box->height, bottom);
        box->x = std::min(box->x, cell.x);
        box->y = std::min(box->y, top);
        box->width = right - box->x;
        box->height = end - box->y;
    }
    return box;
}

}  // namespace

void TextReader::draw(pugi::xml_node element, const Surroundings& inside) {
    if (!canvas_.canShow(inside.toPage))
        return;
    const TextContent content = readTextContent(element, inside.style, inside.measures, styles_);
    TextLayout layout(content, shaper_);
    for (const TextChunk& chunk : splitIntoChunks(content, fonts_))
        layOut(chunk, content, inside, layout);
    const PaintPlace place{boxOf(content, layout.glyphs()), inside.measures, inside.depth};
    drawDecorations(content, layout, decoration::kUnderline | decoration::kOverline, place, inside);
    for (const LaidRun& run : gatherRuns(content, layout.glyphs()))
        drawRun(run, content.spans[run.span], place, inside);
    drawDecorations(content, layout, decoration::kLineThrough, place, inside);
}

void TextReader::layOut(const TextChunk& chunk, const TextContent& content,
                        const Surroundings& inside, TextLayout& layout) {
    const TextSpan& span = content.spans[content.characters[chunk.begin].span];
    if (span.path)
        layOutAlong(chunk, span, inside, layout);
    else
        layout.add(chunk, wantedLength(span.element, chunk, inside.measures, warnings_));
}

void TextReader::layOutAlong(const TextChunk& chunk, const TextSpan& span,
                             const Surroundings& inside, TextLayout& layout) {
    const std::string_view href = hrefOf(span.path);
    const pugi::xml_node target =
        href.starts_with('#') ? tree_.byId(href.substr(1)) : pugi::xml_node();
    const SharedOutline outline = outlineOf(target, inside);
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

/// Null if there is no such shape.
SharedOutline TextReader::outlineOf(pugi::xml_node target, const Surroundings& inside) {
    const ElementKind kind = target ? elementKind(target.name()) : ElementKind::unknown;
    return isShape(kind) ? shapes_.read(target, kind, inside.measures, true) : nullptr;
}

/// Gradients and patterns lie in the space of the element, not of the run.
void TextReader::drawRun(const LaidRun& run, const TextSpan& span, const PaintPlace& place,
                         const Surroundings& inside) {
    if (!span.style.isVisible || span.style.fontSize <= 0)
        return;
    const Shape painted = paints_.resolve(span.style, place);
    const Affine toRun = run.transform.inverse();
    scene::Text text{run.run, inside.toPage * run.transform, scene::moved(painted.fill, toRun),
                     scene::moved(painted.stroke, toRun), painted.strokeStyle};
    if (std::string_view(span.element.name()) != "text") {
        text.fill.opacity *= span.style.opacity;
        text.stroke.opacity *= span.style.opacity;
    }
    const PaintOrder& order = span.style.paintOrder;
    if (isPainted(text.fill) && isPainted(text.stroke) &&
        std::ranges::find(order, PaintLayer::stroke) < std::ranges::find(order, PaintLayer::fill)) {
        scene::Text halo = text;
        halo.fill = {};
        text.stroke = {};
        canvas_.add(std::move(halo), span.element);
    }
    canvas_.add(std::move(text), span.element);
}

void TextReader::drawDecorations(const TextContent& content, const TextLayout& layout,
                                 DecorationSet lines, const PaintPlace& place,
                                 const Surroundings& inside) {
    for (const DecoratedStretch& stretch : decoratedStretches(content, layout.glyphs())) {
        const TextSpan& span = content.spans[stretch.span];
        for (const DecorationSet line :
             {decoration::kUnderline, decoration::kOverline, decoration::kLineThrough}) {
            if ((span.style.text.decorations & lines & line) == 0 || !span.style.isVisible)
                continue;
            Shape shape = paints_.resolve(span.style, place);
            shape.transform = inside.toPage;
            shape.outline = std::make_shared<const scene::Outline>(
                rectangleOutline(boxOf(stretch, line, span.style.fontSize), 0, 0));
            canvas_.add(std::move(shape), span.element);
        }
    }
}

}  // namespace psrender::svg
