#include "psrender/svg/text/TextLayout.h"

#include <cmath>
#include <numbers>

namespace psrender::svg {

using scene::Point;

namespace {

constexpr double kEm = 1000;

/// How far below the text's position the baseline lies, in user units.
double baselineDrop(Baseline baseline, const Fonts::FontMetrics& metrics, double size) {
    const auto scaled = [&](double value) { return value * size / kEm; };
    switch (baseline) {
        case Baseline::middle:
            return scaled(metrics.xHeight / 2.0);
        case Baseline::central:
            return scaled((double{metrics.ascent} + metrics.descent) / 2);
        case Baseline::hanging:
            return scaled(metrics.ascent * 0.8);
        case Baseline::top:
            return scaled(metrics.ascent);
        case Baseline::bottom:
            return scaled(metrics.descent);
        case Baseline::alphabetic:
            break;
    }
    return 0;
}

double widthOf(const std::vector<LaidGlyph>& line) {
    double width = 0;
    for (const LaidGlyph& glyph : line)
        width += glyph.advance;
    return width;
}

/// Spreads what is missing over the glyphs, or widens them.
void fit(std::vector<LaidGlyph>& line, const WantedLength& wanted) {
    const double width = widthOf(line);
    if (wanted.stretchesGlyphs && width > 0) {
        for (LaidGlyph& glyph : line) {
            glyph.origin.x *= wanted.length / width;
            glyph.advance *= wanted.length / width;
            glyph.stretch = wanted.length / width;
        }
        return;
    }
    if (line.size() < 2)
        return;
    const double extra = (wanted.length - width) / static_cast<double>(line.size() - 1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        line[i].origin.x += extra * static_cast<double>(i);
        line[i].advance += i + 1 < line.size() ? extra : 0;
    }
}

}  // namespace

void TextLayout::add(const TextChunk& chunk, const std::optional<WantedLength>& wanted) {
    const TextCharacter& first = content_.characters[chunk.begin];
    pen_ = {first.x.value_or(pen_.x), first.y.value_or(pen_.y)};
    std::vector<LaidGlyph> line = this->line(chunk);
    if (wanted)
        fit(line, *wanted);
    const double width = widthOf(line);
    const double shift = anchorShift(chunk, width);
    Point moved;
    for (const LaidGlyph& glyph : line) {
        LaidGlyph placed = glyph;
        placed.origin = {glyph.origin.x + pen_.x + shift, glyph.origin.y + pen_.y};
        placed.baseline += pen_.y;
        glyphs_.push_back(placed);
    }
    for (std::size_t i = chunk.begin; i < chunk.end; ++i) {
        moved.x += content_.characters[i].dx;
        moved.y += content_.characters[i].dy;
    }
    pen_ = {pen_.x + shift + width + moved.x, pen_.y + moved.y};
}

/// The middle of each glyph lies on the path, and the glyph stands across it. What lies beyond
/// the path's ends is not shown.
void TextLayout::addAlong(const TextChunk& chunk, const PathWalk& path, double start) {
    std::vector<LaidGlyph> line = this->line(chunk);
    const double shift = start + anchorShift(chunk, widthOf(line));
    for (LaidGlyph& glyph : line) {
        const auto place = path.at(glyph.origin.x + shift + glyph.advance / 2);
        if (!place)
            continue;
        const double turn = place->angle * std::numbers::pi / 180;
        const double back = -glyph.advance / 2;
        const Point offset{back * std::cos(turn) - glyph.origin.y * std::sin(turn),
                           back * std::sin(turn) + glyph.origin.y * std::cos(turn)};
        glyph.origin = {place->point.x + offset.x, place->point.y + offset.y};
        glyph.rotation += place->angle;
        glyph.isPlain = false;
        glyphs_.push_back(glyph);
    }
}

/// The glyphs of a chunk from 0 on, its own moves applied.
std::vector<LaidGlyph> TextLayout::line(const TextChunk& chunk) {
    std::vector<LaidGlyph> line;
    double x = 0;
    double dx = 0;
    double dy = 0;
    for (const TextSegment& segment : chunk.segments) {
        const std::size_t begin = line.size();
        shapeSegment(segment, line);
        dx += content_.characters[segment.begin].dx;
        dy += content_.characters[segment.begin].dy;
        for (std::size_t i = begin; i < line.size(); ++i) {
            line[i].origin.x += x + dx;
            line[i].origin.y += dy;
            line[i].baseline += dy;
            x += line[i].advance;
        }
    }
    return line;
}

void TextLayout::shapeSegment(const TextSegment& segment, std::vector<LaidGlyph>& line) {
    const TextCharacter& first = content_.characters[segment.begin];
    const TextSpan& span = content_.spans[first.span];
    const double size = span.style.fontSize;
    const double drop =
        baselineDrop(span.style.text.baseline, segment.font->program->getMetrics(), size) -
        span.baselineShift;
    std::vector<char32_t> text;
    text.reserve(segment.end - segment.begin);
    for (std::size_t i = segment.begin; i < segment.end; ++i)
        text.push_back(content_.characters[i].code);
    const ShapingRun run{0, text.size(), segment.level % 2 != 0, span.style.text.letterSpacing == 0,
                         span.style.text.isKerned};
    for (const ShapedGlyph& shaped : shaper_.shape(*segment.font->program, text, run)) {
        LaidGlyph glyph;
        glyph.font = segment.font;
        glyph.span = first.span;
        glyph.character = segment.begin + shaped.character;
        glyph.countCharacters = shaped.countCharacters;
        glyph.id = shaped.id;
        glyph.origin = {shaped.x * size, drop - shaped.y * size};
        glyph.rotation = first.rotation;
        glyph.advance = shaped.advance * size + spacingBehind(segment, shaped);
        glyph.baseline = drop;
        glyph.isPlain = shaped.isPlain;
        line.push_back(glyph);
    }
}

double TextLayout::spacingBehind(const TextSegment& segment, const ShapedGlyph& glyph) const {
    const TextCharacter& character = content_.characters[segment.begin + glyph.character];
    const TextStyle& style = content_.spans[character.span].style.text;
    if (!glyph.endsCluster)
        return 0;
    return style.letterSpacing + (character.code == U' ' ? style.wordSpacing : 0);
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
