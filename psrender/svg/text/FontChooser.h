#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"
#include "psrender/svg/css/TextStyle.h"

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

/// A font program and the description under which it is found.
struct ChosenFont {
    Core::String family;
    int weight = Drawing::Font::kRegular;
    Drawing::FontSlant slant = Drawing::FontSlant::upright;
    Core::SmartPtr<Fonts::FontProgram> program;

    [[nodiscard]] Core::SmartPtr<Drawing::Font> ofSize(double size) const {
        return Core::makeObject<Drawing::Font>(family, static_cast<float>(size), weight, slant);
    }
};

/// Finds the font for each character of a text: the first of the families asked for that has it,
/// else any font that has. For a generic family, and where nobody knows any of the families, it is
/// the one that the system prefers, so that a page looks as on a screen, and a standard font where
/// none is installed. Families that the standard fonts were made to the measure of are those.
class FontChooser {
public:
    /// Families that are not there, and those that it has no time to look for, are counted in
    /// `warnings`.
    explicit FontChooser(Warnings& warnings) : warnings_(warnings) {}

    /// Never null and valid as long as the chooser. A character that no font has gets the first
    /// font asked for.
    const ChosenFont* choose(const TextStyle& style, char32_t character);

private:
    struct FontList {
        std::vector<std::unique_ptr<const ChosenFont>> fonts;
        std::unordered_map<char32_t, const ChosenFont*> known;
    };
    using StyleKey = std::tuple<std::string, int, Drawing::FontSlant>;

    FontList& listFor(const TextStyle& style);
    /// Whether there is time for one more family.
    bool maySearch();
    static void addKnown(std::string_view family, const TextStyle& style, FontList& list);
    static void addPreferred(std::string_view family, const TextStyle& style, FontList& list);
    /// Tells that none of the families asked for is there.
    void tellOfReplacement(std::string_view family, const FontList& list);
    static const ChosenFont* search(FontList& list, char32_t character);
    static std::unique_ptr<const ChosenFont> substitute(const ChosenFont& wanted,
                                                        char32_t character);

    Warnings& warnings_;
    std::size_t searches_ = 0;
    std::size_t replaced_ = 0;
    std::map<StyleKey, FontList> lists_;
};

}  // namespace psrender::svg
