#include "psrender/image/MemoryImage.h"

#include "Core/StringFormatStream.h"

#include <xxhash.h>

#include <algorithm>
#include <utility>

namespace psrender::image {

using Images::RowImage;

namespace {

Core::String keyOf(Drawing::PixelSize size, const std::vector<std::uint8_t>& colors,
                   const std::vector<std::uint8_t>& alpha) {
    const auto seed = XXH3_64bits(alpha.data(), alpha.size());
    const XXH128_hash_t hash = XXH3_128bits_withSeed(colors.data(), colors.size(), seed);
    return Core::StringFormatStream(u"made-{0}x{1}-{2:X16}{3:X16}")
           << size.width << size.height << hash.high64 << hash.low64;
}

class MemoryImage : public RowImage {
public:
    MemoryImage(Drawing::PixelSize size, std::vector<std::uint8_t> colors,
                std::vector<std::uint8_t> alpha)
        : RowImage(keyOf(size, colors, alpha), size, Drawing::ColorSpaceType::rgb, !alpha.empty()),
          colors_(std::move(colors)),
          alpha_(std::move(alpha)) {}

    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override {
        const std::size_t begin = static_cast<std::size_t>(first) * width();
        const std::size_t size = static_cast<std::size_t>(count) * width();
        std::copy_n(colors_.data() + begin * components(), size * components(), pixels);
        if (hasAlpha())
            std::copy_n(alpha_.data() + begin, size, alpha);
    }

private:
    std::vector<std::uint8_t> colors_;
    std::vector<std::uint8_t> alpha_;
};

}  // namespace

Core::SmartPtr<Drawing::Image> inMemory(Drawing::PixelSize size, std::vector<std::uint8_t> colors,
                                        std::vector<std::uint8_t> alpha) {
    return Core::makeObject<MemoryImage>(size, std::move(colors), std::move(alpha));
}

}  // namespace psrender::image
