// Paint: the lines that make a brush the current colour (PLRM 4.8), just before the operator
// that paints with it. Colours are written opaque.

#include "Core/Exception.h"
#include "Core/FixedFormat.h"
#include "Core/StringFormatStream.h"
#include "Drawing/Brush.h"
#include "Drawing/GradientBrush.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/SpotColor.h"
#include "PS/PSDocument.h"
#include "PS/internal/ScaledByte.h"

namespace Drawing::PS {

using Core::String;
using Core::StringFormatStream;
using Core::writeFixed;

void PSDocument::writeBrush(const Core::SmartPtr<Brush>& brush) {
    switch (brush->getBrushType()) {
        case BrushType::solid:
            writeSolidColor(static_cast<const SolidColorBrush&>(*brush).getColor());
            break;
        case BrushType::none:
            break;
        case BrushType::pattern:
            writePatternUse(static_cast<const PatternBrush&>(*brush));
            break;
        case BrushType::linearGradient:
        case BrushType::radialGradient:
            writeGradientBrush(static_cast<const GradientBrush&>(*brush));
            break;
        default:
            throw Core::UnreacheableCodeException("PSDocument", 1274);
    }
}

/// A grey level is written as its byte, 0 to 255, where interpreters expect 0 to 1: 0 is black
/// and all others are white. Kinds without a form of their own leave the colour as it is.
void PSDocument::writeSolidColor(const Core::SmartPtr<Color>& color) {
    switch (color->getColorType()) {
        case ColorType::cmyk: {
            const auto& cmyk = static_cast<const CMYKColor&>(*color);
            writeFixed<"{0} {1} {2} {3} setcmykcolor\n">(*scriptStream, cmyk.getC(), cmyk.getM(),
                                                         cmyk.getY(), cmyk.getK());
            break;
        }
        case ColorType::rgb: {
            const auto& rgb = static_cast<const RGBColor&>(*color);
            writeFixed<" {0} {1} {2} setrgbcolor\n">(*scriptStream, ScaledByte{rgb.getR()},
                                                     ScaledByte{rgb.getG()},
                                                     ScaledByte{rgb.getB()});
            break;
        }
        case ColorType::gray:
            writeFixed<"{0} setgray\n">(*scriptStream,
                                        int{static_cast<const GrayScaleColor&>(*color).getG()});
            break;
        case ColorType::spot:
            writeSpotColor(color);
            break;
        case ColorType::undefined:
        case ColorType::lab:
        case ColorType::indexed:
        case ColorType::calibrated:
            break;
        default:
            throw Core::UnreacheableCodeException("PSDocument", 1192);
    }
}

/// A separation whose tint is the substitute's first component and whose tint transform adds the
/// others as constants: without the ink, exactly the substitute is shown (PLRM 4.8.4).
void PSDocument::writeSpotColor(const Core::SmartPtr<Color>& color) {
    const auto& substitute = static_cast<const SpotColor&>(*color).getColorSubstitute();
    const auto separation = [&](const char16_t* space, const String& constants) {
        return StringFormatStream(u"[/Separation \n/{0}\n/{1}\n{ {2}}\n] setcolorspace\n")
               << getEscapedColorName(color) << space << constants;
    };
    String text;
    if (substitute->hasRGBSubstitute()) {
        text = separation(u"DeviceRGB", StringFormatStream(u"{0} {1}")
                                            << static_cast<float>(substitute->getG() * kByteScale)
                                            << static_cast<float>(substitute->getB() * kByteScale));
        text += StringFormatStream(u"{0} setcolor\n")
                << static_cast<float>(substitute->getR() * kByteScale);
    } else if (substitute->hasCMYKSubstitute()) {
        text = separation(u"DeviceCMYK", StringFormatStream(u"{0} {1} {2}")
                                             << substitute->getM() << substitute->getY()
                                             << substitute->getK());
        text += StringFormatStream(u"{0} setcolor\n") << substitute->getC();
    }
    write(scriptStream, text);
}

String PSDocument::getEscapedColorName(const Core::SmartPtr<Color>& color) {
    return static_cast<const SpotColor&>(*color).getColorName().replace(u" ", u"#20");
}

std::uint8_t PSDocument::getBlendedColor(std::uint8_t component, std::uint8_t alpha) {
    const auto share = static_cast<float>(alpha / 255.0);
    return static_cast<std::uint8_t>(
        static_cast<int>(component * double{share} + (1.0 - double{share}) * 255.0));
}

/// Here CMYK is scaled like the byte components, unlike in a plain colour.
String PSDocument::formatColorArray(const Core::SmartPtr<Color>& color) {
    switch (color->getColorType()) {
        case ColorType::cmyk: {
            const auto& cmyk = static_cast<const CMYKColor&>(*color);
            return StringFormatStream(u"[{0} {1} {2} {3}]")
                   << cmyk.getC() * kByteScale << cmyk.getM() * kByteScale
                   << cmyk.getY() * kByteScale << cmyk.getK() * kByteScale;
        }
        case ColorType::rgb: {
            const auto& rgb = static_cast<const RGBColor&>(*color);
            return StringFormatStream(u"[{0} {1} {2}]")
                   << rgb.getR() * kByteScale << rgb.getG() * kByteScale << rgb.getB() * kByteScale;
        }
        case ColorType::gray:
            return StringFormatStream(u"[{0}]")
                   << static_cast<const GrayScaleColor&>(*color).getG() * kByteScale;
        default:
            return {};
    }
}

}  // namespace Drawing::PS
