#include "PS/internal/Type42Strings.h"

#include "PS/internal/HexDigits.h"

#include <algorithm>
#include <cstddef>

namespace Drawing::PS {

namespace {

constexpr std::size_t kLine = 32;
constexpr std::size_t kLongestString = 65504;

/// What stands behind the line that ends at `end`: the next line, the next string, or the end of
/// this one. A string that is full is closed even if nothing follows but the extra byte.
char* putLineEnd(char* out, std::size_t end, std::size_t size) {
    if (end % kLongestString == 0)
        return std::copy_n(">\n<", 3, out);
    if (end < size)
        *out++ = '\n';
    return out;
}

}  // namespace

void writeType42String(Core::IO::Stream& stream, std::span<const std::uint8_t> bytes) {
    stream.write("<");
    for (std::size_t at = 0; at < bytes.size(); at += kLine) {
        const auto line = bytes.subspan(at, std::min(kLine, bytes.size() - at));
        char* out = stream.reserve(2 * kLine + 3);
        for (const std::uint8_t byte : line)
            out = putHex(out, byte);
        stream.commit(putLineEnd(out, at + line.size(), bytes.size()));
    }
    for (std::size_t fill = bytes.size(); fill % 4 != 0; ++fill)
        stream.write("00");
    stream.write("00>\n");
}

}  // namespace Drawing::PS
