// /F0_p 12 dict dup begin/BlueValues[..]def .. /lenIV 0 def/Subrs 9 array dup 0<~..~>put .. def end
// def for each part: 16 dict begin/FontType 1 def .. /Private F0_p def /CharStrings 3 dict dup
// begin/.notdef<~..~>def/A<~..~>def .. end def/F0_0 currentdict end definefont pop

#include "Print/fonts/internal/Type1PrintFont.h"

#include "PS/internal/AppendNumber.h"
#include "Print/fonts/internal/FontDictionary.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>
#include <utility>

namespace Drawing::Print {

namespace {

constexpr double kNoticeable = 0.25;  // of a difference in width, in 1/1000 em

/// Breaks a value of any length at its blanks.
void writeValue(ProgramText& out, const std::string& value) {
    for (std::size_t begin = 0; begin < value.size();) {
        const std::size_t end = std::min(value.find(' ', begin + 1), value.size());
        out << std::string_view(value).substr(begin, end - begin);
        begin = end;
    }
}

void writeString(ProgramText& out, std::string_view before, const CharString::Bytes& charString,
                 std::string_view behind) {
    out << before;
    out.string(CharString::encrypted(charString));
    out << behind;
}

float unitOf(const Type1Program& program) {
    const std::string matrix = program.value("FontMatrix");
    const double scale = matrix.empty() ? 0 : std::strtod(matrix.c_str() + 1, nullptr);
    return scale > 0 ? static_cast<float>(1000 * scale) : 1;
}

}  // namespace

Type1PrintFont::Type1PrintFont(const Core::SmartPtr<Fonts::FontProgram>& program,
                               std::uint32_t number, std::uint32_t glyphCount, Type1Program source)
    : PrintFont(program, number, glyphCount), source_(std::move(source)), unit_(unitOf(source_)) {}

Type1PrintFont::~Type1PrintFont() = default;

const CharString::Bytes& Type1PrintFont::charString(GlyphId glyph) const {
    const auto found = source_.charStrings.find(program().getGlyphName(glyph).toUtf8());
    return found != source_.charStrings.end() ? found->second
                                              : source_.charStrings.find(".notdef")->second;
}

/// Accents and letters that composed glyphs look up by name, and which of the glyphs in use they
/// are.
ReservedNames Type1PrintFont::accentParts(const CharStringUse& use) const {
    ReservedNames names;
    for (const int code : use.parts())
        if (const std::string_view name = standardName(static_cast<std::uint8_t>(code));
            source_.charStrings.contains(name))
            names.emplace(name, Fonts::FontProgram::kMissingGlyph);
    for (const CodedPart& part : parts())
        for (const CodedGlyph* coded : part)
            if (coded != nullptr)
                if (const auto found = names.find(program().getGlyphName(coded->glyph).toUtf8());
                    found != names.end())
                    found->second = coded->glyph;
    return names;
}

void Type1PrintFont::define(Core::IO::Stream& stream) const {
    CharStringUse use(source_);
    use.add(charString(0));
    for (const CodedPart& part : parts())
        for (const CodedGlyph* coded : part)
            if (coded != nullptr)
                use.add(charString(coded->glyph));
    const ReservedNames accents = accentParts(use);
    for (const auto& [name, glyph] : accents)
        use.add(source_.charStrings.find(name)->second);

    ProgramText out(stream);
    definePrivate(out, use);
    const std::string matrix = source_.value("FontMatrix");
    const std::string box = source_.value("FontBBox");
    for (std::size_t part = 0; part < parts().size(); ++part) {
        const std::vector<NamedGlyph> glyphs = nameGlyphs(parts()[part], accents);
        FontDictionary::begin(out, 1, fontName(), matrix.empty() ? "[.001 0 0 .001 0 0]" : matrix,
                              box.empty() ? "[0 0 0 0]" : box);
        FontDictionary::encoding(out, glyphs);
        FontDictionary::unicode(out, glyphs);
        defineMetrics(out, glyphs);
        out << "/Private " + sharedName("p") + " def";
        defineCharStrings(out, glyphs, accents);
        FontDictionary::end(out, partName(part));
    }
    out.finish();
}

void Type1PrintFont::definePrivate(ProgramText& out, const CharStringUse& use) const {
    out << "/" + sharedName("p") + " " + std::to_string(source_.hints.size() + 4) +
               " dict dup begin"
        << "/MinFeature{16 16}def"
        << "/password 5839 def"
        << "/lenIV 0 def";
    for (const auto& [key, value] : source_.hints) {
        out << "/" + key + " ";
        writeValue(out, value);
        out << " def";
    }
    // Interpreters know the first four by their numbers and expect them in their places.
    std::set<int> needed = use.subroutines();
    for (const int usual : {0, 1, 2, 3})
        needed.insert(usual);
    while (!needed.empty() && !source_.subroutines.contains(*needed.rbegin()))
        needed.erase(*needed.rbegin());
    if (!needed.empty()) {
        out << "/Subrs " + std::to_string(*needed.rbegin() + 1) + " array";
        for (const int number : needed)
            if (const auto found = source_.subroutines.find(number);
                found != source_.subroutines.end())
                writeString(out, " dup " + std::to_string(number), found->second, "put");
        out << " def";
    }
    out << " end def";
    out.endLine();
}

void Type1PrintFont::defineCharStrings(ProgramText& out, const std::vector<NamedGlyph>& glyphs,
                                       const ReservedNames& accents) const {
    out << "/CharStrings " + std::to_string(glyphs.size() + accents.size() + 1) + " dict dup begin";
    writeString(out, "/.notdef", charString(0), "def");
    for (const auto& [name, glyph] : accents)
        if (std::ranges::find(glyphs, name, &NamedGlyph::name) == glyphs.end())
            writeString(out, "/" + name, source_.charStrings.find(name)->second, "def");
    for (const NamedGlyph& glyph : glyphs)
        writeString(out, "/" + glyph.name, charString(glyph.glyph), "def");
    out << " end def";
}

/// Where the source is another font of the same design, widths may differ.
void Type1PrintFont::defineMetrics(ProgramText& out, const std::vector<NamedGlyph>& glyphs) const {
    CharStringUse use(source_);
    std::string metrics;
    int count = 0;
    for (const NamedGlyph& glyph : glyphs) {
        const double drawn = use.add(charString(glyph.glyph)) * unit_;
        if (std::abs(drawn - advance(glyph.glyph)) < kNoticeable)
            continue;
        metrics += "/" + glyph.name + " ";
        PS::appendNumber(advance(glyph.glyph) / unit_, metrics);
        metrics += " def ";
        ++count;
    }
    if (count == 0)
        return;
    out << "/Metrics " + std::to_string(count) + " dict dup begin";
    writeValue(out, metrics);
    out << "end def";
}

}  // namespace Drawing::Print
