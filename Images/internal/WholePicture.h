#pragma once

#include "Images/internal/ColorProfile.h"
#include "Images/internal/PixelReader.h"

#include <cstdint>
#include <vector>

namespace Images {

/// A picture whose format gives it out as a whole only: it is held while its rows are read.
class WholePicture : public PixelReader {
public:
    void readRow(std::uint8_t* pixels, std::uint8_t* alpha) override;

protected:
    /// Makes room for a clear RGB picture with alpha. Throws `ImageError` if that is too large.
    void begin(std::uint64_t width, std::uint64_t height, std::uint64_t mostPixels);
    /// Red, green, blue and alpha of the pixel there, those of a row side by side.
    [[nodiscard]] std::uint8_t* pixelAt(std::int32_t x, std::int32_t y);
    void loadProfile(std::span<const std::uint8_t> profile);

private:
    std::vector<std::uint8_t> samples_;
    ColorProfile profile_;
    std::int32_t nextRow_ = 0;
};

}  // namespace Images
