#include "Fonts/FontProgram.h"

#include "Fonts/GlyphSink.h"
#include "Fonts/internal/Characters.h"

namespace Fonts {

GlyphSink::~GlyphSink() = default;

FontProgram::~FontProgram() = default;

void FontProgram::decomposeGlyph(GlyphId, GlyphSink&) const {}

std::optional<FontFile> FontProgram::getFile() const {
    return std::nullopt;
}

bool FontProgram::covers(char32_t character) const {
    const FontScript run{Characters::toString(character), 0};
    const std::vector<GlyphId> glyphs = mapGlyphs(run);
    return !glyphs.empty() && glyphs.front() != kMissingGlyph;
}

}  // namespace Fonts
