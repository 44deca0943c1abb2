#include "psrender/svg/css/Selector.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/Keywords.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <string>

namespace psrender::svg {

namespace {

constexpr std::size_t kMostCompounds = 64;
constexpr std::size_t kDeepestExceptions = 8;

/// Weights of the three ranks; sums within a rank do not reach the next one in practice.
constexpr std::uint32_t kIdWeight = 1U << 20;
constexpr std::uint32_t kClassWeight = 1U << 10;
constexpr std::uint32_t kTypeWeight = 1;

using PlaceKind = PlaceTest::Kind;

struct NamedPlaces {
    std::string_view name;
    std::array<PlaceTest, 2> tests;
    std::size_t count = 1;
};
constexpr std::array kPlaces{
    NamedPlaces{"root", {{{PlaceKind::root}}}},
    NamedPlaces{"empty", {{{PlaceKind::empty}}}},
    NamedPlaces{"first-child", {{{PlaceKind::nth}}}},
    NamedPlaces{"last-child", {{{PlaceKind::nthLast}}}},
    NamedPlaces{"only-child", {{{PlaceKind::nth}, {PlaceKind::nthLast}}}, 2},
    NamedPlaces{"first-of-type", {{{PlaceKind::nthOfType}}}},
    NamedPlaces{"last-of-type", {{{PlaceKind::nthLastOfType}}}},
    NamedPlaces{"only-of-type", {{{PlaceKind::nthOfType}, {PlaceKind::nthLastOfType}}}, 2},
};
constexpr std::array kCounts{
    Keyword<PlaceKind>{"nth-child", PlaceKind::nth},
    Keyword<PlaceKind>{"nth-last-child", PlaceKind::nthLast},
    Keyword<PlaceKind>{"nth-of-type", PlaceKind::nthOfType},
    Keyword<PlaceKind>{"nth-last-of-type", PlaceKind::nthLastOfType},
};
/// What depends on a pointer, a keyboard or a history.
constexpr std::array<std::string_view, 14> kDynamic{
    "hover",   "active",  "focus",   "focus-visible", "focus-within", "visited",  "target",
    "enabled", "checked", "default", "disabled",      "playing",      "selected", "invalid"};

std::optional<int> toInt(std::string_view text) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

/// "odd", "even", "3", "2n+1", "-n + 3".
std::optional<PlaceTest> parseCount(PlaceKind kind, std::string_view text) {
    if (equalsIgnoringCase(text, "odd"))
        return PlaceTest{kind, 2, 1};
    if (equalsIgnoringCase(text, "even"))
        return PlaceTest{kind, 2, 0};
    std::string packed;
    std::ranges::copy_if(text, std::back_inserter(packed), [](char c) { return !isSpace(c); });
    const std::size_t n = packed.find_first_of("nN");
    const std::string_view all = packed;
    if (n == std::string::npos) {
        const auto offset = toInt(all);
        return offset ? std::optional(PlaceTest{kind, 0, *offset}) : std::nullopt;
    }
    const std::string_view factor = all.substr(0, n);
    const auto step = factor.empty() || factor == "+" ? 1 : factor == "-" ? -1 : toInt(factor);
    const auto offset = n + 1 == all.size() ? 0 : toInt(all.substr(n + 1));
    return step && offset ? std::optional(PlaceTest{kind, *step, *offset}) : std::nullopt;
}

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
            if (std::ranges::none_of(selector->compounds, &Compound::isDynamic))
                result.push_back(std::move(*selector));
        } while (skip(','));
        return text_.empty() ? std::optional(std::move(result)) : std::nullopt;
    }

private:
    std::optional<Selector> parseSelector();
    bool parseCompound(Compound& compound, std::uint32_t& specificity);
    bool parsePart(Compound& compound, std::uint32_t& specificity);
    bool parseAttribute(Compound& compound);
    bool parsePseudoClass(Compound& compound, std::uint32_t& specificity);
    bool parseFunction(std::string_view name, Compound& compound, std::uint32_t& specificity);
    bool parseExceptions(Compound& compound, std::uint32_t& specificity);
    std::optional<AttributeTest::Kind> parseOperator();
    std::optional<Combinator> parseCombinator();
    std::string_view parseValue();
    std::string_view name();
    void skipSpace();
    bool skip(char c);

    std::string_view text_;  ///< what is left to read
    std::size_t depth_ = 0;  ///< of exceptions
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
        return parsePseudoClass(compound, specificity);
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

bool SelectorParser::parsePseudoClass(Compound& compound, std::uint32_t& specificity) {
    if (skip(':')) {
        compound.isDynamic = true;  // A part of an element that only boxes of text have.
        return !name().empty();
    }
    const std::string_view word = name();
    if (skip('('))
        return parseFunction(word, compound, specificity);
    compound.isDynamic = compound.isDynamic || std::ranges::find(kDynamic, word) != kDynamic.end();
    const auto* const known = std::ranges::find(kPlaces, word, &NamedPlaces::name);
    if (known == kPlaces.end())
        return std::ranges::find(kDynamic, word) != kDynamic.end();
    compound.places.insert(compound.places.end(), known->tests.begin(),
                           known->tests.begin() + static_cast<std::ptrdiff_t>(known->count));
    return true;
}

/// Reads what stands between the parentheses, and the closing one.
bool SelectorParser::parseFunction(std::string_view name, Compound& compound,
                                   std::uint32_t& specificity) {
    if (name == "not")
        return parseExceptions(compound, specificity);
    const std::size_t end = text_.find(')');
    if (end == std::string_view::npos)
        return false;
    const std::string_view argument = trimmed(text_.substr(0, end));
    text_.remove_prefix(end + 1);
    if (name == "lang") {
        compound.language = argument;
        return !argument.empty();
    }
    const auto kind = lookUp(kCounts, name);
    const auto test = kind ? parseCount(*kind, argument) : std::nullopt;
    if (test)
        compound.places.push_back(*test);
    return test.has_value();
}

/// The pseudo-class counts as much as the strongest of what it excepts. What never applies on
/// paper is no exception.
bool SelectorParser::parseExceptions(Compound& compound, std::uint32_t& specificity) {
    specificity -= kClassWeight;
    if (++depth_ > kDeepestExceptions)
        return false;
    std::uint32_t strongest = 0;
    do {
        skipSpace();
        Compound exception;
        std::uint32_t own = 0;
        if (!parseCompound(exception, own))
            return false;
        strongest = std::max(strongest, own);
        if (!exception.isDynamic)
            compound.exceptions.push_back(std::move(exception));
        skipSpace();
    } while (skip(','));
    --depth_;
    specificity += strongest;
    return skip(')');
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
