#include "Print/fonts/internal/PrintFont.h"

#include "Fonts/CffFont.h"
#include "Fonts/StandardFont.h"
#include "Fonts/TTFFont.h"
#include "Fonts/Type1Font.h"
#include "Print/fonts/internal/OutlineFont.h"
#include "Print/fonts/internal/StandardPrintFont.h"
#include "Print/fonts/internal/Type1PrintFont.h"
#include "Print/fonts/internal/Type42Font.h"

#include <utility>

namespace Drawing::Print {

namespace {

constexpr std::uint32_t kType1Units = 1000;

std::unique_ptr<PrintFont> makeType1(const Core::SmartPtr<Fonts::Type1Font>& program,
                                     std::uint32_t number) {
    Type1Program source = Type1Program::read(program->getProgramData());
    if (source.isPlain())
        return std::make_unique<Type1PrintFont>(program, number, program->getGlyphCount(),
                                                std::move(source));
    return std::make_unique<OutlineFont>(program, number, program->getGlyphCount(), program,
                                         kType1Units);
}

}  // namespace

std::unique_ptr<PrintFont> PrintFont::make(const Core::SmartPtr<Fonts::FontProgram>& program,
                                           std::uint32_t number, const FontSettings& settings) {
    if (const auto standard = program.dynamicCast<Fonts::StandardFont>()) {
        if (settings.embedStandardFonts)
            return embedStandardFont(standard, number);
        return std::make_unique<StandardPrintFont>(standard, number);
    }
    if (!program->isEmbeddable())
        return nullptr;
    if (const auto trueType = program.dynamicCast<Fonts::TTFFont>())
        return std::make_unique<Type42Font>(trueType, number, settings.keepHints);
    // The whole of a font that forbids subsets would be lost on the way to Type 1.
    if (const auto cff = program.dynamicCast<Fonts::CffFont>(); cff && cff->isSubsettable())
        return std::make_unique<OutlineFont>(cff, number, cff->getGlyphCount(), cff,
                                             cff->getUnitsPerEm());
    const auto outlines = program.dynamicCast<Fonts::OpenTypeFont>();
    if (outlines && !program.dynamicCast<Fonts::CffFont>() && outlines->isSubsettable())
        return std::make_unique<OutlineFont>(outlines, number, outlines->getGlyphCount(), outlines,
                                             outlines->getUnitsPerEm());
    if (const auto type1 = program.dynamicCast<Fonts::Type1Font>(); type1 && type1->isSubsettable())
        return makeType1(type1, number);
    return nullptr;
}

PrintFont::PrintFont(Core::SmartPtr<Fonts::FontProgram> program, std::uint32_t number,
                     std::uint32_t glyphCount)
    : program_(std::move(program)), number_(number), glyphCount_(glyphCount) {}

PrintFont::~PrintFont() = default;

const std::string& PrintFont::partName(std::size_t part) const {
    while (partNames_.size() <= part)
        partNames_.push_back(sharedName(std::to_string(partNames_.size())));
    return partNames_[part];
}

std::string PrintFont::neededFont() const {
    return {};
}

float PrintFont::advance(GlyphId glyph) const {
    return program_->getAdvance(glyph < glyphCount_ ? glyph : 0);
}

void PrintFont::writeDefinitions(Core::IO::Stream& stream) const {
    if (!parts().empty())
        define(stream);
}

std::string PrintFont::fontName() const {
    const Core::String& name = program_->getMetrics().postScriptName;
    return name.isEmpty() ? sharedName("0") : name.toUtf8();
}

std::string PrintFont::sharedName(const std::string& suffix) const {
    return "F" + std::to_string(number_) + "_" + suffix;
}

}  // namespace Drawing::Print
