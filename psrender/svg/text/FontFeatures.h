#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace psrender::svg {

/// A four-letter name of a font, as a number, and what it is set to.
struct FontSetting {
    std::uint32_t tag = 0;
    double value = 1;
};

/// Reads lists such as `"smcp", 'liga' off, "wght" 650`. What is not understood is passed over.
std::vector<FontSetting> parseFontSettings(std::string_view text);

}  // namespace psrender::svg
