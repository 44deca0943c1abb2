#include "Print/fonts/internal/OutlineFont.h"

#include "Fonts/OpenTypeFont.h"
#include "PS/internal/AppendNumber.h"
#include "Print/fonts/internal/CharString.h"
#include "Print/fonts/internal/FontDictionary.h"

namespace Drawing::Print {

namespace {

std::string matrixOf(std::uint32_t unitsPerEm) {
    std::string scale;
    PS::appendNumber(1.0 / unitsPerEm, scale);
    return "[" + scale + " 0 0 " + scale + " 0 0]";
}

}  // namespace

OutlineFont::OutlineFont(const Core::SmartPtr<Fonts::FontProgram>& program, std::uint32_t number,
                         std::uint32_t glyphCount,
                         const Core::SmartPtr<Fonts::FontProgram>& outlines,
                         std::uint32_t unitsPerEm)
    : PrintFont(program, number, glyphCount), outlines_(outlines), unitsPerEm_(unitsPerEm) {
    if (outlines == program)
        return;
    const auto other = outlines.dynamicCast<Fonts::OpenTypeFont>();
    for (GlyphId glyph = 0; other && glyph < other->getGlyphCount(); ++glyph)
        byName_.emplace(other->getGlyphName(glyph).toUtf8(), glyph);
}

OutlineFont::~OutlineFont() = default;

PrintFont::GlyphId OutlineFont::outlineOf(GlyphId glyph) const {
    if (outlines_.get() == &program())
        return glyph;
    const auto found = byName_.find(program().getGlyphName(glyph).toUtf8());
    return found != byName_.end() ? found->second : 0;
}

std::vector<std::uint8_t> OutlineFont::charString(GlyphId glyph) const {
    OutlineCharString charString(static_cast<float>(unitsPerEm_) / 1000, advance(glyph));
    outlines_->decomposeGlyph(outlineOf(glyph), charString);
    return CharString::encrypted(charString.finish());
}

void OutlineFont::defineCharStrings(ProgramText& out, const std::vector<NamedGlyph>& glyphs) const {
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
}

void OutlineFont::define(Core::IO::Stream& stream) const {
    ProgramText out(stream);
    const std::string matrix = matrixOf(unitsPerEm_);
    OutlineBox box;
    for (const CodedPart& part : parts())
        for (const CodedGlyph* coded : part)
            if (coded != nullptr)
                outlines_->decomposeGlyph(outlineOf(coded->glyph), box);
    for (std::size_t part = 0; part < parts().size(); ++part) {
        const std::vector<NamedGlyph> glyphs = nameGlyphs(parts()[part]);
        FontDictionary::begin(out, 1, fontName(), matrix, box.toText(unitsPerEm_ / 1000.0));
        FontDictionary::encoding(out, glyphs);
        FontDictionary::unicode(out, glyphs);
        out << "/Private 8 dict dup begin/BlueValues[]def/MinFeature{16 16}def/password 5839 def"
            << "/lenIV 0 def end def";
        defineCharStrings(out, glyphs);
        FontDictionary::end(out, partName(part));
    }
    out.finish();
}

}  // namespace Drawing::Print
