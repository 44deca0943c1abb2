// Pattern brushes: a tile becomes a procedure that gives a tiling pattern dictionary
// (PLRM 4.9.2); every use makes an instance of it with the brush's matrix.

#include "PS/PSPatternBrush.h"

#include "Core/MTInteger.h"
#include "Core/StringFormatStream.h"
#include "Drawing/PatternBrush.h"
#include "PS/fonts/PSFontResource.h"
#include "PS/internal/Names.h"

namespace Drawing::PS {

using Core::StringFormatStream;

namespace {

/// Counts the patterns of the process, whatever their document.
constinit Core::Threading::MTInteger patternCounter;

}  // namespace

PSPatternBrush::PSPatternBrush(float tileWidth, float tileHeight)
    : PSDocumentFragment(tileWidth, tileHeight) {
    name = Names::pattern(patternCounter.increment());
}

PSPatternBrush::~PSPatternBrush() = default;

void PSDocument::writePatternUse(const PatternBrush& brush) {
    const Core::SmartPtr<IOutputContext>& context = brush.getPatternRenderContext();
    const Core::String name = context.dynamicCast<PSDocumentFragment>()->getName();
    patterns.try_emplace(name, context);
    Matrix m = brush.getMatrix();
    m.translate(brush.getOrigin().x, brush.getOrigin().y);
    write(scriptStream, StringFormatStream(u"{0} [{1} {2} {3} {4} {5} {6}] makepattern\n")
                            << name << m.getScaleX() << m.getShearY() << m.getShearX()
                            << m.getScaleY() << m.getTranslateX() << m.getTranslateY());
    write(scriptStream, u"/pattern exch def\n/Pattern setcolorspace\npattern setpattern\n");
}

/// The tile's own resources stand inside the paint procedure and are defined anew each time that
/// the tile is painted.
void PSDocument::writePatternBrush(const Core::SmartPtr<IOutputContext>& context) {
    const auto pattern = context.dynamicCast<PSPatternBrush>();
    writeLn(outputStream, StringFormatStream(u"/{0}\n{") << pattern->getName());
    write(outputStream, StringFormatStream(
                            u"<< /PatternType 1\n/PaintType 1\n/TilingType 1\n/BBox [0 0 {0} {1}]\n"
                            u"/XStep {2}\n/YStep {3}\n/PaintProc\n{ begin\n")
                            << pattern->getWidth() << pattern->getHeight() << pattern->getWidth()
                            << pattern->getHeight());
    pattern->writeContextResources(outputStream);
    const Core::ByteArray content = pattern->getRecordedBytes();
    outputStream->write(content, 0, content.size());
    writeLn(outputStream, u"end\n} bind \n>> } def");
}

}  // namespace Drawing::PS
