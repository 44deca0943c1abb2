#include "psrender/svg/elements/TextReader.h"

#include "psrender/base/Warnings.h"
#include "psrender/image/Upright.h"
#include "psrender/scene/OutlineBox.h"
#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/Canvas.h"
#include "psrender/svg/elements/TextLines.h"
#include "psrender/svg/image/ImageLinks.h"
#include "psrender/svg/paint/ShapePaints.h"
#include "psrender/svg/text/ColoredText.h"
#include "psrender/svg/text/FlowLines.h"
#include "psrender/svg/xml/ElementKind.h"
#include "psrender/svg/xml/LengthReader.h"
#include "psrender/svg/xml/XmlTree.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace psrender::svg {

using scene::Affine;
using scene::Shape;

namespace {

bool isWithin(pugi::xml_node element, pugi::xml_node around) {
    while (element && element != around)
        element = parentElement(element);
    return !!element;
}

/// What elements ask of their text that begins in `chunk`, the innermost ones first.
std::vector<WantedLength> wantedLengths(const TextContent& content, const TextChunk& chunk,
                                        const Measures& measures, Warnings& warnings) {
    std::vector<WantedLength> wanted;
    std::vector<pugi::xml_node> known;
    for (std::size_t i = chunk.begin; i < chunk.end; ++i) {
        const bool isNewSpan =
            i == chunk.begin || content.characters[i].span != content.characters[i - 1].span;
        if (!isNewSpan)
            continue;
        pugi::xml_node element = content.spans[content.characters[i].span].element;
        for (bool isText = false; element && !isText; element = parentElement(element)) {
            isText = std::string_view(element.name()) == "text";
            if (!element.attribute("textLength") ||
                std::ranges::find(known, element) != known.end() ||
                (i > 0 && isWithin(content.spans[content.characters[i - 1].span].element, element)))
                continue;
            known.push_back(element);
            const auto length =
                LengthReader(element, measures, warnings).findSize("textLength", Axis::horizontal);
            if (!length)
                continue;
            std::size_t end = i + 1;
            while (end < chunk.end &&
                   (content.characters[end].span == content.characters[end - 1].span ||
                    isWithin(content.spans[content.characters[end].span].element, element)))
                ++end;
            const std::string_view adjust = element.attribute("lengthAdjust").value();
            wanted.push_back({*length, adjust == "spacingAndGlyphs", i, end});
        }
    }
    std::ranges::stable_sort(wanted, {},
                             [](const WantedLength& length) { return length.end - length.begin; });
    return wanted;
}

}  // namespace

void TextReader::draw(pugi::xml_node element, const Surroundings& inside) {
    if (!canvas_.canShow(inside.toPage))
        return;
    TextContent content = readTextContent(element, inside.style, inside.measures, styles_, tree_);
    if (std::string_view(element.name()) == "flowRoot")
        flow(element, inside, content);
    TextLayout layout(content, inside.measures, shaper_);
    for (const TextChunk& chunk : splitIntoChunks(content, fonts_))
        layOut(chunk, content, inside, layout);
    const PaintPlace place{boxOf(layout.cells()), inside.measures, inside.depth};
    const auto lines = decorationLines(content, layout.cells(), warnings_);
    drawLines(lines, false, place, inside);
    for (const LaidRun& run : gatherRuns(content, layout.glyphs()))
        drawRun(run, content.spans[run.span], place, inside);
    drawLines(lines, true, place, inside);
}

void TextReader::flow(pugi::xml_node element, const Surroundings& inside, TextContent& content) {
    std::optional<scene::Rect> box;
    forEachElement(element.child("flowRegion"), [&](pugi::xml_node shape, std::size_t) {
        const SharedOutline outline = outlineOf(shape, inside);
        if (!outline)
            return;
        if (box || std::string_view(shape.name()) != "rect")
            warnings_.add("text flows in the box around its first region (<flowRegion>)");
        if (!box)
            box = scene::tightBox(*outline);
    });
    if (box)
        flowInto(*box, content, inside.measures, fonts_, shaper_, warnings_);
}

void TextReader::layOut(const TextChunk& chunk, const TextContent& content,
                        const Surroundings& inside, TextLayout& layout) {
    const TextSpan& span = content.spans[content.characters[chunk.begin].span];
    if (span.path)
        layOutAlong(chunk, content, inside, layout);
    else
        layout.add(chunk, wantedLengths(content, chunk, inside.measures, warnings_));
}

void TextReader::layOutAlong(const TextChunk& chunk, const TextContent& content,
                             const Surroundings& inside, TextLayout& layout) {
    const TextSpan& span = content.spans[content.characters[chunk.begin].span];
    const std::string_view href = hrefOf(span.path);
    const pugi::xml_node target =
        href.starts_with('#') ? tree_.byId(href.substr(1)) : pugi::xml_node();
    const SharedOutline outline = outlineOf(target, inside);
    if (!outline) {
        warnings_.add("text along a path that is not in the file is left out (<textPath>)");
        return;
    }
    const Affine map = styles_.resolve(target, inside.style).transform;
    const bool isReversed = std::string_view(span.path.attribute("side").value()) == "right";
    const PathWalk path(outline->transformed(map), isReversed);
    const auto offset =
        parseLength(span.path.attribute("startOffset").value(), span.style.fontSize);
    const double start = !offset           ? 0
                         : offset->isShare ? offset->value * path.length()
                                           : offset->value;
    if (std::string_view(span.path.attribute("method").value()) == "stretch")
        warnings_.add("letters along a path are turned but not bent (<textPath method>)");
    layout.addAlong(chunk, wantedLengths(content, chunk, inside.measures, warnings_), path, start);
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
        show(halo, span.element);
    }
    show(text, span.element);
}

/// As it looks in its font, which may have colours of its own.
void TextReader::show(const scene::Text& text, pugi::xml_node element) {
    ColoredText colored = coloredText(text);
    if (colored.isSimplified)
        warnings_.add("letters with gradients of their font are shown in one colour (<text>)");
    for (scene::Text& part : colored.texts)
        canvas_.add(std::move(part), element);
    for (const LetterPicture& picture : colored.pictures) {
        const auto* image = links_.findLetter(picture.png);
        if (image != nullptr && canvas_.canShow(picture.toPage))
            canvas_.add(scene::Picture{image->image, picture.toPage * image::uprightOf(*image),
                                       text.fill.opacity},
                        element);
    }
}

void TextReader::drawLines(const std::vector<DecorationLine>& lines, bool areOverText,
                           const PaintPlace& place, const Surroundings& inside) {
    for (const DecorationLine& line : lines) {
        if (line.isOverText != areOverText)
            continue;
        ComputedStyle style;
        static_cast<InheritedStyle&>(style) = line.decoration->style;
        Shape shape = paints_.resolve(style, place);
        shape.transform = inside.toPage;
        shape.outline = std::make_shared<const scene::Outline>(line.outline);
        canvas_.add(std::move(shape), line.element);
    }
}

}  // namespace psrender::svg
