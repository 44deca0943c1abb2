#pragma once

#include <cstdint>

/// What the licence bits of a font allow (OpenType 1.9, OS/2 fsType; Type 1 fonts use the same).
namespace Fonts::EmbeddingRights {

constexpr std::uint32_t kRestricted = 0x0002;
constexpr std::uint32_t kPreviewAndPrint = 0x0004;
constexpr std::uint32_t kEditable = 0x0008;
constexpr std::uint32_t kNoSubsetting = 0x0100;
constexpr std::uint32_t kBitmapsOnly = 0x0200;

/// Of several levels in one font the most generous one counts.
constexpr bool allowEmbedding(std::uint32_t bits) {
    const bool restricted =
        (bits & kRestricted) != 0 && (bits & (kPreviewAndPrint | kEditable)) == 0;
    return !restricted && (bits & kBitmapsOnly) == 0;
}

constexpr bool allowSubsetting(std::uint32_t bits) {
    return (bits & kNoSubsetting) == 0;
}

}  // namespace Fonts::EmbeddingRights
