#include "Print/images/internal/PictureText.h"

#include "Core/NumberText.h"

#include <array>
#include <utility>

namespace Drawing::Print {

namespace {

/// PostScript that pushes the bytes below base 85, in the place where a dictionary asks for them.
struct Sources {
    std::string samples;
    std::string mask;
};

std::string number(double value) {
    std::array<char, Core::kMaxNumberText<float>> text{};
    return {text.data(), Core::writeNumber(text.data(), static_cast<float>(value))};
}

std::string predictorText(const PictureData& data) {
    return data.coding == PictureCoding::predictedFlate
               ? "<</Predictor 15/Columns " + std::to_string(data.size.width) + "/Colors " +
                     std::to_string(data.components) + ">>"
               : "";
}

std::string filterText(const PictureData& data) {
    return data.coding == PictureCoding::jpeg ? "/DCTDecode filter"
                                              : predictorText(data) + "/FlateDecode filter";
}

std::string decodeText(const PictureData& data, const PictureLook& look) {
    std::string text = "[";
    for (std::size_t i = 0; i < static_cast<std::size_t>(data.components); ++i) {
        TintedImage::Range range = look.ranges.empty() ? TintedImage::Range{} : look.ranges[i];
        if (data.isInverted)
            std::swap(range.low, range.high);
        text += (i == 0 ? "" : " ") + number(range.low) + " " + number(range.high);
    }
    return text + "]";
}

/// What an image and its mask have in common. In lines of at most 255 characters, as DSC asks for.
std::string dictionary(const PictureData& data, const PictureLook& look, const std::string& source,
                       int bits, const std::string& decode) {
    const std::string width = std::to_string(data.size.width);
    const std::string height = std::to_string(data.size.height);
    return "\n<</DataSource " + source + "\n/ImageType 1/Width " + width + "/Height " + height +
           "/ImageMatrix[" + width + " 0 0 " + height + " 0 0]/BitsPerComponent " +
           std::to_string(bits) + "/Decode" + decode +
           (look.isInterpolated ? "/Interpolate true>>" : ">>");
}

std::string plainDictionary(const PictureData& data, const PictureLook& look,
                            const std::string& source) {
    return dictionary(data, look, source, data.coding == PictureCoding::flate ? 1 : 8,
                      decodeText(data, look));
}

/// Pushes the dictionary and paints by it.
std::string paintText(const PictureData& data, const PictureLook& look, const Sources& sources) {
    const std::string plain = plainDictionary(data, look, sources.samples);
    if (data.space.empty())
        return plain + "imagemask";
    if (!data.mask)
        return plain + "image";
    return "<</MaskDict" + dictionary(data, look, sources.mask, 1, "[0 1]") + "/DataDict" + plain +
           "/ImageType 3/InterleaveType 3>>image";
}

std::string spaceText(const PictureData& data) {
    return data.space.empty() ? "" : data.space + " setcolorspace";
}

}  // namespace

/// The streams lie below the marks, keys and values of the dictionaries that are being made. The
/// bytes behind the last sample, and the end mark, must not be taken for PostScript.
std::string inlinePicture(const PictureData& data, const PictureLook& look) {
    const std::string filter = filterText(data);
    const Sources sources = data.mask ? Sources{"6 index " + filter, "5 index/FlateDecode filter"}
                                      : Sources{"2 index " + filter, ""};
    return "{" + spaceText(data) + (data.mask ? " " + encodedStream() + " " : " ") +
           "currentfile/ASCII85Decode filter " + paintText(data, look, sources) + " flushfile" +
           (data.mask ? " closefile" : "") + "}exec\n";
}

std::string namedPicture(const PictureData& data, const PictureLook& look,
                         const std::string& samples, const std::string& mask, bool isDecoded) {
    const std::string rewind = " 0 setfileposition ";
    const Sources sources =
        isDecoded ? Sources{samples, mask}
                  : Sources{samples + " " + filterText(data), mask + "/FlateDecode filter"};
    return (data.mask ? mask + rewind : "") + samples + rewind + spaceText(data) +
           paintText(data, look, sources);
}

std::string encodedStream() {
    return "currentfile<</Filter/ASCII85Decode>>/ReusableStreamDecode filter";
}

std::string decodedSamplesStream(const PictureData& data) {
    const std::string predictor = predictorText(data);
    return "currentfile<</Filter[/ASCII85Decode/FlateDecode]" +
           (predictor.empty() ? "" : "/DecodeParms[null" + predictor + "]") +
           ">>/ReusableStreamDecode filter";
}

std::string decodedMaskStream() {
    return "currentfile<</Filter[/ASCII85Decode/FlateDecode]>>/ReusableStreamDecode filter";
}

}  // namespace Drawing::Print
