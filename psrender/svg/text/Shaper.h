#pragma once

#include "Fonts/FontProgram.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace psrender::svg {

/// A glyph of a shaped text, in ems. The line runs to the right for upright glyphs, too: they are
/// to be turned to the left, and the line as a whole to the right.
struct ShapedGlyph {
    std::uint32_t id = 0;
    std::size_t character = 0;  ///< the first one that it shows, counted in the whole text
    double advance = 0;
    double x = 0;  ///< from the pen, to the right
    double y = 0;  ///< from the baseline, upwards
    /// Whether the glyph is the font's plain one for just this character, at the pen.
    bool isPlain = false;
    bool endsCluster = true;  ///< whether the next glyph shows other characters
    /// How many characters it shows; 0 for the later ones of several glyphs that show the same.
    std::size_t countCharacters = 1;
};

/// A piece of a text in one font, script and direction.
struct ShapingRun {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool isRightToLeft = false;
    bool isUpright = false;  ///< one glyph below the other
    bool hasLigatures = true;
    bool isKerned = true;
    bool hasSmallCapitals = false;
    std::string_view features;  ///< of the font, as a style sheet lists them
};

/// Chooses and places glyphs by the rules of scripts and fonts.
class Shaper {
public:
    Shaper();
    ~Shaper();
    Shaper(const Shaper&) = delete;
    Shaper& operator=(const Shaper&) = delete;

    /// The glyphs of `run` of `text` from left to right. `program` must outlive the shaper.
    std::vector<ShapedGlyph> shape(const Fonts::FontProgram& program,
                                   std::span<const char32_t> text, const ShapingRun& run);
    /// Whether the font has small capitals of its own.
    [[nodiscard]] bool hasSmallCapitals(const Fonts::FontProgram& program);

private:
    class OpenFont;

    const OpenFont* open(const Fonts::FontProgram& program);

    std::unordered_map<const Fonts::FontProgram*, std::unique_ptr<const OpenFont>> fonts_;
};

}  // namespace psrender::svg
