#include "Print/fonts/internal/OutlineFont.h"

#include "Print/fonts/internal/CharString.h"
#include "Print/fonts/internal/FontDictionary.h"

#include "PS/internal/AppendNumber.h"

namespace Drawing::Print {

OutlineFont::OutlineFont(const Core::SmartPtr<Fonts::OpenTypeFont>& program, std::uint32_t number)
    : PrintFont(program, number, program->getGlyphCount()), unitsPerEm_(program->getUnitsPerEm()) {}

OutlineFont::~OutlineFont() = default;

std::vector<std::uint8_t> OutlineFont::charString(GlyphId glyph) const {
    OutlineCharString charString(static_cast<float>(unitsPerEm_) / 1000, advance(glyph));
    program().decomposeGlyph(glyph, charString);
    return CharString::encrypted(charString.finish());
}

void OutlineFont::define(Core::IO::Stream& stream) const {
    ProgramText out(stream);
    std::string scale;
    PS::appendNumber(1.0 / unitsPerEm_, scale);
    FontBox box = boxAround(program(), parts());
    for (int& side : box)
        side = side * static_cast<int>(unitsPerEm_) / 1000;
    for (std::size_t part = 0; part < parts().size(); ++part) {
        const std::vector<NamedGlyph> glyphs = nameGlyphs(parts()[part]);
        FontDictionary::begin(out, 1, fontName(), "[" + scale + " 0 0 " + scale + " 0 0]",
                              toText(box));
        FontDictionary::encoding(out, glyphs);
        FontDictionary::unicode(out, glyphs);
        out << "/Private 8 dict dup begin/BlueValues[]def/MinFeature{16 16}def/password 5839 def"
            << "/lenIV 0 def end def";
        out << "/CharStrings " + std::to_string(glyphs.size() + 1) + " dict dup begin"
            << "/.notdef";
        out.string(charString(0));
        out << "def";
        for (const NamedGlyph& glyph : glyphs) {
            out << "/" + glyph.name;
            out.string(charString(glyph.glyph));
            out << "def";
        }
        out << " end def";
        FontDictionary::end(out, partName(part));
    }
    out.finish();
}

}  // namespace Drawing::Print
