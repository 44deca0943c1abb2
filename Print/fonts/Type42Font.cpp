// /F0_s[<~string of the file~> ...]def
// for each part:
// 16 dict begin/FontType 42 def ... /sfnts F0_s def
// /CharStrings 3 dict dup begin/.notdef 0 def/A 1 def ... end def/F0_0 currentdict end definefont
// pop

#include "Print/fonts/internal/Type42Font.h"

#include "Print/fonts/internal/FontDictionary.h"

#include <algorithm>
#include <map>

namespace Drawing::Print {

namespace {

/// A string is at most 65535 bytes long, of which the last is a fill byte that interpreters leave
/// out.
constexpr std::size_t kLongestPiece = 65532;

/// Cuts at the last break that fits; a table or glyph longer than a string is cut anywhere.
std::size_t pieceEnd(const std::vector<std::size_t>& breaks, std::size_t begin) {
    const auto after = std::ranges::upper_bound(breaks, begin + kLongestPiece);
    const std::size_t last = after == breaks.begin() ? 0 : *(after - 1);
    return last > begin ? last : std::min(begin + kLongestPiece, breaks.back());
}

void writeFile(ProgramText& out, const Fonts::CompactSubset& subset) {
    const auto bytes = subset.file.span();
    for (std::size_t begin = 0; begin < bytes.size();) {
        const std::size_t end = pieceEnd(subset.breaks, begin);
        std::vector<std::uint8_t> piece(bytes.begin() + static_cast<std::ptrdiff_t>(begin),
                                        bytes.begin() + static_cast<std::ptrdiff_t>(end));
        piece.resize((piece.size() + 1) / 2 * 2 + 1);
        out.string(piece);
        begin = end;
    }
}

using Numbers = std::map<Fonts::FontProgram::GlyphId, std::uint32_t>;

void writeCharStrings(ProgramText& out, const std::vector<NamedGlyph>& glyphs,
                      const Numbers& numbers) {
    out << "/CharStrings " + std::to_string(glyphs.size() + 1) + " dict dup begin"
        << "/.notdef 0 def";
    for (const NamedGlyph& glyph : glyphs)
        out << "/" + glyph.name + " " + std::to_string(numbers.at(glyph.glyph)) + " def";
    out << " end def";
}

}  // namespace

Type42Font::Type42Font(const Core::SmartPtr<Fonts::TTFFont>& program, std::uint32_t number,
                       bool keepHints)
    : PrintFont(program, number, program->getGlyphCount()), font_(program), keepHints_(keepHints) {}

Type42Font::~Type42Font() = default;

void Type42Font::define(Core::IO::Stream& stream) const {
    Numbers numbers;
    for (const CodedPart& part : parts())
        for (const CodedGlyph* coded : part)
            if (coded != nullptr)
                numbers[coded->glyph] = 0;
    std::vector<GlyphId> glyphs;
    for (const auto& [glyph, number] : numbers)
        glyphs.push_back(glyph);
    const Fonts::CompactSubset subset =
        font_->compactSubset(glyphs, keepHints_ ? 0 : Fonts::TTFFont::kDropHints);
    for (std::size_t i = 0; i < glyphs.size(); ++i)
        numbers[glyphs[i]] = subset.numbers[i];

    ProgramText out(stream);
    const std::string file = sharedName("s");
    OutlineBox box;
    for (const GlyphId glyph : glyphs)
        font_->decomposeGlyph(glyph, box);
    out << "/" + file + "[";
    writeFile(out, subset);
    out << "]def";
    out.endLine();
    for (std::size_t part = 0; part < parts().size(); ++part) {
        const std::vector<NamedGlyph> named = nameGlyphs(parts()[part]);
        FontDictionary::begin(out, 42, fontName(), "[1 0 0 1 0 0]", box.toText(0.001));
        FontDictionary::encoding(out, named);
        FontDictionary::unicode(out, named);
        out << "/sfnts " + file + " def";
        writeCharStrings(out, named, numbers);
        FontDictionary::end(out, partName(part));
    }
    out.finish();
}

}  // namespace Drawing::Print
