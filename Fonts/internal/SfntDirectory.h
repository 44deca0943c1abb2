#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>

namespace Fonts {

/// The tables of one face of a TrueType or OpenType file or collection (OpenType 1.9,
/// "Organization of an OpenType Font").
class SfntDirectory {
public:
    /// Whether the bytes begin as such a file.
    static bool isSfnt(std::span<const std::uint8_t> bytes);

    /// Raises `FontException`, naming `fileName`, for a face that the file does not have, and if
    /// a table reaches beyond the end of the file or one that every font needs is missing.
    SfntDirectory(std::span<const std::uint8_t> bytes, std::uint32_t faceIndex,
                  const std::string& fileName);

    [[nodiscard]] bool has(std::uint32_t tag) const { return tables_.contains(tag); }
    /// The bytes of a table; none if the face does not have it.
    [[nodiscard]] std::span<const std::uint8_t> table(std::uint32_t tag) const;

private:
    std::map<std::uint32_t, std::span<const std::uint8_t>> tables_;
};

}  // namespace Fonts
