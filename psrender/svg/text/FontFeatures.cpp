#include "psrender/svg/text/FontFeatures.h"

#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <optional>

namespace psrender::svg {

namespace {

constexpr std::size_t kLettersOfName = 4;

std::optional<double> parseValue(std::string_view text) {
    if (text.empty() || equalsIgnoringCase(text, "on"))
        return 1;
    if (equalsIgnoringCase(text, "off"))
        return 0;
    NumberScanner scanner(text);
    return scanner.number();
}

std::optional<FontSetting> parseSetting(std::string_view text) {
    constexpr std::size_t kQuotedName = kLettersOfName + 2;
    if (text.size() < kQuotedName || (text[0] != '"' && text[0] != '\'') ||
        text[kQuotedName - 1] != text[0])
        return std::nullopt;
    FontSetting setting;
    for (const char letter : text.substr(1, kLettersOfName))
        setting.tag = setting.tag << 8 | static_cast<unsigned char>(letter);
    const auto value = parseValue(trimmed(text.substr(kQuotedName)));
    if (!value)
        return std::nullopt;
    setting.value = *value;
    return setting;
}

}  // namespace

std::vector<FontSetting> parseFontSettings(std::string_view text) {
    std::vector<FontSetting> settings;
    while (!text.empty()) {
        const std::size_t comma = text.find(',');
        if (const auto setting = parseSetting(trimmed(text.substr(0, comma))))
            settings.push_back(*setting);
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return settings;
}

}  // namespace psrender::svg
