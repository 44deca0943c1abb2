#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace Core {

/// A resizable block of bytes with value semantics: copies are independent.
class ByteArray {
public:
    ByteArray() = default;
    /// `size` bytes of value 0.
    explicit ByteArray(std::size_t size) : bytes_(size) {}
    ByteArray(const void* data, std::size_t size)
        : bytes_(static_cast<const std::uint8_t*>(data),
                 static_cast<const std::uint8_t*>(data) + size) {}
    explicit ByteArray(std::string_view text) : ByteArray(text.data(), text.size()) {}
    explicit ByteArray(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] bool empty() const { return bytes_.empty(); }
    [[nodiscard]] std::uint8_t* data() { return bytes_.data(); }
    [[nodiscard]] const std::uint8_t* data() const { return bytes_.data(); }
    [[nodiscard]] const char* chars() const { return reinterpret_cast<const char*>(data()); }
    std::uint8_t& operator[](std::size_t index) { return bytes_[index]; }
    const std::uint8_t& operator[](std::size_t index) const { return bytes_[index]; }
    [[nodiscard]] std::span<const std::uint8_t> span() const { return bytes_; }
    [[nodiscard]] std::string_view view() const { return {chars(), size()}; }
    [[nodiscard]] auto begin() const { return bytes_.begin(); }
    [[nodiscard]] auto end() const { return bytes_.end(); }

    void resize(std::size_t size) { bytes_.resize(size); }
    void append(const void* data, std::size_t size) {
        const auto* first = static_cast<const std::uint8_t*>(data);
        bytes_.insert(bytes_.end(), first, first + size);
    }

    friend bool operator==(const ByteArray&, const ByteArray&) = default;

private:
    std::vector<std::uint8_t> bytes_;
};

}  // namespace Core
