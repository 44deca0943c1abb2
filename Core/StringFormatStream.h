#pragma once

#include "Core/Export.h"
#include "Core/String.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Core {

/// Fills a template's places {0}, {1} ... {9} with arguments in the order of insertion:
///
///     String line = StringFormatStream(u"{0} {1} m") << x << y;
///
/// A place may repeat. "{0:X02}" prints an integer with at least two upper-case hexadecimal
/// digits, "{0:O03}" with at least three octal ones (any width from 1 to 99); a negative one as
/// its 32-bit two's complement. Numbers print as `NumberText.h` says, and one that cannot be
/// printed raises at its insertion. Every other brace is text. The template must outlive the
/// stream.
class CORE_API StringFormatStream {
public:
    explicit StringFormatStream(std::u16string_view pattern) : pattern_(pattern) {}

    StringFormatStream& operator<<(float value);
    StringFormatStream& operator<<(double value);
    StringFormatStream& operator<<(std::signed_integral auto value) {
        return insert(static_cast<std::int64_t>(value), value < 0);
    }
    StringFormatStream& operator<<(std::unsigned_integral auto value) {
        return insert(static_cast<std::int64_t>(static_cast<std::uint64_t>(value)), false);
    }
    StringFormatStream& operator<<(const String& text);
    StringFormatStream& operator<<(const char16_t* text) { return *this << String(text); }
    StringFormatStream& operator<<(bool) = delete;
    StringFormatStream& operator<<(char) = delete;
    StringFormatStream& operator<<(char16_t) = delete;

    /// The filled template. Raises `FormatException` if a place has no argument, or asks for
    /// digits of what is no integer.
    [[nodiscard]] String str() const;
    operator String() const { return str(); }

private:
    static constexpr std::size_t kMaxArguments = 10;

    struct Argument {
        std::size_t begin = 0;  ///< of its text in `texts_`
        std::size_t length = 0;
        std::int64_t value = 0;  ///< for {n:X..} and {n:O..}
        bool isInteger = false;
        bool isNegative = false;
    };

    StringFormatStream& insert(std::int64_t value, bool negative);
    void add(std::u16string_view text, Argument argument);
    void add(std::string_view ascii, Argument argument);
    std::size_t fillPlace(std::size_t at, std::u16string& out) const;
    static void appendDigits(std::u16string_view form, const Argument& argument,
                             std::u16string& out);

    std::u16string_view pattern_;
    std::u16string texts_;
    std::array<Argument, kMaxArguments> arguments_{};
    std::size_t count_ = 0;
};

}  // namespace Core
