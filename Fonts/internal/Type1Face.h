#pragma once

#include "Fonts/FontMetrics.h"
#include "Fonts/FontProgram.h"
#include "Fonts/internal/FontBytes.h"
#include "Fonts/internal/FreeType.h"
#include "Fonts/internal/OutlineRecorder.h"
#include "Fonts/internal/PairCache.h"

#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace Fonts {

/// The AFM or PFM file of the same name beside a font file, which tells its kerning; empty if there
/// is none.
[[nodiscard]] std::string figuresBeside(const std::string& fontFile);

/// A Type 1 program, opened. What text needs is read once when it opens; kerning and outlines are
/// asked of FreeType under a lock. Safe to use from several threads.
class Type1Face {
public:
    struct Glyph {
        Core::String name;
        float advance = 0;
    };

    /// Also reads the kerning that `figuresBeside` finds. Raises `FontException` for what FreeType
    /// does not take for a Type 1 program.
    explicit Type1Face(FontBytes bytes);

    [[nodiscard]] const FontMetrics& metrics() const { return metrics_; }
    [[nodiscard]] const std::vector<Glyph>& glyphs() const { return glyphs_; }
    [[nodiscard]] FontProgram::GlyphId glyphOf(char32_t character) const;
    [[nodiscard]] std::uint32_t licenceBits() const { return licenceBits_; }
    /// 1/1000 em, positive = closer, 0 for a pair that is not kerned. Both must be glyphs.
    [[nodiscard]] int kerning(std::uint32_t first, std::uint32_t second) const;
    [[nodiscard]] OutlineRecorder outline(std::uint32_t glyph) const;

private:
    void attachKerning();
    void readGlyphs();
    void readCharacters();
    [[nodiscard]] FontMetrics readMetrics() const;
    [[nodiscard]] float topOf(char32_t character) const;
    [[nodiscard]] float toThousandths(FT_Pos units) const;
    [[nodiscard]] int readKerning(std::uint32_t first, std::uint32_t second) const;

    FontBytes bytes_;
    FreeTypePtr<FT_Library> library_;  ///< of its own, so that faces need no common lock
    FreeTypePtr<FT_Face> face_;
    std::uint32_t licenceBits_;
    FontMetrics metrics_;
    std::vector<Glyph> glyphs_;
    std::unordered_map<char32_t, FontProgram::GlyphId> characters_;
    bool hasKerning_ = false;
    mutable std::mutex faceLock_;  ///< FreeType's face serves one thread at a time
    mutable PairCache kerningCache_;
};

}  // namespace Fonts
