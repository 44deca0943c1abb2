#include "Fonts/FontProgram.h"

#include "Core/Unicode.h"
#include "Fonts/GlyphSink.h"

namespace Fonts {

GlyphSink::~GlyphSink() = default;

FontProgram::~FontProgram() = default;

void FontProgram::decomposeGlyph(GlyphId, GlyphSink&) const {}

std::optional<FontFile> FontProgram::getFile() const {
    return std::nullopt;
}

bool FontProgram::covers(char32_t character) const {
    const FontScript run{Core::Unicode::toUtf16(character), 0};
    const std::vector<GlyphId> glyphs = mapGlyphs(run);
    return !glyphs.empty() && glyphs.front() != kMissingGlyph;
}

}  // namespace Fonts
