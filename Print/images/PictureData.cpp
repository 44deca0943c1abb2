#include "Print/images/internal/PictureData.h"

#include "Core/Exception.h"
#include "Drawing/EncodedImage.h"
#include "Drawing/TintedImage.h"
#include "Print/images/internal/JpegScanner.h"
#include "Print/images/internal/PixelRows.h"
#include "Print/images/internal/RowPredictor.h"
#include "Print/images/internal/SpoolPiece.h"
#include "ZipLib/FlateWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

namespace Drawing::Print {

namespace {

constexpr std::uint8_t kOpaque = 255;

std::string deviceSpace(ColorSpaceType space) {
    switch (space) {
        case ColorSpaceType::cmyk:
            return "/DeviceCMYK";
        case ColorSpaceType::rgb:
            return "/DeviceRGB";
        default:
            return "/DeviceGray";
    }
}

int componentsOf(ColorSpaceType space) {
    return ColorSpace(space).getComponentCount();
}

/// One-bit pictures are grey.
ColorSpaceType lightSpace(ColorSpaceType space) {
    return space == ColorSpaceType::oneBit ? ColorSpaceType::gray : space;
}

bool changes(const ColorConverter* converter, ColorSpaceType space) {
    return converter != nullptr && converter->getTarget() != lightSpace(space);
}

/// Black and white in the converter's space, to be chosen from by one bit.
std::string paletteSpace(const ColorConverter& converter) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text = "[/Indexed" + deviceSpace(converter.getTarget()) + " 1<";
    for (const double grey : {0.0, 1.0}) {
        const Components color = converter.convert(ColorSpaceType::gray, {grey, 0, 0, 0});
        for (int i = 0; i < componentsOf(converter.getTarget()); ++i) {
            const auto byte =
                static_cast<std::size_t>(std::lround(color[static_cast<std::size_t>(i)] * kOpaque));
            text += {kDigits[byte >> 4 & 15], kDigits[byte & 15]};
        }
    }
    return text + ">]";
}

/// Packs a row into bits, first pixel highest; `isSet` tells those that become 1.
template <class IsSet>
void packRow(std::span<const std::uint8_t> values, std::vector<std::uint8_t>& bits, IsSet isSet) {
    bits.assign((values.size() + 7) / 8, 0);
    for (std::size_t x = 0; x < values.size(); ++x)
        if (isSet(values[x]))
            bits[x / 8] = static_cast<std::uint8_t>(bits[x / 8] | 0x80U >> x % 8);
}

/// Compresses one value a pixel as one bit a pixel.
template <class IsSet>
void writeBits(ZipLib::FlateWriter& flate, std::span<const std::uint8_t> values, std::size_t width,
               std::vector<std::uint8_t>& bits, IsSet isSet) {
    for (; !values.empty(); values = values.subspan(width)) {
        packRow(values.first(width), bits, isSet);
        flate.write(bits);
    }
}

/// Collects where a picture is clear, in an eighth of a byte a pixel: its own samples have to be
/// written first.
class MaskBits {
public:
    explicit MaskBits(std::size_t width) : width_(width) {}

    void add(std::span<const std::uint8_t> alpha) {
        for (; !alpha.empty(); alpha = alpha.subspan(width_)) {
            packRow(alpha.first(width_), row_, [](std::uint8_t value) { return value == 0; });
            bits_.insert(bits_.end(), row_.begin(), row_.end());
        }
    }
    [[nodiscard]] std::optional<Spool::Extent> write(Spool& spool) const {
        if (std::ranges::all_of(bits_, [](std::uint8_t bits) { return bits == 0; }))
            return std::nullopt;
        SpoolPiece piece(spool);
        ZipLib::FlateWriter flate(piece.stream());
        flate.write(bits_);
        flate.finish();
        return piece.finish();
    }

private:
    std::size_t width_;
    std::vector<std::uint8_t> row_;
    std::vector<std::uint8_t> bits_;
};

/// Mixes colours with white by their alpha; `white` is none of an ink or all of a light.
void flatten(const PixelRows::Band& band, std::size_t components, unsigned white) {
    std::uint8_t* color = band.pixels.data();
    for (const std::uint8_t alpha : band.alpha) {
        if (alpha != kOpaque)
            for (std::size_t i = 0; i < components; ++i)
                color[i] = static_cast<std::uint8_t>(
                    (color[i] * alpha + white * (kOpaque - alpha) + kOpaque / 2) / kOpaque);
        color += components;
    }
}

/// Rows of whole components through conversion and prediction into the spool. Alpha can leave a
/// one-bit picture with shades, so it goes this way as grey.
class ColorEncoder {
public:
    ColorEncoder(Spool& spool, const Image& image, int selector, const ColorConverter* converter)
        : spool_(spool),
          rows_(image, selector),
          mask_(rows_.width()),
          from_(lightSpace(rows_.space())),
          converter_(changes(converter, from_) ? converter : nullptr),
          to_(converter_ != nullptr ? converter_->getTarget() : from_) {}

