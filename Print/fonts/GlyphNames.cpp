#include "Print/fonts/internal/GlyphNames.h"

#include <array>
#include <cstddef>
#include <set>
#include <utility>

namespace Drawing::Print {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestName = 31;
constexpr std::size_t kFirstAscii = 0x20;
constexpr std::size_t kFirstLatin = 0xA1;

constexpr std::array<std::string_view, 95> kAsciiNames{
    "space",       "exclam",
    "quotedbl",    "numbersign",
    "dollar",      "percent",
    "ampersand",   "quoteright",
    "parenleft",   "parenright",
    "asterisk",    "plus",
    "comma",       "hyphen",
    "period",      "slash",
    "zero",        "one",
    "two",         "three",
    "four",        "five",
    "six",         "seven",
    "eight",       "nine",
    "colon",       "semicolon",
    "less",        "equal",
    "greater",     "question",
    "at",          "A",
    "B",           "C",
    "D",           "E",
    "F",           "G",
    "H",           "I",
    "J",           "K",
    "L",           "M",
    "N",           "O",
    "P",           "Q",
    "R",           "S",
    "T",           "U",
    "V",           "W",
    "X",           "Y",
    "Z",           "bracketleft",
    "backslash",   "bracketright",
    "asciicircum", "underscore",
    "quoteleft",   "a",
    "b",           "c",
    "d",           "e",
    "f",           "g",
    "h",           "i",
    "j",           "k",
    "l",           "m",
    "n",           "o",
    "p",           "q",
    "r",           "s",
    "t",           "u",
    "v",           "w",
    "x",           "y",
    "z",           "braceleft",
    "bar",         "braceright",
    "asciitilde",
};

constexpr std::array<std::string_view, 91> kLatinNames{
    "exclamdown",
    "cent",
    "sterling",
    "fraction",
    "yen",
    "florin",
    "section",
    "currency",
    "quotesingle",
    "quotedblleft",
    "guillemotleft",
    "guilsinglleft",
    "guilsinglright",
    "fi",
    "fl",
    "",
    "endash",
    "dagger",
    "daggerdbl",
    "periodcentered",
    "",
    "paragraph",
    "bullet",
    "quotesinglbase",
    "quotedblbase",
    "quotedblright",
    "guillemotright",
    "ellipsis",
    "perthousand",
    "",
    "questiondown",
    "",
    "grave",
    "acute",
    "circumflex",
    "tilde",
    "macron",
    "breve",
    "dotaccent",
    "dieresis",
    "",
    "ring",
    "cedilla",
    "",
    "hungarumlaut",
    "ogonek",
    "caron",
    "emdash",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "AE",
    "",
    "ordfeminine",
    "",
    "",
    "",
    "",
    "Lslash",
    "Oslash",
    "OE",
    "ordmasculine",
    "",
    "",
    "",
    "",
    "",
    "ae",
    "",
    "",
    "",
    "dotlessi",
    "",
    "",
    "lslash",
    "oslash",
    "oe",
    "germandbls",
};

/// StandardEncoding shows curved quotes under the codes of these two.
constexpr bool ownsItsStandardName(char32_t character) {
    return character >= U' ' && character <= U'~' && character != U'\'' && character != U'`';
}

bool isCharacter(char32_t value) {
    return value < 0xD800 || (value > 0xDFFF && value <= 0x10FFFF);
}

std::string hexadecimal(char32_t value) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (int shift = value > 0xFFFFF ? 20 : value > 0xFFFF ? 16 : 12; shift >= 0; shift -= 4)
        text += digits[value >> shift & 0xF];
    return text;
}

/// Readers turn text that runs from right to left around character by character, those of one
/// glyph too; so lam with alef, which every Arabic font joins, is told as the one character that
/// Unicode has for both. Readers that look for words take it apart (NFKC).
std::u32string readable(const std::u32string& text) {
    static const std::map<std::u32string, char32_t> joined{
        {U"\u0644\u0622", U'\uFEF5'},
        {U"\u0644\u0623", U'\uFEF7'},
        {U"\u0644\u0625", U'\uFEF9'},
        {U"\u0644\u0627", U'\uFEFB'},
    };
    const auto found = joined.find(text);
    return found == joined.end() ? text : std::u32string(1, found->second);
}

/// Empty for a text that no name can tell.
std::string nameOf(std::u32string_view text) {
    if (text.size() == 1 && ownsItsStandardName(text.front()))
        return std::string(standardName(static_cast<std::uint8_t>(text.front())));
    if (text.size() == 1 && text.front() > 0xFFFF && isCharacter(text.front()))
        return "u" + hexadecimal(text.front());
    std::string name = text.empty() ? "" : "uni";
    for (const char32_t character : text) {
        if (character > 0xFFFF || !isCharacter(character))
            return {};
        name += hexadecimal(character);
    }
    return name.size() <= kLongestName ? name : std::string();
}

}  // namespace

std::string_view standardName(std::uint8_t code) {
    if (code >= kFirstLatin && code - kFirstLatin < kLatinNames.size())
        return kLatinNames[code - kFirstLatin];
    return code >= kFirstAscii && code - kFirstAscii < kAsciiNames.size()
               ? kAsciiNames[code - kFirstAscii]
               : std::string_view();
}

std::vector<NamedGlyph> nameGlyphs(const CodedPart& part, const ReservedNames& reserved) {
    std::vector<NamedGlyph> glyphs;
    std::set<std::string> taken;
    const auto isFree = [&](const std::string& name, Fonts::FontProgram::GlyphId glyph) {
        const auto found = reserved.find(name);
        return !name.empty() && (found == reserved.end() || found->second == glyph) &&
               taken.insert(name).second;
    };
    for (std::size_t code = 1; code < part.size(); ++code) {
        if (part[code] == nullptr)
            continue;
        NamedGlyph glyph{
            static_cast<std::uint8_t>(code), part[code]->glyph, {}, readable(part[code]->text)};
        glyph.name = nameOf(glyph.text);
        const bool isOwn = isFree(glyph.name, glyph.glyph);
        glyph.tellsText = isOwn && glyph.text.size() == 1;
        if (!isOwn)
            glyph.name += "." + std::to_string(code);
        glyphs.push_back(std::move(glyph));
    }
    return glyphs;
}

std::u16string toUtf16(std::u32string_view text) {
    std::u16string units;
    for (const char32_t value : text) {
        const char32_t character = isCharacter(value) ? value : kReplacement;
        if (character > 0xFFFF) {
            units += static_cast<char16_t>(0xD7C0 + (character >> 10));
            units += static_cast<char16_t>(0xDC00 | (character & 0x3FF));
        } else {
            units += static_cast<char16_t>(character);
        }
    }
    return units;
}

}  // namespace Drawing::Print
