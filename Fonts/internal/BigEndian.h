#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Numbers of font tables. What lies outside the bytes reads as 0.
namespace Fonts::BigEndian {

inline std::uint32_t read16(std::span<const std::uint8_t> bytes, std::size_t offset) {
    if (bytes.size() < 2 || offset > bytes.size() - 2)
        return 0;
    return std::uint32_t{bytes[offset]} << 8 | bytes[offset + 1];
}

inline std::uint32_t read32(std::span<const std::uint8_t> bytes, std::size_t offset) {
    if (bytes.size() < 4 || offset > bytes.size() - 4)
        return 0;
    return read16(bytes, offset) << 16 | read16(bytes, offset + 2);
}

/// The place must lie inside the bytes.
inline void write16(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value) {
    bytes[offset] = static_cast<std::uint8_t>(value >> 8);
    bytes[offset + 1] = static_cast<std::uint8_t>(value);
}

inline void write32(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value) {
    write16(bytes, offset, value >> 16);
    write16(bytes, offset + 2, value);
}

inline void append16(std::vector<std::uint8_t>& out, std::uint32_t value) {
    out.insert(out.end(),
               {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)});
}

inline void append32(std::vector<std::uint8_t>& out, std::uint32_t value) {
    append16(out, value >> 16);
    append16(out, value);
}

}  // namespace Fonts::BigEndian
