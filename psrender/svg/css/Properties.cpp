#include "psrender/svg/css/Properties.h"

#include "psrender/svg/css/TextProperties.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/Keywords.h"
#include "psrender/svg/values/NumberScanner.h"
#include "psrender/svg/values/TransformParser.h"

#include <algorithm>
#include <array>

namespace psrender::svg {

namespace {

using scene::Cap;
using scene::FillRule;
using scene::Join;

constexpr std::array kCaps{Keyword<Cap>{"butt", Cap::butt}, Keyword<Cap>{"round", Cap::round},
                           Keyword<Cap>{"square", Cap::square}};
constexpr std::array kJoins{
    Keyword<Join>{"miter", Join::miter}, Keyword<Join>{"round", Join::round},
    Keyword<Join>{"bevel", Join::bevel}, Keyword<Join>{"miter-clip", Join::miter},
    Keyword<Join>{"arcs", Join::miter}};
constexpr std::array kFillRules{Keyword<FillRule>{"nonzero", FillRule::nonZero},
                                Keyword<FillRule>{"evenodd", FillRule::evenOdd}};
constexpr std::array kVisibilities{Keyword<bool>{"visible", true}, Keyword<bool>{"hidden", false},
                                   Keyword<bool>{"collapse", false}};
constexpr std::array kOverflows{Keyword<bool>{"visible", true}, Keyword<bool>{"auto", true},
                                Keyword<bool>{"hidden", false}, Keyword<bool>{"scroll", false}};

constexpr std::array kMaskTypes{Keyword<bool>{"luminance", false}, Keyword<bool>{"alpha", true}};
using scene::BlendMode;
constexpr std::array kBlendModes{Keyword<BlendMode>{"normal", BlendMode::normal},
                                 Keyword<BlendMode>{"multiply", BlendMode::multiply},
                                 Keyword<BlendMode>{"screen", BlendMode::screen},
                                 Keyword<BlendMode>{"overlay", BlendMode::overlay},
                                 Keyword<BlendMode>{"darken", BlendMode::darken},
                                 Keyword<BlendMode>{"lighten", BlendMode::lighten},
                                 Keyword<BlendMode>{"color-dodge", BlendMode::colorDodge},
                                 Keyword<BlendMode>{"color-burn", BlendMode::colorBurn},
                                 Keyword<BlendMode>{"hard-light", BlendMode::hardLight},
                                 Keyword<BlendMode>{"soft-light", BlendMode::softLight},
                                 Keyword<BlendMode>{"difference", BlendMode::difference},
                                 Keyword<BlendMode>{"exclusion", BlendMode::exclusion},
                                 Keyword<BlendMode>{"hue", BlendMode::hue},
                                 Keyword<BlendMode>{"saturation", BlendMode::saturation},
                                 Keyword<BlendMode>{"color", BlendMode::color},
                                 Keyword<BlendMode>{"luminosity", BlendMode::luminosity}};
constexpr std::array kImageRenderings{
    Keyword<bool>{"auto", true},          Keyword<bool>{"smooth", true},
    Keyword<bool>{"high-quality", true},  Keyword<bool>{"optimizeQuality", true},
    Keyword<bool>{"pixelated", false},    Keyword<bool>{"crisp-edges", false},
    Keyword<bool>{"optimizeSpeed", false}};
constexpr std::array kVectorEffects{Keyword<bool>{"none", false},
                                    Keyword<bool>{"non-scaling-stroke", true}};
constexpr std::array kIsolations{Keyword<bool>{"auto", false}, Keyword<bool>{"isolate", true}};
constexpr std::array kLayers{Keyword<PaintLayer>{"fill", PaintLayer::fill},
                             Keyword<PaintLayer>{"stroke", PaintLayer::stroke},
                             Keyword<PaintLayer>{"markers", PaintLayer::markers}};

constexpr std::array kSidesAcross{Keyword<double>{"left", 0}, Keyword<double>{"right", 1}};
constexpr std::array kSidesDown{Keyword<double>{"top", 0}, Keyword<double>{"bottom", 1}};

using Style = ComputedStyle;

template <auto field>
bool applyPaint(std::string_view text, Style& style) {
    return assign(style.*field, parsePaint(text));
}

template <auto field>
bool applyOpacity(std::string_view text, Style& style) {
    return assign(style.*field, parseOpacity(text));
}

template <auto field>
bool applyReference(std::string_view text, Style& style) {
    return assign(style.*field, parseReference(text));
}

bool applyMarkers(std::string_view text, Style& style) {
    return applyReference<&Style::markerStart>(text, style) &&
           applyReference<&Style::markerMid>(text, style) &&
           applyReference<&Style::markerEnd>(text, style);
}

template <auto field, const auto& keywords>
bool applyKeyword(std::string_view text, Style& style) {
    return assign(style.*field, lookUp(keywords, text));
}

bool applyColor(std::string_view text, Style& style) {
    return equalsIgnoringCase(text, "currentColor") || assign(style.color, parseColor(text));
}

bool applyStopColor(std::string_view text, Style& style) {
    return assign(style.stopColor, parsePlainPaint(text));
}

bool applyDisplay(std::string_view text, Style& style) {
    style.isDisplayed = !equalsIgnoringCase(text, "none");
    return true;
}

bool applyFilter(std::string_view text, Style& style) {
    style.filter = equalsIgnoringCase(text, "none") ? std::string_view() : text;
    return true;
}

bool applyTransform(std::string_view text, Style& style) {
    return assign(style.transform, parseTransform(text));
}

/// The layers that are named come first; the others follow in their usual order.
bool applyPaintOrder(std::string_view text, Style& style) {
    PaintOrder order = Style().paintOrder;
    auto* next = order.begin();
    bool isUnderstood = true;
    const auto take = [&](std::string_view word) {
        const auto layer = lookUp(kLayers, word);
        auto* const found = layer ? std::find(next, order.end(), *layer) : order.end();
        isUnderstood = isUnderstood && found != order.end();
        if (isUnderstood)
            std::rotate(next++, found, found + 1);
    };
    if (!equalsIgnoringCase(text, "normal"))
        forEachWord(text, take);
    if (isUnderstood)
        style.paintOrder = order;
    return isUnderstood;
}

/// One or two places, the one along the x axis first unless words tell; the depth is of no concern.
bool applyTransformOrigin(std::string_view text, Style& style) {
    Length x{0.5, true};
    Length y{0.5, true};
    std::size_t count = 0;
    bool isUnderstood = true;
    forEachWord(text, [&](std::string_view word) {
        const auto across = lookUp(kSidesAcross, word);
        const auto down = lookUp(kSidesDown, word);
        const auto length = parseLength(word, style.fontSize);
        if (across)
            x = {*across, true};
        else if (down)
            y = {*down, true};
        else if (length && count < 2)
            (count == 0 ? x : y) = *length;
        else if (!equalsIgnoringCase(word, "center"))
            isUnderstood = isUnderstood && length;
        ++count;
    });
    if (isUnderstood) {
        style.originX = x;
        style.originY = y;
    }
    return isUnderstood;
}

bool applyStrokeWidth(std::string_view text, Style& style) {
    const auto width = parseLength(text, style.fontSize);
    return width && width->value >= 0 && assign(style.strokeWidth, width);
}

bool applyMiterLimit(std::string_view text, Style& style) {
    NumberScanner scanner(text);
    const auto limit = scanner.number();
    return limit && *limit >= 1 && scanner.atEnd() && assign(style.miterLimit, limit);
}

bool applyDashOffset(std::string_view text, Style& style) {
    return assign(style.dashOffset, parseLength(text, style.fontSize));
}

/// A list with a wrong or negative entry makes the line solid.
bool applyDashes(std::string_view text, Style& style) {
    style.dashes = nullptr;
    if (equalsIgnoringCase(text, "none"))
        return true;
    std::vector<Length> dashes;
    NumberScanner scanner(text);
    while (!scanner.atEnd()) {
        const auto length = scanLength(scanner, style.fontSize);
        if (!length || length->value < 0)
            return false;
        dashes.push_back(*length);
        scanner.skipCommaSpace();
    }
    style.dashes = std::make_shared<const std::vector<Length>>(std::move(dashes));
    return true;
}

template <auto field>
void copy(const Style& from, Style& to) {
    to.*field = from.*field;
}

void copyTransformOrigin(const Style& from, Style& to) {
    copy<&Style::originX>(from, to);
    copy<&Style::originY>(from, to);
}

void copyMarkers(const Style& from, Style& to) {
    copy<&Style::markerStart>(from, to);
    copy<&Style::markerMid>(from, to);
    copy<&Style::markerEnd>(from, to);
}

template <auto field>
void copyText(const Style& from, Style& to) {
    to.text.*field = from.text.*field;
}

template <auto field>
void copyOwnText(const Style& from, Style& to) {
    to.ownText.*field = from.ownText.*field;
}

void copyFont(const Style& from, Style& to) {
    to.fontSize = from.fontSize;
    copyText<&TextStyle::capitals>(from, to);
    copyText<&TextStyle::families>(from, to);
    copyText<&TextStyle::slant>(from, to);
    copyText<&TextStyle::stretch>(from, to);
    copyText<&TextStyle::weight>(from, to);
}

void copyDecoration(const Style& from, Style& to) {
    copyOwnText<&OwnTextStyle::lines>(from, to);
    copyOwnText<&OwnTextStyle::lineShape>(from, to);
    copyOwnText<&OwnTextStyle::lineColor>(from, to);
}

struct Property {
    std::string_view name;
    bool (*apply)(std::string_view text, Style& style);
    void (*copy)(const Style& from, Style& to);
};

/// Sorted by name, for the search.
constexpr std::array<Property, kPropertyCount> kProperties{{
    {"alignment-baseline", textProperties::applyAlignment, copyOwnText<&OwnTextStyle::alignment>},
    {"baseline-shift", textProperties::applyBaselineShift,
     copyOwnText<&OwnTextStyle::baselineShift>},
    {"clip-path", applyReference<&Style::clipPath>, copy<&Style::clipPath>},
    {"clip-rule", applyKeyword<&Style::clipRule, kFillRules>, copy<&Style::clipRule>},
    {"color", applyColor, copy<&Style::color>},
    {"direction", textProperties::applyDirection, copyText<&TextStyle::isRightToLeft>},
    {"display", applyDisplay, copy<&Style::isDisplayed>},
    {"dominant-baseline", textProperties::applyBaseline, copyText<&TextStyle::baseline>},
    {"fill", applyPaint<&Style::fill>, copy<&Style::fill>},
    {"fill-opacity", applyOpacity<&Style::fillOpacity>, copy<&Style::fillOpacity>},
    {"fill-rule", applyKeyword<&Style::fillRule, kFillRules>, copy<&Style::fillRule>},
    {"filter", applyFilter, copy<&Style::filter>},
    {"font", textProperties::applyFont, copyFont},
    {"font-family", textProperties::applyFamily, copyText<&TextStyle::families>},
    {"font-feature-settings", textProperties::applyFeatures, copyText<&TextStyle::features>},
    {"font-kerning", textProperties::applyKerning, copyText<&TextStyle::isKerned>},
    {"font-size", textProperties::applySize, copy<&Style::fontSize>},
    {"font-stretch", textProperties::applyStretch, copyText<&TextStyle::stretch>},
    {"font-style", textProperties::applySlant, copyText<&TextStyle::slant>},
    {"font-variant", textProperties::applyCapitals, copyText<&TextStyle::capitals>},
    {"font-variant-caps", textProperties::applyCapitals, copyText<&TextStyle::capitals>},
    {"font-variant-ligatures", textProperties::applyLigatures, copyText<&TextStyle::hasLigatures>},
    {"font-variation-settings", textProperties::applyVariations, copyText<&TextStyle::variations>},
    {"font-weight", textProperties::applyWeight, copyText<&TextStyle::weight>},
    {"glyph-orientation-vertical", textProperties::applyOrientation,
     copyText<&TextStyle::orientation>},
    {"image-rendering", applyKeyword<&Style::hasSmoothImages, kImageRenderings>,
     copy<&Style::hasSmoothImages>},
    {"isolation", applyKeyword<&Style::isIsolated, kIsolations>, copy<&Style::isIsolated>},
    {"letter-spacing", textProperties::applyLetterSpacing, copyText<&TextStyle::letterSpacing>},
    {"line-height", textProperties::applyLineHeight, copyText<&TextStyle::lineHeight>},
    {"marker", applyMarkers, copyMarkers},
    {"marker-end", applyReference<&Style::markerEnd>, copy<&Style::markerEnd>},
    {"marker-mid", applyReference<&Style::markerMid>, copy<&Style::markerMid>},
    {"marker-start", applyReference<&Style::markerStart>, copy<&Style::markerStart>},
    {"mask", applyReference<&Style::mask>, copy<&Style::mask>},
    {"mask-type", applyKeyword<&Style::isAlphaMask, kMaskTypes>, copy<&Style::isAlphaMask>},
    {"mix-blend-mode", applyKeyword<&Style::blendMode, kBlendModes>, copy<&Style::blendMode>},
    {"opacity", applyOpacity<&Style::opacity>, copy<&Style::opacity>},
    {"overflow", applyKeyword<&Style::overflows, kOverflows>, copy<&Style::overflows>},
    {"paint-order", applyPaintOrder, copy<&Style::paintOrder>},
    {"stop-color", applyStopColor, copy<&Style::stopColor>},
    {"stop-opacity", applyOpacity<&Style::stopOpacity>, copy<&Style::stopOpacity>},
    {"stroke", applyPaint<&Style::stroke>, copy<&Style::stroke>},
    {"stroke-dasharray", applyDashes, copy<&Style::dashes>},
    {"stroke-dashoffset", applyDashOffset, copy<&Style::dashOffset>},
    {"stroke-linecap", applyKeyword<&Style::cap, kCaps>, copy<&Style::cap>},
    {"stroke-linejoin", applyKeyword<&Style::join, kJoins>, copy<&Style::join>},
    {"stroke-miterlimit", applyMiterLimit, copy<&Style::miterLimit>},
    {"stroke-opacity", applyOpacity<&Style::strokeOpacity>, copy<&Style::strokeOpacity>},
    {"stroke-width", applyStrokeWidth, copy<&Style::strokeWidth>},
    {"text-anchor", textProperties::applyAnchor, copyText<&TextStyle::anchor>},
    {"text-decoration", textProperties::applyDecoration, copyDecoration},
    {"text-decoration-color", textProperties::applyDecorationColor,
     copyOwnText<&OwnTextStyle::lineColor>},
    {"text-decoration-line", textProperties::applyDecorationLine,
     copyOwnText<&OwnTextStyle::lines>},
    {"text-decoration-style", textProperties::applyDecorationShape,
     copyOwnText<&OwnTextStyle::lineShape>},
    {"text-orientation", textProperties::applyOrientation, copyText<&TextStyle::orientation>},
    {"transform", applyTransform, copy<&Style::transform>},
    {"transform-origin", applyTransformOrigin, copyTransformOrigin},
    {"unicode-bidi", textProperties::applyBidi, copyOwnText<&OwnTextStyle::bidi>},
    {"vector-effect", applyKeyword<&Style::hasFixedStrokeWidth, kVectorEffects>,
     copy<&Style::hasFixedStrokeWidth>},
    {"visibility", applyKeyword<&Style::isVisible, kVisibilities>, copy<&Style::isVisible>},
    {"white-space", textProperties::applyWhiteSpace, copyText<&TextStyle::keepsSpace>},
    {"word-spacing", textProperties::applyWordSpacing, copyText<&TextStyle::wordSpacing>},
    {"writing-mode", textProperties::applyWritingMode, copyText<&TextStyle::isVertical>},
}};

constexpr std::optional<std::size_t> find(std::string_view name) {
    const auto* found = std::lower_bound(
        kProperties.begin(), kProperties.end(), name,
        [](const Property& property, std::string_view key) { return property.name < key; });
    if (found == kProperties.end() || found->name != name)
        return std::nullopt;
    return static_cast<std::size_t>(found - kProperties.begin());
}

}  // namespace

// NOLINTBEGIN(cert-err58-cpp): the table is searched when this is compiled.
constinit const std::size_t fontSizeProperty = find("font-size").value();
constinit const std::size_t fontProperty = find("font").value();
constinit const std::array<std::size_t, 7> fontLonghands{
    find("font-family").value(),  fontSizeProperty,
    find("font-stretch").value(), find("font-style").value(),
    find("font-variant").value(), find("font-variant-caps").value(),
    find("font-weight").value()};
// NOLINTEND(cert-err58-cpp)

std::optional<std::size_t> findProperty(std::string_view name) {
    return find(name);
}

bool applyProperty(std::size_t property, std::string_view text, ComputedStyle& style,
                   const ComputedStyle& parent) {
    const std::string_view value = trimmed(text);
    if (value == "inherit") {
        kProperties[property].copy(parent, style);
        return true;
    }
    if (value == "initial") {
        kProperties[property].copy(ComputedStyle(), style);
        return true;
    }
    return kProperties[property].apply(value, style);
}

void ComputedStyle::makeContext() {
    const auto settled = [this](PaintValue value) {
        if (value.plain.kind == PlainPaint::Kind::currentColor)
            value.plain = {PlainPaint::Kind::color, color};
        return value;
    };
    contextFill = settled(fill);
    contextStroke = settled(stroke);
}

void ComputedStyle::takeContextPaints() {
    for (PaintValue* paint : {&fill, &stroke})
        if (paint->plain.kind == PlainPaint::Kind::contextFill)
            *paint = contextFill;
        else if (paint->plain.kind == PlainPaint::Kind::contextStroke)
            *paint = contextStroke;
}

ComputedStyle ComputedStyle::childOf(const ComputedStyle& parent) {
    ComputedStyle child;
    // NOLINTNEXTLINE(cppcoreguidelines-slicing): children inherit just this part.
    static_cast<InheritedStyle&>(child) = parent;
    return child;
}

}  // namespace psrender::svg
