#include "psrender/svg/text/UpperCase.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace psrender::svg {

namespace {

/// Small letters in a row whose capitals stand `down` below them; where they alternate with their
/// capitals, only those at an even distance from the first are small.
struct Letters {
    char32_t first = 0;
    char32_t last = 0;
    std::int32_t down = 0;
    bool alternate = false;
};

/// In ascending order.
constexpr std::array kLetters{
    Letters{0x61, 0x7A, 32},          Letters{0xE0, 0xF6, 32},
    Letters{0xF8, 0xFE, 32},          Letters{0xFF, 0xFF, -121},
    Letters{0x101, 0x12F, 1, true},   Letters{0x131, 0x131, 232},
    Letters{0x133, 0x137, 1, true},   Letters{0x13A, 0x148, 1, true},
    Letters{0x14B, 0x177, 1, true},   Letters{0x17A, 0x17E, 1, true},
    Letters{0x17F, 0x17F, 300},       Letters{0x1CE, 0x1DC, 1, true},
    Letters{0x1DF, 0x1EF, 1, true},   Letters{0x1F9, 0x21F, 1, true},
    Letters{0x223, 0x233, 1, true},   Letters{0x3AC, 0x3AC, 38},
    Letters{0x3AD, 0x3AF, 37},        Letters{0x3B1, 0x3C1, 32},
    Letters{0x3C2, 0x3C2, 31},        Letters{0x3C3, 0x3CB, 32},
    Letters{0x3CC, 0x3CC, 64},        Letters{0x3CD, 0x3CE, 63},
    Letters{0x430, 0x44F, 32},        Letters{0x450, 0x45F, 80},
    Letters{0x461, 0x481, 1, true},   Letters{0x48B, 0x4BF, 1, true},
    Letters{0x4C2, 0x4CE, 1, true},   Letters{0x4CF, 0x4CF, 15},
    Letters{0x4D1, 0x52F, 1, true},   Letters{0x561, 0x586, 48},
    Letters{0x1E01, 0x1E95, 1, true}, Letters{0x1EA1, 0x1EFF, 1, true},
};

}  // namespace

char32_t upperCase(char32_t code) {
    const auto* letters = std::ranges::lower_bound(kLetters, code, {}, &Letters::last);
    if (letters == kLetters.end() || code < letters->first ||
        (letters->alternate && (code - letters->first) % 2 != 0))
        return code;
    return static_cast<char32_t>(static_cast<std::int32_t>(code) - letters->down);
}

}  // namespace psrender::svg
