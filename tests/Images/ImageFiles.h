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

struct GifFile {
    int width = 1;  ///< of the screen
    int height = 1;
    int left = 0;  ///< of the picture on it, which has 4 x 8 pixels
    int top = 0;
    Bytes indices{};  ///< 0 red, 1 green, 2 blue, 3 white
    bool isInterlaced = false;
    int clearIndex = -1;
};

std::string encode(const GifFile& file);

struct WebpFile {
    int width = 1;
    int height = 1;
    Bytes samples{};  ///< red, green, blue, alpha; kept without loss
};

std::string encode(const WebpFile& file);

/// An RGB profile with the primaries of sRGB and its own steps, or a gamma instead.
std::string profileOf(std::optional<double> gamma);

}  // namespace Images::tests
