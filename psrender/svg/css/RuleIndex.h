#pragma once

#include "psrender/svg/css/SelectorMatcher.h"
#include "psrender/svg/css/StyleSheet.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace psrender::svg {

/// Finds the rules for an element without trying them all: a rule is filed under the id, a
/// class or the type that its subject must have.
class RuleIndex {
public:
    /// `sheet` must outlive the index.
    explicit RuleIndex(const StyleSheet& sheet);

    [[nodiscard]] bool empty() const { return ranked_.empty(); }

    /// The rules that apply to an element, from the weakest to the strongest. The result lives
    /// until the next call.
    const std::vector<const StyleRule*>& rulesFor(pugi::xml_node element, SelectorMatcher& matcher);

private:
    using Rank = std::uint32_t;
    using Bucket = std::vector<Rank>;

    void file(Rank rank, const Compound& subject);
    void collect(const Bucket& bucket, pugi::xml_node element, SelectorMatcher& matcher);
    void collect(const std::unordered_map<std::string_view, Bucket>& buckets, std::string_view key,
                 pugi::xml_node element, SelectorMatcher& matcher);

    std::vector<const StyleRule*> ranked_;  ///< by specificity, then by order
    std::unordered_map<std::string_view, Bucket> byId_;
    std::unordered_map<std::string_view, Bucket> byClass_;
    std::unordered_map<std::string_view, Bucket> byType_;
    Bucket forAny_;
    std::vector<Rank> matched_;
    std::vector<const StyleRule*> result_;
};

}  // namespace psrender::svg
