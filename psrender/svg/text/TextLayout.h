#pragma once

#include "psrender/scene/Geometry.h"
#include "psrender/svg/text/PathWalk.h"
#include "psrender/svg/text/TextLine.h"

#include <vector>

namespace psrender::svg {

/// A glyph in its place.
struct LaidGlyph {
    const ChosenFont* font = nullptr;
    std::size_t span = 0;
    std::size_t character = 0;
    std::size_t countCharacters = 1;  ///< that it shows; 0 if a glyph before it shows them
    std::uint32_t id = 0;
    double size = 0;       ///< of the font, in the glyph's own space
    double spacing = 0;    ///< behind it, if a back end lays it out
    scene::Affine map;     ///< from its own space, where it stands at 0, to the text element's
    bool isPlain = false;  ///< as in `ShapedGlyph`
};

/// A cell in its place: its baseline runs from 0 to the right in its own space.
struct LaidCell {
    const ChosenFont* font = nullptr;
    std::size_t span = 0;
    double size = 0;
    double advance = 0;  ///< with all spacing behind it
    double centre = 0;   ///< where the middle of upright glyphs lies, below the baseline
    bool isUpright = false;
    scene::Affine map;  ///< to the space of the text element
};

/// Puts the glyphs of one chunk after the other, as spacing, anchors and positions ask.
class TextLayout {
public:
    /// All must outlive the layout.
    TextLayout(const TextContent& content, const Measures& measures, Shaper& shaper)
        : content_(content), measures_(measures), lines_(content, measures, shaper) {}

    /// Lays `chunk` out from where the one before it ended, unless it says where it begins.
    void add(const TextChunk& chunk, const std::vector<WantedLength>& wanted);
    /// Lays `chunk` out along `path`, from `start` on it.
    void addAlong(const TextChunk& chunk, const std::vector<WantedLength>& wanted,
                  const PathWalk& path, double start);

    [[nodiscard]] const std::vector<LaidGlyph>& glyphs() const { return glyphs_; }
    [[nodiscard]] const std::vector<LaidCell>& cells() const { return cells_; }

private:
    [[nodiscard]] TextLine line(const TextChunk& chunk, const std::vector<WantedLength>& wanted);
    [[nodiscard]] double anchorShift(const TextChunk& chunk, double width) const;
    void place(const LineCell& cell, const scene::Affine& onLine, bool staysPlain);

    const TextContent& content_;
    const Measures& measures_;
    LineMaker lines_;
    std::vector<LaidGlyph> glyphs_;
    std::vector<LaidCell> cells_;
    scene::Point pen_;
};

}  // namespace psrender::svg
