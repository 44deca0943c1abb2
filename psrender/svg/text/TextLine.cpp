#include "psrender/svg/text/TextLine.h"

#include "psrender/svg/text/UpperCase.h"

#include <algorithm>

namespace psrender::svg {

namespace {

constexpr double kEm = 1000;
/// Of small capitals that are large ones set smaller.
constexpr double kSmallCapital = 0.7;

/// How far below the text's position the baseline lies, in user units.
double baselineDrop(Baseline baseline, const Fonts::FontMetrics& metrics, double size) {
    const auto scaled = [&](double value) { return value * size / kEm; };
    switch (baseline) {
        case Baseline::middle:
            return scaled(metrics.xHeight / 2.0);
        case Baseline::central:
            return scaled((double{metrics.ascent} + metrics.descent) / 2);
        case Baseline::mathematical:
            return scaled(metrics.ascent / 2.0);
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

/// A mark goes with the letter before it; from right to left, it comes first.
bool joins(const LineCell& cell, double advance, bool isRightToLeft) {
    return isRightToLeft ? cell.advance == 0 : advance == 0;
}

}  // namespace

double TextLine::width() const {
    double width = 0;
    for (const LineCell& cell : cells)
        width += cell.advance + cell.spacing;
    return cells.empty() ? 0 : width - cells.back().spacing;
}

void fit(TextLine& line, const WantedLength& wanted) {
    std::vector<LineCell*> cells;
    double width = 0;
    for (LineCell& cell : line.cells)
        if (cell.character >= wanted.begin && cell.character < wanted.end) {
            cells.push_back(&cell);
            width += cell.advance + cell.spacing;
        }
    if (cells.empty())
        return;
    width -= cells.back()->spacing;
    if (wanted.stretchesGlyphs) {
        const double factor = width > 0 ? wanted.length / width : 1;
        for (LineCell* cell : cells) {
            cell->advance *= factor;
            cell->spacing *= factor;
            cell->stretch *= factor;
        }
        return;
    }
    cells.pop_back();
    const auto gaps = std::ranges::count(cells, false, &LineCell::isFixed);
    for (LineCell* cell : cells) {
        if (!cell->isFixed)
            cell->spacing += (wanted.length - width) / static_cast<double>(gaps);
        cell->isFixed = true;
    }
}

TextLine LineMaker::make(const TextChunk& chunk) {
    TextLine line;
    for (const TextSegment& segment : chunk.segments)
        add(segment, line);
    return line;
}

void LineMaker::add(const TextSegment& segment, TextLine& line) {
    const TextStyle& style = content_.spans[content_.characters[segment.begin].span].style.text;
    const Fonts::FontProgram& program = *segment.font->program;
    const bool hasCapitals = segment.isSmallCapital && shaper_.hasSmallCapitals(program);
    const bool isReduced = segment.isSmallCapital && !hasCapitals;
    const std::vector<char32_t> text = textOf(segment, isReduced);
    ShapingRun run;
    run.end = text.size();
    run.isRightToLeft = segment.level % 2 != 0;
    run.isUpright = segment.isUpright;
    run.hasLigatures =
        style.hasLigatures && style.letterSpacing.value == 0 && !isMovedApart(segment);
    run.isKerned = style.isKerned;
    run.hasSmallCapitals = hasCapitals;
    run.features = style.features;
    const LineCell empty = emptyCell(segment, isReduced ? kSmallCapital : 1);
    const std::size_t first = line.cells.size();
    for (const ShapedGlyph& shaped : shaper_.shape(program, text, run)) {
        const std::size_t character = segment.begin + shaped.character;
        if (line.cells.size() == first ||
            (line.cells.back().character != character &&
             !joins(line.cells.back(), shaped.advance, run.isRightToLeft)))
            line.cells.push_back(empty);
        LineCell& cell = line.cells.back();
        cell.character = cell.glyphs.empty() ? character : std::min(cell.character, character);
        cell.glyphs.push_back({shaped.id, character, shaped.countCharacters,
                               cell.advance + shaped.x * empty.size, -shaped.y * empty.size,
                               shaped.isPlain && !isReduced});
        cell.advance += shaped.advance * empty.size;
        cell.spacing = spacingBehind(cell.character);
    }
}

LineCell LineMaker::emptyCell(const TextSegment& segment, double scale) const {
    const TextCharacter& first = content_.characters[segment.begin];
    const TextSpan& span = content_.spans[first.span];
    const Fonts::FontMetrics& metrics = segment.font->program->getMetrics();
    LineCell cell;
    cell.font = segment.font;
    cell.span = first.span;
    cell.size = span.style.fontSize * scale;
    cell.isUpright = segment.isUpright;
    const Baseline usual = content_.isVertical ? Baseline::middle : Baseline::alphabetic;
    const Baseline baseline = span.baseline == Baseline::alphabetic ? usual : span.baseline;
    cell.drop = baselineDrop(baseline, metrics, span.style.fontSize) - span.baselineShift;
    cell.centre = -span.baselineShift;
    return cell;
}

std::vector<char32_t> LineMaker::textOf(const TextSegment& segment, bool inCapitals) const {
    std::vector<char32_t> text;
    text.reserve(segment.end - segment.begin);
    for (std::size_t i = segment.begin; i < segment.end; ++i) {
        const char32_t code = content_.characters[i].code;
        text.push_back(inCapitals ? upperCase(code) : code);
    }
    return text;
}

/// Whether letters within are set apart, so that they are not to be joined.
bool LineMaker::isMovedApart(const TextSegment& segment) const {
    const auto first = content_.characters.begin() + static_cast<std::ptrdiff_t>(segment.begin);
    const auto end = content_.characters.begin() + static_cast<std::ptrdiff_t>(segment.end);
    return std::any_of(first + 1, end, [&](const TextCharacter& character) {
        return character.dx != 0 || character.dy != 0 || character.rotation != first->rotation;
    });
}

double LineMaker::spacingBehind(std::size_t character) const {
    const TextCharacter& at = content_.characters[character];
    const TextStyle& style = content_.spans[at.span].style.text;
    const double words = at.code == U' ' || at.code == U'\u00A0'
                             ? style.wordSpacing.resolve(measures_, Axis::other)
                             : 0;
    return style.letterSpacing.resolve(measures_, Axis::other) + words;
}

}  // namespace psrender::svg
