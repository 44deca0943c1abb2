#pragma once

#include "psrender/svg/css/StyleResolver.h"
#include "psrender/svg/elements/Surroundings.h"
#include "psrender/svg/paint/PaintServer.h"
#include "psrender/svg/path/ShapeReader.h"
#include "psrender/svg/text/TextLayout.h"
#include "psrender/svg/text/TextRuns.h"

#include <pugixml.hpp>
#include <vector>

namespace psrender::svg {

class Canvas;
class ImageLinks;
struct DecorationLine;
class ShapePaints;
class XmlTree;

/// Reads `text` elements: their glyphs are runs, and the lines along them shapes. Touches the
/// canvas and, for text along a path, the shape that it runs along; keeps the fonts of the drawing.
class TextReader {
public:
    /// All must outlive the reader.
    TextReader(const XmlTree& tree, StyleResolver& styles, ShapeReader& shapes, ShapePaints& paints,
               ImageLinks& links, Canvas& canvas, Warnings& warnings)
        : tree_(tree),
          styles_(styles),
          shapes_(shapes),
          paints_(paints),
          links_(links),
          canvas_(canvas),
          warnings_(warnings),
          faces_(styles.sheet().fontFaces(), links, warnings),
          fonts_(faces_, warnings) {}

    void draw(pugi::xml_node element, const Surroundings& inside);

private:
    /// Breaks the lines of text that flows.
    void flow(pugi::xml_node element, const Surroundings& inside, TextContent& content);
    void layOut(const TextChunk& chunk, const TextContent& content, const Surroundings& inside,
                TextLayout& layout);
    void layOutAlong(const TextChunk& chunk, const TextContent& content, const Surroundings& inside,
                     TextLayout& layout);
    SharedOutline outlineOf(pugi::xml_node target, const Surroundings& inside);
    void drawRun(const LaidRun& run, const TextSpan& span, const PaintPlace& place,
                 const Surroundings& inside);
    void show(const scene::Text& text, pugi::xml_node element);
    void drawLines(const std::vector<DecorationLine>& lines, bool areOverText,
                   const PaintPlace& place, const Surroundings& inside);

    const XmlTree& tree_;
    StyleResolver& styles_;
    ShapeReader& shapes_;
    ShapePaints& paints_;
    ImageLinks& links_;
    Canvas& canvas_;
    Warnings& warnings_;
    FontFaces faces_;
    FontChooser fonts_;
    Shaper shaper_;
};

}  // namespace psrender::svg
