#include "Fonts/TTFFont.h"

#include "Fonts/internal/CompactTrueType.h"
#include "Fonts/internal/EmbeddingRights.h"
#include "Fonts/internal/OpenTypeFace.h"
#include "Fonts/internal/TrueTypeSubset.h"

#include <numeric>
#include <utility>

namespace Fonts {

TTFFont::TTFFont(std::unique_ptr<const OpenTypeFace> face) : OpenTypeFont(std::move(face)) {}

TTFFont::~TTFFont() = default;

Core::ByteArray TTFFont::subset(const std::vector<std::int32_t>& glyphs, int flags) const {
    std::vector<std::int32_t> kept = glyphs;
    if (!EmbeddingRights::allowSubsetting(face().licenceBits)) {
        kept.resize(face().glyphCount);
        std::iota(kept.begin(), kept.end(), 0);
    }
    return subsetTrueType(face().face.get(), kept, (flags & kDropHints) == 0, face().bytes.name());
}

CompactSubset TTFFont::compactSubset(const std::vector<GlyphId>& glyphs, int flags) const {
    const TrueTypeChoice choice{(flags & kDropHints) == 0,
                                !EmbeddingRights::allowSubsetting(face().licenceBits)};
    return compactTrueType(face().face.get(), glyphs, choice, face().bytes.name());
}

}  // namespace Fonts
