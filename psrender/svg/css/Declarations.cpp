#include "psrender/svg/css/Declarations.h"

#include "psrender/svg/css/Properties.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <array>

namespace psrender::svg {

namespace {

constexpr auto kNone = std::string_view::npos;
constexpr std::size_t kLongestProperty = 26;

/// Names in style sheets may be written in capitals.
std::optional<std::size_t> findInAnyCase(std::string_view name) {
    std::array<char, kLongestProperty> lower{};
    if (name.size() > lower.size())
        return std::nullopt;
    std::transform(name.begin(), name.end(), lower.begin(), toLower);
    return findProperty({lower.data(), name.size()});
}

/// Takes "!important" off the end of a value.
bool takeImportance(std::string_view& value) {
    const std::size_t mark = value.rfind('!');
    if (mark == kNone || !equalsIgnoringCase(trimmed(value.substr(mark + 1)), "important"))
        return false;
    value = trimmed(value.substr(0, mark));
    return true;
}

void parseDeclaration(std::string_view text, std::vector<Declaration>& result) {
    const std::size_t colon = text.find(':');
    if (colon == kNone)
        return;
    const auto property = findInAnyCase(trimmed(text.substr(0, colon)));
    std::string_view value = trimmed(text.substr(colon + 1));
    const bool isImportant = takeImportance(value);
    if (property && !value.empty())
        result.push_back({static_cast<std::uint8_t>(*property), isImportant, value});
}

/// The position after the string that begins at `at`; a line's end closes it too.
std::size_t afterString(std::string_view text, std::size_t at) {
    const char quote = text[at];
    for (++at; at < text.size() && text[at] != quote && text[at] != '\n'; ++at)
        if (text[at] == '\\')
            ++at;
    return std::min(at + 1, text.size());
}

}  // namespace

std::size_t lengthUpTo(std::string_view text, std::string_view terminators) {
    int depth = 0;
    std::size_t at = 0;
    while (at < text.size()) {
        const char c = text[at];
        if (depth == 0 && terminators.find(c) != kNone)
            return at;
        if (c == '"' || c == '\'') {
            at = afterString(text, at);
            continue;
        }
        if (c == '(' || c == '[')
            ++depth;
        else if ((c == ')' || c == ']') && depth > 0)
            --depth;
        ++at;
    }
    return text.size();
}

void parseDeclarations(std::string_view text, std::vector<Declaration>& result) {
    while (!text.empty()) {
        const std::size_t length = lengthUpTo(text, ";");
        parseDeclaration(text.substr(0, length), result);
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

std::string withoutComments(std::string_view text) {
    std::string result;
    std::size_t at = 0;
    while (at < text.size()) {
        if (text.substr(at, 2) == "/*") {
            const std::size_t end = text.find("*/", at + 2);
            at = end == kNone ? text.size() : end + 2;
            continue;
        }
        const bool isString = text[at] == '"' || text[at] == '\'';
        const std::size_t next = isString ? afterString(text, at) : at + 1;
        result += text.substr(at, next - at);
        at = next;
    }
    return result;
}

}  // namespace psrender::svg
