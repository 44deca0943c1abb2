// Images in the prolog: for each one the data object and the form that paints it (PLRM 4.10),
// in two dialects. Documents use the LanguageLevel 2 one, with Flate and base-85.

#include "Core/Exception.h"
#include "Core/Format.h"
#include "Core/StringFormatStream.h"
#include "Drawing/Image.h"
#include "PS/PSDocument.h"
#include "PS/fonts/PSFontResource.h"
#include "PS/internal/Base85Writer.h"
#include "PS/internal/HexWriter.h"
#include "PS/internal/Names.h"
#include "ZipLib/ByteArrayZipper.h"

namespace Drawing::PS {

using Core::ByteArray;
using Core::String;
using Core::StringFormatStream;

namespace {

constexpr int kUnknownLevel2Encoding = 2211;
constexpr int kUnknownLevel3Encoding = 2098;
constexpr int kUnknownLevel3ColorSpace = 2143;

[[noreturn]] void unreachable(int line) {
    throw Core::UnreacheableCodeException("PSDocument", line);
}

/// The number behind the last underscore of an image key; 0 if there is none.
int selectorOf(const String& key) {
    const std::size_t underscore = key.rFind(u'_');
    if (underscore == String::npos)
        return 0;
    try {
        return Core::Format::parseInt(key.subString(underscore + 1));
    } catch (const Core::Exception&) {
        return 0;
    }
}

/// The two PostScript lines that a colour space puts into a form; empty for one that has none.
struct ColorSpaceLines {
    const char16_t* space = nullptr;
    const char16_t* decode = nullptr;
};

ColorSpaceLines linesOf(ColorSpaceType type) {
    switch (type) {
        case ColorSpaceType::cmyk:
            return {u"/DeviceCMYK setcolorspace", u"/Decode [0 1 0 1 0 1 0 1]"};
        case ColorSpaceType::rgb:
            return {u"/DeviceRGB setcolorspace", u"/Decode [0 1 0 1 0 1]"};
        case ColorSpaceType::gray:
            return {u"/DeviceGray setcolorspace", u"/Decode [0 1]"};
        default:
            return {};
    }
}

/// What both dialects share: one image, its key, and lines to one stream. The image is asked where
/// a line needs the answer, so what stands before a missing one is written.
class ImageResource {
public:
    ImageResource(Core::IO::Stream& stream, const String& key, const Image& image)
        : stream_(stream), key_(key), image_(image) {}

    void line(const String& text) {
        stream_.write(text.toUtf8());
        stream_.write("\n");
    }
    void hexLine(const ByteArray& bytes) {
        writeHex(stream_, bytes.span());
        line(u">");
    }
    void base85(const ByteArray& bytes) {
        Base85Writer writer(stream_);
        writer.write(bytes.span());
        writer.finish();
    }

    void formHead() {
        line(StringFormatStream(u"/{0} <<") << Names::image(key_));
        line(u"/FormType 1");
        sizeLine(u"/BBox [0 0 {0} {1}]");
    }
    void imageHead() {
        line(u"<<\n/ImageType 1");
        sizeLine(u"/Width {0}\n/Height {1} ");
        line(u"/BitsPerComponent 8");
    }
    void imageMatrix() { sizeLine(u"/ImageMatrix [{0} 0 0 {1} 0 0]"); }

    [[nodiscard]] const String& key() const { return key_; }
    [[nodiscard]] ColorSpaceType type() const { return image_.getColorSpace()->getType(); }

private:
    /// `pattern` with the image's width and height in its places.
    void sizeLine(const char16_t* pattern) {
        const PixelSize size = image_.getPixelSize();
        line(StringFormatStream(pattern) << size.width << size.height);
    }

