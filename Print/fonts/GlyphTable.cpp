#include "Print/fonts/internal/GlyphTable.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace Drawing::Print {

namespace {

constexpr std::size_t kGlyphsAPart = 255;

constexpr bool isPrintable(char32_t character) {
    return character >= U' ' && character <= U'~';
}

/// How well a code fits a glyph that stands for no ASCII character, best first. The first part
/// leaves the ASCII codes to the characters that own them as long as there are others; where a
/// text needs more parts than one, codes that a string shows in one byte come first.
constexpr int rankOf(int code, bool isFirstPart) {
    const bool isQuoted = code == '(' || code == ')' || code == '\\';
    if (code > ' ' && code <= '~' && !isQuoted)
        return isFirstPart ? 2 : 0;
    return code > 0xA0 ? 1 : 3;
}

using Codes = std::array<std::uint8_t, kGlyphsAPart>;

Codes ranked(bool isFirstPart) {
    Codes codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = static_cast<std::uint8_t>(i + 1);
    std::ranges::stable_sort(codes, {}, [=](int code) { return rankOf(code, isFirstPart); });
    return codes;
}

}  // namespace

GlyphCode GlyphTable::encode(GlyphId glyph, std::u32string_view text) {
    std::vector<Use>& uses = uses_[glyph];
    for (const Use& use : uses)
        if (use.text == text)
            return use.code;
    const GlyphCode code = add(glyph, text);
    uses.push_back({std::u32string(text), code});
    if (text.size() == 1)
        rememberFirst(glyph, text.front(), code);
    return code;
}

GlyphCode GlyphTable::add(GlyphId glyph, std::u32string_view text) {
    if (parts_.empty() || inLastPart_ == kGlyphsAPart) {
        if (parts_.size() > std::numeric_limits<std::uint16_t>::max())
            throw std::length_error("a document cannot show a font in more than 65536 parts");
        parts_.emplace_back().fill(nullptr);
        inLastPart_ = 0;
    }
    const std::uint8_t code = freeCode(text);
    parts_.back()[code] = &glyphs_.emplace_back(CodedGlyph{glyph, std::u32string(text)});
    ++inLastPart_;
    return {static_cast<std::uint16_t>(parts_.size() - 1), code};
}

std::uint8_t GlyphTable::freeCode(std::u32string_view text) const {
    static const std::array<Codes, 2> orders{ranked(false), ranked(true)};
    const CodedPart& part = parts_.back();
    if (text.size() == 1 && isPrintable(text.front()) && part[text.front()] == nullptr)
        return static_cast<std::uint8_t>(text.front());
    const Codes& order = orders[parts_.size() == 1 ? 1 : 0];
    return *std::ranges::find_if(order, [&](std::uint8_t code) { return part[code] == nullptr; });
}

void GlyphTable::rememberFirst(GlyphId glyph, char32_t character, GlyphCode code) {
    if (glyph >= first_.size())
        first_.resize(std::max<std::size_t>(glyph + 1, first_.size() * 2));
    if (first_[glyph].character == kNone)
        first_[glyph] = {character, code};
}

}  // namespace Drawing::Print
