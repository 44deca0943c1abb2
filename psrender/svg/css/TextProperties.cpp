#include "psrender/svg/css/TextProperties.h"

#include "psrender/svg/values/Keywords.h"
#include "psrender/svg/values/NumberScanner.h"

#include <algorithm>

namespace psrender::svg::textProperties {

namespace {

using Drawing::FontSlant;

constexpr std::array kAnchors{Keyword<TextAnchor>{"start", TextAnchor::start},
                              Keyword<TextAnchor>{"middle", TextAnchor::middle},
                              Keyword<TextAnchor>{"end", TextAnchor::end}};
constexpr std::array kBaselines{Keyword<Baseline>{"auto", Baseline::alphabetic},
                                Keyword<Baseline>{"baseline", Baseline::alphabetic},
                                Keyword<Baseline>{"alphabetic", Baseline::alphabetic},
                                Keyword<Baseline>{"middle", Baseline::middle},
                                Keyword<Baseline>{"central", Baseline::central},
                                Keyword<Baseline>{"mathematical", Baseline::central},
                                Keyword<Baseline>{"hanging", Baseline::hanging},
                                Keyword<Baseline>{"text-before-edge", Baseline::top},
                                Keyword<Baseline>{"before-edge", Baseline::top},
                                Keyword<Baseline>{"text-top", Baseline::top},
                                Keyword<Baseline>{"text-after-edge", Baseline::bottom},
                                Keyword<Baseline>{"after-edge", Baseline::bottom},
                                Keyword<Baseline>{"ideographic", Baseline::bottom},
                                Keyword<Baseline>{"text-bottom", Baseline::bottom}};
constexpr std::array kDirections{Keyword<bool>{"ltr", false}, Keyword<bool>{"rtl", true}};
constexpr std::array kSlants{Keyword<FontSlant>{"normal", FontSlant::upright},
                             Keyword<FontSlant>{"italic", FontSlant::italic},
                             Keyword<FontSlant>{"oblique", FontSlant::oblique}};
constexpr std::array kWeights{Keyword<int>{"normal", 400}, Keyword<int>{"bold", 700}};
constexpr std::array kSpaces{Keyword<bool>{"normal", false},   Keyword<bool>{"nowrap", false},
                             Keyword<bool>{"pre-line", false}, Keyword<bool>{"pre", true},
                             Keyword<bool>{"pre-wrap", true},  Keyword<bool>{"break-spaces", true}};
constexpr std::array kKernings{Keyword<bool>{"auto", true}, Keyword<bool>{"normal", true},
                               Keyword<bool>{"none", false}};
/// In pixels; "medium" is the size of text that sets none.
constexpr std::array kSizes{Keyword<double>{"xx-small", 9}, Keyword<double>{"x-small", 10},
                            Keyword<double>{"small", 13},   Keyword<double>{"medium", 16},
                            Keyword<double>{"large", 18},   Keyword<double>{"x-large", 24},
                            Keyword<double>{"xx-large", 32}};
constexpr std::array kRelativeSizes{Keyword<double>{"larger", 1.2},
                                    Keyword<double>{"smaller", 1 / 1.2}};
/// In ems, upwards.
constexpr std::array kShifts{Keyword<double>{"baseline", 0}, Keyword<double>{"sub", -0.2},
                             Keyword<double>{"super", 0.4}};
constexpr std::array kLines{Keyword<DecorationSet>{"underline", decoration::kUnderline},
                            Keyword<DecorationSet>{"overline", decoration::kOverline},
                            Keyword<DecorationSet>{"line-through", decoration::kLineThrough}};

constexpr double kLighterStep = 300;

bool applySpacing(std::string_view text, double fontSize, double& spacing) {
    if (equalsIgnoringCase(text, "normal")) {
        spacing = 0;
        return true;
    }
    const auto length = parseLength(text, fontSize);
    if (length)
        spacing = length->isShare ? length->value * fontSize : length->value;
    return length.has_value();
}

/// Takes the first word off `text`.
std::string_view takeWord(std::string_view& text) {
    text = trimmed(text);
    const auto length =
        static_cast<std::size_t>(std::ranges::find_if(text, isSpace) - text.begin());
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

}  // namespace

bool applyAnchor(std::string_view text, ComputedStyle& style) {
    return assign(style.text.anchor, lookUp(kAnchors, text));
}

bool applyBaseline(std::string_view text, ComputedStyle& style) {
    return assign(style.text.baseline, lookUp(kBaselines, text));
}

bool applyBaselineShift(std::string_view text, ComputedStyle& style) {
    if (const auto ems = lookUp(kShifts, text)) {
        style.baselineShift = *ems * style.fontSize;
        return true;
    }
    const auto length = parseLength(text, style.fontSize);
    if (length)
        style.baselineShift = length->isShare ? length->value * style.fontSize : length->value;
    return length.has_value();
}

/// A line that was begun around the element goes on within it.
bool applyDecoration(std::string_view text, ComputedStyle& style) {
    forEachWord(text, [&style](std::string_view word) {
        style.text.decorations |= lookUp(kLines, word).value_or(0);
    });
    return true;
}

bool applyDirection(std::string_view text, ComputedStyle& style) {
    return assign(style.text.isRightToLeft, lookUp(kDirections, text));
}

bool applyFamily(std::string_view text, ComputedStyle& style) {
    style.text.families = text;
    return !text.empty();
}

bool applyFont(std::string_view text, ComputedStyle& style) {
    ComputedStyle changed = style;
    changed.text.slant = FontSlant::upright;
    changed.text.weight = Drawing::Font::kRegular;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view word = takeWord(rest);
        if (applySlant(word, changed) || applyWeight(word, changed))
            continue;
        if (!applySize(word.substr(0, word.find('/')), changed))
            continue;
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
    return assign(style.text.slant, lookUp(kSlants, text));
}

bool applyWeight(std::string_view text, ComputedStyle& style) {
    if (const auto keyword = lookUp(kWeights, text))
        return assign(style.text.weight, keyword);
    const bool isBolder = equalsIgnoringCase(text, "bolder");
    if (isBolder || equalsIgnoringCase(text, "lighter")) {
        const double step = isBolder ? kLighterStep : -kLighterStep;
        style.text.weight = static_cast<int>(std::clamp(style.text.weight + step, 100.0, 900.0));
        return true;
    }
    NumberScanner scanner(text);
    const auto number = scanner.number();
    if (!number || !scanner.atEnd() || *number < 1 || *number > 1000)
        return false;
    style.text.weight = static_cast<int>(*number);
    return true;
}

bool applyKerning(std::string_view text, ComputedStyle& style) {
    return assign(style.text.isKerned, lookUp(kKernings, text));
}

bool applyWhiteSpace(std::string_view text, ComputedStyle& style) {
    return assign(style.text.keepsSpace, lookUp(kSpaces, text));
}

bool applyLetterSpacing(std::string_view text, ComputedStyle& style) {
    return applySpacing(text, style.fontSize, style.text.letterSpacing);
}

bool applyWordSpacing(std::string_view text, ComputedStyle& style) {
    return applySpacing(text, style.fontSize, style.text.wordSpacing);
}

}  // namespace psrender::svg::textProperties
