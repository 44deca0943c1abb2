#include "psrender/svg/css/RuleIndex.h"

#include "psrender/svg/values/Characters.h"

#include <algorithm>

namespace psrender::svg {

RuleIndex::RuleIndex(const StyleSheet& sheet) {
    for (const StyleRule& rule : sheet.rules())
        ranked_.push_back(&rule);
    std::stable_sort(ranked_.begin(), ranked_.end(), [](const StyleRule* a, const StyleRule* b) {
        return a->selector.specificity < b->selector.specificity;
    });
    for (Rank rank = 0; rank < ranked_.size(); ++rank)
        file(rank, ranked_[rank]->selector.compounds.front());
}

void RuleIndex::file(Rank rank, const Compound& subject) {
    if (!subject.id.empty())
        byId_[subject.id].push_back(rank);
    else if (!subject.classes.empty())
        byClass_[subject.classes.front()].push_back(rank);
    else if (!subject.type.empty())
        byType_[subject.type].push_back(rank);
    else
        forAny_.push_back(rank);
}

const std::vector<const StyleRule*>& RuleIndex::rulesFor(pugi::xml_node element,
                                                         SelectorMatcher& matcher) {
    matched_.clear();
    collect(forAny_, element, matcher);
    collect(byType_, element.name(), element, matcher);
    if (!byClass_.empty())
        forEachWord(element.attribute("class").value(),
                    [&](std::string_view name) { collect(byClass_, name, element, matcher); });
    if (!byId_.empty())
        collect(byId_, element.attribute("id").value(), element, matcher);
    std::sort(matched_.begin(), matched_.end());
    matched_.erase(std::unique(matched_.begin(), matched_.end()), matched_.end());
    result_.clear();
    for (const Rank rank : matched_)
        result_.push_back(ranked_[rank]);
    return result_;
}

void RuleIndex::collect(const Bucket& bucket, pugi::xml_node element, SelectorMatcher& matcher) {
    for (const Rank rank : bucket)
        if (matcher.matches(ranked_[rank]->selector, element))
            matched_.push_back(rank);
}

void RuleIndex::collect(const std::unordered_map<std::string_view, Bucket>& buckets,
                        std::string_view key, pugi::xml_node element, SelectorMatcher& matcher) {
    const auto found = buckets.find(key);
    if (found != buckets.end())
        collect(found->second, element, matcher);
}

}  // namespace psrender::svg
