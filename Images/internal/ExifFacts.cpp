#include "Images/internal/ExifFacts.h"

#include <cstddef>

namespace Images {

namespace {

enum Tag : std::uint32_t {
    orientation = 0x0112,
    xResolution = 0x011A,
    yResolution = 0x011B,
    resolutionUnit = 0x0128
};

constexpr std::size_t kEntrySize = 12;
constexpr std::uint32_t kCentimetres = 3;
constexpr double kCentimetresAnInch = 2.54;

/// Numbers of either byte order at any offset; beyond the end everything is 0.
class TiffBytes {
public:
    explicit TiffBytes(std::span<const std::uint8_t> bytes)
        : bytes_(bytes), isLittleEndian_(!bytes.empty() && bytes[0] == 'I') {}

    [[nodiscard]] std::uint32_t number(std::size_t offset, std::size_t size) const {
        if (offset > bytes_.size() || bytes_.size() - offset < size)
            return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value = value << 8 | bytes_[offset + (isLittleEndian_ ? size - 1 - i : i)];
        return value;
    }
    [[nodiscard]] std::uint32_t short16(std::size_t offset) const { return number(offset, 2); }
    [[nodiscard]] std::uint32_t long32(std::size_t offset) const { return number(offset, 4); }
    [[nodiscard]] double fraction(std::size_t offset) const {
        const std::uint32_t divisor = long32(offset + 4);
        return divisor == 0 ? 0 : static_cast<double>(long32(offset)) / divisor;
    }

private:
    std::span<const std::uint8_t> bytes_;
    bool isLittleEndian_;
};

void toInches(ExifFacts& facts) {
    facts.horizontalResolution *= kCentimetresAnInch;
    facts.verticalResolution *= kCentimetresAnInch;
}

}  // namespace

ExifFacts parseExif(std::span<const std::uint8_t> tiff) {
    const TiffBytes bytes(tiff);
    ExifFacts facts;
    const std::size_t directory = bytes.long32(4);
    const std::size_t count = bytes.short16(directory);
    bool isMetric = false;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = directory + 2 + i * kEntrySize;
        const std::uint32_t value = bytes.short16(entry + 8);
        switch (bytes.short16(entry)) {
            case orientation:
                if (value >= 1 && value <= 8)
                    facts.orientation = static_cast<int>(value);
                break;
            case xResolution:
                facts.horizontalResolution = bytes.fraction(bytes.long32(entry + 8));
                break;
            case yResolution:
                facts.verticalResolution = bytes.fraction(bytes.long32(entry + 8));
                break;
            case resolutionUnit:
                isMetric = value == kCentimetres;
                break;
            default:
                break;
        }
    }
    if (isMetric)
        toInches(facts);
    return facts;
}

}  // namespace Images
