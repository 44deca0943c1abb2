#pragma once

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/Font.h"
#include "Fonts/FontProgram.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace psrender::svg {

/// Characters in a row.
struct CharacterRange {
    char32_t first = 0;
    char32_t last = 0;
};

/// A font program and the description under which it is found.
struct ChosenFont {
    Core::String family;
    int weight = Drawing::Font::kRegular;
    Drawing::FontSlant slant = Drawing::FontSlant::upright;
    Core::SmartPtr<Fonts::FontProgram> program;
    std::vector<CharacterRange> ranges{};        ///< that it is for; empty for all
    std::shared_ptr<const void> registration{};  ///< held as long as the description is to be found
    std::string standsFor{};                     ///< the family that is not there; mostly empty

    [[nodiscard]] Core::SmartPtr<Drawing::Font> ofSize(double size) const {
        return Core::makeObject<Drawing::Font>(family, static_cast<float>(size), weight, slant);
    }
    [[nodiscard]] bool shows(char32_t character) const {
        const auto holds = [character](const CharacterRange& range) {
            return character >= range.first && character <= range.last;
        };
        return (ranges.empty() || std::ranges::any_of(ranges, holds)) && program->covers(character);
    }
};

}  // namespace psrender::svg
