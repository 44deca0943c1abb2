#include "Fonts/internal/CompactTrueType.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntBuilder.h"
#include "Fonts/internal/SfntDirectory.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Fonts {

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Those that a Type 42 font is read from (Adobe Technical Note 5012).
constexpr std::array kType42Tables{Sfnt::kCvt,  Sfnt::kFpgm, Sfnt::kGlyf, Sfnt::kHead, Sfnt::kHhea,
                                   Sfnt::kHmtx, Sfnt::kLoca, Sfnt::kMaxp, Sfnt::kPrep};

HarfBuzzPtr<hb_subset_input_t> makeInput(hb_face_t* face, std::span<const std::uint32_t> glyphs,
                                         const TrueTypeChoice& choice) {
    HarfBuzzPtr<hb_subset_input_t> input(hb_subset_input_create_or_fail());
    if (!input)
        return input;
    hb_set_t* kept = hb_subset_input_glyph_set(input.get());
    hb_set_add(kept, 0);
    for (const std::uint32_t glyph : glyphs)
        hb_set_add(kept, glyph);
    if (choice.keepAllGlyphs)
        hb_set_add_range(kept, 0, hb_face_get_glyph_count(face) - 1);
    unsigned flags = HB_SUBSET_FLAGS_NOTDEF_OUTLINE;
    if (!choice.keepHints)
        flags |= HB_SUBSET_FLAGS_NO_HINTING;
    hb_subset_input_set_flags(input.get(), flags);
    hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const hb_tag_t tag : tableTags(face))
        if (std::ranges::find(kType42Tables, tag) == kType42Tables.end())
            hb_set_add(dropped, tag);
    return input;
}

/// Where each glyph begins in 'glyf', and the end of the last one.
std::vector<std::size_t> glyphOffsets(std::span<const std::uint8_t> head,
                                      std::span<const std::uint8_t> loca) {
    const bool isLong = BigEndian::read16(head, Sfnt::kLocaFormatOffset) != 0;
    const std::size_t entry = isLong ? 4 : 2;
    std::vector<std::size_t> offsets;
    for (std::size_t at = 0; at + entry <= loca.size(); at += entry)
        offsets.push_back(isLong ? BigEndian::read32(loca, at)
                                 : std::size_t{2} * BigEndian::read16(loca, at));
    return offsets;
}

/// Where 'loca' has long entries, glyphs may begin at odd offsets, and no string of a Type 42 font
/// could end there: fills each glyph up to an even length.
void makeGlyphsEven(SfntBuilder& file) {
    const Bytes glyf = file.table(Sfnt::kGlyf);
    Bytes loca = file.table(Sfnt::kLoca);
    const std::vector<std::size_t> offsets = glyphOffsets(file.table(Sfnt::kHead), loca);
    if (std::ranges::none_of(offsets, [](std::size_t offset) { return offset % 2 != 0; }))
        return;
    Bytes even;
    for (std::size_t i = 0; i + 1 < offsets.size(); ++i) {
        BigEndian::write32(loca, 4 * i, static_cast<std::uint32_t>(even.size()));
        const std::size_t end = std::min(offsets[i + 1], glyf.size());
        for (std::size_t at = offsets[i]; at < end; ++at)
            even.push_back(glyf[at]);
        even.resize((even.size() + 1) / 2 * 2);
    }
    BigEndian::write32(loca, loca.size() - 4, static_cast<std::uint32_t>(even.size()));
    file.replace(Sfnt::kGlyf, even);
    file.replace(Sfnt::kLoca, loca);
}

std::vector<std::size_t> breaksOf(const Core::ByteArray& file, const std::string& fileName) {
    const SfntDirectory directory(file.span(), 0, fileName);
    std::vector<std::size_t> breaks{file.size()};
    for (const hb_tag_t tag : kType42Tables)
        if (directory.has(tag))
            breaks.push_back(static_cast<std::size_t>(directory.table(tag).data() - file.data()));
    const auto glyf = directory.table(Sfnt::kGlyf);
    const auto start = static_cast<std::size_t>(glyf.data() - file.data());
    for (const std::size_t offset :
         glyphOffsets(directory.table(Sfnt::kHead), directory.table(Sfnt::kLoca)))
        if (!glyf.empty() && offset < glyf.size())
            breaks.push_back(start + offset);
    std::ranges::sort(breaks);
    breaks.erase(std::unique(breaks.begin(), breaks.end()), breaks.end());
    return breaks;
}

}  // namespace

CompactSubset compactTrueType(hb_face_t* face, std::span<const std::uint32_t> glyphs,
                              const TrueTypeChoice& choice, const std::string& fileName) {
    const auto input = makeInput(face, glyphs, choice);
    const HarfBuzzPtr<hb_subset_plan_t> plan(
        input ? hb_subset_plan_create_or_fail(face, input.get()) : nullptr);
    const HarfBuzzPtr<hb_face_t> reduced(plan ? hb_subset_plan_execute_or_fail(plan.get())
                                              : nullptr);
    if (!reduced)
        throw FontException(fileName,
                            "cannot be reduced to the glyphs that are used: its tables "
                            "contradict each other");
    CompactSubset subset;
    const hb_map_t* numbers = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    for (const std::uint32_t glyph : glyphs) {
        const hb_codepoint_t number = hb_map_get(numbers, glyph);
        subset.numbers.push_back(number != HB_MAP_VALUE_INVALID ? number : 0);
    }
    const HarfBuzzPtr<hb_blob_t> blob(hb_face_reference_blob(reduced.get()));
    const HarfBuzzPtr<hb_face_t> written(hb_face_create(blob.get(), 0));
    SfntBuilder file(written.get());
    makeGlyphsEven(file);
    subset.file = file.build();
    subset.breaks = breaksOf(subset.file, fileName);
    return subset;
}

}  // namespace Fonts
