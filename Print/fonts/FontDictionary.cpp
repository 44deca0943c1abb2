#include "Print/fonts/internal/FontDictionary.h"

#include "PS/internal/AppendNumber.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing::Print {

namespace {

std::string hexadecimal(std::u16string_view units) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (const char16_t unit : units)
        for (int shift = 12; shift >= 0; shift -= 4)
            text += digits[unit >> shift & 0xF];
    return text;
}

}  // namespace

void OutlineBox::curveTo(float x1, float y1, float x2, float y2, float x3, float y3) {
    add(x1, y1);
    add(x2, y2);
    add(x3, y3);
}

void OutlineBox::add(float x, float y) {
    box_ = {std::min(box_[0], x), std::min(box_[1], y), std::max(box_[2], x), std::max(box_[3], y)};
}

std::string OutlineBox::toText(double unit) const {
    std::string text;
    for (std::size_t side = 0; side < box_.size(); ++side) {
        const double length = box_[side] * unit;
        text += side == 0 ? '[' : ' ';
        PS::appendNumber(unit < 1   ? std::round(length * 10000) / 10000
                         : side < 2 ? std::floor(length)
                                    : std::ceil(length),
                         text);
    }
    return text + "]";
}

namespace FontDictionary {

void begin(ProgramText& out, int fontType, const std::string& fontName, const std::string& matrix,
           const std::string& box) {
    out << "16 dict begin"
        << "/FontType " + std::to_string(fontType) + " def"
        << "/FontName/" + fontName + " def"
        << "/PaintType 0 def"
        << "/FontMatrix" + matrix + "def"
        << "/FontBBox" + box + "def";
}

void encoding(ProgramText& out, const std::vector<NamedGlyph>& glyphs) {
    out << "/Encoding StandardEncoding 256 array copy";
    for (const NamedGlyph& glyph : glyphs)
        if (glyph.name != standardName(glyph.code))
            out << " dup " + std::to_string(glyph.code) + "/" + glyph.name + " put";
    out << " def";
}

void unicode(ProgramText& out, const std::vector<NamedGlyph>& glyphs) {
    const auto count = std::ranges::count(glyphs, false, &NamedGlyph::tellsText);
    if (count == 0)
        return;
    out << "/FontInfo 1 dict dup"
        << "/GlyphNames2Unicode " + std::to_string(count) + " dict dup begin";
    for (const NamedGlyph& glyph : glyphs)
        if (!glyph.tellsText)
            out << "/" + glyph.name + "<" + hexadecimal(toUtf16(glyph.text)) + ">def";
    out << " end put def";
}

void end(ProgramText& out, const std::string& partName) {
    out << "/" + partName + " currentdict end definefont pop";
    out.endLine();
}

}  // namespace FontDictionary

}  // namespace Drawing::Print
