#include "psrender/svg/text/FontChooser.h"

#include "Fonts/FontManager.h"
#include "Fonts/OpenTypeFont.h"
#include "psrender/base/Warnings.h"
#include "psrender/svg/text/FontWish.h"
#include "psrender/svg/values/Characters.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace psrender::svg {

using Fonts::FontManager;

namespace {

/// So many families a drawing, at about a millisecond each.
constexpr std::size_t kMostSearches = 1000;

/// The next name of a list, without its quotes.
std::string_view takeFamily(std::string_view& families) {
    families = trimmed(families);
    const char first = families.empty() ? '\0' : families.front();
    const bool isQuoted = first == '"' || first == '\'';
    const std::size_t end = families.find(isQuoted ? first : ',', isQuoted ? 1 : 0);
    const std::string_view name = families.substr(isQuoted ? 1 : 0, isQuoted ? end - 1 : end);
    const std::size_t comma = families.find(',', end == std::string_view::npos ? 0 : end);
    families.remove_prefix(comma == std::string_view::npos ? families.size() : comma + 1);
    return trimmed(name);
}

bool isGeneric(std::string_view family) {
    constexpr std::array kNames{"sans-serif", "serif",    "monospace",     "cursive",     "fantasy",
                                "system-ui",  "ui-serif", "ui-sans-serif", "ui-monospace"};
    return std::ranges::any_of(kNames,
                               [&](const char* name) { return equalsIgnoringCase(name, family); });
}

/// Families whose glyphs are as wide as those of Helvetica, Times and Courier.
bool isOfStandardMeasure(std::string_view family) {
    constexpr std::array kNames{"Arial", "Times New Roman", "Courier New"};
    return std::ranges::any_of(kNames,
                               [&](const char* name) { return equalsIgnoringCase(name, family); });
}

/// The installed font of a family, of the width and at the place on its axes that is asked for.
Core::SmartPtr<Fonts::FontProgram> findFamily(const ChosenFont& font, const TextStyle& style) {
    const bool isUsual = style.stretch == TextStyle().stretch && style.variations.empty();
    auto program = FontManager::findFamily(font.ofSize(1));
    const auto openType = program.dynamicCast<Fonts::OpenTypeFont>();
    if (isUsual && program && !(openType && openType->isVariable()))
        return program;
    auto installed = FontManager::findInstalledFamily(wishOf(font, style));
    return installed ? installed : program;
}

/// Pictographs, which are shown in colour by themselves.
bool isEmoji(char32_t character) {
    return character >= 0x1F000 && character <= 0x1FAFF;
}

}  // namespace

const ChosenFont* FontChooser::choose(const TextStyle& style, char32_t character) {
    FontList& list = listFor(style);
    const auto [entry, isNew] = list.known.try_emplace(character, nullptr);
    if (isNew)
        entry->second = search(list, style, character);
    return entry->second;
}

FontChooser::FontList& FontChooser::listFor(const TextStyle& style) {
    const StyleKey key{std::string(style.families), style.weight, style.slant, style.stretch,
                       std::string(style.variations)};
    if (const auto known = lists_.find(key); known != lists_.end())
        return known->second;
    if (!style.families.empty() && !maySearch()) {
        TextStyle plain = style;
        plain.families = {};
        return listFor(plain);
    }
    FontList& list = lists_[key];
    std::string_view families = style.families;
    const std::string_view first = takeFamily(families);
    bool isKnown = first.empty() || isGeneric(first);
    for (families = style.families; !trimmed(families).empty() && maySearch();) {
        const std::string_view family = takeFamily(families);
        const std::size_t before = list.fonts.size();
        addKnown(family, style, list);
        isKnown = isKnown || (!isGeneric(family) && list.fonts.size() > before);
    }
    for (const std::string_view family : {first, std::string_view("sans-serif")})
        if (list.fonts.empty())
            addPreferred(family, style, list);
    if (!isKnown && !list.fonts.empty())
        tellOfReplacement(first, list);
    return list;
}

/// A drawing may name any number of families, each of any length.
void FontChooser::tellOfReplacement(std::string_view family, FontList& list) {
    constexpr std::size_t kMostNames = 20;
    constexpr std::size_t kMostLetters = 60;
    const std::string name(family.substr(0, kMostLetters));
    ChosenFont stand = *list.fonts.front();
    stand.standsFor = name;
    list.fonts.front() = std::make_unique<const ChosenFont>(std::move(stand));
    if (++replaced_ > kMostNames)
        warnings_.add("more font families are not installed");
    else
        warnings_.add("the font family " + name + " is not installed; " +
                      list.fonts.front()->program->getMetrics().familyName.toUtf8() +
                      " stands in for it");
}

bool FontChooser::maySearch() {
    if (searches_ < kMostSearches) {
        ++searches_;
        return true;
    }
    warnings_.add("font families behind the first 1000 of a drawing are not looked for");
    return false;
}

void FontChooser::addKnown(std::string_view family, const TextStyle& style, FontList& list) {
    if (faces_.has(family)) {
        for (ChosenFont& font : faces_.find(family, style))
            list.fonts.push_back(std::make_unique<const ChosenFont>(std::move(font)));
        return;
    }
    if (isGeneric(family)) {
        addPreferred(family, style, list);
        return;
    }
    ChosenFont font{Core::String(family), style.weight, style.slant, nullptr};
    font.program = isOfStandardMeasure(family) ? FontManager::findFont(font.ofSize(1))
                                               : findFamily(font, style);
    if (font.program && FontManager::findFont(font.ofSize(1)) != font.program)
        giveName(font);
    if (font.program)
        list.fonts.push_back(std::make_unique<const ChosenFont>(std::move(font)));
}

void FontChooser::addPreferred(std::string_view family, const TextStyle& style, FontList& list) {
    ChosenFont font{Core::String(family), style.weight, style.slant, nullptr};
    font.program = FontManager::findInstalledFont(font.ofSize(1));
    if (font.program)
        giveName(font);
    else
        font.program = FontManager::findFont(font.ofSize(1));
    if (font.program)
        list.fonts.push_back(std::make_unique<const ChosenFont>(std::move(font)));
}

const ChosenFont* FontChooser::search(FontList& list, const TextStyle& style, char32_t character) {
    for (const auto& font : list.fonts)
        if (font->shows(character))
            return font.get();
    auto other = substitute(*list.fonts.front(), style, character);
    if (!other)
        return list.fonts.front().get();
    list.fonts.push_back(std::move(other));
    return list.fonts.back().get();
}

std::unique_ptr<const ChosenFont> FontChooser::substitute(const ChosenFont& wanted,
                                                          const TextStyle& style,
                                                          char32_t character) {
    ChosenFont font{wanted.family, wanted.weight, wanted.slant, nullptr};
    if (!isEmoji(character))
        font.program = FontManager::findFontFor(character, wanted.ofSize(1));
    if (!font.program)
        font.program =
            FontManager::findInstalledFontFor(character, wishOf(wanted, style), isEmoji(character));
    if (!font.program)
        return nullptr;
    giveName(font);
    return std::make_unique<const ChosenFont>(std::move(font));
}

}  // namespace psrender::svg
