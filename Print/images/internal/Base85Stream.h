#pragma once

#include "Print/images/internal/WriteOnlyStream.h"

namespace Drawing::Print {

/// Turns what is written to it into lines of ASCII base-85 (ASCII85Decode, PLRM 3.13.3) that end
/// with a line feed, have at most 255 characters, as DSC asks for, and never begin with "%", so
/// that no program takes one for a comment.
class Base85Stream : public WriteOnlyStream {
public:
    /// `output` must outlive the stream.
    explicit Base85Stream(Core::IO::Stream& output) : output_(output) {}

    /// Writes what is left of a group, the end mark "~>" and the end of its line. Must be called
    /// once, last.
    void finish();

private:
    void take(std::span<const std::uint8_t> bytes) override;
    void takeSome(std::span<const std::uint8_t> bytes);
    void takeByte(std::uint8_t byte);
    void putGroup(std::uint32_t group, std::size_t digits);

    Core::IO::Stream& output_;
    char* out_ = nullptr;  ///< into the room reserved by the call in progress
    std::size_t column_ = 0;
    std::uint32_t group_ = 0;
    std::size_t count_ = 0;  ///< bytes in the group
};

}  // namespace Drawing::Print
