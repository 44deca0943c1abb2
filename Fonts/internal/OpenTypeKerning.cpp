#include "Fonts/internal/OpenTypeKerning.h"

#include <array>
#include <cmath>

namespace Fonts {

namespace {

/// Glyph numbers are written as the characters of plane 16. Those are private, so shaping takes
/// none of them for a mark, a letter that joins, or an invisible character.
constexpr hb_codepoint_t kFirstCharacter = 0x100000;
constexpr float kEm = 1000;

hb_bool_t glyphOfCharacter(hb_font_t*, void*, hb_codepoint_t character, hb_codepoint_t* glyph,
                           void*) {
    *glyph = character - kFirstCharacter;
    return character >= kFirstCharacter ? 1 : 0;
}

HarfBuzzPtr<hb_font_t> makePairFont(hb_font_t* font) {
    HarfBuzzPtr<hb_font_t> pairFont(hb_font_create_sub_font(font));
    const HarfBuzzPtr<hb_font_funcs_t> funcs(hb_font_funcs_create());
    hb_font_funcs_set_nominal_glyph_func(funcs.get(), glyphOfCharacter, nullptr, nullptr);
    hb_font_set_funcs(pairFont.get(), funcs.get(), nullptr, nullptr);
    hb_font_make_immutable(pairFont.get());
    return pairFont;
}

constexpr hb_feature_t feature(hb_tag_t tag, std::uint32_t value) {
    return {tag, value, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
}

constexpr std::array kKerningOnly{
    feature(HB_TAG('k', 'e', 'r', 'n'), 1), feature(HB_TAG('c', 'c', 'm', 'p'), 0),
    feature(HB_TAG('l', 'o', 'c', 'l'), 0), feature(HB_TAG('r', 'l', 'i', 'g'), 0),
    feature(HB_TAG('r', 'c', 'l', 't'), 0), feature(HB_TAG('l', 'i', 'g', 'a'), 0),
    feature(HB_TAG('c', 'l', 'i', 'g'), 0), feature(HB_TAG('c', 'a', 'l', 't'), 0),
    feature(HB_TAG('m', 'a', 'r', 'k'), 0), feature(HB_TAG('m', 'k', 'm', 'k'), 0)};

/// Scripts of which a glyph says nothing when it serves a character that many scripts share.
bool isSpecific(hb_script_t script) {
    return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED &&
           script != HB_SCRIPT_UNKNOWN && script != HB_SCRIPT_INVALID;
}

}  // namespace

OpenTypeKerning::OpenTypeKerning(hb_font_t* font)
    : font_(font),
      glyphCount_(hb_face_get_glyph_count(hb_font_get_face(font))),
      pairFont_(makePairFont(font)) {}

int OpenTypeKerning::find(std::uint32_t first, std::uint32_t second) const {
    if (first >= glyphCount_ || second >= glyphCount_ || glyphCount_ > PairCache::kGlyphs)
        return 0;
    return cache_.get(first, second, [&] { return measure(first, second); });
}

int OpenTypeKerning::measure(std::uint32_t first, std::uint32_t second) const {
    const std::array characters{kFirstCharacter + first, kFirstCharacter + second};
    const HarfBuzzPtr<hb_buffer_t> buffer(hb_buffer_create());
    hb_buffer_add_codepoints(buffer.get(), characters.data(), 2, 0, 2);
    hb_buffer_set_direction(buffer.get(), HB_DIRECTION_LTR);
    // Fonts list their kerning by script, and some kern nothing when none is named.
    hb_buffer_set_script(buffer.get(), scriptOf(first, second));
    hb_shape(pairFont_.get(), buffer.get(), kKerningOnly.data(), kKerningOnly.size());

    unsigned count = 0;
    const hb_glyph_info_t* glyphs = hb_buffer_get_glyph_infos(buffer.get(), &count);
    if (count != 2 || glyphs[0].codepoint != first || glyphs[1].codepoint != second)
        return 0;  // other glyphs took their place, so the advances say nothing about these
    const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer.get(), nullptr);
    const int closer =
        hb_font_get_glyph_h_advance(font_, first) - positions[0].x_advance - positions[1].x_offset;
    const unsigned em = hb_face_get_upem(hb_font_get_face(font_));
    return static_cast<int>(std::lround(static_cast<float>(closer) * kEm / static_cast<float>(em)));
}

hb_script_t OpenTypeKerning::scriptOf(std::uint32_t first, std::uint32_t second) const {
    std::call_once(scriptsOnce_, [this] { scripts_ = collectScripts(); });
    for (const std::uint32_t glyph : {first, second})
        if (isSpecific(scripts_[glyph]))
            return scripts_[glyph];
    return HB_SCRIPT_LATIN;
}

std::vector<hb_script_t> OpenTypeKerning::collectScripts() const {
    std::vector<hb_script_t> scripts(glyphCount_, HB_SCRIPT_INVALID);
    const HarfBuzzPtr<hb_set_t> characters(hb_set_create());
    hb_face_collect_unicodes(hb_font_get_face(font_), characters.get());
    hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
    for (hb_codepoint_t character = HB_SET_VALUE_INVALID;
         hb_set_next(characters.get(), &character) != 0;) {
        hb_codepoint_t glyph = 0;
        if (hb_font_get_nominal_glyph(font_, character, &glyph) != 0 && glyph < glyphCount_ &&
            !isSpecific(scripts[glyph]))
            scripts[glyph] = hb_unicode_script(unicode, character);
    }
    return scripts;
}

}  // namespace Fonts
