// Gradient brushes as shading patterns (PLRM 4.9.3): a selection text on the page, and in the
// prolog Type 2 functions stitched together by a Type 3 function (PLRM 3.10).

#include "Core/Exception.h"
#include "Core/MTInteger.h"
#include "Core/StringFormatStream.h"
#include "PS/PSDocument.h"
#include "PS/internal/Names.h"

#include <algorithm>

namespace Drawing::PS {

using Core::String;
using Core::StringFormatStream;

namespace {

/// Counts the gradients of the process, whatever their document.
constinit Core::Threading::MTInteger gradientCounter;

/// A radial gradient runs between two circles around one centre.
String formatCoords(const GradientBrush& brush) {
    const auto& g = brush.getGeometry();
    if (brush.getBrushType() == BrushType::linearGradient)
        return StringFormatStream(u"[{0} {1} {2} {3}]") << g[0] << g[1] << g[2] << g[3];
    return StringFormatStream(u"[{0} {1} {2} {0} {1} {3}]") << g[0] << g[1] << g[2] << g[3];
}

/// CMYK has no slash: the shading takes the name's value, not the name.
String colorSpaceName(ColorType type) {
    switch (type) {
        case ColorType::cmyk:
            return u"DeviceCMYK";
        case ColorType::rgb:
            return u"/DeviceRGB";
        case ColorType::gray:
            return u"/DeviceGray";
        default:
            throw Core::UnreacheableCodeException("PSDocument", 1381);
    }
}

}  // namespace

bool PSDocument::hasGradientFill(const Core::SmartPtr<PSGradient>& gradient) const {
    return std::ranges::find(gradients, gradient) != gradients.end();
}

void PSDocument::assignShaderName(PSGradient& gradient) {
    gradient.setName(Names::shader(gradientCounter.increment()));
}

/// Every use registers a gradient of its own: equal ones are not merged.
void PSDocument::writeGradientBrush(const GradientBrush& brush) {
    const bool linear = brush.getBrushType() == BrushType::linearGradient;
    const auto gradient = Core::makeObject<PSGradient>(
        formatCoords(brush), linear ? PSGradient::kAxial : PSGradient::kRadial, brush.getStops());
    assignShaderName(*gradient);
    gradients.push_back(gradient);
    const Matrix& m = brush.getMatrix();
    const String matrix = StringFormatStream(u"[{0} {1} {2} {3} {4} {5}] ")
                          << m.getScaleX() << m.getShearY() << m.getShearX() << m.getScaleY()
                          << m.getTranslateX() << m.getTranslateY();
    write(scriptStream,
          StringFormatStream(u"{0} {1}\t\nmakepattern /shader exch def\nshader setpattern\n")
              << gradient->getName() << matrix);
}

void PSDocument::writeFunctionType2(const Core::SmartPtr<Core::IO::Stream>& stream,
                                    const String& name, const Core::SmartPtr<Color>& from,
                                    const Core::SmartPtr<Color>& to) {
    write(stream, StringFormatStream(u"/{0} 7 dict def {0}") << name);
    write(stream, u" begin\n/FunctionType 2 def\n/Domain [0 1] def\n");
    write(stream, StringFormatStream(u"/C0 {0} def\n/C1 {1} def\n")
                      << formatColorArray(from) << formatColorArray(to));
    write(stream, u"/N 1 def\nend\n");
}

void PSDocument::writeGradientFill(const Core::SmartPtr<Core::IO::Stream>& stream,
                                   const Core::Vector<StopPoint>& stops, std::uint64_t shadingType,
                                   const String& coords) {
    const String space = colorSpaceName(stops.at(0).color->getColorType());
    write(stream, u"<<\n/PatternType 2\n/Shading <<\n");
    write(stream, StringFormatStream(u"/ShadingType {0}\n/ColorSpace {1}\n/Coords {2}\n")
                      << shadingType << space << coords);
    write(stream, u"/Function <<\n/FunctionType 3\n\t/Functions [");
    for (std::size_t i = 0; i <= stops.size(); ++i)
        write(stream, Names::function(i) + u" ");
    write(stream, u"]\n/Domain [0 1]\n/Bounds [");
    for (const StopPoint& stop : stops)
        write(stream, StringFormatStream(u"{0} ") << stop.position);
    write(stream, u"]\n/Encode [");
    for (std::size_t i = 0; i <= stops.size(); ++i)
        write(stream, u"0 1 ");
    write(stream, u"]\n>>\n>>\n>>\n");
}

}  // namespace Drawing::PS
