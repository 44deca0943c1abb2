#pragma once

#include "Core/String.h"
#include "Fonts/FontProgram.h"
#include "Fonts/FontScript.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Characters of UTF-16 text. A surrogate without its partner is a character of its own.
namespace Fonts::Characters {

constexpr char32_t kFirstSupplementary = 0x10000;

constexpr bool isHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool isLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

/// The character at `at`, which moves behind it. There must be one.
inline char32_t next(std::u16string_view text, std::size_t& at) {
    const char16_t unit = text[at++];
    if (!isHighSurrogate(unit) || at == text.size() || !isLowSurrogate(text[at])) [[likely]]
        return unit;
    return kFirstSupplementary + ((char32_t{unit} & 0x3FF) << 10) + (char32_t{text[at++]} & 0x3FF);
}

inline Core::String toString(char32_t character) {
    if (character < kFirstSupplementary)
        return std::u16string(1, static_cast<char16_t>(character));
    const char32_t rest = character - kFirstSupplementary;
    return std::u16string{static_cast<char16_t>(0xD800 + (rest >> 10)),
                          static_cast<char16_t>(0xDC00 + (rest & 0x3FF))};
}

/// The answer of `glyphOf` for each character of the run.
template <class GlyphOf>
std::vector<FontProgram::GlyphId> map(const FontScript& run, GlyphOf glyphOf) {
    std::vector<FontProgram::GlyphId> glyphs;
    glyphs.reserve(run.text.length());
    for (std::size_t at = 0; at < run.text.length();)
        glyphs.push_back(glyphOf(next(run.text.view(), at)));
    return glyphs;
}

}  // namespace Fonts::Characters
