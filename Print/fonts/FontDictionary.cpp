#include "Print/fonts/internal/FontDictionary.h"

#include "Fonts/GlyphSink.h"
#include "PS/internal/AppendNumber.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Drawing::Print {

namespace {

class BoxSink : public Fonts::GlyphSink {
public:
    void moveTo(float x, float y) override { add(x, y); }
    void lineTo(float x, float y) override { add(x, y); }
    void curveTo(float x1, float y1, float x2, float y2, float x3, float y3) override {
        add(x1, y1);
        add(x2, y2);
        add(x3, y3);
    }
    void close() override {}

    FontBox box{};

private:
    void add(float x, float y) {
        box[0] = std::min(box[0], static_cast<int>(std::floor(x)));
        box[1] = std::min(box[1], static_cast<int>(std::floor(y)));
        box[2] = std::max(box[2], static_cast<int>(std::ceil(x)));
        box[3] = std::max(box[3], static_cast<int>(std::ceil(y)));
    }
};

std::string hexadecimal(std::u16string_view units) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text;
    for (const char16_t unit : units)
        for (int shift = 12; shift >= 0; shift -= 4)
            text += digits[unit >> shift & 0xF];
    return text;
}

}  // namespace

FontBox boxAround(const Fonts::FontProgram& program, std::span<const CodedPart> parts) {
    BoxSink sink;
    for (const CodedPart& part : parts)
        for (const CodedGlyph* coded : part)
            if (coded != nullptr)
                program.decomposeGlyph(coded->glyph, sink);
    return sink.box;
}

std::string thousandths(int length) {
    std::string text;
    PS::appendNumber(length / 1000.0, text);
    return text;
}

std::string toText(const FontBox& box) {
    std::string text = "[";
    for (const int side : box)
        text += std::to_string(side) + " ";
    text.back() = ']';
    return text;
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
