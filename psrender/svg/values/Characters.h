#pragma once

#include <algorithm>
#include <string_view>

/// ASCII only and independent of any locale.
namespace psrender::svg {

inline bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

inline char toLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline bool isLetter(char c) {
    return toLower(c) >= 'a' && toLower(c) <= 'z';
}

/// A character of a CSS identifier; bytes of multi-byte characters count as such.
inline bool isNameCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '-' || c == '_' || static_cast<unsigned char>(c) > 127;
}

inline bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return toLower(x) == toLower(y); });
}

inline std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Calls `visit(word)` for each of the words that white space sets apart.
template <typename Visitor>
void forEachWord(std::string_view text, Visitor visit) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t begin = at;
        while (at < text.size() && !isSpace(text[at]))
            ++at;
        if (at > begin)
            visit(text.substr(begin, at - begin));
        else
            ++at;
    }
}

}  // namespace psrender::svg
