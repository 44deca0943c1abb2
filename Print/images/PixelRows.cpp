#include "Print/images/internal/PixelRows.h"

#include "Core/Exception.h"

#include <algorithm>
#include <string>

namespace Drawing::Print {

namespace {

/// Enough for any overhead a read has, and within the processor's cache.
constexpr std::size_t kBandBytes = std::size_t{1} << 17;

[[noreturn]] void fail(int line, const std::string& problem) {
    throw Core::FormatException("Picture", line, problem);
}

std::string sizeText(PixelSize size) {
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

PixelSize checkedSize(const Image& image) {
    const PixelSize size = image.getPixelSize();
    if (size.width <= 0 || size.height <= 0)
        fail(1, "a picture of " + sizeText(size) + " pixels cannot be shown");
    return size;
}

Core::ByteArray checkedBytes(Core::ByteArray bytes, PixelSize size, std::size_t perPixel,
                             const char* what) {
    const std::uint64_t needed =
        static_cast<std::uint64_t>(size.width) * static_cast<std::uint64_t>(size.height) * perPixel;
    if (bytes.size() < needed)
        fail(2, "a picture of " + sizeText(size) + " pixels has " + std::to_string(bytes.size()) +
                    " bytes of " + what + " instead of " + std::to_string(needed));
    return bytes;
}

const Image& sourceOf(const Image& image) {
    const auto* tinted = dynamic_cast<const TintedImage*>(&image);
    return tinted != nullptr ? *tinted->getOriginal() : image;
}

}  // namespace

PixelRows::PixelRows(const Image& image, int selector)
    : tinted_(dynamic_cast<const TintedImage*>(&image)),
      source_(sourceOf(image)),
      rows_(dynamic_cast<const RowSource*>(&source_)),
      selector_(selector),
      size_(checkedSize(image)),
      space_(image.getColorSpace()->getType()),
      components_(static_cast<std::size_t>(image.getColorSpace()->getComponentCount())) {
    const std::size_t rows =
        std::clamp<std::size_t>(kBandBytes / rowBytes(), 1, static_cast<std::size_t>(size_.height));
    pixels_.resize(rows * rowBytes());
    if (source_.hasAlpha())
        alpha_.resize(rows * width());
    if (rows_ != nullptr)
        return;
    allPixels_ = checkedBytes(source_.getPixelBytes(selector), size_, components_, "colour");
    if (source_.hasAlpha())
        allAlpha_ = checkedBytes(source_.getAlphaBytes(selector), size_, 1, "alpha");
}

PixelRows::Band PixelRows::read() {
    const auto room = static_cast<std::int32_t>(pixels_.size() / rowBytes());
    const std::int32_t count = std::min(room, size_.height - next_);
    fetch(count);
    next_ += count;
    const auto rows = static_cast<std::size_t>(count);
    const std::span pixels = std::span(pixels_).first(rows * rowBytes());
    if (tinted_ != nullptr)
        tinted_->tint(pixels);
    else if (space_ == ColorSpaceType::oneBit)
        std::ranges::transform(pixels, pixels.begin(), [](std::uint8_t value) -> std::uint8_t {
            return value != 0 ? 255 : 0;
        });
    return {pixels, std::span(alpha_).first(alpha_.empty() ? 0 : rows * width())};
}

void PixelRows::fetch(std::int32_t count) {
    if (rows_ != nullptr) {
        rows_->readPixelRows(selector_, next_, count, pixels_.data(),
                             alpha_.empty() ? nullptr : alpha_.data());
        return;
    }
    const auto first = static_cast<std::size_t>(next_);
    const auto rows = static_cast<std::size_t>(count);
    std::copy_n(allPixels_.data() + first * rowBytes(), rows * rowBytes(), pixels_.data());
    if (!alpha_.empty())
        std::copy_n(allAlpha_.data() + first * width(), rows * width(), alpha_.data());
}

}  // namespace Drawing::Print
