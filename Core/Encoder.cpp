#include "Core/Encoder.h"

#include "Core/Unicode.h"

#include <cstdint>

namespace Core {

namespace {

/// Takes the code point at `index` and moves `index` behind it.
char32_t takeCodePoint(std::u16string_view units, std::size_t& index) {
    const char32_t point = Unicode::next(units, index);
    return Unicode::isSurrogate(point) ? Unicode::kReplacement : point;
}

/// Narrows a text of ASCII units; false (and `out` undefined) if it holds any other.
/// One pass without a branch a unit, which the compiler turns into vector code.
bool narrowAscii(std::u16string_view units, char* out) {
    unsigned seen = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        seen |= units[i];
        out[i] = static_cast<char>(units[i]);
    }
    return seen < 0x80;
}

int sequenceLength(std::uint8_t lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// The code point of a whole sequence; U+FFFD for a shorter-than-needed, surrogate or
/// otherwise malformed one.
char32_t decodeSequence(std::string_view sequence) {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, Unicode::kFirstSupplementary};
    const std::size_t length = sequence.size();
    char32_t point = static_cast<std::uint8_t>(sequence[0]) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(sequence[i]);
        if ((byte & 0xC0) != 0x80)
            return Unicode::kReplacement;
        point = (point << 6) | (byte & 0x3F);
    }
    const bool isCharacter =
        point >= kSmallest[length] && point <= Unicode::kLast && !Unicode::isSurrogate(point);
    return isCharacter ? point : Unicode::kReplacement;
}

/// Takes the code point at `index` and moves `index` behind it; a malformed sequence costs
/// one byte.
char32_t takeUtf8(std::string_view bytes, std::size_t& index) {
    const auto lead = static_cast<std::uint8_t>(bytes[index]);
    const auto length = static_cast<std::size_t>(sequenceLength(lead));
    if (length == 1) {
        ++index;
        return lead;
    }
    const bool whole = length != 0 && index + length <= bytes.size();
    const char32_t point =
        whole ? decodeSequence(bytes.substr(index, length)) : Unicode::kReplacement;
    const bool literal = whole && length == 3 && bytes.substr(index, 3) == "\xEF\xBF\xBD";
    index += point == Unicode::kReplacement && !literal ? 1 : length;
    return point;
}

}  // namespace

ByteArray Encoder::convertStringToMultibyte(const String& text) {
    ByteArray bytes(text.length());
    if (narrowAscii(text.view(), reinterpret_cast<char*>(bytes.data())))
        return bytes;
    return ByteArray(text.toUtf8());
}

String Encoder::convertMultibyteToString(std::string_view bytes) {
    return {bytes};
}

std::string Encoder::utf8FromUtf16(std::u16string_view units) {
    std::string out(units.size(), '\0');
    if (narrowAscii(units, out.data()))
        return out;
    out.clear();
    for (std::size_t i = 0; i < units.size();)
        Unicode::appendUtf8(out, takeCodePoint(units, i));
    return out;
}

std::u16string Encoder::utf16FromUtf8(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();)
        Unicode::appendUtf16(out, takeUtf8(bytes, i));
    return out;
}

}  // namespace Core
