#include "psrender/svg/xml/Conditions.h"

#include "psrender/svg/values/Characters.h"

namespace psrender::svg {

namespace {

bool isEnglish(std::string_view language) {
    return equalsIgnoringCase(language, "en") || equalsIgnoringCase(language.substr(0, 3), "en-");
}

bool speaksEnglish(std::string_view languages) {
    while (!languages.empty()) {
        const std::size_t comma = std::min(languages.find(','), languages.size());
        if (isEnglish(trimmed(languages.substr(0, comma))))
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
    const auto languages = element.attribute("systemLanguage");
    return !languages || speaksEnglish(languages.value());
}

}  // namespace psrender::svg
