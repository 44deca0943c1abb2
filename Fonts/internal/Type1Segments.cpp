// A segment: byte 128 | type (1 clear text, 2 encrypted, 3 end) | length 4 bytes, lowest first,
// none for the end | data. A program without segments is the data alone (Adobe Type 1 Font
// Format; Adobe Technical Note 5040 for the segments).

#include "Fonts/internal/Type1Segments.h"

#include "Fonts/FontException.h"
#include "Fonts/internal/Type1Encryption.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Fonts {

namespace {

constexpr char kMarker = '\x80';
constexpr char kClear = 1;
constexpr char kEncrypted = 2;
constexpr char kEnd = 3;
constexpr std::size_t kSegmentHead = 6;
constexpr int kTrailerZeros = 512;

struct Parts {
    std::string header;
    std::string encrypted;
    std::string trailer;
};

[[noreturn]] void failDamaged(const std::string& fileName) {
    throw FontException(fileName, "is damaged: the Type 1 program in it is cut off");
}

std::size_t segmentLength(std::string_view file, std::size_t at) {
    std::size_t length = 0;
    for (std::size_t i = kSegmentHead; i > 2; --i)
        length = length << 8 | static_cast<std::uint8_t>(file[at + i - 1]);
    return length;
}

Parts readSegments(std::string_view file, const std::string& fileName) {
    Parts parts;
    for (std::size_t at = 0; at + 1 < file.size() && file[at + 1] != kEnd;) {
        if (file[at] != kMarker || file.size() - at < kSegmentHead)
            failDamaged(fileName);
        const char type = file[at + 1];
        const std::size_t length = segmentLength(file, at);
        at += kSegmentHead;
        if ((type != kClear && type != kEncrypted) || length > file.size() - at)
            failDamaged(fileName);
        std::string& clear = parts.encrypted.empty() ? parts.header : parts.trailer;
        (type == kEncrypted ? parts.encrypted : clear) += file.substr(at, length);
        at += length;
    }
    return parts;
}

bool isBlank(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

/// Where the zeros before "cleartomark" begin; the end of the file if there is no trailer.
std::size_t trailerStart(std::string_view file) {
    std::size_t start = file.rfind("cleartomark");
    if (start == std::string_view::npos)
        return file.size();
    for (int zeros = 0; start > 0 && zeros < kTrailerZeros; --start) {
        if (file[start - 1] == '0')
            ++zeros;
        else if (!isBlank(file[start - 1]))
            break;
    }
    return start;
}

Parts readBare(std::string_view file) {
    constexpr std::string_view headerEnd = "currentfile eexec";
    const std::size_t found = file.find(headerEnd);
    if (found == std::string_view::npos)
        return {};
    const std::size_t end = found + headerEnd.size();
    std::size_t begin = end;
    while (begin < file.size() && isBlank(file[begin]))
        ++begin;
    const std::size_t trailer = trailerStart(file);
    if (trailer <= begin)
        return {};
    const std::string_view encrypted = file.substr(begin, trailer - begin);
    return {std::string(file.substr(0, end)) + '\n',
            Type1Encryption::cutBehindProgram(Type1Encryption::toBinary(encrypted)),
            std::string(file.substr(trailer))};
}

/// CR and CR LF become LF.
std::string uniformLines(std::string_view text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r')
            lines += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            lines += '\n';
    return lines;
}

void appendSegment(char type, std::string_view data, Core::ByteArray& out) {
    std::string head{kMarker, type};
    for (std::size_t shift = 0; shift < 32; shift += 8)
        head += static_cast<char>(data.size() >> shift & 0xFF);
    out.append(head.data(), head.size());
    out.append(data.data(), data.size());
}

}  // namespace

bool isType1(std::span<const std::uint8_t> bytes) {
    const std::string_view file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const std::size_t start = file.starts_with(kMarker) ? std::min(kSegmentHead, file.size()) : 0;
    const std::string_view text = file.substr(start);
    return text.starts_with("%!PS-AdobeFont") || text.starts_with("%!FontType1");
}

Core::ByteArray type1Segments(std::span<const std::uint8_t> bytes, const std::string& fileName) {
    const std::string_view file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const Parts parts = file.starts_with(kMarker) ? readSegments(file, fileName) : readBare(file);
    if (parts.encrypted.empty())
        failDamaged(fileName);
    Core::ByteArray segments;
    appendSegment(kClear, uniformLines(parts.header), segments);
    appendSegment(kEncrypted, parts.encrypted, segments);
    if (!parts.trailer.empty())
        appendSegment(kClear, uniformLines(parts.trailer), segments);
    const std::string end{kMarker, kEnd};
    segments.append(end.data(), end.size());
    return segments;
}

}  // namespace Fonts
