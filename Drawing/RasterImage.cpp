#include "Drawing/RasterImage.h"

#include "Core/Exception.h"
#include "Core/StringFormatStream.h"

#include <xxhash.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Drawing {

namespace {

/// The four numbers that pixels alone do not tell go in as the seed of a chain of hashes.
Core::String contentKey(PixelSize size, ColorSpaceType colorSpace, const Core::ByteArray& pixels,
                        const Core::ByteArray& alpha) {
    const std::int32_t frame[] = {size.width, size.height, static_cast<std::int32_t>(colorSpace)};
    const XXH64_hash_t seed = XXH3_64bits(static_cast<const void*>(frame), sizeof frame);
    const XXH64_hash_t alphaSeed = XXH3_64bits_withSeed(alpha.data(), alpha.size(), seed);
    const XXH128_hash_t hash = XXH3_128bits_withSeed(pixels.data(), pixels.size(), alphaSeed);
    return Core::StringFormatStream(u"{0:X16}{1:X16}") << hash.high64 << hash.low64;
}

void requireLength(const Core::ByteArray& bytes, std::uint64_t expected, const char* what) {
    if (bytes.size() != expected)
        throw Core::FormatException("RasterImage", 1,
                                    std::string(what) +
                                        " do not fill the image: " + std::to_string(bytes.size()) +
                                        " bytes, expected " + std::to_string(expected));
}

}  // namespace

RasterImage::RasterImage(PixelSize size, ColorSpaceType colorSpace, Core::ByteArray pixels,
                         Core::ByteArray alpha)
    : Image(contentKey(size, colorSpace, pixels, alpha)),
      size_(size),
      colorSpace_(Core::makeObject<ColorSpace>(colorSpace)),
      pixels_(std::move(pixels)),
      alpha_(std::move(alpha)) {
    const auto count =
        static_cast<std::uint64_t>(size.width) * static_cast<std::uint64_t>(size.height);
    const auto components = static_cast<std::uint64_t>(colorSpace_->getComponentCount());
    requireLength(pixels_, count * components, "the pixels");
    if (!alpha_.empty())
        requireLength(alpha_, count, "the alpha values");
}

RasterImage::~RasterImage() = default;

Core::ByteArray RasterImage::getPixelBytes(int /*selector*/) const {
    return pixels_;
}

Core::ByteArray RasterImage::getAlphaBytes(int /*selector*/) const {
    return alpha_;
}

void RasterImage::readPixelRows(int /*selector*/, std::int32_t first, std::int32_t count,
                                std::uint8_t* pixels, std::uint8_t* alpha) const {
    const auto width = static_cast<std::size_t>(size_.width);
    const auto stride = width * static_cast<std::size_t>(colorSpace_->getComponentCount());
    const auto begin = static_cast<std::size_t>(first);
    const auto rows = static_cast<std::size_t>(count);
    std::copy_n(pixels_.data() + begin * stride, rows * stride, pixels);
    if (hasAlpha())
        std::copy_n(alpha_.data() + begin * width, rows * width, alpha);
}

}  // namespace Drawing
