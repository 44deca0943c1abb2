#include "psrender/svg/text/FontFaceRule.h"

#include "psrender/svg/css/Declarations.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

namespace psrender::svg {

using Drawing::FontSlant;

namespace {

std::string_view unquoted(std::string_view text) {
    text = trimmed(text);
    if (text.size() > 1 && (text.front() == '"' || text.front() == '\'') &&
        text.back() == text.front())
        text = text.substr(1, text.size() - 2);
    return text;
}

/// Takes the text up to the next of `separators` off `list`.
std::string_view takePart(std::string_view& list, std::string_view separators) {
    const std::size_t length = lengthUpTo(list, separators);
    const std::string_view part = trimmed(list.substr(0, length));
    list.remove_prefix(std::min(length + 1, list.size()));
    return part;
}

int parseWeight(std::string_view text) {
    int weight = Drawing::Font::kRegular;
    if (equalsIgnoringCase(text, "bold"))
        return Drawing::Font::kBold;
    std::from_chars(text.data(), text.data() + text.size(), weight);
    return std::clamp(weight, 1, 1000);
}

/// "U+26", "U+0-7F" or "U+4??".
std::optional<CharacterRange> parseRange(std::string_view text) {
    if (text.size() < 3 || toLower(text[0]) != 'u' || text[1] != '+')
        return std::nullopt;
    text.remove_prefix(2);
    const std::size_t dash = text.find('-');
    std::string first(text.substr(0, dash));
    std::string last(dash == std::string_view::npos ? text : text.substr(dash + 1));
    std::ranges::replace(first, '?', '0');
    std::ranges::replace(last, '?', 'F');
    std::uint32_t from = 0;
    std::uint32_t to = 0;
    const auto read = [](const std::string& digits, std::uint32_t& value) {
        constexpr int kHexadecimal = 16;
        const char* end = digits.data() + digits.size();
        return std::from_chars(digits.data(), end, value, kHexadecimal).ptr == end;
    };
    if (!read(first, from) || !read(last, to))
        return std::nullopt;
    return CharacterRange{from, to};
}

/// What stands in the parentheses of "name(...)"; nothing for another function.
std::optional<std::string_view> argumentOf(std::string_view text, std::string_view name) {
    const std::size_t open = name.size();
    if (text.size() <= open || !equalsIgnoringCase(text.substr(0, open), name) || text[open] != '(')
        return std::nullopt;
    const std::size_t close = text.find(')', open);
    if (close == std::string_view::npos)
        return std::nullopt;
    return unquoted(text.substr(open + 1, close - open - 1));
}

std::vector<FontSource> parseSources(std::string_view list) {
    std::vector<FontSource> sources;
    while (!list.empty()) {
        const std::string_view source = takePart(list, ",");
        if (const auto name = argumentOf(source, "local"))
            sources.push_back({*name, true});
        else if (const auto address = argumentOf(source, "url"))
            sources.push_back({*address, false});
    }
    return sources;
}

}  // namespace

std::optional<FontFaceRule> FontFaceRule::parse(std::string_view block) {
    FontFaceRule face;
    while (!block.empty()) {
        std::string_view value = takePart(block, ";");
        const std::string_view name = takePart(value, ":");
        value = trimmed(value);
        if (equalsIgnoringCase(name, "font-family"))
            face.family = unquoted(value);
        else if (equalsIgnoringCase(name, "src"))
            face.sources = parseSources(value);
        else if (equalsIgnoringCase(name, "font-style"))
            face.isSlanted = !value.empty() && !equalsIgnoringCase(value, "normal");
        else if (equalsIgnoringCase(name, "font-weight")) {
            face.lightest = parseWeight(takePart(value, " "));
            face.boldest = value.empty() ? face.lightest : parseWeight(trimmed(value));
        } else if (equalsIgnoringCase(name, "unicode-range"))
            while (!value.empty())
                if (const auto range = parseRange(takePart(value, ",")))
                    face.ranges.push_back(*range);
    }
    return face.family.empty() || face.sources.empty() ? std::nullopt : std::optional(face);
}

/// Slant counts more than weight; of two weights as near, the one in the direction asked for.
int FontFaceRule::distance(const TextStyle& style) const {
    constexpr int kOtherSlant = 10000;
    const int nearest = std::clamp(style.weight, lightest, boldest);
    const bool isRightWay = (nearest > style.weight) == (style.weight > Drawing::Font::kRegular);
    return (isSlanted == (style.slant != FontSlant::upright) ? 0 : kOtherSlant) +
           2 * std::abs(nearest - style.weight) + (isRightWay ? 0 : 1);
}

}  // namespace psrender::svg
