#pragma once

#include "Fonts/GlyphSink.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace Drawing::Print {

/// Type 1 charstrings (Adobe Type 1 Font Format, chapter 6).
namespace CharString {

using Bytes = std::vector<std::uint8_t>;

void appendNumber(int value, Bytes& out);
/// As /CharStrings and /Subrs hold them when /lenIV is 0 (chapter 7.3).
[[nodiscard]] Bytes encrypted(std::string_view clear);
[[nodiscard]] Bytes encrypted(const Bytes& clear);
/// The inverse, for strings that begin with `lead` bytes of no meaning (/lenIV), or, with a
/// negative `lead`, are not encrypted. The encrypted part of a font is read in the same way with
/// a key of its own.
[[nodiscard]] Bytes decrypted(std::string_view cipher, int lead, std::uint16_t key = 4330);

}  // namespace CharString

/// Writes an outline as a charstring without hints.
class OutlineCharString : public Fonts::GlyphSink {
public:
    /// `unit`: font units to 1/1000 em. `advance` in 1/1000 em.
    OutlineCharString(float unit, float advance);

    void moveTo(float x, float y) override;
    void lineTo(float x, float y) override;
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override;
    void close() override;

    [[nodiscard]] CharString::Bytes finish();

private:
    struct Step {
        int x;
        int y;
    };
    [[nodiscard]] Step stepTo(float x, float y);
    void put(std::initializer_list<int> numbers, std::uint8_t command);

    float unit_;
    int x_ = 0;
    int y_ = 0;
    CharString::Bytes bytes_;
};

}  // namespace Drawing::Print
