#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/Export.h"
#include "Fonts/FontProgram.h"

#include <cstdint>
#include <vector>

namespace Fonts {

/// Finds the program for the description of a font. One for the process; safe to use from several
/// threads. Programs are shared: as long as somebody holds the program of a face, its file is not
/// opened again.
///
/// A description is answered by the first of these that fits:
/// 1. a program that the host registered for the family in this style (bold or not, slanted or
///    not);
/// 2. the 14 standard fonts, by PostScript name or by family (Courier, Helvetica, Times, Symbol,
///    ZapfDingbats) with weight and slant;
/// 3. an installed font of exactly this family, TrueType or Type 1, nearest in style;
/// 4. any other registered program of the family;
/// 5. the standard family that the name suggests: Courier for "monospace", Helvetica for "Arial"
///    or "sans-serif", Times for "Times New Roman" or "serif".
class FONTS_API FontManager {
public:
    using Program = Core::SmartPtr<FontProgram>;

    /// What may be asked of an installed font. With it fonts of every kind are found, also those
    /// that not every document can carry: OpenType fonts with CFF outlines, variable and colour
    /// fonts.
    struct Wish {
        Core::SmartPtr<Drawing::Font> font;
        int stretch = 100;                ///< per cent of the usual width
        std::vector<FontAxis> axes = {};  ///< of a variable font, beside weight, width and slant
    };

    /// Raises `FontNotFoundException` if nothing fits.
    static Program getFont(const Core::SmartPtr<Drawing::Font>& font);
    /// Null if nothing fits.
    static Program findFont(const Core::SmartPtr<Drawing::Font>& font);
    /// The same without the last step: null if nobody knows the family.
    static Program findFamily(const Core::SmartPtr<Drawing::Font>& font);
    /// A font with a glyph for `character`: the one of the description if it has it, else a
    /// registered one, else the installed one nearest to the description, else Symbol or
    /// ZapfDingbats. Null if there is none.
    static Program findFontFor(char32_t character, const Core::SmartPtr<Drawing::Font>& font);
    /// The installed font that the system prefers for the description, whatever its family, as for
    /// the families "sans-serif", "serif" and "monospace". Null if there is none.
    static Program findInstalledFont(const Core::SmartPtr<Drawing::Font>& font);

    /// The installed font of exactly this family that is nearest to the wish. Null if there is
    /// none.
    static Program findInstalledFamily(const Wish& wish);
    /// The installed font with a glyph for `character` that is nearest to the wish, colour fonts
    /// first if it `isPicture`, as emoji are. Null if there is none.
    static Program findInstalledFontFor(char32_t character, const Wish& wish, bool isPicture);

    /// Lets `program` answer for the family in this style from now on, in place of one registered
    /// for the same family, weight and slant before. It is held until then, or until
    /// `unregisterFont`.
    static void registerFont(const Core::String& family, int weight, Drawing::FontSlant slant,
                             const Program& program);
    /// The same with a font file, which is opened at once and may raise `FontException`.
    static void registerFontFile(const Core::String& family, int weight, Drawing::FontSlant slant,
                                 const Core::String& fileName, std::uint32_t faceIndex = 0);

    /// Takes back everything that `program` was registered for: it goes with the last document or
    /// caller that holds it.
    static void unregisterFont(const Program& program);

    /// Opens a TrueType, OpenType, WOFF, WOFF2 or Type 1 file. Raises `FontException` if it cannot
    /// be used.
    static Program openFontFile(const Core::String& fileName, std::uint32_t faceIndex = 0);
    /// The same from memory, which is copied. `name` tells in messages what the data is.
    static Program openFontData(const Core::ByteArray& data, const Core::String& name,
                                std::uint32_t faceIndex = 0);
    /// The same, and a variable font is set to what `wish` asks for.
    static Program openFontData(const Core::ByteArray& data, const Core::String& name,
                                const Wish& wish);
};

}  // namespace Fonts
