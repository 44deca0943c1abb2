// Text: "q", the matrix, the font selection, the run's operand as the font resource writes it,
// the paint, "Q".

#include "Core/Exception.h"
#include "Core/FixedFormat.h"
#include "Core/StringFormatStream.h"
#include "Drawing/Font.h"
#include "Fonts/FontManager.h"
#include "PS/PSDocument.h"
#include "PS/fonts/PSStdAdobeFontResource.h"
#include "PS/fonts/PSTTFFontResource.h"
#include "PS/fonts/PSType1FontResource.h"

#include <algorithm>
#include <array>

namespace Drawing::PS {

using Core::SmartPtr;
using Core::String;
using Core::writeFixed;
using Fonts::FontKind;
using Fonts::FontProgram;

namespace {

constexpr int kUnknownProgramKind = 1821;
constexpr int kFullTrueTypeResource = 1853;
constexpr int kUnknownResourceKind = 1866;

/// "Times" stands beside the fourteen names on purpose: some metrics call the font so.
constexpr std::array kStandardNames{
    u"Courier",          u"Courier-Bold",   u"Courier-Oblique",   u"Courier-BoldOblique",
    u"Helvetica",        u"Helvetica-Bold", u"Helvetica-Oblique", u"Helvetica-BoldOblique",
    u"Times-Roman",      u"Times",          u"Times-Bold",        u"Times-Italic",
    u"Times-BoldItalic", u"Symbol",         u"ZapfDingbats"};

[[noreturn]] void unreachable(int line) {
    throw Core::UnreacheableCodeException("PSDocument", line);
}

template <class Resource>
SmartPtr<PSFontResource> make(const Font& font, const SmartPtr<FontProgram>& program,
                              bool kerning) {
    return Core::makeObject<Resource>(font, program, font.getFontFamily(), kerning);
}

/// The resource for a font seen for the first time; null for OpenType with CFF outlines, which has
/// no PostScript form here.
SmartPtr<PSFontResource> makeFirst(const Font& font, const SmartPtr<FontProgram>& program,
                                   bool kerning) {
    switch (program->getKind()) {
        case FontKind::trueType:
            return make<PSTTFFontResource>(font, program, kerning);
        case FontKind::openTypeCff:
            return nullptr;
        case FontKind::type1:
            if (!program->isEmbeddable() &&
                PSDocument::crtPSFontIsStd(program->getMetrics().postScriptName))
                return make<PSStdAdobeFontResource>(font, program, kerning);
            return make<PSType1FontResource>(font, program, kerning);
        default:
            unreachable(kUnknownProgramKind);
    }
}

/// One more resource of a font whose others are full.
SmartPtr<PSFontResource> makeNext(const Font& font, const PSFontResource& first, bool kerning) {
    const SmartPtr<FontProgram> program = first.getFontProgram();
    if (program->getKind() != FontKind::type1)
        unreachable(kFullTrueTypeResource);
    switch (first.getKind()) {
        case PSFontResource::standard:
            return make<PSStdAdobeFontResource>(font, program, kerning);
        case PSFontResource::type1:
            return make<PSType1FontResource>(font, program, kerning);
        default:
            unreachable(kUnknownResourceKind);
    }
}

}  // namespace

bool PSDocument::crtPSFontIsStd(const String& name) {
    return std::ranges::any_of(kStandardNames,
                               [&](const String& standard) { return name.equalsNoCase(standard); });
}

/// The first resource of `font` that takes the whole text, or a new one if none does.
SmartPtr<PSFontResource> PSDocument::selectResource(
    Core::Vector<SmartPtr<PSFontResource>>& resources, const String& text) const {
    for (const auto& resource : resources)
        if (resource->addGlyphs(text) != PSFontResource::doesNotFit)
            return resource;
    resources.push_back(makeNext(*graphicsState->font, *resources.front(), kerning));
    return resources.back();
}

/// The first text of a font is not asked whether it fits: its glyphs get their codes as it is
/// written.
void PSDocument::writeFont(const String& text) {
    const SmartPtr<Font> font = graphicsState->font;
    const auto known = fonts.find(font->getHashKey());
    if (known == fonts.end()) {
        if (const auto first = makeFirst(*font, Fonts::FontManager::getFont(font), kerning)) {
            fonts[font->getHashKey()].push_back(first);
            currentFontResource = first;
        }
    } else {
        currentFontResource = selectResource(known->second, text);
    }
    writeFixed<"{0} /F{1} Tf\n">(*scriptStream, font->getFontSize(),
                                 currentFontResource->getNumber());
}

void PSDocument::drawText(const String& text, int /*flags*/, float x, float y, float spacing,
                          bool /*flag*/) {
    beginShape();
    writeFont(text);
    currentFontResource->writeText(scriptStream, text, graphicsState->font->getFontSize(), spacing);
    if (graphicsState->hasStroke() || graphicsState->hasFill())
        writeTextStrokeAndFill(x, y);
    else
        writeFixed<" {0} {1} Tj\n">(*scriptStream, x, y);
    endShape();
}

/// Fill before stroke, each in brackets of its own. Text in a standard font is never stroked, and
/// only a text that is filled and not stroked has its operand taken off the stack.
void PSDocument::writeTextStrokeAndFill(float x, float y) {
    const bool standard = currentFontResource->getKind() == PSFontResource::standard;
    moveTo(x, y);
    if (graphicsState->hasFill()) {
        beginState();
        if (standard)
            writeStandardTextFill();
        else
            writeTextFill();
        endState();
    }
    if (!standard && graphicsState->hasStroke()) {
        beginState();
        writeLn(scriptStream, kerning ? u"TjstrokeKern" : u"Tjstroke");
        writeStroke();
        endState();
    }
    if (!kerning && graphicsState->hasFill() && !graphicsState->hasStroke())
        writeFixed<"pop\n">(*scriptStream);
}

void PSDocument::writeTextFill() {
    if (kerning)
        writeFixed<"TjfillKern\n">(*scriptStream);
    else
        writeFixed<"Tjfill\n">(*scriptStream);
    writeFill();
}

/// Kerned, the text is shown in the current colour; else its outline is filled, which sets the
/// colour once more.
void PSDocument::writeStandardTextFill() {
    if (graphicsState->fill->getOpacity() != 0.0F)
        writeBrush(graphicsState->fill);
    if (kerning) {
        scriptStream->write(kernCallOfFont());
    } else {
        writeTextFill();
    }
}

const std::string& PSDocument::kernCallOfFont() {
    const std::uint32_t font = currentFontResource->getNumber();
    if (kernCall.text.empty() || kernCall.font != font)
        kernCall = {font, "{ " + currentFontResource->getName().toUtf8() +
                              "Kern kernfunc } exch kshow\npop\n"};
    return kernCall.text;
}

}  // namespace Drawing::PS
