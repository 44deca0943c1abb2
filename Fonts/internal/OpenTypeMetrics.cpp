#include "Fonts/internal/OpenTypeMetrics.h"

#include <hb-ot.h>

#include <filesystem>
#include <string_view>

namespace Fonts {

namespace {

Core::String nameOf(hb_face_t* face, hb_ot_name_id_t id) {
    const hb_language_t english = hb_language_from_string("en", -1);
    unsigned length = hb_ot_name_get_utf16(face, id, english, nullptr, nullptr);
    std::u16string name(length, u'\0');
    ++length;  // the end mark, which lies behind the text in any string
    hb_ot_name_get_utf16(face, id, english, &length, reinterpret_cast<std::uint16_t*>(name.data()));
    return name;
}

Core::String firstName(hb_face_t* face, std::initializer_list<hb_ot_name_id_t> ids,
                       const Core::String& otherwise) {
    for (const hb_ot_name_id_t id : ids)
        if (Core::String name = nameOf(face, id); !name.isEmpty())
            return name;
    return otherwise;
}

class Measure {
public:
    Measure(hb_font_t* font, float unit) : font_(font), unit_(unit) {}

    /// A height that the font states, else the top of the glyph of `character`, else 0.
    [[nodiscard]] float height(hb_ot_metrics_tag_t tag, hb_codepoint_t character = 0) const {
        hb_position_t stated = 0;
        if (hb_ot_metrics_get_position(font_, tag, &stated) != 0 && stated != 0)
            return static_cast<float>(stated) * unit_;
        return character != 0 ? topOf(character) : 0;
    }

private:
    [[nodiscard]] float topOf(hb_codepoint_t character) const {
        hb_codepoint_t glyph = 0;
        hb_glyph_extents_t extents{};
        if (hb_font_get_nominal_glyph(font_, character, &glyph) == 0 ||
            hb_font_get_glyph_extents(font_, glyph, &extents) == 0)
            return 0;
        return static_cast<float>(extents.y_bearing) * unit_;
    }

    hb_font_t* font_;
    float unit_;
};

}  // namespace

Core::String plainPostScriptName(const Core::String& name) {
    constexpr std::u16string_view delimiters = u"()<>[]{}/%";
    std::u16string plain;
    for (const char16_t letter : name.view())
        if (letter > u' ' && letter < 0x7F && delimiters.find(letter) == std::u16string_view::npos)
            plain.push_back(letter);
    return plain;
}

FontMetrics openTypeMetrics(hb_font_t* font, float unit, const std::string& fileName) {
    hb_face_t* face = hb_font_get_face(font);
    const Core::String family =
        firstName(face, {HB_OT_NAME_ID_TYPOGRAPHIC_FAMILY, HB_OT_NAME_ID_FONT_FAMILY},
                  std::filesystem::path(fileName).stem().string());
    const Core::String fullName = firstName(face, {HB_OT_NAME_ID_FULL_NAME}, family);
    const Measure measure(font, unit);
    return {
        plainPostScriptName(firstName(face, {HB_OT_NAME_ID_POSTSCRIPT_NAME}, fullName)),
        family,
        fullName,
        measure.height(HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER),
        measure.height(HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER),
        measure.height(HB_OT_METRICS_TAG_CAP_HEIGHT, U'H'),
        measure.height(HB_OT_METRICS_TAG_X_HEIGHT, U'x'),
        measure.height(HB_OT_METRICS_TAG_UNDERLINE_OFFSET),
        measure.height(HB_OT_METRICS_TAG_UNDERLINE_SIZE),
        hb_style_get_value(font, HB_STYLE_TAG_SLANT_ANGLE),
    };
}

}  // namespace Fonts
