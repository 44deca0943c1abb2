#include "psrender/svg/text/Shaper.h"

#include "Core/Unicode.h"
#include "Fonts/FontScript.h"
#include "Fonts/UnicodeRanges.h"
#include "psrender/svg/text/FontFeatures.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>
#include <new>
#include <string>

namespace psrender::svg {

using Fonts::FontProgram;

namespace {

constexpr double kEm = 1000;

struct Deleter {
    void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
};

constexpr hb_tag_t kSmallCapitals = HB_TAG('s', 'm', 'c', 'p');
constexpr hb_tag_t kSmallFromLarge = HB_TAG('c', '2', 's', 'c');

hb_feature_t feature(hb_tag_t tag, std::uint32_t value) {
    return {tag, value, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
}

/// What is to be switched off or on. Letters that are set apart are not to be joined.
std::vector<hb_feature_t> featuresOf(const ShapingRun& run) {
    std::vector<hb_feature_t> features;
    if (!run.hasLigatures)
        features = {feature(HB_TAG('l', 'i', 'g', 'a'), 0), feature(HB_TAG('c', 'l', 'i', 'g'), 0)};
    if (!run.isKerned)
        features.push_back(feature(HB_TAG('k', 'e', 'r', 'n'), 0));
    if (run.hasSmallCapitals) {
        features.push_back(feature(kSmallCapitals, 1));
        features.push_back(feature(kSmallFromLarge, 1));
    }
    for (const FontSetting& setting : parseFontSettings(run.features))
        features.push_back(feature(setting.tag, static_cast<std::uint32_t>(setting.value)));
    return features;
}

bool hasSubstitution(hb_face_t* face, hb_tag_t wanted) {
    std::array<hb_tag_t, 32> tags{};
    unsigned count = tags.size();
    unsigned from = 0;
    for (; count == tags.size(); from += count) {
        hb_ot_layout_table_get_feature_tags(face, HB_OT_TAG_GSUB, from, &count, tags.data());
        if (std::find(tags.begin(), tags.begin() + count, wanted) != tags.begin() + count)
            return true;
    }
    return false;
}

/// A font without layout tables: one glyph a character, and the font's own kerning.
std::vector<ShapedGlyph> lineUp(const FontProgram& program, std::span<const char32_t> text,
                                const ShapingRun& run) {
    std::vector<ShapedGlyph> glyphs;
    for (std::size_t i = run.begin; i < run.end; ++i) {
        const Core::String character = Core::Unicode::toUtf16(text[i]);
        const std::uint32_t found = program.mapGlyphs({character, 0}).at(0);
        const bool isMissing = found == FontProgram::kMissingGlyph;
        const bool isMark = Fonts::UnicodeRanges::isMark(character[0]);
        ShapedGlyph glyph{isMissing ? 0 : found, i, 0, 0, 0, !isMissing, true};
        glyph.advance = double{program.getAdvance(glyph.id)} / kEm;
        if (!glyphs.empty() && run.isKerned)
            glyphs.back().advance -=
                program.getKerning(glyphs.back().id, glyph.id, isMark).value_or(0) / kEm;
        glyphs.push_back(glyph);
    }
    if (run.isRightToLeft)
        std::ranges::reverse(glyphs);
    return glyphs;
}

}  // namespace

/// A font file as the shaping library sees it, one unit an em's thousandth.
class Shaper::OpenFont {
public:
    explicit OpenFont(const Fonts::FontFile& file) {
        hb_blob_t* blob = hb_blob_create(reinterpret_cast<const char*>(file.bytes.data()),
                                         static_cast<unsigned>(file.bytes.size()),
                                         HB_MEMORY_MODE_READONLY, nullptr, nullptr);
        hb_face_t* face = hb_face_create(blob, file.faceIndex);
        font_.reset(hb_font_create(face));
        std::vector<hb_variation_t> places;
        for (const Fonts::FontAxis& axis : file.axes)
            places.push_back({axis.tag, axis.value});
        if (!places.empty())
            hb_font_set_variations(font_.get(), places.data(),
                                   static_cast<unsigned>(places.size()));
        unit_ = 1.0 / hb_face_get_upem(face);
        hasSmallCapitals_ = hasSubstitution(face, kSmallCapitals);
        hb_face_destroy(face);
        hb_blob_destroy(blob);
    }

