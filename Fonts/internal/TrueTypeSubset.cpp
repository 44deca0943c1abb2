#include "Fonts/internal/TrueTypeSubset.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/LongLoca.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntBuilder.h"

#include <algorithm>
#include <array>

namespace Fonts {

namespace {

constexpr std::array kDrawingTables{Sfnt::kCmap, Sfnt::kCvt,  Sfnt::kFpgm, Sfnt::kGlyf,
                                    Sfnt::kHead, Sfnt::kHhea, Sfnt::kHmtx, Sfnt::kLoca,
                                    Sfnt::kMaxp, Sfnt::kPrep, Sfnt::kVhea, Sfnt::kVmtx};

/// Layout tables must go before the subset is planned: what substitutions can reach would
/// otherwise be kept as well.
void dropOtherTables(hb_face_t* face, hb_set_t* dropped) {
    for (const hb_tag_t tag : tableTags(face))
        if (std::ranges::find(kDrawingTables, tag) == kDrawingTables.end())
            hb_set_add(dropped, tag);
}

unsigned flagsFor(bool keepHints) {
    unsigned flags = HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NOTDEF_OUTLINE;
    if (!keepHints)
        flags |= HB_SUBSET_FLAGS_NO_HINTING;
    return flags;
}

HarfBuzzPtr<hb_subset_input_t> makeInput(hb_face_t* face, std::span<const std::int32_t> glyphs,
                                         bool keepHints) {
    HarfBuzzPtr<hb_subset_input_t> input(hb_subset_input_create_or_fail());
    if (!input)
        return input;
    const std::uint32_t glyphCount = hb_face_get_glyph_count(face);
    for (const std::int32_t glyph : glyphs)
        if (glyph >= 0 && static_cast<std::uint32_t>(glyph) < glyphCount)
            hb_set_add(hb_subset_input_glyph_set(input.get()), static_cast<hb_codepoint_t>(glyph));
    hb_subset_input_set_flags(input.get(), flagsFor(keepHints));
    dropOtherTables(face, hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG));
    // Subset along with the glyphs, 'cmap' would lose its last record where no glyph of the
    // subset has a character; readers of the file rely on there being one.
    hb_set_add(hb_subset_input_set(input.get(), HB_SUBSET_SETS_NO_SUBSET_TABLE_TAG), Sfnt::kCmap);
    return input;
}

}  // namespace

Core::ByteArray subsetTrueType(hb_face_t* face, std::span<const std::int32_t> glyphs,
                               bool keepHints, const std::string& fileName) {
    const auto input = makeInput(face, glyphs, keepHints);
    const HarfBuzzPtr<hb_face_t> subset(input ? hb_subset_or_fail(face, input.get()) : nullptr);
    if (!subset)
        throw FontException(fileName,
                            "cannot be reduced to the glyphs that are used: its tables "
                            "contradict each other");
    const HarfBuzzPtr<hb_blob_t> blob(hb_face_reference_blob(subset.get()));
    const HarfBuzzPtr<hb_face_t> written(hb_face_create(blob.get(), 0));
    SfntBuilder file(written.get());
    return makeLocaLongIfNeeded(file) ? file.build() : bytesOf(blob.get());
}

}  // namespace Fonts
