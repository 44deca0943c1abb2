#pragma once

#include "psrender/svg/text/Paragraph.h"
#include "psrender/svg/text/PathWalk.h"
#include "psrender/svg/text/Shaper.h"

#include <optional>
#include <vector>

namespace psrender::svg {

/// A glyph in its place, in the coordinates of the text element.
struct LaidGlyph {
    const ChosenFont* font = nullptr;
    std::size_t span = 0;
    std::size_t character = 0;
    std::size_t countCharacters = 1;  ///< that it shows; 0 if a glyph before it shows them
    std::uint32_t id = 0;
    scene::Point origin;   ///< of the glyph, on its baseline
    double rotation = 0;   ///< degrees, clockwise
    double advance = 0;    ///< with all spacing behind it
    double stretch = 1;    ///< of the glyph along its baseline
    double baseline = 0;   ///< y of the line that it stands on, without its own offset
    bool isPlain = false;  ///< as in `ShapedGlyph`
};

/// What `textLength` asks of a chunk.
struct WantedLength {
    double length = 0;
    bool stretchesGlyphs = false;
};

/// Puts the glyphs of one chunk after the other, as spacing, anchors and positions ask.
class TextLayout {
public:
    /// All must outlive the layout.
    TextLayout(const TextContent& content, Shaper& shaper) : content_(content), shaper_(shaper) {}

    /// Lays `chunk` out from where the one before it ended, unless it says where it begins.
    void add(const TextChunk& chunk, const std::optional<WantedLength>& wanted);
    /// Lays `chunk` out along `path`, from `start` on it.
    void addAlong(const TextChunk& chunk, const PathWalk& path, double start);

    [[nodiscard]] const std::vector<LaidGlyph>& glyphs() const { return glyphs_; }

private:
    [[nodiscard]] std::vector<LaidGlyph> line(const TextChunk& chunk);
    void shapeSegment(const TextSegment& segment, std::vector<LaidGlyph>& line);
    [[nodiscard]] double spacingBehind(const TextSegment& segment, const ShapedGlyph& glyph) const;
    [[nodiscard]] double anchorShift(const TextChunk& chunk, double width) const;

    const TextContent& content_;
    Shaper& shaper_;
    std::vector<LaidGlyph> glyphs_;
    scene::Point pen_;
};

}  // namespace psrender::svg
