#include "psrender/svg/css/TextProperties.h"

#include "psrender/svg/values/Keywords.h"

#include <memory>

namespace psrender::svg::textProperties {

namespace {

constexpr std::array kAnchors{Keyword<TextAnchor>{"start", TextAnchor::start},
                              Keyword<TextAnchor>{"middle", TextAnchor::middle},
                              Keyword<TextAnchor>{"end", TextAnchor::end}};
constexpr std::array kBaselines{Keyword<Baseline>{"auto", Baseline::alphabetic},
                                Keyword<Baseline>{"alphabetic", Baseline::alphabetic},
                                Keyword<Baseline>{"use-script", Baseline::alphabetic},
                                Keyword<Baseline>{"middle", Baseline::middle},
                                Keyword<Baseline>{"central", Baseline::central},
                                Keyword<Baseline>{"mathematical", Baseline::mathematical},
                                Keyword<Baseline>{"hanging", Baseline::hanging},
                                Keyword<Baseline>{"text-before-edge", Baseline::top},
                                Keyword<Baseline>{"text-after-edge", Baseline::bottom},
                                Keyword<Baseline>{"ideographic", Baseline::bottom}};
/// What may be said of the text of one element only, beside the above.
constexpr std::array kEdges{Keyword<Baseline>{"baseline", Baseline::alphabetic},
                            Keyword<Baseline>{"before-edge", Baseline::top},
                            Keyword<Baseline>{"text-top", Baseline::top},
                            Keyword<Baseline>{"after-edge", Baseline::bottom},
                            Keyword<Baseline>{"text-bottom", Baseline::bottom}};
constexpr std::array kBidiModes{Keyword<BidiMode>{"normal", BidiMode::normal},
                                Keyword<BidiMode>{"embed", BidiMode::embed},
                                Keyword<BidiMode>{"isolate", BidiMode::isolate},
                                Keyword<BidiMode>{"plaintext", BidiMode::isolate},
                                Keyword<BidiMode>{"bidi-override", BidiMode::replace},
                                Keyword<BidiMode>{"isolate-override", BidiMode::replace}};
constexpr std::array kDirections{Keyword<bool>{"ltr", false}, Keyword<bool>{"rtl", true}};
constexpr std::array kSpaces{Keyword<bool>{"normal", false},   Keyword<bool>{"nowrap", false},
                             Keyword<bool>{"pre-line", false}, Keyword<bool>{"pre", true},
                             Keyword<bool>{"pre-wrap", true},  Keyword<bool>{"break-spaces", true}};
/// Whether lines run down the page.
constexpr std::array kWritingModes{Keyword<bool>{"lr", false},
                                   Keyword<bool>{"lr-tb", false},
                                   Keyword<bool>{"rl", false},
                                   Keyword<bool>{"rl-tb", false},
                                   Keyword<bool>{"horizontal-tb", false},
                                   Keyword<bool>{"tb", true},
                                   Keyword<bool>{"tb-rl", true},
                                   Keyword<bool>{"tb-lr", true},
                                   Keyword<bool>{"vertical-rl", true},
                                   Keyword<bool>{"vertical-lr", true},
                                   Keyword<bool>{"sideways-rl", true},
                                   Keyword<bool>{"sideways-lr", true}};
constexpr std::array kOrientations{Keyword<Orientation>{"mixed", Orientation::mixed},
                                   Keyword<Orientation>{"auto", Orientation::mixed},
                                   Keyword<Orientation>{"upright", Orientation::upright},
                                   Keyword<Orientation>{"0", Orientation::upright},
                                   Keyword<Orientation>{"0deg", Orientation::upright},
                                   Keyword<Orientation>{"sideways", Orientation::sideways},
                                   Keyword<Orientation>{"sideways-right", Orientation::sideways},
                                   Keyword<Orientation>{"90", Orientation::sideways},
                                   Keyword<Orientation>{"90deg", Orientation::sideways}};
/// In ems, upwards.
constexpr std::array kShifts{Keyword<double>{"baseline", 0}, Keyword<double>{"sub", -0.2},
                             Keyword<double>{"super", 0.4}};
constexpr std::array kLines{Keyword<DecorationSet>{"none", 0},
                            Keyword<DecorationSet>{"underline", decoration::kUnderline},
                            Keyword<DecorationSet>{"overline", decoration::kOverline},
                            Keyword<DecorationSet>{"line-through", decoration::kLineThrough}};
constexpr std::array kLineShapes{Keyword<DecorationShape>{"solid", DecorationShape::solid},
                                 Keyword<DecorationShape>{"double", DecorationShape::twofold},
                                 Keyword<DecorationShape>{"dotted", DecorationShape::dotted},
                                 Keyword<DecorationShape>{"dashed", DecorationShape::dashed},
                                 Keyword<DecorationShape>{"wavy", DecorationShape::wavy}};

bool applySpacing(std::string_view text, double fontSize, Length& spacing) {
    if (equalsIgnoringCase(text, "normal")) {
        spacing = {};
        return true;
    }
    return assign(spacing, parseLength(text, fontSize));
}

}  // namespace

bool applyAnchor(std::string_view text, ComputedStyle& style) {
    return assign(style.text.anchor, lookUp(kAnchors, text));
}

bool applyAlignment(std::string_view text, ComputedStyle& style) {
    if (equalsIgnoringCase(text, "auto")) {
        style.ownText.alignment.reset();
        return true;
    }
    const auto edge = lookUp(kEdges, text);
    return assign(style.ownText.alignment, edge ? edge : lookUp(kBaselines, text));
}

bool applyBaseline(std::string_view text, ComputedStyle& style) {
    const bool staysAsItIs =
        equalsIgnoringCase(text, "no-change") || equalsIgnoringCase(text, "reset-size");
    return staysAsItIs || assign(style.text.baseline, lookUp(kBaselines, text));
}

bool applyBaselineShift(std::string_view text, ComputedStyle& style) {
    double& shift = style.ownText.baselineShift;
    if (const auto ems = lookUp(kShifts, text)) {
        shift = *ems * style.fontSize;
        return true;
    }
    const auto length = parseLength(text, style.fontSize);
    if (length)
        shift = length->isShare ? length->value * style.fontSize : length->value;
    return length.has_value();
}

bool applyBidi(std::string_view text, ComputedStyle& style) {
    return assign(style.ownText.bidi, lookUp(kBidiModes, text));
}

/// What is neither a line nor a shape nor a colour is a thickness, which fonts tell better.
bool applyDecoration(std::string_view text, ComputedStyle& style) {
    OwnTextStyle& own = style.ownText;
    own.lines = 0;
    own.lineShape = DecorationShape::solid;
    own.lineColor.reset();
    forEachWord(text, [&own](std::string_view word) {
        if (const auto line = lookUp(kLines, word))
            own.lines |= *line;
        else if (!assign(own.lineShape, lookUp(kLineShapes, word)))
            if (const auto color = parsePlainPaint(word))
                own.lineColor = color;
    });
    return true;
}

bool applyDecorationLine(std::string_view text, ComputedStyle& style) {
    style.ownText.lines = 0;
    forEachWord(text, [&style](std::string_view word) {
        style.ownText.lines |= lookUp(kLines, word).value_or(0);
    });
    return true;
}

bool applyDecorationColor(std::string_view text, ComputedStyle& style) {
    return assign(style.ownText.lineColor, parsePlainPaint(text));
}

bool applyDecorationShape(std::string_view text, ComputedStyle& style) {
    return assign(style.ownText.lineShape, lookUp(kLineShapes, text));
}

bool applyDirection(std::string_view text, ComputedStyle& style) {
    return assign(style.text.isRightToLeft, lookUp(kDirections, text));
}

bool applyOrientation(std::string_view text, ComputedStyle& style) {
    return assign(style.text.orientation, lookUp(kOrientations, text));
}

bool applyLineHeight(std::string_view text, ComputedStyle& style) {
    double& height = style.text.lineHeight;
    if (equalsIgnoringCase(text, "normal")) {
        height = TextStyle().lineHeight;
        return true;
    }
    const auto length = parseLength(text, style.fontSize);
    if (!length || length->value < 0)
        return false;
    const bool isFactor = length->isShare || isDigit(text.back()) || text.back() == '.';
    if (isFactor)
        height = length->value;
    else if (style.fontSize > 0)
        height = length->value / style.fontSize;
    return true;
}

bool applyWhiteSpace(std::string_view text, ComputedStyle& style) {
    return assign(style.text.keepsSpace, lookUp(kSpaces, text));
}

bool applyWritingMode(std::string_view text, ComputedStyle& style) {
    return assign(style.text.isVertical, lookUp(kWritingModes, text));
}

bool applyLetterSpacing(std::string_view text, ComputedStyle& style) {
    return applySpacing(text, style.fontSize, style.text.letterSpacing);
}

bool applyWordSpacing(std::string_view text, ComputedStyle& style) {
    return applySpacing(text, style.fontSize, style.text.wordSpacing);
}

void collectDecorations(ComputedStyle& style) {
    const OwnTextStyle& own = style.ownText;
    if (own.lines == 0)
        return;
    auto list = style.text.decorations
                    ? std::make_shared<std::vector<Decoration>>(*style.text.decorations)
                    : std::make_shared<std::vector<Decoration>>();
    // NOLINTNEXTLINE(cppcoreguidelines-slicing): a line is painted by what is inherited.
    list->push_back({own.lines, own.lineShape, style});
    InheritedStyle& painted = list->back().style;
    painted.text.decorations = nullptr;
    if (own.lineColor) {
        painted.fill = {};
        painted.fill.plain = *own.lineColor;
        painted.stroke = {};
    }
    style.text.decorations = std::move(list);
}

}  // namespace psrender::svg::textProperties
