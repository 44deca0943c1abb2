#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters as the units of the Unicode encoding forms (The Unicode Standard, 3.9).
namespace Core::Unicode {

inline constexpr char32_t kReplacement = 0xFFFD;
/// The first character that takes two UTF-16 units.
inline constexpr char32_t kFirstSupplementary = 0x10000;
inline constexpr char32_t kLast = 0x10FFFF;

constexpr bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr bool isSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// The character that a high and a low surrogate stand for.
constexpr char32_t combine(char32_t high, char32_t low) {
    return kFirstSupplementary + ((high & 0x3FF) << 10) + (low & 0x3FF);
}

/// The character at `at`, which moves behind it; there must be one. A surrogate without its
/// partner is a character of its own.
constexpr char32_t next(std::u16string_view text, std::size_t& at) {
    const char16_t unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at])) [[likely]]
        return unit;
    return combine(unit, text[at++]);
}

inline void appendUtf16(std::u16string& out, char32_t character) {
    if (character < kFirstSupplementary) {
        out.push_back(static_cast<char16_t>(character));
        return;
    }
    const char32_t rest = character - kFirstSupplementary;
    out.push_back(static_cast<char16_t>(0xD800 + (rest >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FF)));
}

inline std::u16string toUtf16(char32_t character) {
    std::u16string units;
    appendUtf16(units, character);
    return units;
}

inline void appendUtf8(std::string& out, char32_t character) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    const auto putContinuation = [&](int shift) { put(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        putContinuation(0);
    } else if (character < kFirstSupplementary) {
        put(0xE0 | character >> 12);
        putContinuation(6);
        putContinuation(0);
    } else {
        put(0xF0 | character >> 18);
        putContinuation(12);
        putContinuation(6);
        putContinuation(0);
    }
}

}  // namespace Core::Unicode
