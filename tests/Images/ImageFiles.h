#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Image files made in memory, with pixels that tests know.
namespace Images::tests {

using Bytes = std::vector<std::uint8_t>;

/// `count` bytes without a pattern, always the same.
Bytes noise(std::size_t count);

struct PngFile {
    int width = 1;
    int height = 1;
    Bytes samples{};  ///< rows as they are stored, 16-bit samples with the high byte first
    int colorType = 2;
    int depth = 8;
    bool isInterlaced = false;
    int orientation = 1;
    double dotsPerMetre = 0;
    std::string profile{};  ///< ICC
    double gamma = 0;       ///< of the samples; 0: not told
};

std::string encode(const PngFile& file);

struct JpegFile {
    int width = 8;
    int height = 8;
    int components = 3;
    Bytes samples{};
    bool isProgressive = false;
    int orientation = 1;
    bool hasAdobeMarker = false;
};

std::string encode(const JpegFile& file);

/// An RGB profile with the primaries of sRGB and its own steps, or a gamma instead.
std::string profileOf(std::optional<double> gamma);

}  // namespace Images::tests
