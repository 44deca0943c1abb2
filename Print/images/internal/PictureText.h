#pragma once

#include "Drawing/TintedImage.h"
#include "Print/images/internal/PictureData.h"

#include <string>
#include <vector>

namespace Drawing::Print {

/// How encoded samples are shown.
struct PictureLook {
    bool isInterpolated = false;
    std::vector<TintedImage::Range> ranges;  ///< of the components; empty if they stay as they are
};

/// PostScript that shows a picture in the unit square (images: PLRM 4.10, files: PLRM 3.8). It
/// leaves the operand stack as it was.
///
/// A line that is followed by the base 85 of the samples, or, for a masked picture, of the mask
/// and then of the samples. It reads both, whatever is left behind the samples included; a mask
/// is held by the interpreter, compressed, samples are not.
std::string inlinePicture(const PictureData& data, const PictureLook& look);
/// The same from reusable streams that have these names. They hold the samples and the mask as they
/// are encoded, or, where `isDecoded`, decoded.
std::string namedPicture(const PictureData& data, const PictureLook& look,
                         const std::string& samples, const std::string& mask, bool isDecoded);

/// What makes a reusable stream out of the base 85 of encoded samples or a mask, or of decoded
/// ones (ReusableStreamDecode, PLRM 3.13.3).
std::string encodedStream();
std::string decodedSamplesStream(const PictureData& data);
std::string decodedMaskStream();

}  // namespace Drawing::Print
