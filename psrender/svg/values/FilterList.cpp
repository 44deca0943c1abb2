#include "psrender/svg/values/FilterList.h"

#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <array>

namespace psrender::svg {

namespace {

constexpr std::array<std::string_view, 11> kFunctions{
    "url",        "blur",   "brightness", "contrast", "drop-shadow", "grayscale",
    "hue-rotate", "invert", "opacity",    "saturate", "sepia"};

bool isFunction(std::string_view name) {
    return std::ranges::any_of(
        kFunctions, [&](std::string_view known) { return equalsIgnoringCase(known, name); });
}

/// Where the parenthesis closes that is open before `begin`; `npos` if it does not.
std::size_t closing(std::string_view text, std::size_t begin) {
    std::size_t depth = 1;
    for (std::size_t i = begin; i < text.size(); ++i) {
        if (text[i] == '(')
            ++depth;
        else if (text[i] == ')' && --depth == 0)
            return i;
    }
    return std::string_view::npos;
}

}  // namespace

std::optional<std::vector<FilterOperation>> parseFilterList(std::string_view text) {
    std::vector<FilterOperation> operations;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        const std::size_t open = text.find('(');
        const std::string_view name = text.substr(0, open);
        if (open == std::string_view::npos || !isFunction(name))
            return std::nullopt;
        const std::size_t end = closing(text, open + 1);
        if (end == std::string_view::npos)
            return std::nullopt;
        operations.push_back(
            {name, trimmed(text.substr(open + 1, end - open - 1)), text.substr(0, end + 1)});
        text.remove_prefix(end + 1);
    }
    return operations;
}

}  // namespace psrender::svg
