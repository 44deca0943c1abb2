#include "psrender/svg/css/SelectorMatcher.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>

namespace psrender::svg {

namespace {

/// What looking up an attribute and comparing its text costs, in steps.
std::uint64_t costOf(std::string_view value) {
    return 8 + value.size() / 32;
}

bool fitsValue(const AttributeTest& test, std::string_view value) {
    const std::string_view wanted = test.value;
    switch (test.kind) {
        case AttributeTest::Kind::exists:
            return true;
        case AttributeTest::Kind::equals:
            return value == wanted;
        case AttributeTest::Kind::hasWord:
            return hasWord(value, wanted);
        case AttributeTest::Kind::isLanguage:
            return value.starts_with(wanted) &&
                   (value.size() == wanted.size() || value[wanted.size()] == '-');
        case AttributeTest::Kind::begins:
            return !wanted.empty() && value.starts_with(wanted);
        case AttributeTest::Kind::ends:
            return !wanted.empty() && value.ends_with(wanted);
        case AttributeTest::Kind::contains:
            return !wanted.empty() && value.find(wanted) != std::string_view::npos;
    }
    return false;
}

/// Whether an element has neither children nor text.
bool isEmpty(pugi::xml_node element) {
    return std::ranges::all_of(element.children(), [](pugi::xml_node child) {
        return child.type() == pugi::node_comment || child.type() == pugi::node_pi;
    });
}

}  // namespace

bool hasWord(std::string_view list, std::string_view word) {
    bool found = false;
    forEachWord(list, [&](std::string_view each) { found = found || each == word; });
    return found;
}

bool SelectorMatcher::matches(const Selector& selector, pugi::xml_node element) {
    return matchFrom(selector, 0, element) == Result::yes;
}

SelectorMatcher::Result SelectorMatcher::matchFrom(const Selector& selector, std::size_t index,
                                                   pugi::xml_node element) {
    const Compound& compound = selector.compounds[index];
    if (!fits(compound, element))
        return Result::no;
    if (index + 1 == selector.compounds.size())
        return Result::yes;
    return matchRelated(selector, index + 1, element);
}

SelectorMatcher::Result SelectorMatcher::matchRelated(const Selector& selector, std::size_t index,
                                                      pugi::xml_node element) {
    const Combinator relation = selector.compounds[index - 1].relation;
    if (relation == Combinator::descendant)
        return matchAmongAncestors(selector, index, element);
    if (relation == Combinator::laterSibling)
        return matchAmongSiblings(selector, index, element);
    if (relation == Combinator::child) {
        const pugi::xml_node parent = parentElement(element);
        return parent ? matchFrom(selector, index, parent) : Result::never;
    }
    const pugi::xml_node before = previousElement(element);
    return before ? matchFrom(selector, index, before) : Result::no;
}

SelectorMatcher::Result SelectorMatcher::matchAmongAncestors(const Selector& selector,
                                                             std::size_t index,
                                                             pugi::xml_node child) {
    Result result = Result::no;
    for (pugi::xml_node up = parentElement(child); up && result == Result::no;
         up = parentElement(up))
        result = matchFrom(selector, index, up);
    return result == Result::yes ? Result::yes : Result::never;
}

SelectorMatcher::Result SelectorMatcher::matchAmongSiblings(const Selector& selector,
                                                            std::size_t index,
                                                            pugi::xml_node later) {
    Result result = Result::no;
    for (pugi::xml_node before = previousElement(later); before && result == Result::no;
         before = previousElement(before))
        result = matchFrom(selector, index, before);
    return result;
}

bool SelectorMatcher::fits(const Compound& compound, pugi::xml_node element) {
    ++steps_;
    if (!compound.type.empty() && compound.type != element.name())
        return false;
    if (!compound.id.empty() && !fits({"id", AttributeTest::Kind::equals, compound.id}, element))
        return false;
    for (const std::string_view name : compound.classes)
        if (!fits({"class", AttributeTest::Kind::hasWord, name}, element))
            return false;
    for (const AttributeTest& test : compound.attributes)
        if (!fits(test, element))
            return false;
    if (!compound.language.empty() && !isInLanguage(compound.language, element))
        return false;
    for (const PlaceTest& test : compound.places)
        if (!fits(test, element))
            return false;
    return std::ranges::none_of(
        compound.exceptions, [&](const Compound& exception) { return fits(exception, element); });
}

bool SelectorMatcher::fits(const PlaceTest& test, pugi::xml_node element) {
    using Kind = PlaceTest::Kind;
    if (test.kind == Kind::root)
        return !parentElement(element);
    if (test.kind == Kind::empty)
        return isEmpty(element);
    const bool isFromLast = test.kind == Kind::nthLast || test.kind == Kind::nthLastOfType;
    const bool isOfType = test.kind == Kind::nthOfType || test.kind == Kind::nthLastOfType;
    int place = 1;
    for (auto each = isFromLast ? nextElement(element) : previousElement(element); each;
         each = isFromLast ? nextElement(each) : previousElement(each)) {
        ++steps_;
        if (!isOfType || std::string_view(each.name()) == element.name())
            ++place;
        if (test.step == 0 && place > test.offset)
            return false;
    }
    const std::int64_t rest = std::int64_t{place} - test.offset;
    return test.step == 0 ? rest == 0 : rest % test.step == 0 && rest / test.step >= 0;
}

bool SelectorMatcher::isInLanguage(std::string_view language, pugi::xml_node element) {
    for (; element; element = parentElement(element))
        for (const char* name : {"xml:lang", "lang"}) {
            ++steps_;
            if (const pugi::xml_attribute attribute = element.attribute(name))
                return fitsValue({name, AttributeTest::Kind::isLanguage, language},
                                 attribute.value());
        }
    return false;
}

bool SelectorMatcher::fits(const AttributeTest& test, pugi::xml_node element) {
    const pugi::xml_attribute attribute = element.find_attribute(
        [&test](const pugi::xml_attribute& each) { return test.name == each.name(); });
    const std::string_view value = attribute.value();
    steps_ += costOf(value);
    return attribute && fitsValue(test, value);
}

}  // namespace psrender::svg
