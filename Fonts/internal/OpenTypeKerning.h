#pragma once

#include "Fonts/internal/HarfBuzz.h"
#include "Fonts/internal/PairCache.h"

#include <cstdint>
#include <mutex>
#include <vector>

namespace Fonts {

/// Kerning of glyph pairs, from 'GPOS' and 'kern' alike: each pair is shaped as a text of its own
/// with all other layout switched off. Safe to use from several threads.
class OpenTypeKerning {
public:
    /// `font` must outlive the object.
    explicit OpenTypeKerning(hb_font_t* font);

    /// 1/1000 em, positive = closer; 0 for a pair that is not kerned.
    [[nodiscard]] int find(std::uint32_t first, std::uint32_t second) const;

private:
    [[nodiscard]] int measure(std::uint32_t first, std::uint32_t second) const;
    /// The script of the first of the two that has one, Latin if neither has.
    [[nodiscard]] hb_script_t scriptOf(std::uint32_t first, std::uint32_t second) const;
    [[nodiscard]] std::vector<hb_script_t> collectScripts() const;

    hb_font_t* font_;
    std::uint32_t glyphCount_;
    HarfBuzzPtr<hb_font_t> pairFont_;  ///< whose characters are glyph numbers
    mutable PairCache cache_;
    mutable std::once_flag scriptsOnce_;
    mutable std::vector<hb_script_t> scripts_;  ///< by glyph
};

}  // namespace Fonts
