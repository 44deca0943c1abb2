#pragma once

#include "Core/Stream.h"
#include "Drawing/Export.h"

namespace Drawing {

/// A side of an `Image` that stems from a JPEG file (ITU-T T.81) whose samples are its pixels: a
/// back end that finds it by `dynamic_cast` and whose readers know JPEG passes the file through
/// and spares decoding, bytes and a second loss.
///
/// The pixels stay what counts. A back end decodes as ever where the file does not serve: where it
/// has another size or number of components than the image, is progressive, or is cut short.
class DRAWING_API EncodedImage {
public:
    virtual ~EncodedImage();

    /// Writes the file as it is to `output`, from its first byte. False, and nothing is written,
    /// if this version of the image has none, or one whose colours have been converted, cropped or
    /// turned since.
    virtual bool writeJpeg(int selector, Core::IO::Stream& output) const = 0;

protected:
    EncodedImage() = default;
    EncodedImage(const EncodedImage&) = default;
    EncodedImage& operator=(const EncodedImage&) = default;
};

}  // namespace Drawing
