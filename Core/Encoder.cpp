#include "Core/Encoder.h"

#include <cstdint>

namespace Core {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Takes the code point at `index` and moves `index` behind it.
char32_t takeCodePoint(std::u16string_view units, std::size_t& index) {
    const char32_t unit = units[index++];
    if (isHighSurrogate(unit) && index < units.size() && isLowSurrogate(units[index]))
        return 0x10000 + ((unit - 0xD800) << 10) + (units[index++] - char32_t{0xDC00});
    return isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacement : unit;
}

void appendUtf8(std::string& out, char32_t point) {
    const auto continuation = [&](int shift) {
        out.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F)));
    };
    if (point < 0x80) {
        out.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (point >> 6)));
        continuation(0);
    } else if (point < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (point >> 12)));
        continuation(6);
        continuation(0);
    } else {
        out.push_back(static_cast<char>(0xF0 | (point >> 18)));
        continuation(12);
        continuation(6);
        continuation(0);
    }
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
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::size_t length = sequence.size();
    char32_t point = static_cast<std::uint8_t>(sequence[0]) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<std::uint8_t>(sequence[i]);
        if ((byte & 0xC0) != 0x80)
            return kReplacement;
        point = (point << 6) | (byte & 0x3F);
    }
    const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
    return point < kSmallest[length] || point > 0x10FFFF || surrogate ? kReplacement : point;
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
    const char32_t point = whole ? decodeSequence(bytes.substr(index, length)) : kReplacement;
    const bool literal = whole && length == 3 && bytes.substr(index, 3) == "\xEF\xBF\xBD";
    index += point == kReplacement && !literal ? 1 : length;
    return point;
}

void appendUtf16(std::u16string& out, char32_t point) {
    if (point < 0x10000) {
        out.push_back(static_cast<char16_t>(point));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
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
        appendUtf8(out, takeCodePoint(units, i));
    return out;
}

std::u16string Encoder::utf16FromUtf8(std::string_view bytes) {
    std::u16string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();)
        appendUtf16(out, takeUtf8(bytes, i));
    return out;
}

}  // namespace Core
