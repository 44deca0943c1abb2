#include "psrender/svg/image/DataUri.h"

#include "psrender/svg/values/Characters.h"

#include <cstdint>

namespace psrender::svg {

namespace {

constexpr int kNone = -1;
constexpr int kSkipped = -2;

int hexDigit(char c) {
    if (isDigit(c))
        return c - '0';
    const char lower = toLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : kNone;
}

/// Both alphabets, that for addresses too.
int base64Digit(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (isDigit(c))
        return c - '0' + 52;
    if (c == '+' || c == '-')
        return 62;
    if (c == '/' || c == '_')
        return 63;
    return isSpace(c) ? kSkipped : kNone;
}

/// Up to the padding; nothing if other characters stand in it or a digit is left over.
std::optional<std::string> decodeBase64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int digits = 0;
    for (const char c : text.substr(0, text.find('='))) {
        const int digit = base64Digit(c);
        if (digit == kSkipped)
            continue;
        if (digit == kNone)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        if (digits++ % 4 != 0)
            bytes += static_cast<char>(bits >> (6 - 2 * ((digits - 1) % 4)) & 0xFF);
    }
    return digits % 4 == 1 ? std::nullopt : std::make_optional(std::move(bytes));
}

}  // namespace

std::string percentDecoded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isCode = text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
                            hexDigit(text[i + 2]) >= 0;
        result += isCode ? static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]))
                         : text[i];
        i += isCode ? 2 : 0;
    }
    return result;
}

std::optional<std::string> decodeDataUri(std::string_view address) {
    constexpr std::string_view kScheme = "data:";
    constexpr std::string_view kBase64 = ";base64";
    const std::size_t comma = address.find(',');
    if (comma == std::string_view::npos ||
        !equalsIgnoringCase(address.substr(0, kScheme.size()), kScheme))
        return std::nullopt;
    const std::string_view type = trimmed(address.substr(0, comma));
    const std::string_view data = address.substr(comma + 1);
    if (type.size() < kBase64.size() ||
        !equalsIgnoringCase(type.substr(type.size() - kBase64.size()), kBase64))
        return percentDecoded(data);
    if (data.find('%') == std::string_view::npos)
        return decodeBase64(data);
    return decodeBase64(percentDecoded(data));
}

}  // namespace psrender::svg
