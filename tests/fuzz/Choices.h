#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

/// Bytes as a row of decisions. Behind their end all of them are 0.
class Choices {
public:
    explicit Choices(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    [[nodiscard]] std::size_t left() const { return rest_.size(); }

    std::uint8_t byte() {
        if (rest_.empty())
            return 0;
        const std::uint8_t first = rest_.front();
        rest_ = rest_.subspan(1);
        return first;
    }

    /// 0 to `count` - 1; `count` at most 256.
    std::size_t upTo(std::size_t count) { return byte() % count; }

    /// Of any kind: ordinary ones, and all bits that a number may have.
    float anyFloat() {
        const std::uint8_t first = byte();
        if (first < 200)
            return static_cast<float>(first) - 50;
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i)
            bits = bits << 8 | byte();
        return std::bit_cast<float>(bits);
    }

private:
    std::span<const std::uint8_t> rest_;
};