    [[nodiscard]] std::vector<ShapedGlyph> shape(std::span<const char32_t> text,
                                                 const ShapingRun& run) const {
        const std::unique_ptr<hb_buffer_t, Deleter> buffer(hb_buffer_create());
        hb_buffer_set_cluster_level(buffer.get(), HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS);
        hb_buffer_add_utf32(buffer.get(), reinterpret_cast<const std::uint32_t*>(text.data()),
                            static_cast<int>(text.size()), static_cast<unsigned>(run.begin),
                            static_cast<int>(run.end - run.begin));
        hb_buffer_set_direction(buffer.get(), run.isUpright       ? HB_DIRECTION_TTB
                                              : run.isRightToLeft ? HB_DIRECTION_RTL
                                                                  : HB_DIRECTION_LTR);
        hb_buffer_guess_segment_properties(buffer.get());
        const std::vector<hb_feature_t> features = featuresOf(run);
        const bool isShaped = hb_shape_full(font_.get(), buffer.get(), features.data(),
                                            static_cast<unsigned>(features.size()), nullptr) != 0;
        if (!isShaped || hb_buffer_allocation_successful(buffer.get()) == 0)
            throw std::bad_alloc();
        return glyphsOf(buffer.get(), text, run);
    }

    [[nodiscard]] bool hasSmallCapitals() const { return hasSmallCapitals_; }

private:
    [[nodiscard]] std::vector<ShapedGlyph> glyphsOf(hb_buffer_t* buffer,
                                                    std::span<const char32_t> text,
                                                    const ShapingRun& run) const {
        unsigned count = 0;
        const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer, &count);
        const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer, nullptr);
        std::vector<ShapedGlyph> glyphs(count);
        for (unsigned i = 0; i < count; ++i) {
            const bool isFirst = i == 0 || infos[i - 1].cluster != infos[i].cluster;
            const bool isLast = i + 1 == count || infos[i + 1].cluster != infos[i].cluster;
            const std::size_t next = isLast && i + 1 < count ? infos[i + 1].cluster : run.end;
            const bool isAlone = isFirst && isLast && next == infos[i].cluster + std::size_t{1};
            const hb_glyph_position_t& at = positions[i];
            glyphs[i] = {infos[i].codepoint,
                         infos[i].cluster,
                         (run.isUpright ? -at.y_advance : at.x_advance) * unit_,
                         (run.isUpright ? -at.y_offset : at.x_offset) * unit_,
                         (run.isUpright ? at.x_offset : at.y_offset) * unit_,
                         false,
                         isLast,
                         isFirst ? endOfCluster({infos, count}, i, run) - infos[i].cluster : 0};
            glyphs[i].isPlain = isAlone && !run.isRightToLeft && !run.isUpright &&
                                at.x_offset == 0 && at.y_offset == 0 &&
                                isNominal(text[infos[i].cluster], infos[i].codepoint);
        }
        return glyphs;
    }

    /// Behind the characters that glyph `i` shows. Glyphs of text from right to left come last
    /// character first.
    static std::size_t endOfCluster(std::span<const hb_glyph_info_t> glyphs, std::size_t i,
                                    const ShapingRun& run) {
        if (run.isRightToLeft)
            return i == 0 ? run.end : glyphs[i - 1].cluster;
        const auto next = std::ranges::find_if(
            glyphs.subspan(i),
            [&](const hb_glyph_info_t& glyph) { return glyph.cluster != glyphs[i].cluster; });
        return next == glyphs.end() ? run.end : next->cluster;
    }

    [[nodiscard]] bool isNominal(char32_t character, hb_codepoint_t glyph) const {
        hb_codepoint_t nominal = 0;
        return glyph != 0 && hb_font_get_nominal_glyph(font_.get(), character, &nominal) != 0 &&
               nominal == glyph;
    }

    std::unique_ptr<hb_font_t, Deleter> font_;
    double unit_ = 0;
    bool hasSmallCapitals_ = false;
};

Shaper::Shaper() = default;
Shaper::~Shaper() = default;

std::vector<ShapedGlyph> Shaper::shape(const FontProgram& program, std::span<const char32_t> text,
                                       const ShapingRun& run) {
    const OpenFont* font = open(program);
    return font != nullptr ? font->shape(text, run) : lineUp(program, text, run);
}

bool Shaper::hasSmallCapitals(const FontProgram& program) {
    const OpenFont* font = open(program);
    return font != nullptr && font->hasSmallCapitals();
}

const Shaper::OpenFont* Shaper::open(const FontProgram& program) {
    const auto [entry, isNew] = fonts_.try_emplace(&program);
    if (isNew)
        if (const auto file = program.getFile())
            entry->second = std::make_unique<const OpenFont>(*file);
    return entry->second.get();
}

}  // namespace psrender::svg
