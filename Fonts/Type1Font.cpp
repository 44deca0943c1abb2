#include "Fonts/Type1Font.h"

#include "Fonts/internal/Characters.h"
#include "Fonts/internal/EmbeddingRights.h"
#include "Fonts/internal/Type1Face.h"

#include <utility>

namespace Fonts {

Type1Font::Type1Font(std::unique_ptr<const Type1Face> face, Core::ByteArray segments)
    : face_(std::move(face)), segments_(std::move(segments)) {}

Type1Font::~Type1Font() = default;

const FontMetrics& Type1Font::getMetrics() const {
    return face_->metrics();
}

bool Type1Font::isEmbeddable() const {
    return EmbeddingRights::allowEmbedding(face_->licenceBits());
}

std::uint32_t Type1Font::getGlyphCount() const {
    return static_cast<std::uint32_t>(face_->glyphs().size());
}

bool Type1Font::isSubsettable() const {
    return EmbeddingRights::allowSubsetting(face_->licenceBits());
}

std::vector<FontProgram::GlyphId> Type1Font::mapGlyphs(const FontScript& run) const {
    return mapCharacters(run, [this](char32_t character) { return face_->glyphOf(character); });
}

Core::String Type1Font::getGlyphName(GlyphId glyph) const {
    return glyph < face_->glyphs().size() ? face_->glyphs()[glyph].name : ".notdef";
}

std::optional<int> Type1Font::getKerning(GlyphId first, GlyphId second, bool secondIsMark) const {
    const std::size_t count = face_->glyphs().size();
    if (secondIsMark || first >= count || second >= count)
        return std::nullopt;
    const int closer = face_->kerning(first, second);
    return closer != 0 ? std::optional(closer) : std::nullopt;
}

float Type1Font::getAdvance(GlyphId glyph) const {
    return glyph < face_->glyphs().size() ? face_->glyphs()[glyph].advance : 0;
}

void Type1Font::decomposeGlyph(GlyphId glyph, GlyphSink& sink) const {
    if (glyph < face_->glyphs().size())
        face_->outline(glyph).replay(sink);
}

}  // namespace Fonts
