#include "PS/internal/HexWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace Drawing::PS {

namespace {

constexpr std::size_t kLine = 40;

constexpr auto kDigits = [] {
    constexpr const char* digits = "0123456789ABCDEF";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {digits[byte >> 4], digits[byte & 0xF]};
    return pairs;
}();

char* writeDigits(char* out, std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes) {
        std::memcpy(out, kDigits[byte].data(), 2);
        out += 2;
    }
    return out;
}

}  // namespace

void writeHex(Core::IO::Stream& stream, std::span<const std::uint8_t> bytes) {
    std::size_t line = kLine + 1;
    while (!bytes.empty()) {
        const std::size_t count = std::min(line, bytes.size());
        char* out = writeDigits(stream.reserve(2 * count + 1), bytes.first(count));
        if (count == line)
            *out++ = '\n';
        stream.commit(out);
        bytes = bytes.subspan(count);
        line = kLine;
    }
}

}  // namespace Drawing::PS
