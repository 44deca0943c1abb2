// Images on pages: a placement positions and calls a form by name; the pixels stand once a
// document in the prolog.

#include "Core/Exception.h"
#include "Core/FixedFormat.h"
#include "Core/StringFormatStream.h"
#include "Drawing/Image.h"
#include "PS/PSDocument.h"
#include "PS/fonts/PSFontResource.h"
#include "PS/internal/Names.h"
#include "PS/internal/Truncate.h"

namespace Drawing::PS {

using Core::String;
using Core::StringFormatStream;
using Core::writeFixed;

namespace {

constexpr int kShortAlpha = 5;

/// The selector is part of the key, behind the last underscore; the resource writers take it
/// from there.
String imageKey(const Image& image, int selector) {
    const String key = StringFormatStream(u"{0}_{1}") << image.getHashKey() << selector;
    return key.replace(u" ", u"_");
}

/// The plane comes from the host's image, which may not keep its word.
void requireAlpha(std::size_t values, std::size_t pixels) {
    if (values < pixels)
        throw Core::FormatException("PSDocument", kShortAlpha,
                                    "an image has " + std::to_string(values) +
                                        " alpha values for " + std::to_string(pixels) + " pixels");
}

}  // namespace

void PSDocument::drawImage(Core::SmartPtr<Image> image, float x, float y, float /*width*/,
                           float /*height*/, int selector) {
    beginShape();
    writeFixed<"{0} {1} translate\n">(*scriptStream, truncate(x), truncate(y));
    const PixelSize size = image->getPixelSize();
    writeFixed<"{0} {1} scale\n">(*scriptStream, size.width, size.height);
    const String key = imageKey(*image, selector);
    images.try_emplace(key, image);
    if (image->getColorSpace()->getType() == ColorSpaceType::oneBit)
        writeLn(scriptStream, StringFormatStream(u"{0} {1} 1 [{0} 0 0 {1} 0 0]{{2}} image")
                                  << size.width << size.height << Names::image(key));
    else
        writeLn(scriptStream, Names::image(key) + u" execform");
    endShape();
}

/// The product in single, the sum in double precision, cut off towards zero.
Core::ByteArray PSDocument::getTransparentBytes(const Core::SmartPtr<Image>& image, int selector) {
    const Core::ByteArray pixels = image->getPixelBytes(selector);
    const Core::ByteArray alpha = image->getAlphaBytes(selector);
    const auto components = static_cast<std::size_t>(image->getColorSpace()->getComponentCount());
    const std::size_t count = pixels.size() / components;
    requireAlpha(alpha.size(), count);
    Core::ByteArray result(pixels.size());
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        const float a = static_cast<float>(alpha[pixel]) / 255.0F;
        const double white = (1.0 - a) * 255.0;
        for (std::size_t i = pixel * components; i < (pixel + 1) * components; ++i)
            result[i] =
                static_cast<std::uint8_t>(double{static_cast<float>(pixels[i]) * a} + white);
    }
    return result;
}

}  // namespace Drawing::PS
