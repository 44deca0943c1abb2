#include "Images/LoadImage.h"

#include "Drawing/RasterImage.h"
#include "Images/ImageError.h"
#include "Images/ImageStore.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

namespace Images {

using Core::ByteArray;
using Core::SmartPtr;
using Drawing::Image;
using Drawing::PixelSize;

namespace {

/// Puts the pixels of a stored picture where a viewer shows them.
class Turn {
public:
    Turn(PixelSize stored, int orientation)
        : stored_(stored),
          isSideways_(orientation > 4),
          isMirroredAcross_(orientation == 2 || orientation == 3 || orientation == 7 ||
                            orientation == 8),
          isMirroredDown_(orientation == 3 || orientation == 4 || orientation == 6 ||
                          orientation == 7) {}

    [[nodiscard]] PixelSize size() const {
        return isSideways_ ? PixelSize{stored_.height, stored_.width} : stored_;
    }

    /// `pixels` has `stride` bytes a pixel.
    [[nodiscard]] ByteArray apply(const ByteArray& pixels, std::size_t stride) const {
        ByteArray turned(pixels.size());
        std::uint8_t* to = turned.data();
        const PixelSize shown = size();
        for (std::int32_t y = 0; y < shown.height; ++y)
            for (std::int32_t x = 0; x < shown.width; ++x)
                to = std::copy_n(pixels.data() + placeOf(x, y) * stride, stride, to);
        return turned;
    }

private:
    /// The number of the stored pixel that is shown there.
    [[nodiscard]] std::size_t placeOf(std::int32_t x, std::int32_t y) const {
        if (isSideways_)
            std::swap(x, y);
        if (isMirroredAcross_)
            x = stored_.width - 1 - x;
        if (isMirroredDown_)
            y = stored_.height - 1 - y;
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(stored_.width) +
               static_cast<std::size_t>(x);
    }

    PixelSize stored_;
    bool isSideways_;
    bool isMirroredAcross_;
    bool isMirroredDown_;
};

SmartPtr<Image> turned(const SmartPtr<Image>& image, int orientation) {
    if (orientation == 1)
        return image;
    const Turn turn(image->getPixelSize(), orientation);
    const auto space = image->getColorSpace();
    const auto components = static_cast<std::size_t>(space->getComponentCount());
    ByteArray alpha = image->hasAlpha() ? turn.apply(image->getAlphaBytes(0), 1) : ByteArray();
    return Core::makeObject<Drawing::RasterImage>(turn.size(), space->getType(),
                                                  turn.apply(image->getPixelBytes(0), components),
                                                  std::move(alpha));
}

/// Calls `load` with a store of its own.
template <class Load>
LoadedImage loadWith(const std::string& name, std::uint64_t mostPixels, Load load) {
    ImageStore store(mostPixels);
    try {
        const UprightImage& found = load(store);
        return {turned(found.image, found.orientation), found.horizontalResolution,
                found.verticalResolution, found.isProfileIgnored};
    } catch (const ImageError& error) {
        throw ImageError(name + ": " + error.what());
    } catch (const ImageLost& error) {
        throw ImageLost(name + ": " + error.what());
    }
}

}  // namespace

LoadedImage loadImage(const Core::String& path, std::uint64_t mostPixels) {
    const std::string name = path.toUtf8();
    return loadWith(name, mostPixels, [&](ImageStore& store) -> const UprightImage& {
        return store.fromFile(name, name);
    });
}

LoadedImage loadImage(std::string_view bytes, const Core::String& name, std::uint64_t mostPixels) {
    const std::string called = name.toUtf8();
    return loadWith(called, mostPixels, [&](ImageStore& store) -> const UprightImage& {
        return store.fromBytes(bytes, called);
    });
}

}  // namespace Images
