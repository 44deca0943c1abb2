#include "Drawing/EncodedImage.h"
#include "psrender/image/DerivedImages.h"

#include <utility>

namespace psrender::image {

using Images::PixelRect;
using Images::RowImage;
using Images::rowsOf;

namespace {

/// Shares the original's key, as its samples are the same.
class SmoothImage : public RowImage, public Drawing::EncodedImage {
public:
    explicit SmoothImage(Core::SmartPtr<RowImage> image)
        : RowImage(image->getHashKey(), image->getPixelSize(), image->getColorSpace()->getType(),
                   image->hasAlpha()),
          image_(std::move(image)) {}

    [[nodiscard]] bool isInterpolated() const override { return true; }
    [[nodiscard]] PixelRect visiblePart() const override { return image_->visiblePart(); }
    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override {
        image_->readRows(first, count, pixels, alpha);
    }
    bool writeJpeg(int selector, Core::IO::Stream& output) const override {
        const auto* encoded = dynamic_cast<const Drawing::EncodedImage*>(image_.get());
        return encoded != nullptr && encoded->writeJpeg(selector, output);
    }

private:
    Core::SmartPtr<RowImage> image_;
};

}  // namespace

Core::SmartPtr<Drawing::Image> smoothed(const Core::SmartPtr<Drawing::Image>& image) {
    return Core::makeObject<SmoothImage>(rowsOf(image));
}

}  // namespace psrender::image
