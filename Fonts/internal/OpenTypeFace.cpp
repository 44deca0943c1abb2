#include "Fonts/internal/OpenTypeFace.h"

#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/OpenTypeMetrics.h"
#include "Fonts/internal/Sfnt.h"

#include <utility>

namespace Fonts {

namespace {

constexpr float kEm = 1000;
constexpr std::size_t kLicenceBitsOffset = 8;  // fsType of OS/2

HarfBuzzPtr<hb_face_t> openFace(const FontBytes& bytes, std::uint32_t index) {
    HarfBuzzPtr<hb_face_t> face(hb_face_create(bytes.blob(), index));
    hb_face_make_immutable(face.get());
    return face;
}

HarfBuzzPtr<hb_font_t> openFont(hb_face_t* face) {
    HarfBuzzPtr<hb_font_t> font(hb_font_create(face));
    hb_font_make_immutable(font.get());
    return font;
}

std::array<std::uint32_t, 256> mapLatin(hb_font_t* font) {
    std::array<std::uint32_t, 256> glyphs{};
    for (hb_codepoint_t character = 0; character < glyphs.size(); ++character)
        hb_font_get_nominal_glyph(font, character, &glyphs[character]);
    return glyphs;
}

}  // namespace

OpenTypeFace::OpenTypeFace(FontBytes fontBytes, std::uint32_t index)
    : bytes(std::move(fontBytes)),
      faceIndex(index),
      directory(bytes.span(), index, bytes.name()),
      face(openFace(bytes, index)),
      font(openFont(face.get())),
      glyphCount(hb_face_get_glyph_count(face.get())),
      unit(kEm / static_cast<float>(hb_face_get_upem(face.get()))),
      licenceBits(BigEndian::read16(directory.table(Sfnt::kOs2), kLicenceBitsOffset)),
      metrics(openTypeMetrics(font.get(), unit, bytes.name())),
      kerning(font.get()),
      latinGlyphs(mapLatin(font.get())) {}

}  // namespace Fonts
