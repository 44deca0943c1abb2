#include "Images/RowImage.h"

#include <algorithm>
#include <utility>

namespace Images {

namespace {

/// An image of another kind, asked for everything each time.
class WholeImage : public RowImage {
public:
    explicit WholeImage(Core::SmartPtr<Drawing::Image> image)
        : RowImage(image->getHashKey(), image->getPixelSize(), image->getColorSpace()->getType(),
                   image->hasAlpha()),
          image_(std::move(image)) {}

    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override {
        const std::size_t begin = static_cast<std::size_t>(first) * width();
        const std::size_t size = static_cast<std::size_t>(count) * width();
        const Core::ByteArray colors = image_->getPixelBytes(0);
        std::copy_n(colors.data() + begin * components(), size * components(), pixels);
        if (hasAlpha())
            std::copy_n(image_->getAlphaBytes(0).data() + begin, size, alpha);
    }

private:
    Core::SmartPtr<Drawing::Image> image_;
};

}  // namespace

RowImage::RowImage(Core::String hashKey, Drawing::PixelSize size,
                   Drawing::ColorSpaceType colorSpace, bool hasAlpha)
    : Image(std::move(hashKey)),
      size_(size),
      colorSpace_(Core::makeObject<Drawing::ColorSpace>(colorSpace)),
      components_(static_cast<std::size_t>(colorSpace_->getComponentCount())),
      hasAlpha_(hasAlpha) {}

Core::ByteArray RowImage::getPixelBytes(int /*selector*/) const {
    const std::size_t count = width() * static_cast<std::size_t>(size_.height);
    Core::ByteArray pixels(count * components_);
    Core::ByteArray alpha(hasAlpha_ ? count : 0);
    readRows(0, size_.height, pixels.data(), alpha.data());
    return pixels;
}

Core::ByteArray RowImage::getAlphaBytes(int /*selector*/) const {
    if (!hasAlpha_)
        return {};
    const std::size_t count = width() * static_cast<std::size_t>(size_.height);
    Core::ByteArray pixels(count * components_);
    Core::ByteArray alpha(count);
    readRows(0, size_.height, pixels.data(), alpha.data());
    return alpha;
}

void RowImage::readPixelRows(int /*selector*/, std::int32_t first, std::int32_t count,
                             std::uint8_t* pixels, std::uint8_t* alpha) const {
    readRows(first, count, pixels, alpha);
}

Core::SmartPtr<RowImage> rowsOf(const Core::SmartPtr<Drawing::Image>& image) {
    auto rows = image.dynamicCast<RowImage>();
    return rows ? rows : Core::makeObject<WholeImage>(image);
}

}  // namespace Images
