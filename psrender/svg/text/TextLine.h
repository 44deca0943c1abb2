#pragma once

#include "psrender/svg/text/Paragraph.h"
#include "psrender/svg/text/Shaper.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace psrender::svg {

/// A glyph of a cell, in user units of a line that runs to the right; y downwards.
struct LineGlyph {
    std::uint32_t id = 0;
    std::size_t character = 0;        ///< counted in the whole text
    std::size_t countCharacters = 1;  ///< that it shows; 0 if a glyph before it shows them
    double x = 0;                     ///< from the start of its cell
    double y = 0;                     ///< from the baseline
    bool isPlain = false;             ///< as in `ShapedGlyph`
};

/// What is placed as one: a letter with its marks, or a ligature.
struct LineCell {
    const ChosenFont* font = nullptr;
    std::size_t span = 0;
    std::size_t character = 0;  ///< the first one, which says what moves the cell
    double size = 0;            ///< of the font
    double drop = 0;            ///< how far below the line its baseline lies
    double centre = 0;          ///< how far below the line the middle of upright glyphs lies
    double advance = 0;
    double spacing = 0;  ///< behind the cell
    double stretch = 1;  ///< of the glyphs along the line
    bool isUpright = false;
    bool isFixed = false;  ///< the space behind it is as an inner element wants it
    std::vector<LineGlyph> glyphs;
};

/// The cells of a chunk, from left to right or from the top downwards.
struct TextLine {
    std::vector<LineCell> cells;

    /// Without the space behind the last cell.
    [[nodiscard]] double width() const;
};

/// What `textLength` asks of some of the characters.
struct WantedLength {
    double length = 0;
    bool stretchesGlyphs = false;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Spreads what is missing over the cells, or widens them.
void fit(TextLine& line, const WantedLength& wanted);

/// Makes lines of the text of one element.
class LineMaker {
public:
    /// All must outlive it.
    LineMaker(const TextContent& content, const Measures& measures, Shaper& shaper)
        : content_(content), measures_(measures), shaper_(shaper) {}

    [[nodiscard]] TextLine make(const TextChunk& chunk);

private:
    void add(const TextSegment& segment, TextLine& line);
    [[nodiscard]] LineCell emptyCell(const TextSegment& segment, double scale) const;
    [[nodiscard]] std::vector<char32_t> textOf(const TextSegment& segment, bool inCapitals) const;
    [[nodiscard]] bool isMovedApart(const TextSegment& segment) const;
    [[nodiscard]] double spacingBehind(std::size_t character) const;

    const TextContent& content_;
    const Measures& measures_;
    Shaper& shaper_;
};

}  // namespace psrender::svg
