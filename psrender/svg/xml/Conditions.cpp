#include "psrender/svg/xml/Conditions.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/xml/XmlWalk.h"

#include <algorithm>
#include <string_view>

namespace psrender::svg {

namespace {

constexpr const char* kLanguage = "systemLanguage";

/// Whether someone who understands `known` understands `language`, too.
bool includes(std::string_view known, std::string_view language) {
    return equalsIgnoringCase(language.substr(0, known.size()), known) &&
           (language.size() == known.size() || language[known.size()] == '-');
}

bool asksForOneOf(const std::vector<std::string>& known, std::string_view languages) {
    while (!languages.empty()) {
        const std::size_t comma = std::min(languages.find(','), languages.size());
        const std::string_view language = trimmed(languages.substr(0, comma));
        if (std::ranges::any_of(known,
                                [&](const std::string& each) { return includes(each, language); }))
            return true;
        languages.remove_prefix(std::min(comma + 1, languages.size()));
    }
    return false;
}

/// Files use features to guard foreign content, with a plain drawing as the alternative.
bool hasFeatures(std::string_view features) {
    bool result = true;
    forEachWord(features, [&result](std::string_view feature) {
        result = result && !feature.ends_with("#Extensibility");
    });
    return result;
}

}  // namespace

bool conditionsHold(pugi::xml_node element) {
    if (element.attribute("requiredExtensions"))
        return false;
    if (const auto features = element.attribute("requiredFeatures"))
        if (!hasFeatures(features.value()))
            return false;
    const auto languages = element.attribute(kLanguage);
    return !languages || asksForOneOf({"en"}, languages.value());
}

void chooseLanguages(pugi::xml_node root, const std::vector<std::string>& languages) {
    std::vector<pugi::xml_node> unfit;
    forEachElement(root, [&](pugi::xml_node element, std::size_t) {
        const auto wanted = element.attribute(kLanguage);
        if (!wanted || element == root)
            return;
        if (asksForOneOf(languages, wanted.value()))
            element.remove_attribute(wanted);
        else
            unfit.push_back(element);
    });
    for (auto each = unfit.rbegin(); each != unfit.rend(); ++each)
        each->parent().remove_child(*each);
}

}  // namespace psrender::svg
