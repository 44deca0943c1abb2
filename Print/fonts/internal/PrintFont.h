#pragma once

#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Fonts/FontProgram.h"
#include "Print/fonts/internal/GlyphTable.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Drawing::Print {

struct FontSettings {
    bool embedStandardFonts = false;
    bool keepHints = true;
};

/// One font program as one document holds it: the glyphs in use, their codes, the definitions. A
/// simple font shows at most 255 glyphs, so the glyphs are spread over as many parts as they need.
class PrintFont {
public:
    using GlyphId = Fonts::FontProgram::GlyphId;

    /// Null for a program that a document may not carry (licence) or cannot (no outlines, not
    /// standard): its text is drawn as outlines. Raises `Fonts::FontException` if a standard font
    /// is to be embedded and no font of its design is installed. `number` tells the fonts of the
    /// document apart.
    static std::unique_ptr<PrintFont> make(const Core::SmartPtr<Fonts::FontProgram>& program,
                                           std::uint32_t number, const FontSettings& settings);

    PrintFont(const PrintFont&) = delete;
    PrintFont& operator=(const PrintFont&) = delete;
    virtual ~PrintFont();

    /// The code of `glyph`, which stands for `text`: the characters that a reader of the page
    /// finds; empty for a later part of a cluster. The same ever after. A glyph that the font does
    /// not have is shown as its glyph 0.
    GlyphCode encode(GlyphId glyph, std::u32string_view text) {
        return glyphs_.encode(glyph < glyphCount_ ? glyph : 0, text);
    }
    /// The fast path of plain text: a look-up for what was seen before.
    GlyphCode encode(GlyphId glyph, char32_t character) {
        return glyphs_.encode(glyph < glyphCount_ ? glyph : 0, character);
    }

    [[nodiscard]] std::size_t partCount() const { return glyphs_.parts().size(); }
    /// The name that the pages select the part by: "F{number}_{part}".
    [[nodiscard]] const std::string& partName(std::size_t part) const;
    /// The name of the font that the interpreter must have by itself; empty for an embedded one.
    [[nodiscard]] virtual std::string neededFont() const;
    /// What the interpreter advances behind the glyph, in 1/1000 em.
    [[nodiscard]] virtual float advance(GlyphId glyph) const;
    /// Defines all parts, for the set-up of the document. Nothing for a font without a glyph in
    /// use. Raises `Fonts::FontException` for a program whose tables contradict each other.
    void writeDefinitions(Core::IO::Stream& stream) const;

protected:
    PrintFont(Core::SmartPtr<Fonts::FontProgram> program, std::uint32_t number,
              std::uint32_t glyphCount);

    [[nodiscard]] const Fonts::FontProgram& program() const { return *program_; }
    [[nodiscard]] const std::vector<CodedPart>& parts() const { return glyphs_.parts(); }
    /// What the program calls itself, for /FontName.
    [[nodiscard]] std::string fontName() const;
    /// The name of what the parts share: "F{number}_{suffix}".
    [[nodiscard]] std::string sharedName(const std::string& suffix) const;
    /// All parts; there is at least one.
    virtual void define(Core::IO::Stream& stream) const = 0;

private:
    Core::SmartPtr<Fonts::FontProgram> program_;
    std::uint32_t number_;
    std::uint32_t glyphCount_;
    GlyphTable glyphs_;
    mutable std::deque<std::string> partNames_;  ///< made when asked for; they stay where they are
};

}  // namespace Drawing::Print
