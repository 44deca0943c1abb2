#include "Fonts/OpenTypeFont.h"

#include "Fonts/internal/Characters.h"
#include "Fonts/internal/EmbeddingRights.h"
#include "Fonts/internal/OpenTypeColors.h"
#include "Fonts/internal/OpenTypeFace.h"
#include "Fonts/internal/OpenTypeOutline.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntBuilder.h"

#include <array>
#include <string>
#include <utility>

namespace Fonts {

OpenTypeFont::OpenTypeFont(std::unique_ptr<const OpenTypeFace> face) : face_(std::move(face)) {}

OpenTypeFont::~OpenTypeFont() = default;

const FontMetrics& OpenTypeFont::getMetrics() const {
    return face_->metrics;
}

bool OpenTypeFont::isEmbeddable() const {
    return EmbeddingRights::allowEmbedding(face_->licenceBits);
}

Core::ByteArray OpenTypeFont::getProgramData() const {
    const auto bytes = face_->bytes.span();
    if (hb_face_count(face_->bytes.blob()) > 1)
        return SfntBuilder(face_->face.get()).build();
    return {bytes.data(), bytes.size()};
}

std::vector<FontProgram::GlyphId> OpenTypeFont::mapGlyphs(const FontScript& run) const {
    return mapCharacters(run, [&, font = face_->font.get()](char32_t character) -> GlyphId {
        if (character < face_->latinGlyphs.size() && face_->latinGlyphs[character] != 0)
            return face_->latinGlyphs[character];
        hb_codepoint_t glyph = 0;
        return hb_font_get_nominal_glyph(font, character, &glyph) != 0 ? glyph : kMissingGlyph;
    });
}

Core::String OpenTypeFont::getGlyphName(GlyphId glyph) const {
    if (glyph >= face_->glyphCount)
        return ".notdef";
    std::array<char, 128> name{};
    if (hb_font_get_glyph_name(face_->font.get(), glyph, name.data(), name.size()) != 0 &&
        name[0] != '\0')
        return name.data();
    return "g" + std::to_string(glyph);
}

std::optional<int> OpenTypeFont::getKerning(GlyphId first, GlyphId second,
                                            bool secondIsMark) const {
    const int closer = secondIsMark ? 0 : face_->kerning.find(first, second);
    return closer != 0 ? std::optional(closer) : std::nullopt;
}

float OpenTypeFont::getAdvance(GlyphId glyph) const {
    if (glyph >= face_->glyphCount)
        return 0;
    return static_cast<float>(hb_font_get_glyph_h_advance(face_->font.get(), glyph)) * face_->unit;
}

void OpenTypeFont::decomposeGlyph(GlyphId glyph, GlyphSink& sink) const {
    if (glyph < face_->glyphCount)
        openTypeOutline(face_->font.get(), glyph, face_->unit).replay(sink);
}

std::optional<FontFile> OpenTypeFont::getFile() const {
    return FontFile{face_->bytes.name(), face_->faceIndex, face_->bytes.span(), face_->axes};
}

std::uint32_t OpenTypeFont::getGlyphCount() const {
    return face_->glyphCount;
}

bool OpenTypeFont::isSubsettable() const {
    return EmbeddingRights::allowSubsetting(face_->licenceBits);
}

bool OpenTypeFont::isVariable() const {
    return face_->directory.has(Sfnt::kFvar);
}

bool OpenTypeFont::hasColors() const {
    const SfntDirectory& directory = face_->directory;
    return directory.has(Sfnt::kColr) || directory.has(Sfnt::kCbdt) || directory.has(Sfnt::kSbix);
}

GlyphColors OpenTypeFont::getColors(GlyphId glyph) const {
    return openTypeColors(face_->font.get(), glyph, face_->unit);
}

std::uint32_t OpenTypeFont::getUnitsPerEm() const {
    return hb_face_get_upem(face_->face.get());
}

}  // namespace Fonts
