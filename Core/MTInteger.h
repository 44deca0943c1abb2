#pragma once

#include <atomic>
#include <cstdint>

namespace Core::Threading {

/// An integer that several threads may count up at once.
class MTInteger {
public:
    constexpr explicit MTInteger(std::uint32_t value = 0) noexcept : value_(value) {}

    /// Adds 1; the value after the addition, which no other call returns.
    std::uint32_t increment() { return value_.fetch_add(1, std::memory_order_relaxed) + 1; }
    [[nodiscard]] std::uint32_t get() const { return value_.load(std::memory_order_relaxed); }

private:
    std::atomic<std::uint32_t> value_;
};

}  // namespace Core::Threading
