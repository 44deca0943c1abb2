#include "Images/internal/WholePicture.h"

namespace Images {

namespace {

constexpr std::size_t kSamplesAPixel = 4;

}  // namespace

void WholePicture::begin(std::uint64_t width, std::uint64_t height, std::uint64_t mostPixels) {
    requireFeasible(width, height, mostPixels);
    facts_.size = {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
    facts_.hasAlpha = true;
    samples_.resize(static_cast<std::size_t>(width * height) * kSamplesAPixel);
}

std::uint8_t* WholePicture::pixelAt(std::int32_t x, std::int32_t y) {
    const auto row = static_cast<std::size_t>(y) * static_cast<std::size_t>(facts_.size.width);
    return samples_.data() + (row + static_cast<std::size_t>(x)) * kSamplesAPixel;
}

void WholePicture::loadProfile(std::span<const std::uint8_t> profile) {
    facts_.isProfileIgnored = !profile_.load(profile, facts_.colorSpace);
}

void WholePicture::readRow(std::uint8_t* pixels, std::uint8_t* alpha) {
    const std::uint8_t* from = pixelAt(0, nextRow_++);
    std::uint8_t* to = pixels;
    for (std::int32_t x = 0; x < facts_.size.width; ++x) {
        *to++ = *from++;
        *to++ = *from++;
        *to++ = *from++;
        *alpha++ = *from++;
    }
    profile_.apply(pixels, static_cast<std::size_t>(facts_.size.width));
}

}  // namespace Images
