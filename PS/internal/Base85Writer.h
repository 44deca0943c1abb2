#pragma once

#include "Core/Stream.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace Drawing::PS {

/// Writes bytes as ASCII base-85 (ASCII85Decode, PLRM 3.13.3): four bytes, highest first, become
/// five digits from "!" to "u", four zero bytes become "z". A line holds 121 characters and ends
/// with a bare carriage return.
class Base85Writer {
public:
    /// `stream` must outlive the writer.
    explicit Base85Writer(Core::IO::Stream& stream) : stream_(stream) {}

    void write(std::span<const std::uint8_t> bytes);
    /// Writes what is left of a group and the end mark "~>" with its carriage return. Must be
    /// called once, last.
    void finish();

private:
    void put(char character);
    void putGroup(int digits);
    void putTuple();
    void putByte(std::uint8_t byte);

    Core::IO::Stream& stream_;
    char* out_ = nullptr;  ///< into the room reserved by the call in progress
    int column_ = 0;
    std::uint32_t tuple_ = 0;
    int count_ = 0;  ///< bytes in the tuple
};

}  // namespace Drawing::PS
