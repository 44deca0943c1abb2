#include "PS/internal/NumberTexts.h"

#include "PS/internal/AppendNumber.h"

#include <algorithm>
#include <bit>

namespace Drawing::PS {

/// A number takes over the slot of another one; a text that is too long for a slot is formatted
/// each time.
void NumberTexts::append(double value, std::string& out) {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
    constexpr int shift = 64 - std::countr_zero(kSlots);
    const auto bits = std::bit_cast<std::uint64_t>(value);
    Slot& slot = slots_[static_cast<std::size_t>((bits * spread) >> shift)];
    if (slot.length != 0 && std::bit_cast<std::uint64_t>(slot.value) == bits) {
        out.append(slot.text.data(), slot.length);
        return;
    }
    const std::size_t begin = out.size();
    appendNumber(value, out);
    const std::size_t length = out.size() - begin;
    if (length > kMostCharacters)
        return;
    slot.value = value;
    slot.length = static_cast<std::uint8_t>(length);
    std::copy_n(out.begin() + static_cast<std::ptrdiff_t>(begin), length, slot.text.begin());
}

}  // namespace Drawing::PS
