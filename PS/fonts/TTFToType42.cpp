// The glyph data array:
//
//   /F1_sfnts[
//   <0001000000090080...   offset table and directory: 12 + 16 bytes a table
//   00>
//   <...00>                each table as one string; 'glyf' as one string a glyph
//   ] def
//
// A string holds at most 65504 bytes of data and ends with fill bytes to a multiple of four and
// one byte more, which interpreters ignore. Table numbers: OpenType 1.9, "Organization of an
// OpenType Font", 'head', 'loca', 'maxp', 'cmap'.

#include "PS/fonts/TTFToType42.h"

#include "Fonts/TTFFont.h"
#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/Sfnt.h"
#include "PS/internal/Type42Dictionaries.h"
#include "PS/internal/Type42Strings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Drawing::PS {

namespace {

namespace BigEndian = Fonts::BigEndian;
namespace Sfnt = Fonts::Sfnt;

/// What the array holds, in its order. The first nine have a directory entry even where the font
/// lacks them.
struct OutputTable {
    std::uint32_t tag;
    bool always;
};

constexpr std::array kOutputTables{
    OutputTable{Sfnt::kCvt, true},   OutputTable{Sfnt::kFpgm, true}, OutputTable{Sfnt::kGlyf, true},
    OutputTable{Sfnt::kHead, true},  OutputTable{Sfnt::kHhea, true}, OutputTable{Sfnt::kHmtx, true},
    OutputTable{Sfnt::kLoca, true},  OutputTable{Sfnt::kMaxp, true}, OutputTable{Sfnt::kPrep, true},
    OutputTable{Sfnt::kVhea, false}, OutputTable{Sfnt::kVmtx, false}};

std::uint32_t aligned(std::uint32_t length) {
    return (length + 3) & ~std::uint32_t{3};
}

/// The sum of big-endian 32-bit words, the last one filled with zero bytes.
std::uint32_t checksumOf(const std::vector<std::uint8_t>& bytes) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        sum += std::uint32_t{bytes[i]} << (24 - 8 * (i % 4));
    return sum;
}

/// The search fields are right for 8 to 15 tables, which is all that the list can give.
std::vector<std::uint8_t> offsetTable(std::uint32_t tableCount) {
    constexpr std::uint32_t kSearchRange = 128;
    constexpr std::uint32_t kEntrySelector = 3;
    std::vector<std::uint8_t> bytes;
    BigEndian::append32(bytes, Sfnt::kTrueTypeVersion);
    BigEndian::append16(bytes, tableCount);
    BigEndian::append16(bytes, kSearchRange);
    BigEndian::append16(bytes, kEntrySelector);
    BigEndian::append16(bytes, (tableCount + 8) * 16 % 256);
    return bytes;
}

Core::ByteArray subsetOf(const Core::SmartPtr<Fonts::FontProgram>& program,
                         const std::set<std::int32_t>& usedGlyphs) {
    const std::vector<std::int32_t> glyphs(usedGlyphs.begin(), usedGlyphs.end());
    return program.dynamicCast<Fonts::TTFFont>()->subset(glyphs, 0);
}

}  // namespace

TTFToType42::TTFToType42(const Core::SmartPtr<Fonts::FontProgram>& program,
                         const std::set<std::int32_t>& usedGlyphs)
    : TTFToType42(subsetOf(program, usedGlyphs)) {}

TTFToType42::TTFToType42(Core::ByteArray fontFile) : fontData(std::move(fontFile)) {
    parse();
}

TTFToType42::~TTFToType42() = default;

std::uint32_t TTFToType42::read16(std::uint64_t offset) {
    if (offset + 2 > fontData.size()) {
        valid = false;
        return 0;
    }
    return BigEndian::read16(fontData.span(), offset);
}

std::uint32_t TTFToType42::read32(std::uint64_t offset) {
    if (offset + 4 > fontData.size()) {
        valid = false;
        return 0;
    }
    return BigEndian::read32(fontData.span(), offset);
}

std::int32_t TTFToType42::readSigned16(std::uint64_t offset) {
    return static_cast<std::int16_t>(read16(offset));
}

