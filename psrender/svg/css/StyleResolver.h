#pragma once

#include "psrender/svg/css/ComputedStyle.h"
#include "psrender/svg/css/RuleIndex.h"
#include "psrender/svg/css/StyleSheet.h"
#include "psrender/svg/xml/XmlTree.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace psrender {
class Warnings;
}

namespace psrender::svg {

/// Works out the style of elements from presentation attributes, style sheets and style
/// attributes, in that order of strength.
class StyleResolver {
public:
    /// Reads the document's style sheets and `addedSheet`, which is weaker than they are but for
    /// what it calls important. Tree and warnings must outlive the resolver.
    StyleResolver(const XmlTree& tree, Warnings& warnings, const std::string& addedSheet = {});

    /// The style of `element` inside of something with the style `parent`. Throws `InputError`
    /// when the style sheets make for too much work.
    ComputedStyle resolve(pugi::xml_node element, const ComputedStyle& parent);

    /// The style of an element where it stands, worked out from the root downwards.
    ComputedStyle resolveInPlace(pugi::xml_node element);

    /// The sheets of the document.
    [[nodiscard]] const StyleSheet& sheet() const { return sheet_; }

private:
    class Cascade;

    void addSheetRules(pugi::xml_node element, Cascade& cascade);
    void addRules(pugi::xml_node element, RuleIndex& index, const StyleSheet& sheet, bool isAdded,
                  Cascade& cascade);
    void addStyleAttribute(std::string_view text, Cascade& cascade);

    const XmlTree& tree_;
    Warnings& warnings_;
    StyleSheet sheet_;
    RuleIndex index_;
    StyleSheet addedSheet_;
    RuleIndex addedIndex_;
    SelectorMatcher matcher_;
    std::uint64_t declarationSteps_ = 0;
    std::vector<Declaration> inline_;  ///< kept for its memory
    /// Style attributes that had comments, by where they begin in the document.
    std::unordered_map<const char*, std::string> uncommented_;
};

}  // namespace psrender::svg
