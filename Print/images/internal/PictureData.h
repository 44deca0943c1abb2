#pragma once

#include "Drawing/Image.h"
#include "Print/ColorConverter.h"
#include "Print/internal/Spool.h"

#include <optional>
#include <string>

namespace Drawing::Print {

/// What the samples of a picture are packed with, below base 85.
enum class PictureCoding {
    predictedFlate,  ///< 8 bits a component, differences by RowPredictor
    flate,           ///< 1 bit a pixel, rows begin with a byte
    jpeg,
};

/// The encoded samples of a picture: where they lie and how they are to be read.
struct PictureData {
    PixelSize size;
    int components = 1;
    PictureCoding coding = PictureCoding::predictedFlate;
    std::string space;        ///< as PostScript; empty for a stencil
    bool isInverted = false;  ///< 255 stands for none of a component
    Spool::Extent samples;
    /// Flate like one-bit samples; 1 where the picture is not to be painted.
    std::optional<Spool::Extent> mask;
};

/// Encodes the image into the spool, its tint included, in the space of `converter` if there is
/// one: as its JPEG file if that serves, else by Flate. Between fully opaque and fully clear, the
/// colours are mixed with white, for a page cannot show through.
PictureData encodePicture(Spool& spool, const Image& image, int selector,
                          const ColorConverter* converter);
/// A bit a pixel, 0 where the stencil paints.
PictureData encodeStencil(Spool& spool, const Image& image, int selector);

}  // namespace Drawing::Print
