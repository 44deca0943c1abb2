#include "Print/fonts/internal/GlyphTable.h"

#include "Print/PrintException.h"

#include <algorithm>
#include <limits>

namespace Drawing::Print {

namespace {

constexpr std::size_t kGlyphsAPart = 255;

constexpr bool isPrintable(char32_t character) {
    return character >= U' ' && character <= U'~';
}

/// Codes that no character set has a character for.
constexpr bool isNobody(int code) {
    return code < ' ' || code == 0x7F || code == 0x81 || code == 0x8D || code == 0x8F ||
           code == 0x90 || code == 0x9D;
}

enum class Wish { letterOfFirstPart, letter, silence };

/// How well a code fits a glyph that stands for no ASCII character, best first. The first part
/// leaves the ASCII codes to the characters that own them as long as there are others; where a
/// text needs more parts than one, codes that a string shows in one byte come first. Readers that
/// find no text for a glyph take the character of its code, so glyphs without text get codes
/// without one.
constexpr int rankOf(int code, Wish wish) {
    const bool isQuoted = code == '(' || code == ')' || code == '\\';
    if (isNobody(code))
        return wish == Wish::silence ? 0 : 4;
    if (code > ' ' && code <= '~' && !isQuoted)
        return wish == Wish::letterOfFirstPart ? 2 : 0;
    return code > 0xA0 ? 1 : 3;
}

using Codes = std::array<std::uint8_t, kGlyphsAPart>;

Codes ranked(Wish wish) {
    Codes codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = static_cast<std::uint8_t>(i + 1);
    std::ranges::stable_sort(codes, {}, [=](int code) { return rankOf(code, wish); });
    return codes;
}

const Codes& codesFor(Wish wish) {
    static const std::array<Codes, 3> orders{ranked(Wish::letterOfFirstPart), ranked(Wish::letter),
                                             ranked(Wish::silence)};
    return orders[static_cast<std::size_t>(wish)];
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
            throw PrintException(
                "a document cannot show a font with more than 65536 times 255 different texts; "
                "begin another document");
        parts_.emplace_back().fill(nullptr);
        inLastPart_ = 0;
    }
    const std::uint8_t code = freeCode(text);
    parts_.back()[code] = &glyphs_.emplace_back(CodedGlyph{glyph, std::u32string(text)});
    ++inLastPart_;
    return {static_cast<std::uint16_t>(parts_.size() - 1), code};
}

std::uint8_t GlyphTable::freeCode(std::u32string_view text) const {
    const CodedPart& part = parts_.back();
    if (text.size() == 1 && isPrintable(text.front()) && part[text.front()] == nullptr)
        return static_cast<std::uint8_t>(text.front());
    const Wish letter = parts_.size() == 1 ? Wish::letterOfFirstPart : Wish::letter;
    return *std::ranges::find_if(codesFor(text.empty() ? Wish::silence : letter),
                                 [&](std::uint8_t code) { return part[code] == nullptr; });
}

void GlyphTable::rememberFirst(GlyphId glyph, char32_t character, GlyphCode code) {
    if (glyph >= first_.size())
        first_.resize(std::max<std::size_t>(glyph + 1, first_.size() * 2));
    if (first_[glyph].character == kNone)
        first_[glyph] = {character, code};
}

}  // namespace Drawing::Print
