#pragma once

#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Fonts {

/// Remembers a number for pairs of glyphs, without locks and in a fixed amount of memory: a pair
/// lies in one of the two slots that its hash names, and displaces another one where both are
/// taken. Number and pair share one atomic word, so no thread reads the number of another pair.
/// The memory is taken at the first question, as most fonts that are opened are never asked one.
class PairCache {
public:
    static constexpr std::uint32_t kGlyphs = 0x10000;

    PairCache() = default;
    PairCache(const PairCache&) = delete;
    PairCache& operator=(const PairCache&) = delete;
    ~PairCache() { delete slots_.load(std::memory_order_relaxed); }

    /// The number of a pair, from `compute` if it is not remembered. Both glyphs below
    /// `kGlyphs`; numbers beyond 16 bits are right but not remembered.
    template <class Compute>
    int get(std::uint32_t first, std::uint32_t second, Compute compute) {
        const std::uint64_t pair = kUsed | std::uint64_t{first} << 16 | second;
        const std::size_t home = pair * kHash >> (64 - kSlotBits);
        Slots& slots = takeSlots();
        for (const std::size_t place : {home, home ^ 1}) {
            const std::uint64_t word = slots[place].load(std::memory_order_relaxed);
            if (word >> 16 == pair)
                return std::bit_cast<std::int16_t>(static_cast<std::uint16_t>(word));
        }
        const int number = compute();
        if (number == static_cast<std::int16_t>(number))
            store(slots, home, pair << 16 | static_cast<std::uint16_t>(number));
        return number;
    }

private:
    static constexpr int kSlotBits = 13;
    static constexpr std::uint64_t kHash = 0x9E3779B97F4A7C15;
    static constexpr std::uint64_t kUsed = std::uint64_t{1} << 32;

    using Slots = std::array<std::atomic<std::uint64_t>, std::size_t{1} << kSlotBits>;

    /// Of several threads that ask first, one has its slots taken.
    Slots& takeSlots() {
        Slots* known = slots_.load(std::memory_order_acquire);
        if (known)
            return *known;
        auto fresh = std::make_unique<Slots>();
        return slots_.compare_exchange_strong(known, fresh.get()) ? *fresh.release() : *known;
    }

    static void store(Slots& slots, std::size_t home, std::uint64_t word) {
        const bool isFree = slots[home].load(std::memory_order_relaxed) == 0;
        const bool partnerIsFree = slots[home ^ 1].load(std::memory_order_relaxed) == 0;
        slots[!isFree && partnerIsFree ? home ^ 1 : home].store(word, std::memory_order_relaxed);
    }

    std::atomic<Slots*> slots_{nullptr};
};

}  // namespace Fonts
