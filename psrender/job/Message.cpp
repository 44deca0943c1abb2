#include "psrender/job/Message.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace psrender {

namespace {

unsigned char byteAt(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

/// The bytes of a character beyond ASCII by its first one; 0 for what begins none.
std::size_t lengthBy(unsigned char first) {
    if (first < 0xC2 || first > 0xF4)
        return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// The least second byte that makes a character: below it the same character has a shorter form,
/// or, behind 0xC2, is one of the second set of control characters.
unsigned char leastSecond(unsigned char first) {
    return first == 0xC2 || first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
}

/// The bytes of the character that `text` begins with; 0 if it cannot be shown as it is.
std::size_t shownLength(std::string_view text) {
    const unsigned char first = byteAt(text, 0);
    if (first < 0x80)
        return first >= ' ' && first != 0x7F ? 1 : 0;
    const std::size_t length = lengthBy(first);
    if (length == 0 || text.size() < length || byteAt(text, 1) < leastSecond(first))
        return 0;
    const std::string_view rest = text.substr(1, length - 1);
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    return std::ranges::all_of(rest, continues) ? length : 0;
}

}  // namespace

std::string printable(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = shownLength(text);
        if (length == 0) {
            std::array<char, 5> code{};
            std::snprintf(code.data(), code.size(), "\\x%02X", unsigned{byteAt(text, 0)});
            result += code.data();
        }
        result += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

void tell(std::string_view sentence) {
    std::fprintf(stderr, "psrender: %s\n", printable(sentence).c_str());
}

}  // namespace psrender
