#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"
#include "PS/Export.h"

#include <cstdint>

namespace Drawing::PS {

/// A font of a document: collects the glyphs that the pages show in it, gives each the code under
/// which they show it, and defines the font in the prolog at the end.
///
/// A resource gets a stream and a font program and knows nothing of documents. What it shows after
/// `writeResource` is not in the definition.
class PS_API PSFontResource : public Core::Object {
public:
    /// What `addGlyphs` answers.
    enum AddResult : int { nothingNew = 0, added = 1, doesNotFit = 2 };
    /// What `getKind` answers.
    enum Kind : int { trueType = 1, type1 = 2, standard = 3 };

    ~PSFontResource() override;

    /// Gives codes to the glyphs of `text` that have none, all of them or, if they do not all fit,
    /// none.
    virtual int addGlyphs(const Core::String& text) = 0;
    /// Writes the font's definition.
    virtual void writeResource(const Core::SmartPtr<Core::IO::Stream>& stream) = 0;
    /// Writes the operand that shows `text`: a string, or an array of strings and moves. `spacing`
    /// in user units.
    virtual void writeText(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& text,
                           float fontSize, float spacing) = 0;
    [[nodiscard]] virtual int getKind() const = 0;
    /// The PostScript name of the font program, unless a kind says otherwise.
    [[nodiscard]] virtual Core::String getName() const;
    /// Gives a glyph the next free code; one that has a code keeps it.
    virtual void assignCode(std::int32_t glyph) = 0;

    /// Unique in the process.
    [[nodiscard]] std::uint32_t getNumber() const { return number; }
    /// "F{number}", the name that pages select.
    [[nodiscard]] Core::String getResourceName() const;
    [[nodiscard]] Core::SmartPtr<Fonts::FontProgram> getFontProgram() const { return fontProgram; }

protected:
    PSFontResource(const Font& font, Core::SmartPtr<Fonts::FontProgram> program,
                   Core::String family, bool kernText);

    Core::SmartPtr<Fonts::FontProgram> fontProgram;
    std::uint32_t number;
    Core::String familyName;
    Core::String resourceKey;
    bool kerning;
};

}  // namespace Drawing::PS