std::optional<TTFToType42::Table> TTFToType42::findTable(std::uint32_t wanted) const {
    const auto found = std::ranges::find(tables, wanted, &Table::tag);
    if (found == tables.end() || found->offset < 0 || found->length < 0 ||
        static_cast<std::size_t>(found->offset) + static_cast<std::size_t>(found->length) >
            fontData.size())
        return std::nullopt;
    return *found;
}

void TTFToType42::parse() {
    readDirectory();
    const auto maxp = findTable(Sfnt::kMaxp);
    if (!valid || !maxp || !findTable(Sfnt::kGlyf) || !findTable(Sfnt::kHmtx))
        return;
    if (const auto cmap = findTable(Sfnt::kCmap))
        readCmap(*cmap);
    const std::uint32_t count = read16(static_cast<std::uint64_t>(maxp->offset) + 4);
    if (!valid)
        return;
    numGlyphs = static_cast<std::int32_t>(count);
    readHead();
    layOutGlyphs();
}

void TTFToType42::readDirectory() {
    const std::uint32_t count = read16(4);
    for (std::uint32_t i = 0; i < count && valid; ++i) {
        const std::uint64_t entry = Sfnt::kDirectoryHead + std::uint64_t{i} * Sfnt::kDirectoryEntry;
        const Table table{read32(entry), read32(entry + 4),
                          static_cast<std::int32_t>(read32(entry + 8)),
                          static_cast<std::int32_t>(read32(entry + 12))};
        if (valid)
            tables.push_back(table);
    }
}

void TTFToType42::readCmap(const Table& cmap) {
    const auto start = static_cast<std::uint64_t>(cmap.offset);
    const std::uint32_t count = read16(start + 2);
    for (std::uint32_t i = 0; i < count && valid; ++i) {
        const std::uint64_t entry = start + 4 + std::uint64_t{i} * 8;
        CmapRecord record{read16(entry), read16(entry + 2)};
        const std::uint64_t offset = start + read32(entry + 4);
        record.offset = static_cast<std::uint32_t>(offset);
        record.format = read16(offset);
        record.length = read16(offset + 2);
        if (valid)
            cmapRecords.push_back(record);
    }
}

void TTFToType42::readHead() {
    const auto head = findTable(Sfnt::kHead);
    if (!head)
        return;
    const auto start = static_cast<std::uint64_t>(head->offset);
    boundingBox = {readSigned16(start + 36), readSigned16(start + 38), readSigned16(start + 40),
                   readSigned16(start + 42)};
    longOffsets = readSigned16(start + Sfnt::kLocaFormatOffset);
}

/// Every glyph starts on a multiple of four. The record behind the last glyph marks the end.
void TTFToType42::layOutGlyphs() {
    const auto loca = findTable(Sfnt::kLoca);
    const auto glyf = findTable(Sfnt::kGlyf);
    const std::uint64_t start = loca ? static_cast<std::uint64_t>(loca->offset) : fontData.size();
    glyphs.resize(static_cast<std::size_t>(numGlyphs) + 1);
    for (std::size_t i = 0; i < glyphs.size(); ++i)
        glyphs[i] = {static_cast<std::int32_t>(i),
                     longOffsets != 0 ? read32(start + i * 4) : read16(start + i * 2) * 2};
    measureGlyphs(*glyf);
    std::uint32_t offset = 0;
    for (Glyph& glyph : glyphs) {
        glyph.newOffset = offset;
        offset = aligned(offset + glyph.length);
    }
}

/// A glyph reaches to the next one in the file, whatever its index; one that would reach out of
/// the table is empty.
void TTFToType42::measureGlyphs(const Table& glyf) {
    std::ranges::stable_sort(glyphs, {}, &Glyph::oldOffset);
    for (std::size_t i = 0; i + 1 < glyphs.size(); ++i) {
        Glyph& glyph = glyphs[i];
        const std::uint32_t end = glyphs[i + 1].oldOffset;
        if (glyph.index == numGlyphs)
            continue;
        if (end <= static_cast<std::uint32_t>(glyf.length))
            glyph.length = end - glyph.oldOffset;
        else
            valid = false;
    }
    std::ranges::sort(glyphs, {}, &Glyph::index);
}

