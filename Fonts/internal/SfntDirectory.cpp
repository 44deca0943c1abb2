// The file, and in a collection each face:
//
//   version 4 bytes | table count 2 | search fields 6 | per table: tag 4, checksum 4, offset 4,
//   length 4
//
// A collection: "ttcf" | version 4 bytes | face count 4 | per face: offset of its directory 4

#include "Fonts/internal/SfntDirectory.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/BigEndian.h"
#include "Fonts/internal/Sfnt.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Fonts {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::array kVersions{Sfnt::kTrueTypeVersion, Sfnt::tag("true"), Sfnt::tag("OTTO"),
                               Sfnt::kCollection};
constexpr std::array kRequired{Sfnt::kHead, Sfnt::kMaxp, Sfnt::kHhea, Sfnt::kHmtx};

std::size_t directoryOffset(Bytes bytes, std::uint32_t faceIndex, const std::string& fileName) {
    const bool isCollection = BigEndian::read32(bytes, 0) == Sfnt::kCollection;
    const std::uint32_t faceCount = isCollection ? BigEndian::read32(bytes, 8) : 1;
    if (faceIndex >= faceCount)
        throw FontException(fileName, "holds " + std::to_string(faceCount) +
                                          " faces counted from 0, not one with the number " +
                                          std::to_string(faceIndex));
    return isCollection ? BigEndian::read32(bytes, 12 + std::size_t{4} * faceIndex) : 0;
}

std::string nameOf(std::uint32_t tag) {
    std::string name(4, ' ');
    for (std::size_t i = 0; i < 4; ++i) {
        const auto letter = static_cast<char>(tag >> (24 - 8 * i) & 0xFF);
        name[i] = letter >= ' ' && letter <= '~' ? letter : '?';
    }
    return name;
}

}  // namespace

bool SfntDirectory::isSfnt(Bytes bytes) {
    return std::ranges::find(kVersions, BigEndian::read32(bytes, 0)) != kVersions.end();
}

SfntDirectory::SfntDirectory(Bytes bytes, std::uint32_t faceIndex, const std::string& fileName) {
    const std::size_t start = directoryOffset(bytes, faceIndex, fileName);
    const std::uint32_t count = BigEndian::read16(bytes, start + 4);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t entry = start + Sfnt::kDirectoryHead + Sfnt::kDirectoryEntry * i;
        const std::uint32_t tag = BigEndian::read32(bytes, entry);
        const std::size_t offset = BigEndian::read32(bytes, entry + 8);
        const std::size_t length = BigEndian::read32(bytes, entry + 12);
        if (entry + Sfnt::kDirectoryEntry > bytes.size() || offset + length > bytes.size())
            throw FontException(fileName, "is damaged: its table " + nameOf(tag) +
                                              " reaches beyond the end of the file");
        tables_[tag] = bytes.subspan(offset, length);
    }
    for (const std::uint32_t tag : kRequired)
        if (table(tag).empty())
            throw FontException(fileName, "is no usable font: it has no table " + nameOf(tag));
    if (table(Sfnt::kHead).size() < Sfnt::kHeadLength)
        throw FontException(fileName, "is damaged: its table head is too short");
}

Bytes SfntDirectory::table(std::uint32_t tag) const {
    const auto found = tables_.find(tag);
    return found == tables_.end() ? Bytes{} : found->second;
}

}  // namespace Fonts
