#pragma once

#include <cstddef>
#include <cstdint>

/// Names and numbers of TrueType and OpenType files (OpenType 1.9, "Organization of an OpenType
/// Font" and 'head').
namespace Fonts::Sfnt {

/// A name of four letters as files and HarfBuzz hold it.
constexpr std::uint32_t tag(const char (&name)[5]) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<std::uint8_t>(name[i]);
    return value;
}

inline constexpr std::uint32_t kTrueTypeVersion = 0x00010000;
inline constexpr std::uint32_t kCollection = tag("ttcf");

inline constexpr std::uint32_t kCff = tag("CFF ");
inline constexpr std::uint32_t kCff2 = tag("CFF2");
inline constexpr std::uint32_t kCbdt = tag("CBDT");
inline constexpr std::uint32_t kSbix = tag("sbix");
inline constexpr std::uint32_t kColr = tag("COLR");
inline constexpr std::uint32_t kOs2 = tag("OS/2");
inline constexpr std::uint32_t kCmap = tag("cmap");
inline constexpr std::uint32_t kCvt = tag("cvt ");
inline constexpr std::uint32_t kFpgm = tag("fpgm");
inline constexpr std::uint32_t kFvar = tag("fvar");
inline constexpr std::uint32_t kGlyf = tag("glyf");
inline constexpr std::uint32_t kHead = tag("head");
inline constexpr std::uint32_t kHhea = tag("hhea");
inline constexpr std::uint32_t kHmtx = tag("hmtx");
inline constexpr std::uint32_t kLoca = tag("loca");
inline constexpr std::uint32_t kMaxp = tag("maxp");
inline constexpr std::uint32_t kPrep = tag("prep");
inline constexpr std::uint32_t kVhea = tag("vhea");
inline constexpr std::uint32_t kVmtx = tag("vmtx");

/// The directory: a head, then an entry for each table.
inline constexpr std::size_t kDirectoryHead = 12;
inline constexpr std::size_t kDirectoryEntry = 16;

/// Length of 'head', and where in it checkSumAdjustment and indexToLocFormat stand. With the
/// adjustment the words of the whole file add up to `kFileSum`.
inline constexpr std::size_t kHeadLength = 54;
inline constexpr std::size_t kAdjustmentOffset = 8;
inline constexpr std::size_t kLocaFormatOffset = 50;
inline constexpr std::uint32_t kFileSum = 0xB1B0AFBA;

}  // namespace Fonts::Sfnt