std::vector<std::uint8_t> TTFToType42::bytesOf(std::uint32_t wanted) const {
    const auto table = findTable(wanted);
    if (!table)
        return {};
    if (wanted == Sfnt::kLoca)
        return newLoca();
    if (wanted == Sfnt::kGlyf)
        return newGlyf();
    if (wanted == Sfnt::kHead)
        return newHead();
    const auto first = fontData.begin() + table->offset;
    return {first, first + table->length};
}

std::vector<std::uint8_t> TTFToType42::newLoca() const {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(glyphs.size() * 4);
    for (const Glyph& glyph : glyphs)
        if (longOffsets != 0)
            BigEndian::append32(bytes, glyph.newOffset);
        else
            BigEndian::append16(bytes, glyph.newOffset / 2);
    return bytes;
}

std::vector<std::uint8_t> TTFToType42::newGlyf() const {
    const auto table = findTable(Sfnt::kGlyf);
    if (glyphs.empty() || !table)
        return {};
    std::vector<std::uint8_t> bytes(glyphs.back().newOffset);
    for (const Glyph& glyph : glyphs)
        std::copy_n(fontData.data() + table->offset + glyph.oldOffset, glyph.length,
                    bytes.begin() + glyph.newOffset);
    return bytes;
}

/// The first 54 bytes, with the adjustment of the whole file's sum still 0.
std::vector<std::uint8_t> TTFToType42::newHead() const {
    const auto table = findTable(Sfnt::kHead);
    std::vector<std::uint8_t> bytes(Sfnt::kHeadLength);
    std::copy_n(fontData.data() + table->offset,
                std::min(Sfnt::kHeadLength, static_cast<std::size_t>(table->length)),
                bytes.begin());
    std::fill_n(bytes.begin() + Sfnt::kAdjustmentOffset, 4, std::uint8_t{0});
    return bytes;
}

void TTFToType42::writeGlyphData(Core::IO::Stream& stream, const Core::String& name) const {
    std::vector<std::pair<std::uint32_t, std::vector<std::uint8_t>>> written;
    for (const OutputTable& table : kOutputTables)
        if (table.always || findTable(table.tag))
            written.emplace_back(table.tag, bytesOf(table.tag));

    std::vector<std::uint8_t> directory = offsetTable(static_cast<std::uint32_t>(written.size()));
    std::uint32_t sum = 0;
    auto offset =
        static_cast<std::uint32_t>(Sfnt::kDirectoryHead + Sfnt::kDirectoryEntry * written.size());
    for (const auto& [tableTag, bytes] : written) {
        const std::uint32_t checksum = checksumOf(bytes);
        BigEndian::append32(directory, tableTag);
        BigEndian::append32(directory, checksum);
        BigEndian::append32(directory, offset);
        BigEndian::append32(directory, static_cast<std::uint32_t>(bytes.size()));
        offset = aligned(offset + static_cast<std::uint32_t>(bytes.size()));
        sum += checksum;
    }
    sum += checksumOf(directory);

    stream.write(name.isEmpty() ? "/sfnts [\n" : "/" + name.toUtf8() + "_sfnts[\n");
    writeType42String(stream, directory);
    for (auto& [tableTag, bytes] : written) {
        if (tableTag == Sfnt::kHead && !bytes.empty()) {
            std::vector<std::uint8_t> adjustment;
            BigEndian::append32(adjustment, Sfnt::kFileSum - sum);
            std::ranges::copy(adjustment, bytes.begin() + Sfnt::kAdjustmentOffset);
        }
        if (tableTag == Sfnt::kGlyf)
            writeGlyphs(stream);
        else if (!bytes.empty())
            writeType42String(stream, bytes);
    }
    stream.write("] def\n");
}

void TTFToType42::writeGlyphs(Core::IO::Stream& stream) const {
    const auto table = findTable(Sfnt::kGlyf);
    if (!table)
        return;
    for (const Glyph& glyph : glyphs)
        if (glyph.length > 0)
            writeType42String(stream, fontData.span().subspan(
                                          static_cast<std::size_t>(table->offset) + glyph.oldOffset,
                                          glyph.length));
}

void TTFToType42::write(const Core::SmartPtr<Core::IO::Stream>& stream,
                        const Core::String& name) const {
    writeGlyphData(*stream, name);
    writeType42Dictionaries(*stream, name.toUtf8(), *this);
}

}  // namespace Drawing::PS
