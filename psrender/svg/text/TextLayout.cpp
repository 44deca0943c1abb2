#include "psrender/svg/text/TextLayout.h"

namespace psrender::svg {

using scene::Affine;
using scene::Point;

namespace {

constexpr double kDownwards = 90;

}  // namespace

void TextLayout::add(const TextChunk& chunk, const std::vector<WantedLength>& wanted) {
    const TextCharacter& first = content_.characters[chunk.begin];
    pen_ = {first.x.value_or(pen_.x), first.y.value_or(pen_.y)};
    const TextLine line = this->line(chunk, wanted);
    const Affine toElement = Affine::translation(pen_.x, pen_.y) *
                             Affine::rotation(content_.isVertical ? kDownwards : 0);
    Point at{anchorShift(chunk, line.width()), 0};
    for (const LineCell& cell : line.cells) {
        const TextCharacter& character = content_.characters[cell.character];
        at = at + (content_.isVertical ? Point{character.dy, -character.dx}
                                       : Point{character.dx, character.dy});
        place(cell, toElement * Affine::translation(at.x, at.y), true);
        at.x += cell.advance + cell.spacing;
    }
    pen_ = toElement.apply(at);
}

/// The middle of each cell lies on the path, and the cell stands across it. What lies beyond the
/// path's ends is not shown. A place along the line is one along the path.
void TextLayout::addAlong(const TextChunk& chunk, const std::vector<WantedLength>& wanted,
                          const PathWalk& path, double start) {
    const TextCharacter& first = content_.characters[chunk.begin];
    const TextLine line = this->line(chunk, wanted);
    double along = start + (content_.isVertical ? first.y : first.x).value_or(0) +
                   anchorShift(chunk, line.width());
    double aside = 0;
    for (const LineCell& cell : line.cells) {
        const TextCharacter& character = content_.characters[cell.character];
        along += character.dx;
        aside += character.dy;
        if (const auto middle = path.at(along + cell.advance / 2)) {
            place(cell,
                  Affine::translation(middle->point.x, middle->point.y) *
                      Affine::rotation(middle->angle) *
                      Affine::translation(-cell.advance / 2, aside),
                  false);
            pen_ = middle->point + Point{cell.advance / 2, 0};
        }
        along += cell.advance + cell.spacing;
    }
}

TextLine TextLayout::line(const TextChunk& chunk, const std::vector<WantedLength>& wanted) {
    TextLine line = lines_.make(chunk);
    for (const WantedLength& length : wanted)
        fit(line, length);
    return line;
}

/// Upright glyphs stand in the middle of a line that runs down the page.
void TextLayout::place(const LineCell& cell, const Affine& onLine, bool staysPlain) {
    const Affine turned = onLine * Affine::rotation(content_.characters[cell.character].rotation);
    const Affine map = turned * Affine::translation(0, cell.drop);
    cells_.push_back({cell.font, cell.span, cell.size, cell.advance + cell.spacing,
                      cell.centre - cell.drop, cell.isUpright, map});
    const Affine stretched = (cell.isUpright ? turned * Affine::translation(0, cell.centre) : map) *
                             Affine::scaling(cell.stretch, 1);
    const TextStyle& style = content_.spans[cell.span].style.text;
    for (const LineGlyph& glyph : cell.glyphs) {
        const Affine placed = stretched * Affine::translation(glyph.x, glyph.y);
        glyphs_.push_back({cell.font, cell.span, glyph.character, glyph.countCharacters, glyph.id,
                           cell.size, style.letterSpacing.resolve(measures_, Axis::other),
                           cell.isUpright ? placed * Affine::rotation(-kDownwards) : placed,
                           glyph.isPlain && staysPlain});
    }
}

double TextLayout::anchorShift(const TextChunk& chunk, double width) const {
    const std::size_t span = content_.characters[chunk.begin].span;
    const TextStyle& style = content_.spans[span].style.text;
    if (style.anchor == TextAnchor::middle)
        return -width / 2;
    const bool endsHere = (style.anchor == TextAnchor::end) != style.isRightToLeft;
    return endsHere ? -width : 0;
}

}  // namespace psrender::svg
