#include "psrender/svg/css/StyleSheet.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>

namespace psrender::svg {

namespace {

/// Takes `length` characters and the one after them off the text.
std::string_view take(std::string_view& text, std::size_t length) {
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return taken;
}

/// Takes a block off the text, whose opening brace is gone already, with all blocks in it.
void skipBlock(std::string_view& text) {
    for (int depth = 1; depth > 0 && !text.empty();) {
        const std::size_t brace = lengthUpTo(text, "{}");
        depth += text.substr(brace, 1) == "{" ? 1 : -1;
        take(text, brace);
    }
}

}  // namespace

bool isForPrint(std::string_view media) {
    if (trimmed(media).empty())
        return true;
    bool result = false;
    while (!media.empty()) {
        const std::string_view medium = trimmed(take(media, lengthUpTo(media, ",")));
        for (const std::string_view known : {"all", "print", "screen"})
            result = result || equalsIgnoringCase(medium, known);
    }
    return result;
}

void StyleSheet::add(std::string_view text, Warnings& warnings) {
    std::string_view rest = texts_.emplace_back(withoutComments(text));
    while (true) {
        // A closing brace here ends a block of rules for some medium.
        while (!rest.empty() && (isSpace(rest.front()) || rest.front() == '}'))
            rest.remove_prefix(1);
        if (rest.empty())
            break;
        if (rest.starts_with("<!--"))
            rest.remove_prefix(4);
        else if (rest.starts_with("-->"))
            rest.remove_prefix(3);
        else if (rest.front() == '@')
            addAtRule(rest, warnings);
        else
            addRule(rest, warnings);
    }
}

/// The rules inside of a block for our medium are read as if they stood outside of it.
void StyleSheet::addAtRule(std::string_view& text, Warnings& warnings) {
    const std::size_t length = lengthUpTo(text, ";{");
    const bool hasBlock = text.substr(length, 1) == "{";
    const std::string_view prelude = take(text, length);
    const std::string_view name = prelude.substr(0, prelude.find_first_of(" \t\r\n\f(\"'"));
    if (equalsIgnoringCase(name, "@import"))
        warnings.add("style sheets in other files are not read (@import)");
    if (hasBlock && equalsIgnoringCase(trimmed(name), "@font-face")) {
        fontFaces_.push_back(take(text, lengthUpTo(text, "}")));
        return;
    }
    const bool isOurs =
        equalsIgnoringCase(name, "@media") && isForPrint(prelude.substr(name.size()));
    if (hasBlock && !isOurs)
        skipBlock(text);
}

void StyleSheet::addRule(std::string_view& text, Warnings& warnings) {
    const std::string_view prelude = take(text, lengthUpTo(text, "{"));
    const std::string_view block = take(text, lengthUpTo(text, "}"));
    auto selectors = parseSelectors(prelude);
    if (!selectors) {
        warnings.add("style rules whose selector is not understood are left out");
        return;
    }
    const auto first = static_cast<std::uint32_t>(declarations_.size());
    parseDeclarations(block, declarations_);
    const auto end = static_cast<std::uint32_t>(declarations_.size());
    for (Selector& selector : *selectors)
        if (end > first)
            rules_.push_back({std::move(selector), first, end});
}

}  // namespace psrender::svg
