#include "Print/fonts/internal/StandardPrintFont.h"

#include "Fonts/CffFont.h"
#include "Fonts/FontException.h"
#include "Fonts/FontManager.h"
#include "Fonts/Type1Font.h"
#include "Print/fonts/internal/FontDictionary.h"
#include "Print/fonts/internal/OutlineFont.h"
#include "Print/fonts/internal/Type1PrintFont.h"

#include <array>
#include <string_view>

namespace Drawing::Print {

namespace {

constexpr int kBold = 700;
constexpr int kRegular = 400;

struct Design {
    std::string_view standardFamily;
    std::string_view family;
};

constexpr std::array<Design, 5> kDesigns{{
    {"Courier", "Nimbus Mono PS"},
    {"Helvetica", "Nimbus Sans"},
    {"Symbol", "Standard Symbols PS"},
    {"Times", "Nimbus Roman"},
    {"ZapfDingbats", "D050000L"},
}};

std::string designOf(const Fonts::FontMetrics& metrics) {
    for (const Design& design : kDesigns)
        if (metrics.familyName == Core::String(design.standardFamily))
            return std::string(design.family);
    return {};
}

Core::SmartPtr<Fonts::FontProgram> findInstalled(const Fonts::FontMetrics& metrics,
                                                 const std::string& family) {
    const std::string name = metrics.postScriptName.toUtf8();
    const bool isBold = name.find("Bold") != std::string::npos;
    const auto font = Core::makeObject<Drawing::Font>(
        Core::String(family), 1.0f, isBold ? kBold : kRegular,
        metrics.italicAngle != 0 ? Drawing::FontSlant::italic : Drawing::FontSlant::upright);
    return Fonts::FontManager::findFamily(font);
}

}  // namespace

StandardPrintFont::StandardPrintFont(const Core::SmartPtr<Fonts::StandardFont>& program,
                                     std::uint32_t number)
    : PrintFont(program, number, program->getGlyphCount()) {}

StandardPrintFont::~StandardPrintFont() = default;

std::string StandardPrintFont::neededFont() const {
    return program().getMetrics().postScriptName.toUtf8();
}

void StandardPrintFont::define(Core::IO::Stream& stream) const {
    ProgramText out(stream);
    for (std::size_t part = 0; part < parts().size(); ++part) {
        std::vector<NamedGlyph> glyphs = nameGlyphs(parts()[part]);
        for (NamedGlyph& glyph : glyphs)
            glyph.name = program().getGlyphName(glyph.glyph).toUtf8();
        out << "/" + neededFont() + " findfont"
            << " dup length dict begin"
            << "{1 index/FID ne{def}{pop pop}ifelse}forall";
        FontDictionary::encoding(out, glyphs);
        FontDictionary::end(out, partName(part));
    }
    out.finish();
}

std::unique_ptr<PrintFont> embedStandardFont(const Core::SmartPtr<Fonts::StandardFont>& program,
                                             std::uint32_t number) {
    const Fonts::FontMetrics& metrics = program->getMetrics();
    const std::string family = designOf(metrics);
    const auto installed = findInstalled(metrics, family);
    if (const auto type1 = installed.dynamicCast<Fonts::Type1Font>()) {
        Type1Program source = Type1Program::read(type1->getProgramData());
        if (source.isPlain())
            return std::make_unique<Type1PrintFont>(program, number, program->getGlyphCount(),
                                                    std::move(source));
    }
    if (const auto cff = installed.dynamicCast<Fonts::CffFont>())
        return std::make_unique<OutlineFont>(program, number, program->getGlyphCount(), cff,
                                             cff->getUnitsPerEm());
    throw Fonts::FontException(metrics.postScriptName.toUtf8(),
                               "cannot be embedded: no font of its design is installed; install "
                               "the family \"" +
                                   family + "\" (URW base 35 fonts)");
}

}  // namespace Drawing::Print
