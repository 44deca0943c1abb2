#include "PS/internal/HexWriter.h"

#include "PS/internal/HexDigits.h"

#include <algorithm>
#include <cstddef>

namespace Drawing::PS {

namespace {

constexpr std::size_t kLine = 40;

char* writeDigits(char* out, std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes)
        out = putHex(out, byte);
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
