#pragma once

#include "Drawing/Image.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace Drawing::Print {

/// Reads over a JPEG file (ITU-T T.81) that comes in pieces, from marker to marker, and tells
/// whether a PostScript interpreter can decode it (DCTDecode, PLRM 3.13.3).
class JpegScanner {
public:
    /// Reads on; how many of the bytes belong to the image, fewer than all behind its end.
    std::size_t scan(std::span<const std::uint8_t> bytes);

    /// Whether the file is one whole image, sequential, Huffman-coded, of 8-bit samples in a
    /// colour space that the file tells as the interpreter understands it.
    [[nodiscard]] bool isUsable() const;
    [[nodiscard]] PixelSize size() const { return size_; }
    [[nodiscard]] int components() const { return components_; }
    /// Whether 255 stands for no ink: programs that write Adobe's marker write CMYK so.
    [[nodiscard]] bool isInverted() const { return hasAdobeMarker_ && components_ == 4; }

private:
    enum class State { marker, code, lengthHigh, lengthLow, segment, entropy, end, damaged };

    void step(std::uint8_t byte);
    void readCode(std::uint8_t code);
    void readSegment(std::uint8_t byte);
    void endSegment();
    void readFrame();

    State state_ = State::marker;
    bool isEntropyCoded_ = false;  ///< data between markers belongs to a scan
    std::uint8_t code_ = 0;
    std::size_t left_ = 0;                 ///< bytes of the segment still to come
    std::array<std::uint8_t, 18> head_{};  ///< the first bytes of the segment
    std::size_t headSize_ = 0;

    int frames_ = 0;
    bool isSequential_ = true;
    bool hasAdobeMarker_ = false;
    bool hasJfifMarker_ = false;
    bool isNamedRgb_ = false;
    PixelSize size_;
    int components_ = 0;
};

}  // namespace Drawing::Print
