#include "psrender/svg/css/TextProperties.h"

#include "psrender/svg/values/Keywords.h"
#include "psrender/svg/values/NumberScanner.h"

#include <algorithm>
#include <cmath>

namespace psrender::svg::textProperties {

namespace {

using Drawing::FontSlant;

constexpr std::array kSlants{Keyword<FontSlant>{"normal", FontSlant::upright},
                             Keyword<FontSlant>{"italic", FontSlant::italic},
                             Keyword<FontSlant>{"oblique", FontSlant::oblique}};
constexpr std::array kWeights{Keyword<int>{"normal", 400}, Keyword<int>{"bold", 700}};
/// In per cent of the usual width.
constexpr std::array kStretches{
    Keyword<int>{"normal", 100},         Keyword<int>{"ultra-condensed", 50},
    Keyword<int>{"extra-condensed", 62}, Keyword<int>{"condensed", 75},
    Keyword<int>{"semi-condensed", 87},  Keyword<int>{"semi-expanded", 112},
    Keyword<int>{"expanded", 125},       Keyword<int>{"extra-expanded", 150},
    Keyword<int>{"ultra-expanded", 200}, Keyword<int>{"narrower", 75},
    Keyword<int>{"wider", 125}};
constexpr std::array kCapitals{Keyword<Capitals>{"normal", Capitals::normal},
                               Keyword<Capitals>{"none", Capitals::normal},
                               Keyword<Capitals>{"small-caps", Capitals::small},
                               Keyword<Capitals>{"petite-caps", Capitals::small},
                               Keyword<Capitals>{"all-small-caps", Capitals::all},
                               Keyword<Capitals>{"all-petite-caps", Capitals::all}};
constexpr std::array kKernings{Keyword<bool>{"auto", true}, Keyword<bool>{"normal", true},
                               Keyword<bool>{"none", false}};
constexpr std::array kLigatures{
    Keyword<bool>{"normal", true}, Keyword<bool>{"common-ligatures", true},
    Keyword<bool>{"no-common-ligatures", false}, Keyword<bool>{"none", false}};
/// In pixels; "medium" is the size of text that sets none.
constexpr std::array kSizes{Keyword<double>{"xx-small", 9}, Keyword<double>{"x-small", 10},
                            Keyword<double>{"small", 13},   Keyword<double>{"medium", 16},
                            Keyword<double>{"large", 18},   Keyword<double>{"x-large", 24},
                            Keyword<double>{"xx-large", 32}};
constexpr std::array kRelativeSizes{Keyword<double>{"larger", 1.2},
                                    Keyword<double>{"smaller", 1 / 1.2}};

/// Takes the first word off `text`.
std::string_view takeWord(std::string_view& text) {
    text = trimmed(text);
    const auto length =
        static_cast<std::size_t>(std::ranges::find_if(text, isSpace) - text.begin());
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

/// The steps of the four weights that most families come in.
int bolderThan(int weight) {
    return weight < 350 ? 400 : weight < 550 ? 700 : 900;
}

int lighterThan(int weight) {
    return weight < 550 ? 100 : weight < 750 ? 400 : 700;
}

bool isFontWord(std::string_view word, ComputedStyle& style) {
    return applySlant(word, style) || applyWeight(word, style) ||
           assign(style.text.capitals, lookUp(kCapitals, word)) ||
           assign(style.text.stretch, lookUp(kStretches, word));
}

/// A list of the names and values of a font; "normal" is none of them.
bool applyList(std::string_view text, std::string_view& list) {
    list = equalsIgnoringCase(text, "normal") ? std::string_view() : text;
    return list.empty() || list.front() == '"' || list.front() == '\'';
}

}  // namespace

bool applyFamily(std::string_view text, ComputedStyle& style) {
    style.text.families = text;
    return !text.empty();
}

bool applyFont(std::string_view text, ComputedStyle& style) {
    ComputedStyle changed = style;
    changed.text.slant = FontSlant::upright;
    changed.text.weight = Drawing::Font::kRegular;
    changed.text.capitals = Capitals::normal;
    changed.text.stretch = TextStyle().stretch;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view word = takeWord(rest);
        if (isFontWord(word, changed))
            continue;
        if (!applySize(word.substr(0, word.find('/')), changed))
            continue;
        rest = trimmed(rest);
        if (rest.starts_with('/')) {
            rest.remove_prefix(1);
            takeWord(rest);
        } else if (word.ends_with('/')) {
            takeWord(rest);
        }
        const std::string_view families = trimmed(rest);
        if (families.empty())
            return false;
        changed.text.families = families;
        style = changed;
        return true;
    }
    return false;
}

bool applySize(std::string_view text, ComputedStyle& style) {
    if (const auto keyword = lookUp(kSizes, text))
        return assign(style.fontSize, keyword);
    if (const auto factor = lookUp(kRelativeSizes, text)) {
        style.fontSize *= *factor;
        return true;
    }
    const auto length = parseLength(text, style.fontSize);
    if (!length || length->value < 0)
        return false;
    style.fontSize = length->isShare ? length->value * style.fontSize : length->value;
    return true;
}

bool applySlant(std::string_view text, ComputedStyle& style) {
    return assign(style.text.slant, lookUp(kSlants, text.substr(0, text.find(' '))));
}

bool applyWeight(std::string_view text, ComputedStyle& style) {
    if (const auto keyword = lookUp(kWeights, text))
        return assign(style.text.weight, keyword);
    const bool isBolder = equalsIgnoringCase(text, "bolder");
    if (isBolder || equalsIgnoringCase(text, "lighter")) {
        int& weight = style.text.weight;
        weight = isBolder ? bolderThan(weight) : lighterThan(weight);
        return true;
    }
    NumberScanner scanner(text);
    const auto number = scanner.number();
    if (!number || !scanner.atEnd() || *number < 1 || *number > 1000)
        return false;
    style.text.weight = static_cast<int>(*number);
    return true;
}

bool applyStretch(std::string_view text, ComputedStyle& style) {
    if (const auto keyword = lookUp(kStretches, text))
        return assign(style.text.stretch, keyword);
    const auto share = parseLength(text, style.fontSize);
    if (!share || !share->isShare || share->value < 0 || share->value > 10)
        return false;
    style.text.stretch = static_cast<int>(std::lround(share->value * 100));
    return true;
}

/// Words on digits and the like change nothing here.
bool applyCapitals(std::string_view text, ComputedStyle& style) {
    style.text.capitals = Capitals::normal;
    forEachWord(text, [&style](std::string_view word) {
        assign(style.text.capitals, lookUp(kCapitals, word));
        assign(style.text.hasLigatures, lookUp(kLigatures, word));
    });
    return true;
}

bool applyKerning(std::string_view text, ComputedStyle& style) {
    return assign(style.text.isKerned, lookUp(kKernings, text));
}

bool applyLigatures(std::string_view text, ComputedStyle& style) {
    forEachWord(text, [&style](std::string_view word) {
        assign(style.text.hasLigatures, lookUp(kLigatures, word));
    });
    return true;
}

bool applyFeatures(std::string_view text, ComputedStyle& style) {
    return applyList(text, style.text.features);
}

bool applyVariations(std::string_view text, ComputedStyle& style) {
    return applyList(text, style.text.variations);
}

}  // namespace psrender::svg::textProperties
