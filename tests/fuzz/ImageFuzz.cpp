// Any bytes as an image file: decoded from end to end and once more in part, or refused.

#include "Images/ImageError.h"
#include "Images/ImageStore.h"
#include "psrender/image/DerivedImages.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace image = psrender::image;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::uint64_t kMostPixels = 100'000;
    Images::ImageStore store(kMostPixels);
    try {
        const std::string_view bytes(reinterpret_cast<const char*>(data), size);
        const auto whole = store.fromBytes(bytes, "fuzz").image;
        const auto pixels = whole->getPixelSize();
        const Images::PixelRect last{pixels.width - 1, pixels.height - 1, 1, 1};
        const auto corner = image::flattened(image::cropped(whole, last), 0.5, {1, 2, 3});
        if (corner->getPixelBytes(0).size() > 4 || store.decodedPixels() > kMostPixels)
            std::abort();
    } catch (const Images::ImageError&) {
        return 0;
    }
    return 0;
}