    Core::IO::Stream& stream_;
    const String& key_;
    const Image& image_;
};

/// Type 5 images are placed inline and read a hexadecimal string under the form's name. The form
/// is defined all the same, behind it.
void writeInlineString(ImageResource& resource, Core::IO::Stream& stream, const ByteArray& data) {
    const String head = StringFormatStream(u"/{0}\n<") << Names::image(resource.key());
    stream.write(head.toUtf8());
    writeHex(stream, data.span());
    resource.line(u"> def");
}

void writeLevel2Data(ImageResource& resource, const ByteArray& data, ImageEncodeType encoding) {
    switch (encoding) {
        case ImageEncodeType::hexadecimal:
            resource.line(u"currentfile\n/ASCIIHexDecode filter CreateDataArray");
            resource.hexLine(data);
            break;
        case ImageEncodeType::base85:
            resource.line(u"currentfile\n/ASCII85Decode filter CreateDataArray");
            resource.base85(data);
            break;
        case ImageEncodeType::none:
        case ImageEncodeType::unused:
            break;
        case ImageEncodeType::flateHexadecimal:
            resource.line(u"currentfile/ASCIIHexDecode/FlateDecode filter\nfilter CreateDataArray");
            resource.hexLine(ZipLib::ByteArrayZipper::compress(data));
            break;
        case ImageEncodeType::flateBase85:
            resource.line(
                u"currentfile\n/ASCII85Decode filter\n/FlateDecode filter CreateDataArray");
            resource.base85(ZipLib::ByteArrayZipper::compress(data));
            break;
        default:
            unreachable(kUnknownLevel2Encoding);
    }
}

/// The form hands the strings to `image` one after another; the counter starts again each time.
void writeLevel2Form(ImageResource& resource) {
    resource.formHead();
    resource.line(u"/Matrix [1 0 0 1 0 0]\n/PaintProc\n{\npop\nuserdict /i 0 put");
    const ColorSpaceLines lines = linesOf(resource.type());
    if (lines.space)
        resource.line(lines.space);
    resource.imageHead();
    if (lines.decode)
        resource.line(lines.decode);
    resource.line(u"/Interpolate false");
    resource.line(u"/DataSource {");
    resource.line(Names::imageData(resource.key()) + u" i get");
    resource.line(u"/i i 1 add store} bind");
    resource.imageMatrix();
    resource.line(u">> image\n} bind\n>>\ndef");
}

/// Plain hexadecimal has no "currentfile": the asymmetry is old, and readers know it.
void writeLevel3Data(ImageResource& resource, const ByteArray& data, ImageEncodeType encoding) {
    switch (encoding) {
        case ImageEncodeType::hexadecimal:
            resource.line(u"<</Filter /ASCIIHexDecode>>");
            resource.line(u"/ReusableStreamDecode filter");
            resource.hexLine(data);
            break;
        case ImageEncodeType::base85:
            resource.line(u"currentfile");
            resource.line(u"<</Filter /ASCII85Decode>>");
            resource.line(u"/ReusableStreamDecode filter");
            resource.base85(data);
            break;
        case ImageEncodeType::none:
        case ImageEncodeType::flateHexadecimal:
            resource.line(u"currentfile");
            resource.line(u"<</Filter [/ASCIIHexDecode /FlateDecode]>>");
            resource.line(u"/ReusableStreamDecode filter");
            resource.hexLine(ZipLib::ByteArrayZipper::compress(data));
            break;
        default:
            unreachable(kUnknownLevel3Encoding);
    }
}

void writeLevel3Form(ImageResource& resource) {
    resource.formHead();
    resource.line(u"/Matrix [1 0 0 1 0 0]\n/PaintProc\n{\npop");
    resource.line(StringFormatStream(u"{0} 0 setfileposition\n")
                  << Names::imageData(resource.key()));
    const ColorSpaceLines lines = linesOf(resource.type());
    if (!lines.space)
        unreachable(kUnknownLevel3ColorSpace);
    resource.line(lines.space);
    resource.imageHead();
    resource.line(lines.decode);
    resource.line(u"/Interpolate false");
    resource.line(String(u"/DataSource ") + Names::imageData(resource.key()));
    resource.imageMatrix();
    resource.line(u">> image\n} bind\n>>\ndef\n%%EndResource");
}

}  // namespace

ByteArray PSDocument::opaqueBytes(const Core::SmartPtr<Image>& image, int selector) {
    return image->hasAlpha() ? getTransparentBytes(image, selector)
                             : image->getPixelBytes(selector);
}

void PSDocument::writeImageResourcesLevel2(ImageEncodeType encoding) {
    writeImages(outputStream, encoding);
}

/// In a nested context the definitions go to the document that is being assembled: the context
/// has no output of its own.
void PSDocument::writeImages(const Core::SmartPtr<Core::IO::Stream>& stream,
                             ImageEncodeType encoding) const {
    if (images.empty())
        return;
    writeLn(stream,
            u"/CreateDataArray\n{ /temp exch def\n[{ temp 256 string readstring\nnot { exit} if\n"
            u"}loop\n]\n}\n\t\tbind def");
    for (const auto& [key, image] : images) {
        ImageResource resource(*stream, key, *image);
        resource.line(StringFormatStream(u"/{0}\n") << Names::imageData(key));
        const ByteArray data = opaqueBytes(image, selectorOf(key));
        if (resource.type() == ColorSpaceType::oneBit)
            writeInlineString(resource, *stream, data);
        writeLevel2Data(resource, data, encoding);
        resource.line(u"def");
        writeLevel2Form(resource);
    }
}

void PSDocument::writeImageResourcesLevel3(ImageEncodeType encoding) {
    for (const auto& [key, image] : images) {
        ImageResource resource(*outputStream, key, *image);
        resource.line(u"%%BeginResource");
        resource.line(StringFormatStream(u"/{0}\n") << Names::imageData(key));
        writeLevel3Data(resource, opaqueBytes(image, selectorOf(key)), encoding);
        resource.line(u"def");
        writeLevel3Form(resource);
    }
}

}  // namespace Drawing::PS
