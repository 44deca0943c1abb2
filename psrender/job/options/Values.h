#pragma once

#include "psrender/job/PageFrame.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace psrender::options {

/// A length in points: one with a unit, or in pixels of `dotsPerInch` without one or with "px".
std::optional<double> parsePixels(std::string_view text, double dotsPerInch);

/// Whether the text is a length above 0, whatever the resolution.
bool isSide(const std::string& text);

/// One to four lengths: all sides, or as CSS has them, from the top clockwise.
std::optional<Margins> parseMargins(const std::string& text);

/// From one page to another, both counted from 1 and within.
struct PageRange {
    std::size_t first = 1;
    std::size_t last = 0;
};

/// Ranges such as "2-5,8", "3-" and "-4".
std::optional<std::vector<PageRange>> parsePages(const std::string& text);

/// The words between the commas.
std::vector<std::string> parseList(const std::string& text);

}  // namespace psrender::options
