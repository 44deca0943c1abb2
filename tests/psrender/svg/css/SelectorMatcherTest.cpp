// The matcher takes shortcuts; here it is held against one that tries everything.

#include "psrender/svg/css/SelectorMatcher.h"

#include "psrender/svg/xml/MarkupScanner.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <random>
#include <string>

namespace psrender::svg {
namespace {

/// All elements that stand to `element` in the given relation.
std::vector<pugi::xml_node> related(Combinator relation, pugi::xml_node element) {
    const bool isOne = relation == Combinator::child || relation == Combinator::nextSibling;
    const bool isUpwards = relation == Combinator::child || relation == Combinator::descendant;
    const auto step = isUpwards ? parentElement : previousElement;
    std::vector<pugi::xml_node> result;
    for (auto other = step(element); other && !(isOne && !result.empty()); other = step(other))
        result.push_back(other);
    return result;
}

bool matchesByTryingAll(const Selector& selector, std::size_t index, pugi::xml_node element) {
    const Compound& compound = selector.compounds[index];
    if (compound.type != element.name())
        return false;
    if (index + 1 == selector.compounds.size())
        return true;
    const auto others = related(compound.relation, element);
    return std::any_of(others.begin(), others.end(), [&](pugi::xml_node other) {
        return matchesByTryingAll(selector, index + 1, other);
    });
}

class Chance {
public:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    std::string name() { return std::string(1, "abc"[below(3)]); }

    std::string element(int depth) {
        const std::string tag = name();
        std::string text = "<" + tag + ">";
        for (std::size_t children = depth == 0 ? 0 : 1 + below(3); children > 0; --children)
            text += element(depth - 1);
        return text + "</" + tag + ">";
    }

    std::string selector() {
        constexpr const char* combinators[] = {" ", " > ", " + ", " ~ "};
        std::string text = name();
        for (std::size_t more = below(5); more > 0; --more)
            text += combinators[below(4)] + name();
        return text;
    }

private:
    std::mt19937 random_{11};
};

TEST(SvgSelectorMatcher, AgreesWithTryingEverything) {
    Chance chance;
    SelectorMatcher matcher;
    std::size_t matches = 0;
    for (int round = 0; round < 300; ++round) {
        pugi::xml_document document;
        document.load_string(chance.element(5).c_str());
        const std::string text = chance.selector();
        const Selector selector = parseSelectors(text)->front();
        forEachElement(document.document_element(), [&](pugi::xml_node element, std::size_t) {
            const bool expected = matchesByTryingAll(selector, 0, element);
            matches += expected ? 1 : 0;
            EXPECT_EQ(matcher.matches(selector, element), expected) << text;
        });
    }
    EXPECT_GT(matches, 1000U);
}

TEST(SvgMarkupScanner, SeesTagsOnlyWhereTheyAre) {
    const std::string_view document =
        "<?xml a='?>'?><!DOCTYPE s [<!ENTITY a '>'>]><s a=\">\" b='/>'>x<!-- <g> --><g/>"
        "<![CDATA[<g>]]></s>\n<";
    std::string kinds;
    std::string all;
    MarkupScanner scanner(document);
    while (const auto markup = scanner.next()) {
        kinds += "tse/d."[static_cast<int>(markup->kind)];
        all += markup->text;
    }
    EXPECT_EQ(kinds, ".tdst.e./ts");
    EXPECT_EQ(all, document);
}

}  // namespace
}  // namespace psrender::svg
