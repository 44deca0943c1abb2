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
/// The same from the reusable streams of base 85 that have these names.
std::string namedPicture(const PictureData& data, const PictureLook& look,
                         const std::string& samples, const std::string& mask);

}  // namespace Drawing::Print
