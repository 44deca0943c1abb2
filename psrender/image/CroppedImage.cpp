#include "psrender/image/DerivedImages.h"

#include "Core/StringFormatStream.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace psrender::image {

using Images::PixelRect;
using Images::RowImage;
using Images::rowsOf;

namespace {

/// A document writes its images in the order of their keys: with the row first and of fixed
/// width, strips of one picture follow each other, and it is decoded once for all of them.
Core::String keyOf(const RowImage& image, const PixelRect& part) {
    return Core::StringFormatStream(u"{0}-{1:X08}-{2}-{3}x{4}")
           << image.getHashKey() << static_cast<std::uint32_t>(part.y) << part.x << part.width
           << part.height;
}

class CroppedImage : public RowImage {
public:
    CroppedImage(Core::SmartPtr<RowImage> image, const PixelRect& part)
        : RowImage(keyOf(*image, part), {part.width, part.height},
                   image->getColorSpace()->getType(), image->hasAlpha()),
          image_(std::move(image)),
          part_(part) {}

    [[nodiscard]] const Core::SmartPtr<RowImage>& original() const { return image_; }
    [[nodiscard]] const PixelRect& part() const { return part_; }

    [[nodiscard]] bool isInterpolated() const override { return image_->isInterpolated(); }
    void readRows(std::int32_t first, std::int32_t count, std::uint8_t* pixels,
                  std::uint8_t* alpha) const override {
        if (width() == image_->width())
            image_->readRows(part_.y + first, count, pixels, alpha);
        else
            for (std::int32_t i = 0; i < count; ++i)
                readPart(part_.y + first + i, static_cast<std::size_t>(i), pixels, alpha);
    }

    [[nodiscard]] PixelRect visiblePart() const override {
        const PixelRect whole = image_->visiblePart();
        const std::int32_t left = std::max(whole.x, part_.x);
        const std::int32_t top = std::max(whole.y, part_.y);
        return {left - part_.x, top - part_.y,
                std::max(0, std::min(whole.x + whole.width, part_.x + part_.width) - left),
                std::max(0, std::min(whole.y + whole.height, part_.y + part_.height) - top)};
    }

private:
    void readPart(std::int32_t row, std::size_t target, std::uint8_t* pixels,
                  std::uint8_t* alpha) const {
        std::vector<std::uint8_t> colors(image_->width() * components());
        std::vector<std::uint8_t> alphas(hasAlpha() ? image_->width() : 0);
        image_->readRows(row, 1, colors.data(), alphas.data());
        const auto left = static_cast<std::ptrdiff_t>(part_.x);
        const auto stride = static_cast<std::ptrdiff_t>(components());
        std::copy_n(colors.begin() + left * stride, width() * components(),
                    pixels + target * width() * components());
        if (hasAlpha())
            std::copy_n(alphas.begin() + left, width(), alpha + target * width());
    }

    Core::SmartPtr<RowImage> image_;
    PixelRect part_;
};

}  // namespace

Core::SmartPtr<Drawing::Image> cropped(const Core::SmartPtr<Drawing::Image>& image,
                                       const PixelRect& part) {
    const Drawing::PixelSize size = image->getPixelSize();
    if (part == PixelRect{0, 0, size.width, size.height})
        return image;
    if (const auto around = image.dynamicCast<CroppedImage>()) {
        PixelRect within = part;
        within.x += around->part().x;
        within.y += around->part().y;
        return Core::makeObject<CroppedImage>(around->original(), within);
    }
    return Core::makeObject<CroppedImage>(rowsOf(image), part);
}

}  // namespace psrender::image
