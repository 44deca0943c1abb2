#include "Images/internal/PixelReader.h"

#include "Images/ImageError.h"
#include "Images/ImageFormat.h"
#include "Images/internal/GifReader.h"
#include "Images/internal/JpegReader.h"
#include "Images/internal/PngReader.h"
#include "Images/internal/WebpReader.h"

#include <array>
#include <string_view>
#include <utility>

namespace Images {

std::unique_ptr<PixelReader> openImage(ByteReader bytes, std::uint64_t mostPixels) {
    std::array<std::uint8_t, kFormatBytes> first{};
    ByteReader peek = bytes;
    const std::size_t count = peek.read(first.data(), first.size());
    const std::string_view beginning(reinterpret_cast<const char*>(first.data()), count);
    switch (formatOf(beginning)) {
        case ImageFormat::png:
            return openPng(std::move(bytes), mostPixels);
        case ImageFormat::jpeg:
            return openJpeg(std::move(bytes), mostPixels);
        case ImageFormat::gif:
            return openGif(std::move(bytes), mostPixels);
        case ImageFormat::webp:
            return openWebp(std::move(bytes), mostPixels);
        case ImageFormat::none:
        case ImageFormat::other:
            break;
    }
    throw ImageError(unusableFormat(beginning));
}

void requireFeasible(std::uint64_t width, std::uint64_t height, std::uint64_t mostPixels) {
    if (width * height > mostPixels)
        throw ImageError("has " + std::to_string(width) + " x " + std::to_string(height) +
                         " pixels, more than the limit of " + std::to_string(mostPixels) +
                         "; make it smaller or raise the limit (--max-pixels of psrender)");
}

}  // namespace Images
