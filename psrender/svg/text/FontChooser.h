#pragma once

#include "psrender/svg/css/TextStyle.h"
#include "psrender/svg/text/ChosenFont.h"
#include "psrender/svg/text/FontFaces.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Finds the font for each character of a text: the first of the families asked for that has it,
/// else any font that has; emoji are pictures where such a font is installed. A family that the
/// drawing brings along comes before an installed one. For a generic family, and where nobody knows
/// any of the families, it is the one that the system prefers, so that a page looks as on a screen,
/// and a standard font where none is installed. Families that the standard fonts were made to the
/// measure of are those.
class FontChooser {
public:
    /// Families that are not there, and those that it has no time to look for, are counted in
    /// `warnings`. Both must outlive it.
    FontChooser(FontFaces& faces, Warnings& warnings) : faces_(faces), warnings_(warnings) {}

    /// Never null and valid as long as the chooser. A character that no font has gets the first
    /// font asked for.
    const ChosenFont* choose(const TextStyle& style, char32_t character);

private:
    struct FontList {
        std::vector<std::unique_ptr<const ChosenFont>> fonts;
        std::unordered_map<char32_t, const ChosenFont*> known;
    };
    using StyleKey = std::tuple<std::string, int, Drawing::FontSlant, int, std::string>;

    FontList& listFor(const TextStyle& style);
    /// Whether there is time for one more family.
    bool maySearch();
    void addKnown(std::string_view family, const TextStyle& style, FontList& list);
    static void addPreferred(std::string_view family, const TextStyle& style, FontList& list);
    /// Tells that none of the families asked for is there, and marks what stands in for it.
    void tellOfReplacement(std::string_view family, FontList& list);
    static const ChosenFont* search(FontList& list, const TextStyle& style, char32_t character);
    static std::unique_ptr<const ChosenFont> substitute(const ChosenFont& wanted,
                                                        const TextStyle& style, char32_t character);

    FontFaces& faces_;
    Warnings& warnings_;
    std::size_t searches_ = 0;
    std::size_t replaced_ = 0;
    std::map<StyleKey, FontList> lists_;
};

}  // namespace psrender::svg
