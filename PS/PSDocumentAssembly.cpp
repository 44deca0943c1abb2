// The finished file, in its order:
//
//   %!PS-Adobe-3.0 ... %%CreationDate    header comments
//   %%For: ... /shp                      the rest of the header and the procedure set
//   /kernfunc /TjfillKern /TjstrokeKern  when text is kerned
//   %%EndResource %%EndProlog %%BeginSetup
//   fonts, images, fragments, gradients, patterns
//   the script: printing options and pages
//   %%Trailer %%EOF                      (DSC 3.0)

#include "Core/DateTime.h"
#include "Core/StringFormatStream.h"
#include "PS/PSDocument.h"
#include "PS/PSDocumentFragment.h"
#include "PS/fonts/PSFontResource.h"
#include "PS/internal/Names.h"
#include "PS/internal/Prolog.h"
#include "PS/internal/Truncate.h"

namespace Drawing::PS {

using Core::StringFormatStream;

void PSDocument::endDocument() {
    writeHeaderComments();
    writeProcedureSet();
    writeFonts(outputStream);
    writeImageResourcesLevel2(ImageEncodeType::flateBase85);
    for (const auto& [name, fragment] : fragments)
        writeFragment(fragment);
    writeGradients(outputStream);
    for (const auto& [name, pattern] : patterns)
        writePatternBrush(pattern);
    copyScriptFromTempFile();
    writeLn(outputStream, u"%%Trailer");
    writeLn(outputStream, u"%%EOF");
    outputStream->flush();
}

void PSDocument::writeHeaderComments() {
    writeLn(outputStream, u"%!PS-Adobe-3.0");
    writeLn(outputStream, u"%%Title: KALDO_PS Release");
    writeLn(outputStream, u"%%Creator: OSTREL PS Encoder 1548456");
    writeLn(outputStream, StringFormatStream(u"%%LanguageLevel: {0}") << languageLevel);
    const std::int32_t width = truncate(graphicsState->pageSize.width);
    const std::int32_t height = truncate(graphicsState->pageSize.height);
    writeLn(outputStream, StringFormatStream(u"%%DocumentMedia: plain {0} {1} 0 () ()")
                              << width << height);
    writeLn(outputStream, StringFormatStream(u"%%BoundingBox: 0 0 {0} {1}") << width << height);
    writeLn(outputStream, StringFormatStream(u"%%Pages:{0}") << pageIndex + 1);
    const Core::DateTime now = Core::DateTime::getCurrentGMTTime();
    writeLn(outputStream, StringFormatStream(u"%%CreationDate:{0}/{1}/{2}")
                              << now.getDay() << now.getMonth() << now.getYear());
}

void PSDocument::writeProcedureSet() {
    writeLn(outputStream, kProcedureSet);
    if (kerning)
        writeKerningProcedures();
    writeLn(outputStream, u"%%EndResource\n%%EndProlog\n%%BeginSetup\n");
}

void PSDocument::writeKerningProcedures() {
    writeLn(outputStream, kKerningFunction);
    writeLn(outputStream, u"/TjfillKern {");
    writeLn(outputStream, StringFormatStream(kKernedShowBody) << u"Tjfill");
    writeLn(outputStream, u"/TjstrokeKern {");
    writeLn(outputStream, StringFormatStream(kKernedShowBody) << u"Tjstroke");
}

void PSDocument::writeContextResources(const Core::SmartPtr<Core::IO::Stream>& stream) {
    writeFonts(stream);
    writeImages(stream, ImageEncodeType::flateBase85);
    writeGradients(stream);
}

void PSDocument::writeFonts(const Core::SmartPtr<Core::IO::Stream>& stream) {
    for (const auto& [key, resources] : fonts)
        for (const auto& resource : resources)
            resource->writeResource(stream);
}

/// A fragment begins in white, whatever was current where it is placed.
void PSDocument::writeFragment(const Core::SmartPtr<IOutputContext>& context) {
    const auto fragment = context.dynamicCast<PSDocumentFragment>();
    fragment->writeContextResources(outputStream);
    writeLn(outputStream, StringFormatStream(u"/{0}\n{") << fragment->getName());
    writeLn(outputStream, u"1 1 1 setrgbcolor");
    const Core::ByteArray content = fragment->getRecordedBytes();
    outputStream->write(content, 0, content.size());
    writeLn(outputStream, u"} def");
}

void PSDocument::writeGradients(const Core::SmartPtr<Core::IO::Stream>& stream) const {
    for (const auto& gradient : gradients)
        writeGradient(stream, *gradient);
}

/// A constant function before the first stop, one for each pair of neighbours, a constant one
/// behind the last; then the procedure that builds the shading when a page asks for it.
void PSDocument::writeGradient(const Core::SmartPtr<Core::IO::Stream>& stream,
                               const PSGradient& gradient) {
    const Core::Vector<StopPoint> stops = gradient.getStops();
    if (stops.empty())
        return;
    for (std::size_t k = 0; k <= stops.size(); ++k) {
        const std::size_t from = k == 0 ? 0 : k - 1;
        const std::size_t to = k == stops.size() ? k - 1 : k;
        writeFunctionType2(stream, Names::function(k), stops[from].color, stops[to].color);
    }
    write(stream, StringFormatStream(u"/{0}\n{") << gradient.getName());
    writeGradientFill(stream, stops, gradient.getShadingType(), gradient.getCoords());
    write(stream, u"} def\n");
}

}  // namespace Drawing::PS
