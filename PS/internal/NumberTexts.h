#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Drawing::PS {

/// Texts of numbers that come again and again, such as the moves between kerned glyphs: looking one
/// up takes a fraction of the time of formatting it.
class NumberTexts {
public:
    /// The same as `appendNumber`.
    void append(double value, std::string& out);

private:
    static constexpr std::size_t kSlots = 256;
    static constexpr std::size_t kMostCharacters = 15;

    struct Slot {
        double value = 0;
        std::uint8_t length = 0;  ///< 0 while the slot is empty
        std::array<char, kMostCharacters> text{};
    };

    std::array<Slot, kSlots> slots_;
};

}  // namespace Drawing::PS
