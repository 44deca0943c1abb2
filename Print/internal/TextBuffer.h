#pragma once

#include "Core/NumberText.h"
#include "Core/Stream.h"

#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

namespace Drawing::Print {

/// PostScript text on its way to a stream: what a drawing call writes is collected here, so a call
/// that fails can be taken back.
class TextBuffer {
public:
    /// Decimals that stand for "as many as it takes to read the same float back".
    static constexpr int kAllDecimals = -1;
    static constexpr int kMostDecimals = 7;

    TextBuffer& operator<<(std::string_view text) {
        char* out = reserve(text.size());
        std::memcpy(out, text.data(), text.size());
        size_ += text.size();
        return *this;
    }
    TextBuffer& operator<<(char character) {
        *reserve(1) = character;
        ++size_;
        return *this;
    }
    /// A number with a blank in front of it unless it begins a line or follows a delimiter.
    /// `decimals` places behind the point at most; zeros at either end are left out. Raises
    /// `NumberRangeException` for what PostScript cannot read.
    void number(double value, int decimals = kAllDecimals);

    /// Room for `count` characters, of which `commit` keeps those before `end`.
    char* reserve(std::size_t count) {
        if (capacity_ - size_ < count) [[unlikely]]
            grow(count);
        return text_.get() + size_;
    }
    void commit(const char* end) { size_ = static_cast<std::size_t>(end - text_.get()); }

    [[nodiscard]] std::size_t size() const { return size_; }
    void truncate(std::size_t size) { size_ = size; }
    [[nodiscard]] std::string_view view() const { return {text_.get(), size_}; }
    /// Writes everything to `stream` and is empty again.
    void flushTo(Core::IO::Stream& stream);

private:
    void grow(std::size_t count);
    [[nodiscard]] bool needsBlank() const;

    std::unique_ptr<char[]> text_;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

/// Writes `value` at `out`, rounded to `decimals` places, without needless zeros; the end.
char* writeRounded(char* out, double value, int decimals);

}  // namespace Drawing::Print
