// 'loca' holds the offset of each glyph in 'glyf' and the end of the last one: as 2-byte halves
// of offsets where indexToLocFormat in 'head' is 0, else as 4-byte offsets (OpenType 1.9, 'loca').

#include "Fonts/internal/LongLoca.h"

#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/Sfnt.h"
#include "Fonts/internal/SfntBuilder.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Fonts {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kLongFormat = 1;
constexpr std::uint64_t kShortLimit = 131070;

std::vector<std::uint32_t> offsetsOf(const Bytes& shortLoca) {
    std::vector<std::uint32_t> offsets;
    for (std::size_t at = 0; at + 1 < shortLoca.size(); at += 2)
        offsets.push_back(BigEndian::read16(shortLoca, at) * 2);
    return offsets;
}

std::uint64_t filledUpSize(const std::vector<std::uint32_t>& offsets) {
    std::uint64_t size = 0;
    for (std::size_t i = 0; i + 1 < offsets.size(); ++i)
        if (offsets[i + 1] > offsets[i])
            size += (std::uint64_t{offsets[i + 1]} - offsets[i] + 3) / 4 * 4;
    return size;
}

Bytes longLoca(const std::vector<std::uint32_t>& offsets) {
    Bytes loca(offsets.size() * 4);
    for (std::size_t i = 0; i < offsets.size(); ++i)
        BigEndian::write32(loca, i * 4, offsets[i]);
    return loca;
}

}  // namespace

bool makeLocaLongIfNeeded(SfntBuilder& file) {
    Bytes head = file.table(Sfnt::kHead);
    if (head.size() < Sfnt::kHeadLength || BigEndian::read16(head, Sfnt::kLocaFormatOffset) != 0)
        return false;
    const std::vector<std::uint32_t> offsets = offsetsOf(file.table(Sfnt::kLoca));
    if (filledUpSize(offsets) <= kShortLimit)
        return false;
    BigEndian::write16(head, Sfnt::kLocaFormatOffset, kLongFormat);
    file.replace(Sfnt::kHead, head);
    file.replace(Sfnt::kLoca, longLoca(offsets));
    return true;
}

}  // namespace Fonts
