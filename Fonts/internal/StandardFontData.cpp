#include "Fonts/internal/StandardFontData.h"

#include <algorithm>
#include <array>

namespace Fonts {

namespace {

#include "Fonts/data/StandardGlyphs.inc"
#include "Fonts/data/StandardKerning.inc"
#include "Fonts/data/StandardWidths.inc"
// The faces refer to all of the above.
#include "Fonts/data/StandardFaces.inc"

}  // namespace

std::optional<std::uint32_t> CharacterSet::find(char32_t character) const {
    const auto found = std::ranges::lower_bound(characters, character);
    if (found == characters.end() || *found != character)
        return std::nullopt;
    return glyphs[static_cast<std::size_t>(found - characters.begin())];
}

std::optional<int> KerningTable::find(std::size_t first, std::size_t second) const {
    const std::size_t row = rows[first];
    const std::size_t begin = starts[row];
    const auto inRow = seconds.subspan(begin, starts[row + 1] - begin);
    const auto found = std::ranges::lower_bound(inRow, second);
    if (found == inRow.end() || *found != second)
        return std::nullopt;
    return kerning[begin + static_cast<std::size_t>(found - inRow.begin())];
}

std::span<const StandardFontData> standardFonts() {
    return kFaces;
}

}  // namespace Fonts
