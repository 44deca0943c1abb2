#include "psrender/svg/css/StyleResolver.h"

#include "psrender/base/Warnings.h"
#include "psrender/svg/css/Properties.h"
#include "psrender/svg/css/TextProperties.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/xml/ElementSite.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <array>
#include <bitset>

namespace psrender::svg {

namespace {

/// A few seconds' work.
constexpr std::uint64_t kMostSteps = 100'000'000;

StyleSheet readSheets(const XmlTree& tree, Warnings& warnings) {
    StyleSheet sheet;
    for (const pugi::xml_node element : tree.styleElements()) {
        const std::string_view type = trimmed(element.attribute("type").value());
        if (!(type.empty() || type == "text/css") ||
            !isForPrint(element.attribute("media").value()))
            continue;
        std::string text;
        for (const pugi::xml_node part : element.children())
            text += part.value();
        const ElementSite site(tree, element, warnings);
        sheet.add(text, warnings);
    }
    return sheet;
}

StyleSheet readAdded(const std::string& text, Warnings& warnings) {
    StyleSheet sheet;
    if (!text.empty())
        sheet.add(text, warnings);
    return sheet;
}

enum class Strength : std::uint8_t {
    attribute,
    addedRule,
    rule,
    inlined,
    importantRule,
    importantInlined,
    importantAddedRule,
};

}  // namespace

/// The strongest text for each property. Only texts that win are ever parsed.
class StyleResolver::Cascade {
public:
    /// Among equals, the later one wins.
    void add(std::size_t property, std::string_view text, Strength strength) {
        if (present_[property] && entries_[property].strength > strength)
            return;
        if (property == fontProperty)
            dropFontLonghands(strength);
        present_.set(property);
        entries_[property] = {text, strength};
    }

    void applyTo(ComputedStyle& style, const ComputedStyle& parent, Warnings& warnings) const {
        apply(fontSizeProperty, style, parent, warnings);
        for (std::size_t property = 0; property < kPropertyCount; ++property)
            if (property != fontSizeProperty)
                apply(property, style, parent, warnings);
    }

private:
    /// The shorthand says all that weaker texts said of a font.
    void dropFontLonghands(Strength strength) {
        for (const std::size_t property : fontLonghands)
            if (entries_[property].strength <= strength)
                present_.reset(property);
    }

    struct Entry {
        std::string_view text;
        Strength strength{};
    };

    void apply(std::size_t property, ComputedStyle& style, const ComputedStyle& parent,
               Warnings& warnings) const {
        if (present_[property] && !applyProperty(property, entries_[property].text, style, parent))
            warnings.add("style values that are not understood are ignored");
    }

    std::bitset<kPropertyCount> present_;
    std::array<Entry, kPropertyCount> entries_;  // only those in the set are read
};

StyleResolver::StyleResolver(const XmlTree& tree, Warnings& warnings, const std::string& addedSheet)
    : tree_(tree),
      warnings_(warnings),
      sheet_(readSheets(tree, warnings)),
      index_(sheet_),
      addedSheet_(readAdded(addedSheet, warnings)),
      addedIndex_(addedSheet_) {}

ComputedStyle StyleResolver::resolve(pugi::xml_node element, const ComputedStyle& parent) {
    Cascade cascade;
    std::string_view styleAttribute;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const std::string_view name = attribute.name();
        // The shorthand is for style sheets only.
        if (const auto property = findProperty(name); property && name != "marker")
            cascade.add(*property, attribute.value(), Strength::attribute);
        else if (name == "style")
            styleAttribute = attribute.value();
    }
    if (!index_.empty() || !addedIndex_.empty())
        addSheetRules(element, cascade);
    if (!styleAttribute.empty())
        addStyleAttribute(styleAttribute, cascade);
    ComputedStyle style = ComputedStyle::childOf(parent);
    cascade.applyTo(style, parent, warnings_);
    style.takeContextPaints();
    textProperties::collectDecorations(style);
    return style;
}

ComputedStyle StyleResolver::resolveInPlace(pugi::xml_node element) {
    std::vector<pugi::xml_node> line;
    for (; element; element = parentElement(element))
        line.push_back(element);
    ComputedStyle style;
    for (auto each = line.rbegin(); each != line.rend(); ++each)
        style = resolve(*each, style);
    return style;
}

void StyleResolver::addSheetRules(pugi::xml_node element, Cascade& cascade) {
    addRules(element, addedIndex_, addedSheet_, true, cascade);
    addRules(element, index_, sheet_, false, cascade);
    if (matcher_.steps() + declarationSteps_ > kMostSteps)
        tree_.fail(element,
                   "the style sheets have too many rules to try on each element; "
                   "simplify them");
}

void StyleResolver::addRules(pugi::xml_node element, RuleIndex& index, const StyleSheet& sheet,
                             bool isAdded, Cascade& cascade) {
    const Strength usual = isAdded ? Strength::addedRule : Strength::rule;
    const Strength important = isAdded ? Strength::importantAddedRule : Strength::importantRule;
    for (const StyleRule* rule : index.rulesFor(element, matcher_)) {
        declarationSteps_ += rule->endOfDeclarations - rule->firstDeclaration;
        for (std::uint32_t i = rule->firstDeclaration; i < rule->endOfDeclarations; ++i) {
            const Declaration& declaration = sheet.declarations()[i];
            cascade.add(declaration.property, declaration.value,
                        declaration.isImportant ? important : usual);
        }
    }
}

void StyleResolver::addStyleAttribute(std::string_view text, Cascade& cascade) {
    inline_.clear();
    if (text.find("/*") != std::string_view::npos) {
        const auto [known, isNew] = uncommented_.try_emplace(text.data());
        if (isNew)
            known->second = withoutComments(text);
        text = known->second;
    }
    parseDeclarations(text, inline_);
    for (const Declaration& declaration : inline_)
        cascade.add(declaration.property, declaration.value,
                    declaration.isImportant ? Strength::importantInlined : Strength::inlined);
}

}  // namespace psrender::svg
