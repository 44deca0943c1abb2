#include "Fonts/internal/OpenTypeFace.h"

#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/OpenTypeMetrics.h"
#include "Fonts/internal/Sfnt.h"

#include <cmath>
#include <string>
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

HarfBuzzPtr<hb_font_t> openFont(hb_face_t* face, const std::vector<FontAxis>& axes) {
    HarfBuzzPtr<hb_font_t> font(hb_font_create(face));
    std::vector<hb_variation_t> variations;
    variations.reserve(axes.size());
    for (const FontAxis& axis : axes)
        variations.push_back({axis.tag, axis.value});
    if (!variations.empty())
        hb_font_set_variations(font.get(), variations.data(),
                               static_cast<unsigned>(variations.size()));
    hb_font_make_immutable(font.get());
    return font;
}

/// Each place on the axes of a font has a name of its own: "Sans-Regular-wght650".
FontMetrics withPlaces(FontMetrics metrics, const std::vector<FontAxis>& axes) {
    for (const FontAxis& axis : axes) {
        std::array<char, 4> letters{};
        hb_tag_to_string(axis.tag, letters.data());
        std::string name = metrics.postScriptName.toUtf8() + "-";
        name.append(letters.data(), letters.size());
        metrics.postScriptName =
            plainPostScriptName(name + std::to_string(std::lround(axis.value * 100)));
    }
    return metrics;
}

std::array<std::uint32_t, 256> mapLatin(hb_font_t* font) {
    std::array<std::uint32_t, 256> glyphs{};
    for (hb_codepoint_t character = 0; character < glyphs.size(); ++character)
        hb_font_get_nominal_glyph(font, character, &glyphs[character]);
    return glyphs;
}

}  // namespace

OpenTypeFace::OpenTypeFace(FontBytes fontBytes, std::uint32_t index, std::vector<FontAxis> places)
    : bytes(std::move(fontBytes)),
      faceIndex(index),
      axes(std::move(places)),
      directory(bytes.span(), index, bytes.name()),
      face(openFace(bytes, index)),
      font(openFont(face.get(), axes)),
      glyphCount(hb_face_get_glyph_count(face.get())),
      unit(kEm / static_cast<float>(hb_face_get_upem(face.get()))),
      licenceBits(BigEndian::read16(directory.table(Sfnt::kOs2), kLicenceBitsOffset)),
      metrics(withPlaces(openTypeMetrics(font.get(), unit, bytes.name()), axes)),
      kerning(font.get()),
      latinGlyphs(mapLatin(font.get())) {}

}  // namespace Fonts
