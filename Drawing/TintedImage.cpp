#include "Drawing/TintedImage.h"

#include "Core/Exception.h"
#include "Core/NumberText.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <utility>

namespace Drawing {

namespace {

constexpr double kByte = 255;

using Range = TintedImage::Range;

/// The one image below all tints.
const Core::SmartPtr<Image>& originalOf(const Core::SmartPtr<Image>& image) {
    const auto* tinted = dynamic_cast<const TintedImage*>(image.get());
    return tinted != nullptr ? tinted->getOriginal() : image;
}

/// `ranges` as they act upon what `image` makes of its original.
std::vector<Range> composed(const Core::SmartPtr<Image>& image, std::vector<Range> ranges) {
    const auto* tinted = dynamic_cast<const TintedImage*>(image.get());
    if (tinted == nullptr || tinted->getRanges().size() != ranges.size())
        return ranges;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const Range outer = ranges[i];
        const auto seen = [&](double value) {
            return outer.low + value * (outer.high - outer.low);
        };
        ranges[i] = {seen(tinted->getRanges()[i].low), seen(tinted->getRanges()[i].high)};
    }
    return ranges;
}

Core::String keyOf(const Image& original, const std::vector<Range>& ranges) {
    std::string key = original.getHashKey().toUtf8();
    std::array<char, Core::kMaxNumberText<double>> number{};
    for (const Range& range : ranges)
        for (const double value : {range.low, range.high}) {
            key += '-';
            key.append(number.data(), Core::writeNumber(number.data(), value));
        }
    return Core::String(key);
}

}  // namespace

TintedImage::TintedImage(const Core::SmartPtr<Image>& original, std::vector<Range> ranges)
    : Image(keyOf(*originalOf(original), composed(original, ranges))),
      original_(originalOf(original)),
      ranges_(composed(original, std::move(ranges))) {
    const auto components =
        static_cast<std::size_t>(original_->getColorSpace()->getComponentCount());
    if (ranges_.size() != components)
        throw Core::FormatException("TintedImage", 1,
                                    "a tint has a range for each of the " +
                                        std::to_string(components) + " components, not " +
                                        std::to_string(ranges_.size()));
    for (const Range& range : ranges_)
        if (!(range.low >= 0 && range.low <= 1 && range.high >= 0 && range.high <= 1))
            throw Core::FormatException("TintedImage", 2, "the ranges of a tint lie from 0 to 1");
}

TintedImage::~TintedImage() = default;

PixelSize TintedImage::getPixelSize() const {
    return original_->getPixelSize();
}

Core::SmartPtr<ColorSpace> TintedImage::getColorSpace() const {
    auto space = original_->getColorSpace();
    return space->getType() == ColorSpaceType::oneBit
               ? Core::makeObject<ColorSpace>(ColorSpaceType::gray)
               : space;
}

bool TintedImage::hasAlpha() const {
    return original_->hasAlpha();
}

Core::ByteArray TintedImage::getPixelBytes(int selector) const {
    Core::ByteArray pixels = original_->getPixelBytes(selector);
    tint({pixels.data(), pixels.size()});
    return pixels;
}

Core::ByteArray TintedImage::getAlphaBytes(int selector) const {
    return original_->getAlphaBytes(selector);
}

bool TintedImage::isInterpolated() const {
    return original_->isInterpolated();
}

void TintedImage::tint(std::span<std::uint8_t> pixels) const {
    const bool isOneBit = original_->getColorSpace()->getType() == ColorSpaceType::oneBit;
    std::vector<std::array<std::uint8_t, 256>> tables(ranges_.size());
    for (std::size_t i = 0; i < tables.size(); ++i)
        for (std::size_t value = 0; value < tables[i].size(); ++value) {
            const double share = isOneBit && value > 0 ? 1 : static_cast<double>(value) / kByte;
            tables[i][value] = static_cast<std::uint8_t>(
                std::lround(kByte * (ranges_[i].low + share * (ranges_[i].high - ranges_[i].low))));
        }
    for (std::size_t at = 0; at < pixels.size(); ++at)
        pixels[at] = tables[at % tables.size()][pixels[at]];
}

}  // namespace Drawing
