#include "psrender/job/options/Values.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>

namespace psrender::options {

namespace {

constexpr double kPointsAnInch = 72;
constexpr double kAnyResolution = 96;

std::optional<std::size_t> parsePage(std::string_view text, std::size_t otherwise) {
    if (text.empty())
        return otherwise;
    std::size_t page = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), page);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && page > 0 ? std::optional(page) : std::nullopt;
}

std::optional<PageRange> parseRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    if (text.empty() || text == "-")
        return std::nullopt;
    const auto first = parsePage(text.substr(0, dash), 1);
    const auto last =
        dash == std::string_view::npos
            ? first
            : parsePage(text.substr(dash + 1), std::numeric_limits<std::size_t>::max());
    if (!first || !last || *last < *first)
        return std::nullopt;
    return PageRange{*first, *last};
}

}  // namespace

std::optional<double> parsePixels(std::string_view text, double dotsPerInch) {
    if (const auto length = parseLength(text))
        return length;
    if (text.ends_with("px"))
        text.remove_suffix(2);
    const auto points = parseLength(std::string(text) + "pt");
    return points ? std::optional(*points * kPointsAnInch / dotsPerInch) : std::nullopt;
}

bool isSide(const std::string& text) {
    const auto length = parsePixels(text, kAnyResolution);
    return length && *length > 0;
}

std::optional<Margins> parseMargins(const std::string& text) {
    std::vector<double> sides;
    for (const std::string& side : parseList(text)) {
        const auto length = parseLength(side);
        if (!length || *length < 0)
            return std::nullopt;
        sides.push_back(*length);
    }
    if (sides.empty() || sides.size() > 4)
        return std::nullopt;
    const auto side = [&](std::size_t index, std::size_t opposite) {
        return index < sides.size() ? sides[index] : sides[std::min(opposite, sides.size() - 1)];
    };
    return Margins{sides[0], side(1, 0), side(2, 0), side(3, 1)};
}

std::optional<std::vector<PageRange>> parsePages(const std::string& text) {
    std::vector<PageRange> ranges;
    for (const std::string& word : parseList(text)) {
        const auto range = parseRange(word);
        if (!range)
            return std::nullopt;
        ranges.push_back(*range);
    }
    return ranges.empty() ? std::nullopt : std::optional(ranges);
}

std::vector<std::string> parseList(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream in(text);
    for (std::string word; std::getline(in, word, ',');)
        words.push_back(word);
    return words;
}

}  // namespace psrender::options
