#include "psrender/svg/css/Selector.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>

namespace psrender::svg {

namespace {

constexpr std::size_t kMostCompounds = 64;

/// Weights of the three ranks; sums within a rank do not reach the next one in practice.
constexpr std::uint32_t kIdWeight = 1U << 20;
constexpr std::uint32_t kClassWeight = 1U << 10;
constexpr std::uint32_t kTypeWeight = 1;

class SelectorParser {
public:
    explicit SelectorParser(std::string_view text) : text_(trimmed(text)) {}

    std::optional<std::vector<Selector>> parseList() {
        std::vector<Selector> result;
        do {
            skipSpace();
            auto selector = parseSelector();
            if (!selector)
                return std::nullopt;
            result.push_back(std::move(*selector));
        } while (skip(','));
        return text_.empty() ? std::optional(std::move(result)) : std::nullopt;
    }

private:
    std::optional<Selector> parseSelector();
    bool parseCompound(Compound& compound, std::uint32_t& specificity);
    bool parsePart(Compound& compound, std::uint32_t& specificity);
    bool parseAttribute(Compound& compound);
    bool parsePseudoClass(Compound& compound);
    std::optional<AttributeTest::Kind> parseOperator();
    std::optional<Combinator> parseCombinator();
    std::string_view parseValue();
    std::string_view name();
    void skipSpace();
    bool skip(char c);

    std::string_view text_;  ///< what is left to read
};

std::optional<Selector> SelectorParser::parseSelector() {
    Selector selector;
    std::optional<Combinator> combinator = Combinator::descendant;
    while (combinator) {
        Compound compound;
        compound.relation = *combinator;
        if (!parseCompound(compound, selector.specificity) ||
            selector.compounds.size() == kMostCompounds)
            return std::nullopt;
        selector.compounds.push_back(std::move(compound));
        combinator = parseCombinator();
    }
    std::reverse(selector.compounds.begin(), selector.compounds.end());
    return selector;
}

bool SelectorParser::parseCompound(Compound& compound, std::uint32_t& specificity) {
    const std::size_t before = text_.size();
    if (!skip('*')) {
        compound.type = name();
        specificity += compound.type.empty() ? 0 : kTypeWeight;
    }
    while (!text_.empty() && std::string_view(".#[:").find(text_.front()) != std::string_view::npos)
        if (!parsePart(compound, specificity))
            return false;
    return text_.size() < before;
}

bool SelectorParser::parsePart(Compound& compound, std::uint32_t& specificity) {
    if (skip('[')) {
        specificity += kClassWeight;
        return parseAttribute(compound);
    }
    if (skip(':')) {
        specificity += kClassWeight;
        return parsePseudoClass(compound);
    }
    const bool isId = text_.front() == '#';
    text_.remove_prefix(1);
    const std::string_view word = name();
    specificity += isId ? kIdWeight : kClassWeight;
    if (!isId)
        compound.classes.push_back(word);
    else if (compound.id.empty())
        compound.id = word;
    else
        compound.attributes.push_back({"id", AttributeTest::Kind::equals, word});
    return !word.empty();
}

bool SelectorParser::parseAttribute(Compound& compound) {
    skipSpace();
    AttributeTest test;
    test.name = name();
    skipSpace();
    const auto kind = parseOperator();
    if (test.name.empty() || !kind)
        return false;
    test.kind = *kind;
    if (test.kind != AttributeTest::Kind::exists) {
        skipSpace();
        test.value = parseValue();
        skipSpace();
    }
    compound.attributes.push_back(test);
    return skip(']');
}

std::optional<AttributeTest::Kind> SelectorParser::parseOperator() {
    using Kind = AttributeTest::Kind;
    if (text_.starts_with(']'))
        return Kind::exists;
    if (skip('='))
        return Kind::equals;
    constexpr std::string_view kSigns = "~|^$*";
    constexpr Kind kKinds[] = {Kind::hasWord, Kind::isLanguage, Kind::begins, Kind::ends,
                               Kind::contains};
    const std::size_t sign = text_.empty() ? std::string_view::npos : kSigns.find(text_.front());
    if (sign == std::string_view::npos || text_.substr(1, 1) != "=")
        return std::nullopt;
    text_.remove_prefix(2);
    return kKinds[sign];
}

bool SelectorParser::parsePseudoClass(Compound& compound) {
    const std::string_view word = name();
    compound.isFirstChild = compound.isFirstChild || word == "first-child";
    compound.isRoot = compound.isRoot || word == "root";
    return word == "first-child" || word == "root";
}

/// Nothing at the end of the selector.
std::optional<Combinator> SelectorParser::parseCombinator() {
    const bool hasSpace = !text_.empty() && isSpace(text_.front());
    skipSpace();
    std::optional<Combinator> result;
    if (skip('>'))
        result = Combinator::child;
    else if (skip('+'))
        result = Combinator::nextSibling;
    else if (skip('~'))
        result = Combinator::laterSibling;
    else if (hasSpace && !text_.empty() && text_.front() != ',')
        result = Combinator::descendant;
    skipSpace();
    return result;
}

std::string_view SelectorParser::parseValue() {
    if (text_.empty() || (text_.front() != '"' && text_.front() != '\''))
        return name();
    const std::size_t end = std::min(text_.find(text_.front(), 1), text_.size());
    const std::string_view value = text_.substr(1, end - 1);
    text_.remove_prefix(std::min(end + 1, text_.size()));
    return value;
}

std::string_view SelectorParser::name() {
    std::size_t end = 0;
    while (end < text_.size() && isNameCharacter(text_[end]))
        ++end;
    const std::string_view word = text_.substr(0, end);
    text_.remove_prefix(end);
    return word;
}

void SelectorParser::skipSpace() {
    while (!text_.empty() && isSpace(text_.front()))
        text_.remove_prefix(1);
}

bool SelectorParser::skip(char c) {
    if (!text_.starts_with(c))
        return false;
    text_.remove_prefix(1);
    return true;
}

}  // namespace

std::optional<std::vector<Selector>> parseSelectors(std::string_view text) {
    return SelectorParser(text).parseList();
}

}  // namespace psrender::svg
