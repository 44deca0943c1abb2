#pragma once

#include "Core/ByteArray.h"
#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Core/String.h"
#include "Fonts/FontProgram.h"
#include "PS/Export.h"

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

namespace Drawing::PS {

/// Turns a TrueType program, reduced to the glyphs that a document shows, into the strings of a
/// Type 42 font's /sfnts array (Adobe Technical Note 5012): a TrueType file with a new table
/// directory, a new 'loca', and a string boundary at every table and glyph. Reads outside the
/// data give 0 and make the converter invalid; they never raise.
class PS_API TTFToType42 : public Core::Object {
public:
    struct BoundingBox {
        std::int32_t xMin = 0;
        std::int32_t yMin = 0;
        std::int32_t xMax = 0;
        std::int32_t yMax = 0;
    };

    /// Subsets `program`, which must be a `TTFFont` (null raises `NullPointerException`).
    TTFToType42(const Core::SmartPtr<Fonts::FontProgram>& program,
                const std::set<std::int32_t>& usedGlyphs);
    /// From the bytes of a TrueType file as they are.
    explicit TTFToType42(Core::ByteArray fontFile);
    ~TTFToType42() override;

    /// Writes the array "{name}_sfnts" ("sfnts" for an empty name), the Type 42 fonts of all blocks
    /// of 256 glyphs and the Type 0 font over them.
    void write(const Core::SmartPtr<Core::IO::Stream>& stream, const Core::String& name) const;
    /// The array alone.
    void writeGlyphData(Core::IO::Stream& stream, const Core::String& name) const;

    [[nodiscard]] std::int32_t getGlyphCount() const { return numGlyphs; }
    /// Font units.
    [[nodiscard]] const BoundingBox& getBoundingBox() const { return boundingBox; }
    [[nodiscard]] std::size_t getCmapRecordCount() const { return cmapRecords.size(); }
    [[nodiscard]] bool isValid() const { return valid; }

private:
    struct Table {
        std::uint32_t tag = 0;
        std::uint32_t checksum = 0;
        std::int32_t offset = 0;
        std::int32_t length = 0;
    };
    struct CmapRecord {
        std::uint32_t platform = 0;
        std::uint32_t encoding = 0;
        std::uint32_t offset = 0;  ///< in the file
        std::uint32_t format = 0;
        std::uint32_t length = 0;
    };
    struct Glyph {
        std::int32_t index = 0;
        std::uint32_t oldOffset = 0;  ///< in the old 'glyf'
        std::uint32_t newOffset = 0;
        std::uint32_t length = 0;
    };

    void parse();
    void readDirectory();
    void readCmap(const Table& cmap);
    void readHead();
    void layOutGlyphs();
    void measureGlyphs(const Table& glyf);

    [[nodiscard]] std::uint32_t read16(std::uint64_t offset);
    [[nodiscard]] std::uint32_t read32(std::uint64_t offset);
    [[nodiscard]] std::int32_t readSigned16(std::uint64_t offset);
    /// The table, if the font has it and it lies inside the data.
    [[nodiscard]] std::optional<Table> findTable(std::uint32_t wanted) const;
    [[nodiscard]] std::vector<std::uint8_t> bytesOf(std::uint32_t wanted) const;
    [[nodiscard]] std::vector<std::uint8_t> newLoca() const;
    [[nodiscard]] std::vector<std::uint8_t> newGlyf() const;
    [[nodiscard]] std::vector<std::uint8_t> newHead() const;
    void writeGlyphs(Core::IO::Stream& stream) const;

    Core::ByteArray fontData;
    std::vector<Table> tables;
    std::vector<CmapRecord> cmapRecords;
    std::vector<Glyph> glyphs;  ///< numGlyphs + 1, in the order of their indices
    std::int32_t numGlyphs = 0;
    std::int32_t longOffsets = 0;
    BoundingBox boundingBox;
    bool valid = true;
};

}  // namespace Drawing::PS
