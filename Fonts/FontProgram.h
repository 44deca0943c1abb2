#pragma once

#include "Core/ByteArray.h"
#include "Core/Object.h"
#include "Core/String.h"
#include "Fonts/Export.h"
#include "Fonts/FontFile.h"
#include "Fonts/FontMetrics.h"
#include "Fonts/FontScript.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Fonts {

class GlyphSink;

/// The kinds of font programs; their numbers are part of the interface.
enum class FontKind : std::int32_t {
    type1 = 0,        ///< Type 1, or a standard font that comes without a program
    trueType = 1,     ///< TrueType outlines
    openTypeCff = 2,  ///< OpenType with CFF outlines, or others without a program of their own
};

/// The data of one font: its names, its glyphs, and the program that an interpreter can be given.
/// Shared by everybody who uses the font and safe to use from several threads.
class FONTS_API FontProgram : public Core::Object {
public:
    using GlyphId = std::uint32_t;
    /// Stands for a character that the font has no glyph for.
    static constexpr GlyphId kMissingGlyph = 0xFFFFFFFF;

    ~FontProgram() override;

    [[nodiscard]] virtual const FontMetrics& getMetrics() const = 0;
    [[nodiscard]] virtual FontKind getKind() const = 0;
    /// Whether there is program data, and the font's licence bits let a document carry it.
    [[nodiscard]] virtual bool isEmbeddable() const = 0;
    /// The program: a TrueType file, or a Type 1 program in segments (byte 128, type, length,
    /// data). Empty for a font without one.
    [[nodiscard]] virtual Core::ByteArray getProgramData() const = 0;

    /// One glyph for each character, in text order; `kMissingGlyph` where there is none. A
    /// surrogate pair is one character.
    [[nodiscard]] virtual std::vector<GlyphId> mapGlyphs(const FontScript& run) const = 0;
    /// The PostScript name; ".notdef" for a glyph that the font does not have.
    [[nodiscard]] virtual Core::String getGlyphName(GlyphId glyph) const = 0;
    /// By how much `second` moves towards `first` in 1/1000 em, positive = closer; nothing when
    /// the font does not kern the pair, or `secondIsMark`: marks stay over their base.
    [[nodiscard]] virtual std::optional<int> getKerning(GlyphId first, GlyphId second,
                                                        bool secondIsMark) const = 0;
    /// Advance width in 1/1000 em.
    [[nodiscard]] virtual float getAdvance(GlyphId glyph) const = 0;

    /// Passes the outline of `glyph` to `sink`; nothing for a blank or missing glyph, and nothing
    /// for a font that knows figures but no outlines.
    virtual void decomposeGlyph(GlyphId glyph, GlyphSink& sink) const;
    /// The TrueType or OpenType file, if the program comes from one.
    [[nodiscard]] virtual std::optional<FontFile> getFile() const;
    /// Whether there is a glyph for `character`.
    [[nodiscard]] bool covers(char32_t character) const;
};

}  // namespace Fonts