    PictureData encode() {
        PictureData data;
        data.size = rows_.size();
        data.components = componentsOf(to_);
        data.space = deviceSpace(to_);
        data.samples = writeSamples();
        data.mask = mask_.write(spool_);
        return data;
    }

private:
    Spool::Extent writeSamples() {
        const auto components = static_cast<std::size_t>(componentsOf(to_));
        const std::size_t rowBytes = rows_.width() * components;
        SpoolPiece piece(spool_);
        ZipLib::FlateWriter flate(piece.stream());
        RowPredictor predictor(rowBytes, components);
        while (!rows_.atEnd()) {
            const auto pixels = finished(rows_.read());
            for (std::size_t at = 0; at < pixels.size(); at += rowBytes)
                flate.write(predictor.filtered(pixels.subspan(at, rowBytes)));
        }
        flate.finish();
        return piece.finish();
    }

    std::span<const std::uint8_t> finished(const PixelRows::Band& band) {
        if (!band.alpha.empty()) {
            flatten(band, rows_.components(), from_ == ColorSpaceType::cmyk ? 0 : kOpaque);
            mask_.add(band.alpha);
        }
        if (converter_ == nullptr)
            return band.pixels;
        converted_.resize(band.pixels.size() / rows_.components() *
                          static_cast<std::size_t>(componentsOf(to_)));
        converter_->convertPixels(from_, band.pixels, converted_);
        return converted_;
    }

    Spool& spool_;
    PixelRows rows_;
    MaskBits mask_;
    ColorSpaceType from_;
    const ColorConverter* converter_;
    ColorSpaceType to_;
    std::vector<std::uint8_t> converted_;
};

/// Passes a JPEG file on up to its end, whatever is appended to it, and looks at it on the way.
class JpegPass : public WriteOnlyStream {
public:
    explicit JpegPass(Core::IO::Stream& output) : output_(output) {}
    [[nodiscard]] const JpegScanner& scanner() const { return scanner_; }

private:
    void take(std::span<const std::uint8_t> bytes) override {
        const std::size_t count = scanner_.scan(bytes);
        output_.write({reinterpret_cast<const char*>(bytes.data()), count});
    }

    Core::IO::Stream& output_;
    JpegScanner scanner_;
};

/// The JPEG file of an image; nothing if it has none that serves.
std::optional<PictureData> passJpeg(Spool& spool, const Image& image, int selector,
                                    const ColorConverter* converter) {
    const auto* encoded = dynamic_cast<const EncodedImage*>(&image);
    const ColorSpaceType space = image.getColorSpace()->getType();
    if (encoded == nullptr || image.hasAlpha() || space == ColorSpaceType::oneBit ||
        changes(converter, space))
        return std::nullopt;
    SpoolPiece piece(spool);
    JpegPass pass(piece.stream());
    const JpegScanner& file = pass.scanner();
    if (!encoded->writeJpeg(selector, pass) || !file.isUsable() ||
        file.components() != componentsOf(space) || file.size() != image.getPixelSize())
        return std::nullopt;
    PictureData data;
    data.size = file.size();
    data.components = file.components();
    data.coding = PictureCoding::jpeg;
    data.space = deviceSpace(space);
    data.isInverted = file.isInverted();
    data.samples = piece.finish();
    return data;
}

/// A picture of bits that are 0 for black, or for where a stencil paints.
template <class IsSet>
PictureData encodeBits(Spool& spool, PixelRows& rows, bool byAlpha, IsSet isSet) {
    PictureData data;
    data.size = rows.size();
    data.coding = PictureCoding::flate;
    SpoolPiece piece(spool);
    ZipLib::FlateWriter flate(piece.stream());
    std::vector<std::uint8_t> bits;
    while (!rows.atEnd()) {
        const PixelRows::Band band = rows.read();
        writeBits(flate, byAlpha ? band.alpha : band.pixels, rows.width(), bits, isSet);
    }
    flate.finish();
    data.samples = piece.finish();
    return data;
}

bool isWhite(std::uint8_t value) {
    return value != 0;
}

}  // namespace

PictureData encodePicture(Spool& spool, const Image& image, int selector,
                          const ColorConverter* converter) {
    if (auto jpeg = passJpeg(spool, image, selector, converter))
        return *jpeg;
    if (image.getColorSpace()->getType() != ColorSpaceType::oneBit || image.hasAlpha())
        return ColorEncoder(spool, image, selector, converter).encode();
    PixelRows rows(image, selector);
    PictureData data = encodeBits(spool, rows, false, isWhite);
    data.space = changes(converter, ColorSpaceType::oneBit) ? paletteSpace(*converter)
                                                            : deviceSpace(ColorSpaceType::gray);
    return data;
}

PictureData encodeStencil(Spool& spool, const Image& image, int selector) {
    PixelRows rows(image, selector);
    if (image.hasAlpha())
        return encodeBits(spool, rows, true,
                          [](std::uint8_t alpha) { return alpha < (kOpaque + 1) / 2; });
    if (rows.space() == ColorSpaceType::oneBit)
        return encodeBits(spool, rows, false, isWhite);
    throw Core::FormatException("Picture", 3,
                                "a stencil is made of an image with alpha or of a one-bit image");
}

}  // namespace Drawing::Print
